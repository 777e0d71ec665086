#pragma once
// The own-company records in temp\Jisya_Jyouhou (table "Jisya_Jyouhou").

#include <QList>
#include <QSqlDatabase>
#include <QString>
#include <QStringList>
#include <optional>

namespace est::sheet {

// One record, as the editor shows it: every field as text, the print flag as a Boolean.
struct CompanyRecord
{
    int jNo = 0;          // JNo
    QString comment;      // Coment
    QString name;         // Jisyamei
    QString address;      // JJyusyo
    QString tel;          // JTEL
    QString fax;          // JFAX
    QString bank;         // Ginkou
    QString bankBranch;   // Siten
    QString accountType;  // Kouza
    QString branchNo;     // MiseNo
    QString accountNo;    // KozaNo
    QString taxRate;      // Zeiritu, whole per cent
    QString accountHolder; // KozaName
    bool printAccount = false; // KozaPrint

    bool operator==(const CompanyRecord &) const = default;
};

// The fourteen texts of the company block, in the order of the company text file.
QStringList companyBlock(const CompanyRecord &record);

// Checks what the user typed before it is stored: an error sentence for the user, or
// nothing when the record can be stored. The tax rate must be a whole number of per cent
// (0 to 100), the branch number a whole number or empty.
std::optional<QString> checkCompanyRecord(const CompanyRecord &record);

class CompanyStore
{
public:
    explicit CompanyStore(QSqlDatabase database);

    // Every record by record number.
    QList<CompanyRecord> records() const;
    // Stores a new record under the next free record number, which it returns through `record`.
    bool insert(CompanyRecord &record);
    bool update(const CompanyRecord &record);
    bool remove(int jNo);
    // Record numbers whose company name is exactly `name`.
    QList<int> findByName(const QString &name) const;

    QString lastError() const { return m_error; }

private:
    QSqlDatabase m_db;
    mutable QString m_error;
};

} // namespace est::sheet
