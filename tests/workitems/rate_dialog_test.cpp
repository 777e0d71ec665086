// dlgRato: the labour rate, paint rate and rounding.
#include "screen_fixtures.h"

using namespace est;
using namespace est::test::workitems_screens;

namespace {


struct RatoFixture : ::testing::Test
{
    Session session;
    test::ScriptedMessages messages;
    int catalogueChosen = 0;
    std::unique_ptr<DlgRato> dialog;

    void openDialog()
    {
        dialog = std::make_unique<DlgRato>(session, messages, [this] { ++catalogueChosen; });
    }
    QLineEdit *rate() { return find<QLineEdit>(dialog.get(), "txtRato"); }
    QAbstractButton *option(const char *name) { return find<QAbstractButton>(dialog.get(), name); }
    void ok() { find<QPushButton>(dialog.get(), "OKButton")->click(); }
};

TEST_F(RatoFixture, SetsRateAndPaintRateAndRounding)
{
    session.rateDialogRequested = true;
    openDialog();
    QSignalSpy accepted(dialog.get(), &QDialog::accepted);
    QTest::keyClicks(rate(), "5000");
    option("opt1_1")->click();
    option("opt2_1")->click();
    ok();
    EXPECT_EQ(accepted.count(), 1);
    EXPECT_EQ(session.labourRate, 5000);
    EXPECT_EQ(session.paintLabourRate, 5000);
    EXPECT_EQ(session.roundDigits, 1);
    EXPECT_EQ(session.roundMode, 2);
    EXPECT_FALSE(session.rateDialogRequested);
    EXPECT_TRUE(messages.shown.isEmpty());
    EXPECT_EQ(catalogueChosen, 1); // no catalogue chosen yet: dlgCarType follows
}

TEST_F(RatoFixture, ModeButtonsFollowTheDigitsChoice)
{
    openDialog();
    option("opt1_0")->click();
    for (const char *name : {"opt2_0", "opt2_1", "opt2_2"})
        EXPECT_FALSE(option(name)->isEnabled()) << name;
    option("opt1_2")->click();
    for (const char *name : {"opt2_0", "opt2_1", "opt2_2"})
        EXPECT_TRUE(option(name)->isEnabled()) << name;
    EXPECT_NE(dialog->findChild<QButtonGroup *>(QStringLiteral("opt1")), nullptr);
    EXPECT_NE(dialog->findChild<QButtonGroup *>(QStringLiteral("opt2")), nullptr);
}

TEST_F(RatoFixture, ARateBeyond16BitsKeepsTheOldRateWithAMessage)
{
    session.labourRate = 4500;
    session.paintLabourRate = 4500;
    session.makerDb = "Toyota";
    openDialog();
    rate()->clear();
    QTest::keyClicks(rate(), "40000");
    ok();
    EXPECT_EQ(session.labourRate, 4500);
    EXPECT_EQ(session.paintLabourRate, 4500);
    ASSERT_EQ(messages.shown.size(), 1);
    EXPECT_TRUE(messages.lastText().contains(QStringLiteral("32,767")));
    EXPECT_TRUE(messages.lastText().contains(QStringLiteral("4,500")));
    EXPECT_EQ(catalogueChosen, 0); // a maker is chosen already
}

TEST_F(RatoFixture, LettersCannotBeTypedIntoTheRate)
{
    openDialog();
    QTest::keyClicks(rate(), "5a0b00");
    EXPECT_EQ(rate()->text(), QStringLiteral("5000"));
    EXPECT_EQ(messages.beeps, 2);
}

TEST_F(RatoFixture, EmptyRateAsksYesStaysNoClosesWithTheOldRate)
{
    session.labourRate = 4200;
    session.roundDigits = 2;
    session.roundMode = 3;
    openDialog();
    rate()->clear();
    QSignalSpy accepted(dialog.get(), &QDialog::accepted);
    messages.answer(Answer::Yes);
    ok();
    EXPECT_EQ(accepted.count(), 0);
    ASSERT_EQ(messages.shown.size(), 1);
    EXPECT_EQ(messages.lastText(), QStringLiteral("レートが入力されておりません。入力しますか？"));
    EXPECT_EQ(messages.shown.last().title, QStringLiteral("レート"));
    EXPECT_EQ(messages.shown.last().icon, MessageIcon::Question);

    messages.answer(Answer::No);
    ok();
    EXPECT_EQ(accepted.count(), 1);
    EXPECT_EQ(session.labourRate, 4200);
    EXPECT_EQ(session.roundDigits, 2);
    EXPECT_EQ(session.roundMode, 3);
}

TEST_F(RatoFixture, OpensShowingTheCurrentSettings)
{
    session.labourRate = 6200;
    session.roundDigits = 2;
    session.roundMode = 3;
    openDialog();
    EXPECT_EQ(rate()->text(), QStringLiteral("6200"));
    EXPECT_TRUE(option("opt1_2")->isChecked());
    EXPECT_TRUE(option("opt2_2")->isChecked());
}

} // namespace
