// The add-on tables of a database: a new file has them; an upgrade step adds the ones a file
// made by an earlier version lacks, with their rows, keeping every row it had.
#include "db/database.h"
#include "db/schema_upgrade.h"
#include "db/transaction_guard.h"
#include "temp_app_folder.h"

#include <QDir>
#include <QSqlQuery>
#include <gtest/gtest.h>

using namespace est;

namespace {

int count(const QSqlDatabase &database, const QString &sql)
{
    QSqlQuery q(database);
    if (!q.exec(sql) || !q.next())
        return -1;
    return q.value(0).toInt();
}

// Writes a file the way an earlier version left it: the base table with rows of the shop's
// own, and one of the added tables already there with other content.
void writeOldFile(const QString &path, bool withSecond)
{
    const QString connection = QStringLiteral("old-file");
    {
        QSqlDatabase old = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), connection);
        old.setDatabaseName(path);
        ASSERT_TRUE(old.open());
        QSqlQuery q(old);
        ASSERT_TRUE(q.exec("CREATE TABLE \"試験DB\" (Namae TEXT)"));
        for (const char *name : {"一", "二", "O'Brien"}) {
            q.prepare("INSERT INTO \"試験DB\" VALUES (?)");
            q.addBindValue(QString::fromUtf8(name));
            ASSERT_TRUE(q.exec());
        }
        if (withSecond) {
            ASSERT_TRUE(q.exec("CREATE TABLE Second (x INTEGER)"));
            ASSERT_TRUE(q.exec("INSERT INTO Second VALUES (99)"));
        }
        old.close();
    }
    QSqlDatabase::removeDatabase(connection);
}

} // namespace

struct TableCase { const char *statement; const char *table; };
class StatementTableTest : public ::testing::TestWithParam<TableCase> {};

TEST_P(StatementTableTest, NamesTheTableUnquoted)
{
    EXPECT_EQ(db::statementTable(QString::fromUtf8(GetParam().statement)), QString::fromUtf8(GetParam().table));
}

INSTANTIATE_TEST_SUITE_P(Cases, StatementTableTest, ::testing::Values(
    TableCase{"CREATE TABLE \"2ToneDB\" (\"Tone\" TEXT)", "2ToneDB"},
    TableCase{"  insert into \"BanpaDB\" VALUES ('X')", "BanpaDB"},
    TableCase{"CREATE TABLE IF NOT EXISTS bankinsisu(Area TEXT)", "bankinsisu"},
    TableCase{"CREATE UNIQUE INDEX i1 ON \"a\"\"b\" (x)", "a\"b"},
    TableCase{"INSERT INTO [試験 DB] VALUES (1)", "試験 DB"},
    TableCase{"DROP TABLE x", ""}, TableCase{"UPDATE x SET y = 1", ""}));

TEST(AddOnTables, ScriptsFoundByBaseName)
{
    EXPECT_EQ(db::addOnScripts(QStringLiteral("TestOnlyDB")).size(), 1);
    EXPECT_TRUE(db::addOnScripts(QStringLiteral("NoSuchThing")).isEmpty());
}

TEST(AddOnTables, NewFileHasBaseAndAddedTables)
{
    test::TempAppFolder folder;
    auto opened = db::openDatabase(folder.path(), "temp\\TestOnlyDB.mdb");
    ASSERT_TRUE(opened.ok()) << opened.error.toStdString();
    EXPECT_EQ(count(opened.database, "SELECT COUNT(*) FROM \"試験DB\""), 1);
    EXPECT_EQ(count(opened.database, "SELECT COUNT(*) FROM \"追加DB\""), 2);
    EXPECT_EQ(count(opened.database, "SELECT x FROM Second"), 7);
    db::closeDatabase(folder.file("temp/TestOnlyDB.sqlite"));
}

TEST(AddOnTables, OldFileGainsMissingTablesKeepingEveryRow)
{
    test::TempAppFolder folder;
    ASSERT_TRUE(QDir().mkpath(folder.file("temp")));
    const QString path = folder.file("temp/TestOnlyDB.sqlite");
    writeOldFile(path, /*withSecond=*/true);

    auto opened = db::openDatabase(folder.path(), "temp\\TestOnlyDB.mdb");
    ASSERT_TRUE(opened.ok()) << opened.error.toStdString();
    EXPECT_FALSE(opened.created);
    for (int run = 0; run < 2; ++run) {
        db::TransactionGuard guard(opened.database);
        EXPECT_EQ(db::createMissingTables(opened.database, db::addOnScripts("TestOnlyDB").first(), true), QString());
        ASSERT_TRUE(guard.commit());
        EXPECT_EQ(count(opened.database, "SELECT COUNT(*) FROM \"試験DB\""), 3);
        EXPECT_EQ(count(opened.database, "SELECT COUNT(*) FROM \"試験DB\" WHERE Namae = 'O''Brien'"), 1);
        // Added once, not again on the second run.
        EXPECT_EQ(count(opened.database, "SELECT COUNT(*) FROM \"追加DB\""), 2);
        EXPECT_EQ(count(opened.database, "SELECT COUNT(*) FROM \"追加DB\" WHERE Code = 'b''s' AND Sisu = 2.25"), 1);
        // The table the file already had keeps its own row and gets none of the sample rows.
        EXPECT_EQ(count(opened.database, "SELECT COUNT(*) FROM Second"), 1);
        EXPECT_EQ(count(opened.database, "SELECT x FROM Second"), 99);
    }
    db::closeDatabase(path);
}
