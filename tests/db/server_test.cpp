// The databases on the test run's own PostgreSQL server: the fixture itself, the layout made
// from the same SQL text as the files, what differs between the two dialects, a refused newer
// layout and a lost server.

#include "db/database.h"
#include "db/dialect.h"
#include "db/part_db.h"
#include "db/server_database.h"
#include "db/server_settings.h"
#include "pg_server.h"
#include "storage_backend.h"
#include "temp_app_folder.h"

#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <gtest/gtest.h>

using namespace est;

namespace {

QSqlDatabase adminTo(const QString &connection, const QString &name)
{
    QSqlDatabase database = QSqlDatabase::addDatabase(QStringLiteral("QPSQL"), name);
    database.setConnectOptions(connection);
    EXPECT_TRUE(database.open()) << database.lastError().text().toStdString();
    return database;
}

qint64 count(const QSqlDatabase &database, const QString &table)
{
    QSqlQuery query(database);
    if (!query.exec(QStringLiteral("SELECT COUNT(*) FROM %1").arg(db::quoteIdentifier(table))) || !query.next())
        return -1;
    return query.value(0).toLongLong();
}

} // namespace

TEST(PgServerFixture, DatabasesAreSeparateAndSurviveARestart)
{
    test::PgServer *server = test::PgServer::shared();
    ASSERT_NE(server, nullptr);
    const QString first = server->createDatabase();
    const QString second = server->createDatabase();
    ASSERT_NE(first, second);
    {
        QSqlDatabase a = adminTo(first, QStringLiteral("fixture-a"));
        QSqlQuery query(a);
        ASSERT_TRUE(query.exec(QStringLiteral("CREATE TABLE kept (v INTEGER)")));
        ASSERT_TRUE(query.exec(QStringLiteral("INSERT INTO kept VALUES (42)")));
        QSqlDatabase b = adminTo(second, QStringLiteral("fixture-b"));
        EXPECT_FALSE(QSqlQuery(b).exec(QStringLiteral("SELECT v FROM kept")));
        a.close();
        b.close();
    }
    QSqlDatabase::removeDatabase(QStringLiteral("fixture-a"));
    QSqlDatabase::removeDatabase(QStringLiteral("fixture-b"));
    ASSERT_TRUE(server->stop()) << server->error().toStdString();
    {
        QSqlDatabase stopped = QSqlDatabase::addDatabase(QStringLiteral("QPSQL"), QStringLiteral("fixture-c"));
        stopped.setConnectOptions(first);
        EXPECT_FALSE(stopped.open());
    }
    QSqlDatabase::removeDatabase(QStringLiteral("fixture-c"));
    ASSERT_TRUE(server->start()) << server->error().toStdString();
    {
        QSqlDatabase again = adminTo(first, QStringLiteral("fixture-d"));
        QSqlQuery query(again);
        ASSERT_TRUE(query.exec(QStringLiteral("SELECT v FROM kept")) && query.next());
        EXPECT_EQ(query.value(0).toInt(), 42);
        again.close();
    }
    QSqlDatabase::removeDatabase(QStringLiteral("fixture-d"));
}

// Every database of the program has, on an empty server, the tables and rows its file gets.
TEST(ServerLayout, SameTablesAndRowsAsTheFiles)
{
    test::TempAppFolder folder;
    QMap<QString, QMap<QString, qint64>> files;
    QStringList bases = db::serverDatabases();
    // This test program's own resource names its tables unquoted, as no data file of the program does.
    bases.removeAll(QStringLiteral("TestOnlyDB"));
    ASSERT_GE(bases.size(), 10);
    for (const QString &base : bases) {
        const db::OpenResult opened = db::openDatabase(folder.path(), QStringLiteral("temp\\%1.mdb").arg(base));
        ASSERT_TRUE(opened.ok()) << opened.error.toStdString();
        for (const QString &table : db::tableNames(opened.database))
            files[base][table] = count(opened.database, table);
    }
    test::BackendScope server(test::Backend::Server);
    for (const QString &base : bases) {
        const db::OpenResult opened = db::openDatabase(folder.path(), QStringLiteral("temp\\%1.mdb").arg(base));
        ASSERT_TRUE(opened.ok()) << opened.error.toStdString();
        ASSERT_TRUE(db::isServer(opened.database));
        QMap<QString, qint64> rows;
        for (const QString &table : db::tableNames(opened.database))
            rows[table] = count(opened.database, table);
        EXPECT_EQ(rows, files.value(base)) << base.toStdString();
        EXPECT_FALSE(rows.isEmpty()) << base.toStdString();
    }
    // The estimate library indexes this PC's own folder and stays a file.
    const db::OpenResult library = db::openDatabase(folder.path(), QStringLiteral("temp\\Library.mdb"));
    ASSERT_TRUE(library.ok());
    EXPECT_FALSE(db::isServer(library.database));
}

TEST(ServerLayout, NewerLayoutIsRefusedAndNothingWritten)
{
    test::TempAppFolder folder;
    test::BackendScope server(test::Backend::Server);
    ASSERT_TRUE(db::openDatabase(folder.path(), QStringLiteral("Data\\Hikazei.mdb")).ok());
    {
        QSqlDatabase admin = adminTo(server.connection(), QStringLiteral("layout-admin"));
        QSqlQuery query(admin);
        ASSERT_TRUE(query.exec(QStringLiteral("UPDATE estimate.\"Layout\" SET \"Version\" = 99")));
        ASSERT_TRUE(query.exec(QStringLiteral("DROP SCHEMA partdb CASCADE")));
        admin.close();
    }
    QSqlDatabase::removeDatabase(QStringLiteral("layout-admin"));
    db::closeServerConnections();
    const db::OpenResult refused = db::openDatabase(folder.path(), db::kPartDb);
    ASSERT_FALSE(refused.ok());
    EXPECT_TRUE(refused.error.contains(QStringLiteral("新しい版"))) << refused.error.toStdString();
    {
        QSqlDatabase admin = adminTo(server.connection(), QStringLiteral("layout-check"));
        QSqlQuery query(admin);
        ASSERT_TRUE(query.exec(QStringLiteral("SELECT 1 FROM information_schema.schemata WHERE schema_name = 'partdb'")));
        EXPECT_FALSE(query.next());
        // One database of a newer layout is refused on its own, the others still open.
        ASSERT_TRUE(query.exec(QStringLiteral("UPDATE estimate.\"Layout\" SET \"Version\" = 1")));
        ASSERT_TRUE(query.exec(QStringLiteral("UPDATE hikazei.\"SchemaVersion\" SET version = 99")));
        admin.close();
    }
    QSqlDatabase::removeDatabase(QStringLiteral("layout-check"));
    db::closeServerConnections();
    const db::OpenResult newer = db::openDatabase(folder.path(), QStringLiteral("Data\\Hikazei.mdb"));
    ASSERT_FALSE(newer.ok());
    EXPECT_TRUE(newer.error.contains(QStringLiteral("新しい版"))) << newer.error.toStdString();
    EXPECT_TRUE(db::openDatabase(folder.path(), QStringLiteral("temp\\KokyakuDB.mdb")).ok());
}

class DialectTest : public ::testing::TestWithParam<test::Backend> {};

// SQLite's CAST(text AS INTEGER) and the server's equivalent agree on every shape of number text.
TEST_P(DialectTest, IntegerOfTextAsSqliteTakesIt)
{
    test::TempAppFolder folder;
    test::BackendScope scope(GetParam());
    const db::OpenResult opened = db::openDatabase(folder.path(), QStringLiteral("temp\\KokyakuDB.mdb"));
    ASSERT_TRUE(opened.ok()) << opened.error.toStdString();
    const std::pair<QVariant, QVariant> cases[] = {
        {QStringLiteral("12"), 12}, {QStringLiteral("  7x"), 7}, {QStringLiteral("abc"), 0}, {QString(""), 0},
        {QStringLiteral("-3"), -3}, {QStringLiteral("+5"), 5}, {QStringLiteral("０１"), 0}, {QStringLiteral("2024-1"), 2024}};
    QSqlQuery query(opened.database);
    ASSERT_TRUE(query.prepare(QStringLiteral("SELECT %1").arg(db::integerOf(opened.database, QStringLiteral("CAST(? AS TEXT)")))));
    for (const auto &[text, value] : cases) {
        query.addBindValue(text);
        ASSERT_TRUE(query.exec() && query.next()) << query.lastError().text().toStdString();
        EXPECT_EQ(query.value(0).toLongLong(), value.toLongLong()) << text.toString().toStdString();
    }
}

// One upsert text for both: a second row with the same key replaces the first.
TEST_P(DialectTest, UpsertReplacesTheRowOfTheSameKey)
{
    test::TempAppFolder folder;
    test::BackendScope scope(GetParam());
    const db::OpenResult opened = db::openDatabase(folder.path(), QStringLiteral("temp\\KokyakuDB.mdb"));
    ASSERT_TRUE(opened.ok()) << opened.error.toStdString();
    const QString sql = db::upsertStatement(QStringLiteral("Kokyaku_Peppol"), {QStringLiteral("KNo"), QStringLiteral("PeppolID"),
                                            QStringLiteral("HoujinNo")}, {QStringLiteral("KNo")});
    for (const char *id : {"0188:1", "0188:2"}) {
        QSqlQuery query(opened.database);
        ASSERT_TRUE(query.prepare(sql));
        query.addBindValue(QStringLiteral("7"));
        query.addBindValue(QString::fromLatin1(id));
        query.addBindValue(QStringLiteral(""));
        ASSERT_TRUE(query.exec()) << query.lastError().text().toStdString();
    }
    QSqlQuery read(opened.database);
    ASSERT_TRUE(read.exec(QStringLiteral("SELECT \"PeppolID\" FROM \"Kokyaku_Peppol\"")));
    ASSERT_TRUE(read.next());
    EXPECT_EQ(read.value(0).toString(), QStringLiteral("0188:2"));
    EXPECT_FALSE(read.next());
    EXPECT_EQ(db::columnNames(opened.database, QStringLiteral("Kokyaku_Peppol")),
              (QStringList{QStringLiteral("KNo"), QStringLiteral("PeppolID"), QStringLiteral("HoujinNo")}));
}

INSTANTIATE_TEST_SUITE_P(Backends, DialectTest, ::testing::ValuesIn(test::kBothBackends),
                         [](const auto &info) { return test::backendName(info.param); });

// A stopped server: the message and its reason, and the next opening after the restart works
// on a fresh connection.
TEST(LostServer, ReportedThenReconnected)
{
    test::TempAppFolder folder;
    test::BackendScope scope(test::Backend::Server);
    test::PgServer *server = test::PgServer::shared();
    ASSERT_NE(server, nullptr);
    const QString relative = QStringLiteral("Data\\Hikazei.mdb");
    ASSERT_TRUE(db::openDatabase(folder.path(), relative).ok());
    ASSERT_TRUE(server->stop());
    const db::OpenResult lost = db::openDatabase(folder.path(), relative);
    EXPECT_FALSE(lost.ok());
    EXPECT_TRUE(lost.error.startsWith(db::kServerUnreachable)) << lost.error.toStdString();
    EXPECT_TRUE(lost.error.contains(QStringLiteral("サーバー"))) << lost.error.toStdString();
    ASSERT_TRUE(server->start());
    const db::OpenResult back = db::openDatabase(folder.path(), relative);
    ASSERT_TRUE(back.ok()) << back.error.toStdString();
    EXPECT_EQ(count(back.database, QStringLiteral("HikazeiDB")), 6);
}

TEST(ServerSettings, ConnectionStringKeepsNoPassword)
{
    const db::ConnectionFields fields = db::parseConnection(
        QStringLiteral("host=db.shop port=5433 dbname=estimate user='front desk' password=secret sslmode=require application_name=est"));
    EXPECT_EQ(fields.host, QStringLiteral("db.shop"));
    EXPECT_EQ(fields.port, QStringLiteral("5433"));
    EXPECT_EQ(fields.user, QStringLiteral("front desk"));
    EXPECT_EQ(fields.sslMode, QStringLiteral("require"));
    const QString composed = db::composeConnection(fields);
    EXPECT_EQ(composed, QStringLiteral("host=db.shop port=5433 dbname=estimate user='front desk' sslmode=require "
                                       "application_name=est"));
    EXPECT_FALSE(composed.contains(QStringLiteral("secret")));
}
