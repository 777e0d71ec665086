#pragma once
// A customer's electronic invoice identifiers (Peppol ID and corporate number), kept in
// their own table of the customer database by customer number, so the customer table keeps
// the shape every other reader relies on.

#include <QSqlDatabase>
#include <QString>

namespace est::customers {

struct ElectronicAddress
{
    QString peppolId;          // "0188:<corporate number>", empty when unknown
    QString corporateNumber;   // 法人番号, thirteen digits, empty when unknown
    bool isEmpty() const { return peppolId.isEmpty() && corporateNumber.isEmpty(); }
    bool operator==(const ElectronicAddress &) const = default;
};

class ElectronicAddressStore
{
public:
    // Over an open connection to the customer database (which has gained the table on opening).
    explicit ElectronicAddressStore(QSqlDatabase database);
    // The identifiers of a customer; empty ones when it has none or the table is missing.
    ElectronicAddress read(const QString &kno) const;
    // Stores them (an empty pair removes the row). False with lastError() on failure.
    bool write(const QString &kno, const ElectronicAddress &address);
    bool remove(const QString &kno);
    QString lastError() const { return m_error; }

private:
    bool run(QSqlQuery &query);
    QSqlDatabase m_db;
    QString m_error;
};

// Opens the customer database of the application folder, when it exists, and reads one
// customer's identifiers; empty ones when there is no such file, table or customer.
ElectronicAddress readElectronicAddress(const QString &appFolder, const QString &kno);

} // namespace est::customers
