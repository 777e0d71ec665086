#include "uikit/message_box_messages.h"

#include <QApplication>
#include <QMessageBox>

namespace est::ui {

namespace {

QMessageBox::Icon toIcon(MessageIcon icon)
{
    switch (icon) {
    case MessageIcon::Information: return QMessageBox::Information;
    case MessageIcon::Question: return QMessageBox::Question;
    case MessageIcon::Exclamation: return QMessageBox::Warning;
    case MessageIcon::Critical: return QMessageBox::Critical;
    case MessageIcon::None: break;
    }
    return QMessageBox::NoIcon;
}

Answer run(QWidget *parent, const QString &text, const QString &title, MessageIcon icon,
           QMessageBox::StandardButtons buttons, QMessageBox::StandardButton defaultButton)
{
    QMessageBox box(toIcon(icon), title.isEmpty() ? defaultMessageTitle() : title, text, buttons,
                    parent ? parent : QApplication::activeWindow());
    box.setDefaultButton(defaultButton);
    switch (box.exec()) {
    case QMessageBox::Yes: return Answer::Yes;
    case QMessageBox::No: return Answer::No;
    case QMessageBox::Cancel: return Answer::Cancel;
    default: return Answer::Ok;
    }
}

} // namespace

void MessageBoxMessages::inform(const QString &text, const QString &title, MessageIcon icon)
{
    run(m_parent, text, title, icon, QMessageBox::Ok, QMessageBox::Ok);
}

Answer MessageBoxMessages::askYesNo(const QString &text, const QString &title, MessageIcon icon)
{
    const Answer a = run(m_parent, text, title, icon, QMessageBox::Yes | QMessageBox::No, QMessageBox::Yes);
    return a == Answer::Yes ? Answer::Yes : Answer::No;
}

Answer MessageBoxMessages::askYesNoCancel(const QString &text, const QString &title, MessageIcon icon)
{
    return run(m_parent, text, title, icon, QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel,
               QMessageBox::Yes);
}

Answer MessageBoxMessages::askOkCancel(const QString &text, const QString &title, MessageIcon icon)
{
    const Answer a = run(m_parent, text, title, icon, QMessageBox::Ok | QMessageBox::Cancel, QMessageBox::Ok);
    return a == Answer::Cancel ? Answer::Cancel : Answer::Ok;
}

void MessageBoxMessages::beep()
{
    QApplication::beep();
}

} // namespace est::ui
