// Versioned databases: a file made by each earlier layout (made here from that version's SQL
// text, tests/db/layouts) is upgraded to the layout of a new file, keeping every row, after a
// copy of itself; a failing step and a file of a newer version are left as they were.
#include "db/app_folder.h"
#include "db/database.h"
#include "db/schema_upgrade.h"
#include "db/transaction_guard.h"
#include "scripted_messages.h"
#include "temp_app_folder.h"

#include <QDir>
#include <QFile>
#include <QMap>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace est::db {
namespace {

QString layoutText(const QString &name)
{
    QFile file(QStringLiteral(":/layouts/%1.sql").arg(name));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name.toStdString();
    return QString::fromUtf8(file.readAll());
}

QByteArray bytes(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// Makes a file the way an earlier version left it, from its SQL text.
void writeFile(const QString &path, const QStringList &scripts)
{
    ASSERT_TRUE(QDir().mkpath(QFileInfo(path).absolutePath()));
    const QString connection = QStringLiteral("earlier-layout");
    {
        QSqlDatabase old = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), connection);
        old.setDatabaseName(path);
        ASSERT_TRUE(old.open());
        for (const QString &script : scripts)
            ASSERT_EQ(runScript(old, script), QString()) << script.left(200).toStdString();
        old.close();
    }
    QSqlDatabase::removeDatabase(connection);
}

QStringList tables(const QSqlDatabase &database)
{
    QSqlQuery q(database);
    q.exec(QStringLiteral("SELECT name FROM sqlite_master WHERE type = 'table' AND name NOT LIKE 'sqlite%' ORDER BY name"));
    QStringList names;
    while (q.next())
        names.append(q.value(0).toString());
    return names;
}

// Every row of every table as text, in a stable order.
QMap<QString, QStringList> rows(const QSqlDatabase &database)
{
    QMap<QString, QStringList> all;
    for (const QString &table : tables(database)) {
        QSqlQuery q(database);
        EXPECT_TRUE(q.exec(QStringLiteral("SELECT * FROM ") + quoteIdentifier(table)));
        QStringList lines;
        while (q.next()) {
            QStringList values;
            for (int i = 0; i < q.record().count(); ++i)
                values.append(q.value(i).isNull() ? QStringLiteral("NULL") : q.value(i).toString());
            lines.append(values.join(QLatin1Char('|')));
        }
        lines.sort();
        all.insert(table, lines);
    }
    return all;
}

// Tables with their columns (name, type, not null, default, key) and the indices.
QMap<QString, QStringList> layoutOf(const QSqlDatabase &database)
{
    QMap<QString, QStringList> layout;
    for (const QString &table : tables(database)) {
        QSqlQuery q(database);
        q.exec(QStringLiteral("PRAGMA table_info(%1)").arg(quoteIdentifier(table)));
        while (q.next())
            layout[table].append(QStringList{q.value(1).toString(), q.value(2).toString(), q.value(3).toString(),
                                             q.value(4).toString(), q.value(5).toString()}
                                     .join(QLatin1Char(' ')));
    }
    QSqlQuery q(database);
    q.exec(QStringLiteral("SELECT name, tbl_name FROM sqlite_master WHERE type = 'index' AND sql IS NOT NULL"));
    while (q.next())
        layout[QStringLiteral("index ") + q.value(0).toString()].append(q.value(1).toString());
    return layout;
}

struct LayoutCase
{
    const char *relative;                 // as the program names the file
    std::vector<const char *> layouts;    // the SQL texts that made it
    int from;                             // the layout it counts as
};

void PrintTo(const LayoutCase &c, std::ostream *os)
{
    *os << c.relative << " made from";
    for (const char *layout : c.layouts)
        *os << ' ' << layout;
}

class EarlierLayout : public ::testing::TestWithParam<LayoutCase> {};

TEST_P(EarlierLayout, UpgradesToTheNewLayoutKeepingEveryRow)
{
    const LayoutCase c = GetParam();
    test::TempAppFolder folder;
    const QString relative = QString::fromUtf8(c.relative);
    const QString path = resolve(folder.path(), relative);
    QStringList layouts;
    for (const char *layout : c.layouts)
        layouts.append(layoutText(QString::fromUtf8(layout)));
    writeFile(path, layouts);
    const QByteArray original = bytes(path);
    QMap<QString, QStringList> before;
    {
        QSqlDatabase probe = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("probe"));
        probe.setDatabaseName(path);
        ASSERT_TRUE(probe.open());
        before = rows(probe);
        EXPECT_EQ(recordedLayout(probe), c.from);
        probe.close();
    }
    QSqlDatabase::removeDatabase(QStringLiteral("probe"));

    const QString baseName = QFileInfo(path).completeBaseName();
    const int current = currentLayout(schemaSteps(baseName));
    const OpenResult opened = openDatabase(folder.path(), relative);
    ASSERT_TRUE(opened.ok()) << opened.error.toStdString();
    EXPECT_FALSE(opened.created);
    EXPECT_FALSE(opened.readOnly);
    EXPECT_EQ(opened.notice, QString());
    EXPECT_EQ(recordedLayout(opened.database), current);

    // The copy is the file as it was, named after the layout it had.
    const QString backup = path + QStringLiteral(".bak-%1").arg(c.from);
    EXPECT_EQ(QFile::exists(backup), c.from < current);
    if (c.from < current) {
        EXPECT_EQ(bytes(backup), original);
    }

    const QMap<QString, QStringList> after = rows(opened.database);
    for (auto it = before.cbegin(); it != before.cend(); ++it) {
        if (it.key() != kVersionTable) {
            EXPECT_EQ(after.value(it.key()), it.value()) << it.key().toStdString();
        }
    }
    EXPECT_GE(before.size(), 1);

    QTemporaryDir fresh;
    const OpenResult made = openDatabase(fresh.path(), relative);
    ASSERT_TRUE(made.ok() && made.created) << made.error.toStdString();
    EXPECT_EQ(recordedLayout(made.database), current);
    EXPECT_EQ(layoutOf(opened.database), layoutOf(made.database));
    closeDatabase(resolve(fresh.path(), relative));
    closeDatabase(path);

    // Opened again, it is current: nothing is copied or changed.
    QFile::remove(backup);
    const QByteArray upgraded = bytes(path);
    ASSERT_TRUE(openDatabase(folder.path(), relative).ok());
    closeDatabase(path);
    EXPECT_FALSE(QFile::exists(backup));
    EXPECT_EQ(bytes(path), upgraded);
}

INSTANTIATE_TEST_SUITE_P(Files, EarlierLayout, ::testing::Values(
    LayoutCase{"temp\\Jisya_Jyouhou.mdb", {"Jisya_Jyouhou.1"}, 1},
    LayoutCase{"temp\\Jisya_Jyouhou.mdb", {"Jisya_Jyouhou.2"}, 1},
    LayoutCase{"temp\\Jisya_Jyouhou.mdb", {"Jisya_Jyouhou.2", "Jisya_Jyouhou.peppol"}, 1},
    LayoutCase{"temp\\Jisya_Jyouhou.mdb", {"Jisya_Jyouhou.2", "SchemaVersion.2"}, 2},
    LayoutCase{"temp\\Jisya_Jyouhou.mdb", {"Jisya_Jyouhou.2", "Jisya_Jyouhou.peppol", "SchemaVersion.3"}, 3},
    LayoutCase{"temp\\KokyakuDB.mdb", {"KokyakuDB.1"}, 1},
    LayoutCase{"temp\\KokyakuDB.mdb", {"KokyakuDB.1", "KokyakuDB.peppol"}, 1},
    LayoutCase{"temp\\PartDB.mdb", {"PartDB.1"}, 1},
    LayoutCase{"temp\\PartDB.mdb", {"PartDB.1", "PartDB.indices"}, 1},
    LayoutCase{"temp\\SettingDB.mdb", {"SettingDB.1"}, 1},
    LayoutCase{"temp\\Library.mdb", {"Library.1"}, 1},
    LayoutCase{"Data\\Hikazei.mdb", {"Hikazei.1"}, 1},
    LayoutCase{"Data\\CarSet.mdb", {"CarSet.1"}, 1},
    LayoutCase{"Data\\Toyota.mdb", {"Toyota.1"}, 1},
    LayoutCase{"Data\\EasyEstimate.mdb", {"EasyEstimate.1"}, 1}));

// Steps of a test database: the second adds a table, the third fails half-way.
QString addSecond(QSqlDatabase &database)
{
    return createMissingTables(database, QStringLiteral("CREATE TABLE Second (x INTEGER); INSERT INTO Second VALUES (7)"),
                               true);
}

QString failHalfWay(QSqlDatabase &database)
{
    QSqlQuery q(database);
    q.exec(QStringLiteral("CREATE TABLE Third (x INTEGER)"));
    q.exec(QStringLiteral("DELETE FROM \"試験DB\""));
    return q.exec(QStringLiteral("INSERT INTO Fourth VALUES (1)")) ? QString() : QStringLiteral("表 Fourth がありません");
}

class Steps : public ::testing::Test
{
protected:
    void SetUp() override
    {
        m_path = m_folder.file(QStringLiteral("temp/TestOnlyDB.sqlite"));
        writeFile(m_path, {builtInSql(QStringLiteral("TestOnlyDB"))});
    }
    void TearDown() override { closeDatabase(m_path); }
    QSqlDatabase open()
    {
        OpenResult opened = openExistingDatabase(m_path);
        EXPECT_TRUE(opened.ok());
        return opened.database;
    }
    test::TempAppFolder m_folder;
    QString m_path;
};

TEST_F(Steps, AFailingStepIsRolledBackAndSaysSo)
{
    QSqlDatabase database = open();
    const QMap<QString, QStringList> before = rows(database);
    const QByteArray original = bytes(m_path);

    UpgradeOutcome outcome = upgradeDatabase(database, {{2, addSecond}, {3, failHalfWay}}, m_path);
    EXPECT_EQ(outcome.state, UpgradeOutcome::State::Failed);
    EXPECT_EQ(outcome.from, 1);
    EXPECT_EQ(outcome.to, 2);
    EXPECT_TRUE(outcome.message.contains(QStringLiteral("形式 2 から 3 に更新できませんでした（表 Fourth がありません）")))
        << outcome.message.toStdString();
    EXPECT_TRUE(outcome.message.contains(QStringLiteral("TestOnlyDB.sqlite.bak-1")));
    EXPECT_EQ(bytes(m_path + QStringLiteral(".bak-1")), original);
    // The second step stays, the third left nothing behind.
    EXPECT_EQ(recordedLayout(database), 2);
    EXPECT_TRUE(tableExists(database, QStringLiteral("Second")));
    EXPECT_FALSE(tableExists(database, QStringLiteral("Third")));
    EXPECT_EQ(rows(database).value(QStringLiteral("試験DB")), before.value(QStringLiteral("試験DB")));

    // Tried again, it starts from layout 2, with a copy of that.
    outcome = upgradeDatabase(database, {{2, addSecond}, {3, failHalfWay}}, m_path);
    EXPECT_EQ(outcome.state, UpgradeOutcome::State::Failed);
    EXPECT_EQ(outcome.to, 2);
    EXPECT_TRUE(QFile::exists(m_path + QStringLiteral(".bak-2")));
}

TEST_F(Steps, AFirstStepThatFailsChangesNothing)
{
    QSqlDatabase database = open();
    const QMap<QString, QStringList> before = rows(database);
    const UpgradeOutcome outcome = upgradeDatabase(database, {{2, failHalfWay}}, QString());
    EXPECT_EQ(outcome.state, UpgradeOutcome::State::Failed);
    EXPECT_TRUE(outcome.message.contains(QStringLiteral("形式 1 のまま")));
    EXPECT_EQ(rows(database), before);
    EXPECT_EQ(recordedLayout(database), 1);
    // Not a file: no copy.
    EXPECT_FALSE(QFile::exists(m_path + QStringLiteral(".bak-1")));
}

TEST_F(Steps, AddOnTablesAreAddedOnlyWhenMissing)
{
    QSqlDatabase database = open();
    QSqlQuery q(database);
    ASSERT_TRUE(q.exec(QStringLiteral("CREATE TABLE Second (x INTEGER)")));
    ASSERT_TRUE(q.exec(QStringLiteral("INSERT INTO Second VALUES (99)")));
    const UpgradeOutcome outcome = upgradeDatabase(database, {{2, addSecond}}, m_path);
    EXPECT_EQ(outcome.state, UpgradeOutcome::State::Upgraded);
    EXPECT_EQ(rows(database).value(QStringLiteral("Second")), QStringList{QStringLiteral("99")});
    // A statement that is not about a table of its own is refused.
    TransactionGuard guard(database);
    EXPECT_FALSE(createMissingTables(database, QStringLiteral("DELETE FROM \"試験DB\""), true).isEmpty());
}

// A file of a newer version is read as it is and never written.
TEST_F(Steps, ANewerFileIsOpenedReadOnly)
{
    {
        QSqlDatabase database = open();
        ASSERT_EQ(markLayout(database, 9), QString());
    }
    closeDatabase(m_path);
    const QByteArray original = bytes(m_path);
    const OpenResult opened = openExistingDatabase(m_path);
    ASSERT_TRUE(opened.ok());
    EXPECT_TRUE(opened.readOnly);
    EXPECT_TRUE(opened.notice.contains(QStringLiteral("新しい版で作られています（形式 9、このプログラムは形式 1 まで）")))
        << opened.notice.toStdString();
    QSqlQuery q(opened.database);
    EXPECT_FALSE(q.exec(QStringLiteral("INSERT INTO \"試験DB\" VALUES ('x')")));
    EXPECT_TRUE(openExistingDatabase(m_path).readOnly);
    closeDatabase(m_path);
    EXPECT_EQ(bytes(m_path), original);
    EXPECT_EQ(upgradeAllDatabases(m_folder.path()).size(), 1);
}

struct RecordCase
{
    const char *record;   // SQL after the test database's own, making its SchemaVersion
    int recorded;         // afterwards
    const char *notice;   // part of the sentence, "" for none
    const char *trigger = "";
};

class OddRecord : public Steps, public ::testing::WithParamInterface<RecordCase> {};

// The test database has no steps: whatever its record says, it ends at layout 1 or says why.
TEST_P(OddRecord, EndsAtTheLayoutOrSaysWhy)
{
    {
        QSqlDatabase database = open();
        ASSERT_EQ(runScript(database, QStringLiteral("DROP TABLE \"SchemaVersion\";") + QString::fromUtf8(GetParam().record)),
                  QString());
        if (*GetParam().trigger) {
            ASSERT_TRUE(QSqlQuery(database).exec(QString::fromUtf8(GetParam().trigger)));
        }
    }
    closeDatabase(m_path);
    const OpenResult opened = openExistingDatabase(m_path);
    ASSERT_TRUE(opened.ok());
    EXPECT_TRUE(opened.notice.contains(QString::fromUtf8(GetParam().notice))) << opened.notice.toStdString();
    EXPECT_EQ(opened.notice.isEmpty(), *GetParam().notice == 0) << opened.notice.toStdString();
    EXPECT_EQ(recordedLayout(opened.database), GetParam().recorded);
}

INSTANTIATE_TEST_SUITE_P(Cases, OddRecord, ::testing::Values(
    RecordCase{"CREATE TABLE \"SchemaVersion\" (\"version\" INTEGER NOT NULL); INSERT INTO \"SchemaVersion\" VALUES (0)",
               1, ""},
    RecordCase{"CREATE TABLE \"SchemaVersion\" (\"version\" TEXT); INSERT INTO \"SchemaVersion\" VALUES ('zwei')",
               1, ""},
    RecordCase{"CREATE TABLE \"SchemaVersion\" (\"version\" INTEGER); INSERT INTO \"SchemaVersion\" VALUES (NULL)",
               1, ""},
    RecordCase{"CREATE TABLE \"SchemaVersion\" (\"version\" INTEGER NOT NULL); INSERT INTO \"SchemaVersion\" VALUES (-3)",
               -1, "形式の版を読めませんでした"},
    RecordCase{"CREATE TABLE \"SchemaVersion\" (\"version\" INTEGER NOT NULL); INSERT INTO \"SchemaVersion\" VALUES (0)",
               0, "形式の版を記録できませんでした（消せません",
               "CREATE TRIGGER keep BEFORE DELETE ON \"SchemaVersion\" BEGIN SELECT RAISE(ABORT, '消せません'); END"}));

TEST(UpgradeAll, NamesEveryFileItCouldNotUpgrade)
{
    test::TempAppFolder folder;
    writeFile(folder.file(QStringLiteral("temp/KokyakuDB.sqlite")), {layoutText(QStringLiteral("KokyakuDB.1"))});
    writeFile(folder.file(QStringLiteral("Data/Hikazei.sqlite")),
              {layoutText(QStringLiteral("Hikazei.1")), layoutText(QStringLiteral("SchemaVersion.2"))});
    const QStringList notices = upgradeAllDatabases(folder.path());
    ASSERT_EQ(notices.size(), 1);
    EXPECT_TRUE(notices.first().contains(QStringLiteral("Hikazei.sqlite")));
    EXPECT_TRUE(QFile::exists(folder.file(QStringLiteral("temp/KokyakuDB.sqlite.bak-1"))));
}

} // namespace
} // namespace est::db
