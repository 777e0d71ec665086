#include "program_fixture.h"
#include "app/app_controller.h"
#include "app/dlg_hajime.h"
#include "app/frm_setting.h"
#include "fixed_clock.h"
#include "modal_answerer.h"
#include "scripted_messages.h"
#include "sheet/company_block.h"
#include "sheet/frm_mitumori.h"
#include "sheet/slip_ledger.h"
#include "sheet/slip_numbering.h"
#include "temp_app_folder.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <gtest/gtest.h>

using namespace est;

namespace {

// Starts the program on an empty application folder with a fixed "today"; the slip counter
// store starts empty unless the test fills it first.
struct Program : test::Program
{
    void start() { test::Program::start(false); }
    // The last number the slip ledger issued for `day`.
    int issued(QDate day)
    {
        sheet::SlipLedger ledger(sheet::openSlipLedgerDatabase(folder.path()).database);
        return ledger.state(day).value_or(sheet::SlipLedgerState{-1, {}}).lastOfDay;
    }
    QString sheetLabel(const char *name)
    {
        return context().sheet->findChild<QLabel *>(QLatin1String(name))->text();
    }
    QPushButton *sheetButton(const char *name)
    {
        return context().sheet->findChild<QPushButton *>(QLatin1String(name));
    }
};

TEST(SheetExtrasStartup, MissingCompanyFileIsOfferedAndCreatedEmpty)
{
    Program p;
    p.messages.answer(Answer::Yes);
    p.start();
    const QString path = p.folder.file("temp/kdata.txt");
    ASSERT_EQ(p.messages.shown.size(), 1);
    EXPECT_EQ(p.messages.lastText(), QDir::toNativeSeparators(path) +
                                         QStringLiteral("は存在していません。\n自社情報を作成してください。"));
    EXPECT_EQ(p.messages.shown.last().kind, test::ShownMessage::Kind::YesNo);
    EXPECT_EQ(p.messages.shown.last().icon, MessageIcon::Question);
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), QByteArray("\r\n").repeated(14));
    EXPECT_EQ(p.issued(QDate(2024, 1, 5)), 0);
}

TEST(SheetExtrasStartup, AnsweringNoLeavesNoFile)
{
    Program p;
    p.messages.answer(Answer::No);
    p.start();
    EXPECT_FALSE(QFile::exists(p.folder.file("temp/kdata.txt")));
    EXPECT_EQ(p.session.company, QStringList(14));
}

TEST(SheetExtrasStartup, CompanyFileFillsTheSheet)
{
    Program p;
    QStringList block(14);
    block[2] = QStringLiteral("みどり台オートボディ");
    block[4] = "000-111-2222";
    block[8] = "012";
    block[11] = "10";
    ASSERT_TRUE(sheet::writeCompanyBlock(p.folder.file("temp/kdata.txt"), block).isEmpty());
    p.start();
    EXPECT_TRUE(p.messages.shown.isEmpty());
    EXPECT_EQ(p.sheetLabel("lblJisya"), QStringLiteral("みどり台オートボディ"));
    EXPECT_EQ(p.sheetLabel("lblTEL"), "TEL 000-111-2222");
    EXPECT_EQ(p.sheetLabel("lblTNo"), "012");
    EXPECT_EQ(p.sheetLabel("lblZeiritu"), "10");
}

TEST(SheetExtrasNewEstimate, DateDialogIssuesNumbersDayByDay)
{
    Program p;
    p.dialogs.click("dlgDay", "OKButton");
    p.start();
    p.context().start->button("cmdSin")->click();
    EXPECT_EQ(p.dialogs.seen("dlgDay"), 1);
    EXPECT_TRUE(p.context().sheet->isVisible());
    EXPECT_EQ(p.dialogs.seen("dlgRato"), 1); // the date dialog asked for the rate dialog
    EXPECT_FALSE(p.session.rateDialogRequested);
    EXPECT_EQ(p.sheetLabel("lblHiduke"), QStringLiteral("令和6年1月5日 / 240105001"));
    EXPECT_EQ(p.issued(QDate(2024, 1, 5)), 1);

    // The sheet's own button proposes the next number of the day and shows it.
    p.session.rateDialogRequested = false;
    ASSERT_TRUE(p.sheetButton("cmdDay")->isEnabled());
    p.sheetButton("cmdDay")->click();
    EXPECT_EQ(p.sheetLabel("lblHiduke"), QStringLiteral("令和6年1月5日 / 240105002"));
    EXPECT_FALSE(p.session.rateDialogRequested);

    // Next day, next program run: the counter starts again.
    p.clock.set(QDate(2024, 1, 6));
    Session next;
    p.session = next;
    p.start();
    p.context().start->button("cmdSin")->click();
    EXPECT_EQ(p.sheetLabel("lblHiduke"), QStringLiteral("令和6年1月6日 / 240106001"));
}

TEST(SheetExtrasNewEstimate, CancelReturnsToTheStartDialog)
{
    Program p;
    p.dialogs.click("dlgDay", "CancelButton");
    p.start();
    p.context().start->button("cmdSin")->click();
    EXPECT_EQ(p.dialogs.seen("dlgDay"), 1);
    EXPECT_FALSE(p.context().sheet->isVisible());
    EXPECT_TRUE(p.context().start->isVisible());
    // The file name was chosen before the date dialog: only a state of 1 goes back to 0.
    EXPECT_EQ(p.session.sheetState, SheetState::NameChosen);
    EXPECT_FALSE(p.session.rateDialogRequested);
    EXPECT_EQ(p.issued(QDate(2024, 1, 5)), 0);
    EXPECT_TRUE(p.session.slipNumber.isEmpty());
}

TEST(SheetExtrasNewEstimate, ClockSetBackIssuesNoNumber)
{
    Program p;
    {
        auto settings = sheet::openSlipSettings();
        settings->setValue("DenpyoNo/DNo", "004");
        settings->setValue("DenpyoDDay/DDay", "240110");
    }
    p.dialogs.click("dlgDay", "OKButton");
    p.messages.answer(Answer::No); // no company file yet
    p.start();
    p.context().start->button("cmdSin")->click();
    EXPECT_EQ(p.dialogs.seen("dlgDay"), 0);
    EXPECT_EQ(p.messages.lastText(), QStringLiteral("日付が違います。正しい日付を入力してください。"));
    EXPECT_TRUE(p.context().start->isVisible());
    // The counter of earlier versions was taken over, and nothing more was issued.
    EXPECT_EQ(p.issued(QDate(2024, 1, 10)), 4);
    EXPECT_EQ(p.issued(QDate(2024, 1, 5)), 0);
}

TEST(SheetExtrasScreens, SheetAndHubButtonsOpenTheirScreens)
{
    Program p;
    p.start();
    app::FrmSetting *hub = p.context().settings;
    for (const char *name : {"Command4", "Command6"})
        EXPECT_TRUE(hub->button(name)->isEnabled()) << name;

    hub->button("Command4")->click();
    ASSERT_NE(p.topLevel("frmKaisya"), nullptr);
    hub->button("Command4")->click(); // one window, not two
    int count = 0;
    for (QWidget *w : QApplication::topLevelWidgets())
        count += w->objectName() == "frmKaisya" && w->isVisible();
    EXPECT_EQ(count, 1);
    hub->button("Command6")->click();
    EXPECT_NE(p.topLevel("frmHikazeiSetting"), nullptr);

    // The company editor confirms into the hidden sheet and the file.
    QWidget *kaisya = p.topLevel("frmKaisya");
    kaisya->findChild<QPushButton *>("cmdEdit")->click();
    kaisya->findChild<QLineEdit *>("txtZeiritu")->setText("8");
    kaisya->findChild<QPushButton *>("cmdOK")->click();
    EXPECT_EQ(p.sheetLabel("lblZeiritu"), "8");
    EXPECT_EQ(sheet::readCompanyBlock(p.folder.file("temp/kdata.txt")).block.at(11), "8");

    // The non-taxable dialog from the sheet's button.
    EXPECT_TRUE(p.sheetButton("cmdHikazei")->isEnabled());
    EXPECT_TRUE(p.sheetButton("cmdKaisya")->isEnabled());
    p.dialogs.on("dlgHikazei", [](QWidget *dialog) {
        dialog->findChild<QLineEdit *>("txtKoumoku")->setText(QStringLiteral("印紙代"));
        dialog->findChild<QLineEdit *>("txtKingaku")->setText("1800");
        dialog->findChild<QPushButton *>("cmdAdd")->click();
        dialog->findChild<QPushButton *>("cmdOK")->click();
    });
    p.sheetButton("cmdHikazei")->click();
    EXPECT_EQ(p.dialogs.seen("dlgHikazei"), 1);
    EXPECT_EQ(p.sheetLabel("lblHZei"), "1,800");
    EXPECT_EQ(p.sheetLabel("lblKei"), "1,800");
}

} // namespace
