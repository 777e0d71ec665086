#include "db/database.h"
#include "paint/paint_kind.h"
#include "paint/paint_masters.h"
#include "storage_backend.h"
#include "temp_app_folder.h"
#include "workitems/labour.h"

#include <QSqlQuery>
#include <gtest/gtest.h>

using namespace est;
using namespace est::paint;

namespace {

struct MastersFixture
{
    test::TempAppFolder folder;
    test::BackendScope backend;
    std::unique_ptr<PaintMasters> masters;
    explicit MastersFixture(test::Backend on = test::Backend::Sqlite) : backend(on)
    {
        QString error;
        masters = PaintMasters::open(folder.path(), &error);
        EXPECT_TRUE(masters) << error.toStdString();
    }
    void exec(const QString &sql)
    {
        QSqlQuery q(db::openDatabase(folder.path(), QStringLiteral("temp\\PartDB.mdb")).database);
        ASSERT_TRUE(q.exec(sql)) << sql.toStdString();
    }
};

// The tables' answers on the application folder's file and on the server.
class PaintMastersOn : public ::testing::TestWithParam<test::Backend>
{
};

} // namespace

TEST_P(PaintMastersOn, SampleDatabaseIsMadeOnFirstOpen)
{
    MastersFixture x(GetParam());
    ASSERT_TRUE(x.masters);
    EXPECT_EQ(QFileInfo::exists(x.folder.file(QStringLiteral("temp/PartDB.sqlite"))), GetParam() == test::Backend::Sqlite);
    const auto categories = x.masters->categories();
    ASSERT_EQ(categories.size(), 5);
    EXPECT_EQ(categories.first().code, QStringLiteral("01"));
    EXPECT_EQ(categories.first().name, QStringLiteral("フロント"));
    const auto roof = x.masters->parts(QStringLiteral("04"));
    ASSERT_FALSE(roof.isEmpty());
    EXPECT_EQ(roof.first().name, QStringLiteral("ルーフパネル"));
    EXPECT_EQ(roof.first().location, QStringLiteral("ルーフ"));
    EXPECT_EQ(x.masters->parts(QStringLiteral("01")).at(1).name, QStringLiteral("フロントフェンダー(右)"));
    EXPECT_EQ(x.masters->materials(), (QStringList{"速乾", "2液", "水性"}));
    EXPECT_EQ(x.masters->innerPanelItems().size(), kInnerPanelItems);
}

struct BaseCase
{
    const char *vehicleClass;
    const char *paintKind;
    const char *material;
    int panels;
    std::optional<const char *> expected;
};

class BaseIndexTable : public ::testing::TestWithParam<BaseCase>
{
};

TEST_P(BaseIndexTable, FieldAtPanelCountPlusThree)
{
    MastersFixture x;
    const BaseCase c = GetParam();
    const auto index = x.masters->baseIndex(QString::fromUtf8(c.vehicleClass),
                                            colourKindCode(QString::fromUtf8(c.paintKind)),
                                            QString::fromUtf8(c.material), c.panels);
    if (c.expected)
        EXPECT_EQ(index, QString::fromUtf8(*c.expected));
    else
        EXPECT_FALSE(index);
}

INSTANTIATE_TEST_SUITE_P(
    SampleRows, BaseIndexTable,
    ::testing::Values(BaseCase{"普通", "ﾒﾀﾘｯｸ", "速乾", 1, "4.84"},  // 4.40 × 1.10
                      BaseCase{"普通", "ﾒﾀﾘｯｸ", "速乾", 2, "8.71"},
                      BaseCase{"普通", "ﾒﾀﾘｯｸ", "速乾", 3, "12.10"}, // stored as 12.1
                      BaseCase{"軽自", "ｿﾘｯﾄﾞ", "2液", 1, "3.89"},   // 3.60 × 1.08
                      BaseCase{"小型", "3ｺｰﾄﾊﾟｰﾙ", "水性", 10, "38.98"},
                      BaseCase{"普通", "ﾒﾀﾘｯｸ", "速乾", 0, std::nullopt},  // no panels chosen
                      BaseCase{"普通", "ﾒﾀﾘｯｸ", "速乾", 11, std::nullopt}, // beyond the last field
                      BaseCase{"普通", "ﾏｲｶ", "速乾", 1, std::nullopt},    // unknown kind: empty code
                      BaseCase{"普通", "ﾒﾀﾘｯｸ", "", 1, std::nullopt},
                      BaseCase{"大型", "ﾒﾀﾘｯｸ", "速乾", 1, std::nullopt}));

TEST_P(PaintMastersOn, HighFunctionIsLookedUpByTheKindTextNotItsCode)
{
    MastersFixture x(GetParam());
    const auto values = x.masters->highFunction(QStringLiteral("ﾒﾀﾘｯｸ"));
    ASSERT_TRUE(values);
    EXPECT_EQ(values->baseIndex, QStringLiteral("0.45"));
    EXPECT_EQ(values->fluorine, QStringLiteral("0.12"));
    EXPECT_EQ(values->other, QStringLiteral("0.09"));
    EXPECT_FALSE(x.masters->highFunction(QStringLiteral("M")));
    // Coefficient in force with fluorine coat: 0.35 + 0.12, exactly.
    EXPECT_EQ(x.masters->materialCoefficient(QStringLiteral("ﾒﾀﾘｯｸ")), QStringLiteral("0.35"));
    EXPECT_EQ(workitems::decimalSum(*x.masters->materialCoefficient(QStringLiteral("ﾒﾀﾘｯｸ")), values->fluorine),
              QStringLiteral("0.47"));
}

TEST_P(PaintMastersOn, SurchargeTablesByKindAndByLocation)
{
    MastersFixture x(GetParam());
    EXPECT_EQ(x.masters->lowHidingIndex(QStringLiteral("加算指数")), QStringLiteral("0.20"));
    EXPECT_EQ(x.masters->lowHidingIndex(QStringLiteral("ﾙｰﾌ")), QStringLiteral("0.80"));
    EXPECT_EQ(x.masters->lowHidingIndex(QStringLiteral("ﾙｰﾌ以外")), QStringLiteral("0.50"));
    EXPECT_EQ(x.masters->lowHidingIndex(QStringLiteral("ルーフ以外"), QStringLiteral("修正")), QStringLiteral("0.45"));
    EXPECT_EQ(x.masters->lowHidingIndex(QStringLiteral("ルーフ"), QStringLiteral("新品")), QStringLiteral("0.90"));
    EXPECT_EQ(x.masters->lowHidingIndex(QStringLiteral("ルーフ"), QStringLiteral("加算指数")), QStringLiteral("0.25"));
    EXPECT_FALSE(x.masters->lowHidingIndex(QString(), QStringLiteral("新品")));
    EXPECT_EQ(x.masters->twoCoatSolidIndex(QStringLiteral("加算指数")), QStringLiteral("0.15"));
    EXPECT_EQ(x.masters->twoCoatSolidIndex(QStringLiteral("ルーフ")), QStringLiteral("0.70"));
    EXPECT_EQ(x.masters->twoCoatSolidIndex(QStringLiteral("ルーフ以外")), QStringLiteral("0.45"));
}

TEST_P(PaintMastersOn, InnerPanelItemsInTableOrderAndEdited)
{
    MastersFixture x(GetParam());
    auto items = x.masters->innerPanelItems();
    ASSERT_EQ(items.size(), 7);
    EXPECT_EQ(items.at(0).part, QStringLiteral("ボンネット"));
    EXPECT_EQ(items.at(0).content, QStringLiteral("裏側塗装"));
    EXPECT_EQ(items.at(0).index, QStringLiteral("1.20"));
    EXPECT_EQ(items.at(0).lightIndex, QStringLiteral("1.00"));
    EXPECT_EQ(items.at(6).part, QStringLiteral("エンジンルーム"));

    items[2].index = QStringLiteral("0.95");
    items[2].memo = QStringLiteral("オーナーズ'カー"); // an apostrophe is data like any other
    ASSERT_TRUE(x.masters->saveInnerPanelItem(items.at(2))) << x.masters->lastError().toStdString();
    const auto again = x.masters->innerPanelItems();
    EXPECT_EQ(again.at(2).index, QStringLiteral("0.95"));
    EXPECT_EQ(again.at(2).memo, QStringLiteral("オーナーズ'カー"));
    EXPECT_EQ(again.at(3).index, QStringLiteral("1.10"));
}

TEST_P(PaintMastersOn, MissingTablesAndRowsGiveEmptyAnswers)
{
    MastersFixture x(GetParam());
    x.exec(QStringLiteral("DROP TABLE \"KoukinoDB\""));
    x.exec(QStringLiteral("DROP TABLE \"TKubunDB\""));
    x.exec(QStringLiteral("DELETE FROM \"PZairyohi\" WHERE \"塗装種類\" = 'ﾒﾀﾘｯｸ'"));
    x.exec(QStringLiteral("DROP TABLE \"NaibanPaintDB\""));
    EXPECT_FALSE(x.masters->highFunction(QStringLiteral("ﾒﾀﾘｯｸ")));
    EXPECT_TRUE(x.masters->categories().isEmpty());
    EXPECT_FALSE(x.masters->materialCoefficient(QStringLiteral("ﾒﾀﾘｯｸ")));
    EXPECT_EQ(x.masters->materialCoefficient(QStringLiteral("ｿﾘｯﾄﾞ")), QStringLiteral("0.30"));
    EXPECT_TRUE(x.masters->innerPanelItems().isEmpty());
    EXPECT_TRUE(x.masters->parts(QStringLiteral("0'1")).isEmpty());
    InnerPanelItem ghost;
    ghost.key = 1;
    EXPECT_FALSE(x.masters->saveInnerPanelItem(ghost));
    EXPECT_FALSE(x.masters->lastError().isEmpty());
}

INSTANTIATE_TEST_SUITE_P(Backends, PaintMastersOn, ::testing::ValuesIn(test::kBothBackends),
                         [](const auto &info) { return test::backendName(info.param); });

struct KindCase
{
    const char *kind;
    const char *code;
};

class ColourKinds : public ::testing::TestWithParam<KindCase>
{
};

TEST_P(ColourKinds, CodeOfEachKind)
{
    EXPECT_EQ(colourKindCode(QString::fromUtf8(GetParam().kind)), QString::fromUtf8(GetParam().code));
}

INSTANTIATE_TEST_SUITE_P(Kinds, ColourKinds,
                         ::testing::Values(KindCase{"ｿﾘｯﾄﾞ", "S"}, KindCase{"3ｺｰﾄﾊﾟｰﾙ", "3P"},
                                           KindCase{"ﾒﾀﾘｯｸ", "M"}, KindCase{"2ｺｰﾄﾊﾟｰﾙ", "2P"},
                                           KindCase{"ソリッド", ""}, KindCase{"", ""}));

TEST(PaintKind, ClassKeysAndFullNames)
{
    EXPECT_EQ(classFullName(QStringLiteral("軽自")), QStringLiteral("軽自動車"));
    EXPECT_EQ(classKey(QStringLiteral("普通自動車")), QStringLiteral("普通"));
    EXPECT_EQ(classFullName(QStringLiteral("大型")), QString());
    EXPECT_EQ(classKey(QStringLiteral("大型自動車")), QString());
    EXPECT_EQ(presetMaterial(QStringLiteral("ｿﾘｯﾄﾞ")), QStringLiteral("速乾"));
    EXPECT_EQ(presetMaterial(QStringLiteral("ﾒﾀﾘｯｸ")), QString());
    EXPECT_EQ(highFunctionOf(QStringLiteral("ﾊｲﾚﾌｺｰﾄ")), HighFunction::Other);
    EXPECT_EQ(highFunctionOf(QString()), HighFunction::None);
}
