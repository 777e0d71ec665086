#pragma once
// What the printed documents need of the shop beyond the fourteen company items: the
// invoice registration number (登録番号, "T" and thirteen digits) and the representative's
// name, and the shop's electronic invoice address (Peppol ID). They live in tables of their
// own beside the company records, keyed by record number, so the company table and the
// fourteen-line company file keep their shape.

#include <QSqlDatabase>
#include <QString>
#include <optional>

namespace est::sheet {

struct CompanyExtras
{
    QString registrationNumber;      // empty when the shop has none
    bool numberOnEstimates = false;  // print the number on estimates and delivery notes too
    QString representative;          // 代表者, printed under the company name
    QString peppolId;                // electronic invoice address, empty when none
    bool operator==(const CompanyExtras &) const = default;
};

// "T" followed by thirteen digits (half-width). An empty text means no number.
bool isRegistrationNumber(const QString &text);
// The number as typed, tidied: blanks removed, full-width letters and digits made
// half-width, a lower-case "t" raised.
QString normalizeRegistrationNumber(const QString &text);
// Why a typed number is refused, or nothing when it can be stored (empty is allowed).
std::optional<QString> checkRegistrationNumber(const QString &text);

class CompanyExtrasStore
{
public:
    // Creates the table when the database file has none yet.
    explicit CompanyExtrasStore(QSqlDatabase database);
    CompanyExtras read(int jNo) const;
    bool write(int jNo, const CompanyExtras &extras);
    bool remove(int jNo);
    QString lastError() const { return m_error; }

private:
    QSqlDatabase m_db;
    mutable QString m_error;
};

} // namespace est::sheet
