#include "workitems/work_item_table.h"

#include <gtest/gtest.h>

using namespace est;
using namespace est::workitems;

namespace {

WorkItemRow item(const QString &section, const QString &labour, const QString &parts = QString())
{
    WorkItemRow row;
    row[WiSection] = section;
    row[WiPart] = QStringLiteral("部品 ") + section;
    row[WiLabour] = labour;
    row[WiPartsTotal] = parts;
    row[WiCatalogueNum] = QStringLiteral("7");
    return row;
}

QList<EstimateRow> estimateRows(int n)
{
    QList<EstimateRow> rows;
    for (int i = 0; i < n; ++i) {
        EstimateRow r;
        r[ColNo] = QString::number(i + 1);
        r[ColLabour] = QStringLiteral("1,000");
        r[ColPartsAmount] = QStringLiteral("500");
        rows.append(r);
    }
    return rows;
}

TEST(WorkItemTable, HeaderHasTwelveCells)
{
    EXPECT_EQ(kWorkItemHeader.split(QLatin1Char('|')).size(), WorkItemColumnCount);
    EXPECT_EQ(kWorkItemHeader, QStringLiteral("No|部位|部品名|部品番号・その他|作業|指数|工賃計|部品単価|個数|部品計||"));
}

TEST(WorkItemTable, StartsFromTheEstimateRowsAndTheirTotals)
{
    WorkItemTable table(estimateRows(3));
    EXPECT_EQ(table.count(), 3);
    EXPECT_EQ(table.nextNumber(), 4);
    EXPECT_EQ(table.totals().labour, 3000);
    EXPECT_EQ(table.totals().parts, 1500);
    EXPECT_EQ(table.totals().grand, 4500);
}

TEST(WorkItemTable, AppendNumbersAndTotals)
{
    WorkItemTable table;
    ASSERT_EQ(table.append(item("フロント", "7500", "24690")), WorkItemTable::Change::Done);
    ASSERT_EQ(table.append(item("リヤ", "", "")), WorkItemTable::Change::Done); // blank adds nothing
    ASSERT_EQ(table.append(item("右側", "2500")), WorkItemTable::Change::Done);
    EXPECT_EQ(table.row(0)[WiNo], "1");
    EXPECT_EQ(table.row(2)[WiNo], "3");
    EXPECT_EQ(table.totals().labour, 10000);
    EXPECT_EQ(table.totals().parts, 24690);
    EXPECT_EQ(table.totals().grand, 34690);
}

TEST(WorkItemTable, TheWholeEstimateHoldsAtMost394Rows)
{
    WorkItemTable table(estimateRows(393));
    EXPECT_FALSE(table.full());
    EXPECT_EQ(table.append(item("フロント", "100")), WorkItemTable::Change::Done);
    EXPECT_TRUE(table.full());
    EXPECT_EQ(table.append(item("フロント", "100")), WorkItemTable::Change::Full);
    EXPECT_EQ(table.insertEmpty(0), WorkItemTable::Change::Full);
    EXPECT_EQ(table.count(), 394);
    EXPECT_EQ(table.totals().labour, 393 * 1000 + 100);
}

TEST(WorkItemTable, InsertRemoveAndSortRenumber)
{
    WorkItemTable table;
    table.append(item("B", "100"));
    table.append(item("A", "200"));
    table.append(item("C", "300"));
    ASSERT_EQ(table.insertEmpty(1), WorkItemTable::Change::Done);
    EXPECT_EQ(table.count(), 4);
    for (int i = 0; i < 4; ++i)
        EXPECT_EQ(table.row(i)[WiNo], QString::number(i + 1));
    ASSERT_EQ(table.replace(1, item("D", "50")), WorkItemTable::Change::Done);
    EXPECT_EQ(table.row(1)[WiNo], "2");
    EXPECT_EQ(table.totals().labour, 650);

    ASSERT_EQ(table.remove(0), WorkItemTable::Change::Done);
    EXPECT_EQ(table.row(0)[WiSection], "D");
    EXPECT_EQ(table.row(0)[WiNo], "1");
    EXPECT_EQ(table.totals().labour, 550);
    EXPECT_EQ(table.remove(9), WorkItemTable::Change::NoSuchRow);

    table.sortBy(WiSection);
    EXPECT_EQ(table.row(0)[WiSection], "A");
    EXPECT_EQ(table.row(1)[WiSection], "C");
    EXPECT_EQ(table.row(2)[WiSection], "D");
    EXPECT_EQ(table.row(2)[WiNo], "3");
}

TEST(WorkItemTable, SumsBeyond32BitsAreRefused)
{
    WorkItemTable table;
    ASSERT_EQ(table.append(item("A", "2000000000")), WorkItemTable::Change::Done);
    EXPECT_EQ(table.append(item("B", "2000000000")), WorkItemTable::Change::TooLarge);
    EXPECT_EQ(table.count(), 1);
    EXPECT_EQ(table.totals().labour, 2000000000);
    // Labour and parts together are refused too.
    EXPECT_EQ(table.append(item("C", "", "200000000")), WorkItemTable::Change::TooLarge);
}

TEST(WorkItemTable, HandsBackElevenColumnsWithoutTheCatalogueNumber)
{
    WorkItemTable table;
    table.append(item("フロント", "7500"));
    const QList<EstimateRow> rows = table.toEstimateRows();
    ASSERT_EQ(rows.size(), 1);
    EXPECT_EQ(rows.first()[ColNo], "1");
    EXPECT_EQ(rows.first()[ColSection], QStringLiteral("フロント"));
    EXPECT_EQ(rows.first()[ColLabour], "7500");
    EXPECT_EQ(rows.first().size(), std::size_t(EstimateColumnCount));
}

} // namespace
