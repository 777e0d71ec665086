// The bumper screen's logic against the sample tables, amounts worked out by hand.
#include "indices/bumper_calculation.h"
#include "part_db_fixture.h"

using namespace est;
using namespace est::indices;

namespace {

constexpr int kHyoj = 1, kSima = 2, kKizu = 4;

struct BumperChoice
{
    bool included = false;
    const char *work = "";
    const char *content = "";
    int conditions = 0;
};

struct BumperCase
{
    const char *name;
    const char *vehicleClass;
    const char *colour;
    std::int16_t rate;
    workitems::Rounding rounding;
    bool offVehicle;
    BumperChoice front, rear;
    const char *frontSum;
    std::optional<Yen> frontAmount;
    const char *rearSum;
    std::optional<Yen> rearAmount;
    Yen total;
};

class BumperTable : public test::PartDbTest, public ::testing::WithParamInterface<BumperCase>
{
protected:
    void choose(BumperCalculation &calc, Side side, const BumperChoice &c)
    {
        calc.setIncluded(side, c.included);
        calc.setWorkKind(side, QString::fromUtf8(c.work));
        calc.setContent(side, QString::fromUtf8(c.content));
        const Condition conditions[] = {Condition::Hyoj, Condition::Sima, Condition::Kizu};
        for (int i = 0; i < 3; ++i)
            if (c.conditions & (1 << i))
                calc.setCondition(side, conditions[i], true);
    }
};

TEST_P(BumperTable, SumsAndAmounts)
{
    const BumperCase &c = GetParam();
    BumperTables tables(database);
    BumperCalculation calc(tables, {QString::fromUtf8(c.vehicleClass), QString::fromUtf8(c.colour), c.rate, c.rounding},
                           messages);
    choose(calc, Side::Front, c.front);
    choose(calc, Side::Rear, c.rear);
    calc.setOffVehicle(c.offVehicle);
    EXPECT_EQ(calc.side(Side::Front).indexSum, QString::fromUtf8(c.frontSum));
    EXPECT_EQ(calc.side(Side::Front).amount, c.frontAmount);
    EXPECT_EQ(calc.side(Side::Rear).indexSum, QString::fromUtf8(c.rearSum));
    EXPECT_EQ(calc.side(Side::Rear).amount, c.rearAmount);
    EXPECT_EQ(calc.total(), c.total);
    EXPECT_EQ(calc.confirmed().labourSum, c.total);
    EXPECT_TRUE(messages.shown.isEmpty());
}

// Sample indices: replace whole 2.40 (小型 ｿﾘｯﾄﾞ), 3.04 (普通 ﾒﾀﾘｯｸ); repair half 2.40 (普通
// ﾒﾀﾘｯｸ); repair whole 3.02 (軽自 2ｺｰﾄﾊﾟｰﾙ); off-vehicle ﾒﾀﾘｯｸ 0.35; conditions 0.20, 0.15, 0.30.
INSTANTIATE_TEST_SUITE_P(
    ByHand, BumperTable,
    ::testing::Values(
        // 2.4 × 7,010 = 16,824, no shop rounding; the rear is not included.
        BumperCase{"FrontReplaceSmall", "小型", "ｿﾘｯﾄﾞ", 7010, {0, 1}, false, {true, "取替", "全面塗装"}, {},
                   "2.4", 16824, "", std::nullopt, 16824},
        // Front 3.04 + 0.35 = 3.39 × 6,500 = 22,035 -> 22,040; rear 2.40 + 0.35 + 0.20 = 2.95 × 6,500
        // = 19,175 -> 19,180 (ones digit, half up).
        BumperCase{"BothOffVehicleRounded", "普通", "ﾒﾀﾘｯｸ", 6500, {1, 1}, true, {true, "取替", "全面塗装"},
                   {true, "修理", "半面塗装", kHyoj}, "3.39", 22040, "2.95", 19180, 41220},
        // Only the rear: 3.02 + 0.15 + 0.30 = 3.47 × 7,000 = 24,290 -> 24,300 (tens digit, up).
        BumperCase{"OnlyRear", "軽自", "2ｺｰﾄﾊﾟｰﾙ", 7000, {2, 2}, false, {false, "取替", "全面塗装"},
                   {true, "修理", "全面塗装", kSima | kKizu}, "", std::nullopt, "3.47", 24300, 24300},
        // 2.4 + 0.15 = 2.55 × 4,010 = 10,225.5 exactly -> 10,226 (ties to even; binary gives 10,225).
        BumperCase{"HalfYenToEven", "小型", "ｿﾘｯﾄﾞ", 4010, {0, 1}, false, {true, "取替", "全面塗装", kSima}, {},
                   "2.55", 10226, "", std::nullopt, 10226},
        // A colour kind with no row: base 0, only the condition counts: 0.2 × 7,000.
        BumperCase{"MissingCombinationIsZero", "小型", "ﾏｲｶ", 7000, {0, 1}, true, {true, "取替", "全面塗装", kHyoj},
                   {}, "0.2", 1400, "", std::nullopt, 1400},
        // Included but nothing chosen yet: sum 0, amount 0.
        BumperCase{"NothingChosen", "小型", "ｿﾘｯﾄﾞ", 7000, {0, 1}, false, {true}, {true}, "0", 0, "0", 0, 0}),
    [](const auto &info) { return std::string(info.param.name); });

class BumperState_ : public test::PartDbTest
{
protected:
    BumperSettings settings{QStringLiteral("普通"), QStringLiteral("ﾒﾀﾘｯｸ"), 6500, {0, 1}};
};

TEST_F(BumperState_, ConditionOnAndOffReturnsToTheSameSum)
{
    BumperTables tables(database);
    BumperCalculation calc(tables, settings, messages);
    calc.setIncluded(Side::Front, true);
    calc.setWorkKind(Side::Front, "取替");
    calc.setContent(Side::Front, "全面塗装");
    const BumperSide before = calc.side(Side::Front);
    EXPECT_EQ(before.indexSum, "3.04");
    for (Condition c : {Condition::Hyoj, Condition::Sima, Condition::Kizu})
        calc.setCondition(Side::Front, c, true);
    EXPECT_EQ(calc.side(Side::Front).indexSum, "3.69"); // 3.04 + 0.20 + 0.15 + 0.30
    for (Condition c : {Condition::Kizu, Condition::Hyoj, Condition::Sima})
        calc.setCondition(Side::Front, c, false);
    EXPECT_EQ(calc.side(Side::Front).indexSum, before.indexSum);
    EXPECT_EQ(calc.side(Side::Front).amount, before.amount);
    // Off the vehicle and back again.
    calc.setOffVehicle(true);
    EXPECT_EQ(calc.offVehicleIndex(), "0.35");
    EXPECT_EQ(calc.side(Side::Front).indexSum, "3.39");
    calc.setOffVehicle(false);
    EXPECT_EQ(calc.offVehicleIndex(), "");
    EXPECT_EQ(calc.side(Side::Front).indexSum, "3.04");
    // Leaving the bumper out removes its amount from the total.
    calc.setIncluded(Side::Front, false);
    EXPECT_EQ(calc.side(Side::Front).amount, std::nullopt);
    EXPECT_EQ(calc.total(), 0);
}

TEST_F(BumperState_, ConfirmedStateRestoresChoicesAndRecomputesAtTheNewRate)
{
    BumperTables tables(database);
    BumperCalculation calc(tables, settings, messages);
    calc.setIncluded(Side::Rear, true);
    calc.setWorkKind(Side::Rear, "修理");
    calc.setContent(Side::Rear, "半面塗装");
    calc.setCondition(Side::Rear, Condition::Kizu, true);
    calc.setOffVehicle(true);
    const BumperState kept = calc.confirmed();
    EXPECT_TRUE(kept.entered);
    EXPECT_EQ(kept.lines.size(), 31);
    EXPECT_EQ(kept.lineCount, 1);
    EXPECT_EQ(kept.labourSum, 19825); // (2.40 + 0.35 + 0.30) × 6,500

    BumperSettings later = settings;
    later.paintRate = 7000;
    BumperCalculation reopened(tables, later, messages);
    reopened.restore(kept.lines);
    const BumperSide &rear = reopened.side(Side::Rear);
    EXPECT_TRUE(rear.included);
    EXPECT_EQ(rear.workKind, "修理");
    EXPECT_EQ(rear.content, "半面塗装");
    EXPECT_TRUE(rear.conditions[size_t(Condition::Kizu)]);
    EXPECT_FALSE(rear.conditions[size_t(Condition::Hyoj)]);
    EXPECT_TRUE(reopened.offVehicle());
    EXPECT_EQ(reopened.offVehicleIndex(), "0.35");
    EXPECT_EQ(rear.indexSum, "3.05");
    EXPECT_EQ(rear.amount, 21350); // 3.05 × 7,000
    EXPECT_FALSE(reopened.side(Side::Front).included);
    // Kept again unchanged at the old rate, the texts are the same.
    BumperCalculation same(tables, settings, messages);
    same.restore(kept.lines);
    EXPECT_EQ(same.confirmed().lines, kept.lines);
}

TEST(BumperNames, WorkCodesAndClassNames)
{
    EXPECT_EQ(BumperCalculation::workCode("取替"), "X");
    EXPECT_EQ(BumperCalculation::workCode("修理"), "S");
    EXPECT_EQ(BumperCalculation::workCode("脱着"), "");
    EXPECT_EQ(BumperCalculation::vehicleClassName("小型"), "小型自動車");
    EXPECT_EQ(BumperCalculation::vehicleClassName("普通"), "普通自動車");
    EXPECT_EQ(BumperCalculation::vehicleClassName("軽自"), "軽自動車");
    EXPECT_EQ(BumperCalculation::vehicleClassName("大型"), "");
}

class SampleTables : public test::PartDbTest
{
};

TEST_F(SampleTables, EveryBumperChoiceHasARow)
{
    BumperTables tables(database);
    int rows = 0;
    for (const QString &work : BumperCalculation::workKinds())
        for (const char *vehicleClass : {"小型", "普通", "軽自"})
            for (const char *colour : {"ｿﾘｯﾄﾞ", "ﾒﾀﾘｯｸ", "2ｺｰﾄﾊﾟｰﾙ", "3ｺｰﾄﾊﾟｰﾙ"})
                for (const QString &content : BumperCalculation::contents()) {
                    const QString index = tables.baseIndex(BumperCalculation::workCode(work),
                                                           QString::fromUtf8(vehicleClass),
                                                           QString::fromUtf8(colour), content);
                    EXPECT_GT(index.toDouble(), 0) << work.toStdString() << vehicleClass << colour;
                    ++rows;
                }
    EXPECT_EQ(rows, 72);
    for (const char *colour : {"ｿﾘｯﾄﾞ", "ﾒﾀﾘｯｸ", "2ｺｰﾄﾊﾟｰﾙ", "3ｺｰﾄﾊﾟｰﾙ"})
        EXPECT_FALSE(tables.offVehicleIndex(QString::fromUtf8(colour)).isEmpty());
    EXPECT_EQ(tables.conditionIndices(), (std::array<QString, 3>{"0.2", "0.15", "0.3"}));
}

TEST_F(SampleTables, MissingBumperTablesGiveZero)
{
    exec("DROP TABLE \"BanpaDB\"");
    exec("DROP TABLE \"BampaJyoukenDB\"");
    BumperTables tables(database);
    EXPECT_EQ(tables.baseIndex("X", "小型", "ｿﾘｯﾄﾞ", "全面塗装"), "0");
    EXPECT_EQ(tables.conditionIndices(), (std::array<QString, 3>{"0", "0", "0"}));
    BumperCalculation calc(tables, {"小型", "ｿﾘｯﾄﾞ", 7000, {0, 1}}, messages);
    calc.setIncluded(Side::Front, true);
    calc.setWorkKind(Side::Front, "取替");
    calc.setContent(Side::Front, "全面塗装");
    calc.setOffVehicle(true);
    EXPECT_EQ(calc.side(Side::Front).indexSum, "0.3");
    EXPECT_EQ(calc.total(), 2100);
}

} // namespace
