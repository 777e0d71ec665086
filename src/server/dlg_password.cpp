#include "server/dlg_password.h"

#include "uikit/dialog_buttons.h"
#include "uikit/named.h"

#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

namespace est::server {

DlgPassword::DlgPassword(const QString &prompt, Messages &messages, QWidget *parent) : GuardedDialog(messages, parent)
{
    setObjectName(QStringLiteral("dlgPassword"));
    setWindowTitle(QStringLiteral("共有サーバーのパスワード"));
    setModal(true);
    setEscapeCancels(true);
    auto *layout = new QVBoxLayout(this);
    auto *label = ui::named(new QLabel(prompt, this), "lblPrompt");
    label->setWordWrap(true);
    layout->addWidget(label);
    m_password = ui::named(new QLineEdit(this), "txtPassword");
    m_password->setEchoMode(QLineEdit::Password);
    layout->addWidget(m_password);
    const ui::DialogButtons buttons = ui::dialogButtons(this, true);
    layout->addLayout(buttons.row);
    connect(buttons.ok, &QPushButton::clicked, this, &QDialog::accept);
    connect(buttons.cancel, &QPushButton::clicked, this, &DlgPassword::cancelByButton);
    resize(420, 150);
}

QString DlgPassword::password() const
{
    return m_password->text();
}

std::optional<QString> DlgPassword::ask(const QString &prompt, Messages &messages, QWidget *parent)
{
    DlgPassword dialog(prompt, messages, parent);
    if (dialog.exec() != QDialog::Accepted)
        return std::nullopt;
    return dialog.password();
}

} // namespace est::server
