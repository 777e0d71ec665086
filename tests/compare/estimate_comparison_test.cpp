// The comparison of two estimates against changes and totals worked out by hand.

#include "compare/comparison_report.h"
#include "compare/estimate_comparison.h"
#include "comparison_samples.h"
#include "print_samples.h"

#include <gtest/gtest.h>

namespace est::compare {

void PrintTo(const RowChange &c, std::ostream *os)
{
    *os << changeKindText(c.kind).toStdString() << " " << c.part.toStdString() << " " << c.work.toStdString() << " ["
        << c.before.index.toStdString() << " " << c.before.labour.toStdString() << " " << c.before.amount.toStdString()
        << "] -> [" << c.after.index.toStdString() << " " << c.after.labour.toStdString() << " "
        << c.after.amount.toStdString() << "]";
}

void PrintTo(const TotalChange &t, std::ostream *os)
{
    *os << t.caption.toStdString() << " " << t.before << " -> " << t.after << " (" << t.difference << ")";
}

namespace {

EstimateRow row(const QStringList &cells)
{
    return test::estimateRow(cells);
}

RowChange expected(ChangeKind kind, const QStringList &name, const RowFigures &before, const RowFigures &after)
{
    return RowChange{kind, name.at(0), name.at(1), name.at(2), name.at(3), before, after};
}

TEST(EstimateComparison, HandMadePairGivesTheChangesWorkedOutByHand)
{
    const EstimateComparison c = compareEstimates(test::earlierEstimate(), test::laterEstimate());
    const QList<RowChange> work{
        expected(ChangeKind::Changed, {"前部", "フロントバンパー", "52119-47908", "取替"},
                 {"1.20", "8,400", "32,500", "1", "32,500"}, {"1.20", "8,400", "34,000", "1", "34,000"}),
        expected(ChangeKind::Added, {"前部", "ラジエータグリル", "53111-47010", "取替"}, {},
                 {"0.50", "3,500", "12,800", "1", "12,800"}),
        expected(ChangeKind::Removed, {"前部", "ヘッドランプ（右）", "81130-47480", "取替"},
                 {"0.80", "5,600", "45,356", "1", "45,356"}, {}),
    };
    EXPECT_EQ(c.workRows, work);
    EXPECT_EQ(c.unchangedWorkRows, 1);
    const QList<RowChange> paint{expected(ChangeKind::Changed, {"右側", "フロントフェンダー（右）", "", "塗装"},
                                          {"3.00", "21,000", "", "", ""}, {"3.50", "24,500", "", "", ""})};
    EXPECT_EQ(c.paintRows, paint);
    EXPECT_EQ(c.unchangedPaintRows, 1);

    // Earlier: A+B = 202,356, discount 5 % = 10,117.8 -> 10,118, tax 10 % of 192,238 = 19,223.8
    // -> 19,224, due 192,238 + 19,224 + 17,000 - 30,000 = 198,462.
    // Later: A+B = 172,700, discount 5,000, tax 16,770, due 167,700 + 16,770 + 17,000 - 50,000.
    const QList<TotalChange> totals{
        {"作業計（Ａ）", 123456, 90300, -33156}, {"塗装計（Ｂ）", 78900, 82400, 3500},
        {"値引き金額", 10118, 5000, -5118},       {"消費税", 19224, 16770, -2454},
        {"非課税金額", 17000, 17000, 0},          {"前受金額", 30000, 50000, 20000},
        {"請求金額", 198462, 151470, -46992},
    };
    EXPECT_EQ(c.totals, totals);
    EXPECT_FALSE(c.overflowed);
    EXPECT_FALSE(c.identical());
}

TEST(EstimateComparison, AnEstimateComparedWithItselfIsIdentical)
{
    const Session s = test::laterEstimate();
    const EstimateComparison c = compareEstimates(s, s);
    EXPECT_TRUE(c.identical());
    EXPECT_EQ(c.unchangedWorkRows, 3);
    EXPECT_EQ(c.totals.size(), 7);
}

struct RowCase
{
    const char *name;
    QList<EstimateRow> before;
    QList<EstimateRow> after;
    QList<ChangeKind> kinds;   // in the order listed
    QStringList parts;         // the part of each listed change
    int unchanged;
};

class RowMatching : public ::testing::TestWithParam<RowCase>
{
};

TEST_P(RowMatching, MatchesBySectionPartNumberAndWork)
{
    const RowCase &rc = GetParam();
    int unchanged = -1;
    const QList<RowChange> changes = compareRows(rc.before, rc.after, &unchanged);
    QList<ChangeKind> kinds;
    QStringList parts;
    for (const RowChange &c : changes) {
        kinds.append(c.kind);
        parts.append(c.part);
    }
    EXPECT_EQ(kinds, rc.kinds);
    EXPECT_EQ(parts, rc.parts);
    EXPECT_EQ(unchanged, rc.unchanged);
}

const EstimateRow kDoor = row({"1", "左側", "フロントドア", "67002-1", "脱着", "1.00", "7,000"});
const EstimateRow kMirror = row({"2", "左側", "ドアミラー", "87940-1", "取替", "0.30", "2,100", "18,000", "1", "18,000"});

INSTANTIATE_TEST_SUITE_P(
    Cases, RowMatching,
    ::testing::Values(
        RowCase{"moved", {kDoor, kMirror}, {kMirror, kDoor}, {}, {}, 2},
        RowCase{"numbers written differently",
                {kDoor},
                {row({"9", " 左側", "フロントドア ", "67002-1", "脱着", "1.0", "7000"})},
                {},
                {},
                1},
        RowCase{"blank rows are no rows", {kDoor, EstimateRow{}}, {EstimateRow{}, kDoor, EstimateRow{}}, {}, {}, 1},
        RowCase{"other work is another row",
                {kDoor},
                {row({"1", "左側", "フロントドア", "67002-1", "取替", "1.00", "7,000"})},
                {ChangeKind::Added, ChangeKind::Removed},
                {"フロントドア", "フロントドア"},
                0},
        RowCase{"repeated rows match in order",
                {kDoor, row({"2", "左側", "フロントドア", "67002-1", "脱着", "1.00", "9,000"})},
                {kDoor},
                {ChangeKind::Removed},
                {"フロントドア"},
                1},
        RowCase{"quantity changed",
                {kMirror},
                {row({"2", "左側", "ドアミラー", "87940-1", "取替", "0.30", "2,100", "18,000", "2", "36,000"})},
                {ChangeKind::Changed},
                {"ドアミラー"},
                0},
        RowCase{"all new", {}, {kDoor, kMirror}, {ChangeKind::Added, ChangeKind::Added}, {"フロントドア", "ドアミラー"}, 0}),
    [](const ::testing::TestParamInfo<RowCase> &info) {
        QString name = QString::fromUtf8(info.param.name);
        name.replace(QLatin1Char(' '), QLatin1Char('_'));
        return name.toStdString();
    });

TEST(ComparisonTables, ShowEachChangeAsThePaperDoes)
{
    const EstimateComparison c = compareEstimates(test::earlierEstimate(), test::laterEstimate());
    const QList<print::DetailTable> tables = comparisonTables(c);
    ASSERT_EQ(tables.size(), 3);
    const QList<QStringList> work{
        {"変更", "前部", "フロントバンパー", "52119-47908", "取替", "前", "1.20", "8,400", "32,500", "1", "32,500"},
        {"", "", "", "", "", "後", "1.20", "8,400", "34,000", "1", "34,000"},
        {"追加", "前部", "ラジエータグリル", "53111-47010", "取替", "後", "0.50", "3,500", "12,800", "1", "12,800"},
        {"削除", "前部", "ヘッドランプ（右）", "81130-47480", "取替", "前", "0.80", "5,600", "45,356", "1", "45,356"},
    };
    EXPECT_EQ(tables.at(0).rows, work);
    EXPECT_EQ(tables.at(1).rows.size(), 2);
    EXPECT_EQ(tables.at(2).rows.at(0), (QStringList{"作業計（Ａ）", "123,456", "90,300", "-33,156"}));
    EXPECT_EQ(tables.at(2).rows.at(1), (QStringList{"塗装計（Ｂ）", "78,900", "82,400", "+3,500"}));
    EXPECT_EQ(tables.at(2).rows.at(4), (QStringList{"非課税金額", "17,000", "17,000", "0"}));
}

} // namespace
} // namespace est::compare
