#include "customers/customer_store.h"

#include "db/database.h"
#include "db/dialect.h"
#include "db/transaction_guard.h"

#include <QSqlError>
#include <QVariant>
#include <limits>

namespace est::customers {

namespace {

const QString kCustomers = QStringLiteral("\"Kokyaku_Jyouhou\"");
const QString kVehicles = QStringLiteral("\"Kokyaku_Syaryou\"");

// Numbers are text; they are ordered by their integer value, then by the text itself, so
// "9" comes before "10" and the order is total even for odd entries made in the table
// maintenance screen. The schema indexes exactly these expressions.
QString numberOrder(const QSqlDatabase &db, const QString &column, bool descending)
{
    const QString direction = descending ? QStringLiteral(" DESC") : QString();
    return db::integerOf(db, column) + direction + QStringLiteral(", ") + column + direction;
}

QString columnList(const QStringList &names)
{
    QStringList quoted;
    for (const QString &name : names)
        quoted.append(db::quoteIdentifier(name));
    return quoted.join(QStringLiteral(", "));
}

QString placeholders(int count)
{
    QStringList marks;
    for (int i = 0; i < count; ++i)
        marks.append(QStringLiteral("?"));
    return marks.join(QStringLiteral(", "));
}

QString assignments(const QStringList &names, int skipFirst)
{
    QStringList parts;
    for (int i = skipFirst; i < names.size(); ++i)
        parts.append(db::quoteIdentifier(names.at(i)) + QStringLiteral(" = ?"));
    return parts.join(QStringLiteral(", "));
}

QVariant customerValue(const Customer &c, int i)
{
    if (i == static_cast<int>(CustomerField::KKubun))
        return c.values[i].trimmed().toInt() != 0 ? 1 : 0;
    return c.values[i];
}

Customer customerFrom(const QSqlQuery &query)
{
    Customer c;
    for (int i = 0; i < kCustomerFieldCount; ++i) {
        const QVariant v = query.value(i);
        if (i == static_cast<int>(CustomerField::KKubun))
            c.values[i] = v.toInt() != 0 ? QStringLiteral("1") : QStringLiteral("0");
        else
            c.values[i] = v.toString();
    }
    return c;
}

Vehicle vehicleFrom(const QSqlQuery &query)
{
    Vehicle v;
    for (int i = 0; i < kVehicleFieldCount; ++i)
        v.values[i] = query.value(i).toString();
    return v;
}

} // namespace

std::optional<int> nextNumber(qint64 last)
{
    if (last >= std::numeric_limits<qint16>::max() || last < std::numeric_limits<qint16>::min())
        return std::nullopt;
    return static_cast<int>(last + 1);
}

struct CustomerStore::Queries
{
    explicit Queries(const QSqlDatabase &db)
        : names(db), first(db), byNumber(db), nextSame(db), next(db), previousSame(db), previous(db), byName(db), vehicles(db),
          vehicleCount(db), lastCustomer(db), lastVehicle(db), insertCustomer(db), insertVehicle(db),
          updateCustomer(db), updateVehicle(db), deleteVehiclesOf(db), deleteCustomer(db),
          deleteVehicle(db)
    {
        const QString customerColumns = columnList(customerFieldNames());
        const QString vehicleColumns = columnList(vehicleFieldNames());
        const QString selectCustomer = QStringLiteral("SELECT %1 FROM %2 ").arg(customerColumns, kCustomers);
        const QString kno = db::integerOf(db, QStringLiteral("\"KNo\""));
        const QString sno = db::integerOf(db, QStringLiteral("\"SNo\""));
        const QString value = db::integerOf(db, QStringLiteral("?"));
        const QString kCustomerOrder = numberOrder(db, QStringLiteral("\"KNo\""), false);
        const QString kCustomerOrderDesc = numberOrder(db, QStringLiteral("\"KNo\""), true);
        const QString kVehicleOrder = numberOrder(db, QStringLiteral("\"SNo\""), false);
        const QString kVehicleOrderDesc = numberOrder(db, QStringLiteral("\"SNo\""), true);
        names.setForwardOnly(true);
        vehicles.setForwardOnly(true);
        prepare(names, QStringLiteral("SELECT DISTINCT \"Namae\" FROM %1 WHERE \"Namae\" <> '' ORDER BY \"Namae\"")
                           .arg(kCustomers));
        prepare(first, selectCustomer + QStringLiteral("ORDER BY %1 LIMIT 1").arg(kCustomerOrder));
        prepare(byNumber, selectCustomer + QStringLiteral("WHERE \"KNo\" = ?"));
        // Moving on is two index searches: the same number value with a later text, else
        // the next value (a row-value comparison over the expressions would scan the table).
        prepare(nextSame, selectCustomer
                              + QStringLiteral("WHERE %2 = %3 AND \"KNo\" > ? ORDER BY %1 LIMIT 1").arg(kCustomerOrder, kno, value));
        prepare(next, selectCustomer
                          + QStringLiteral("WHERE %2 > %3 ORDER BY %1 LIMIT 1").arg(kCustomerOrder, kno, value));
        prepare(previousSame, selectCustomer
                                  + QStringLiteral("WHERE %2 = %3 AND \"KNo\" < ? ORDER BY %1 LIMIT 1")
                                        .arg(kCustomerOrderDesc, kno, value));
        prepare(previous, selectCustomer
                              + QStringLiteral("WHERE %2 < %3 ORDER BY %1 LIMIT 1").arg(kCustomerOrderDesc, kno, value));
        prepare(byName, selectCustomer + QStringLiteral("WHERE \"Namae\" = ? ORDER BY %1 LIMIT 1").arg(kCustomerOrder));
        prepare(vehicles, QStringLiteral("SELECT %1 FROM %2 WHERE \"KNo\" = ? ORDER BY %3")
                              .arg(vehicleColumns, kVehicles, kVehicleOrder));
        prepare(vehicleCount, QStringLiteral("SELECT COUNT(*) FROM %1 WHERE \"KNo\" = ?").arg(kVehicles));
        prepare(lastCustomer, QStringLiteral("SELECT %3 FROM %1 ORDER BY %2 LIMIT 1")
                                  .arg(kCustomers, kCustomerOrderDesc, kno));
        prepare(lastVehicle, QStringLiteral("SELECT %3 FROM %1 ORDER BY %2 LIMIT 1")
                                 .arg(kVehicles, kVehicleOrderDesc, sno));
        prepare(insertCustomer, QStringLiteral("INSERT INTO %1 (%2) VALUES (%3)")
                                    .arg(kCustomers, customerColumns, placeholders(kCustomerFieldCount)));
        prepare(insertVehicle, QStringLiteral("INSERT INTO %1 (%2) VALUES (%3)")
                                   .arg(kVehicles, vehicleColumns, placeholders(kVehicleFieldCount)));
        prepare(updateCustomer, QStringLiteral("UPDATE %1 SET %2 WHERE \"KNo\" = ?")
                                    .arg(kCustomers, assignments(customerFieldNames(), 1)));
        prepare(updateVehicle, QStringLiteral("UPDATE %1 SET %2 WHERE \"SNo\" = ?")
                                   .arg(kVehicles, assignments(vehicleFieldNames(), 1)));
        prepare(deleteVehiclesOf, QStringLiteral("DELETE FROM %1 WHERE \"KNo\" = ?").arg(kVehicles));
        prepare(deleteCustomer, QStringLiteral("DELETE FROM %1 WHERE \"KNo\" = ?").arg(kCustomers));
        prepare(deleteVehicle, QStringLiteral("DELETE FROM %1 WHERE \"SNo\" = ?").arg(kVehicles));
    }

    void prepare(QSqlQuery &query, const QString &sql)
    {
        if (!query.prepare(sql) && prepareError.isEmpty())
            prepareError = query.lastError().text();
    }

    QString prepareError;
    QSqlQuery names, first, byNumber, nextSame, next, previousSame, previous, byName, vehicles, vehicleCount, lastCustomer,
        lastVehicle, insertCustomer, insertVehicle, updateCustomer, updateVehicle, deleteVehiclesOf,
        deleteCustomer, deleteVehicle;
};

CustomerStore::CustomerStore(QSqlDatabase database)
    : m_db(std::move(database)), m_q(std::make_unique<Queries>(m_db))
{
    m_error = m_q->prepareError;
}

CustomerStore::~CustomerStore() = default;

std::unique_ptr<CustomerStore> CustomerStore::open(const QString &appFolder, QString *error)
{
    db::OpenResult opened = db::openDatabase(appFolder, QStringLiteral("temp\\KokyakuDB.mdb"));
    if (!opened.ok()) {
        if (error)
            *error = opened.error;
        return nullptr;
    }
    for (const QString &table : {QStringLiteral("Kokyaku_Jyouhou"), QStringLiteral("Kokyaku_Syaryou")}) {
        if (!db::tableExists(opened.database, table)) {
            if (error)
                *error = QStringLiteral("顧客データベースにテーブル %1 がありません。").arg(table);
            return nullptr;
        }
    }
    auto store = std::make_unique<CustomerStore>(opened.database);
    if (!store->lastError().isEmpty()) {
        if (error)
            *error = store->lastError();
        return nullptr;
    }
    return store;
}

bool CustomerStore::fail(const QString &message)
{
    m_error = message;
    return false;
}

bool CustomerStore::failQuery(const QSqlQuery &query)
{
    return fail(QStringLiteral("顧客データベースの操作に失敗しました。\n") + query.lastError().text());
}

QStringList CustomerStore::customerNames()
{
    QStringList names;
    QSqlQuery &q = m_q->names;
    if (!q.exec()) {
        failQuery(q);
        return names;
    }
    while (q.next())
        names.append(q.value(0).toString());
    q.finish();
    return names;
}

std::optional<Customer> CustomerStore::readOneCustomer(QSqlQuery &query)
{
    if (!query.exec()) {
        failQuery(query);
        return std::nullopt;
    }
    std::optional<Customer> found;
    if (query.next())
        found = customerFrom(query);
    query.finish();
    return found;
}

std::optional<Customer> CustomerStore::firstCustomer()
{
    return readOneCustomer(m_q->first);
}

std::optional<Customer> CustomerStore::customer(const QString &kno)
{
    m_q->byNumber.bindValue(0, kno);
    return readOneCustomer(m_q->byNumber);
}

std::optional<Customer> CustomerStore::neighbour(QSqlQuery &same, QSqlQuery &other, const QString &kno)
{
    same.bindValue(0, kno);
    same.bindValue(1, kno);
    if (std::optional<Customer> found = readOneCustomer(same))
        return found;
    other.bindValue(0, kno);
    return readOneCustomer(other);
}

std::optional<Customer> CustomerStore::nextCustomer(const QString &kno)
{
    return neighbour(m_q->nextSame, m_q->next, kno);
}

std::optional<Customer> CustomerStore::previousCustomer(const QString &kno)
{
    return neighbour(m_q->previousSame, m_q->previous, kno);
}

std::optional<Customer> CustomerStore::findFirstByName(const QString &name)
{
    m_q->byName.bindValue(0, name);
    return readOneCustomer(m_q->byName);
}

QList<Vehicle> CustomerStore::vehiclesOf(const QString &kno)
{
    QList<Vehicle> list;
    QSqlQuery &q = m_q->vehicles;
    q.bindValue(0, kno);
    if (!q.exec()) {
        failQuery(q);
        return list;
    }
    while (q.next())
        list.append(vehicleFrom(q));
    q.finish();
    return list;
}

int CustomerStore::vehicleCount(const QString &kno)
{
    QSqlQuery &q = m_q->vehicleCount;
    q.bindValue(0, kno);
    if (!q.exec() || !q.next()) {
        failQuery(q);
        return -1;
    }
    const int count = q.value(0).toInt();
    q.finish();
    return count;
}

std::optional<int> CustomerStore::nextNumberOf(QSqlQuery &query, const QString &what)
{
    if (!query.exec()) {
        failQuery(query);
        return std::nullopt;
    }
    // An empty table starts at 1.
    const qint64 last = query.next() ? query.value(0).toLongLong() : 0;
    query.finish();
    const std::optional<int> next = nextNumber(last);
    if (!next)
        fail(QStringLiteral("%1が上限 (32767) に達しているため、新しく登録できません。").arg(what));
    return next;
}

std::optional<int> CustomerStore::nextCustomerNumber()
{
    return nextNumberOf(m_q->lastCustomer, QStringLiteral("顧客番号"));
}

std::optional<int> CustomerStore::nextVehicleNumber()
{
    return nextNumberOf(m_q->lastVehicle, QStringLiteral("車輌番号"));
}

bool CustomerStore::insertCustomer(const Customer &customer)
{
    QSqlQuery &q = m_q->insertCustomer;
    for (int i = 0; i < kCustomerFieldCount; ++i)
        q.bindValue(i, customerValue(customer, i));
    return q.exec() || failQuery(q);
}

bool CustomerStore::insertVehicle(const Vehicle &vehicle)
{
    QSqlQuery &q = m_q->insertVehicle;
    for (int i = 0; i < kVehicleFieldCount; ++i)
        q.bindValue(i, vehicle.values[i]);
    return q.exec() || failQuery(q);
}

bool CustomerStore::addCustomerWithVehicle(Customer &customer, Vehicle &vehicle)
{
    db::TransactionGuard guard(m_db);
    if (!guard.started())
        return fail(m_db.lastError().text());
    const std::optional<int> kno = nextCustomerNumber();
    const std::optional<int> sno = kno ? nextVehicleNumber() : std::nullopt;
    if (!kno || !sno)
        return false;
    Customer c = customer;
    Vehicle v = vehicle;
    c[CustomerField::KNo] = QString::number(*kno);
    v[VehicleField::SNo] = QString::number(*sno);
    v[VehicleField::KNo] = c[CustomerField::KNo];
    if (!insertCustomer(c) || !insertVehicle(v))
        return false;
    if (!guard.commit())
        return fail(m_db.lastError().text());
    customer = c;
    vehicle = v;
    return true;
}

bool CustomerStore::addVehicle(Vehicle &vehicle)
{
    db::TransactionGuard guard(m_db);
    if (!guard.started())
        return fail(m_db.lastError().text());
    const std::optional<int> sno = nextVehicleNumber();
    if (!sno)
        return false;
    Vehicle v = vehicle;
    v[VehicleField::SNo] = QString::number(*sno);
    if (!insertVehicle(v))
        return false;
    if (!guard.commit())
        return fail(m_db.lastError().text());
    vehicle = v;
    return true;
}

bool CustomerStore::updateCustomer(const Customer &customer)
{
    QSqlQuery &q = m_q->updateCustomer;
    for (int i = 1; i < kCustomerFieldCount; ++i)
        q.bindValue(i - 1, customerValue(customer, i));
    q.bindValue(kCustomerFieldCount - 1, customer[CustomerField::KNo]);
    if (!q.exec())
        return failQuery(q);
    if (q.numRowsAffected() != 1)
        return fail(QStringLiteral("顧客番号 %1 のデータが見つかりません。").arg(customer[CustomerField::KNo]));
    return true;
}

bool CustomerStore::updateVehicle(const Vehicle &vehicle)
{
    QSqlQuery &q = m_q->updateVehicle;
    for (int i = 1; i < kVehicleFieldCount; ++i)
        q.bindValue(i - 1, vehicle.values[i]);
    q.bindValue(kVehicleFieldCount - 1, vehicle[VehicleField::SNo]);
    if (!q.exec())
        return failQuery(q);
    if (q.numRowsAffected() != 1)
        return fail(QStringLiteral("車輌番号 %1 のデータが見つかりません。").arg(vehicle[VehicleField::SNo]));
    return true;
}

DeleteOutcome CustomerStore::deleteCustomer(const QString &kno)
{
    db::TransactionGuard guard(m_db);
    if (!guard.started()) {
        fail(m_db.lastError().text());
        return DeleteOutcome::Failed;
    }
    const int count = vehicleCount(kno);
    if (count < 0)
        return DeleteOutcome::Failed;
    if (count >= 2)
        return DeleteOutcome::TooManyVehicles;

    QSqlQuery &vehicles = m_q->deleteVehiclesOf;
    vehicles.bindValue(0, kno);
    if (!vehicles.exec()) {
        failQuery(vehicles);
        return DeleteOutcome::Failed;
    }
    if (m_betweenDeletes && !m_betweenDeletes()) {
        fail(QStringLiteral("顧客データの削除に失敗しました。データは変更されていません。"));
        return DeleteOutcome::Failed;
    }
    QSqlQuery &customer = m_q->deleteCustomer;
    customer.bindValue(0, kno);
    if (!customer.exec()) {
        failQuery(customer);
        return DeleteOutcome::Failed;
    }
    if (customer.numRowsAffected() != 1) {
        fail(QStringLiteral("顧客番号 %1 のデータが見つかりません。").arg(kno));
        return DeleteOutcome::Failed;
    }
    if (!guard.commit()) {
        fail(m_db.lastError().text());
        return DeleteOutcome::Failed;
    }
    return DeleteOutcome::Deleted;
}

bool CustomerStore::deleteVehicle(const QString &sno)
{
    db::TransactionGuard guard(m_db);
    if (!guard.started())
        return fail(m_db.lastError().text());
    QSqlQuery &q = m_q->deleteVehicle;
    q.bindValue(0, sno);
    if (!q.exec())
        return failQuery(q);
    if (q.numRowsAffected() != 1)
        return fail(QStringLiteral("車輌番号 %1 のデータが見つかりません。").arg(sno));
    if (!guard.commit())
        return fail(m_db.lastError().text());
    return true;
}

} // namespace est::customers
