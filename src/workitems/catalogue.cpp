#include "workitems/catalogue.h"

#include "db/app_folder.h"
#include "db/database.h"
#include "db/dialect.h"

#include <QSqlError>
#include <QVariant>
#include <limits>

namespace est::workitems {

namespace {

const QString kCarSetRelative = QStringLiteral("data\\CarSet.mdb");

std::int16_t toInt16(const QVariant &value)
{
    const qlonglong v = value.toLongLong();
    if (v < std::numeric_limits<std::int16_t>::min() || v > std::numeric_limits<std::int16_t>::max())
        return 0;
    return std::int16_t(v);
}

std::int32_t toInt32(const QVariant &value)
{
    const qlonglong v = value.toLongLong();
    if (v < std::numeric_limits<std::int32_t>::min() || v > std::numeric_limits<std::int32_t>::max())
        return 0;
    return std::int32_t(v);
}

// The indexes that keep the three lists instant on large catalogues: classifications are
// sought along (BNum, 分類), sections along (BNum, KNum, 区分) and parts read from
// (BNum, KNum, Num, 部品名) without touching the table itself.
QStringList indexStatements(const QString &table, bool server)
{
    const QString t = db::quoteIdentifier(table);
    // The lists walk the rows in SQLite's order, NULLs first; the server's indexes keep NULLs
    // last unless told, so it gets indexes of its own in that order.
    const QString nulls = server ? QStringLiteral(" NULLS FIRST") : QString();
    const QString suffix = server ? QStringLiteral("N") : QString();
    const auto index = [&](const char *name, const QStringList &columns) {
        QStringList parts;
        for (const QString &column : columns)
            parts.append(db::quoteIdentifier(column) + nulls);
        return QStringLiteral("CREATE INDEX IF NOT EXISTS %1 ON %2 (%3)")
            .arg(db::quoteIdentifier(table + QLatin1String(name) + suffix), t, parts.join(QStringLiteral(", ")));
    };
    return {
        index("_Class", {QStringLiteral("BNum"), QStringLiteral("分類")}),
        index("_Section", {QStringLiteral("BNum"), QStringLiteral("KNum"), QStringLiteral("区分")}),
        index("_Part", {QStringLiteral("BNum"), QStringLiteral("KNum"), QStringLiteral("Num"), QStringLiteral("部品名")}),
    };
}

} // namespace

bool isPlainFileName(const QString &name)
{
    const QString n = name.trimmed();
    if (n.isEmpty() || n == QLatin1String(".") || n == QLatin1String(".."))
        return false;
    for (QChar c : n)
        if (c == QLatin1Char('/') || c == QLatin1Char('\\') || c == QLatin1Char(':') || c.unicode() < 32)
            return false;
    return true;
}

CatalogueConnections::CatalogueConnections(QString appFolder) : m_appFolder(std::move(appFolder)) {}

QString CatalogueConnections::openCarSet()
{
    if (m_carSet.isOpen())
        return {};
    db::OpenResult result = db::openDatabase(m_appFolder, kCarSetRelative);
    if (!result.ok())
        return result.error;
    m_carSet = result.database;
    m_carSetPath = db::resolve(m_appFolder, kCarSetRelative);
    return {};
}

void CatalogueConnections::closeCarSet()
{
    m_carSet = QSqlDatabase();
    if (!m_carSetPath.isEmpty())
        db::closeDatabase(m_carSetPath);
    m_carSetPath.clear();
}

QList<Maker> CatalogueConnections::makers() const
{
    QList<Maker> list;
    if (!m_carSet.isOpen() || !db::tableExists(m_carSet, QStringLiteral("M_TCarSec")))
        return list;
    QSqlQuery query(m_carSet);
    if (!query.exec(QStringLiteral("SELECT \"Name\", \"DBName\" FROM \"M_TCarSec\" ORDER BY rowid")))
        return list;
    while (query.next())
        list.append({query.value(0).toString(), query.value(1).toString()});
    return list;
}

QList<VehicleType> CatalogueConnections::vehicleTypes() const
{
    QList<VehicleType> list;
    if (!m_carSet.isOpen() || !db::tableExists(m_carSet, QStringLiteral("M_TCarType")))
        return list;
    QSqlQuery query(m_carSet);
    if (!query.exec(QStringLiteral("SELECT \"Type\", \"TName\" FROM \"M_TCarType\" ORDER BY rowid")))
        return list;
    while (query.next())
        list.append({query.value(0).toString(), query.value(1).toString()});
    return list;
}

QString CatalogueConnections::openCatalogue(const QString &dbName)
{
    if (m_catalogue.isOpen() && dbName == m_catalogueDbName)
        return {};
    closeCatalogue();
    if (!isPlainFileName(dbName))
        return QStringLiteral("部品データのファイル名「%1」が正しくありません。").arg(dbName);
    const QString relative = QStringLiteral("Data\\") + dbName.trimmed() + QStringLiteral(".mdb");
    db::OpenResult result = db::openDatabase(m_appFolder, relative);
    if (!result.ok())
        return result.error;
    m_catalogue = result.database;
    m_cataloguePath = db::resolve(m_appFolder, relative);
    m_catalogueDbName = dbName;
    return {};
}

void CatalogueConnections::closeCatalogue()
{
    m_catalogue = QSqlDatabase();
    if (!m_cataloguePath.isEmpty())
        db::closeDatabase(m_cataloguePath);
    m_cataloguePath.clear();
    m_catalogueDbName.clear();
}

QString createCatalogueTable(QSqlDatabase &database, const QString &table)
{
    QSqlQuery query(database);
    const QString create = QStringLiteral(
        "CREATE TABLE IF NOT EXISTS %1 (\"Num\" INTEGER, \"BNum\" INTEGER, \"分類\" TEXT, "
        "\"KNum\" INTEGER, \"区分\" TEXT, \"部品名\" TEXT)").arg(db::quoteIdentifier(table));
    // On the server the table gets the row number the catalogue reads its rows in order by.
    if (!query.exec(db::isServer(database) ? db::toServerStatement(create) : create))
        return query.lastError().text();
    for (const QString &statement : indexStatements(table, db::isServer(database)))
        if (!query.exec(statement))
            return query.lastError().text();
    return {};
}

CatalogueTable::CatalogueTable(QSqlDatabase database, QString table)
    : m_db(std::move(database)), m_table(std::move(table)), m_classifications(m_db), m_sections(m_db),
      m_parts(m_db), m_rows(m_db), m_last(m_db)
{
}

std::unique_ptr<CatalogueTable> CatalogueTable::open(const QSqlDatabase &database, const QString &table,
                                                     QString *error)
{
    auto fail = [error](const QString &text) {
        if (error)
            *error = text;
        return std::unique_ptr<CatalogueTable>();
    };
    if (!database.isOpen())
        return fail(QStringLiteral("部品データが開かれていません。"));
    if (table.isEmpty() || !db::tableExists(database, table))
        return fail(QStringLiteral("車両タイプの部品データ「%1」がありません。").arg(table));
    std::unique_ptr<CatalogueTable> t(new CatalogueTable(database, table));
    // A catalogue copied in from elsewhere may lack the indexes; a read-only file keeps working
    // without them.
    QSqlQuery query(database);
    for (const QString &statement : indexStatements(table, db::isServer(database)))
        query.exec(statement);
    const QString problem = t->prepareAll();
    if (!problem.isEmpty())
        return fail(QStringLiteral("車両タイプの部品データ「%1」を読めません。\n%2").arg(table, problem));
    if (error)
        error->clear();
    return t;
}

CatalogueTable::DistinctPairs::DistinctPairs(const QSqlDatabase &db)
    : m_first(db), m_sameFirst(db), m_sameFirstAfterNull(db), m_nextFirst(db), m_nextFirstAfterNull(db)
{
}

QString CatalogueTable::DistinctPairs::prepare(const QString &table, const QString &prefix, const QString &first,
                                               const QString &second)
{
    m_hasPrefix = !prefix.isEmpty();
    const QString t = db::quoteIdentifier(table);
    const QString a = db::quoteIdentifier(first);
    const QString b = db::quoteIdentifier(second);
    const QString where = m_hasPrefix ? db::quoteIdentifier(prefix) + QStringLiteral(" = ? AND ") : QString();
    // SQLite's own order; the server puts NULLs last unless told.
    const QString order = QStringLiteral(" ORDER BY %1 NULLS FIRST, %2 NULLS FIRST LIMIT 1").arg(a, b);
    struct Statement
    {
        QSqlQuery *query;
        QString text;
    };
    const Statement statements[] = {
        {&m_first, QStringLiteral("SELECT %1, %2 FROM %3 %4").arg(a, b, t,
                                                                 m_hasPrefix ? QStringLiteral("WHERE ") + where.chopped(5)
                                                                             : QString()) + order},
        {&m_sameFirst, QStringLiteral("SELECT %1, %2 FROM %3 WHERE %4%1 = ? AND %2 > ?").arg(a, b, t, where) + order},
        {&m_sameFirstAfterNull,
         QStringLiteral("SELECT %1, %2 FROM %3 WHERE %4%1 = ? AND %2 IS NOT NULL").arg(a, b, t, where) + order},
        {&m_nextFirst, QStringLiteral("SELECT %1, %2 FROM %3 WHERE %4%1 > ?").arg(a, b, t, where) + order},
        {&m_nextFirstAfterNull,
         QStringLiteral("SELECT %1, %2 FROM %3 WHERE %4%1 IS NOT NULL").arg(a, b, t, where) + order},
    };
    for (const Statement &s : statements) {
        s.query->setForwardOnly(true);
        if (!s.query->prepare(s.text))
            return s.query->lastError().text();
    }
    return {};
}

bool CatalogueTable::DistinctPairs::fetch(QSqlQuery &query, const QVariant &prefixValue, const QVariantList &values,
                                          QVariant *a, QVariant *b)
{
    int i = 0;
    if (m_hasPrefix)
        query.bindValue(i++, prefixValue);
    for (const QVariant &v : values)
        query.bindValue(i++, v);
    const bool found = query.exec() && query.next();
    if (found) {
        *a = query.value(0);
        *b = query.value(1);
    }
    query.finish();
    return found;
}

QList<std::pair<QVariant, QVariant>> CatalogueTable::DistinctPairs::run(const QVariant &prefixValue)
{
    // NULLs sort first and group together, as a GROUP BY over the same columns would have them.
    QList<std::pair<QVariant, QVariant>> pairs;
    QVariant a, b;
    if (!fetch(m_first, prefixValue, {}, &a, &b))
        return pairs;
    for (;;) {
        pairs.append({a, b});
        QVariant na, nb;
        const bool sameFirst = b.isNull() ? fetch(m_sameFirstAfterNull, prefixValue, {a}, &na, &nb)
                                          : fetch(m_sameFirst, prefixValue, {a, b}, &na, &nb);
        if (!sameFirst) {
            const bool next = a.isNull() ? fetch(m_nextFirstAfterNull, prefixValue, {}, &na, &nb)
                                         : fetch(m_nextFirst, prefixValue, {a}, &na, &nb);
            if (!next)
                break;
        }
        a = na;
        b = nb;
    }
    return pairs;
}

QString CatalogueTable::prepareAll()
{
    const QString t = db::quoteIdentifier(m_table);
    // Classifications are what "GROUP BY BNum, 分類" yields and sections what "DISTINCT BNum,
    // KNum, 区分 WHERE BNum = ? ORDER BY KNum" yields; both are read by seeking along their
    // index, so the lists take a few probes per entry however many parts the catalogue holds.
    QString problem = m_classifications.prepare(m_table, QString(), QStringLiteral("BNum"), QStringLiteral("分類"));
    if (problem.isEmpty())
        problem = m_sections.prepare(m_table, QStringLiteral("BNum"), QStringLiteral("KNum"), QStringLiteral("区分"));
    if (!problem.isEmpty())
        return problem;
    struct Statement
    {
        QSqlQuery *query;
        QString text;
    };
    const Statement statements[] = {
        {&m_parts, QStringLiteral("SELECT \"Num\", \"部品名\" FROM %1 WHERE \"BNum\" = ? AND \"KNum\" = ? "
                                  "ORDER BY \"Num\"").arg(t)},
        {&m_rows, QStringLiteral("SELECT rowid, \"Num\", \"BNum\", \"分類\", \"KNum\", \"区分\", \"部品名\" "
                                 "FROM %1 WHERE \"BNum\" = ? AND \"KNum\" = ? ORDER BY \"Num\" ASC").arg(t)},
        {&m_last, QStringLiteral("SELECT MAX(\"Num\") FROM %1 WHERE \"BNum\" = ? AND \"KNum\" = ?").arg(t)},
    };
    for (const Statement &s : statements) {
        s.query->setForwardOnly(true);
        if (!s.query->prepare(s.text))
            return s.query->lastError().text();
    }
    return {};
}

QList<Classification> CatalogueTable::classifications()
{
    QList<Classification> list;
    for (const auto &[bnum, name] : m_classifications.run())
        list.append({toInt16(bnum), name.toString()});
    return list;
}

QList<Section> CatalogueTable::sections(std::int16_t bnum)
{
    QList<Section> list;
    for (const auto &[knum, name] : m_sections.run(QVariant(int(bnum))))
        list.append({bnum, toInt16(knum), name.toString()});
    return list;
}

QList<CataloguePart> CatalogueTable::parts(std::int16_t bnum, std::int16_t knum)
{
    QList<CataloguePart> list;
    m_parts.bindValue(0, bnum);
    m_parts.bindValue(1, knum);
    if (!m_parts.exec())
        return list;
    while (m_parts.next())
        list.append({toInt32(m_parts.value(0)), m_parts.value(1).toString()});
    m_parts.finish();
    return list;
}

QList<CatalogueRow> CatalogueTable::sectionRows(std::int16_t bnum, std::int16_t knum)
{
    QList<CatalogueRow> list;
    m_rows.bindValue(0, bnum);
    m_rows.bindValue(1, knum);
    if (!m_rows.exec())
        return list;
    while (m_rows.next()) {
        CatalogueRow row;
        row.rowId = m_rows.value(0).toLongLong();
        row.num = toInt32(m_rows.value(1));
        row.bnum = toInt16(m_rows.value(2));
        row.bunrui = m_rows.value(3).toString();
        row.knum = toInt16(m_rows.value(4));
        row.kubun = m_rows.value(5).toString();
        row.partName = m_rows.value(6).toString();
        list.append(row);
    }
    m_rows.finish();
    return list;
}

std::int32_t CatalogueTable::nextNumber(std::int16_t bnum, std::int16_t knum)
{
    m_last.bindValue(0, bnum);
    m_last.bindValue(1, knum);
    std::int32_t next = 1;
    if (m_last.exec() && m_last.next() && !m_last.value(0).isNull()) {
        const qlonglong highest = m_last.value(0).toLongLong();
        if (highest < std::numeric_limits<std::int32_t>::max())
            next = std::int32_t(std::max<qlonglong>(highest + 1, 1));
    }
    m_last.finish();
    return next;
}

QString CatalogueTable::addPart(const CatalogueRow &row)
{
    QSqlQuery query(m_db);
    query.prepare(QStringLiteral("INSERT INTO %1 (\"Num\", \"BNum\", \"分類\", \"KNum\", \"区分\", \"部品名\") "
                                 "VALUES (?, ?, ?, ?, ?, ?)").arg(db::quoteIdentifier(m_table)));
    query.addBindValue(row.num);
    query.addBindValue(row.bnum);
    query.addBindValue(row.bunrui);
    query.addBindValue(row.knum);
    query.addBindValue(row.kubun);
    query.addBindValue(row.partName);
    if (!query.exec())
        return query.lastError().text();
    return {};
}

QString CatalogueTable::renamePart(qint64 rowId, const QString &partName)
{
    QSqlQuery query(m_db);
    query.prepare(QStringLiteral("UPDATE %1 SET \"部品名\" = ? WHERE rowid = ?").arg(db::quoteIdentifier(m_table)));
    query.addBindValue(partName);
    query.addBindValue(rowId);
    if (!query.exec())
        return query.lastError().text();
    return {};
}

QString CatalogueTable::deletePart(qint64 rowId)
{
    QSqlQuery query(m_db);
    query.prepare(QStringLiteral("DELETE FROM %1 WHERE rowid = ?").arg(db::quoteIdentifier(m_table)));
    query.addBindValue(rowId);
    if (!query.exec())
        return query.lastError().text();
    return {};
}

} // namespace est::workitems
