// The paint part of an estimate through a real workbook: the largest estimate (394 work rows,
// 73 paint rows of every kind) is saved and read back, and the paint screen and the sheet's
// paint section see exactly what they saw before.

#include "sample_estimate.h"
#include "paint/paint_editor.h"
#include "sheet/sheet_grid_layout.h"
#include "workbook/estimate_layout.h"

#include <gtest/gtest.h>

using namespace est;
using namespace est::paint;

namespace {

Session largestEstimate()
{
    Session s;
    for (int i = 0; i < kMaxEstimateRows; ++i) {
        EstimateRow row;
        row[ColNo] = QString::number(i + 1);
        row[ColPart] = QStringLiteral("作業%1").arg(i + 1);
        row[ColLabour] = QStringLiteral("1,000");
        s.rows.append(row);
    }
    s.vehicle[14] = QStringLiteral("ﾒﾀﾘｯｸ");
    s.vehicle[15] = QStringLiteral("ﾌｯｿｺｰﾄ");
    s.paintLabourRate = 7010;
    PaintCalculation calc;
    calc.setRate(7010);
    calc.setCoefficient(QStringLiteral("0.47"));
    calc.setBumperLabour(12000);
    calc.setAdditionalTotal(5000);
    const LineKind kinds[] = {LineKind::Basic, LineKind::TwoCoatSolid, LineKind::LowHiding, LineKind::HighFunction};
    for (int i = 0; i < kMaxPaintLines; ++i) {
        const QString index = QStringLiteral("%1.%2").arg(1 + i % 5).arg(i % 100, 2, 10, QLatin1Char('0'));
        PaintLine line{kinds[i % 4], QStringLiteral("フロント"), QStringLiteral("ボンネット%1 O'Neil").arg(i),
                       i % 3 == 0 ? QStringLiteral("新品") : QString(), QStringLiteral("%1枚").arg(1 + i % 3),
                       index, *calc.labourOf(index), i % 2 == 0, 0};
        EXPECT_EQ(calc.add(line), PaintCalculation::Change::Done);
    }
    PaintOutcome outcome;
    outcome.vehicleClass = QStringLiteral("普通");
    outcome.coefficient = QStringLiteral("0.47");
    outcome.highFunctionIndex = QStringLiteral("0.45");
    outcome.highFunctionCoefficient = QStringLiteral("0.12");
    outcome.paintRate = 7010;
    outcome.choices = {QStringLiteral("2液"), QStringLiteral("3"), true, false, true};
    storePaint(calc, outcome, s);
    s.bumper.labourSum = 12000;
    s.additional.total = 5000;
    return s;
}

} // namespace

TEST(PaintRoundTrip, SeventyThreePaintRowsAnd394WorkRowsComeBackExactly)
{
    const Session before = largestEstimate();
    ASSERT_EQ(before.paint.rows.size(), 73);
    auto book = workbook::Workbook::fromBytes(test::templateBytes());
    workbook::writeEstimate(*book, before);
    auto again = workbook::Workbook::fromBytes(book->toBytes());
    Session after;
    workbook::readEstimate(*again, after);

    EXPECT_EQ(after.rows, before.rows);
    EXPECT_EQ(after.paint.rows, before.paint.rows);
    EXPECT_EQ(after.paint.lines, before.paint.lines);
    EXPECT_EQ(after.paint.vehicleClass, QStringLiteral("普通"));
    EXPECT_EQ(after.paint.materialCoefficient, QStringLiteral("0.47"));
    EXPECT_EQ(after.paint.highFunctionBaseIndex, QStringLiteral("0.45"));
    EXPECT_EQ(after.paint.highFunctionMaterialIndex, QStringLiteral("0.12"));
    EXPECT_EQ(after.paint.baseAdditionIndex, before.paint.baseAdditionIndex);
    EXPECT_EQ(after.totals.paintLabour, before.totals.paintLabour);
    EXPECT_EQ(after.totals.paintMaterial, before.totals.paintMaterial);
    EXPECT_EQ(after.totals.bumperPaint, 12000);
    EXPECT_EQ(after.totals.paintTotalB, before.totals.paintTotalB);
    EXPECT_EQ(after.paintLabourRate, 7010);
    EXPECT_EQ(sheet::displayRows(after), sheet::displayRows(before));
    EXPECT_EQ(sheet::displayRows(after).size(), 394 + 1 + 73 + 3);

    // The paint screen opened on the reopened estimate has the same lines and totals, the
    // bumper and additional sums recovered from the saved totals.
    const PaintEditor first(nullptr, before);
    const PaintEditor reopened(nullptr, after);
    EXPECT_EQ(reopened.calculation().lines(), first.calculation().lines());
    EXPECT_EQ(reopened.calculation().totals().additional, 5000);
    EXPECT_EQ(reopened.calculation().totals().bumper, 12000);
    EXPECT_EQ(reopened.calculation().totals().totalB, before.totals.paintTotalB);
    EXPECT_EQ(choicesFrom(after.paint.lines), choicesFrom(before.paint.lines));
}
