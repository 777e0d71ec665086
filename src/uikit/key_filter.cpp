#include "uikit/key_filter.h"

#include <QKeyEvent>
#include <QLineEdit>

namespace est::ui {

KeyFilter::KeyFilter(QLineEdit *edit, KeyRule rule, Messages &messages)
    : QObject(edit), m_rule(std::move(rule)), m_messages(messages)
{
    edit->installEventFilter(this);
}

bool KeyFilter::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::KeyPress)
        return QObject::eventFilter(watched, event);
    auto *key = static_cast<QKeyEvent *>(event);
    QChar c;
    if (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter)
        c = QLatin1Char('\r');
    else if (!key->text().isEmpty())
        c = key->text().at(0);
    else
        return false; // arrows, Home, End ... are not characters
    switch (m_rule(c)) {
    case KeyVerdict::Accept:
        Q_EMIT accepted(c);
        return false;
    case KeyVerdict::Swallow:
        return true;
    case KeyVerdict::Drop:
        m_messages.beep();
        return true;
    }
    return false;
}

} // namespace est::ui
