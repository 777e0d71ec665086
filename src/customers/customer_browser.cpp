#include "customers/customer_browser.h"

namespace est::customers {

bool CustomerBrowser::show(std::optional<Customer> customer, const QString &vehicleNumber)
{
    m_customer = std::move(customer);
    m_vehicles = m_customer ? m_store.vehiclesOf((*m_customer)[CustomerField::KNo]) : QList<Vehicle>();
    m_vehicleIndex = m_vehicles.isEmpty() ? -1 : 0;
    for (int i = 0; i < m_vehicles.size(); ++i)
        if (!vehicleNumber.isEmpty() && m_vehicles.at(i)[VehicleField::SNo] == vehicleNumber)
            m_vehicleIndex = i;
    return m_customer.has_value();
}

bool CustomerBrowser::loadFirst()
{
    return show(m_store.firstCustomer());
}

SearchOutcome CustomerBrowser::search(const QString &name)
{
    if (name.isEmpty())
        return SearchOutcome::NoNameChosen;
    const QString before = m_store.lastError();
    std::optional<Customer> found = m_store.findFirstByName(name);
    if (!found)
        return m_store.lastError() != before ? SearchOutcome::Failed : SearchOutcome::NotFound;
    show(std::move(found));
    return SearchOutcome::Found;
}

bool CustomerBrowser::next()
{
    if (!m_customer)
        return false;
    std::optional<Customer> found = m_store.nextCustomer((*m_customer)[CustomerField::KNo]);
    return found && show(std::move(found));
}

bool CustomerBrowser::previous()
{
    if (!m_customer)
        return false;
    std::optional<Customer> found = m_store.previousCustomer((*m_customer)[CustomerField::KNo]);
    return found && show(std::move(found));
}

const Vehicle *CustomerBrowser::vehicle() const
{
    if (m_vehicleIndex < 0 || m_vehicleIndex >= m_vehicles.size())
        return nullptr;
    return &m_vehicles.at(m_vehicleIndex);
}

void CustomerBrowser::selectVehicle(int index)
{
    if (index >= 0 && index < m_vehicles.size())
        m_vehicleIndex = index;
}

QString CustomerBrowser::countText() const
{
    return QStringLiteral("車輌データの台数は ") + QString::number(m_vehicles.size()) + QStringLiteral(" 台です。");
}

bool CustomerBrowser::customerBlockOpen() const
{
    return m_mode == EditMode::EditCustomer || m_mode == EditMode::NewCustomer;
}

bool CustomerBrowser::vehicleBlockOpen() const
{
    return m_mode == EditMode::EditVehicle || m_mode == EditMode::NewCustomer || m_mode == EditMode::NewVehicle;
}

bool CustomerBrowser::beginEditCustomer()
{
    if (editing() || !m_customer)
        return false;
    m_draftCustomer = *m_customer;
    m_draftVehicle = vehicle() ? *vehicle() : Vehicle();
    m_mode = EditMode::EditCustomer;
    return true;
}

bool CustomerBrowser::beginEditVehicle()
{
    if (editing() || !m_customer || !vehicle())
        return false;
    m_draftCustomer = *m_customer;
    m_draftVehicle = *vehicle();
    m_mode = EditMode::EditVehicle;
    return true;
}

bool CustomerBrowser::beginNewCustomer()
{
    if (editing())
        return false;
    const std::optional<int> kno = m_store.nextCustomerNumber();
    const std::optional<int> sno = kno ? m_store.nextVehicleNumber() : std::nullopt;
    if (!kno || !sno)
        return false;
    m_draftCustomer = Customer();
    m_draftCustomer[CustomerField::KNo] = QString::number(*kno);
    m_draftCustomer[CustomerField::KKubun] = QStringLiteral("0");
    m_draftVehicle = Vehicle();
    m_draftVehicle[VehicleField::SNo] = QString::number(*sno);
    m_draftVehicle[VehicleField::KNo] = m_draftCustomer[CustomerField::KNo];
    m_mode = EditMode::NewCustomer;
    return true;
}

bool CustomerBrowser::beginNewVehicle()
{
    if (editing() || !m_customer)
        return false;
    const std::optional<int> sno = m_store.nextVehicleNumber();
    if (!sno)
        return false;
    m_draftCustomer = *m_customer;
    m_draftVehicle = Vehicle();
    m_draftVehicle[VehicleField::SNo] = QString::number(*sno);
    m_draftVehicle[VehicleField::KNo] = (*m_customer)[CustomerField::KNo];
    m_mode = EditMode::NewVehicle;
    return true;
}

bool CustomerBrowser::save(const Customer &customer, const Vehicle &vehicle)
{
    Customer c = customer;
    Vehicle v = vehicle;
    switch (m_mode) {
    case EditMode::Browse:
        return false;
    case EditMode::EditCustomer:
        c[CustomerField::KNo] = m_draftCustomer[CustomerField::KNo];
        if (!m_store.updateCustomer(c))
            return false;
        v = m_draftVehicle;
        break;
    case EditMode::EditVehicle:
        v[VehicleField::SNo] = m_draftVehicle[VehicleField::SNo];
        v[VehicleField::KNo] = m_draftVehicle[VehicleField::KNo];
        if (!m_store.updateVehicle(v))
            return false;
        c = m_draftCustomer;
        break;
    case EditMode::NewCustomer:
        if (!m_store.addCustomerWithVehicle(c, v))
            return false;
        break;
    case EditMode::NewVehicle:
        v[VehicleField::KNo] = m_draftCustomer[CustomerField::KNo];
        if (!m_store.addVehicle(v))
            return false;
        c = m_draftCustomer;
        break;
    }
    m_mode = EditMode::Browse;
    show(m_store.customer(c[CustomerField::KNo]), v[VehicleField::SNo]);
    return true;
}

void CustomerBrowser::cancel()
{
    m_mode = EditMode::Browse;
}

DeleteOutcome CustomerBrowser::deleteCustomer()
{
    if (editing() || !m_customer)
        return DeleteOutcome::Failed;
    const DeleteOutcome outcome = m_store.deleteCustomer((*m_customer)[CustomerField::KNo]);
    if (outcome == DeleteOutcome::Deleted)
        loadFirst();
    return outcome;
}

bool CustomerBrowser::deleteVehicle()
{
    if (editing() || !vehicle())
        return false;
    if (!m_store.deleteVehicle((*vehicle())[VehicleField::SNo]))
        return false;
    show(m_customer);
    return true;
}

} // namespace est::customers
