#pragma once
// The master list of non-taxable items in Data\Hikazei (table "HikazeiDB"): running number,
// item name and standard amount.

#include "common/money.h"

#include <QList>
#include <QSqlDatabase>
#include <QString>
#include <optional>

namespace est::sheet {

struct NonTaxableEntry
{
    int no = 0;        // No
    QString name;      // koumoku
    Yen amount = 0;    // kingaku

    bool operator==(const NonTaxableEntry &) const = default;
};

// The list holds at most this many entries.
inline constexpr int kMaxNonTaxableEntries = 99;

class NonTaxableStore
{
public:
    explicit NonTaxableStore(QSqlDatabase database);

    // Every entry by running number.
    QList<NonTaxableEntry> entries() const;
    int count() const;
    // The first entry whose name is exactly `name`.
    std::optional<NonTaxableEntry> find(const QString &name) const;

    // Adds an entry numbered one above the current count; false when the list is full.
    bool append(const QString &name, Yen amount);
    bool update(int no, const QString &name, Yen amount);
    // Removes the entry and numbers the later ones down, so the numbers stay 1..count.
    bool remove(int no);

    QString lastError() const { return m_error; }

private:
    QSqlDatabase m_db;
    mutable QString m_error;
};

} // namespace est::sheet
