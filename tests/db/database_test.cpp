#include "db/app_folder.h"
#include "db/database.h"
#include "db/transaction_guard.h"
#include "temp_app_folder.h"

#include <QFile>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace est;

TEST(PathRule, SeparatorAddedOnlyWhenMissing)
{
    EXPECT_EQ(db::joinPath("/shop", "temp/kdata.txt"), "/shop/temp/kdata.txt");
    EXPECT_EQ(db::joinPath("/", "temp/kdata.txt"), "/temp/kdata.txt");
    EXPECT_EQ(db::joinPath("/shop/", "Mitsumori/"), "/shop/Mitsumori/");
}

struct MapCase { const char *in; const char *out; };
class MapPathTest : public ::testing::TestWithParam<MapCase> {};

TEST_P(MapPathTest, MapsOntoThreeFolders)
{
    EXPECT_EQ(db::mapRelativePath(QString::fromUtf8(GetParam().in)), QString::fromUtf8(GetParam().out));
}

INSTANTIATE_TEST_SUITE_P(Cases, MapPathTest, ::testing::Values(
    MapCase{"temp\\kdata.txt", "temp/kdata.txt"}, MapCase{"Temp\\kdata.txt", "temp/kdata.txt"},
    MapCase{"temp\\PartDB.mdb", "temp/PartDB.sqlite"}, MapCase{"data\\CarSet.mdb", "Data/CarSet.sqlite"},
    MapCase{"Data\\Hikazei.mdb", "Data/Hikazei.sqlite"}, MapCase{"temp\\newfile.xls", "temp/newfile.xlsx"},
    MapCase{"Mitsumori\\", "Mitsumori/"}, MapCase{"kdata.txt", "kdata.txt"}));

TEST(AppFolder, EnvironmentWins)
{
    test::TempAppFolder folder;
    EXPECT_EQ(db::applicationFolder(), folder.path());
    QTemporaryDir program;
    QFile marker(db::joinPath(program.path(), db::kAppFolderMarker));
    ASSERT_TRUE(marker.open(QIODevice::WriteOnly));
    marker.close();
    EXPECT_EQ(db::applicationFolderFor(program.path()), folder.path());
}

// Installed, the program keeps each user's data in the user's data folder; a program beside
// the marker (the build tree) keeps it beside itself.
TEST(AppFolder, UsersDataFolderUnlessTheProgramsFolderIsMarked)
{
    const QByteArray home = qgetenv("ESTIMATE_APP_HOME");
    const QByteArray dataHome = qgetenv("XDG_DATA_HOME");
    qunsetenv("ESTIMATE_APP_HOME");
    QTemporaryDir data;
    qputenv("XDG_DATA_HOME", data.path().toLocal8Bit());
    QTemporaryDir program;
    // The test program's names (test_main.cpp): organisation and application.
    EXPECT_EQ(db::applicationFolderFor(program.path()), data.path() + QStringLiteral("/EstimateAppTest/EstimateAppTest"));
    QFile marker(db::joinPath(program.path(), db::kAppFolderMarker));
    ASSERT_TRUE(marker.open(QIODevice::WriteOnly));
    marker.close();
    EXPECT_EQ(db::applicationFolderFor(program.path()), program.path());
    if (!home.isEmpty())
        qputenv("ESTIMATE_APP_HOME", home);
    dataHome.isEmpty() ? qunsetenv("XDG_DATA_HOME") : qputenv("XDG_DATA_HOME", dataHome);
}

TEST(Script, SplitsRespectingQuotesAndComments)
{
    const QStringList s = db::splitStatements(
        "-- a comment; with a semicolon\nCREATE TABLE \"a;b\" (x TEXT);\n"
        "INSERT INTO \"a;b\" VALUES ('it''s; fine');\nINSERT INTO \"a;b\" VALUES ('x')");
    ASSERT_EQ(s.size(), 3);
    EXPECT_EQ(s.at(1), "INSERT INTO \"a;b\" VALUES ('it''s; fine')");
}

TEST(OpenDatabase, CreatesFromBuiltInSchemaWithFolders)
{
    test::TempAppFolder folder;
    auto result = db::openDatabase(folder.path(), "temp\\TestOnlyDB.mdb");
    ASSERT_TRUE(result.ok()) << result.error.toStdString();
    EXPECT_TRUE(result.created);
    EXPECT_TRUE(QFile::exists(folder.file("temp/TestOnlyDB.sqlite")));
    EXPECT_FALSE(QFile::exists(folder.file("temp/TestOnlyDB.sqlite.new")));
    QSqlQuery q(result.database);
    q.prepare("SELECT Namae FROM \"試験DB\" WHERE Namae = ?");
    q.addBindValue(QStringLiteral("O'Brien 自動車"));
    ASSERT_TRUE(q.exec());
    ASSERT_TRUE(q.next());
    EXPECT_EQ(q.value(0).toString(), QStringLiteral("O'Brien 自動車"));
    EXPECT_TRUE(db::tableExists(result.database, QStringLiteral("試験DB")));
    EXPECT_FALSE(db::tableExists(result.database, QStringLiteral("x'; DROP TABLE 試験DB; --")));

    // A second open reuses the file and does not create it again.
    auto again = db::openDatabase(folder.path(), "Temp\\TestOnlyDB.mdb");
    ASSERT_TRUE(again.ok());
    EXPECT_FALSE(again.created);
}

TEST(OpenDatabase, MissingSchemaIsAClearError)
{
    test::TempAppFolder folder;
    auto result = db::openDatabase(folder.path(), "temp\\NoSuchThing.mdb");
    EXPECT_FALSE(result.ok());
    EXPECT_TRUE(result.error.contains("NoSuchThing.sqlite"));
    EXPECT_FALSE(QFile::exists(folder.file("temp/NoSuchThing.sqlite")));
    EXPECT_FALSE(db::openExistingDatabase(folder.file("temp/Other.sqlite")).ok());
}

TEST(TransactionGuard, RollsBackUnlessCommitted)
{
    test::TempAppFolder folder;
    auto result = db::openDatabase(folder.path(), "temp\\TestOnlyDB.mdb");
    ASSERT_TRUE(result.ok());
    auto count = [&] {
        QSqlQuery q(result.database);
        q.exec("SELECT COUNT(*) FROM \"試験DB\"");
        q.next();
        return q.value(0).toInt();
    };
    const int before = count();
    {
        db::TransactionGuard guard(result.database);
        QSqlQuery q(result.database);
        ASSERT_TRUE(q.exec("INSERT INTO \"試験DB\" VALUES ('x')"));
    }
    EXPECT_EQ(count(), before);
    {
        db::TransactionGuard guard(result.database);
        QSqlQuery q(result.database);
        ASSERT_TRUE(q.exec("INSERT INTO \"試験DB\" VALUES ('y')"));
        EXPECT_TRUE(guard.commit());
    }
    EXPECT_EQ(count(), before + 1);
}
