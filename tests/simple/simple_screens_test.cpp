#include "simple_fixture.h"

#include "modal_answerer.h"
#include "scripted_messages.h"
#include "simple/dlg_car.h"
#include "simple/dlg_s_select.h"
#include "simple/frm_kani.h"
#include "simple/simple_flow.h"
#include "widget_lookup.h"

#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QTableWidget>
#include <QTest>

using namespace est;
using est::test::child;
using namespace est::simple;
using est::test::ModalAnswerer;
using est::test::ScriptedMessages;
using est::test::SimpleFixture;

namespace {

QStringList items(QListWidget *list)
{
    QStringList result;
    for (int i = 0; i < list->count(); ++i)
        result.append(list->item(i)->text());
    return result;
}

// Chooses the entry of that text as a user clicking it would.
void pick(QListWidget *list, const QString &text)
{
    const QList<QListWidgetItem *> found = list->findItems(text, Qt::MatchExactly);
    ASSERT_EQ(found.size(), 1) << text.toStdString();
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(found.first()).center());
}

void clickPanel(QWidget *form, const char *picture)
{
    auto *panel = child<QWidget>(form, picture);
    QTest::mouseClick(panel, Qt::LeftButton, {}, panel->rect().center());
}

void chooseRow(QTableWidget *grid, int row)
{
    QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, grid->visualItemRect(grid->item(row, 1)).center());
}

const QString kNotChosen = QStringLiteral("選択項目が選択されていません。お確かめ下さい。");

} // namespace

TEST(DlgSSelect, StartsOnTheWorkKindInForceAndStoresTheChosenOne)
{
    SimpleFixture x;
    ScriptedMessages messages;
    DlgSSelect dialog(messages, x.store.get(), 2);
    EXPECT_TRUE(child<QRadioButton>(&dialog, "optZP")->isChecked());
    EXPECT_EQ(child<QRadioButton>(&dialog, "optKH")->text(), QStringLiteral("キズ・ヘコミ修理"));
    child<QRadioButton>(&dialog, "optKH")->click();
    child<QPushButton>(&dialog, "cmdOK")->click();
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    EXPECT_EQ(dialog.workKind(), 1);
}

TEST(DlgSSelect, RefusesOkWithoutAWorkKind)
{
    ScriptedMessages messages;
    DlgSSelect dialog(messages, nullptr, 0);
    dialog.show();
    child<QPushButton>(&dialog, "cmdOK")->click();
    EXPECT_EQ(messages.lastText(), kNotChosen);
    EXPECT_TRUE(dialog.isVisible());
}

TEST(DlgCar, EachListIsNarrowedByTheChoiceBeforeIt)
{
    SimpleFixture x;
    ScriptedMessages messages;
    DlgCar dialog(messages, *x.store, {2, 0, 0, 0});
    dialog.show();
    auto *a = child<QListWidget>(&dialog, "dlstSKA");
    auto *b = child<QListWidget>(&dialog, "dlstSKB");
    auto *colour = child<QListWidget>(&dialog, "dlstColor");
    EXPECT_EQ(items(a), QStringList({QStringLiteral("軽自動車"), QStringLiteral("小型自動車"), QStringLiteral("普通自動車")}));
    EXPECT_EQ(items(b).size(), 5);
    EXPECT_EQ(items(colour).size(), 3);

    pick(a, QStringLiteral("軽自動車"));
    EXPECT_EQ(items(b), QStringList({QStringLiteral("ハッチバック"), QStringLiteral("ミニバン")}));
    pick(b, QStringLiteral("ミニバン"));
    EXPECT_EQ(items(colour), QStringList({QStringLiteral("ソリッド"), QStringLiteral("メタリック")}));

    child<QPushButton>(&dialog, "cmdOK")->click();
    EXPECT_EQ(messages.lastText(), kNotChosen);
    EXPECT_TRUE(dialog.isVisible());

    pick(colour, QStringLiteral("メタリック"));
    child<QPushButton>(&dialog, "cmdOK")->click();
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    EXPECT_EQ(dialog.state().workKind, 2);
    EXPECT_EQ(dialog.state().classA, 1);
    EXPECT_EQ(dialog.state().classB, 3);
    EXPECT_EQ(dialog.state().colour, 2);
}

// Focus gives a list a current row; only a selection counts as the user's choice.
TEST(DlgCar, AListThatOnlyHasTheFocusIsNotChosen)
{
    SimpleFixture x;
    ScriptedMessages messages;
    DlgCar dialog(messages, *x.store, {1, 0, 0, 0});
    dialog.show();
    auto *a = child<QListWidget>(&dialog, "dlstSKA");
    a->setFocus();
    a->setCurrentRow(0, QItemSelectionModel::NoUpdate);
    EXPECT_EQ(items(child<QListWidget>(&dialog, "dlstSKB")).size(), 5);
    pick(child<QListWidget>(&dialog, "dlstSKB"), QStringLiteral("セダン"));
    pick(child<QListWidget>(&dialog, "dlstColor"), QStringLiteral("パール"));
    child<QPushButton>(&dialog, "cmdOK")->click();
    EXPECT_EQ(messages.lastText(), kNotChosen);
}

TEST(DlgCar, TheClassesInForceStartChosen)
{
    SimpleFixture x;
    ScriptedMessages messages;
    DlgCar dialog(messages, *x.store, {1, 3, 4, 3});
    child<QPushButton>(&dialog, "cmdOK")->click();
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    EXPECT_EQ(dialog.state().classB, 4);
    EXPECT_EQ(dialog.state().colour, 3);
}

TEST(FrmKani, AClickedPanelListsItsPricesAndTheChosenRowFillsTheBoxes)
{
    SimpleFixture x;
    ScriptedMessages messages;
    FrmKani form(messages, x.store.get(), {1, 2, 1, 1});
    form.show();
    EXPECT_EQ(child<QLabel>(&form, "lbl1")->text(), QStringLiteral("1"));
    EXPECT_EQ(child<QLabel>(&form, "lbl2")->text(), QStringLiteral("2"));
    EXPECT_EQ(child<QLabel>(&form, "lbl3")->text(), QStringLiteral("1"));
    EXPECT_EQ(child<QLabel>(&form, "lbl4")->text(), QStringLiteral("1"));
    auto *grid = child<QTableWidget>(&form, "DataGrid1");
    EXPECT_EQ(grid->rowCount(), 2); // the jobs of no panel
    EXPECT_TRUE(grid->selectedItems().isEmpty());
    EXPECT_TRUE(child<QLineEdit>(&form, "txtSBui")->text().isEmpty());

    clickPanel(&form, "imgFrDoor");
    EXPECT_EQ(child<QLabel>(&form, "lbl5")->text(), QStringLiteral("3"));
    ASSERT_EQ(grid->rowCount(), 2);
    EXPECT_EQ(grid->item(1, 2)->text(), QStringLiteral("キズ・ヘコミ修理（中）"));
    EXPECT_EQ(grid->item(1, 3)->text(), QStringLiteral("5,100"));
    EXPECT_EQ(grid->item(1, 4)->text(), QStringLiteral("24,000"));
    chooseRow(grid, 1);
    EXPECT_EQ(child<QLabel>(&form, "lblNo")->text(), grid->item(1, 0)->text());
    EXPECT_EQ(child<QLineEdit>(&form, "txtSBui")->text(), QStringLiteral("フロントドア"));
    EXPECT_EQ(child<QLineEdit>(&form, "txtSNaiyo")->text(), QStringLiteral("キズ・ヘコミ修理（中）"));
    EXPECT_EQ(child<QLineEdit>(&form, "txtKotin")->text(), QStringLiteral("24000"));
    EXPECT_EQ(child<QLineEdit>(&form, "txtZairyo")->text(), QStringLiteral("5100"));

    child<QPushButton>(&form, "cmdOK")->click();
    EXPECT_EQ(form.result(), QDialog::Accepted);
    ASSERT_TRUE(form.entry());
    EXPECT_EQ(form.entry()->partName, QStringLiteral("フロントドア"));
    EXPECT_EQ(form.entry()->labour, 24000);
    EXPECT_EQ(form.entry()->material, 5100);
}

TEST(FrmKani, PanelPaintingOpensOnAnEmptyGrid)
{
    SimpleFixture x;
    ScriptedMessages messages;
    FrmKani form(messages, x.store.get(), {2, 3, 4, 2});
    auto *grid = child<QTableWidget>(&form, "DataGrid1");
    EXPECT_EQ(grid->rowCount(), 0);
    clickPanel(&form, "imgFood");
    EXPECT_EQ(child<QLabel>(&form, "lbl5")->text(), QStringLiteral("6"));
    ASSERT_EQ(grid->rowCount(), 1);
    EXPECT_EQ(grid->item(0, 1)->text(), QStringLiteral("ボンネット"));
    clickPanel(&form, "imgSraidDor");
    EXPECT_EQ(child<QLabel>(&form, "lbl5")->text(), QStringLiteral("11"));
    EXPECT_EQ(grid->rowCount(), 0); // an SUV has no sliding door: empty, and no message
    EXPECT_TRUE(messages.shown.isEmpty());
}

TEST(FrmKani, EditedAmountsAreCheckedOnOk)
{
    SimpleFixture x;
    ScriptedMessages messages;
    FrmKani form(messages, x.store.get(), {1, 2, 1, 1});
    form.show();
    child<QPushButton>(&form, "cmdOK")->click();
    EXPECT_EQ(messages.lastText(), QStringLiteral("単価の行を選択してください。"));
    chooseRow(child<QTableWidget>(&form, "DataGrid1"), 0);
    child<QLineEdit>(&form, "txtKotin")->setText(QStringLiteral("1,5OO"));
    child<QPushButton>(&form, "cmdOK")->click();
    EXPECT_TRUE(form.isVisible());
    EXPECT_FALSE(form.entry());
    child<QLineEdit>(&form, "txtKotin")->setText(QStringLiteral("1,500"));
    child<QPushButton>(&form, "cmdOK")->click();
    ASSERT_TRUE(form.entry());
    EXPECT_EQ(form.entry()->labour, 1500);
}

// A row chosen for one panel is not handed on after another panel is clicked.
TEST(FrmKani, ClickingAnotherPanelDropsTheChosenRow)
{
    SimpleFixture x;
    ScriptedMessages messages;
    FrmKani form(messages, x.store.get(), {1, 2, 1, 1});
    form.show();
    clickPanel(&form, "imgFrDoor");
    chooseRow(child<QTableWidget>(&form, "DataGrid1"), 0);
    EXPECT_EQ(child<QLineEdit>(&form, "txtSBui")->text(), QStringLiteral("フロントドア"));
    clickPanel(&form, "imgRoof");
    EXPECT_TRUE(child<QLineEdit>(&form, "txtSBui")->text().isEmpty());
    EXPECT_TRUE(child<QLineEdit>(&form, "txtKotin")->text().isEmpty());
    EXPECT_TRUE(child<QLabel>(&form, "lblNo")->text().isEmpty());
    child<QPushButton>(&form, "cmdOK")->click();
    EXPECT_EQ(messages.lastText(), QStringLiteral("単価の行を選択してください。"));
    EXPECT_FALSE(form.entry());
    chooseRow(child<QTableWidget>(&form, "DataGrid1"), 0);
    child<QPushButton>(&form, "cmdOK")->click();
    ASSERT_TRUE(form.entry());
    EXPECT_EQ(form.entry()->partName, QStringLiteral("ルーフ"));
}

TEST(FrmKani, CancelHandsNothingOn)
{
    SimpleFixture x;
    ScriptedMessages messages;
    FrmKani form(messages, x.store.get(), {1, 2, 1, 1});
    form.show();
    chooseRow(child<QTableWidget>(&form, "DataGrid1"), 0);
    child<QPushButton>(&form, "cmdCancel")->click();
    EXPECT_EQ(form.result(), QDialog::Rejected);
    EXPECT_FALSE(form.entry());
}

TEST(SimpleFlow, WithoutVehicleClassesItAsksAndNoEndsIt)
{
    est::test::TempAppFolder folder;
    Session session;
    ScriptedMessages messages;
    messages.answer(Answer::No);
    SimpleFlow flow(session, messages, folder.path());
    EXPECT_FALSE(flow.run(nullptr));
    ASSERT_EQ(messages.shown.size(), 1);
    EXPECT_EQ(messages.shown.first().text, QStringLiteral("メーカー名と車種が設定されていません。設定しますか？"));
    EXPECT_EQ(messages.shown.first().title, QStringLiteral("設定されていません。"));
}

// 簡易見積 → optKH → 普通自動車, ミニバン, パール → the sliding door → its first row → OK.
TEST(SimpleFlow, TheWholeChainStoresTheClassesAndHandsOnTheChosenRow)
{
    est::test::TempAppFolder folder;
    Session session;
    ScriptedMessages messages;
    messages.answer(Answer::Yes);
    ModalAnswerer answer;
    answer.on(QStringLiteral("dlgSSelect"), [](QWidget *d) {
        child<QRadioButton>(d, "optKH")->click();
        child<QPushButton>(d, "cmdOK")->click();
    });
    answer.on(QStringLiteral("dlgCar"), [](QWidget *d) {
        pick(child<QListWidget>(d, "dlstSKA"), QStringLiteral("普通自動車"));
        pick(child<QListWidget>(d, "dlstSKB"), QStringLiteral("ミニバン"));
        pick(child<QListWidget>(d, "dlstColor"), QStringLiteral("パール"));
        child<QPushButton>(d, "cmdOK")->click();
    });
    answer.on(QStringLiteral("frmKani"), [](QWidget *d) {
        clickPanel(d, "imgSraidDor");
        chooseRow(child<QTableWidget>(d, "DataGrid1"), 0);
        child<QPushButton>(d, "cmdOK")->click();
    });
    SimpleFlow flow(session, messages, folder.path());
    const auto entry = flow.run(nullptr);
    ASSERT_TRUE(entry);
    EXPECT_EQ(session.simple.workKind, 1);
    EXPECT_EQ(session.simple.classA, 3);
    EXPECT_EQ(session.simple.classB, 3);
    EXPECT_EQ(session.simple.colour, 3);
    // 15,000 × 1.3 × 1.15 = 22,425 → 22,400, plus 3,000 for pearl; 7,500 × 0.6 × 1.5 = 6,750.
    EXPECT_EQ(entry->partName, QStringLiteral("スライドドア"));
    EXPECT_EQ(entry->content, QStringLiteral("キズ・ヘコミ修理（小）"));
    EXPECT_EQ(entry->labour, 25400);
    EXPECT_EQ(entry->material, 6800);
}

TEST(SimpleFlow, WithVehicleClassesChosenThePriceScreenOpensAtOnce)
{
    est::test::TempAppFolder folder;
    Session session;
    session.simple = {2, 2, 1, 1};
    ScriptedMessages messages;
    ModalAnswerer answer;
    answer.on(QStringLiteral("frmKani"), [](QWidget *d) {
        clickPanel(d, "imgRoof");
        chooseRow(child<QTableWidget>(d, "DataGrid1"), 0);
        child<QPushButton>(d, "cmdOK")->click();
    });
    SimpleFlow flow(session, messages, folder.path());
    const auto entry = flow.run(nullptr);
    ASSERT_TRUE(entry);
    EXPECT_EQ(entry->partName, QStringLiteral("ルーフ"));
    EXPECT_TRUE(messages.shown.isEmpty());
    EXPECT_EQ(answer.seen(QStringLiteral("dlgSSelect")), 0);
}

TEST(SimpleFlow, ChangingTheClassesOnThePriceScreenReloadsIt)
{
    est::test::TempAppFolder folder;
    Session session;
    session.simple = {1, 2, 1, 1};
    ScriptedMessages messages;
    ModalAnswerer answer;
    answer.on(QStringLiteral("dlgSSelect"), [](QWidget *d) {
        child<QRadioButton>(d, "optZP")->click();
        child<QPushButton>(d, "cmdOK")->click();
    });
    answer.on(QStringLiteral("dlgCar"), [](QWidget *d) {
        pick(child<QListWidget>(d, "dlstSKA"), QStringLiteral("軽自動車"));
        pick(child<QListWidget>(d, "dlstSKB"), QStringLiteral("ハッチバック"));
        pick(child<QListWidget>(d, "dlstColor"), QStringLiteral("ソリッド"));
        child<QPushButton>(d, "cmdOK")->click();
    });
    answer.on(QStringLiteral("frmKani"), [](QWidget *d) {
        EXPECT_EQ(child<QTableWidget>(d, "DataGrid1")->rowCount(), 2);
        child<QPushButton>(d, "cmdKubun")->click();
        EXPECT_EQ(child<QLabel>(d, "lbl1")->text(), QStringLiteral("2"));
        EXPECT_EQ(child<QLabel>(d, "lbl2")->text(), QStringLiteral("1"));
        EXPECT_EQ(child<QTableWidget>(d, "DataGrid1")->rowCount(), 0);
        child<QPushButton>(d, "cmdCancel")->click();
    });
    SimpleFlow flow(session, messages, folder.path());
    EXPECT_FALSE(flow.run(nullptr));
    EXPECT_EQ(session.simple.workKind, 2);
    EXPECT_EQ(session.simple.classB, 2);
}

TEST(SimpleFlow, ADamagedFileIsReportedAndNothingOpens)
{
    est::test::TempAppFolder folder;
    QDir().mkpath(folder.file(QStringLiteral("Data")));
    QFile file(folder.file(QStringLiteral("Data/EasyEstimate.sqlite")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("this is not a database");
    file.close();
    Session session;
    session.simple = {1, 1, 2, 1};
    ScriptedMessages messages;
    SimpleFlow flow(session, messages, folder.path());
    EXPECT_FALSE(flow.run(nullptr));
    ASSERT_EQ(messages.shown.size(), 1);
    EXPECT_TRUE(messages.lastText().startsWith(QStringLiteral("簡易見積のデータ"))) << messages.lastText().toStdString();
    EXPECT_EQ(messages.shown.first().icon, MessageIcon::Critical);
}
