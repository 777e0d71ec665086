// frmBankin driven through its controls on the sample table.
#include "indices/frm_bankin.h"
#include "part_db_fixture.h"
#include "widget_lookup.h"

#include <QCloseEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

using namespace est;
using namespace est::indices;
using test::child;

namespace {

class FrmBankinTest : public test::PartDbTest
{
protected:
    void SetUp() override
    {
        PartDbTest::SetUp();
        screen = std::make_unique<FrmBankin>(database, messages);
        screen->show();
    }
    void TearDown() override
    {
        screen.reset();
        PartDbTest::TearDown();
    }
    QLineEdit *height() { return child<QLineEdit>(screen.get(), "txtTate"); }
    QLineEdit *width() { return child<QLineEdit>(screen.get(), "txtYoko"); }
    QString label(const char *name) { return child<QLabel>(screen.get(), name)->text(); }

    std::unique_ptr<FrmBankin> screen;
};

TEST_F(FrmBankinTest, DentOf30By45ChosenAtGradeB)
{
    QTest::keyClicks(height(), "30");
    QTest::keyClicks(width(), "45");
    EXPECT_EQ(label("lbldm"), "13");
    EXPECT_EQ(label("lblIka"), "");
    EXPECT_EQ(label("lblA"), "1.50");
    EXPECT_EQ(label("lblB"), "2.35");
    EXPECT_EQ(label("lblC"), "3.30");
    QSignalSpy accepted(screen.get(), &QDialog::accepted);
    child<QPushButton>(screen.get(), "cmdB")->click();
    EXPECT_EQ(accepted.count(), 1);
    ASSERT_TRUE(screen->choice());
    EXPECT_EQ(screen->choice()->remark, " B : 13d㎡");
    EXPECT_EQ(screen->choice()->index, "2.35");
}

TEST_F(FrmBankinTest, SmallAndLargeAreasAndTheOverflow)
{
    QTest::keyClicks(height(), "5");
    QTest::keyClicks(width(), "10");
    EXPECT_EQ(label("lbldm"), "1");
    EXPECT_EQ(label("lblIka"), "以下");
    EXPECT_EQ(label("lblA"), "0.30");
    height()->clear();
    QTest::keyClicks(height(), "100");
    width()->clear();
    QTest::keyClicks(width(), "41");
    EXPECT_EQ(label("lbldm"), "40");
    EXPECT_EQ(label("lblIka"), "以上");
    EXPECT_EQ(label("lblC"), "8.70");
    // 200 × 200 does not fit the 16-bit product: what 200 × 20 showed stays.
    height()->clear();
    QTest::keyClicks(height(), "200");
    width()->clear();
    QTest::keyClicks(width(), "200");
    EXPECT_EQ(width()->text(), "200");
    EXPECT_EQ(label("lbldm"), "40");
    EXPECT_EQ(label("lblIka"), "");
    EXPECT_EQ(label("lblB"), "6.40");
    EXPECT_TRUE(messages.shown.isEmpty());
    // Those indices belong to 200 × 20, not to the size typed: no grade can be chosen.
    for (const char *grade : {"cmdA", "cmdB", "cmdC"})
        EXPECT_FALSE(child<QPushButton>(screen.get(), grade)->isEnabled()) << grade;
    child<QPushButton>(screen.get(), "cmdB")->click();
    EXPECT_FALSE(screen->choice());
    width()->setText("20");
    EXPECT_TRUE(child<QPushButton>(screen.get(), "cmdB")->isEnabled());
}

TEST_F(FrmBankinTest, TextNegativeAndHugeNumbersLeaveTheBoxAsItWas)
{
    QTest::keyClicks(height(), "3a-0");
    EXPECT_EQ(height()->text(), "30");
    EXPECT_EQ(messages.beeps, 2);
    height()->setText("99999"); // pasted
    EXPECT_EQ(height()->text(), "30");
    height()->setText("４５"); // full-width digits from an input method
    EXPECT_EQ(height()->text(), "45");
    QTest::keyClicks(width(), "10");
    EXPECT_EQ(label("lbldm"), "4");
}

TEST_F(FrmBankinTest, NoChoiceBeforeAnAreaAndCancelChangesNothing)
{
    EXPECT_FALSE(child<QPushButton>(screen.get(), "cmdA")->isEnabled());
    QCloseEvent close;
    QApplication::sendEvent(screen.get(), &close);
    EXPECT_FALSE(close.isAccepted());
    EXPECT_EQ(messages.lastText(), "中止する場合、キャンセルボタンをクリックしてください");
    QSignalSpy rejected(screen.get(), &QDialog::rejected);
    child<QPushButton>(screen.get(), "cmdCancel")->click();
    EXPECT_EQ(rejected.count(), 1);
    EXPECT_FALSE(screen->choice());
}

TEST_F(FrmBankinTest, AreaClassWithoutRowKeepsTheIndices)
{
    exec("DELETE FROM \"bankinsisu\" WHERE \"Area\" = '20'");
    QTest::keyClicks(height(), "10");
    QTest::keyClicks(width(), "190"); // 19 d㎡
    EXPECT_EQ(label("lblA"), "2.10");
    QTest::keyClicks(width(), "0");   // 10 × 1,900 = 19,000 cm²: 40 以上
    EXPECT_EQ(label("lbldm"), "40");
    width()->setText("200");          // 20 d㎡: no row
    EXPECT_EQ(label("lbldm"), "20");
    EXPECT_EQ(label("lblA"), "4.20"); // from class 40, left as it was
    EXPECT_FALSE(child<QPushButton>(screen.get(), "cmdA")->isEnabled());
}

} // namespace
