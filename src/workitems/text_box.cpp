#include "workitems/text_box.h"

#include "common/number_format.h"

#include <QEvent>
#include <QLineEdit>
#include <QTimer>

namespace est::workitems {

void selectAllText(QLineEdit *box)
{
    box->setCursorPosition(0);
    box->setSelection(0, int(box->text().size()));
}

void formatTwoDecimals(QLineEdit *box)
{
    box->setCursorPosition(int(box->text().size()));
    const auto value = parseDisplayedNumber(box->text());
    if (value)
        box->setText(formatFixed2(*value));
}

namespace {

class SelectOnFocus : public QObject
{
public:
    explicit SelectOnFocus(QLineEdit *box) : QObject(box), m_box(box) { box->installEventFilter(this); }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::FocusIn) {
            // After the click that gave the focus has placed the caret.
            QTimer::singleShot(0, m_box, [box = m_box] { selectAllText(box); });
        }
        return QObject::eventFilter(watched, event);
    }

private:
    QLineEdit *m_box;
};

} // namespace

void selectAllOnFocus(QLineEdit *box)
{
    new SelectOnFocus(box);
}

} // namespace est::workitems
