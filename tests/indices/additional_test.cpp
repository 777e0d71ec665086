// The additional-index screen's logic against the sample tables, amounts worked out by hand.
#include "indices/additional_calculation.h"
#include "part_db_fixture.h"

using namespace est;
using namespace est::indices;

namespace {

struct AdditionalCase
{
    const char *name;
    std::int16_t rate;
    workitems::Rounding rounding;
    const char *tone, *panels, *sash, *stripe, *sealing, *wax;
    bool booth;
    // Index and amount texts of the six items, in item order.
    std::array<const char *, 6> indices;
    std::array<const char *, 6> amounts;
    Yen total;
};

class AdditionalTable : public test::PartDbTest, public ::testing::WithParamInterface<AdditionalCase>
{
};

TEST_P(AdditionalTable, IndicesAndAmounts)
{
    const AdditionalCase &c = GetParam();
    AdditionalTables tables(database);
    AdditionalCalculation calc(tables, c.rate, c.rounding, messages);
    calc.setToneKind(QString::fromUtf8(c.tone));
    calc.setTonePanels(QString::fromUtf8(c.panels));
    calc.setDoors(DoorTable::Sash, QString::fromUtf8(c.sash));
    calc.setDoors(DoorTable::Stripe, QString::fromUtf8(c.stripe));
    calc.setUnits(UnitTable::Sealing, QString::fromUtf8(c.sealing));
    calc.setUnits(UnitTable::Wax, QString::fromUtf8(c.wax));
    calc.setBooth(c.booth);
    for (int i = 0; i < 6; ++i) {
        EXPECT_EQ(calc.index(AdditionalItem(i)), QString::fromUtf8(c.indices[size_t(i)])) << "item " << i;
        EXPECT_EQ(calc.amount(AdditionalItem(i)), QString::fromUtf8(c.amounts[size_t(i)])) << "item " << i;
    }
    EXPECT_EQ(calc.total(), c.total);
    const auto state = calc.confirmed();
    ASSERT_TRUE(state);
    EXPECT_EQ(state->total, c.total);
    EXPECT_TRUE(state->entered);
}

// Sample indices: two-tone ｿﾘｯﾄﾞ+ﾒﾀﾘｯｸ 1 panel 0.55, 3 panels 1.43; sash 4 doors 1.10; stripe
// 2 doors 0.80; sealing 0.25 and wax 0.15 per unit; booth 0.50.
INSTANTIATE_TEST_SUITE_P(
    ByHand, AdditionalTable,
    ::testing::Values(
        // 1.43 × 6,800 = 9,724; 1.10 × 6,800 = 7,480; 0.80 -> 5,440; 0.50 -> 3,400; 0.45 -> 3,060;
        // 0.50 -> 3,400; together 32,504.
        AdditionalCase{"AllSix", 6800, {0, 1}, "ｿﾘｯﾄﾞ+ﾒﾀﾘｯｸ", "3", "4", "2", "2", "3", true,
                       {"1.43", "1.10", "0.80", "0.50", "0.45", "0.50"},
                       {"9,724", "7,480", "5,440", "3,400", "3,060", "3,400"}, 32504},
        // The same at the ones digit, rounding up: 9,724 -> 9,730.
        AdditionalCase{"AllSixRoundedUp", 6800, {1, 2}, "ｿﾘｯﾄﾞ+ﾒﾀﾘｯｸ", "3", "4", "2", "2", "3", true,
                       {"1.43", "1.10", "0.80", "0.50", "0.45", "0.50"},
                       {"9,730", "7,480", "5,440", "3,400", "3,060", "3,400"}, 32510},
        // 0.55 × 110 = 60.5 exactly -> 60 (binary gives 60.50000000000001 -> 61).
        AdditionalCase{"HalfYenToEven", 110, {0, 1}, "ｿﾘｯﾄﾞ+ﾒﾀﾘｯｸ", "1", "", "", "", "", false,
                       {"0.55", "", "", "", "", ""}, {"60", "", "", "", "", ""}, 60},
        // No panels, no kind, unknown door count, text for a count: nothing is priced.
        AdditionalCase{"NothingPriced", 6800, {0, 1}, "ｿﾘｯﾄﾞ+ﾒﾀﾘｯｸ", "0", "3", "", "abc", "", false,
                       {"", "", "", "", "", ""}, {"", "", "", "", "", ""}, 0},
        // Sealing 20 units: 0.25 × 20 = 5.00 × 6,800 = 34,000; wax 1: 0.15 × 6,800 = 1,020 -> tens
        // digit half up: 34,000 and 1,000.
        AdditionalCase{"ManyUnitsTensDigit", 6800, {2, 1}, "", "", "", "", "20", "1", false,
                       {"", "", "", "5.00", "0.15", ""}, {"", "", "", "34,000", "1,000", ""}, 35000}),
    [](const auto &info) { return std::string(info.param.name); });

class AdditionalEdges : public test::PartDbTest
{
};

TEST_F(AdditionalEdges, PanelCountZeroOrNoKindLeavesTheToneIndex)
{
    AdditionalTables tables(database);
    AdditionalCalculation calc(tables, 6800, {0, 1}, messages);
    calc.setToneKind("ﾒﾀﾘｯｸ+ﾒﾀﾘｯｸ");
    calc.setTonePanels("2");
    EXPECT_EQ(calc.index(AdditionalItem::Tone), "1.08");
    EXPECT_EQ(calc.amount(AdditionalItem::Tone), "7,344");
    calc.setTonePanels("0");
    EXPECT_EQ(calc.index(AdditionalItem::Tone), "1.08");
    calc.setToneKind("");
    calc.setTonePanels("4");
    EXPECT_EQ(calc.index(AdditionalItem::Tone), "1.08");
    EXPECT_EQ(calc.items()[0][2], "4"); // the panel count is kept as chosen
    calc.setTonePanels("32767");       // one more would overflow 16 bits
    EXPECT_EQ(calc.index(AdditionalItem::Tone), "1.08");
}

TEST_F(AdditionalEdges, TheBlankPanelCountTakesTwoToneOff)
{
    AdditionalTables tables(database);
    AdditionalCalculation calc(tables, 5300, {0, 1}, messages);
    calc.setToneKind("ｿﾘｯﾄﾞ+ｿﾘｯﾄﾞ");
    calc.setTonePanels("3");
    calc.setBooth(true);
    EXPECT_EQ(calc.amount(AdditionalItem::Tone), "6,890"); // 1.30 × 5,300
    EXPECT_EQ(calc.total(), 6890 + 2650);
    calc.setTonePanels("");
    EXPECT_EQ(calc.index(AdditionalItem::Tone), "");
    EXPECT_EQ(calc.amount(AdditionalItem::Tone), "");
    EXPECT_EQ(calc.total(), 2650);
    const auto kept = calc.confirmed();
    ASSERT_TRUE(kept);
    EXPECT_EQ(kept->lineCount, 1);
}

TEST_F(AdditionalEdges, EmptyCountClearsIndexAndAmount)
{
    AdditionalTables tables(database);
    AdditionalCalculation calc(tables, 6800, {0, 1}, messages);
    calc.setUnits(UnitTable::Sealing, "2");
    calc.setUnits(UnitTable::Wax, "2");
    calc.setBooth(true);
    EXPECT_EQ(calc.total(), 3400 + 2040 + 3400);
    calc.setUnits(UnitTable::Sealing, "");
    EXPECT_EQ(calc.index(AdditionalItem::Sealing), "");
    EXPECT_EQ(calc.amount(AdditionalItem::Sealing), "");
    calc.setBooth(false);
    EXPECT_EQ(calc.items()[5][1], "0");
    EXPECT_EQ(calc.index(AdditionalItem::Booth), "");
    EXPECT_EQ(calc.total(), 2040);
    calc.setUnits(UnitTable::Wax, "99999"); // beyond 16 bits: left as it was
    EXPECT_EQ(calc.amount(AdditionalItem::Wax), "2,040");
}

TEST_F(AdditionalEdges, LayoutKeepsTheToneRowOneFieldLonger)
{
    AdditionalTables tables(database);
    AdditionalCalculation calc(tables, 6800, {0, 1}, messages);
    calc.setToneKind("ｿﾘｯﾄﾞ+ﾒﾀﾘｯｸ");
    calc.setTonePanels("3");
    calc.setDoors(DoorTable::Sash, "4");
    calc.setBooth(true);
    const auto state = calc.confirmed();
    ASSERT_TRUE(state);
    using Row = std::array<QString, 5>;
    EXPECT_EQ(state->items[0], (Row{"2ﾄｰﾝｶﾗｰ", "ｿﾘｯﾄﾞ+ﾒﾀﾘｯｸ", "3", "1.43", "9,724"}));
    EXPECT_EQ(state->items[1], (Row{"ﾄﾞｱｻｯｼｭ黒塗装", "4", "1.10", "7,480", ""}));
    EXPECT_EQ(state->items[2], (Row{"ﾎﾞﾃﾞｰｽﾄﾗｲﾌﾟ", "", "", "", ""}));
    EXPECT_EQ(state->items[5], (Row{AdditionalCalculation::boothCaption(), "1", "0.50", "3,400", ""}));
    EXPECT_EQ(state->lineCount, 3);
}

TEST_F(AdditionalEdges, RestoredTableShowsTheStoredTextsWithoutLookingUp)
{
    AdditionalTables tables(database);
    AdditionalCalculation calc(tables, 6800, {0, 1}, messages);
    AdditionalItems stored = AdditionalCalculation::emptyItems();
    stored[1] = {"ﾄﾞｱｻｯｼｭ黒塗装", "4", "9.99", "12,345", ""}; // not what the table says today
    calc.restore(stored);
    EXPECT_EQ(calc.items(), stored);
    EXPECT_EQ(calc.total(), 12345);
}

TEST_F(AdditionalEdges, MissingTablesLeaveFieldsEmpty)
{
    for (const char *table : {"2ToneDB", "SasyuDB", "Sutoraip", "SeelingDB", "WaxDB", "BoothDB"})
        exec(QStringLiteral("DROP TABLE \"%1\"").arg(QString::fromUtf8(table)));
    AdditionalTables tables(database);
    EXPECT_TRUE(tables.toneKinds().isEmpty());
    EXPECT_TRUE(tables.doorCounts(DoorTable::Sash).isEmpty());
    AdditionalCalculation calc(tables, 6800, {0, 1}, messages);
    calc.setToneKind("ｿﾘｯﾄﾞ+ﾒﾀﾘｯｸ");
    calc.setTonePanels("3");
    calc.setDoors(DoorTable::Stripe, "2");
    calc.setUnits(UnitTable::Wax, "2");
    calc.setBooth(true);
    EXPECT_EQ(calc.total(), 0);
    for (int i = 0; i < 6; ++i)
        EXPECT_EQ(calc.index(AdditionalItem(i)), "");
}

TEST_F(AdditionalEdges, SampleListsInTableOrder)
{
    AdditionalTables tables(database);
    EXPECT_EQ(tables.toneKinds(), (QStringList{"ｿﾘｯﾄﾞ+ｿﾘｯﾄﾞ", "ｿﾘｯﾄﾞ+ﾒﾀﾘｯｸ", "ﾒﾀﾘｯｸ+ﾒﾀﾘｯｸ", "ﾊﾟｰﾙ+ﾒﾀﾘｯｸ"}));
    EXPECT_EQ(tables.doorCounts(DoorTable::Stripe), (QStringList{"2", "4", "5"}));
    EXPECT_EQ(tables.toneIndex("ｿﾘｯﾄﾞ+ﾒﾀﾘｯｸ", 7), "2.53"); // 6 panels, the last field
    EXPECT_EQ(tables.toneIndex("ｿﾘｯﾄﾞ+ﾒﾀﾘｯｸ", 8), "");     // no such field
}

} // namespace
