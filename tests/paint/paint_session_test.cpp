#include "paint/paint_session.h"

#include <gtest/gtest.h>

using namespace est;
using namespace est::paint;

TEST(PaintSession, OkWritesRowsStateAndTotalsThatComeBack)
{
    Session session;
    session.vehicle[13] = QStringLiteral("1F7");
    session.vehicle[14] = QStringLiteral("ﾒﾀﾘｯｸ");
    session.vehicle[15] = QStringLiteral("ﾌｯｿｺｰﾄ");
    PaintCalculation calc;
    calc.setRate(7010);
    calc.setCoefficient(QStringLiteral("0.47"));
    PaintLine bonnet{LineKind::Basic, QStringLiteral("フロント"), QStringLiteral("ボンネット"), QString(),
                     QStringLiteral("1枚"), QStringLiteral("5.29"), 37083, true, 17429};
    PaintLine hiding{LineKind::LowHiding, QString(), QStringLiteral("ボンネット  低隠蔽性塗料　ﾙｰﾌ以外"),
                     QStringLiteral("修正"), QString(), QStringLiteral("0.50"), 3505, false, 0};
    calc.add(bonnet);
    calc.add(hiding);
    calc.setBumperLabour(12000);

    PaintOutcome outcome;
    outcome.vehicleClass = QStringLiteral("普通");
    outcome.coefficient = QStringLiteral("0.47");
    outcome.highFunctionIndex = QStringLiteral("0.45");
    outcome.highFunctionCoefficient = QStringLiteral("0.12");
    outcome.paintRate = 7010;
    outcome.choices = {QStringLiteral("速乾"), QStringLiteral("1"), false, true, true};
    storePaint(calc, outcome, session);

    ASSERT_EQ(session.paint.rows.size(), 2);
    const EstimateRow &row = session.paint.rows.at(0);
    EXPECT_EQ(row[ColNo], QStringLiteral("1"));
    EXPECT_EQ(row[ColSection], QStringLiteral("フロント"));
    EXPECT_EQ(row[ColPart], QStringLiteral("ボンネット"));
    EXPECT_EQ(row[ColWork], QStringLiteral("1枚"));
    EXPECT_EQ(row[ColIndex], QStringLiteral("5.29"));
    EXPECT_EQ(row[ColLabour], QStringLiteral("37,083"));
    EXPECT_EQ(session.paint.rows.at(1)[ColPartNumber], QStringLiteral("修正"));
    EXPECT_TRUE(session.paint.entered);
    EXPECT_EQ(session.paint.vehicleClass, QStringLiteral("普通"));
    EXPECT_EQ(session.paint.materialCoefficient, QStringLiteral("0.47"));
    EXPECT_EQ(session.paint.baseAdditionIndex, 3505);
    EXPECT_EQ(session.paint.lines.at(6), QStringLiteral("ﾒﾀﾘｯｸ"));
    EXPECT_EQ(session.paintLabourRate, 7010);
    // 40,588 labour; material 0.47 × 52,588 = 24,716.36; bumper 12,000.
    EXPECT_EQ(session.totals.paintLabour, 40588);
    EXPECT_EQ(session.totals.paintMaterial, 24716);
    EXPECT_EQ(session.totals.bumperPaint, 12000);
    EXPECT_EQ(session.totals.paintTotalB, 77304);

    // Reopening the screen: the same lines (the material amount is recomputed on the screen)
    // and the same choices.
    const QList<PaintLine> back = storedLines(session);
    ASSERT_EQ(back.size(), 2);
    PaintLine expected = bonnet;
    expected.material = 0;
    EXPECT_EQ(back.at(0), expected);
    EXPECT_EQ(back.at(1), hiding);
    EXPECT_EQ(choicesFrom(session.paint.lines), outcome.choices);
}

TEST(PaintSession, UnreadableStoredRowsAreLeftOut)
{
    Session session;
    EstimateRow bad;
    bad[ColLabour] = QStringLiteral("abc");
    EstimateRow good;
    good[ColPart] = QStringLiteral("ルーフパネル");
    good[ColLabour] = QStringLiteral("1,234");
    session.paint.rows = {bad, good};
    const auto lines = storedLines(session);
    ASSERT_EQ(lines.size(), 1);
    EXPECT_EQ(lines.first().labour, 1234);
    EXPECT_EQ(lines.first().kind, LineKind::Basic);
    EXPECT_TRUE(choicesFrom({}).materialOn);
}
