#include "indices/additional_tables.h"

#include "db/database.h"
#include "db/dialect.h"
#include "indices/index_value.h"

#include <QSqlQuery>
#include <QSqlRecord>

namespace est::indices {

namespace {

QString doorTableName(DoorTable table)
{
    return table == DoorTable::Sash ? QStringLiteral("SasyuDB") : QStringLiteral("Sutoraip");
}

QString unitTableName(UnitTable table)
{
    switch (table) {
    case UnitTable::Sealing: return QStringLiteral("SeelingDB");
    case UnitTable::Wax: return QStringLiteral("WaxDB");
    case UnitTable::Booth: break;
    }
    return QStringLiteral("BoothDB");
}

QStringList firstColumn(const QSqlDatabase &database, const QString &sql)
{
    QStringList values;
    QSqlQuery q(database);
    if (!q.exec(sql))
        return values;
    while (q.next())
        values.append(q.value(0).toString());
    return values;
}

// The field at `position` of the first row that `key` selects.
QString fieldOfRow(const QSqlDatabase &database, const QString &table, const QString &keyField,
                   const QString &key, int position)
{
    QSqlQuery q(database);
    q.prepare(QStringLiteral("SELECT * FROM %1 WHERE %2 = ? ORDER BY rowid")
                  .arg(db::quoteIdentifier(table), db::quoteIdentifier(keyField)));
    q.addBindValue(key);
    if (!q.exec() || !q.next() || position < 0 || position >= db::fieldCount(q.record()))
        return {};
    return indexText(q.value(position));
}

} // namespace

AdditionalTables::AdditionalTables(QSqlDatabase database) : m_database(std::move(database)) {}

QStringList AdditionalTables::toneKinds() const
{
    return firstColumn(m_database, QStringLiteral("SELECT \"Tone\" FROM \"2ToneDB\" ORDER BY rowid"));
}

QString AdditionalTables::toneIndex(const QString &kind, int position) const
{
    return fieldOfRow(m_database, QStringLiteral("2ToneDB"), QStringLiteral("Tone"), kind, position);
}

QStringList AdditionalTables::doorCounts(DoorTable table) const
{
    return firstColumn(m_database, QStringLiteral("SELECT \"Mai\" FROM %1 ORDER BY rowid")
                                       .arg(db::quoteIdentifier(doorTableName(table))));
}

QString AdditionalTables::doorIndex(DoorTable table, const QString &doors) const
{
    return fieldOfRow(m_database, doorTableName(table), QStringLiteral("Mai"), doors, 2);
}

QString AdditionalTables::unitIndex(UnitTable table) const
{
    QSqlQuery q(m_database);
    if (!q.exec(QStringLiteral("SELECT * FROM %1 ORDER BY rowid LIMIT 1").arg(db::quoteIdentifier(unitTableName(table))))
        || !q.next() || db::fieldCount(q.record()) < 2)
        return {};
    return indexText(q.value(1));
}

} // namespace est::indices
