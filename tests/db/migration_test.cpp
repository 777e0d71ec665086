// Moving a shop onto the server and off it again, on the test run's own server: the full
// sample data and 10,000 customers both ways, a server or folder that already holds data, and
// the server stopped half-way (nothing half-copied left).
#include "db/app_folder.h"
#include "db/database.h"
#include "db/migration.h"
#include "db/server_check.h"
#include "db/server_database.h"
#include "db/server_settings.h"
#include "pg_server.h"
#include "temp_app_folder.h"

#include <QDir>
#include <QFileInfo>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace est;
using namespace est::db;

namespace {

// Each table's rows of a file, in order, as text: what a round trip must give back.
QStringList rowsOf(const QString &path, const QString &table)
{
    QStringList rows;
    {
        OpenResult opened = openExistingDatabase(path);
        EXPECT_TRUE(opened.ok()) << opened.error.toStdString();
        QSqlQuery query(opened.database);
        EXPECT_TRUE(query.exec(QStringLiteral("SELECT * FROM %1 ORDER BY rowid").arg(quoteIdentifier(table))));
        while (query.next()) {
            QStringList cells;
            for (int c = 0; c < query.record().count(); ++c)
                cells.append(query.value(c).toString());
            rows.append(cells.join(QLatin1Char('|')));
        }
    }
    closeDatabase(path);
    return rows;
}

void addCustomers(const QString &folder, int count)
{
    const QString path = QDir(folder).filePath(QStringLiteral("temp/KokyakuDB.sqlite"));
    {
        OpenResult opened = openExistingDatabase(path);
        ASSERT_TRUE(opened.ok());
        ASSERT_TRUE(opened.database.transaction());
        QSqlQuery insert(opened.database);
        insert.prepare(QStringLiteral("INSERT INTO \"Kokyaku_Jyouhou\" (\"KNo\", \"Namae\", \"TEL\", \"KKubun\", \"Memo\") "
                                      "VALUES (?, ?, ?, ?, ?)"));
        for (int i = 0; i < count; ++i) {
            insert.addBindValue(QString::number(100000 + i));
            insert.addBindValue(QStringLiteral("顧客 %1 '様'").arg(i));
            insert.addBindValue(QStringLiteral("03-%1").arg(i, 8, 10, QLatin1Char('0')));
            insert.addBindValue(i % 3);
            insert.addBindValue(i % 7 == 0 ? QVariant(QMetaType(QMetaType::QString)) : QVariant(QStringLiteral("メモ\n改行")));
            ASSERT_TRUE(insert.exec());
        }
        ASSERT_TRUE(opened.database.commit());
    }
    closeDatabase(path);
}

class Migration : public ::testing::Test
{
protected:
    void SetUp() override
    {
        server = test::PgServer::shared();
        ASSERT_NE(server, nullptr);
        connection = server->createDatabase();
        folder.makeDatabases();
    }
    void TearDown() override
    {
        if (server && !server->running())
            server->start();
        closeServerConnections();
    }

    test::PgServer *server = nullptr;
    QString connection;
    test::TempAppFolder folder;
};

TEST_F(Migration, TheSampleDataGoesOntoTheServerAndComesBackTheSame)
{
    addCustomers(folder.path(), 10000);
    const qsizetype customers = rowsOf(folder.file(QStringLiteral("temp/KokyakuDB.sqlite")), QStringLiteral("Kokyaku_Jyouhou")).size();
    ASSERT_GE(customers, 10000);
    QStringList lines;
    const MigrationResult up = copyFolderToServer(folder.path(), connection, [&lines](const QString &l) { lines << l; });
    ASSERT_EQ(up.outcome, MigrationResult::Outcome::Copied) << up.error.toStdString();
    EXPECT_FALSE(lines.isEmpty());
    EXPECT_TRUE(lines.last().startsWith(QStringLiteral("[%1/%1] ").arg(lines.size()))) << lines.last().toStdString();
    EXPECT_TRUE(up.report.contains(QStringLiteral("KokyakuDB.Kokyaku_Jyouhou: %1 件、数の列 1 の合計も一致").arg(customers)))
        << up.report.join(QLatin1Char('\n')).toStdString();

    // The program on the server finds the customers copied, and a new one gets a row of its own.
    const OpenResult onServer = openServerDatabase(connection, QStringLiteral("KokyakuDB"));
    ASSERT_TRUE(onServer.ok()) << onServer.error.toStdString();
    {
        QSqlQuery query(onServer.database);
        ASSERT_TRUE(query.exec(QStringLiteral("SELECT COUNT(*), SUM(\"KKubun\") FROM \"Kokyaku_Jyouhou\"")) && query.next());
        EXPECT_EQ(query.value(0).toLongLong(), customers);
    }

    QTemporaryDir back;
    const QString home = back.filePath(QStringLiteral("shop"));
    const MigrationResult down = copyServerToFolder(connection, home);
    ASSERT_EQ(down.outcome, MigrationResult::Outcome::Copied) << down.error.toStdString();
    for (const QString &base : serverDatabases()) {
        const QString path = resolve(home, databaseRelativePath(base));
        ASSERT_TRUE(QFileInfo::exists(path)) << path.toStdString();
    }
    EXPECT_EQ(rowsOf(QDir(home).filePath(QStringLiteral("temp/KokyakuDB.sqlite")), QStringLiteral("Kokyaku_Jyouhou")),
              rowsOf(folder.file(QStringLiteral("temp/KokyakuDB.sqlite")), QStringLiteral("Kokyaku_Jyouhou")));
    EXPECT_EQ(rowsOf(QDir(home).filePath(QStringLiteral("temp/PartDB.sqlite")), QStringLiteral("KihonSisuDB")),
              rowsOf(folder.file(QStringLiteral("temp/PartDB.sqlite")), QStringLiteral("KihonSisuDB")));
    EXPECT_TRUE(QDir(home).entryList({QStringLiteral(".from-server-*")}, QDir::Dirs | QDir::Hidden).isEmpty());
}

TEST_F(Migration, AServerOrFolderThatHoldsDataIsNeverWritten)
{
    ASSERT_EQ(prepareServer(connection), QString()); // a seat started on it: the sample rows are there
    const MigrationResult up = copyFolderToServer(folder.path(), connection);
    EXPECT_EQ(up.outcome, MigrationResult::Outcome::TargetHoldsData);
    EXPECT_EQ(up.error, QStringLiteral("共有サーバーのデータベースには、すでにこのプログラムのデータがあります。何も変えていません。"));

    const QString before = QFileInfo(folder.file(QStringLiteral("temp/KokyakuDB.sqlite"))).lastModified().toString(Qt::ISODateWithMs);
    const MigrationResult down = copyServerToFolder(connection, folder.path());
    EXPECT_EQ(down.outcome, MigrationResult::Outcome::TargetHoldsData);
    EXPECT_EQ(QFileInfo(folder.file(QStringLiteral("temp/KokyakuDB.sqlite"))).lastModified().toString(Qt::ISODateWithMs), before);

    const QString empty = server->createDatabase();
    QTemporaryDir target;
    EXPECT_EQ(copyServerToFolder(empty, target.filePath(QStringLiteral("shop"))).outcome, MigrationResult::Outcome::Failed);
}

TEST_F(Migration, AServerStoppedHalfWayKeepsNothingHalfCopied)
{
    int tables = 0;
    const MigrationResult up = copyFolderToServer(folder.path(), connection, [&](const QString &) {
        if (++tables == 5)
            server->stop();
    });
    EXPECT_EQ(up.outcome, MigrationResult::Outcome::Failed);
    EXPECT_TRUE(up.error.contains(QStringLiteral("何も残していません")) || up.error.startsWith(kServerUnreachable))
        << up.error.toStdString();
    ASSERT_TRUE(server->start());
    const ServerCheck check = checkServer(connection);
    ASSERT_TRUE(check.ok) << check.message.toStdString();
    EXPECT_TRUE(check.message.contains(QStringLiteral("まだ空です"))) << check.message.toStdString();

    // And off the server: the new folder stays without databases.
    ASSERT_EQ(copyFolderToServer(folder.path(), connection).outcome, MigrationResult::Outcome::Copied);
    QTemporaryDir target;
    const QString home = target.filePath(QStringLiteral("shop"));
    tables = 0;
    const MigrationResult down = copyServerToFolder(connection, home, [&](const QString &) {
        if (++tables == 5)
            server->stop();
    });
    EXPECT_EQ(down.outcome, MigrationResult::Outcome::Failed);
    ASSERT_TRUE(server->start());
    EXPECT_FALSE(QFileInfo::exists(QDir(home).filePath(QStringLiteral("temp/KokyakuDB.sqlite"))));
    EXPECT_TRUE(QDir(home).entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden).isEmpty());
}

} // namespace
