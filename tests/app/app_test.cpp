#include "program_fixture.h"
#include "app/app_controller.h"
#include "app/dlg_hajime.h"
#include "app/frm_setting.h"
#include "app/frm_sp.h"
#include "fixed_clock.h"
#include "modal_answerer.h"
#include "scripted_messages.h"
#include "sheet/frm_mitumori.h"
#include "temp_app_folder.h"
#include "uikit/guarded_dialog.h"

#include <QApplication>
#include <QDir>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>

using namespace est;

namespace {

struct AppFixture : test::Program
{
    AppFixture() { start(false); }
};

} // namespace

TEST(Startup, StartDialogShownSheetLoadedHidden)
{
    AppFixture x;
    app::AppContext &c = x.context();
    EXPECT_TRUE(c.start->isVisible());
    EXPECT_FALSE(c.sheet->isVisible());
    EXPECT_EQ(x.session.sheetState, SheetState::NotStarted);
    for (const char *name : {"cmdSin", "cmdHen", "cmdXls", "cmdSetting", "CancelButton"})
        EXPECT_NE(c.start->button(name), nullptr) << name;
    for (const char *folder : {"temp", "Data", "Mitsumori"})
        EXPECT_TRUE(QFileInfo(x.folder.file(folder)).isDir()) << folder;
}

// A database of a newer version is named at start-up, before any screen reads it, and kept
// unchanged; one of an earlier version is upgraded without a word.
TEST(Startup, NamesADatabaseOfANewerVersion)
{
    test::Program x;
    for (const char *file : {"temp/SettingDB.sqlite", "Data/Hikazei.sqlite"}) {
        ASSERT_TRUE(QDir().mkpath(QFileInfo(x.folder.file(file)).absolutePath()));
        QSqlDatabase database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("newer"));
        database.setDatabaseName(x.folder.file(file));
        ASSERT_TRUE(database.open());
        QSqlQuery q(database);
        ASSERT_TRUE(q.exec(QStringLiteral("CREATE TABLE \"SchemaVersion\" (\"version\" INTEGER NOT NULL)")));
        ASSERT_TRUE(q.exec(QStringLiteral("INSERT INTO \"SchemaVersion\" VALUES (%1)").arg(qstrcmp(file, "Data/Hikazei.sqlite") == 0 ? 7 : 1)));
        q.finish();
        database.close();
        database = QSqlDatabase();
        QSqlDatabase::removeDatabase(QStringLiteral("newer"));
    }
    x.start(false);
    QStringList texts;
    for (const auto &shown : x.messages.shown)
        if (shown.title == QStringLiteral("データベース"))
            texts.append(shown.text);
    ASSERT_EQ(texts.size(), 1);
    EXPECT_TRUE(texts.first().contains(QStringLiteral("Hikazei.sqlite はこのプログラムより新しい版"))) << texts.first().toStdString();
    EXPECT_TRUE(texts.first().contains(QStringLiteral("読み取り専用")));
    EXPECT_FALSE(texts.first().contains(QStringLiteral("SettingDB")));
}

TEST(Startup, NewEstimateShowsTheSheetWithStateOne)
{
    AppFixture x;
    app::AppContext &c = x.context();
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

TEST(Startup, NewEstimateChainRunsFileNameDateAndRateInOrder)
{
    AppFixture x;
    QStringList order;
    for (const char *name : {"dlgFname", "dlgDay", "dlgRato"}) {
        x.dialogs.on(name, [&order, name, &x](QWidget *d) {
            order << QLatin1String(name);
            if (order.size() == 1) {
                d->findChild<QLineEdit *>("txtFname")->setText("ABC");
                d->findChild<QPushButton *>("cmdOK")->click();
            } else if (order.size() == 2) {
                d->findChild<QPushButton *>("OKButton")->click();
            } else {
                d->findChild<QLineEdit *>("txtRato")->setText("6000");
                d->findChild<QPushButton *>("OKButton")->click();
            }
            Q_UNUSED(x);
        });
    }
    x.dialogs.on("dlgCarType", [](QWidget *d) { // no catalogue chosen yet: the rate dialog asks
        d->findChild<QListWidget *>("dlstMeka")->setCurrentRow(0);
        d->findChild<QListWidget *>("dlstType")->setCurrentRow(0);
        d->findChild<QPushButton *>("OKButton")->click();
    });
    x.context().start->button("cmdSin")->click();
    EXPECT_EQ(order, QStringList({"dlgFname", "dlgDay", "dlgRato"}));
    EXPECT_EQ(x.dialogs.seen("dlgCarType"), 1);
    EXPECT_TRUE(x.context().sheet->isVisible());
    EXPECT_EQ(x.session.sheetState, SheetState::NameChosen);
    EXPECT_EQ(x.session.slipNumber, "240105001");
    EXPECT_EQ(x.session.labourRate, 6000);
    EXPECT_EQ(x.sheetChild<QLabel>("lblHiduke")->text(), QStringLiteral("令和6年1月5日 / 240105001"));
}

TEST(Startup, CancelledFileNameReturnsToStart)
{
    AppFixture x;
    x.dialogs.click("dlgFname", "cmdCancel");
    x.context().start->button("cmdSin")->click();
    EXPECT_EQ(x.dialogs.seen("dlgDay"), 0);
    EXPECT_FALSE(x.context().sheet->isVisible());
    EXPECT_TRUE(x.context().start->isVisible());
    EXPECT_EQ(x.session.sheetState, SheetState::NotStarted);
}

TEST(Startup, CancelledNewEstimateReturnsToStart)
{
    AppFixture x;
    app::AppContext &c = x.context();
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
    app::AppContext &c = x.context();
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
    app::AppContext &c = x.context();
    x.session.editExisting = true;
    QSignalSpy unloaded(x.controller.get(), &app::AppController::allFormsUnloaded);
    c.start->button("CancelButton")->click();
    EXPECT_EQ(unloaded.count(), 1);
    EXPECT_FALSE(x.session.editExisting);
    EXPECT_FALSE(c.start->isVisible());
}

TEST(SettingsHub, ButtonsWithoutAScreenStayDisabled)
{
    app::FrmSetting hub;
    int opened = 0;
    hub.setScreen("Command4", [&] { ++opened; });
    for (const char *name : {"Command1", "Command2", "Command3", "Command5", "Command6", "Command7", "Command9",
                             "Command10", "Command11", "cmdPaintSisu", "cmdKokyakuSet", "cmdKaniSet", "cmdExp"})
        EXPECT_FALSE(hub.button(name)->isEnabled()) << name;
    hub.button("Command4")->click();
    EXPECT_EQ(opened, 1);
    EXPECT_TRUE(hub.button("cmdExit")->isEnabled());
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
