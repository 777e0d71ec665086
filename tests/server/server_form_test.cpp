// frmServer and its logic: what the fields make, what is refused, what is kept, and a real
// server's answers to 接続テスト, a password included.
#include "db/server_settings.h"
#include "pg_server.h"
#include "scripted_messages.h"
#include "server/dlg_password.h"
#include "server/frm_server.h"
#include "server/server_form.h"

#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSettings>
#include <gtest/gtest.h>

using namespace est;
using namespace est::server;

namespace {

void clearServerSettings()
{
    QSettings settings;
    settings.remove(db::kServerGroup);
}

ServerForm filled(const char *host, const char *port, const char *database, const char *user, const char *seat)
{
    ServerForm form;
    form.shared = true;
    form.fields = {QString::fromUtf8(host), QString::fromUtf8(port), QString::fromUtf8(database), QString::fromUtf8(user),
                   QString(), QString()};
    form.seat = QString::fromUtf8(seat);
    return form;
}

struct ProblemCase
{
    const char *host, *port, *database, *user, *seat;
    const char *problem;
};

class ServerFormProblems : public ::testing::TestWithParam<ProblemCase>
{
};

TEST_P(ServerFormProblems, AreSaidBeforeAnythingIsTriedOrKept)
{
    const ProblemCase &c = GetParam();
    EXPECT_EQ(filled(c.host, c.port, c.database, c.user, c.seat).problem(), QString::fromUtf8(c.problem));
}

INSTANTIATE_TEST_SUITE_P(
    Fields, ServerFormProblems,
    ::testing::Values(ProblemCase{"db.shop.lan", "", "estimate", "front", "受付", ""},
                      ProblemCase{"db.shop.lan", "5433", "estimate", "front", "受付", ""},
                      ProblemCase{"db.shop.lan", "65535", "estimate", "front", "受付", ""},
                      ProblemCase{"", "", "estimate", "front", "受付", "サーバー名を入力してください。"},
                      ProblemCase{"db", "0", "estimate", "front", "受付", "ポート番号は 1 から 65535 までの数字で入力してください。"},
                      ProblemCase{"db", "65536", "estimate", "front", "受付", "ポート番号は 1 から 65535 までの数字で入力してください。"},
                      ProblemCase{"db", "54a", "estimate", "front", "受付", "ポート番号は 1 から 65535 までの数字で入力してください。"},
                      ProblemCase{"db", "", "", "front", "受付", "データベース名を入力してください。"},
                      ProblemCase{"db", "", "estimate", "", "受付", "ユーザー名を入力してください。"},
                      ProblemCase{"db", "", "estimate", "front", "  ", "この席の名前を入力してください。"}));

TEST(ServerForm, MakesAConnectionStringWithoutAnyPassword)
{
    ServerForm form = filled("db.shop.lan", "5433", "見積 データ", "o'brien", "受付");
    form.fields.sslMode = QStringLiteral("require");
    form.fields.other = QStringLiteral("password=secret application_name=estimate");
    EXPECT_EQ(form.connection(), QStringLiteral("host=db.shop.lan port=5433 dbname='見積 データ' user='o\\'brien' "
                                                "sslmode=require application_name=estimate"));
    form.fields.sslMode = QStringLiteral("prefer"); // libpq's default is not written
    EXPECT_FALSE(form.connection().contains(QLatin1String("sslmode")));
    EXPECT_EQ(db::parseConnection(form.connection()).user, QStringLiteral("o'brien"));
    form.shared = false;
    EXPECT_EQ(form.connection(), QString());
}

class FrmServerTest : public ::testing::Test
{
protected:
    void SetUp() override { clearServerSettings(); }
    void TearDown() override { clearServerSettings(); }

    std::unique_ptr<FrmServer> open(PasswordAsker ask = {})
    {
        return std::make_unique<FrmServer>(messages, std::move(ask));
    }
    template <typename T> static T *w(QWidget *form, const char *name)
    {
        T *child = form->findChild<T *>(QLatin1String(name));
        EXPECT_NE(child, nullptr) << name;
        return child;
    }
    static void fill(QWidget *form, const db::ConnectionFields &f)
    {
        w<QRadioButton>(form, "optServer")->setChecked(true);
        w<QLineEdit>(form, "txtHost")->setText(f.host);
        w<QLineEdit>(form, "txtPort")->setText(f.port);
        w<QLineEdit>(form, "txtDatabase")->setText(f.database);
        w<QLineEdit>(form, "txtUser")->setText(f.user);
    }
    static QString result(QWidget *form) { return w<QLabel>(form, "lblResult")->text(); }

    test::ScriptedMessages messages;
};

TEST_F(FrmServerTest, ShowsWhatIsKeptAndSavesWhatIsTyped)
{
    db::storeConnection(QStringLiteral("host=old.lan dbname=shop user=front sslmode=require"));
    db::storeSeatName(QStringLiteral("事務所"));
    auto form = open();
    EXPECT_TRUE(w<QRadioButton>(form.get(), "optServer")->isChecked());
    EXPECT_EQ(w<QLineEdit>(form.get(), "txtHost")->text(), QStringLiteral("old.lan"));
    EXPECT_EQ(w<QComboBox>(form.get(), "cboTls")->currentData().toString(), QStringLiteral("require"));
    EXPECT_EQ(w<QLineEdit>(form.get(), "txtSeat")->text(), QStringLiteral("事務所"));

    fill(form.get(), {QStringLiteral("db.shop.lan"), QStringLiteral("5433"), QStringLiteral("estimate"),
                      QStringLiteral("workshop"), {}, {}});
    w<QLineEdit>(form.get(), "txtSeat")->setText(QStringLiteral("工場 2"));
    w<QPushButton>(form.get(), "cmdSave")->click();
    EXPECT_EQ(form->result(), QDialog::Accepted);
    EXPECT_EQ(db::storedConnection(),
              QStringLiteral("host=db.shop.lan port=5433 dbname=estimate user=workshop sslmode=require"));
    EXPECT_EQ(db::seatName(), QStringLiteral("工場 2"));
    EXPECT_TRUE(messages.lastText().contains(QStringLiteral("次にプログラムを起動したときから")));

    // このPCのデータだけ: the connection is emptied, the fields are not asked for.
    auto again = open();
    w<QRadioButton>(again.get(), "optLocal")->setChecked(true);
    EXPECT_FALSE(w<QLineEdit>(again.get(), "txtHost")->isEnabled());
    w<QPushButton>(again.get(), "cmdSave")->click();
    EXPECT_EQ(db::storedConnection(), QString());
}

TEST_F(FrmServerTest, AFieldMissingIsSaidAndNothingIsKept)
{
    auto form = open();
    fill(form.get(), {QStringLiteral("db.shop.lan"), QStringLiteral("99999"), QStringLiteral("estimate"),
                      QStringLiteral("front"), {}, {}});
    w<QPushButton>(form.get(), "cmdSave")->click();
    EXPECT_NE(form->result(), QDialog::Accepted);
    EXPECT_EQ(messages.lastText(), QStringLiteral("ポート番号は 1 から 65535 までの数字で入力してください。"));
    EXPECT_EQ(db::storedConnection(), QString());
    w<QPushButton>(form.get(), "cmdTest")->click();
    EXPECT_EQ(result(form.get()), QStringLiteral("ポート番号は 1 から 65535 までの数字で入力してください。"));
}

TEST_F(FrmServerTest, ConnectionTestOnARealServer)
{
    test::PgServer *server = test::PgServer::shared();
    ASSERT_NE(server, nullptr);
    const db::ConnectionFields good = db::parseConnection(server->createDatabase());
    auto form = open();
    fill(form.get(), good);
    w<QPushButton>(form.get(), "cmdTest")->click();
    EXPECT_TRUE(result(form.get()).startsWith(QStringLiteral("接続できました。"))) << result(form.get()).toStdString();
    EXPECT_TRUE(result(form.get()).contains(QStringLiteral("まだ空です"))) << result(form.get()).toStdString();

    db::ConnectionFields missing = good;
    missing.database = QStringLiteral("no_such_database");
    fill(form.get(), missing);
    w<QPushButton>(form.get(), "cmdTest")->click();
    EXPECT_TRUE(result(form.get()).startsWith(QStringLiteral("共有サーバーに接続できません。\n"
                                                             "指定したデータベースかユーザーがサーバーにありません。")))
        << result(form.get()).toStdString();
}

TEST_F(FrmServerTest, APasswordIsAskedKeptInMemoryAndNeverWritten)
{
    test::PgServer *server = test::PgServer::shared();
    ASSERT_NE(server, nullptr);
    const QString password = QStringLiteral("Kasai-7' 見積");
    const QString connection = server->createPasswordDatabase(password);
    ASSERT_FALSE(connection.isEmpty()) << server->error().toStdString();
    const QString key = db::composeConnection(db::parseConnection(connection)); // as the screen writes it

    QStringList typed{QStringLiteral("wrong"), password};
    QStringList prompts;
    auto form = open([&](const QString &prompt) -> std::optional<QString> {
        prompts << prompt;
        if (typed.isEmpty())
            return std::nullopt;
        return typed.takeFirst();
    });
    fill(form.get(), db::parseConnection(connection));
    w<QPushButton>(form.get(), "cmdTest")->click();
    EXPECT_EQ(prompts.size(), 2);
    EXPECT_TRUE(prompts.value(0).contains(QLatin1String(test::PgServer::kPasswordUser)));
    EXPECT_TRUE(result(form.get()).startsWith(QStringLiteral("接続できました。"))) << result(form.get()).toStdString();
    EXPECT_EQ(db::rememberedPassword(key), password);

    w<QPushButton>(form.get(), "cmdSave")->click();
    QSettings settings;
    settings.sync();
    QFile file(settings.fileName());
    ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << settings.fileName().toStdString();
    const QByteArray written = file.readAll();
    EXPECT_TRUE(written.contains("seat_with_password"));
    EXPECT_FALSE(written.contains("Kasai")) << written.constData();
    EXPECT_FALSE(written.contains("password=")) << written.constData();

    // Cancelling the password dialog says the server's reason.
    db::rememberPassword(key, QString());
    auto cancelled = open([](const QString &) { return std::optional<QString>(); });
    fill(cancelled.get(), db::parseConnection(connection));
    w<QPushButton>(cancelled.get(), "cmdTest")->click();
    EXPECT_TRUE(result(cancelled.get()).startsWith(QStringLiteral("共有サーバーに接続できません。\nパスワードが")))
        << result(cancelled.get()).toStdString();
}

TEST(DlgPassword, HidesWhatIsTypedAndGivesItBack)
{
    test::ScriptedMessages messages;
    DlgPassword dialog(QStringLiteral("パスワードを入力してください。"), messages);
    auto *box = dialog.findChild<QLineEdit *>(QStringLiteral("txtPassword"));
    ASSERT_NE(box, nullptr);
    EXPECT_EQ(box->echoMode(), QLineEdit::Password);
    box->setText(QStringLiteral("abc 123"));
    EXPECT_EQ(dialog.password(), QStringLiteral("abc 123"));
}

} // namespace
