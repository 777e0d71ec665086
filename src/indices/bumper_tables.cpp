#include "indices/bumper_tables.h"

#include "indices/index_value.h"

#include <QSqlQuery>

namespace est::indices {

BumperTables::BumperTables(QSqlDatabase database) : m_database(std::move(database)) {}

QString BumperTables::baseIndex(const QString &workCode, const QString &vehicleClass, const QString &colourKind,
                                const QString &content) const
{
    QSqlQuery q(m_database);
    q.prepare(QStringLiteral("SELECT * FROM \"BanpaDB\" WHERE \"作業\" = ? AND \"車種\" = ? AND \"色種\" = ? "
                             "AND \"内容\" = ?"));
    for (const QString &value : {workCode, vehicleClass, colourKind, content})
        q.addBindValue(value);
    if (!q.exec() || !q.next())
        return QStringLiteral("0");
    const QString index = indexText(q.value(5));
    return index.isEmpty() ? QStringLiteral("0") : index;
}

QString BumperTables::offVehicleIndex(const QString &colourKind) const
{
    QSqlQuery q(m_database);
    q.prepare(QStringLiteral("SELECT \"Sisu\" FROM \"BampaTantaiDB\" WHERE \"Colr\" = ?"));
    q.addBindValue(colourKind);
    if (!q.exec() || !q.next())
        return {};
    return indexText(q.value(0));
}

std::array<QString, 3> BumperTables::conditionIndices() const
{
    std::array<QString, 3> values{QStringLiteral("0"), QStringLiteral("0"), QStringLiteral("0")};
    QSqlQuery q(m_database);
    if (!q.exec(QStringLiteral("SELECT \"Sisu\" FROM \"BampaJyoukenDB\" ORDER BY rowid")))
        return values;
    for (auto &value : values) {
        if (!q.next())
            break;
        const QString index = indexText(q.value(0));
        if (!index.isEmpty())
            value = index;
    }
    return values;
}

} // namespace est::indices
