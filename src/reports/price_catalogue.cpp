#include "reports/price_catalogue.h"

#include "db/database.h"
#include "db/dialect.h"
#include "db/transaction_guard.h"
#include "workitems/catalogue.h"

#include <QSqlError>
#include <QSqlQuery>

namespace est::reports {

namespace {

bool hasColumn(const QSqlDatabase &db, const QString &table, const QString &column)
{
    return db::columnNames(db, table).contains(column);
}

// The upgrade step of a catalogue table: the two price columns after the binding six.
QString addPriceColumns(QSqlDatabase &db, const QString &table)
{
    const std::pair<QString, const char *> columns[] = {{kPartNumberColumn, "TEXT"}, {kPartPriceColumn, "INTEGER"}};
    for (const auto &[column, type] : columns) {
        if (hasColumn(db, table, column))
            continue;
        QSqlQuery q(db);
        if (!q.exec(QStringLiteral("ALTER TABLE %1 ADD COLUMN %2 %3")
                        .arg(db::quoteIdentifier(table), db::quoteIdentifier(column), QLatin1String(type))))
            return q.lastError().text();
    }
    return {};
}

} // namespace

PriceCatalogue::PriceCatalogue(QSqlDatabase db, QStringList tables) : m_db(std::move(db)), m_tables(std::move(tables)) {}

std::unique_ptr<PriceCatalogue> PriceCatalogue::open(const QString &appFolder, const QString &dbName,
                                                     const QStringList &tables, QString *error)
{
    auto fail = [error](const QString &text) {
        if (error)
            *error = text;
        return nullptr;
    };
    if (!workitems::isPlainFileName(dbName))
        return fail(QStringLiteral("部品データのファイル名「%1」が正しくありません。").arg(dbName));
    db::OpenResult opened = db::openDatabase(appFolder, QStringLiteral("Data\\") + dbName + QStringLiteral(".mdb"));
    if (!opened.ok())
        return fail(opened.error);
    QStringList present;
    for (const QString &table : tables)
        if (db::tableExists(opened.database, table))
            present.append(table);
    if (present.isEmpty())
        return fail(QStringLiteral("部品データ（%1）に車両タイプの表がありません。").arg(dbName));
    {
        db::TransactionGuard guard(opened.database);
        for (const QString &table : present)
            if (const QString e = addPriceColumns(opened.database, table); !e.isEmpty())
                return fail(e);
        if (!guard.commit())
            return fail(opened.database.lastError().text());
    }
    std::unique_ptr<PriceCatalogue> catalogue(new PriceCatalogue(opened.database, present));
    if (const QString e = catalogue->load(); !e.isEmpty())
        return fail(e);
    return catalogue;
}

QString PriceCatalogue::load()
{
    m_parts.clear();
    for (const QString &table : m_tables) {
        QSqlQuery q(m_db);
        q.setForwardOnly(true);
        if (!q.exec(QStringLiteral("SELECT rowid, %1, %2, \"部品名\" FROM %3 WHERE %1 IS NOT NULL AND %1 <> ''")
                        .arg(db::quoteIdentifier(kPartNumberColumn), db::quoteIdentifier(kPartPriceColumn),
                             db::quoteIdentifier(table))))
            return q.lastError().text();
        while (q.next())
            m_parts[partNumberKey(q.value(1).toString())].append(
                {table, q.value(0).toLongLong(), q.value(3).toString(), Yen(q.value(2).toLongLong())});
    }
    return {};
}

PricePreview PriceCatalogue::preview(const QList<PriceEntry> &entries, int examples) const
{
    PricePreview p;
    for (const PriceEntry &e : entries) {
        const auto found = m_parts.constFind(e.partNumber);
        if (found == m_parts.cend()) {
            ++p.unmatched;
            if (p.unmatchedExamples.size() < examples)
                p.unmatchedExamples.append(e.partNumber);
            continue;
        }
        int changes = 0;
        for (const Part &part : *found) {
            if (part.price == e.price)
                continue;
            ++changes;
            if (p.changedExamples.size() < examples && (changes == 1))
                p.changedExamples.append({e.partNumber, part.name, part.price, e.price});
        }
        p.partsChanged += changes;
        ++(changes > 0 ? p.changed : p.unchanged);
    }
    return p;
}

QString PriceCatalogue::apply(const QList<PriceEntry> &entries)
{
    db::TransactionGuard guard(m_db);
    if (!guard.started())
        return m_db.lastError().text();
    QHash<QString, QSqlQuery> updates;
    for (const QString &table : m_tables) {
        QSqlQuery q(m_db);
        if (!q.prepare(QStringLiteral("UPDATE %1 SET %2 = ? WHERE rowid = ?")
                           .arg(db::quoteIdentifier(table), db::quoteIdentifier(kPartPriceColumn))))
            return q.lastError().text();
        updates.insert(table, q);
    }
    for (const PriceEntry &e : entries) {
        for (const Part &part : m_parts.value(e.partNumber)) {
            if (part.price == e.price)
                continue;
            QSqlQuery &q = updates[part.table];
            q.addBindValue(e.price);
            q.addBindValue(part.rowId);
            if (!q.exec())
                return q.lastError().text();
        }
    }
    if (!guard.commit())
        return m_db.lastError().text();
    return load();
}

} // namespace est::reports
