#include "common/money.h"
#include "common/number_format.h"

#include <gtest/gtest.h>
#include <limits>

using namespace est;

struct RoundCase { double in; std::optional<Yen> out; };
class RoundToYenTest : public ::testing::TestWithParam<RoundCase> {};

TEST_P(RoundToYenTest, RoundsHalfToEven)
{
    EXPECT_EQ(roundToYen(GetParam().in), GetParam().out) << GetParam().in;
}

INSTANTIATE_TEST_SUITE_P(Cases, RoundToYenTest, ::testing::Values(
    RoundCase{0.5, 0}, RoundCase{1.5, 2}, RoundCase{2.5, 2}, RoundCase{12.5, 12},
    RoundCase{13.5, 14}, RoundCase{-0.5, 0}, RoundCase{-1.5, -2}, RoundCase{-2.5, -2},
    RoundCase{7499.4999, 7499}, RoundCase{7500.5, 7500}, RoundCase{0.49, 0}, RoundCase{0.51, 1},
    RoundCase{2147483647.0, 2147483647}, RoundCase{2147483647.5, std::nullopt},
    RoundCase{-2147483648.0, -2147483647 - 1}, RoundCase{-2147483649.0, std::nullopt},
    RoundCase{std::numeric_limits<double>::infinity(), std::nullopt},
    RoundCase{std::numeric_limits<double>::quiet_NaN(), std::nullopt}));

struct DivideCase { std::int64_t n; std::int64_t d; std::optional<Yen> out; };
class DivideTest : public ::testing::TestWithParam<DivideCase> {};

TEST_P(DivideTest, ExactHalfToEven)
{
    EXPECT_EQ(divideRoundHalfEven(GetParam().n, GetParam().d), GetParam().out);
}

INSTANTIATE_TEST_SUITE_P(Cases, DivideTest, ::testing::Values(
    DivideCase{1250, 100, 12},      // tax of 12.5 yen -> 12
    DivideCase{1350, 100, 14},      // 13.5 -> 14
    DivideCase{250, 100, 2},        // 10% of 25 = 2.5 -> 2
    DivideCase{8 * 900000, 100, 72000},
    DivideCase{7 * 150, 100, 10},   // 10.5 -> 10, where 0.07 * 150 in binary gives 10.500000000000002
    DivideCase{-250, 100, -2}, DivideCase{-350, 100, -4}, DivideCase{-251, 100, -3},
    DivideCase{1, 0, std::nullopt},
    DivideCase{100LL * 2147483647LL + 49, 100, 2147483647},
    DivideCase{100LL * 2147483647LL + 50, 100, std::nullopt}));

TEST(CheckedYen, ReportsOverflowInsteadOfWrapping)
{
    const Yen max = std::numeric_limits<Yen>::max();
    EXPECT_EQ(addYen(max, 0), max);
    EXPECT_EQ(addYen(max, 1), std::nullopt);
    EXPECT_EQ(subtractYen(-max, 2), std::nullopt);
    EXPECT_EQ(subtractYen(1000, 2500), -1500);
    EXPECT_EQ(multiplyYen(1000000, 2147), 2147000000);
    EXPECT_EQ(multiplyYen(1000000, 2148), std::nullopt);
    EXPECT_EQ(roundToInt16(32767.0), 32767);
    EXPECT_EQ(roundToInt16(40000.0), std::nullopt);
}

struct FormatCase { std::int64_t value; const char *thousands; const char *three; };
class FormatTest : public ::testing::TestWithParam<FormatCase> {};

TEST_P(FormatTest, ThousandsAndThreeDigits)
{
    EXPECT_EQ(formatThousands(GetParam().value), QString::fromUtf8(GetParam().thousands));
    EXPECT_EQ(formatThreeDigits(GetParam().value), QString::fromUtf8(GetParam().three));
}

INSTANTIATE_TEST_SUITE_P(Cases, FormatTest, ::testing::Values(
    FormatCase{0, "", "000"}, FormatCase{7, "7", "007"}, FormatCase{999, "999", "999"},
    FormatCase{1000, "1,000", "1000"}, FormatCase{1000000, "1,000,000", "1000000"},
    FormatCase{-1500, "-1,500", "-1500"}, FormatCase{-999, "-999", "-999"},
    FormatCase{2147483647, "2,147,483,647", "2147483647"}));

TEST(DecimalFormats, FixedAndHash)
{
    EXPECT_EQ(formatFixed2(0), "0.00");
    EXPECT_EQ(formatFixed2(1.5), "1.50");
    EXPECT_EQ(formatFixed2(-0.001), "0.00");
    EXPECT_EQ(formatHash2(0.5), ".50");
    EXPECT_EQ(formatHash2(0), ".00");
    EXPECT_EQ(formatHash2(12.25), "12.25");
    EXPECT_EQ(formatHash2(-0.5), "-.50");
    EXPECT_EQ(formatFiveDigits(12), "00012");
}

TEST(ParseDisplayed, AcceptsSeparatorsRejectsText)
{
    EXPECT_EQ(parseDisplayedYen("1,000,000"), 1000000);
    EXPECT_EQ(parseDisplayedYen(" 2,500 "), 2500);
    EXPECT_EQ(parseDisplayedYen("-1,500"), -1500);
    EXPECT_EQ(parseDisplayedYen(QStringLiteral("１２３")), 123);
    EXPECT_EQ(parseDisplayedYen("12.5"), 12);
    EXPECT_EQ(parseDisplayedYen(""), std::nullopt);
    EXPECT_EQ(parseDisplayedYen("abc"), std::nullopt);
    EXPECT_EQ(parseDisplayedYen("1/2"), std::nullopt);
    EXPECT_EQ(parseDisplayedYen("99999999999"), std::nullopt);
    EXPECT_TRUE(isBlank("  "));
}
