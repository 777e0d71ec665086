#pragma once
// dlgPassword: the password of the shared server, asked when the server wants one and libpq
// found none (~/.pgpass, PGPASSFILE). The caller keeps it in memory only.

#include "uikit/guarded_dialog.h"

#include <optional>

class QLineEdit;

namespace est::server {

class DlgPassword : public ui::GuardedDialog
{
    Q_OBJECT
public:
    DlgPassword(const QString &prompt, Messages &messages, QWidget *parent = nullptr);
    QString password() const;

    // Shows the dialog; the password typed, nothing when cancelled.
    static std::optional<QString> ask(const QString &prompt, Messages &messages, QWidget *parent = nullptr);

private:
    QLineEdit *m_password;
};

} // namespace est::server
