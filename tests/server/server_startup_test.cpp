// The start-up of a seat whose server is away or wants a password: the program says so with
// the reason and goes on as the user chooses, on a real server stopped and started again.
#include "db/server_check.h"
#include "db/server_database.h"
#include "db/server_settings.h"
#include "pg_server.h"
#include "program_fixture.h"
#include "server/server_startup.h"

#include <QLineEdit>
#include <QPushButton>
#include <gtest/gtest.h>

using namespace est;

namespace {

// ESTIMATE_DB names the server for one test.
class ServerInForce
{
public:
    explicit ServerInForce(const QString &connection)
    {
        qputenv("ESTIMATE_DB", connection.toUtf8());
        db::forgetLocalDataChoice();
        db::closeServerConnections();
    }
    ~ServerInForce()
    {
        qunsetenv("ESTIMATE_DB");
        db::forgetLocalDataChoice();
        db::closeServerConnections();
    }
};

class Startup : public ::testing::Test
{
protected:
    void SetUp() override
    {
        server = test::PgServer::shared();
        ASSERT_NE(server, nullptr);
    }
    void TearDown() override
    {
        if (server && !server->running())
            server->start();
    }
    test::PgServer *server = nullptr;
};

TEST_F(Startup, WithoutAServerNothingIsAsked)
{
    test::ScriptedMessages messages;
    EXPECT_TRUE(server::connectAtStartup(messages, {}));
    EXPECT_TRUE(messages.shown.isEmpty());
    EXPECT_FALSE(db::usingLocalDataForThisSession());
}

TEST_F(Startup, AStoppedServerIsSaidAndTheUserChooses)
{
    const QString connection = server->createDatabase();
    ServerInForce inForce(connection);
    ASSERT_TRUE(server->stop());

    // いいえ tries again, キャンセル ends the program.
    test::ScriptedMessages ending;
    ending.answer(Answer::No);
    ending.answer(Answer::Cancel);
    EXPECT_FALSE(server::connectAtStartup(ending, {}));
    ASSERT_EQ(ending.shown.size(), 2);
    EXPECT_TRUE(ending.shown.first().text.startsWith(QStringLiteral("共有サーバーに接続できません。\nサーバーが応答しません")))
        << ending.shown.first().text.toStdString();
    EXPECT_TRUE(ending.shown.first().text.contains(QStringLiteral("このPCのデータで作業しますか？")));

    // はい: this PC's files for this run, and the program starts on them.
    test::Program program;
    program.messages.answer(Answer::Yes);
    program.start(false);
    EXPECT_TRUE(db::usingLocalDataForThisSession());
    EXPECT_EQ(db::serverConnection(), QString());
    EXPECT_TRUE(program.context().start->isVisible());

    // The server back: the next start-up uses it, without asking.
    ASSERT_TRUE(server->start());
    db::forgetLocalDataChoice();
    test::ScriptedMessages again;
    EXPECT_TRUE(server::connectAtStartup(again, {}));
    EXPECT_TRUE(again.shown.isEmpty());
    EXPECT_TRUE(db::checkServer(connection).message.contains(QStringLiteral("見積のデータがあります")));
}

TEST_F(Startup, ThePasswordDialogAsksUntilTheServerTakesItOrTheUserGivesUp)
{
    const QString connection = server->createPasswordDatabase(QStringLiteral("first"));
    ASSERT_FALSE(connection.isEmpty());
    ServerInForce inForce(connection);

    test::Program program;
    QStringList typed{QStringLiteral("wrong"), QStringLiteral("first")};
    program.dialogs.on(QStringLiteral("dlgPassword"), [&typed](QWidget *d) {
        d->findChild<QLineEdit *>(QStringLiteral("txtPassword"))->setText(typed.isEmpty() ? QString() : typed.takeFirst());
        d->findChild<QPushButton *>(QStringLiteral("cmdOK"))->click();
    });
    program.start(false);
    EXPECT_EQ(program.dialogs.seen(QStringLiteral("dlgPassword")), 2);
    EXPECT_FALSE(db::usingLocalDataForThisSession());
    for (const test::ShownMessage &shown : program.messages.shown)
        EXPECT_FALSE(shown.text.contains(db::kServerUnreachable)) << shown.text.toStdString();
    EXPECT_EQ(db::rememberedPassword(connection), QStringLiteral("first"));

    // The password changed on the server: a wrong one remembered is asked again; cancelling
    // the dialog offers this PC's data.
    ASSERT_TRUE(server->setPassword(QStringLiteral("second")));
    db::closeServerConnections();
    test::ScriptedMessages messages;
    messages.answer(Answer::Yes);
    int asked = 0;
    EXPECT_TRUE(server::connectAtStartup(messages, [&asked](const QString &) {
        ++asked;
        return std::optional<QString>();
    }));
    EXPECT_EQ(asked, 1);
    ASSERT_EQ(messages.shown.size(), 1);
    EXPECT_TRUE(messages.shown.first().text.startsWith(QStringLiteral("共有サーバーに接続できません。\nパスワードが違います。")))
        << messages.shown.first().text.toStdString();
    EXPECT_TRUE(db::usingLocalDataForThisSession());
}

} // namespace
