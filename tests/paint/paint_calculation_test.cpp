#include "paint/paint_calculation.h"
#include "workitems/labour.h"

#include <gtest/gtest.h>

#include <limits>

using namespace est;
using namespace est::paint;

namespace {

PaintLine line(LineKind kind, const char *index, Yen labour)
{
    PaintLine l;
    l.kind = kind;
    l.partName = QStringLiteral("ボンネット");
    l.index = QString::fromUtf8(index);
    l.labour = labour;
    return l;
}

} // namespace

struct ProductCase
{
    const char *a;
    const char *b;
    std::optional<Yen> expected;
};

class DecimalProducts : public ::testing::TestWithParam<ProductCase>
{
};

TEST_P(DecimalProducts, ExactThenHalfToEven)
{
    const ProductCase c = GetParam();
    EXPECT_EQ(workitems::decimalProductToYen(QString::fromUtf8(c.a), QString::fromUtf8(c.b)), c.expected)
        << c.a << " x " << c.b;
}

INSTANTIATE_TEST_SUITE_P(
    ByHand, DecimalProducts,
    ::testing::Values(ProductCase{"0.35", "12345", 4321},  // 4,320.75
                      ProductCase{"1.15", "7010", 8062},   // 8,061.5, binary gives 8,061
                      ProductCase{"0.50", "5", 2},         // 2.5 -> 2
                      ProductCase{"0.50", "7", 4},         // 3.5 -> 4
                      ProductCase{"0.5", "1", 0},          // 0.5 -> 0
                      ProductCase{"5.29", "7010", 37083},  // 37,082.9
                      ProductCase{"0", "7010", 0},
                      ProductCase{"abc", "7010", std::nullopt},
                      ProductCase{"", "7010", std::nullopt},
                      ProductCase{"3", "2147483647", std::nullopt}));

struct SumCase
{
    const char *a;
    const char *b;
    std::optional<const char *> expected;
};

class DecimalSums : public ::testing::TestWithParam<SumCase>
{
};

TEST_P(DecimalSums, ShownWithTwoDecimals)
{
    const SumCase c = GetParam();
    const auto sum = workitems::decimalSum(QString::fromUtf8(c.a), QString::fromUtf8(c.b));
    if (c.expected)
        EXPECT_EQ(sum, QString::fromUtf8(*c.expected));
    else
        EXPECT_FALSE(sum);
}

INSTANTIATE_TEST_SUITE_P(ByHand, DecimalSums,
                         ::testing::Values(SumCase{"0.35", "0.12", "0.47"}, SumCase{"4.84", "0.45", "5.29"},
                                           SumCase{"12.1", "0", "12.10"}, SumCase{"0.1", "0.2", "0.30"},
                                           SumCase{"0.005", "0", "0.00"}, SumCase{"0.015", "0", "0.02"},
                                           SumCase{"4.320000", "0", "4.32"}, SumCase{"x", "1", std::nullopt}));

TEST(PaintCalculation, LabourAtThePaintRate)
{
    PaintCalculation calc;
    calc.setRate(7010);
    EXPECT_EQ(calc.labourOf(QStringLiteral("1.15")), 8062);
    EXPECT_EQ(calc.labourOf(QStringLiteral("9.16")), 64212); // 64,211.6
    EXPECT_FALSE(calc.labourOf(QStringLiteral("-")));
    calc.setRate(0);
    EXPECT_EQ(calc.labourOf(QStringLiteral("9.16")), 0);
}

// The worked example of the README: ordinary car, metallic with fluorine coat (coefficient
// 0.35 + 0.12 = 0.47), paint rate 7,010.
TEST(PaintCalculation, PaintTotalBCountsEveryYenOnce)
{
    PaintCalculation calc;
    calc.setRate(7010);
    ASSERT_TRUE(calc.setCoefficient(QStringLiteral("0.47")));
    ASSERT_EQ(calc.add(line(LineKind::Basic, "5.29", 37083)), PaintCalculation::Change::Done);   // bonnet
    ASSERT_EQ(calc.add(line(LineKind::Basic, "9.16", 64212)), PaintCalculation::Change::Done);   // two panels
    ASSERT_EQ(calc.add(line(LineKind::LowHiding, "0.50", 3505)), PaintCalculation::Change::Done); // low-hiding
    ASSERT_EQ(calc.add(line(LineKind::Basic, "1.20", 8412)), PaintCalculation::Change::Done);    // inner panel
    PaintTotals t = calc.totals();
    EXPECT_EQ(t.basic, 109707);
    EXPECT_EQ(t.lowHiding, 3505);
    EXPECT_EQ(t.surcharge, 3505);
    EXPECT_EQ(t.paintLabour, 113212);
    EXPECT_EQ(t.material, 53210);  // 0.47 × 113,212 = 53,209.64
    EXPECT_EQ(t.totalB, 166422);

    // The bumper and additional-index screens plug in their sums.
    ASSERT_TRUE(calc.setBumperLabour(12000));
    ASSERT_TRUE(calc.setAdditionalTotal(5000));
    t = calc.totals();
    EXPECT_EQ(t.surcharge, 8505);          // low-hiding + additional
    EXPECT_EQ(t.paintLabour, 118212);      // basic + surcharge
    EXPECT_EQ(t.material, 61200);          // 0.47 × 130,212 = 61,199.64
    EXPECT_EQ(t.totalB, 191412);           // 118,212 + 61,200 + 12,000
    EXPECT_EQ(calc.runningLabour(1), 101295);
    EXPECT_EQ(calc.runningLabour(3), 113212);
}

TEST(PaintCalculation, SurchargeKindsGoToTheirOwnSums)
{
    PaintCalculation calc;
    calc.add(line(LineKind::TwoCoatSolid, "0.70", 700));
    calc.add(line(LineKind::HighFunction, "0.40", 400));
    calc.add(line(LineKind::LowHiding, "0.80", 800));
    calc.add(line(LineKind::Basic, "4.00", 4000));
    const PaintTotals &t = calc.totals();
    EXPECT_EQ(t.twoCoatSolid, 700);
    EXPECT_EQ(t.highFunction, 400);
    EXPECT_EQ(t.lowHiding, 800);
    EXPECT_EQ(t.basic, 4000);
    EXPECT_EQ(t.surcharge, 1900);
    EXPECT_EQ(t.paintLabour, 5900);
    EXPECT_EQ(t.material, 0); // no coefficient
    EXPECT_EQ(t.totalB, 5900);
}

TEST(PaintCalculation, MaterialRoundsHalfToEven)
{
    PaintCalculation calc;
    ASSERT_TRUE(calc.setCoefficient(QStringLiteral("0.50")));
    calc.add(line(LineKind::Basic, "1", 5));
    EXPECT_EQ(calc.totals().material, 2); // 2.5
    calc.replace(0, line(LineKind::Basic, "1", 7));
    EXPECT_EQ(calc.totals().material, 4); // 3.5
    ASSERT_TRUE(calc.setCoefficient(QStringLiteral("0")));
    EXPECT_EQ(calc.totals().material, 0);
    EXPECT_EQ(calc.materialOf(1000), 0);
    ASSERT_TRUE(calc.setCoefficient(QStringLiteral("0.35")));
    EXPECT_EQ(calc.materialOf(12345), 4321);
}

TEST(PaintCalculation, InsertEditAndDeleteKeepTheSums)
{
    PaintCalculation calc;
    calc.add(line(LineKind::Basic, "1", 100));
    calc.add(line(LineKind::Basic, "3", 300));
    ASSERT_EQ(calc.insert(1, line(LineKind::TwoCoatSolid, "2", 200)), PaintCalculation::Change::Done);
    EXPECT_EQ(calc.lines().at(1).labour, 200);
    EXPECT_EQ(calc.totals().basic, 400);
    EXPECT_EQ(calc.totals().twoCoatSolid, 200);
    ASSERT_EQ(calc.replace(1, line(LineKind::Basic, "2", 250)), PaintCalculation::Change::Done);
    EXPECT_EQ(calc.totals().basic, 650);
    EXPECT_EQ(calc.totals().twoCoatSolid, 0);
    ASSERT_EQ(calc.remove(0), PaintCalculation::Change::Done);
    EXPECT_EQ(calc.totals().basic, 550);
    EXPECT_EQ(calc.count(), 2);
    EXPECT_EQ(calc.remove(5), PaintCalculation::Change::NoSuchLine);
    EXPECT_EQ(calc.replace(-1, line(LineKind::Basic, "1", 1)), PaintCalculation::Change::NoSuchLine);
    EXPECT_EQ(calc.insert(3, line(LineKind::Basic, "1", 1)), PaintCalculation::Change::NoSuchLine);
}

TEST(PaintCalculation, SeventyThreeLinesAtMost)
{
    PaintCalculation calc;
    for (int i = 0; i < kMaxPaintLines; ++i)
        ASSERT_EQ(calc.add(line(LineKind::Basic, "1", 1000)), PaintCalculation::Change::Done) << i;
    EXPECT_TRUE(calc.full());
    EXPECT_EQ(calc.add(line(LineKind::Basic, "1", 1000)), PaintCalculation::Change::Full);
    EXPECT_EQ(calc.insert(0, line(LineKind::Basic, "1", 1000)), PaintCalculation::Change::Full);
    EXPECT_EQ(calc.count(), 73);
    EXPECT_EQ(calc.totals().basic, 73000);
    // Editing and deleting still work at the limit.
    EXPECT_EQ(calc.replace(72, line(LineKind::Basic, "2", 2000)), PaintCalculation::Change::Done);
    EXPECT_EQ(calc.totals().basic, 74000);
    QList<PaintLine> many(80, line(LineKind::Basic, "1", 1));
    EXPECT_EQ(calc.setLines(many), PaintCalculation::Change::Done);
    EXPECT_EQ(calc.count(), 73);
}

TEST(PaintCalculation, SumsBeyond32BitsAreRefusedNotWrapped)
{
    constexpr Yen kMax = std::numeric_limits<Yen>::max();
    PaintCalculation calc;
    ASSERT_EQ(calc.add(line(LineKind::Basic, "1", kMax - 10)), PaintCalculation::Change::Done);
    EXPECT_EQ(calc.add(line(LineKind::Basic, "1", 11)), PaintCalculation::Change::Overflow);
    EXPECT_EQ(calc.count(), 1);
    EXPECT_FALSE(calc.setBumperLabour(11)); // total B would pass the limit
    EXPECT_EQ(calc.totals().bumper, 0);
    EXPECT_FALSE(calc.setCoefficient(QStringLiteral("0.01"))); // material joins B
    EXPECT_EQ(calc.coefficient(), QString());
    EXPECT_EQ(calc.totals().totalB, kMax - 10);
}
