// frmBumpa and frmFuka driven through their controls on the sample tables: what OK hands
// back, that Cancel hands back nothing, and that a kept state shows again on reopening.
#include "indices/frm_bumpa.h"
#include "indices/frm_fuka.h"
#include "part_db_fixture.h"
#include "widget_lookup.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

using namespace est;
using est::test::chooseText;
using est::test::shownText;
using namespace est::indices;
using test::child;

namespace {

class FrmBumpaTest : public test::PartDbTest
{
protected:
    std::unique_ptr<FrmBumpa> open(const BumperState &kept)
    {
        auto screen = std::make_unique<FrmBumpa>(database, settings, kept, messages);
        screen->show();
        return screen;
    }
    BumperSettings settings{QStringLiteral("普通"), QStringLiteral("ﾒﾀﾘｯｸ"), 6500, {1, 1}};
};

TEST_F(FrmBumpaTest, FrontReplaceRearRepairOffVehicleThenReopened)
{
    auto screen = open(BumperState{});
    EXPECT_EQ(shownText(screen.get(), "lblJidousya"), "普通自動車");
    EXPECT_EQ(shownText(screen.get(), "lbl1"), "ﾒﾀﾘｯｸ");
    EXPECT_EQ(shownText(screen.get(), "cboFrSagyo"), ""); // nothing chosen until the user chooses
    child<QCheckBox>(screen.get(), "chkFr")->click();
    chooseText(screen.get(), "cboFrSagyo", "取替");
    chooseText(screen.get(), "cboFrNai", "全面塗装");
    EXPECT_EQ(shownText(screen.get(), "txtFrSisu"), "3.04");
    EXPECT_EQ(shownText(screen.get(), "lblFrSum"), "19,760"); // 3.04 × 6,500
    child<QCheckBox>(screen.get(), "chkRr")->click();
    chooseText(screen.get(), "cboRrSagyo", "修理");
    chooseText(screen.get(), "cboRrNai", "半面塗装");
    child<QCheckBox>(screen.get(), "chkRrHyoj")->click();
    child<QCheckBox>(screen.get(), "chkTantai")->click();
    EXPECT_EQ(shownText(screen.get(), "lblTantai"), "0.35");
    EXPECT_EQ(shownText(screen.get(), "txtFrSisu"), "3.39");
    EXPECT_EQ(shownText(screen.get(), "lblFrSum"), "22,040");  // 22,035 at the ones digit, half up
    EXPECT_EQ(shownText(screen.get(), "txtRrSisu"), "2.95");
    EXPECT_EQ(shownText(screen.get(), "lblRrSum"), "19,180");  // 19,175
    QSignalSpy accepted(screen.get(), &QDialog::accepted);
    child<QPushButton>(screen.get(), "cmdOK")->click();
    ASSERT_EQ(accepted.count(), 1);
    const BumperState kept = screen->result();
    EXPECT_TRUE(kept.entered);
    EXPECT_EQ(kept.labourSum, 41220);

    auto again = open(kept);
    EXPECT_TRUE(child<QCheckBox>(again.get(), "chkFr")->isChecked());
    EXPECT_EQ(shownText(again.get(), "cboFrSagyo"), "取替");
    EXPECT_EQ(shownText(again.get(), "cboRrNai"), "半面塗装");
    EXPECT_TRUE(child<QCheckBox>(again.get(), "chkRrHyoj")->isChecked());
    EXPECT_FALSE(child<QCheckBox>(again.get(), "chkRrKizu")->isChecked());
    EXPECT_TRUE(child<QCheckBox>(again.get(), "chkTantai")->isChecked());
    EXPECT_EQ(shownText(again.get(), "lblRrSum"), "19,180");
    // Unchecking the condition on the reopened screen takes 0.20 off again: 2.75 × 6,500 = 17,875.
    child<QCheckBox>(again.get(), "chkRrHyoj")->click();
    EXPECT_EQ(shownText(again.get(), "txtRrSisu"), "2.75");
    EXPECT_EQ(shownText(again.get(), "lblRrSum"), "17,880");
    // Cancel: the kept state is what the caller keeps; the screen's result is untouched.
    child<QPushButton>(again.get(), "cmdCancel")->click();
    EXPECT_EQ(again->result().lines, kept.lines);
    EXPECT_EQ(again->result().labourSum, 41220);
}

class FrmFukaTest : public test::PartDbTest
{
protected:
    std::unique_ptr<FrmFuka> open(const AdditionalState &kept)
    {
        FukaSettings settings{6800, {0, 1}, {"山田 太郎", "カローラ", "070", "ﾒﾀﾘｯｸ", ""}};
        auto screen = std::make_unique<FrmFuka>(database, settings, kept, messages);
        screen->show();
        return screen;
    }
};

TEST_F(FrmFukaTest, SixItemsThenReopenedShowsTheStoredTexts)
{
    auto screen = open(AdditionalState{});
    EXPECT_EQ(shownText(screen.get(), "lblRato"), "6,800");
    EXPECT_EQ(shownText(screen.get(), "lbl4"), "ﾒﾀﾘｯｸ");
    chooseText(screen.get(), "cboTone", "ｿﾘｯﾄﾞ+ﾒﾀﾘｯｸ");
    chooseText(screen.get(), "cboMai", "3");
    chooseText(screen.get(), "cboSasyu", "4");
    chooseText(screen.get(), "cboSutoraip", "2");
    QTest::keyClicks(child<QLineEdit>(screen.get(), "txtSeelMai"), "2");
    QTest::keyClicks(child<QLineEdit>(screen.get(), "txtWaxMai"), "x3");
    child<QCheckBox>(screen.get(), "chkBooth")->click();
    EXPECT_EQ(shownText(screen.get(), "lblToneNum"), "1.43");
    EXPECT_EQ(shownText(screen.get(), "lblTonesum"), "9,724");
    EXPECT_EQ(shownText(screen.get(), "lblSaSi"), "1.10");
    EXPECT_EQ(shownText(screen.get(), "lblSutoraipSum"), "5,440");
    EXPECT_EQ(shownText(screen.get(), "lblSeelSi"), "0.50");
    EXPECT_EQ(shownText(screen.get(), "txtWaxMai"), "3");
    EXPECT_EQ(shownText(screen.get(), "lblWaxSum"), "3,060");
    EXPECT_EQ(shownText(screen.get(), "lblBSisu"), "0.50");
    EXPECT_EQ(shownText(screen.get(), "lblGoukei"), "32,504");
    child<QPushButton>(screen.get(), "cmdOK")->click();
    const AdditionalState kept = screen->result();
    EXPECT_TRUE(kept.entered);
    EXPECT_EQ(kept.total, 32504);

    // The stored texts come back as they were, even where the table has changed since.
    exec("UPDATE \"SasyuDB\" SET \"Sisu\" = 9");
    auto again = open(kept);
    EXPECT_EQ(shownText(again.get(), "cboTone"), "ｿﾘｯﾄﾞ+ﾒﾀﾘｯｸ");
    EXPECT_EQ(shownText(again.get(), "cboMai"), "3");
    EXPECT_EQ(shownText(again.get(), "lblSaSi"), "1.10");
    EXPECT_EQ(shownText(again.get(), "lblSasyuSum"), "7,480");
    EXPECT_EQ(shownText(again.get(), "txtSeelMai"), "2");
    EXPECT_TRUE(child<QCheckBox>(again.get(), "chkBooth")->isChecked());
    // Emptying the sealing count clears its index and amount; Cancel keeps nothing of it.
    child<QLineEdit>(again.get(), "txtSeelMai")->clear();
    EXPECT_EQ(shownText(again.get(), "lblSeelSi"), "");
    EXPECT_EQ(shownText(again.get(), "lblSeelSum"), "");
    EXPECT_EQ(shownText(again.get(), "lblGoukei"), "29,104");
    child<QPushButton>(again.get(), "cmdCancel")->click();
    EXPECT_EQ(again->result().items, kept.items);
}

TEST_F(FrmFukaTest, NoPaintRateRefusesTheScreen)
{
    EXPECT_FALSE(FrmFuka::rateIsSet(0, messages));
    ASSERT_EQ(messages.shown.size(), 1);
    EXPECT_EQ(messages.shown[0].text, "塗装指数が設定されていません。");
    EXPECT_EQ(messages.shown[0].title, "塗装指数");
    EXPECT_EQ(messages.shown[0].icon, MessageIcon::Critical);
    EXPECT_TRUE(FrmFuka::rateIsSet(1, messages));
}

} // namespace
