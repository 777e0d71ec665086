#include "program_fixture.h"
#include "when_modal.h"
#include "app/app_controller.h"
#include "app/dlg_hajime.h"
#include "app/frm_setting.h"
#include "fixed_clock.h"
#include "scripted_messages.h"
#include "sheet/frm_mitumori.h"
#include "temp_app_folder.h"
#include "widget_lookup.h"

#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTableWidget>
#include <QTest>
#include <QTimer>
#include <functional>
#include <gtest/gtest.h>

using namespace est;
using est::test::child;
using est::test::whenModal;

namespace {

// The program with the new-estimate chain answered (file name, date; the rate dialog is
// cancelled unless a test answers it).
struct AppFixture : test::Program
{
    AppFixture() { start(); }
};

QString sheetLabel(app::AppContext &c, const char *name)
{
    auto *label = child<QLabel>(c.sheet, name);
    return label ? label->text() : QStringLiteral("<none>");
}

TEST(WorkItemsWiring, RateDialogFollowsTheDateDialogThenCatalogueChoice)
{
    AppFixture x;
    app::AppContext &c = x.context();
    // Without the date dialog's request the rate step does nothing.
    ASSERT_FALSE(x.session.rateDialogRequested);
    EXPECT_TRUE(c.newEstimateSteps.last()());
    EXPECT_EQ(x.dialogs.seen("dlgRato"), 0);

    x.dialogs.on("dlgRato", [](QWidget *rato) {
        child<QLineEdit>(rato, "txtRato")->setText(QStringLiteral("5000"));
        whenModal("dlgCarType", [](QDialog *carType) {
            child<QListWidget>(carType, "dlstMeka")->setCurrentRow(0);
            child<QListWidget>(carType, "dlstType")->setCurrentRow(0);
            child<QPushButton>(carType, "OKButton")->click();
        });
        child<QPushButton>(rato, "OKButton")->click();
    });
    c.start->button("cmdSin")->click();
    EXPECT_EQ(x.dialogs.seen("dlgDay"), 1);
    EXPECT_EQ(x.dialogs.seen("dlgRato"), 1);
    EXPECT_TRUE(c.sheet->isVisible());
    EXPECT_FALSE(x.session.rateDialogRequested);
    EXPECT_EQ(x.session.labourRate, 5000);
    EXPECT_EQ(x.session.paintLabourRate, 5000);
    EXPECT_EQ(x.session.maker, QStringLiteral("トヨタ"));
    EXPECT_EQ(x.session.typeTable, QStringLiteral("T_Sedan"));
}

TEST(WorkItemsWiring, WorkItemReachesTheSheetAndItsTotals)
{
    AppFixture x;
    app::AppContext &c = x.context();
    x.session.company[11] = QStringLiteral("10");
    c.sheet->showCompany();
    x.session.labourRate = 5000;
    x.session.maker = QStringLiteral("日産");
    x.session.makerDb = QStringLiteral("Nissan");
    x.session.vehicleType = QStringLiteral("ミニバン");
    x.session.typeTable = QStringLiteral("T_Minivan");
    c.start->button("cmdSin")->click();

    auto *button = child<QPushButton>(c.sheet, "cmdSakusei");
    ASSERT_NE(button, nullptr);
    ASSERT_TRUE(button->isEnabled());
    QString partName;
    whenModal("frmSakusei", [&partName](QDialog *editor) {
        EXPECT_EQ(editor->windowTitle(), QStringLiteral("作業作成 - 日産/ミニバン"));
        child<QListWidget>(editor, "dlstB")->setCurrentRow(0);
        child<QListWidget>(editor, "dlstK")->setCurrentRow(0);
        auto *parts = child<QTableWidget>(editor, "HFlg4");
        parts->setCurrentCell(0, 1);
        partName = parts->item(0, 1)->text();
        QTest::keyClicks(child<QLineEdit>(editor, "txtSisu"), "1.5");
        QTest::keyClicks(child<QLineEdit>(editor, "txtBTan"), "12345");
        QTest::keyClicks(child<QLineEdit>(editor, "txtBKo"), "2");
        child<QPushButton>(editor, "cmdAdd")->click();
        child<QPushButton>(editor, "cmdOK")->click();
    });
    button->click();

    ASSERT_EQ(x.session.rows.size(), 1);
    auto *grid = child<QTableWidget>(c.sheet, "HFlgSS");
    ASSERT_NE(grid, nullptr);
    EXPECT_EQ(grid->item(0, 2)->text(), partName);
    EXPECT_EQ(grid->item(0, 6)->text(), QStringLiteral("7,500")); // the sheet shows "#,###"
    EXPECT_EQ(x.session.rows[0][ColLabour], QStringLiteral("7500")); // the row table keeps whole yen
    // A = 7,500 + 24,690 = 32,190; tax 10 % = 3,219; due 35,409.
    EXPECT_EQ(sheetLabel(c, "lblKoutin"), QStringLiteral("7,500"));
    EXPECT_EQ(sheetLabel(c, "lblBuhin"), QStringLiteral("24,690"));
    EXPECT_EQ(sheetLabel(c, "lblSkei"), QStringLiteral("32,190"));
    EXPECT_EQ(sheetLabel(c, "lblSZei"), QStringLiteral("3,219"));
    EXPECT_EQ(sheetLabel(c, "lblSeikyu"), QStringLiteral("35,409"));

    // Cancel in the editor leaves the sheet as it is.
    whenModal("frmSakusei", [](QDialog *editor) {
        QTest::keyClicks(child<QLineEdit>(editor, "txtSisu"), "3");
        child<QPushButton>(editor, "cmdAdd")->click();
        child<QPushButton>(editor, "cmdCancel")->click();
    });
    button->click();
    EXPECT_EQ(x.session.rows.size(), 1);
    EXPECT_EQ(sheetLabel(c, "lblSkei"), QStringLiteral("32,190"));
}

TEST(WorkItemsWiring, WithoutACatalogueTheEditorAsksForOneFirst)
{
    AppFixture x;
    app::AppContext &c = x.context();
    c.start->button("cmdSin")->click();
    whenModal("dlgCarType", [](QDialog *carType) {
        child<QListWidget>(carType, "dlstMeka")->setCurrentRow(2);
        child<QListWidget>(carType, "dlstType")->setCurrentRow(1);
        whenModal("frmSakusei", [](QDialog *editor) {
            EXPECT_EQ(editor->windowTitle(), QStringLiteral("作業作成 - ホンダ/ミニバン"));
            EXPECT_GE(child<QListWidget>(editor, "dlstB")->count(), 4);
            child<QPushButton>(editor, "cmdCancel")->click();
        });
        child<QPushButton>(carType, "OKButton")->click();
    });
    child<QPushButton>(c.sheet, "cmdSakusei")->click();
    ASSERT_FALSE(x.messages.shown.isEmpty());
    EXPECT_EQ(x.messages.shown.first().text,
              QStringLiteral("部品データの選択条件がありません。条件を選択してください。"));
    EXPECT_EQ(x.session.makerDb, QStringLiteral("Honda"));
    EXPECT_TRUE(x.session.rows.isEmpty());
}

TEST(WorkItemsWiring, SettingsButtonsOpenTheCatalogueAndMakerEditors)
{
    AppFixture x;
    app::AppContext &c = x.context();
    for (const char *name : {"Command1", "Command11"})
        EXPECT_TRUE(c.settings->button(name)->isEnabled()) << name;
    whenModal("frmBuhin", [](QDialog *d) { child<QPushButton>(d, "cmdClose")->click(); });
    c.settings->button("Command1")->click();
    whenModal("frmNewMeka", [](QDialog *d) {
        EXPECT_GT(child<QTableWidget>(d, "DGM")->rowCount(), 0);
        child<QPushButton>(d, "cmdClose")->click();
    });
    c.settings->button("Command11")->click();
}

} // namespace
