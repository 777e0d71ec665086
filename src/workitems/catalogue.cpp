#include "workitems/catalogue.h"

#include "db/app_folder.h"
#include "db/database.h"

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
// read by a skip over (BNum, 分類), sections from (BNum, KNum, 区分) and parts from
// (BNum, KNum, Num, 部品名) without touching the table itself.
QStringList indexStatements(const QString &table)
{
    const QString t = db::quoteIdentifier(table);
    return {
        QStringLiteral("CREATE INDEX IF NOT EXISTS %1 ON %2 (\"BNum\", \"分類\")")
            .arg(db::quoteIdentifier(table + QStringLiteral("_Class")), t),
        QStringLiteral("CREATE INDEX IF NOT EXISTS %1 ON %2 (\"BNum\", \"KNum\", \"区分\")")
            .arg(db::quoteIdentifier(table + QStringLiteral("_Section")), t),
        QStringLiteral("CREATE INDEX IF NOT EXISTS %1 ON %2 (\"BNum\", \"KNum\", \"Num\", \"部品名\")")
            .arg(db::quoteIdentifier(table + QStringLiteral("_Part")), t),
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
    if (!query.exec(create))
        return query.lastError().text();
    for (const QString &statement : indexStatements(table))
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
    for (const QString &statement : indexStatements(table))
        query.exec(statement);
    const QString problem = t->prepareAll();
    if (!problem.isEmpty())
        return fail(QStringLiteral("車両タイプの部品データ「%1」を読めません。\n%2").arg(table, problem));
    if (error)
        error->clear();
    return t;
}

QString CatalogueTable::prepareAll()
{
    const QString t = db::quoteIdentifier(m_table);
    // Classifications: the grouping of BNum and 分類, found by stepping from one pair to the next
    // along the (BNum, 分類) index, so a catalogue of any size answers in a few index probes.
    // The pairs come out in the order a grouping yields them; no ORDER BY is applied to the list.
    const QString classes = QStringLiteral(
        "WITH RECURSIVE g(BNum, Name) AS ("
        " SELECT * FROM (SELECT \"BNum\", \"分類\" FROM %1 ORDER BY \"BNum\", \"分類\" LIMIT 1)"
        " UNION ALL"
        " SELECT (SELECT \"BNum\" FROM %1 WHERE (\"BNum\", \"分類\") > (g.BNum, g.Name)"
        "         ORDER BY \"BNum\", \"分類\" LIMIT 1),"
        "        (SELECT \"分類\" FROM %1 WHERE (\"BNum\", \"分類\") > (g.BNum, g.Name)"
        "         ORDER BY \"BNum\", \"分類\" LIMIT 1)"
        " FROM g WHERE g.BNum IS NOT NULL)"
        " SELECT BNum, Name FROM g WHERE BNum IS NOT NULL").arg(t);
    struct Statement
    {
        QSqlQuery *query;
        QString text;
    };
    const Statement statements[] = {
        {&m_classifications, classes},
        {&m_sections, QStringLiteral("SELECT DISTINCT \"BNum\", \"KNum\", \"区分\" FROM %1 WHERE \"BNum\" = ? "
                                     "ORDER BY \"KNum\"").arg(t)},
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
    if (!m_classifications.exec())
        return list;
    while (m_classifications.next())
        list.append({toInt16(m_classifications.value(0)), m_classifications.value(1).toString()});
    m_classifications.finish();
    return list;
}

QList<Section> CatalogueTable::sections(std::int16_t bnum)
{
    QList<Section> list;
    m_sections.bindValue(0, bnum);
    if (!m_sections.exec())
        return list;
    while (m_sections.next())
        list.append({toInt16(m_sections.value(0)), toInt16(m_sections.value(1)), m_sections.value(2).toString()});
    m_sections.finish();
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
