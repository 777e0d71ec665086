#include "sheet/era_date.h"
#include "sheet/slip_numbering.h"

#include <QSettings>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace est;
using namespace est::sheet;

namespace {

struct EraCase
{
    QDate day;
    const char *expected;
};
class EraDateTest : public ::testing::TestWithParam<EraCase> {};

TEST_P(EraDateTest, FormatsInTheJapaneseCalendar)
{
    EXPECT_EQ(eraDate(GetParam().day), QString::fromUtf8(GetParam().expected));
}

INSTANTIATE_TEST_SUITE_P(Eras, EraDateTest,
    ::testing::Values(EraCase{QDate(2024, 1, 5), "令和6年1月5日"},
                      EraCase{QDate(2019, 4, 30), "平成31年4月30日"},
                      EraCase{QDate(2019, 5, 1), "令和1年5月1日"},
                      EraCase{QDate(1989, 1, 7), "昭和64年1月7日"},
                      EraCase{QDate(1989, 1, 8), "平成1年1月8日"},
                      EraCase{QDate(2026, 12, 31), "令和8年12月31日"},
                      EraCase{QDate(2000, 2, 29), "平成12年2月29日"}));

struct ProposalCase
{
    int lastOfDay;
    const char *lastConfirmed; // yymmdd, "" for none
    QDate day;
    SlipProposal::Outcome outcome;
    const char *number;   // "" when refused
};
class ProposalTest : public ::testing::TestWithParam<ProposalCase> {};

TEST_P(ProposalTest, ProposesFromTheLedger)
{
    const ProposalCase c = GetParam();
    const SlipProposal p = proposeSlip({c.lastOfDay, parseDayKey(QString::fromUtf8(c.lastConfirmed))}, c.day);
    EXPECT_EQ(p.outcome, c.outcome);
    EXPECT_EQ(p.number, QString::fromUtf8(c.number));
    if (p.issued()) {
        EXPECT_EQ(p.labelText(), QStringLiteral("新規伝票番号は ") + QString::fromUtf8(c.number) + QStringLiteral(" です。"));
    }
}

using O = SlipProposal::Outcome;
INSTANTIATE_TEST_SUITE_P(Cases, ProposalTest,
    ::testing::Values(
        // An empty ledger: the first number of the day.
        ProposalCase{0, "", QDate(2024, 1, 5), O::Issued, "240105001"},
        ProposalCase{5, "240105", QDate(2024, 1, 5), O::Issued, "240105006"},
        ProposalCase{0, "240104", QDate(2024, 1, 5), O::Issued, "240105001"},
        // Across a month and a year end the dates still order by the calendar.
        ProposalCase{0, "231231", QDate(2024, 1, 1), O::Issued, "240101001"},
        // A later day that already has numbers (typed before) continues them.
        ProposalCase{3, "240105", QDate(2024, 3, 1), O::Issued, "240301004"},
        // A slip was confirmed on a later day than this one: the clock was set back.
        ProposalCase{1, "240106", QDate(2024, 1, 5), O::DateInFuture, ""},
        ProposalCase{0, "250101", QDate(2024, 12, 31), O::DateInFuture, ""},
        // Past 999 the number simply gets longer.
        ProposalCase{999, "240105", QDate(2024, 1, 5), O::Issued, "2401051000"},
        ProposalCase{32767, "240105", QDate(2024, 1, 5), O::Overflow, ""}));

TEST(SlipNumbering, ConfirmWritesTheSession)
{
    Session s;
    const SlipProposal p = proposeSlip({5, QDate(2024, 1, 5)}, QDate(2024, 1, 5));
    confirmSlip(s, p, QDate(2024, 1, 5));
    EXPECT_EQ(s.denpyoNo, "006");
    EXPECT_EQ(s.denpyoDDay, "240105");
    EXPECT_EQ(s.slipNumber, "240105006");
    EXPECT_EQ(s.estimateDate, QStringLiteral("令和6年1月5日"));
}

TEST(SlipNumbering, ConfirmingAnotherDayStoresToday)
{
    Session s;
    const SlipProposal p = proposeSlip({0, QDate(2024, 1, 5)}, QDate(2024, 2, 1));
    confirmSlip(s, p, QDate(2024, 1, 5));
    EXPECT_EQ(s.slipNumber, "240201001");
    EXPECT_EQ(s.estimateDate, QStringLiteral("令和6年2月1日"));
    EXPECT_EQ(s.denpyoNo, "001");
    EXPECT_EQ(s.denpyoDDay, "240105");
}

TEST(SlipSettings, ProgramStoreIsNamedEstimateApp)
{
    auto settings = openSlipSettings();
    EXPECT_EQ(settings->organizationName(), "EstimateApp");
    EXPECT_EQ(settings->applicationName(), "EstimateApp");
}

struct TypedCase
{
    const char *text;
    QDate expected; // invalid when refused
};
class TypedDateTest : public ::testing::TestWithParam<TypedCase> {};

TEST_P(TypedDateTest, ReadsOrRefuses)
{
    const auto parsed = parseTypedDate(QString::fromUtf8(GetParam().text));
    if (GetParam().expected.isValid()) {
        ASSERT_TRUE(parsed.has_value()) << GetParam().text;
        EXPECT_EQ(*parsed, GetParam().expected);
    } else {
        EXPECT_FALSE(parsed.has_value()) << GetParam().text;
    }
}

INSTANTIATE_TEST_SUITE_P(Texts, TypedDateTest,
    ::testing::Values(TypedCase{"1999/01/01", QDate(1999, 1, 1)}, TypedCase{"2024/1/5", QDate(2024, 1, 5)},
                      TypedCase{" 2024-01-05 ", QDate(2024, 1, 5)}, TypedCase{"20240105", QDate(2024, 1, 5)},
                      TypedCase{"２０２４／１／５", QDate(2024, 1, 5)}, TypedCase{"2023/2/29", QDate()},
                      TypedCase{"2024/13/1", QDate()}, TypedCase{"", QDate()}, TypedCase{"きのう", QDate()},
                      TypedCase{"24/1/5", QDate()}));

TEST(DayKey, RoundTrip)
{
    EXPECT_EQ(dayKey(QDate(2024, 1, 5)), "240105");
    EXPECT_EQ(parseDayKey("240105"), QDate(2024, 1, 5));
    EXPECT_FALSE(parseDayKey("2401").has_value());
}

} // namespace
