#include "uikit/guarded_dialog.h"

#include <QCloseEvent>
#include <QKeyEvent>

namespace est::ui {

void refuseCloseBox(Messages &messages)
{
    messages.inform(QStringLiteral("中止する場合、キャンセルボタンをクリックしてください"),
                    QStringLiteral("注意"), MessageIcon::Exclamation);
}

GuardedDialog::GuardedDialog(Messages &messages, QWidget *parent)
    : QDialog(parent), m_messages(messages)
{
}

void GuardedDialog::closeEvent(QCloseEvent *event)
{
    // accept()/done() hide the dialog without a close event; a close event is the close box.
    if (m_closingByButton || !isVisible()) {
        QDialog::closeEvent(event);
        return;
    }
    event->ignore();
    refuseCloseBox(m_messages);
}

void GuardedDialog::keyPressEvent(QKeyEvent *event)
{
    if (m_escapeCancels && event->key() == Qt::Key_Escape && event->modifiers() == Qt::NoModifier) {
        cancelByButton();
        return;
    }
    QDialog::keyPressEvent(event);
}

void GuardedDialog::reject()
{
    if (m_closingByButton) {
        QDialog::reject();
        return;
    }
    // Escape and the window manager's close both arrive here.
    refuseCloseBox(m_messages);
}

void GuardedDialog::cancelByButton()
{
    m_closingByButton = true;
    QDialog::reject();
    m_closingByButton = false;
}

} // namespace est::ui
