#pragma once
// What the customer screen is showing and doing: the current customer, its vehicles, the
// chosen vehicle, and which block is being edited. The screen shows this state and forwards
// the user's commands here; nothing is written until a block is saved.

#include "customers/customer_store.h"

#include <optional>

namespace est::customers {

enum class EditMode {
    Browse,
    EditCustomer, // the customer block is open
    EditVehicle,  // the vehicle block is open
    NewCustomer,  // both blocks are open for a new customer and its first vehicle
    NewVehicle,   // the vehicle block is open for a new vehicle of the current customer
};

enum class SearchOutcome { Found, NoNameChosen, NotFound, Failed };

class CustomerBrowser
{
public:
    explicit CustomerBrowser(CustomerStore &store) : m_store(store) {}

    CustomerStore &store() { return m_store; }

    // Shows the first customer (none when the table is empty).
    bool loadFirst();
    SearchOutcome search(const QString &name);
    // Move through the customers in number order; false at either end.
    bool next();
    bool previous();

    bool hasCustomer() const { return m_customer.has_value(); }
    const Customer &customer() const { return *m_customer; }
    const QList<Vehicle> &vehicles() const { return m_vehicles; }
    int vehicleIndex() const { return m_vehicleIndex; }
    // The chosen vehicle, null when the customer has none.
    const Vehicle *vehicle() const;
    void selectVehicle(int index);
    // "車輌データの台数は n 台です。" for the current customer.
    QString countText() const;

    EditMode mode() const { return m_mode; }
    bool editing() const { return m_mode != EditMode::Browse; }
    bool customerBlockOpen() const;
    bool vehicleBlockOpen() const;

    bool beginEditCustomer();
    bool beginEditVehicle();
    // Prepares a new customer and its first vehicle with the next numbers (not yet written).
    bool beginNewCustomer();
    // Prepares a new vehicle of the current customer with the next number (not yet written).
    bool beginNewVehicle();
    // The records the open blocks start from.
    const Customer &draftCustomer() const { return m_draftCustomer; }
    const Vehicle &draftVehicle() const { return m_draftVehicle; }

    // Saves what the open blocks hold: a new customer goes in with its vehicle, in one
    // transaction. On success the browser shows the saved records and returns to browsing.
    bool save(const Customer &customer, const Vehicle &vehicle);
    // Leaves the open blocks without writing anything.
    void cancel();

    DeleteOutcome deleteCustomer();
    bool deleteVehicle();

    QString lastError() const { return m_store.lastError(); }

private:
    bool show(std::optional<Customer> customer, const QString &vehicleNumber = QString());

    CustomerStore &m_store;
    std::optional<Customer> m_customer;
    QList<Vehicle> m_vehicles;
    int m_vehicleIndex = -1;
    EditMode m_mode = EditMode::Browse;
    Customer m_draftCustomer;
    Vehicle m_draftVehicle;
};

} // namespace est::customers
