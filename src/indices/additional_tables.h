#pragma once
// The additional index tables of the paint master database: two-tone colour (2ToneDB),
// door-sash black paint (SasyuDB), body stripe (Sutoraip), sealing (SeelingDB), anti-rust wax
// (WaxDB) and the paint booth (BoothDB). Fields are read by position.

#include <QSqlDatabase>
#include <QString>
#include <QStringList>

namespace est::indices {

enum class DoorTable { Sash, Stripe };     // SasyuDB, Sutoraip
enum class UnitTable { Sealing, Wax, Booth }; // SeelingDB, WaxDB, BoothDB

class AdditionalTables
{
public:
    explicit AdditionalTables(QSqlDatabase database);

    // The two-tone kinds (field Tone), in table order.
    QStringList toneKinds() const;
    // The field at `position` of the two-tone kind's row; empty when there is none.
    QString toneIndex(const QString &kind, int position) const;

    // The door counts offered (field Mai), in table order.
    QStringList doorCounts(DoorTable table) const;
    // The field at position 2 of the row for that door count; empty when there is none.
    QString doorIndex(DoorTable table, const QString &doors) const;

    // The field at position 1 of the table's first row; empty when there is none.
    QString unitIndex(UnitTable table) const;

private:
    QSqlDatabase m_database;
};

} // namespace est::indices
