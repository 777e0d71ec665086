#pragma once
// The customer database (temp\KokyakuDB): customers, their vehicles, numbering, search and
// the changes that must touch both tables at once. Every change runs in one transaction, so
// a failure leaves both tables as they were.

#include "customers/customer_record.h"

#include <QList>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QString>
#include <QStringList>
#include <functional>
#include <memory>
#include <optional>

namespace est::customers {

// The number after `last` for a new customer or vehicle. Numbers are 16-bit: past 32767
// there is none, and the caller reports that instead of wrapping round.
std::optional<int> nextNumber(qint64 last);

enum class DeleteOutcome {
    Deleted,
    TooManyVehicles, // the customer still has two or more vehicles; nothing was changed
    Failed,          // see lastError(); nothing was changed
};

class CustomerStore
{
public:
    // The store over an open connection to the customer database.
    explicit CustomerStore(QSqlDatabase database);
    ~CustomerStore();
    CustomerStore(const CustomerStore &) = delete;
    CustomerStore &operator=(const CustomerStore &) = delete;

    // Opens (creating when missing) temp\KokyakuDB below the application folder; on failure
    // returns null and puts a sentence for the user into `error`.
    static std::unique_ptr<CustomerStore> open(const QString &appFolder, QString *error);

    QSqlDatabase database() const { return m_db; }
    // Why the last call failed, for the user.
    QString lastError() const { return m_error; }

    // Every customer name once, in name order: the choices of the name list.
    QStringList customerNames();

    // Customers in number order (numbers compared by value, see the schema).
    std::optional<Customer> firstCustomer();
    std::optional<Customer> customer(const QString &kno);
    std::optional<Customer> nextCustomer(const QString &kno);
    std::optional<Customer> previousCustomer(const QString &kno);
    // The first customer in number order whose name is exactly `name`.
    std::optional<Customer> findFirstByName(const QString &name);

    // The vehicles of one customer, in vehicle-number order.
    QList<Vehicle> vehiclesOf(const QString &kno);
    int vehicleCount(const QString &kno);

    // The last customer / vehicle number + 1, or nothing (lastError() says why).
    std::optional<int> nextCustomerNumber();
    std::optional<int> nextVehicleNumber();

    // Adds a customer together with its first vehicle; both get the next numbers, written
    // into the records passed in. One transaction: both records or neither.
    bool addCustomerWithVehicle(Customer &customer, Vehicle &vehicle);
    // Adds a vehicle with the next vehicle number for the customer named in its KNo.
    bool addVehicle(Vehicle &vehicle);

    bool updateCustomer(const Customer &customer);
    bool updateVehicle(const Vehicle &vehicle);

    // Deletes a customer with at most one vehicle, and that vehicle with it.
    DeleteOutcome deleteCustomer(const QString &kno);
    bool deleteVehicle(const QString &sno);

    // Test seam: runs between deleting a customer's vehicle and deleting the customer;
    // returning false makes the delete fail there.
    void setBetweenDeletesHook(std::function<bool()> hook) { m_betweenDeletes = std::move(hook); }

private:
    std::optional<Customer> readOneCustomer(QSqlQuery &query);
    std::optional<Customer> neighbour(QSqlQuery &same, QSqlQuery &other, const QString &kno);
    std::optional<int> nextNumberOf(QSqlQuery &query, const QString &what);
    bool insertCustomer(const Customer &customer);
    bool insertVehicle(const Vehicle &vehicle);
    bool fail(const QString &message);
    bool failQuery(const QSqlQuery &query);

    QSqlDatabase m_db;
    QString m_error;
    std::function<bool()> m_betweenDeletes;
    struct Queries;
    std::unique_ptr<Queries> m_q;
};

} // namespace est::customers
