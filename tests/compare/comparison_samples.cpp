#include "comparison_samples.h"

#include "print_samples.h"

namespace est::test {

namespace {

EstimateRow row(const QStringList &cells)
{
    return test::estimateRow(cells);
}

} // namespace

Session earlierEstimate()
{
    return handEstimate(1);
}

Session laterEstimate()
{
    Session s = handEstimate(1);
    s.slipNumber = QStringLiteral("000000131");
    s.estimateDate = QStringLiteral("令和6年1月12日");
    s.rows = {
        row({"1", "前部", "フロントバンパー", "52119-47908", "取替", "1.20", "8,400", "34,000", "1", "34,000"}),
        row({"2", "前部", "ラジエータグリル", "53111-47010", "取替", "0.50", "3,500", "12,800", "1", "12,800"}),
        row({"3", "右側", "フロントフェンダー（右）", "", "板金", "4.40", "31,600", "", "", ""}),
    };
    // labour 45,600 - 5,600 + 3,500; parts 77,856 - 32,500 - 45,356 + 34,000 + 12,800
    s.totals.labour = 43500;
    s.totals.parts = 46800;
    s.totals.workTotalA = 90300;
    s.paint.rows[1] = row({"2", "右側", "フロントフェンダー（右）", "", "塗装", "3.50", "24,500", "", "", ""});
    s.totals.paintLabour = 42000;
    s.totals.paintTotalB = 82400;   // 42,000 + 30,400 + 10,000
    s.figures.discountRate = QString();
    s.figures.discountAmount = QStringLiteral("5,000");
    s.figures.advance = QStringLiteral("50,000");
    return s;
}

} // namespace est::test
