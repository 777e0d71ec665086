#include "indices/count_box.h"

#include "indices/sheet_metal.h"
#include "uikit/key_filter.h"
#include "workitems/labour.h"
#include "workitems/numeric_keys.h"
#include "workitems/text_box.h"

#include <QLineEdit>
#include <QSignalBlocker>
#include <memory>

namespace est::indices {

void makeCountBox(QLineEdit *box, Messages &messages, std::function<void(const QString &)> changed)
{
    new ui::KeyFilter(box, workitems::numericKeyRule(false), messages);
    workitems::selectAllOnFocus(box);
    box->setMaxLength(6);
    auto accepted = std::make_shared<QString>(box->text());
    QObject::connect(box, &QLineEdit::textChanged, box, [box, accepted, changed, &messages](const QString &text) {
        QString filtered = workitems::filterNumericText(text, false);
        if (!sizeFromText(filtered)) {
            messages.beep();
            filtered = *accepted;
        }
        if (filtered != text) {
            const QSignalBlocker quiet(box);
            box->setText(filtered);
        }
        if (filtered == *accepted && filtered != text)
            return; // refused: nothing changed
        *accepted = filtered;
        changed(filtered);
    });
}

} // namespace est::indices
