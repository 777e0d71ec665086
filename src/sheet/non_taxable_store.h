#pragma once
// The master list of non-taxable items in Data\Hikazei (table "HikazeiDB"): running number,
// item name and standard amount.

#include "common/money.h"

#include <QList>
#include <QSqlDatabase>
#include <QString>
#include <QVariant>
#include <optional>

namespace est::sheet {

struct NonTaxableEntry
{
    int no = 0;        // No
    QString name;      // koumoku
    Yen amount = 0;    // kingaku
    // The table's own row id: numbers are not unique in a list edited elsewhere (a gap in
    // the numbering makes the next new entry share a number), so edits and deletions from
    // the list go by this.
    qint64 rowId = 0;

    // Same number, name and amount; where the entry is stored does not count.
    bool operator==(const NonTaxableEntry &o) const { return no == o.no && name == o.name && amount == o.amount; }
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
    // The same for exactly the entry read by entries(), even when another shares its number.
    bool update(const NonTaxableEntry &entry, const QString &name, Yen amount);
    bool remove(const NonTaxableEntry &entry);

    QString lastError() const { return m_error; }

private:
    // Deletes the rows matching `condition` (one bound `key`) and numbers those after `no` down.
    bool removeWhere(const QString &condition, const QVariant &key, int no);

    QSqlDatabase m_db;
    mutable QString m_error;
};

} // namespace est::sheet
