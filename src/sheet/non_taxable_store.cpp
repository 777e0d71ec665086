#include "sheet/non_taxable_store.h"

#include "db/transaction_guard.h"

#include <QSqlError>
#include <QSqlQuery>
#include <QVariant>

namespace est::sheet {

NonTaxableStore::NonTaxableStore(QSqlDatabase database) : m_db(std::move(database)) {}

QList<NonTaxableEntry> NonTaxableStore::entries() const
{
    QList<NonTaxableEntry> list;
    QSqlQuery q(m_db);
    if (!q.exec(QStringLiteral(
            "SELECT \"No\", \"koumoku\", \"kingaku\", rowid FROM \"HikazeiDB\" ORDER BY \"No\", rowid"))) {
        m_error = q.lastError().text();
        return list;
    }
    while (q.next())
        list.append({q.value(0).toInt(), q.value(1).toString(), Yen(q.value(2).toLongLong()), q.value(3).toLongLong()});
    return list;
}

int NonTaxableStore::count() const
{
    QSqlQuery q(m_db);
    if (!q.exec(QStringLiteral("SELECT COUNT(*) FROM \"HikazeiDB\"")) || !q.next()) {
        m_error = q.lastError().text();
        return 0;
    }
    return q.value(0).toInt();
}

std::optional<NonTaxableEntry> NonTaxableStore::find(const QString &name) const
{
    QSqlQuery q(m_db);
    q.prepare(QStringLiteral("SELECT \"No\", \"koumoku\", \"kingaku\" FROM \"HikazeiDB\" WHERE \"koumoku\" = ? "
                             "ORDER BY \"No\" LIMIT 1"));
    q.addBindValue(name);
    if (!q.exec()) {
        m_error = q.lastError().text();
        return std::nullopt;
    }
    if (!q.next())
        return std::nullopt;
    return NonTaxableEntry{q.value(0).toInt(), q.value(1).toString(), Yen(q.value(2).toLongLong())};
}

bool NonTaxableStore::append(const QString &name, Yen amount)
{
    const int n = count();
    if (n >= kMaxNonTaxableEntries) {
        m_error = QStringLiteral("登録できるのは %1 件までです。").arg(kMaxNonTaxableEntries);
        return false;
    }
    QSqlQuery q(m_db);
    q.prepare(QStringLiteral("INSERT INTO \"HikazeiDB\" (\"No\", \"koumoku\", \"kingaku\") VALUES (?, ?, ?)"));
    q.addBindValue(n + 1);
    q.addBindValue(name);
    q.addBindValue(amount);
    if (!q.exec()) {
        m_error = q.lastError().text();
        return false;
    }
    return true;
}

bool NonTaxableStore::update(int no, const QString &name, Yen amount)
{
    QSqlQuery q(m_db);
    q.prepare(QStringLiteral("UPDATE \"HikazeiDB\" SET \"koumoku\" = ?, \"kingaku\" = ? WHERE \"No\" = ?"));
    q.addBindValue(name);
    q.addBindValue(amount);
    q.addBindValue(no);
    if (!q.exec()) {
        m_error = q.lastError().text();
        return false;
    }
    return true;
}

bool NonTaxableStore::update(const NonTaxableEntry &entry, const QString &name, Yen amount)
{
    QSqlQuery q(m_db);
    q.prepare(QStringLiteral("UPDATE \"HikazeiDB\" SET \"koumoku\" = ?, \"kingaku\" = ? WHERE rowid = ?"));
    q.addBindValue(name);
    q.addBindValue(amount);
    q.addBindValue(entry.rowId);
    if (!q.exec()) {
        m_error = q.lastError().text();
        return false;
    }
    return true;
}

bool NonTaxableStore::remove(int no)
{
    return removeWhere(QStringLiteral("\"No\" = ?"), no, no);
}

bool NonTaxableStore::remove(const NonTaxableEntry &entry)
{
    return removeWhere(QStringLiteral("rowid = ?"), entry.rowId, entry.no);
}

bool NonTaxableStore::removeWhere(const QString &condition, const QVariant &key, int no)
{
    db::TransactionGuard guard(m_db);
    QSqlQuery q(m_db);
    q.prepare(QStringLiteral("DELETE FROM \"HikazeiDB\" WHERE ") + condition);
    q.addBindValue(key);
    if (!q.exec()) {
        m_error = q.lastError().text();
        return false;
    }
    QSqlQuery renumber(m_db);
    renumber.prepare(QStringLiteral("UPDATE \"HikazeiDB\" SET \"No\" = \"No\" - 1 WHERE \"No\" > ?"));
    renumber.addBindValue(no);
    if (!renumber.exec()) {
        m_error = renumber.lastError().text();
        return false;
    }
    if (!guard.commit()) {
        m_error = m_db.lastError().text();
        return false;
    }
    return true;
}

} // namespace est::sheet
