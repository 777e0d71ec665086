#include "server/frm_server.h"

#include "uikit/dialog_buttons.h"
#include "uikit/named.h"

#include <QApplication>
#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace est::server {

using ui::named;

FrmServer::FrmServer(Messages &messages, PasswordAsker askPassword, QWidget *parent)
    : GuardedDialog(messages, parent), m_askPassword(std::move(askPassword))
{
    setObjectName(QStringLiteral("frmServer"));
    setWindowTitle(QStringLiteral("共有サーバー"));
    setModal(true);
    buildUi();
    showForm(ServerForm());
}

void FrmServer::buildUi()
{
    auto *layout = new QVBoxLayout(this);
    m_optLocal = named(new QRadioButton(QStringLiteral("このPCのデータだけを使う"), this), "optLocal");
    m_optServer = named(new QRadioButton(QStringLiteral("共有サーバーのデータを使う"), this), "optServer");
    layout->addWidget(m_optLocal);
    layout->addWidget(m_optServer);

    auto *box = new QGroupBox(QStringLiteral("共有サーバー"), this);
    auto *form = new QFormLayout(box);
    form->addRow(QStringLiteral("サーバー名"), m_host = named(new QLineEdit(box), "txtHost"));
    form->addRow(QStringLiteral("ポート番号"), m_port = named(new QLineEdit(box), "txtPort"));
    m_port->setPlaceholderText(QStringLiteral("5432"));
    m_port->setMaxLength(5);
    form->addRow(QStringLiteral("データベース名"), m_database = named(new QLineEdit(box), "txtDatabase"));
    form->addRow(QStringLiteral("ユーザー名"), m_user = named(new QLineEdit(box), "txtUser"));
    form->addRow(QStringLiteral("暗号化（TLS）"), m_tls = named(new QComboBox(box), "cboTls"));
    for (const TlsMode &mode : tlsModes())
        m_tls->addItem(mode.caption, mode.mode);
    layout->addWidget(box);

    auto *seatRow = new QFormLayout;
    seatRow->addRow(QStringLiteral("この席の名前"), m_seat = named(new QLineEdit(this), "txtSeat"));
    layout->addLayout(seatRow);

    auto *test = named(new QPushButton(QStringLiteral("接続テスト"), this), "cmdTest");
    test->setAutoDefault(false);
    layout->addWidget(test, 0, Qt::AlignLeft);
    m_result = named(new QLabel(this), "lblResult");
    m_result->setWordWrap(true);
    m_result->setTextInteractionFlags(Qt::TextSelectableByMouse);
    layout->addWidget(m_result);
    m_note = named(new QLabel(this), "lblNote");
    m_note->setWordWrap(true);
    layout->addWidget(m_note);

    ui::DialogButtons buttons = ui::dialogButtons(this);
    buttons.ok->setText(QStringLiteral("保存"));
    buttons.ok->setObjectName(QStringLiteral("cmdSave"));
    layout->addLayout(buttons.row);

    connect(m_optServer, &QRadioButton::toggled, this, &FrmServer::sharedToggled);
    connect(test, &QPushButton::clicked, this, &FrmServer::testConnection);
    connect(buttons.ok, &QPushButton::clicked, this, &FrmServer::save);
    connect(buttons.cancel, &QPushButton::clicked, this, &FrmServer::cancelByButton);
    resize(460, 420);
}

void FrmServer::showForm(const ServerForm &form)
{
    (form.shared ? m_optServer : m_optLocal)->setChecked(true);
    m_host->setText(form.fields.host);
    m_port->setText(form.fields.port);
    m_database->setText(form.fields.database);
    m_user->setText(form.fields.user);
    const int tls = m_tls->findData(form.fields.sslMode.isEmpty() ? QStringLiteral("prefer") : form.fields.sslMode);
    m_tls->setCurrentIndex(tls < 0 ? 0 : tls);
    m_seat->setText(form.seat);
    sharedToggled(form.shared);
    if (ServerForm::overridden())
        m_note->setText(QStringLiteral("環境変数 ESTIMATE_DB が設定されているため、いまはその接続で動いています。"
                                       "ここで保存した設定は、ESTIMATE_DB がないときに使われます。"));
}

ServerForm FrmServer::readForm() const
{
    ServerForm form;
    form.shared = m_optServer->isChecked();
    form.fields.host = m_host->text().trimmed();
    form.fields.port = m_port->text().trimmed();
    form.fields.database = m_database->text().trimmed();
    form.fields.user = m_user->text().trimmed();
    form.fields.sslMode = m_tls->currentData().toString();
    form.seat = m_seat->text().trimmed();
    return form;
}

void FrmServer::sharedToggled(bool shared)
{
    for (QWidget *w : std::initializer_list<QWidget *>{m_host, m_port, m_database, m_user, m_tls})
        w->setEnabled(shared);
    if (QWidget *test = findChild<QPushButton *>(QStringLiteral("cmdTest")))
        test->setEnabled(shared);
}

void FrmServer::testConnection()
{
    const ServerForm form = readForm();
    if (const QString problem = form.problem(); !problem.isEmpty()) {
        m_result->setText(problem);
        return;
    }
    m_result->setText(QStringLiteral("接続しています…"));
    QApplication::setOverrideCursor(Qt::WaitCursor);
    const db::ServerCheck check = form.test(m_askPassword);
    QApplication::restoreOverrideCursor();
    m_result->setText(check.message);
}

void FrmServer::save()
{
    const ServerForm form = readForm();
    if (const QString problem = form.problem(); !problem.isEmpty()) {
        messages().inform(problem, QStringLiteral("共有サーバー"), MessageIcon::Exclamation);
        return;
    }
    form.save();
    messages().inform(form.shared ? QStringLiteral("共有サーバーの設定を保存しました。\n"
                                                   "次にプログラムを起動したときから、共有サーバーのデータで動きます。")
                                  : QStringLiteral("このPCのデータだけを使う設定を保存しました。\n"
                                                   "次にプログラムを起動したときから、このPCのデータで動きます。"),
                      QStringLiteral("共有サーバー"), MessageIcon::Information);
    accept();
}

} // namespace est::server
