#include "customer_fixture.h"
#include "db/dialect.h"

#include <QSqlQuery>
#include <gtest/gtest.h>

using namespace est;
using namespace est::customers;
using est::test::CustomerFixture;

// The store on the application folder's file and on the server: the same cases on both.
class CustomerStoreTest : public ::testing::TestWithParam<test::Backend> {};
INSTANTIATE_TEST_SUITE_P(Backends, CustomerStoreTest, ::testing::ValuesIn(test::kBothBackends),
                         [](const auto &info) { return test::backendName(info.param); });

TEST_P(CustomerStoreTest, NewDatabaseHasBothTablesInTheirFieldOrderAndSampleCustomers)
{
    CustomerFixture x{GetParam()};
    for (const auto &[table, names] : {std::pair{QStringLiteral("Kokyaku_Jyouhou"), customerFieldNames()},
                                        std::pair{QStringLiteral("Kokyaku_Syaryou"), vehicleFieldNames()}}) {
        EXPECT_EQ(db::columnNames(x.store->database(), table), names) << table.toStdString();
    }
    EXPECT_GE(x.customers(), 3);
    // Every sample vehicle belongs to a sample customer.
    EXPECT_EQ(x.count(QStringLiteral("SELECT COUNT(*) FROM \"Kokyaku_Syaryou\" s WHERE NOT EXISTS "
                                     "(SELECT 1 FROM \"Kokyaku_Jyouhou\" c WHERE c.\"KNo\" = s.\"KNo\")")),
              0);
}

TEST(CustomerDatabase, FieldsAreExactlyTheseInThisOrder)
{
    // Written out by hand: the estimate workbook and the paint screens rely on these positions.
    EXPECT_EQ(customerFieldNames(),
              (QStringList{"KNo", "Namae", "Post", "Jyusyo1", "Jyusyo2", "TEL", "FAX", "Cell", "KaisyaN", "KaisyaPost",
                           "KaisyaJ1", "KaisyaJ2", "KaisyaTEL", "KaisyaFAX", "KaisyaCell", "KKubun", "Memo"}));
    EXPECT_EQ(vehicleFieldNames(),
              (QStringList{"SNo", "KNo", "NyuDay", "Meka", "Syamei", "Katasiki", "SyataiNo", "Touroku", "Syonendo",
                           "KataSitei", "Ruibetu", "Eg", "Syajyu", "Soukou", "Yuko", "IroNo", "IroSyurui", "Koukinou",
                           "Bikou"}));
    EXPECT_EQ(customerCaptions().size(), kCustomerFieldCount);
    EXPECT_EQ(vehicleCaptions().size(), kVehicleFieldCount);
}

TEST(CustomerNumbering, SixteenBitNextNumber)
{
    EXPECT_EQ(nextNumber(0), 1);
    EXPECT_EQ(nextNumber(32766), 32767);
    EXPECT_EQ(nextNumber(32767), std::nullopt);
    EXPECT_EQ(nextNumber(100000), std::nullopt);
}

struct NumberingCase
{
    QStringList existing; // customer numbers already in the table
    int expected;         // 0: no number can be given
};

class NextCustomerNumber : public ::testing::TestWithParam<NumberingCase>
{
};

TEST_P(NextCustomerNumber, IsLastByValuePlusOne)
{
    CustomerFixture x;
    x.clear();
    for (const QString &kno : GetParam().existing) {
        x.addCustomer(kno, QStringLiteral("名前") + kno);
        x.addVehicle(kno, kno);
    }
    const std::optional<int> customer = x.store->nextCustomerNumber();
    const std::optional<int> vehicle = x.store->nextVehicleNumber();
    if (GetParam().expected == 0) {
        EXPECT_FALSE(customer);
        EXPECT_FALSE(x.store->lastError().isEmpty());
    } else {
        EXPECT_EQ(customer, GetParam().expected);
        EXPECT_EQ(vehicle, GetParam().expected);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Cases, NextCustomerNumber,
    ::testing::Values(NumberingCase{{}, 1}, NumberingCase{{"1", "2", "3"}, 4},
                      // "10" sorts before "9" as text; by value it is the last.
                      NumberingCase{{"9", "10", "2"}, 11}, NumberingCase{{"100", "99"}, 101},
                      NumberingCase{{"1", "32767"}, 0}, NumberingCase{{"32766"}, 32767}));

TEST_P(CustomerStoreTest, DeletedLastCustomerGivesItsNumbersAgain)
{
    CustomerFixture x{GetParam()};
    x.clear();
    for (int i = 1; i <= 3; ++i) {
        Customer c;
        Vehicle v;
        c[CustomerField::Namae] = QStringLiteral("顧客%1").arg(i);
        ASSERT_TRUE(x.store->addCustomerWithVehicle(c, v)) << x.store->lastError().toStdString();
        EXPECT_EQ(c[CustomerField::KNo], QString::number(i));
        EXPECT_EQ(v[VehicleField::SNo], QString::number(i));
        EXPECT_EQ(v[VehicleField::KNo], QString::number(i));
    }
    ASSERT_EQ(x.store->deleteCustomer(QStringLiteral("3")), DeleteOutcome::Deleted);
    Customer c;
    Vehicle v;
    ASSERT_TRUE(x.store->addCustomerWithVehicle(c, v));
    EXPECT_EQ(c[CustomerField::KNo], QStringLiteral("3"));
    EXPECT_EQ(v[VehicleField::SNo], QStringLiteral("3"));
}

TEST_P(CustomerStoreTest, CustomerWithOneVehicleIsDeletedWithIt)
{
    CustomerFixture x{GetParam()};
    x.clear();
    x.addCustomer("1", "A");
    x.addVehicle("1", "1");
    x.addCustomer("2", "B");
    x.addVehicle("2", "2");
    EXPECT_EQ(x.store->deleteCustomer(QStringLiteral("1")), DeleteOutcome::Deleted);
    EXPECT_FALSE(x.hasCustomer("1"));
    EXPECT_FALSE(x.hasVehicle("1"));
    EXPECT_TRUE(x.hasCustomer("2"));
    EXPECT_TRUE(x.hasVehicle("2"));
}

TEST_P(CustomerStoreTest, CustomerWithoutVehicleIsDeleted)
{
    CustomerFixture x{GetParam()};
    x.clear();
    x.addCustomer("1", "A");
    EXPECT_EQ(x.store->deleteCustomer(QStringLiteral("1")), DeleteOutcome::Deleted);
    EXPECT_EQ(x.customers(), 0);
}

TEST_P(CustomerStoreTest, CustomerWithTwoVehiclesIsNotDeleted)
{
    CustomerFixture x{GetParam()};
    x.clear();
    x.addCustomer("1", "A");
    x.addVehicle("1", "1");
    x.addVehicle("2", "1");
    EXPECT_EQ(x.store->deleteCustomer(QStringLiteral("1")), DeleteOutcome::TooManyVehicles);
    EXPECT_TRUE(x.hasCustomer("1"));
    EXPECT_EQ(x.vehicles(), 2);
}

TEST_P(CustomerStoreTest, FailureBetweenTheTwoDeletesLeavesBothRecords)
{
    CustomerFixture x{GetParam()};
    x.clear();
    x.addCustomer("1", "A");
    x.addVehicle("7", "1");
    int calls = 0;
    x.store->setBetweenDeletesHook([&] {
        ++calls;
        // The vehicle is already gone inside the transaction when the failure strikes.
        EXPECT_FALSE(x.hasVehicle("7"));
        return false;
    });
    EXPECT_EQ(x.store->deleteCustomer(QStringLiteral("1")), DeleteOutcome::Failed);
    EXPECT_EQ(calls, 1);
    EXPECT_FALSE(x.store->lastError().isEmpty());
    EXPECT_TRUE(x.hasCustomer("1"));
    EXPECT_TRUE(x.hasVehicle("7"));

    x.store->setBetweenDeletesHook({});
    EXPECT_EQ(x.store->deleteCustomer(QStringLiteral("1")), DeleteOutcome::Deleted);
    EXPECT_EQ(x.customers(), 0);
    EXPECT_EQ(x.vehicles(), 0);
}

TEST_P(CustomerStoreTest, NewCustomerWhoseVehicleCannotBeWrittenLeavesBothTables)
{
    CustomerFixture x{GetParam()};
    const int customers = x.customers(), vehicles = x.vehicles();
    x.refuseInserts(QStringLiteral("Kokyaku_Syaryou"), QStringLiteral("disk full"));
    Customer c;
    Vehicle v;
    c[CustomerField::Namae] = QStringLiteral("新規");
    EXPECT_FALSE(x.store->addCustomerWithVehicle(c, v));
    EXPECT_TRUE(x.store->lastError().contains(QStringLiteral("disk full")));
    EXPECT_EQ(x.customers(), customers);
    EXPECT_EQ(x.vehicles(), vehicles);
    EXPECT_TRUE(c[CustomerField::KNo].isEmpty()); // the records passed in stay as they were
}

TEST_P(CustomerStoreTest, FirstOfEqualNamesInNumberOrder)
{
    CustomerFixture x{GetParam()};
    x.clear();
    x.addCustomer("10", "山田　太郎");
    x.addCustomer("9", "山田　太郎");
    x.addCustomer("3", "佐藤　次郎");
    const std::optional<Customer> found = x.store->findFirstByName(QStringLiteral("山田　太郎"));
    ASSERT_TRUE(found);
    EXPECT_EQ((*found)[CustomerField::KNo], QStringLiteral("9"));
    EXPECT_EQ(x.store->customerNames(), (QStringList{"佐藤　次郎", "山田　太郎"}));
}

class NameSearch : public ::testing::TestWithParam<const char *>
{
};

TEST_P(NameSearch, FindsExactlyThatName)
{
    CustomerFixture x;
    x.clear();
    const QString name = QString::fromUtf8(GetParam());
    x.addCustomer("1", QStringLiteral("O"));
    x.addCustomer("2", QStringLiteral("山田"));
    x.addCustomer("3", QStringLiteral("1000"));
    x.addCustomer("4", name);
    x.addCustomer("5", name + QStringLiteral(" "));
    const std::optional<Customer> found = x.store->findFirstByName(name);
    ASSERT_TRUE(found);
    EXPECT_EQ((*found)[CustomerField::KNo], QStringLiteral("4"));
    EXPECT_EQ((*found)[CustomerField::Namae], name);
}

INSTANTIATE_TEST_SUITE_P(Names, NameSearch,
                         ::testing::Values("O'Brien", "山田,太郎", "'", "a''b", "100%", "x_y", "山田' OR '1'='1",
                                           "\"引用\""));

TEST_P(CustomerStoreTest, NameNotThereFindsNothing)
{
    CustomerFixture x{GetParam()};
    EXPECT_FALSE(x.store->findFirstByName(QStringLiteral("いない人")));
    EXPECT_TRUE(x.store->lastError().isEmpty());
}

TEST_P(CustomerStoreTest, VehiclesOfOneCustomerInNumberOrder)
{
    CustomerFixture x{GetParam()};
    x.clear();
    x.addCustomer("1", "A");
    x.addCustomer("2", "B");
    x.addVehicle("10", "1", "十");
    x.addVehicle("9", "1", "九");
    x.addVehicle("11", "2", "他");
    const QList<Vehicle> list = x.store->vehiclesOf(QStringLiteral("1"));
    ASSERT_EQ(list.size(), 2);
    EXPECT_EQ(list[0][VehicleField::SNo], QStringLiteral("9"));
    EXPECT_EQ(list[1][VehicleField::SNo], QStringLiteral("10"));
    EXPECT_EQ(x.store->vehicleCount(QStringLiteral("1")), 2);
    EXPECT_EQ(x.store->vehicleCount(QStringLiteral("3")), 0);
}

TEST_P(CustomerStoreTest, NavigationFollowsNumberValue)
{
    CustomerFixture x{GetParam()};
    x.clear();
    for (const char *kno : {"10", "2", "9", "1", "09"})
        x.addCustomer(kno, kno);
    QStringList order;
    for (std::optional<Customer> c = x.store->firstCustomer(); c; c = x.store->nextCustomer((*c)[CustomerField::KNo]))
        order.append((*c)[CustomerField::KNo]);
    EXPECT_EQ(order, (QStringList{"1", "2", "09", "9", "10"})); // equal values: by text
    const std::optional<Customer> sameValue = x.store->previousCustomer(QStringLiteral("9"));
    ASSERT_TRUE(sameValue);
    EXPECT_EQ((*sameValue)[CustomerField::KNo], QStringLiteral("09"));
    const std::optional<Customer> before = x.store->previousCustomer(QStringLiteral("10"));
    ASSERT_TRUE(before);
    EXPECT_EQ((*before)[CustomerField::KNo], QStringLiteral("9"));
    EXPECT_FALSE(x.store->previousCustomer(QStringLiteral("1")));
}

TEST_P(CustomerStoreTest, UpdatesRoundTrip)
{
    CustomerFixture x{GetParam()};
    x.clear();
    x.addCustomer("1", "A");
    x.addVehicle("1", "1");
    Customer c = *x.store->customer(QStringLiteral("1"));
    c[CustomerField::Namae] = QStringLiteral("オブライエン O'Brien");
    c[CustomerField::KaisyaN] = QStringLiteral("株式会社,サンプル");
    c[CustomerField::KKubun] = QStringLiteral("1");
    ASSERT_TRUE(x.store->updateCustomer(c));
    EXPECT_EQ(*x.store->customer(QStringLiteral("1")), c);

    Vehicle v = x.store->vehiclesOf(QStringLiteral("1")).at(0);
    v[VehicleField::Touroku] = QStringLiteral("品川300あ1234");
    v[VehicleField::Soukou] = QStringLiteral("12,345");
    ASSERT_TRUE(x.store->updateVehicle(v));
    EXPECT_EQ(x.store->vehiclesOf(QStringLiteral("1")).at(0), v);

    c[CustomerField::KNo] = QStringLiteral("99");
    EXPECT_FALSE(x.store->updateCustomer(c));
}

TEST_P(CustomerStoreTest, DeleteVehicleLeavesTheOthers)
{
    CustomerFixture x{GetParam()};
    x.clear();
    x.addCustomer("1", "A");
    x.addVehicle("1", "1");
    x.addVehicle("2", "1");
    EXPECT_TRUE(x.store->deleteVehicle(QStringLiteral("1")));
    EXPECT_FALSE(x.hasVehicle("1"));
    EXPECT_TRUE(x.hasVehicle("2"));
    EXPECT_FALSE(x.store->deleteVehicle(QStringLiteral("1")));
}

TEST_P(CustomerStoreTest, AddVehicleTakesTheNextNumberOverAllVehicles)
{
    CustomerFixture x{GetParam()};
    x.clear();
    x.addCustomer("1", "A");
    x.addCustomer("2", "B");
    x.addVehicle("5", "2");
    Vehicle v;
    v[VehicleField::KNo] = QStringLiteral("1");
    ASSERT_TRUE(x.store->addVehicle(v));
    EXPECT_EQ(v[VehicleField::SNo], QStringLiteral("6"));
    EXPECT_EQ(x.store->vehiclesOf(QStringLiteral("1")).size(), 1);
}
