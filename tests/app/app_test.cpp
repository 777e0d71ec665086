#include "app/app_controller.h"
#include "app/dlg_hajime.h"
#include "app/frm_setting.h"
#include "app/frm_sp.h"
#include "fixed_clock.h"
#include "scripted_messages.h"
#include "sheet/frm_mitumori.h"
#include "temp_app_folder.h"
#include "uikit/guarded_dialog.h"

#include <QApplication>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>

using namespace est;

namespace {

struct AppFixture
{
    test::TempAppFolder folder;
    Session session;
    test::ScriptedMessages messages;
    test::FixedClock clock;
    app::AppController controller{session, messages, clock, folder.path()};
    AppFixture() { controller.start(0); }
};

} // namespace

TEST(Startup, StartDialogShownSheetLoadedHidden)
{
    AppFixture x;
    app::AppContext &c = x.controller.context();
    EXPECT_TRUE(c.start->isVisible());
    EXPECT_FALSE(c.sheet->isVisible());
    EXPECT_EQ(x.session.sheetState, SheetState::NotStarted);
    for (const char *name : {"cmdSin", "cmdHen", "cmdXls", "cmdSetting", "CancelButton"})
        EXPECT_NE(c.start->button(name), nullptr) << name;
}

TEST(Startup, NewEstimateShowsTheSheetWithStateOne)
{
    AppFixture x;
    app::AppContext &c = x.controller.context();
    int stepsRun = 0;
    c.newEstimateSteps.clear();   // the controller alone, without the subsystems' dialogs
    c.newEstimateSteps.append([&] {
        ++stepsRun;
        EXPECT_EQ(x.session.sheetState, SheetState::NewStarted);
        return true;
    });
    c.start->button("cmdSin")->click();
    EXPECT_EQ(stepsRun, 1);
    EXPECT_TRUE(c.sheet->isVisible());
    EXPECT_FALSE(c.start->isVisible());
}

TEST(Startup, CancelledNewEstimateReturnsToStart)
{
    AppFixture x;
    app::AppContext &c = x.controller.context();
    c.newEstimateSteps.clear();
    c.newEstimateSteps.append([] { return false; });
    c.start->button("cmdSin")->click();
    EXPECT_FALSE(c.sheet->isVisible());
    EXPECT_TRUE(c.start->isVisible());
    EXPECT_EQ(x.session.sheetState, SheetState::NotStarted);
}

TEST(Startup, SettingsHubReturnsToStartWhenClosed)
{
    AppFixture x;
    app::AppContext &c = x.controller.context();
    c.start->button("cmdSetting")->click();
    EXPECT_TRUE(c.settings->isVisible());
    EXPECT_FALSE(c.start->isVisible());
    for (const char *name : {"Command1", "Command2", "Command3", "Command4", "Command5", "Command6",
                             "Command7", "Command9", "Command10", "Command11", "cmdPaintSisu",
                             "cmdKokyakuSet", "cmdKaniSet", "cmdExp", "cmdExit"})
        EXPECT_NE(c.settings->button(name), nullptr) << name;
    c.settings->button("cmdExit")->click();
    EXPECT_FALSE(c.settings->isVisible());
    EXPECT_TRUE(c.start->isVisible());
    c.start->button("cmdSetting")->click();
    c.settings->close(); // the close box does the same
    EXPECT_TRUE(c.start->isVisible());
}

TEST(Startup, CancelUnloadsEverything)
{
    AppFixture x;
    app::AppContext &c = x.controller.context();
    x.session.editExisting = true;
    QSignalSpy unloaded(&x.controller, &app::AppController::allFormsUnloaded);
    c.start->button("CancelButton")->click();
    EXPECT_EQ(unloaded.count(), 1);
    EXPECT_FALSE(x.session.editExisting);
    EXPECT_FALSE(c.start->isVisible());
}

TEST(Splash, ShowsVersionAndClosesByTimer)
{
    EXPECT_EQ(app::FrmSp::versionText(), QStringLiteral("ﾊﾞｰｼﾞｮﾝ 0.1.0"));
    auto *splash = new app::FrmSp(10);
    QSignalSpy finished(splash, &app::FrmSp::finished);
    splash->show();
    EXPECT_TRUE(finished.wait(2000));
}

namespace {
struct ProbeDialog : ui::GuardedDialog
{
    using GuardedDialog::GuardedDialog;
    void cancel() { cancelByButton(); }
};
} // namespace

TEST(GuardedDialog, CloseBoxIsRefusedCancelButtonWorks)
{
    test::ScriptedMessages messages;
    ProbeDialog dialog(messages);
    dialog.show();
    dialog.close();
    EXPECT_TRUE(dialog.isVisible());
    ASSERT_EQ(messages.shown.size(), 1);
    EXPECT_EQ(messages.lastText(), QStringLiteral("中止する場合、キャンセルボタンをクリックしてください"));
    EXPECT_EQ(messages.shown.last().title, QStringLiteral("注意"));
    QTest::keyClick(&dialog, Qt::Key_Escape);
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_EQ(messages.shown.size(), 2);
    dialog.cancel();
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(dialog.result(), QDialog::Rejected);
    dialog.show();
    dialog.accept();
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(messages.shown.size(), 2);
}
