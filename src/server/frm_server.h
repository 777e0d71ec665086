#pragma once
// frmServer: where this seat's data live. このPCのデータだけ, or a shared PostgreSQL server
// (host, port, database, user, TLS) and this seat's name; 接続テスト tries it, 保存 keeps it
// in the user's settings without any password. The screen reads its controls into a
// ServerForm and shows what comes back.

#include "server/server_form.h"
#include "uikit/guarded_dialog.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QRadioButton;

namespace est::server {

class FrmServer : public ui::GuardedDialog
{
    Q_OBJECT
public:
    FrmServer(Messages &messages, PasswordAsker askPassword, QWidget *parent = nullptr);

private:
    void buildUi();
    void showForm(const ServerForm &form);
    ServerForm readForm() const;
    void sharedToggled(bool shared);
    void testConnection();
    void save();

    PasswordAsker m_askPassword;
    QRadioButton *m_optLocal, *m_optServer;
    QLineEdit *m_host, *m_port, *m_database, *m_user, *m_seat;
    QComboBox *m_tls;
    QLabel *m_result, *m_note;
};

} // namespace est::server
