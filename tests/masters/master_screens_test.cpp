#include "db/database.h"
#include "mastertable/table_checks.h"
#include "mastertable/table_edit_model.h"
#include "mastertable/table_store.h"
#include "masters/basic_index_gaps.h"
#include "masters/bumper_gaps.h"
#include "masters/master_screens.h"
#include "storage_backend.h"
#include "temp_app_folder.h"

#include <QSqlQuery>
#include <gtest/gtest.h>

using namespace est;
using namespace est::masters;

namespace {

struct ScreenCase
{
    const char *name;
    mastertable::TableScreen (*describe)();
};

class MasterScreenTest : public ::testing::TestWithParam<ScreenCase> {};

} // namespace

// Every table of the screen exists in a new PartDB with every described column, and the sample
// rows a new installation gets pass the screen's own rules, so a shop can save them unchanged.
TEST_P(MasterScreenTest, DescriptionFitsTheDatabaseAndItsSampleRows)
{
    test::TempAppFolder folder;
    const mastertable::TableScreen screen = GetParam().describe();
    EXPECT_EQ(screen.objectName, QString::fromUtf8(GetParam().name));
    const db::OpenResult opened = db::openDatabase(folder.path(), screen.database);
    ASSERT_TRUE(opened.ok()) << opened.error.toStdString();
    for (const mastertable::TableSpec &tableSpec : screen.tables) {
        const mastertable::TableStore store(opened.database, tableSpec);
        ASSERT_EQ(store.checkLayout(), QString()) << tableSpec.table.toStdString();
        QString error;
        const QList<mastertable::StoredRow> stored = store.load(&error);
        EXPECT_FALSE(stored.isEmpty()) << tableSpec.table.toStdString();
        QList<QStringList> rows;
        QList<int> numbers;
        for (const mastertable::StoredRow &row : stored) {
            for (int c = 0; c < tableSpec.columns.size(); ++c) {
                const mastertable::CellCheck check = mastertable::checkCell(tableSpec.columns.at(c), row.values.at(c));
                EXPECT_TRUE(check.ok() && check.value == row.values.at(c))
                    << tableSpec.table.toStdString() << " row " << rows.size() + 1 << ": " << check.reason.toStdString();
            }
            rows << row.values;
            numbers << int(rows.size());
        }
        EXPECT_TRUE(mastertable::duplicateKeys(tableSpec, rows, numbers).isEmpty()) << tableSpec.table.toStdString();
    }
}

INSTANTIATE_TEST_SUITE_P(Screens, MasterScreenTest,
                         ::testing::Values(ScreenCase{"frmBSetting", &bumperScreen},
                                           ScreenCase{"frmFukaSetting", &additionalScreen},
                                           ScreenCase{"frmKisoSetting", &basicIndexScreen},
                                           ScreenCase{"frmPaintName", &paintNameScreen}),
                         [](const auto &info) { return std::string(info.param.name); });

// The gap checks on the application folder's file and on the server.
class GapsOn : public ::testing::TestWithParam<test::Backend>
{
};

TEST_P(GapsOn, BasicIndexListsTheCombinationsThePaintScreenCanAskFor)
{
    test::TempAppFolder folder;
    const test::BackendScope backend(GetParam());
    db::OpenResult opened = db::openDatabase(folder.path(), QStringLiteral("temp\\PartDB.mdb"));
    ASSERT_TRUE(opened.ok());
    QString error;
    const QList<BasicIndexKey> sampleGaps = missingBasicIndexRows(opened.database, &error);
    EXPECT_EQ(error, QString());
    QSqlQuery q(opened.database);
    ASSERT_TRUE(q.exec(QStringLiteral("DELETE FROM \"KihonSisuDB\" WHERE \"Syaryo\" = '軽自' AND \"Iro\" = '3P'")));
    ASSERT_TRUE(q.exec(QStringLiteral("SELECT COUNT(DISTINCT \"Toryo\") FROM \"KihonSisuDB\"")) && q.next());
    const int materials = q.value(0).toInt();
    const QList<BasicIndexKey> gaps = missingBasicIndexRows(opened.database, &error);
    // Every material of light cars in three-coat pearl is now missing, in the table's order.
    EXPECT_EQ(gaps.size(), sampleGaps.size() + materials);
    EXPECT_TRUE(gaps.contains(BasicIndexKey{QStringLiteral("軽自"), QStringLiteral("3P"), QStringLiteral("速乾")}));
    EXPECT_TRUE(describeGaps(gaps).startsWith(QStringLiteral("基礎指数の無い組み合わせ（%1件）：").arg(gaps.size())));
}

TEST(BasicIndexGaps, DescribesNoneAndMany)
{
    EXPECT_EQ(describeGaps({}), QStringLiteral("車種・色種・塗料のすべての組み合わせに基礎指数があります。"));
    const QList<BasicIndexKey> three{{"小型", "S", "水性"}, {"普通", "M", "速乾"}, {"軽自", "2P", "2液"}};
    EXPECT_EQ(describeGaps(three, 2), QStringLiteral("基礎指数の無い組み合わせ（3件）：小型・S・水性、普通・M・速乾 ほか"));
}

TEST(BasicIndexGaps, MissingTableIsReported)
{
    test::TempAppFolder folder;
    db::OpenResult opened = db::openDatabase(folder.path(), QStringLiteral("temp\\PartDB.mdb"));
    ASSERT_TRUE(opened.ok());
    QSqlQuery(opened.database).exec(QStringLiteral("DROP TABLE \"KihonSisuDB\""));
    QString error;
    EXPECT_TRUE(missingBasicIndexRows(opened.database, &error).isEmpty());
    EXPECT_TRUE(error.startsWith(QStringLiteral("基礎指数の表を読めませんでした。")));
}

// A paint category that part names still use cannot disappear from frmPaintName: the save is
// refused with the reason and nothing is written.
TEST(PaintNameScreen, ACategoryStillUsedByPartNamesIsNotDeleted)
{
    test::TempAppFolder folder;
    const mastertable::TableScreen screen = paintNameScreen();
    const db::OpenResult opened = db::openDatabase(folder.path(), screen.database);
    ASSERT_TRUE(opened.ok()) << opened.error.toStdString();
    const auto count = [&](const char *sql) {
        QSqlQuery q(opened.database);
        q.exec(QString::fromUtf8(sql));
        return q.next() ? q.value(0).toInt() : -1;
    };
    const int categories = count("SELECT COUNT(*) FROM \"TKubunDB\"");
    mastertable::TableEditModel model{mastertable::TableStore(opened.database, screen.tables.at(0))};
    ASSERT_GT(model.rowCount(), 0);
    const QString code = model.text(0, 0);
    ASSERT_GT(count(QStringLiteral("SELECT COUNT(*) FROM \"PaintDB\" WHERE \"KCode\" = '%1'").arg(code).toUtf8().constData()), 0);
    model.removeHeldRows({0});
    const mastertable::SaveOutcome outcome = model.save();
    EXPECT_FALSE(outcome.saved);
    EXPECT_TRUE(outcome.message.contains(QStringLiteral("使われているため"))) << outcome.message.toStdString();
    EXPECT_EQ(count("SELECT COUNT(*) FROM \"TKubunDB\""), categories);
}

// Every bumper choice has its rows in a new installation; a row removed, or a paint kind typed
// differently (full-width ソリッド), shows as gaps instead of a bumper priced at index 0.
TEST_P(GapsOn, BumperListsTheRowsTheBumperScreenCanAskFor)
{
    test::TempAppFolder folder;
    const test::BackendScope backend(GetParam());
    db::OpenResult opened = db::openDatabase(folder.path(), QStringLiteral("temp\\PartDB.mdb"));
    ASSERT_TRUE(opened.ok());
    QString error;
    EXPECT_TRUE(missingBumperRows(opened.database, &error).empty()) << error.toStdString();
    EXPECT_EQ(describeBumperGaps({}), QStringLiteral("作業・車種・色種・内容のすべての組み合わせにバンパー指数があります。"));

    QSqlQuery q(opened.database);
    ASSERT_TRUE(q.exec(QStringLiteral("DELETE FROM \"BanpaDB\" WHERE \"作業\" = 'X' AND \"車種\" = '普通' AND \"色種\" = 'ﾒﾀﾘｯｸ' "
                                      "AND \"内容\" = '全面塗装'")));
    BumperGaps gaps = missingBumperRows(opened.database, &error);
    EXPECT_EQ(gaps.baseRows, QStringList({QStringLiteral("取替・普通・ﾒﾀﾘｯｸ・全面塗装")}));
    EXPECT_TRUE(gaps.offVehicleKinds.isEmpty());

    // One row with the kind typed in full-width: 2 works × 3 classes × 3 contents - 1 are missing.
    ASSERT_TRUE(q.exec(QStringLiteral("INSERT INTO \"BanpaDB\" VALUES ('S', '小型', 'ソリッド', '半面塗装', '', 1.5)")));
    gaps = missingBumperRows(opened.database, &error);
    EXPECT_EQ(gaps.baseRows.size(), 1 + 17);
    EXPECT_TRUE(gaps.baseRows.contains(QStringLiteral("修理・軽自・ソリッド・全面塗装")));
    EXPECT_EQ(gaps.offVehicleKinds, QStringList({QStringLiteral("ソリッド")}));
    EXPECT_EQ(describeBumperGaps(gaps, 1), QStringLiteral("バンパー指数の無い組み合わせ（18件）：取替・小型・ソリッド・全面塗装 ほか\n"
                                                          "単体塗装の指数が無い色種：ソリッド"));

    ASSERT_TRUE(q.exec(QStringLiteral("DROP TABLE \"BampaTantaiDB\"")));
    EXPECT_TRUE(missingBumperRows(opened.database, &error).empty());
    EXPECT_TRUE(error.startsWith(QStringLiteral("バンパー指数の表を読めませんでした。")));
}

INSTANTIATE_TEST_SUITE_P(Backends, GapsOn, ::testing::ValuesIn(test::kBothBackends),
                         [](const auto &info) { return test::backendName(info.param); });

// The content of a bumper row is one the bumper screen offers.
TEST(BumperScreen, AContentTheScreenDoesNotOfferIsRefused)
{
    const mastertable::TableSpec base = bumperScreen().tables.at(0);
    const int content = base.columnOf(QStringLiteral("内容"));
    ASSERT_GE(content, 0);
    EXPECT_FALSE(mastertable::checkCell(base.columns.at(content), QStringLiteral("全面")).ok());
    EXPECT_TRUE(mastertable::checkCell(base.columns.at(content), QStringLiteral("コーナー部塗装")).ok());
}

// The bumper screen reads the first three condition rows; fewer cannot be saved.
TEST(BumperScreen, FewerThanThreeConditionsAreNotSaved)
{
    test::TempAppFolder folder;
    const mastertable::TableScreen screen = bumperScreen();
    const db::OpenResult opened = db::openDatabase(folder.path(), screen.database);
    ASSERT_TRUE(opened.ok()) << opened.error.toStdString();
    const mastertable::TableSpec &conditions = screen.tables.at(2);
    ASSERT_EQ(conditions.table, QStringLiteral("BampaJyoukenDB"));
    mastertable::TableEditModel model{mastertable::TableStore(opened.database, conditions)};
    ASSERT_EQ(model.rowCount(), 3);
    model.removeHeldRows({2});
    const mastertable::SaveOutcome outcome = model.save();
    EXPECT_FALSE(outcome.saved);
    EXPECT_TRUE(outcome.message.startsWith(QStringLiteral("条件加算は上から順に3行"))) << outcome.message.toStdString();
    QSqlQuery q(opened.database);
    ASSERT_TRUE(q.exec(QStringLiteral("SELECT COUNT(*) FROM \"BampaJyoukenDB\"")) && q.next());
    EXPECT_EQ(q.value(0).toInt(), 3);
}
