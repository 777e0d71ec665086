#include "customers/frm_kokyaku_sett.h"
#include "screen_fixture.h"

#include <QLabel>
#include <QSqlTableModel>
#include <QTableView>
#include <gtest/gtest.h>

using namespace est;
using namespace est::customers;
using est::test::child;
using est::test::CustomerFixture;
using est::test::ScriptedMessages;

TEST(FrmKokyakuSett, ShowsBothTablesWithTheBackupWarning)
{
    CustomerFixture x;
    ScriptedMessages messages;
    FrmKokyakuSett screen(messages, x.store->database());
    screen.show();
    EXPECT_EQ(child<QLabel>(&screen, "Label1")->text(),
              QStringLiteral("各データを編集する前に顧客DBのバックアップをしてください。 (Deleteキー：削除)"));
    auto *customers = child<QTableView>(&screen, "DGS1");
    auto *vehicles = child<QTableView>(&screen, "DGS2");
    EXPECT_EQ(customers->model()->rowCount(), x.customers());
    EXPECT_EQ(customers->model()->columnCount(), kCustomerFieldCount);
    EXPECT_EQ(vehicles->model()->rowCount(), x.vehicles());
    EXPECT_EQ(vehicles->model()->columnCount(), kVehicleFieldCount);
    EXPECT_TRUE(messages.shown.isEmpty());
}

TEST(FrmKokyakuSett, DeleteKeyDeletesTheCustomerButNotItsVehicles)
{
    CustomerFixture x;
    ScriptedMessages messages;
    FrmKokyakuSett screen(messages, x.store->database());
    screen.show();
    auto *view = child<QTableView>(&screen, "DGS1");
    const int vehicles = x.vehicles();
    view->selectRow(2); // customer 3, with two vehicles
    QTest::keyClick(view, Qt::Key_Delete); // unscripted: No
    EXPECT_TRUE(x.hasCustomer("3"));
    view->selectRow(2);
    messages.answer(Answer::Yes);
    QTest::keyClick(view, Qt::Key_Delete);
    EXPECT_FALSE(x.hasCustomer("3"));
    EXPECT_EQ(x.vehicles(), vehicles);
    EXPECT_EQ(view->model()->rowCount(), x.customers());
}

TEST(FrmKokyakuSett, SeveralSelectedRecordsGoTogetherOrNotAtAll)
{
    CustomerFixture x;
    // Customer 1 cannot be deleted; deleting it after customer 2 must keep customer 2 too.
    x.exec(QStringLiteral("CREATE TRIGGER keep_first BEFORE DELETE ON Kokyaku_Jyouhou WHEN old.KNo = '1' "
                          "BEGIN SELECT RAISE(ABORT, 'kept'); END"));
    ScriptedMessages messages;
    FrmKokyakuSett screen(messages, x.store->database());
    screen.show();
    auto *view = child<QTableView>(&screen, "DGS1");
    const int customers = x.customers();
    view->selectionModel()->select(view->model()->index(0, 0),
                                   QItemSelectionModel::Select | QItemSelectionModel::Rows);
    view->selectionModel()->select(view->model()->index(1, 0),
                                   QItemSelectionModel::Select | QItemSelectionModel::Rows);
    messages.answer(Answer::Yes);
    QTest::keyClick(view, Qt::Key_Delete);
    EXPECT_TRUE(x.hasCustomer("1"));
    EXPECT_TRUE(x.hasCustomer("2"));
    EXPECT_EQ(x.customers(), customers);
    EXPECT_EQ(view->model()->rowCount(), customers);
    ASSERT_EQ(messages.shown.size(), 2);
    EXPECT_EQ(messages.shown.last().icon, MessageIcon::Critical);

    // Without the obstacle both go at once.
    x.exec(QStringLiteral("DROP TRIGGER keep_first"));
    view->clearSelection();
    view->selectionModel()->select(view->model()->index(0, 0),
                                   QItemSelectionModel::Select | QItemSelectionModel::Rows);
    view->selectionModel()->select(view->model()->index(1, 0),
                                   QItemSelectionModel::Select | QItemSelectionModel::Rows);
    messages.answer(Answer::Yes);
    QTest::keyClick(view, Qt::Key_Delete);
    EXPECT_FALSE(x.hasCustomer("1"));
    EXPECT_FALSE(x.hasCustomer("2"));
    EXPECT_EQ(x.customers(), customers - 2);
    EXPECT_EQ(view->model()->rowCount(), customers - 2);
}

TEST(FrmKokyakuSett, EditedCellIsWrittenAtOnce)
{
    CustomerFixture x;
    ScriptedMessages messages;
    FrmKokyakuSett screen(messages, x.store->database());
    screen.show();
    QSqlTableModel *model = screen.vehicleModel();
    const int touroku = static_cast<int>(VehicleField::Touroku);
    ASSERT_TRUE(model->setData(model->index(1, touroku), QStringLiteral("足立500そ7")));
    EXPECT_EQ(x.store->vehiclesOf(QStringLiteral("2")).at(0)[VehicleField::Touroku], QStringLiteral("足立500そ7"));

    // A number given twice is refused and reported; the table keeps its data.
    QSqlTableModel *customers = screen.customerModel();
    EXPECT_FALSE(customers->setData(customers->index(1, 0), QStringLiteral("1")));
    ASSERT_EQ(messages.shown.size(), 1);
    EXPECT_EQ(messages.shown.last().icon, MessageIcon::Critical);
    EXPECT_TRUE(x.hasCustomer("2"));
}
