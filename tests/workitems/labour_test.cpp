#include "scripted_messages.h"
#include "workitems/labour.h"
#include "workitems/rate_settings.h"

#include <gtest/gtest.h>
#include <vector>

using namespace est;
using namespace est::workitems;

namespace {

struct LabourCase
{
    const char *index;
    std::int16_t rate;
    Rounding rounding;
    std::optional<Yen> expected;
};

class LabourTable : public ::testing::TestWithParam<LabourCase>
{
};

TEST_P(LabourTable, IndexTimesRateRoundedThenShopRounding)
{
    const LabourCase c = GetParam();
    test::ScriptedMessages messages;
    EXPECT_EQ(labourFromIndex(QString::fromUtf8(c.index), c.rate, c.rounding, messages), c.expected) << c.index;
}

INSTANTIATE_TEST_SUITE_P(
    ByHand, LabourTable,
    ::testing::Values(
        LabourCase{"1.5", 5000, {0, 1}, 7500},    // index points with two decimals, not tenths
        LabourCase{".5", 5000, {0, 1}, 2500},     // half the rate
        LabourCase{"0.50", 5000, {0, 1}, 2500},
        LabourCase{"1.00", 7534, {0, 1}, 7534},
        LabourCase{"1.00", 7534, {1, 1}, 7530},   // shop rounding applied after the product
        LabourCase{"1.00", 7534, {1, 2}, 7540},
        LabourCase{"1.00", 7550, {2, 3}, 7500},
        // Ties go to the even yen: 0.5 × 5 = 2.5 -> 2, 0.5 × 7 = 3.5 -> 4, 0.25 × 10 = 2.5 -> 2.
        LabourCase{"0.5", 5, {0, 1}, 2}, LabourCase{"0.5", 7, {0, 1}, 4}, LabourCase{"0.25", 10, {0, 1}, 2},
        // Half a yen exactly, though the binary product lies just beside it:
        // 1.15 × 7,010 = 8,061.5 -> 8,062; 1.09 × 50 = 54.5 -> 54; 0.55 × 110 = 60.5 -> 60.
        LabourCase{"1.15", 7010, {0, 1}, 8062}, LabourCase{"1.09", 50, {0, 1}, 54},
        LabourCase{"0.55", 110, {0, 1}, 60},
        // The shop's rounding starts from that whole yen: 8,062 at the ones digit, half up -> 8,060.
        LabourCase{"1.15", 7010, {1, 1}, 8060},
        LabourCase{"１．５", 5000, {0, 1}, 7500},  // full-width digits typed through an input method
        LabourCase{"2", 0, {0, 1}, 0},
        LabourCase{"abc", 5000, {0, 1}, std::nullopt},
        LabourCase{"99999999", 32767, {0, 1}, std::nullopt})); // beyond 32 bits

struct PartCase
{
    const char *price;
    const char *quantity;
    std::optional<Yen> expected;
};

class PartTotalTable : public ::testing::TestWithParam<PartCase>
{
};

TEST_P(PartTotalTable, PriceTimesQuantityNeverShopRounded)
{
    const PartCase c = GetParam();
    EXPECT_EQ(partTotal(QString::fromUtf8(c.price), QString::fromUtf8(c.quantity)), c.expected);
}

INSTANTIATE_TEST_SUITE_P(ByHand, PartTotalTable,
                         ::testing::Values(PartCase{"12345", "2", 24690}, PartCase{"7534", "1", 7534},
                                           PartCase{"2.5", "1", 2}, PartCase{"3.5", "1", 4},
                                           PartCase{"1,200", "3", 3600},
                                           PartCase{"1.15", "7010", 8062}, PartCase{"0.55", "110", 60},
                                           PartCase{"1.09", "50", 54}, PartCase{"", "2", std::nullopt},
                                           PartCase{"100", "", std::nullopt},
                                           PartCase{"2147483647", "2", std::nullopt}));

TEST(NumericText, LettersAndSecondPointsAreDropped)
{
    EXPECT_EQ(filterNumericText(QStringLiteral("1a.5b")), QStringLiteral("1.5"));
    EXPECT_EQ(filterNumericText(QStringLiteral("1.2.3")), QStringLiteral("1.23"));
    EXPECT_EQ(filterNumericText(QStringLiteral("-12")), QStringLiteral("12"));
    EXPECT_EQ(filterNumericText(QStringLiteral("１２．５")), QStringLiteral("12.5"));
    EXPECT_EQ(filterNumericText(QStringLiteral("12.5"), false), QStringLiteral("125"));
    EXPECT_EQ(filterNumericText(QStringLiteral("abc")), QString());
}

TEST(NumericText, IndexReformatPutsAZeroBeforeALeadingPoint)
{
    EXPECT_EQ(reformatIndex(QStringLiteral(".5")), QStringLiteral("0.50"));
    EXPECT_EQ(reformatIndex(QStringLiteral("1.5")), QStringLiteral("1.50"));
    EXPECT_EQ(reformatIndex(QStringLiteral("12")), QStringLiteral("12.00"));
    EXPECT_EQ(reformatIndex(QStringLiteral("0")), QStringLiteral("0.00"));
    EXPECT_EQ(reformatIndex(QStringLiteral("1.255")), QStringLiteral("1.25")); // two decimals shown
    EXPECT_EQ(reformatIndex(QString()), QString());
}

TEST(Rate, OnlySixteenBitWholeNumbers)
{
    EXPECT_EQ(parseRate(QStringLiteral("5000")), std::int16_t(5000));
    EXPECT_EQ(parseRate(QStringLiteral("32767")), std::int16_t(32767));
    EXPECT_EQ(parseRate(QStringLiteral("0")), std::int16_t(0));
    EXPECT_EQ(parseRate(QStringLiteral("32768")), std::nullopt);
    EXPECT_EQ(parseRate(QStringLiteral("40000")), std::nullopt);
    EXPECT_EQ(parseRate(QStringLiteral("-1")), std::nullopt);
    EXPECT_EQ(parseRate(QStringLiteral("")), std::nullopt);
    EXPECT_EQ(parseRate(QStringLiteral("50.5")), std::nullopt);
}

TEST(RateChoice, OptionsMapToDigitsAndModes)
{
    EXPECT_EQ(digitsForOption(0), 0);
    EXPECT_EQ(digitsForOption(1), 1);
    EXPECT_EQ(digitsForOption(2), 2);
    EXPECT_EQ(digitsForOption(-1), 2); // none chosen counts as the third
    EXPECT_EQ(modeForOption(0), 1);
    EXPECT_EQ(modeForOption(1), 2);
    EXPECT_EQ(modeForOption(2), 3);
    EXPECT_EQ(modeForOption(-1), 3);
    EXPECT_FALSE(modeOptionsEnabled(0));
    EXPECT_TRUE(modeOptionsEnabled(1));
    EXPECT_TRUE(modeOptionsEnabled(2));
    for (std::int16_t d : {0, 1, 2})
        EXPECT_EQ(digitsForOption(optionForDigits(d)), d);
    for (std::int16_t m : {1, 2, 3})
        EXPECT_EQ(modeForOption(optionForMode(m)), m);
}

TEST(RateChoice, RateAndPaintRateAreSetTogether)
{
    Session s;
    EXPECT_EQ(applyRateChoice(s, QStringLiteral("5000"), 1, 1), RateOutcome::Set);
    EXPECT_EQ(s.labourRate, 5000);
    EXPECT_EQ(s.paintLabourRate, 5000);
    EXPECT_EQ(s.roundDigits, 1);
    EXPECT_EQ(s.roundMode, 2);
}

TEST(RateChoice, TooLargeKeepsTheOldRateButTakesTheRounding)
{
    Session s;
    s.labourRate = 4500;
    s.paintLabourRate = 4800;
    EXPECT_EQ(applyRateChoice(s, QStringLiteral("40000"), 2, 0), RateOutcome::TooLarge);
    EXPECT_EQ(s.labourRate, 4500);
    EXPECT_EQ(s.paintLabourRate, 4800);
    EXPECT_EQ(s.roundDigits, 2);
    EXPECT_EQ(s.roundMode, 1);
}

TEST(RateChoice, EmptyRateChangesNothing)
{
    Session s;
    s.labourRate = 4500;
    s.roundDigits = 1;
    s.roundMode = 2;
    EXPECT_EQ(applyRateChoice(s, QStringLiteral(" "), 0, 2), RateOutcome::Empty);
    EXPECT_EQ(s.labourRate, 4500);
    EXPECT_EQ(s.roundDigits, 1);
    EXPECT_EQ(s.roundMode, 2);
}

} // namespace

namespace {

struct SumCase
{
    std::vector<const char *> texts;
    std::optional<QString> expected;
};

class IndexSumTable : public ::testing::TestWithParam<SumCase>
{
};

TEST_P(IndexSumTable, ExactShortestText)
{
    QStringList texts;
    for (const char *t : GetParam().texts)
        texts.append(QString::fromUtf8(t));
    EXPECT_EQ(sumIndexTexts(texts), GetParam().expected) << texts.join('+').toStdString();
}

// 0.1 + 0.2 is 0.30000000000000004 in binary; the index sum must read 0.3.
INSTANTIATE_TEST_SUITE_P(
    ByHand, IndexSumTable,
    ::testing::Values(SumCase{{"0.1", "0.2"}, QString("0.3")}, SumCase{{"2.60", "0.40"}, QString("3")},
                      SumCase{{"3.04", "0", "0.2", "0", "0.15"}, QString("3.39")},
                      SumCase{{"1.1", "0.05", "0"}, QString("1.15")}, SumCase{{}, QString("0")},
                      SumCase{{"0", "0", "0"}, QString("0")}, SumCase{{"0.35", "-0.35"}, QString("0")},
                      SumCase{{"0.3", "-0.55"}, QString("-0.25")}, SumCase{{"1", "x"}, std::nullopt},
                      SumCase{{"", "1"}, std::nullopt}));

TEST(IndexProduct, CountTimesIndexExact)
{
    EXPECT_EQ(multiplyIndexText("0.25", 3), QString("0.75"));
    EXPECT_EQ(multiplyIndexText("0.15", 20), QString("3"));
    EXPECT_EQ(multiplyIndexText("0.1", 3), QString("0.3")); // 0.30000000000000004 in binary
    EXPECT_EQ(multiplyIndexText("1.5", 0), QString("0"));
    EXPECT_EQ(multiplyIndexText("abc", 2), std::nullopt);
}

} // namespace
