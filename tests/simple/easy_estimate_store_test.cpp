#include "simple_fixture.h"

#include "db/database.h"

#include <QDir>
#include <QFile>

using namespace est;
using namespace est::simple;
using est::test::names;
using est::test::SimpleFixture;

namespace {

QStringList L(std::initializer_list<const char *> items)
{
    QStringList result;
    for (const char *item : items)
        result.append(QString::fromUtf8(item));
    return result;
}

// The store's answers on the application folder's file and on the server.
class EasyEstimateOn : public ::testing::TestWithParam<est::test::Backend>
{
};

} // namespace

TEST(EasyEstimateStore, AMissingFileIsMadeFromTheSampleData)
{
    SimpleFixture x;
    ASSERT_TRUE(x.store);
    EXPECT_TRUE(QFile::exists(x.folder.file(QStringLiteral("Data/EasyEstimate.sqlite"))));
    EXPECT_EQ(names(x.store->workKinds()), L({"キズ・ヘコミ修理", "パネル全面塗装"}));
}

// Class A 4 (大型・輸入車) has no unit price at all; class B 5 (トラック) neither.
TEST_P(EasyEstimateOn, ClassesAWithoutPricesForTheWorkKindNeverAppear)
{
    SimpleFixture x(GetParam());
    EXPECT_EQ(names(x.store->classesA(1)), L({"軽自動車", "小型自動車", "普通自動車"}));
    EXPECT_EQ(names(x.store->classesA(2)), L({"軽自動車", "小型自動車", "普通自動車"}));
    EXPECT_TRUE(names(x.store->classesA(3)).isEmpty());
    // Prices for work kind 2 only make the class appear for work kind 2 only.
    x.exec(QStringLiteral("INSERT INTO \"T_TUnitPrice\" (\"作業部位\", \"作業内容\", \"材料/部品代\", \"工賃\", \"作業区分\", "
                          "\"車両区分A\", \"車両区分B\", \"色区分\", \"Num\") VALUES ('ルーフ', '塗装', 1000, 2000, 2, 4, 1, 1, 7)"));
    EXPECT_EQ(names(x.store->classesA(1)).size(), 3);
    EXPECT_EQ(names(x.store->classesA(2)).last(), QStringLiteral("大型・輸入車"));
}

struct Narrowing
{
    int kind, a, b;  // b = 0: the class B list of (kind, a)
    QStringList expected;
};

class NarrowingTest : public ::testing::TestWithParam<Narrowing> {};

TEST_P(NarrowingTest, ListsOnlyCombinationsWithAUnitPrice)
{
    SimpleFixture x;
    const Narrowing &n = GetParam();
    const auto list = n.b == 0 ? x.store->classesB(n.kind, n.a) : x.store->colours(n.kind, n.a, n.b);
    EXPECT_EQ(names(list), n.expected);
}

INSTANTIATE_TEST_SUITE_P(
    SampleData, NarrowingTest,
    ::testing::Values(Narrowing{1, 1, 0, L({"ハッチバック", "ミニバン"})},          // no セダン for 軽
                      Narrowing{1, 2, 0, L({"セダン", "ハッチバック", "ミニバン", "SUV"})},
                      Narrowing{1, 3, 0, L({"セダン", "ミニバン", "SUV"})},         // no ハッチバック
                      Narrowing{1, 4, 0, {}},
                      Narrowing{1, 1, 2, L({"ソリッド", "メタリック", "パール"})},
                      Narrowing{2, 1, 2, L({"ソリッド", "メタリック"})},             // no パール for 軽
                      Narrowing{2, 2, 1, L({"ソリッド", "メタリック", "パール"})},
                      Narrowing{2, 1, 1, {}}));

TEST_P(EasyEstimateOn, TheOpeningListsOfClassBAndColourAreWholeTables)
{
    SimpleFixture x(GetParam());
    EXPECT_EQ(names(x.store->allClassesB()), L({"セダン", "ハッチバック", "ミニバン", "SUV", "トラック"}));
    EXPECT_EQ(names(x.store->allColours()), L({"ソリッド", "メタリック", "パール"}));
}

// A work kind missing from M_TSKubun hides its prices from the class B and colour lists (they
// join the work kind table) but not from the class A list, which does not.
TEST_P(EasyEstimateOn, ClassBAndColourListsNeedAKnownWorkKind)
{
    SimpleFixture x(GetParam());
    x.exec(QStringLiteral("UPDATE \"T_TUnitPrice\" SET \"作業区分\" = 7 WHERE \"作業区分\" = 2"));
    EXPECT_EQ(names(x.store->classesA(7)).size(), 3);
    EXPECT_TRUE(names(x.store->classesB(7, 2)).isEmpty());
    EXPECT_TRUE(names(x.store->colours(7, 2, 1)).isEmpty());
}

TEST_P(EasyEstimateOn, NamesWithApostrophesAreListed)
{
    SimpleFixture x(GetParam());
    x.exec(QStringLiteral("INSERT INTO \"M_TSyaryoA\" (\"No\", \"車両区分A\") VALUES (9, ?)"), {QStringLiteral("O'Neil's 車")});
    x.exec(QStringLiteral("INSERT INTO \"T_TUnitPrice\" (\"作業部位\", \"作業内容\", \"材料/部品代\", \"工賃\", \"作業区分\", "
                          "\"車両区分A\", \"車両区分B\", \"色区分\", \"Num\") VALUES (?, ?, 0, 100, 1, 9, 1, 1, 3)"),
           {QStringLiteral("ドア'右"), QStringLiteral("'磨き'")});
    EXPECT_EQ(names(x.store->classesA(1)).last(), QStringLiteral("O'Neil's 車"));
    const auto rows = x.store->unitPrices({1, 9, 1, 1}, 3, PanelMatch::AsNumber);
    ASSERT_TRUE(rows);
    ASSERT_EQ(rows->size(), 1);
    EXPECT_EQ(rows->first().part, QStringLiteral("ドア'右"));
    EXPECT_EQ(rows->first().content, QStringLiteral("'磨き'"));
}

// 小型自動車 (×1.15), セダン (×1.0), ソリッド: the front door's small repair is 13,000 × 1.15 =
// 14,950, to the hundred 15,000 (half to even), material 6,500 × 0.6 = 3,900; the medium
// repair is 1.6 × 15,000 = 24,000 and 1.3 × 3,900 = 5,070, to the hundred 5,100.
TEST_P(EasyEstimateOn, UnitPricesOfOnePanel)
{
    SimpleFixture x(GetParam());
    const auto rows = x.store->unitPrices({1, 2, 1, 1}, 3, PanelMatch::AsNumber);
    ASSERT_TRUE(rows);
    ASSERT_EQ(rows->size(), 2);
    EXPECT_EQ(rows->at(0).part, QStringLiteral("フロントドア"));
    EXPECT_EQ(rows->at(0).content, QStringLiteral("キズ・ヘコミ修理（小）"));
    EXPECT_EQ(rows->at(0).labour, 15000);
    EXPECT_EQ(rows->at(0).material, 3900);
    EXPECT_EQ(rows->at(1).labour, 24000);
    EXPECT_EQ(rows->at(1).material, 5100);
}

TEST_P(EasyEstimateOn, ThePanelAsTextFindsTheSameRowsAsTheNumber)
{
    SimpleFixture x(GetParam());
    for (int panel = 0; panel <= 11; ++panel) {
        const auto asText = x.store->unitPrices({1, 3, 3, 2}, panel, PanelMatch::AsText);
        const auto asNumber = x.store->unitPrices({1, 3, 3, 2}, panel, PanelMatch::AsNumber);
        ASSERT_TRUE(asText && asNumber);
        ASSERT_EQ(asText->size(), asNumber->size()) << panel;
        for (int i = 0; i < asText->size(); ++i)
            EXPECT_EQ(asText->at(i).no, asNumber->at(i).no);
    }
    // Panel 0 holds the jobs that belong to no panel; the minivan has no boot lid.
    EXPECT_EQ(x.store->unitPrices({1, 3, 3, 2}, 0, PanelMatch::AsText)->size(), 2);
    EXPECT_TRUE(x.store->unitPrices({1, 3, 3, 2}, 8, PanelMatch::AsNumber)->isEmpty());
    EXPECT_EQ(x.store->unitPrices({1, 3, 3, 2}, 11, PanelMatch::AsNumber)->size(), 2);
}

INSTANTIATE_TEST_SUITE_P(Backends, EasyEstimateOn, ::testing::ValuesIn(est::test::kBothBackends),
                         [](const auto &info) { return est::test::backendName(info.param); });

TEST(EasyEstimateStore, AFileThatIsNoDatabaseIsReported)
{
    est::test::TempAppFolder folder;
    QDir().mkpath(folder.file(QStringLiteral("Data")));
    QFile file(folder.file(QStringLiteral("Data/EasyEstimate.sqlite")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(QByteArray(4096, 'x'));
    file.close();
    QString error;
    EXPECT_FALSE(EasyEstimateStore::open(folder.path(), &error));
    EXPECT_TRUE(error.startsWith(QStringLiteral("簡易見積のデータ（Data/EasyEstimate.sqlite）を開けません。")))
        << error.toStdString();
}

TEST(EasyEstimateStore, AFileWithoutTheUnitPriceTableIsReported)
{
    SimpleFixture x;
    x.exec(QStringLiteral("DROP TABLE \"T_TUnitPrice\""));
    x.store.reset();
    QString error;
    EXPECT_FALSE(EasyEstimateStore::open(x.folder.path(), &error));
    EXPECT_TRUE(error.contains(QStringLiteral("T_TUnitPrice"))) << error.toStdString();
}
