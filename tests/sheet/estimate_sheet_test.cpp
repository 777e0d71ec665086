// The estimate sheet's logic without its screen.

#include "scripted_messages.h"
#include "sheet/estimate_sheet.h"

#include <gtest/gtest.h>

using namespace est;
using est::sheet::EstimateSheet;

namespace {

TEST(EstimateSheet, AnEditedAmountWinsOverTheRate)
{
    Session session;
    test::ScriptedMessages messages;
    EstimateSheet sheet(session, messages);
    session.company[11] = "10";
    sheet.applyCompany();
    session.totals.workTotalA = 200000;
    sheet.sumsChanged();
    sheet.discountRateTyped(QStringLiteral("5"));
    EXPECT_EQ(session.figures.discountAmount, QStringLiteral("10,000"));
    // The sheet writing the amount back is not an edit.
    sheet.discountAmountTyped(QStringLiteral("10,000"));
    EXPECT_EQ(session.figures.discountRate, QStringLiteral("5"));
    sheet.discountAmountEdited(QStringLiteral("3000"));
    EXPECT_TRUE(session.figures.discountRate.isEmpty());
    EXPECT_EQ(session.figures.afterDiscount, QStringLiteral("197,000"));
    EXPECT_EQ(EstimateSheet::amountAsLeft(QStringLiteral("3000")), QStringLiteral("3,000"));
    EXPECT_EQ(EstimateSheet::amountAsLeft(QStringLiteral("abc")), QStringLiteral("abc"));
}

TEST(EstimateSheet, ClearingKeepsTheCompanyAndTaxRate)
{
    Session session;
    test::ScriptedMessages messages;
    EstimateSheet sheet(session, messages);
    session.company[2] = QStringLiteral("みどり台オートボディ");
    session.company[8] = QStringLiteral("7");
    session.company[11] = QStringLiteral("10");
    const sheet::CompanyLines lines = sheet.applyCompany();
    EXPECT_EQ(lines.name, QStringLiteral("みどり台オートボディ"));
    EXPECT_EQ(lines.branchNumber, QStringLiteral("007"));
    session.header.customerName = QStringLiteral("青木　一郎");
    session.totals.workTotalA = 1000;
    sheet.clearEstimate();
    EXPECT_TRUE(session.header.customerName.isEmpty());
    EXPECT_EQ(session.totals.workTotalA, 0);
    EXPECT_EQ(session.figures.taxRate, QStringLiteral("10"));
    EXPECT_EQ(session.company[2], QStringLiteral("みどり台オートボディ"));
    EXPECT_EQ(sheet.chooseDocumentKind(5).amountCaption, session.header.amountCaption);
    EXPECT_EQ(session.header.documentKind, 5);
}

} // namespace
