#include "db/database.h"
#include "storage_backend.h"
#include "temp_app_folder.h"
#include "workitems/catalogue.h"
#include "workitems/maker_name_list.h"

#include <QFile>
#include <QSqlQuery>
#include <gtest/gtest.h>

using namespace est;
using namespace est::workitems;

namespace {

// Every test on the application folder's files and on a database of the test run's server.
struct CatalogueFixture : ::testing::TestWithParam<test::Backend>
{
    test::TempAppFolder folder;
    test::BackendScope backend{GetParam()};
    CatalogueConnections connections{folder.path()};

    std::unique_ptr<CatalogueTable> open(const QString &maker, const QString &table, QString *error = nullptr)
    {
        if (!connections.openCatalogue(maker).isEmpty())
            return {};
        return CatalogueTable::open(connections.catalogue(), table, error);
    }
    ~CatalogueFixture() override
    {
        connections.closeCatalogue();
        connections.closeCarSet();
    }
};

TEST_P(CatalogueFixture, RegisterListsTheSampleMakersAndTypes)
{
    ASSERT_EQ(connections.openCarSet(), QString());
    if (GetParam() == test::Backend::Sqlite)
        EXPECT_TRUE(QFile::exists(folder.file("Data/CarSet.sqlite")));
    const QList<Maker> makers = connections.makers();
    ASSERT_GE(makers.size(), 3);
    EXPECT_EQ(makers.first().name, QStringLiteral("トヨタ"));
    EXPECT_EQ(makers.first().dbName, QStringLiteral("Toyota"));
    const QList<VehicleType> types = connections.vehicleTypes();
    ASSERT_GE(types.size(), 3);
    // Every maker's catalogue holds a table for every vehicle type, with a real tree.
    for (const Maker &m : makers) {
        ASSERT_EQ(connections.openCatalogue(m.dbName), QString()) << m.dbName.toStdString();
        for (const VehicleType &t : types) {
            auto table = CatalogueTable::open(connections.catalogue(), t.tableName);
            ASSERT_TRUE(table) << t.tableName.toStdString();
            const auto classes = table->classifications();
            EXPECT_GE(classes.size(), 4);
            int parts = 0;
            for (const Classification &c : classes)
                for (const Section &s : table->sections(c.bnum))
                    parts += int(table->parts(c.bnum, s.knum).size());
            EXPECT_GE(parts, 200) << m.dbName.toStdString() << " " << t.tableName.toStdString();
        }
    }
}

TEST_P(CatalogueFixture, ClassificationsSectionsAndPartsOfTheTree)
{
    auto table = open(QStringLiteral("Toyota"), QStringLiteral("T_Sedan"));
    ASSERT_TRUE(table);
    const auto classes = table->classifications();
    ASSERT_FALSE(classes.isEmpty());
    EXPECT_EQ(classes.first().bnum, 1);
    EXPECT_EQ(classes.first().name, QStringLiteral("フロント廻り"));
    for (int i = 1; i < classes.size(); ++i)
        EXPECT_LT(classes.at(i - 1).bnum, classes.at(i).bnum);

    const auto sections = table->sections(1);
    ASSERT_GE(sections.size(), 2);
    EXPECT_EQ(sections.first().name, QStringLiteral("フロントバンパー"));
    for (int i = 1; i < sections.size(); ++i)
        EXPECT_LT(sections.at(i - 1).knum, sections.at(i).knum);
    for (const Section &s : sections)
        EXPECT_EQ(s.bnum, 1);

    const auto parts = table->parts(1, 1);
    ASSERT_GE(parts.size(), 5);
    EXPECT_EQ(parts.first().num, 1);
    EXPECT_EQ(parts.first().name, QStringLiteral("フロントバンパーカバー"));
    for (int i = 1; i < parts.size(); ++i)
        EXPECT_LT(parts.at(i - 1).num, parts.at(i).num);
    // Num is unique only inside its section: section 2 starts from 1 again.
    EXPECT_EQ(table->parts(1, 2).first().num, 1);
    EXPECT_TRUE(table->sections(0).isEmpty());
    EXPECT_TRUE(table->parts(99, 1).isEmpty());
}

TEST_P(CatalogueFixture, ClassificationListFollowsTheGroupingOfItsRows)
{
    // A hand-made table whose rows are out of order, where one number carries two names and
    // where a number and a name are missing.
    ASSERT_EQ(connections.openCatalogue(QStringLiteral("Toyota")), QString());
    QSqlDatabase db = connections.catalogue();
    ASSERT_EQ(createCatalogueTable(db, QStringLiteral("T_Test")), QString());
    QSqlQuery q(db);
    ASSERT_TRUE(q.exec(QStringLiteral("INSERT INTO \"T_Test\" VALUES (1,3,'C',1,'c1','x'),(1,1,'A',2,'a2','y'),"
                                      "(2,3,'C',1,'c1','z'),(1,2,'B',1,'b1','w'),(1,1,'A2',1,'a1','v'),"
                                      "(1,NULL,'N',1,'n','q'),(2,2,NULL,1,'b1','r')")));
    auto table = CatalogueTable::open(db, QStringLiteral("T_Test"));
    ASSERT_TRUE(table);
    const auto classes = table->classifications();
    QStringList names;
    for (const auto &c : classes)
        names << QString::number(c.bnum) + c.name;
    // What SQLite's "GROUP BY BNum, 分類" gives for these rows (the server's grouping has no order).
    if (GetParam() == test::Backend::Sqlite) {
        QSqlQuery grouped(db);
        ASSERT_TRUE(grouped.exec(QStringLiteral("SELECT BNum, 分類 FROM T_Test GROUP BY BNum, 分類")));
        QStringList expected;
        while (grouped.next())
            expected << QString::number(grouped.value(0).toInt()) + grouped.value(1).toString();
        EXPECT_EQ(names, expected);
    }
    EXPECT_EQ(names, (QStringList{"0N", "1A", "1A2", "2", "2B", "3C"}));

    // Sections likewise against DISTINCT ... ORDER BY KNum.
    ASSERT_TRUE(q.exec(QStringLiteral("INSERT INTO \"T_Test\" VALUES (1,1,'A',2,'a2b','s'),(3,1,'A',1,'a1','u'),"
                                      "(1,1,'A',NULL,'a0','t')")));
    QStringList sections;
    for (const auto &s : table->sections(1))
        sections << QString::number(s.knum) + s.name;
    EXPECT_EQ(sections, (QStringList{"0a0", "1a1", "2a2", "2a2b"}));
}

TEST_P(CatalogueFixture, NewNumbersAndAnApostropheInAPartName)
{
    auto table = open(QStringLiteral("Nissan"), QStringLiteral("T_Kei"));
    ASSERT_TRUE(table);
    const auto before = table->parts(1, 1);
    const std::int32_t next = table->nextNumber(1, 1);
    EXPECT_EQ(next, before.last().num + 1);
    EXPECT_EQ(table->nextNumber(1, 99), 1); // a section without parts starts at 1

    CatalogueRow row;
    row.num = next;
    row.bnum = 1;
    row.bunrui = QStringLiteral("フロント廻り");
    row.knum = 1;
    row.kubun = QStringLiteral("フロントバンパー");
    row.partName = QStringLiteral("O'Neill's bracket'; DROP TABLE T_Kei; --");
    ASSERT_EQ(table->addPart(row), QString());
    const auto after = table->parts(1, 1);
    ASSERT_EQ(after.size(), before.size() + 1);
    EXPECT_EQ(after.last().name, row.partName);
    EXPECT_EQ(after.last().num, next);

    // Renamed and deleted by its identity, and the file keeps it between connections.
    const auto rows = table->sectionRows(1, 1);
    ASSERT_EQ(rows.last().partName, row.partName);
    ASSERT_EQ(table->renamePart(rows.last().rowId, QStringLiteral("ﾌﾛﾝﾄﾊﾞﾝﾊﾟｰ'ｽﾃｰ")), QString());
    table.reset();
    connections.closeCatalogue();
    table = open(QStringLiteral("Nissan"), QStringLiteral("T_Kei"));
    ASSERT_TRUE(table);
    EXPECT_EQ(table->parts(1, 1).last().name, QStringLiteral("ﾌﾛﾝﾄﾊﾞﾝﾊﾟｰ'ｽﾃｰ"));
    ASSERT_EQ(table->deletePart(table->sectionRows(1, 1).last().rowId), QString());
    EXPECT_EQ(table->parts(1, 1).size(), before.size());
}

TEST_P(CatalogueFixture, MissingCatalogueFileOrTableIsAnErrorNotACrash)
{
    EXPECT_NE(connections.openCatalogue(QStringLiteral("NoSuchMaker")), QString());
    EXPECT_FALSE(connections.catalogueOpen());
    for (const char *bad : {"../temp/SettingDB", "a/b", "C:x", "", ".."})
        EXPECT_NE(connections.openCatalogue(QString::fromUtf8(bad)), QString()) << bad;

    QString error;
    EXPECT_FALSE(open(QStringLiteral("Honda"), QStringLiteral("T_NoSuchType"), &error));
    EXPECT_TRUE(error.contains(QStringLiteral("T_NoSuchType")));
    // A table name that would be SQL if pasted into a statement is simply not there.
    EXPECT_FALSE(CatalogueTable::open(connections.catalogue(), QStringLiteral("T_Sedan; DROP TABLE T_Sedan")));
    EXPECT_TRUE(CatalogueTable::open(connections.catalogue(), QStringLiteral("T_Sedan")));
}

TEST(MakerNames, NextNumberAndEditsOnTheSettingsDatabase)
{
    test::TempAppFolder folder;
    QSqlDatabase db;
    ASSERT_EQ(MakerNameList::open(folder.path(), &db), QString());
    MakerNameList list(db);
    const auto rows = list.all();
    ASSERT_FALSE(rows.isEmpty());
    EXPECT_EQ(list.nextNumber(), rows.last().no + 1);
    for (const auto &r : rows)
        ASSERT_EQ(list.remove(r.rowId), QString());
    EXPECT_EQ(list.nextNumber(), 1); // an empty list starts at 1
    ASSERT_EQ(list.add(1, QStringLiteral("ミツオカ")), QString());
    ASSERT_EQ(list.add(list.nextNumber(), QStringLiteral("D'Auto")), QString());
    ASSERT_EQ(list.all().size(), 2);
    EXPECT_EQ(list.all().last().no, 2);
    EXPECT_EQ(list.all().last().name, QStringLiteral("D'Auto"));
    ASSERT_EQ(list.rename(list.all().first().rowId, QStringLiteral("光岡")), QString());
    EXPECT_EQ(list.all().first().name, QStringLiteral("光岡"));
    db::closeDatabase(folder.file("temp/SettingDB.sqlite"));
}

INSTANTIATE_TEST_SUITE_P(Backends, CatalogueFixture, ::testing::ValuesIn(test::kBothBackends),
                         [](const auto &info) { return test::backendName(info.param); });

} // namespace
