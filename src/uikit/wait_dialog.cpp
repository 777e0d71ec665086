#include "uikit/wait_dialog.h"

#include <QApplication>
#include <QLabel>
#include <QVBoxLayout>

namespace est::ui {

WaitDialog::WaitDialog(QWidget *parent)
    : QDialog(parent, Qt::Dialog | Qt::FramelessWindowHint)
{
    setObjectName(QStringLiteral("dlgWait"));
    setModal(false);
    auto *layout = new QVBoxLayout(this);
    auto *label = new QLabel(QStringLiteral("しばらくお待ちください..."), this);
    label->setObjectName(QStringLiteral("lblWait"));
    label->setAlignment(Qt::AlignCenter);
    layout->addWidget(label);
    setFixedSize(260, 80);
}

WaitScope::WaitScope(WaitDialog *dialog) : m_dialog(dialog)
{
    if (m_dialog) {
        m_dialog->show();
        m_dialog->raise();
        QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    }
}

WaitScope::~WaitScope()
{
    if (m_dialog)
        m_dialog->hide();
}

} // namespace est::ui
