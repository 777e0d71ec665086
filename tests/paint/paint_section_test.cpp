#include "common/number_format.h"
#include "paint/paint_session.h"
#include "sheet/sheet_grid_layout.h"

#include <gtest/gtest.h>

using namespace est;
using namespace est::paint;

namespace {

Yen cell(const EstimateRow &row, int column)
{
    return parseDisplayedYen(row[column]).value_or(0);
}

} // namespace

TEST(PaintSection, WorkRowsHeadingPaintRowsAndWhatBHoldsBesides)
{
    Session session;
    session.rows = QList<EstimateRow>(2);
    session.rows[0][ColPart] = QStringLiteral("フロントバンパー");
    PaintCalculation calc;
    calc.setRate(7010);
    calc.setCoefficient(QStringLiteral("0.47"));
    calc.add({LineKind::Basic, QStringLiteral("フロント"), QStringLiteral("ボンネット"), {}, QStringLiteral("1枚"),
              QStringLiteral("5.29"), 37083, false, 0});
    calc.add({LineKind::LowHiding, {}, QStringLiteral("低隠蔽性塗料　ﾙｰﾌ以外"), {}, {}, QStringLiteral("0.50"), 3505,
              false, 0});
    calc.setBumperLabour(12000);
    calc.setAdditionalTotal(5000);
    session.bumper.labourSum = 12000;
    session.additional.total = 5000;
    PaintOutcome outcome;
    outcome.coefficient = QStringLiteral("0.47");
    storePaint(calc, outcome, session);

    const QList<EstimateRow> rows = sheet::displayRows(session);
    // 2 work rows, heading, 2 paint rows, additional, bumper, material.
    ASSERT_EQ(rows.size(), 8);
    EXPECT_EQ(rows.at(0)[ColPart], QStringLiteral("フロントバンパー"));
    EXPECT_EQ(rows.at(2)[ColPart], QStringLiteral("－　塗　装　内　容　－"));
    EXPECT_EQ(rows.at(3), session.paint.rows.at(0));
    EXPECT_EQ(rows.at(5)[ColPart], QStringLiteral("付加指数"));
    EXPECT_EQ(rows.at(6)[ColPart], QStringLiteral("バンパー塗装"));
    EXPECT_EQ(rows.at(7)[ColPart], QStringLiteral("塗装材料費"));
    EXPECT_EQ(rows.at(7)[ColIndex], QStringLiteral("0.47"));

    // By hand: labour 37,083 + 3,505 + 5,000 = 45,588; material 0.47 × 57,588 = 27,066.36;
    // B = 45,588 + 27,066 + 12,000 = 84,654, and the section shows exactly that.
    EXPECT_EQ(session.totals.paintTotalB, 84654);
    Yen shown = 0;
    for (int i = 3; i < rows.size(); ++i)
        shown += cell(rows.at(i), ColLabour) + cell(rows.at(i), ColPartsAmount);
    EXPECT_EQ(shown, session.totals.paintTotalB);
}

TEST(PaintSection, NoPaintingNoSection)
{
    Session session;
    session.rows = QList<EstimateRow>(3);
    EXPECT_EQ(sheet::displayRows(session).size(), 3);
    EXPECT_EQ(sheet::gridRowCount(0), 14); // header and at least ten data rows
    EXPECT_GE(sheet::gridRowCount(10) - 1, 10);
    EXPECT_EQ(sheet::gridRowCount(471), 472);
}
