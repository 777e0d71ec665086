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
    const char *storedCounter;
    const char *storedDay;
    QDate today;
    SlipProposal::Outcome outcome;
    const char *number;   // "" when refused
};
class ProposalTest : public ::testing::TestWithParam<ProposalCase> {};

TEST_P(ProposalTest, ProposesFromTheStoredValues)
{
    const ProposalCase c = GetParam();
    const SlipProposal p = proposeSlip(QString::fromUtf8(c.storedCounter), QString::fromUtf8(c.storedDay), c.today);
    EXPECT_EQ(p.outcome, c.outcome);
    EXPECT_EQ(p.number, QString::fromUtf8(c.number));
    if (p.issued()) {
        EXPECT_EQ(p.labelText(), QStringLiteral("新規伝票番号は ") + QString::fromUtf8(c.number) + QStringLiteral(" です。"));
    }
}

using O = SlipProposal::Outcome;
INSTANTIATE_TEST_SUITE_P(Cases, ProposalTest,
    ::testing::Values(
        // First start: nothing stored means "000" and today's key.
        ProposalCase{"000", "240105", QDate(2024, 1, 5), O::Issued, "240105001"},
        ProposalCase{"005", "240105", QDate(2024, 1, 5), O::Issued, "240105006"},
        ProposalCase{"017", "240104", QDate(2024, 1, 5), O::Issued, "240105001"},
        // Across a month and a year end the dates still order by the calendar.
        ProposalCase{"042", "231231", QDate(2024, 1, 1), O::Issued, "240101001"},
        ProposalCase{"001", "240106", QDate(2024, 1, 5), O::DateInFuture, ""},
        ProposalCase{"001", "250101", QDate(2024, 12, 31), O::DateInFuture, ""},
        // Past 999 the number simply gets longer.
        ProposalCase{"999", "240105", QDate(2024, 1, 5), O::Issued, "2401051000"},
        ProposalCase{"32767", "240105", QDate(2024, 1, 5), O::Overflow, ""},
        // Unreadable stored values: counter 0, date counts as an earlier day.
        ProposalCase{"abc", "240105", QDate(2024, 1, 5), O::Issued, "240105001"},
        ProposalCase{"005", "24x105", QDate(2024, 1, 5), O::Issued, "240105001"},
        ProposalCase{"005", "241340", QDate(2024, 1, 5), O::Issued, "240105001"}));

TEST(SlipNumbering, ConfirmWritesTheSession)
{
    Session s;
    const SlipProposal p = proposeSlip("005", "240105", QDate(2024, 1, 5));
    confirmSlip(s, p, QDate(2024, 1, 5));
    EXPECT_EQ(s.denpyoNo, "006");
    EXPECT_EQ(s.denpyoDDay, "240105");
    EXPECT_EQ(s.slipNumber, "240105006");
    EXPECT_EQ(s.estimateDate, QStringLiteral("令和6年1月5日"));
}

TEST(SlipNumbering, ConfirmingAnotherDayStoresToday)
{
    Session s;
    const SlipProposal p = proposeSlip("005", "240105", QDate(2024, 2, 1));
    confirmSlip(s, p, QDate(2024, 1, 5));
    EXPECT_EQ(s.slipNumber, "240201001");
    EXPECT_EQ(s.estimateDate, QStringLiteral("令和6年2月1日"));
    EXPECT_EQ(s.denpyoNo, "001");
    EXPECT_EQ(s.denpyoDDay, "240105");
    // The next estimate of today is not refused.
    EXPECT_TRUE(proposeSlip(s.denpyoNo, s.denpyoDDay, QDate(2024, 1, 5)).issued());
}

TEST(SlipSettings, FirstStartThenRoundTrip)
{
    QTemporaryDir dir;
    const QString file = dir.filePath("slip.ini");
    Session s;
    {
        QSettings settings(file, QSettings::IniFormat);
        loadSlipSettings(s, settings, QDate(2024, 1, 5));
        EXPECT_EQ(s.denpyoNo, "000");
        EXPECT_EQ(s.denpyoDDay, "240105");
        s.denpyoNo = "017";
        s.denpyoDDay = "240104";
        saveSlipSettings(s, settings);
    }
    QSettings reread(file, QSettings::IniFormat);
    EXPECT_EQ(reread.value("DenpyoNo/DNo").toString(), "017");
    EXPECT_EQ(reread.value("DenpyoDDay/DDay").toString(), "240104");
    Session fresh;
    loadSlipSettings(fresh, reread, QDate(2024, 1, 5));
    EXPECT_EQ(fresh.denpyoNo, "017");
    EXPECT_EQ(fresh.denpyoDDay, "240104");
    EXPECT_EQ(proposeSlip(fresh.denpyoNo, fresh.denpyoDDay, QDate(2024, 1, 5)).number, "240105001");
}

TEST(SlipSettings, MissingKeysKeepTheValuesInMemory)
{
    QTemporaryDir dir;
    QSettings settings(dir.filePath("slip.ini"), QSettings::IniFormat);
    settings.setValue("DenpyoNo/DNo", "009");
    Session s;
    s.denpyoNo = "003";
    s.denpyoDDay = "231111";
    loadSlipSettings(s, settings, QDate(2024, 1, 5));
    EXPECT_EQ(s.denpyoNo, "009");
    EXPECT_EQ(s.denpyoDDay, "231111");
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
