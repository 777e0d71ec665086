#include "sheet/totals_chain.h"

#include <gtest/gtest.h>

using namespace est;
using est::sheet::TotalsChain;

namespace {

struct Fixture
{
    Session s;
    TotalsChain chain{s.figures, s.totals};
    explicit Fixture(Yen a, Yen b = 0, const char *taxRate = "10")
    {
        chain.setTaxRate(QString::fromUtf8(taxRate));
        setSums(a, b);
    }
    void setSums(Yen a, Yen b = 0)
    {
        s.totals.workTotalA = a;
        s.totals.paintTotalB = b;
        chain.sumsChanged();
    }
    const SheetFigures &f() const { return s.figures; }
};

} // namespace

TEST(TotalsChain, NoDiscountCarriesTaxThroughToAmountDue)
{
    Fixture x(800000, 200000);
    EXPECT_EQ(x.f().gokei, "1,000,000");
    EXPECT_EQ(x.f().afterDiscount, "");
    EXPECT_EQ(x.f().tax, "100,000");
    EXPECT_EQ(x.f().withTax, "1,100,000");
    EXPECT_EQ(x.f().grandTotal, "1,100,000");
    EXPECT_EQ(x.f().amountDue, "1,100,000");
    EXPECT_EQ(x.f().amountDueCopy, "1,100,000");
}

TEST(TotalsChain, RateGivesDiscountAndTaxOnTheRest)
{
    Fixture x(1000000);
    x.chain.setDiscountRate("10");
    EXPECT_EQ(x.f().discountAmount, "100,000");
    EXPECT_EQ(x.f().afterDiscount, "900,000");
    EXPECT_EQ(x.f().tax, "90,000");
    EXPECT_EQ(x.f().withTax, "990,000");
    EXPECT_EQ(x.f().amountDue, "990,000");
    EXPECT_EQ(x.f().rememberedRate, "10");
    x.chain.setAdvance("50,000");
    EXPECT_EQ(x.f().amountDue, "940,000");
    EXPECT_EQ(x.f().amountDueCopy, "940,000");
}

struct TaxCase { Yen a; const char *rate; const char *discount; const char *tax; };
class TaxRounding : public ::testing::TestWithParam<TaxCase> {};

TEST_P(TaxRounding, HalfToEvenOnTheBase)
{
    const TaxCase c = GetParam();
    Fixture x(c.a, 0, c.rate);
    if (*c.discount)
        x.chain.setDiscountAmount(QString::fromUtf8(c.discount));
    EXPECT_EQ(x.f().tax, QString::fromUtf8(c.tax));
}

INSTANTIATE_TEST_SUITE_P(Cases, TaxRounding, ::testing::Values(
    TaxCase{1000000, "8", "100,000", "72,000"},  // 8% of 900,000
    TaxCase{25, "10", "", "2"},                  // 2.5 -> 2
    TaxCase{125, "10", "", "12"},                // 12.5 -> 12
    TaxCase{135, "10", "", "14"},                // 13.5 -> 14
    TaxCase{150, "7", "", "10"},                 // 10.5 -> 10
    TaxCase{1000, "", "", ""},                   // no tax rate: no tax
    TaxCase{0, "10", "", ""}));                  // nothing: everything blank

TEST(TotalsChain, ZeroOrEmptyRateLeavesTypedAmountAlone)
{
    Fixture x(1000000);
    x.chain.discountAmountKeyTyped();
    x.chain.setDiscountAmount("5,000");
    x.chain.setDiscountRate("0");
    EXPECT_EQ(x.f().discountAmount, "5,000");
    EXPECT_EQ(x.f().rememberedRate, "0");
    x.chain.setDiscountRate("");
    x.chain.discountRateLeft();
    EXPECT_EQ(x.f().discountAmount, "5,000");
    EXPECT_EQ(x.f().afterDiscount, "995,000");
}

TEST(TotalsChain, ClearingAmountClearsRateAndTaxFallsBackToTotal)
{
    Fixture x(1000000);
    x.chain.setDiscountRate("10");
    ASSERT_EQ(x.f().afterDiscount, "900,000");
    x.chain.setDiscountAmount("");
    EXPECT_EQ(x.f().discountRate, "");
    EXPECT_EQ(x.f().afterDiscount, "");
    EXPECT_EQ(x.f().tax, "100,000");
    EXPECT_EQ(x.f().amountDue, "1,100,000");
}

TEST(TotalsChain, TypedAmountSurvivesANewTotal)
{
    Fixture x(1000000);
    x.chain.setDiscountRate("10");
    x.chain.discountAmountKeyTyped(); // the rate goes, the amount is the user's now
    EXPECT_EQ(x.f().discountRate, "");
    x.chain.setDiscountAmount("30,000");
    x.setSums(2000000);
    EXPECT_EQ(x.f().discountAmount, "30,000");
    EXPECT_EQ(x.f().afterDiscount, "1,970,000");
    EXPECT_EQ(x.f().tax, "197,000");
}

TEST(TotalsChain, RateFollowsANewTotal)
{
    Fixture x(1000000);
    x.chain.setDiscountRate("10");
    x.setSums(1500000, 500000);
    EXPECT_EQ(x.f().discountAmount, "200,000");
    EXPECT_EQ(x.f().afterDiscount, "1,800,000");
    EXPECT_EQ(x.f().tax, "180,000");
}

TEST(TotalsChain, FractionalRateIsRoundedToAWholeNumberFirst)
{
    Fixture x(1000);
    x.chain.setDiscountRate("12.5"); // CLng("12.5") = 12
    EXPECT_EQ(x.f().discountAmount, "120");
    x.chain.setDiscountRate("-5");
    EXPECT_EQ(x.f().rememberedRate, "0");
    EXPECT_EQ(x.f().discountAmount, "120");
}

TEST(TotalsChain, NonTaxableIsAddedAfterTax)
{
    Fixture x(100000);
    x.chain.setNonTaxable("30,000");
    EXPECT_EQ(x.f().withTax, "110,000");
    EXPECT_EQ(x.f().grandTotal, "140,000");
    x.chain.setAdvance("40,000");
    EXPECT_EQ(x.f().amountDue, "100,000");
    x.chain.setAdvance("200,000");
    EXPECT_EQ(x.f().amountDue, "-60,000");
}

TEST(TotalsChain, DiscountRoundingToZeroShowsBlank)
{
    // 10% of 4 yen is 0.4 -> 0, which "#,###" shows as blank: no discount, the rate stays.
    Fixture x(4);
    x.chain.setDiscountRate("10");
    EXPECT_EQ(x.f().discountAmount, "");
    EXPECT_EQ(x.f().discountRate, "10");
    EXPECT_EQ(x.f().afterDiscount, "");
    // A new total runs the amount step after the rate step: a blank amount then clears the rate.
    x.setSums(5);
    EXPECT_EQ(x.f().discountRate, "");
    EXPECT_EQ(x.f().tax, "");
    EXPECT_EQ(x.f().amountDue, "5");
}

TEST(TotalsChain, OverflowIsReportedNotWrapped)
{
    Fixture x(1000);
    x.setSums(2000000000, 200000000);
    EXPECT_TRUE(x.chain.overflowed());
    EXPECT_EQ(x.f().gokei, "1,000");
    x.chain.clearOverflow();
    x.chain.setDiscountAmount("99999999999");
    EXPECT_TRUE(x.chain.overflowed());
    x.chain.clearOverflow();
    // The tax of the largest total still fits; the total with tax does not.
    x.setSums(2147483647, 0);
    EXPECT_EQ(x.f().gokei, "2,147,483,647");
    EXPECT_TRUE(x.chain.overflowed());
}
