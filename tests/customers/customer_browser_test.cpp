#include "customer_fixture.h"
#include "customers/customer_browser.h"

#include <gtest/gtest.h>

using namespace est;
using namespace est::customers;
using est::test::CustomerFixture;

namespace {

struct BrowserFixture : CustomerFixture
{
    CustomerBrowser browser{*store};
    BrowserFixture()
    {
        clear();
        addCustomer("1", "A");
        addVehicle("1", "1");
        addCustomer("2", "B");
        addVehicle("2", "2");
        addVehicle("3", "2");
        browser.loadFirst();
    }
};

} // namespace

TEST(CustomerBrowser, SearchShowsTheCustomerAndCountsItsVehicles)
{
    BrowserFixture x;
    EXPECT_EQ(x.browser.customer()[CustomerField::KNo], QStringLiteral("1"));
    EXPECT_EQ(x.browser.countText(), QStringLiteral("車輌データの台数は 1 台です。"));
    EXPECT_EQ(x.browser.search(QStringLiteral("B")), SearchOutcome::Found);
    EXPECT_EQ(x.browser.customer()[CustomerField::KNo], QStringLiteral("2"));
    EXPECT_EQ(x.browser.countText(), QStringLiteral("車輌データの台数は 2 台です。"));
    EXPECT_EQ(x.browser.search(QString()), SearchOutcome::NoNameChosen);
    EXPECT_EQ(x.browser.search(QStringLiteral("Z")), SearchOutcome::NotFound);
    EXPECT_EQ(x.browser.customer()[CustomerField::KNo], QStringLiteral("2")); // stays where it was
}

TEST(CustomerBrowser, NewCustomerIsWrittenOnlyOnSaveWithItsVehicle)
{
    BrowserFixture x;
    ASSERT_TRUE(x.browser.beginNewCustomer());
    EXPECT_EQ(x.browser.mode(), EditMode::NewCustomer);
    EXPECT_TRUE(x.browser.customerBlockOpen());
    EXPECT_TRUE(x.browser.vehicleBlockOpen());
    EXPECT_EQ(x.browser.draftCustomer()[CustomerField::KNo], QStringLiteral("3"));
    EXPECT_EQ(x.browser.draftVehicle()[VehicleField::SNo], QStringLiteral("4"));
    EXPECT_EQ(x.customers(), 2);
    x.browser.cancel();
    EXPECT_EQ(x.customers(), 2);
    EXPECT_EQ(x.vehicles(), 3);

    ASSERT_TRUE(x.browser.beginNewCustomer());
    Customer c = x.browser.draftCustomer();
    Vehicle v = x.browser.draftVehicle();
    c[CustomerField::Namae] = QStringLiteral("C");
    v[VehicleField::Syamei] = QStringLiteral("車");
    ASSERT_TRUE(x.browser.save(c, v));
    EXPECT_EQ(x.browser.mode(), EditMode::Browse);
    EXPECT_EQ(x.browser.customer()[CustomerField::Namae], QStringLiteral("C"));
    ASSERT_NE(x.browser.vehicle(), nullptr);
    EXPECT_EQ((*x.browser.vehicle())[VehicleField::Syamei], QStringLiteral("車"));
    EXPECT_EQ((*x.browser.vehicle())[VehicleField::KNo], QStringLiteral("3"));
}

TEST(CustomerBrowser, EditingKeepsNumbersAndCancelWritesNothing)
{
    BrowserFixture x;
    ASSERT_TRUE(x.browser.beginEditVehicle());
    EXPECT_FALSE(x.browser.beginEditCustomer()); // one block at a time
    Vehicle v = x.browser.draftVehicle();
    v[VehicleField::SNo] = QStringLiteral("99"); // numbers are not the user's to change
    v[VehicleField::Eg] = QStringLiteral("1NZ");
    ASSERT_TRUE(x.browser.save(x.browser.customer(), v));
    EXPECT_EQ((*x.browser.vehicle())[VehicleField::SNo], QStringLiteral("1"));
    EXPECT_EQ((*x.browser.vehicle())[VehicleField::Eg], QStringLiteral("1NZ"));

    ASSERT_TRUE(x.browser.beginEditCustomer());
    x.browser.cancel();
    EXPECT_EQ(x.browser.customer()[CustomerField::Namae], QStringLiteral("A"));
}

TEST(CustomerBrowser, NewVehicleJoinsTheCurrentCustomer)
{
    BrowserFixture x;
    ASSERT_TRUE(x.browser.beginNewVehicle());
    Vehicle v = x.browser.draftVehicle();
    EXPECT_EQ(v[VehicleField::SNo], QStringLiteral("4"));
    v[VehicleField::Syamei] = QStringLiteral("二台目");
    ASSERT_TRUE(x.browser.save(x.browser.customer(), v));
    EXPECT_EQ(x.browser.vehicles().size(), 2);
    EXPECT_EQ((*x.browser.vehicle())[VehicleField::SNo], QStringLiteral("4")); // the new one is chosen
}

TEST(CustomerBrowser, DeletingMovesToTheFirstCustomer)
{
    BrowserFixture x;
    x.browser.next();
    EXPECT_EQ(x.browser.deleteCustomer(), DeleteOutcome::TooManyVehicles);
    ASSERT_TRUE(x.browser.deleteVehicle());
    EXPECT_EQ(x.browser.vehicles().size(), 1);
    EXPECT_EQ(x.browser.deleteCustomer(), DeleteOutcome::Deleted);
    EXPECT_EQ(x.browser.customer()[CustomerField::KNo], QStringLiteral("1"));
    EXPECT_EQ(x.vehicles(), 1);
}
