#include "workitems/maker_name_list.h"

#include "db/database.h"

#include <QSqlError>
#include <QSqlQuery>
#include <QVariant>

namespace est::workitems {

QString MakerNameList::open(const QString &appFolder, QSqlDatabase *database)
{
    db::OpenResult result = db::openDatabase(appFolder, QStringLiteral("temp\\SettingDB.mdb"));
    if (!result.ok())
        return result.error;
    if (!db::tableExists(result.database, QStringLiteral("MekaName")))
        return QStringLiteral("メーカー名の表 MekaName がありません。");
    *database = result.database;
    return {};
}

QList<MakerName> MakerNameList::all() const
{
    QList<MakerName> list;
    QSqlQuery query(m_db);
    if (!query.exec(QStringLiteral("SELECT rowid, \"No\", \"メーカー\" FROM \"MekaName\" ORDER BY \"No\", rowid")))
        return list;
    while (query.next())
        list.append({query.value(0).toLongLong(), query.value(1).toLongLong(), query.value(2).toString()});
    return list;
}

qint64 MakerNameList::nextNumber() const
{
    const QList<MakerName> rows = all();
    return rows.isEmpty() ? 1 : rows.last().no + 1;
}

QString MakerNameList::add(qint64 no, const QString &name)
{
    QSqlQuery query(m_db);
    query.prepare(QStringLiteral("INSERT INTO \"MekaName\" (\"No\", \"メーカー\") VALUES (?, ?)"));
    query.addBindValue(no);
    query.addBindValue(name);
    return query.exec() ? QString() : query.lastError().text();
}

QString MakerNameList::rename(qint64 rowId, const QString &name)
{
    QSqlQuery query(m_db);
    query.prepare(QStringLiteral("UPDATE \"MekaName\" SET \"メーカー\" = ? WHERE rowid = ?"));
    query.addBindValue(name);
    query.addBindValue(rowId);
    return query.exec() ? QString() : query.lastError().text();
}

QString MakerNameList::remove(qint64 rowId)
{
    QSqlQuery query(m_db);
    query.prepare(QStringLiteral("DELETE FROM \"MekaName\" WHERE rowid = ?"));
    query.addBindValue(rowId);
    return query.exec() ? QString() : query.lastError().text();
}

} // namespace est::workitems
