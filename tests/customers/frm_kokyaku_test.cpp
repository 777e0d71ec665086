#include "screen_fixture.h"

#include <QCheckBox>
#include <QLabel>
#include <QSignalSpy>
#include <QStringListModel>
#include <QTableWidget>
#include <gtest/gtest.h>

using namespace est;
using namespace est::customers;
using est::test::ScreenFixture;
using Kind = est::test::ShownMessage::Kind;

TEST(FrmKokyaku, OpensOnTheFirstCustomerWithBlocksClosed)
{
    ScreenFixture x;
    x.open();
    EXPECT_EQ(x.screen->objectName(), QStringLiteral("frmKokyaku"));
    EXPECT_EQ(x.text("txtKNo"), QStringLiteral("1"));
    EXPECT_EQ(x.text("txtNamae"), QStringLiteral("青木　一郎"));
    EXPECT_EQ(x.find<QLabel>("lbl1")->text(), QStringLiteral("車輌データの台数は 1 台です。"));
    EXPECT_EQ(x.find<QTableWidget>("DG1")->rowCount(), 1);
    EXPECT_EQ(x.text("txtSyamei"), QStringLiteral("カローラ"));
    EXPECT_TRUE(x.find<QLineEdit>("txtNamae")->isReadOnly());
    EXPECT_FALSE(x.find<QPushButton>("cmdOkJ")->isEnabled());
    EXPECT_FALSE(x.find<QPushButton>("cmdOkS")->isEnabled());
    EXPECT_EQ(x.find<QComboBox>("cboIroSyurui")->count(), 4);
    EXPECT_EQ(x.find<QComboBox>("cboKoukinou")->count(), 2);
    EXPECT_GE(x.find<QComboBox>("cboMeka")->findText(QStringLiteral("マツダ")), 0);
    EXPECT_TRUE(x.text("cboKName").isEmpty());
    for (const char *name : {"cmdNew", "cmdSNew", "cmdEditJ", "cmdCancelJ", "cmdEditS", "cmdCancelS", "cmdDel",
                             "cmdSDel", "cmdSelect", "cmdPrev", "cmdNext", "cmdOK", "cmdCancel"})
        x.find<QPushButton>(name);
}

TEST(FrmKokyaku, SearchShowsTheCustomerAndItsVehicles)
{
    ScreenFixture x;
    x.open();
    x.search(QStringLiteral("上野　健太"));
    EXPECT_TRUE(x.messages.shown.isEmpty());
    EXPECT_EQ(x.text("txtKNo"), QStringLiteral("3"));
    EXPECT_EQ(x.text("txtKaisyaN"), QStringLiteral("有限会社うえの運送"));
    EXPECT_TRUE(x.find<QCheckBox>("chkKKubun")->isChecked());
    EXPECT_EQ(x.find<QLabel>("lbl1")->text(), QStringLiteral("車輌データの台数は 2 台です。"));
    auto *grid = x.find<QTableWidget>("DG1");
    ASSERT_EQ(grid->rowCount(), 2);
    EXPECT_EQ(x.text("txtSNo"), QStringLiteral("3"));
    grid->setCurrentCell(1, 4);
    EXPECT_EQ(x.text("txtSNo"), QStringLiteral("4"));
    EXPECT_EQ(x.text("txtSyamei"), QStringLiteral("ハイエースバン"));
    EXPECT_EQ(x.text("cboMeka"), QStringLiteral("トヨタ"));
}

TEST(FrmKokyaku, SearchWithoutANameIsRefused)
{
    ScreenFixture x;
    x.open();
    x.search(QString());
    ASSERT_EQ(x.messages.shown.size(), 1);
    EXPECT_EQ(x.messages.lastText(), QStringLiteral("検索する名前が選択されてません。"));
    EXPECT_EQ(x.messages.shown.last().title, QStringLiteral("検索エラー"));
    EXPECT_EQ(x.messages.shown.last().icon, MessageIcon::Critical);
    EXPECT_EQ(x.messages.shown.last().kind, Kind::OkCancel);
    EXPECT_EQ(x.text("txtKNo"), QStringLiteral("1"));
}

class ScreenNameSearch : public ::testing::TestWithParam<const char *>
{
};

TEST_P(ScreenNameSearch, FindsTheFirstCustomerOfThatName)
{
    ScreenFixture x;
    const QString name = QString::fromUtf8(GetParam());
    x.addCustomer("20", name);
    x.addCustomer("11", name); // by value 11 comes before 20
    x.addCustomer("12", name + QStringLiteral("X"));
    x.open();
    EXPECT_TRUE(x.find<QComboBox>("cboKName")->findText(name) >= 0);
    x.search(name);
    EXPECT_TRUE(x.messages.shown.isEmpty()) << x.messages.lastText().toStdString();
    EXPECT_EQ(x.text("txtKNo"), QStringLiteral("11"));
    EXPECT_EQ(x.text("txtNamae"), name);
    EXPECT_EQ(x.find<QLabel>("lbl1")->text(), QStringLiteral("車輌データの台数は 0 台です。"));
}

INSTANTIATE_TEST_SUITE_P(Names, ScreenNameSearch, ::testing::Values("O'Neill", "田中,一郎", "佐々木　'次郎'"));

TEST(FrmKokyaku, CustomerWithTwoVehiclesIsNotDeleted)
{
    ScreenFixture x;
    x.open();
    x.search(QStringLiteral("上野　健太"));
    const int customers = x.customers(), vehicles = x.vehicles();
    x.click("cmdDel");
    ASSERT_EQ(x.messages.shown.size(), 1);
    EXPECT_EQ(x.messages.shown.last().kind, Kind::Inform); // refused without asking
    EXPECT_EQ(x.messages.lastText(), QStringLiteral("登録している自動車が2台以上あります。車両を削除してください。"));
    // The program's own title (an empty one) and no icon.
    EXPECT_TRUE(x.messages.shown.last().title.isEmpty());
    EXPECT_EQ(x.messages.shown.last().icon, MessageIcon::None);
    EXPECT_EQ(x.customers(), customers);
    EXPECT_EQ(x.vehicles(), vehicles);
    EXPECT_EQ(x.text("txtKNo"), QStringLiteral("3"));
}

TEST(FrmKokyaku, CustomerWithOneVehicleGoesWithItOnYes)
{
    ScreenFixture x;
    x.open();
    x.search(QStringLiteral("江藤　美咲"));
    x.click("cmdDel"); // unscripted: No
    ASSERT_EQ(x.messages.shown.size(), 1);
    EXPECT_EQ(x.messages.lastText(), QStringLiteral("削除します。\nこのデータは失われます。\nよろしいですか？"));
    EXPECT_EQ(x.messages.shown.last().title, QStringLiteral("削除します"));
    EXPECT_EQ(x.messages.shown.last().kind, Kind::YesNo);
    EXPECT_TRUE(x.hasCustomer("4"));

    x.messages.answer(Answer::Yes);
    x.click("cmdDel");
    EXPECT_FALSE(x.hasCustomer("4"));
    EXPECT_FALSE(x.hasVehicle("5"));
    EXPECT_EQ(x.text("txtKNo"), QStringLiteral("1")); // back on the first customer
    EXPECT_EQ(x.find<QComboBox>("cboKName")->findText(QStringLiteral("江藤　美咲")), -1);
}

TEST(FrmKokyaku, DeletedLastCustomerNumberIsGivenAgain)
{
    ScreenFixture x;
    x.open();
    x.search(QStringLiteral("小川　修"));
    x.messages.answer(Answer::Yes);
    x.click("cmdDel");
    ASSERT_FALSE(x.hasCustomer("5"));
    x.click("cmdNew");
    EXPECT_EQ(x.text("txtKNo"), QStringLiteral("5"));
    EXPECT_EQ(x.text("txtSNo"), QStringLiteral("6"));
}

TEST(FrmKokyaku, NewCustomerIsSavedWithItsFirstVehicle)
{
    ScreenFixture x;
    x.open();
    x.click("cmdNew");
    EXPECT_EQ(x.text("txtKNo"), QStringLiteral("6"));
    EXPECT_EQ(x.text("txtSNo"), QStringLiteral("7"));
    EXPECT_TRUE(x.text("txtNamae").isEmpty());
    EXPECT_FALSE(x.find<QLineEdit>("txtNamae")->isReadOnly());
    EXPECT_FALSE(x.find<QLineEdit>("txtSyamei")->isReadOnly());
    EXPECT_TRUE(x.find<QLineEdit>("txtKNo")->isReadOnly());
    EXPECT_FALSE(x.find<QPushButton>("cmdKensaku")->isEnabled());
    EXPECT_FALSE(x.find<QPushButton>("cmdSelect")->isEnabled());
    x.type("txtNamae", QStringLiteral("新井　和也"));
    x.type("txtSyamei", QStringLiteral("テストカー"));
    x.find<QComboBox>("cboIroSyurui")->setCurrentIndex(2);
    const int customers = x.customers();
    x.click("cmdOkS");
    EXPECT_TRUE(x.messages.shown.isEmpty()) << x.messages.lastText().toStdString();
    EXPECT_EQ(x.customers(), customers + 1);
    const std::optional<Customer> saved = x.store->customer(QStringLiteral("6"));
    ASSERT_TRUE(saved);
    EXPECT_EQ((*saved)[CustomerField::Namae], QStringLiteral("新井　和也"));
    const QList<Vehicle> vehicles = x.store->vehiclesOf(QStringLiteral("6"));
    ASSERT_EQ(vehicles.size(), 1);
    EXPECT_EQ(vehicles[0][VehicleField::SNo], QStringLiteral("7"));
    EXPECT_EQ(vehicles[0][VehicleField::Syamei], QStringLiteral("テストカー"));
    EXPECT_EQ(vehicles[0][VehicleField::IroSyurui], QStringLiteral("ﾒﾀﾘｯｸ"));
    EXPECT_EQ(x.find<QLabel>("lbl1")->text(), QStringLiteral("車輌データの台数は 1 台です。"));
    EXPECT_TRUE(x.find<QLineEdit>("txtNamae")->isReadOnly());
    EXPECT_GE(x.find<QComboBox>("cboKName")->findText(QStringLiteral("新井　和也")), 0);
}

TEST(FrmKokyaku, CancelledNewCustomerWritesNothing)
{
    ScreenFixture x;
    x.open();
    x.search(QStringLiteral("石田　花子"));
    const int customers = x.customers(), vehicles = x.vehicles();
    x.click("cmdNew");
    x.type("txtNamae", QStringLiteral("取り消す人"));
    x.click("cmdCancelJ");
    EXPECT_EQ(x.customers(), customers);
    EXPECT_EQ(x.vehicles(), vehicles);
    EXPECT_EQ(x.text("txtNamae"), QStringLiteral("石田　花子"));
    EXPECT_TRUE(x.find<QLineEdit>("txtNamae")->isReadOnly());
}

TEST(FrmKokyaku, EditedBlocksAreSavedWithTheirMasks)
{
    ScreenFixture x;
    x.open();
    x.click("cmdEditJ");
    EXPECT_FALSE(x.find<QPushButton>("cmdEditS")->isEnabled());
    EXPECT_TRUE(x.find<QLineEdit>("txtSyamei")->isReadOnly()); // the other block stays closed
    x.type("txtKPost", QStringLiteral("1500001"));
    EXPECT_EQ(x.text("txtKPost"), QStringLiteral("150-0001"));
    x.type("txtKaisyaN", QStringLiteral("青木商店"));
    x.find<QCheckBox>("chkKKubun")->setChecked(true);
    x.click("cmdOkJ");
    Customer c = *x.store->customer(QStringLiteral("1"));
    EXPECT_EQ(c[CustomerField::KaisyaPost], QStringLiteral("150-0001"));
    EXPECT_EQ(c[CustomerField::KaisyaN], QStringLiteral("青木商店"));
    EXPECT_EQ(c[CustomerField::KKubun], QStringLiteral("1"));

    x.click("cmdEditS");
    x.type("txtKataSitei", QStringLiteral("123"));
    x.type("txtRuibetu", QStringLiteral("45"));
    EXPECT_EQ(x.text("txtKataSitei"), QStringLiteral("00123"));
    EXPECT_EQ(x.text("txtRuibetu"), QStringLiteral("0045"));
    x.type("txtSoukou", QStringLiteral("50000"));
    x.click("cmdOkS");
    const Vehicle v = x.store->vehiclesOf(QStringLiteral("1")).at(0);
    EXPECT_EQ(v[VehicleField::KataSitei], QStringLiteral("00123"));
    EXPECT_EQ(v[VehicleField::Ruibetu], QStringLiteral("0045"));
    EXPECT_EQ(v[VehicleField::Soukou], QStringLiteral("50000"));

    x.click("cmdEditS");
    x.type("txtSoukou", QStringLiteral("1"));
    x.click("cmdCancelS");
    EXPECT_EQ(x.text("txtSoukou"), QStringLiteral("50000"));
    EXPECT_EQ(x.store->vehiclesOf(QStringLiteral("1")).at(0)[VehicleField::Soukou], QStringLiteral("50000"));
}

TEST(FrmKokyaku, FailedSaveIsReportedAndTheBlockStaysOpen)
{
    ScreenFixture x;
    x.open();
    x.exec(QStringLiteral("CREATE TRIGGER refuse BEFORE UPDATE ON Kokyaku_Jyouhou "
                          "BEGIN SELECT RAISE(ABORT, 'locked'); END"));
    x.click("cmdEditJ");
    x.type("txtMemo", QStringLiteral("memo"));
    x.click("cmdOkJ");
    ASSERT_EQ(x.messages.shown.size(), 1);
    EXPECT_TRUE(x.messages.lastText().contains(QStringLiteral("locked")));
    EXPECT_FALSE(x.find<QLineEdit>("txtMemo")->isReadOnly());
    EXPECT_EQ(x.text("txtMemo"), QStringLiteral("memo"));
}

TEST(FrmKokyaku, DeleteVehicleAsksFirst)
{
    ScreenFixture x;
    x.open();
    x.search(QStringLiteral("上野　健太"));
    x.find<QTableWidget>("DG1")->setCurrentCell(1, 0);
    x.click("cmdSDel");
    EXPECT_EQ(x.messages.lastText(), QStringLiteral("車両データを削除します。よろしいですか？"));
    EXPECT_EQ(x.messages.shown.last().title, QStringLiteral("削除"));
    EXPECT_TRUE(x.hasVehicle("4"));
    x.messages.answer(Answer::Yes);
    x.click("cmdSDel");
    EXPECT_FALSE(x.hasVehicle("4"));
    EXPECT_TRUE(x.hasVehicle("3"));
    EXPECT_EQ(x.find<QLabel>("lbl1")->text(), QStringLiteral("車輌データの台数は 1 台です。"));
}

TEST(FrmKokyaku, NavigationMovesInNumberOrder)
{
    ScreenFixture x;
    x.open();
    x.click("cmdPrev");
    EXPECT_EQ(x.text("txtKNo"), QStringLiteral("1"));
    x.click("cmdNext");
    EXPECT_EQ(x.text("txtKNo"), QStringLiteral("2"));
    x.click("cmdNext");
    EXPECT_EQ(x.text("txtKNo"), QStringLiteral("3"));
    EXPECT_EQ(x.find<QLabel>("lbl1")->text(), QStringLiteral("車輌データの台数は 2 台です。"));
    x.click("cmdPrev");
    EXPECT_EQ(x.text("txtKNo"), QStringLiteral("2"));
}

TEST(FrmKokyaku, SelectHandsCustomerAndChosenVehicleToTheSession)
{
    ScreenFixture x;
    x.open();
    QSignalSpy selected(x.screen.get(), &FrmKokyaku::selected);
    x.search(QStringLiteral("上野　健太"));
    x.find<QTableWidget>("DG1")->setCurrentCell(1, 0);
    x.click("cmdSelect");
    EXPECT_EQ(selected.count(), 1);
    ASSERT_EQ(x.session.customer.size(), 18);
    ASSERT_EQ(x.session.vehicle.size(), 19);
    EXPECT_EQ(x.session.customer[0], QStringLiteral("3"));
    EXPECT_EQ(x.session.customer[1], QStringLiteral("4"));
    EXPECT_EQ(x.session.customer[2], QStringLiteral("上野　健太"));
    EXPECT_EQ(x.session.customer[16], QStringLiteral("220-0002"));
    EXPECT_EQ(x.session.customer[17], QStringLiteral("220-0001"));
    EXPECT_EQ(x.session.vehicle[4], QStringLiteral("ハイエースバン"));
    EXPECT_EQ(x.session.vehicle[12], QStringLiteral("96100"));
    EXPECT_EQ(x.session.vehicle[17], QStringLiteral("96100"));
    EXPECT_EQ(x.session.vehicle[18], QStringLiteral("2024/07/14"));
    EXPECT_EQ(x.session.header.customerName, QStringLiteral("上野　健太"));
    EXPECT_EQ(x.session.header.customerCompany, QStringLiteral("有限会社うえの運送"));
    EXPECT_EQ(x.session.header.registration, QStringLiteral("横浜400な30-04"));
    EXPECT_EQ(x.session.header.colour, QStringLiteral("058"));
}

TEST(FrmKokyaku, RegistrationDialogFillsTheVehiclesNumber)
{
    ScreenFixture x;
    x.open();
    EXPECT_FALSE(x.find<QPushButton>("cmdTouroku")->isEnabled());
    x.click("cmdEditS");
    est::test::whenModal({}, [](QDialog *dialog) {
        EXPECT_EQ(dialog->objectName(), QStringLiteral("dlgTouroku"));
        est::test::child<QComboBox>(dialog, "cboT1")->setCurrentText(QStringLiteral("練馬"));
        est::test::typeInto(est::test::child<QLineEdit>(dialog, "txtT2"), QStringLiteral("500"));
        est::test::typeInto(est::test::child<QLineEdit>(dialog, "txtT3"), QStringLiteral("ね"));
        est::test::typeInto(est::test::child<QLineEdit>(dialog, "txtT4"), QStringLiteral("12-34"));
        est::test::child<QPushButton>(dialog, "OKButton")->click();
    });
    x.click("cmdTouroku");
    EXPECT_EQ(x.text("txtTouroku"), QStringLiteral("練馬500ね12-34"));
    x.click("cmdOkS");
    EXPECT_EQ(x.store->vehiclesOf(QStringLiteral("1")).at(0)[VehicleField::Touroku], QStringLiteral("練馬500ね12-34"));
}

TEST(FrmKokyaku, NoNewCustomerPastTheLastSixteenBitNumber)
{
    ScreenFixture x;
    x.addCustomer("32767", "最後");
    x.open();
    const int customers = x.customers();
    x.click("cmdNew");
    ASSERT_EQ(x.messages.shown.size(), 1);
    EXPECT_TRUE(x.messages.lastText().contains(QStringLiteral("32767")));
    EXPECT_TRUE(x.find<QLineEdit>("txtNamae")->isReadOnly());
    EXPECT_EQ(x.customers(), customers);
}

TEST(FrmKokyaku, FailedCustomerDeleteIsReportedAndChangesNothing)
{
    ScreenFixture x;
    x.open();
    x.search(QStringLiteral("江藤　美咲"));
    x.store->setBetweenDeletesHook([] { return false; });
    x.messages.answer(Answer::Yes);
    x.click("cmdDel");
    ASSERT_EQ(x.messages.shown.size(), 2); // the question, then the failure
    EXPECT_EQ(x.messages.shown.last().icon, MessageIcon::Critical);
    EXPECT_TRUE(x.hasCustomer("4"));
    EXPECT_TRUE(x.hasVehicle("5"));
    EXPECT_EQ(x.text("txtKNo"), QStringLiteral("4"));
    EXPECT_EQ(x.find<QLabel>("lbl1")->text(), QStringLiteral("車輌データの台数は 1 台です。"));
}

// Closing the screen with a block open asks first: Yes saves, No drops, Cancel stays.
enum class CloseBy { CancelButton, Escape, CloseBox };

struct OpenBlockCase
{
    CloseBy by;
    Answer answer;
};

class FrmKokyakuClosing : public ::testing::TestWithParam<OpenBlockCase>
{
};

TEST_P(FrmKokyakuClosing, AsksBeforeAnOpenBlockIsLost)
{
    const OpenBlockCase c = GetParam();
    ScreenFixture x;
    x.open();
    x.click("cmdNew");
    x.type("txtNamae", QStringLiteral("新井　和也"));
    const int customers = x.customers();
    x.messages.answer(c.answer);
    switch (c.by) {
    case CloseBy::CancelButton:
        x.click("cmdCancel");
        break;
    case CloseBy::Escape:
        QTest::keyClick(x.screen.get(), Qt::Key_Escape);
        break;
    case CloseBy::CloseBox:
        x.screen->close();
        break;
    }
    ASSERT_EQ(x.messages.shown.size(), 1);
    EXPECT_EQ(x.messages.shown.last().kind, Kind::YesNoCancel);
    EXPECT_EQ(x.messages.lastText(), QStringLiteral("編集中のデータがあります。保存しますか？"));
    switch (c.answer) {
    case Answer::Yes:
        EXPECT_FALSE(x.screen->isVisible());
        EXPECT_EQ(x.customers(), customers + 1);
        break;
    case Answer::No:
        EXPECT_FALSE(x.screen->isVisible());
        EXPECT_EQ(x.customers(), customers);
        break;
    default:
        EXPECT_TRUE(x.screen->isVisible());
        EXPECT_TRUE(x.screen->browser().editing());
        EXPECT_EQ(x.text("txtNamae"), QStringLiteral("新井　和也"));
        EXPECT_EQ(x.customers(), customers);
        break;
    }
}

INSTANTIATE_TEST_SUITE_P(Ways, FrmKokyakuClosing,
                         ::testing::Values(OpenBlockCase{CloseBy::CancelButton, Answer::Yes},
                                           OpenBlockCase{CloseBy::CancelButton, Answer::No},
                                           OpenBlockCase{CloseBy::CancelButton, Answer::Cancel},
                                           OpenBlockCase{CloseBy::Escape, Answer::Cancel},
                                           OpenBlockCase{CloseBy::Escape, Answer::No},
                                           OpenBlockCase{CloseBy::CloseBox, Answer::Cancel},
                                           OpenBlockCase{CloseBy::CloseBox, Answer::Yes}));

TEST(FrmKokyaku, ClosingWhileBrowsingAsksNothing)
{
    ScreenFixture x;
    x.open();
    x.click("cmdCancel");
    EXPECT_FALSE(x.screen->isVisible());
    EXPECT_TRUE(x.messages.shown.isEmpty());
}
