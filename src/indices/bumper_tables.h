#pragma once
// The bumper index tables of the paint master database: the base index by work, vehicle
// class, colour kind and content (BanpaDB), the off-vehicle addition by colour kind
// (BampaTantaiDB) and the three condition additions (BampaJyoukenDB).

#include <QSqlDatabase>
#include <QString>
#include <array>

namespace est::indices {

class BumperTables
{
public:
    explicit BumperTables(QSqlDatabase database);

    // The index at field position 5 of the matching BanpaDB row; "0" when there is none (or
    // no table).
    QString baseIndex(const QString &workCode, const QString &vehicleClass, const QString &colourKind,
                      const QString &content) const;

    // Sisu of the BampaTantaiDB row of that colour kind; empty when there is none.
    QString offVehicleIndex(const QString &colourKind) const;

    // The first three values of BampaJyoukenDB in table order (Hyoj, Sima, Kizu); "0" for a
    // missing row.
    std::array<QString, 3> conditionIndices() const;

private:
    QSqlDatabase m_database;
};

} // namespace est::indices
