#include "reports/estimate_library.h"

#include "db/app_folder.h"
#include "db/database.h"
#include "reports/search_text.h"

#include <QFile>
#include <QSqlError>
#include <QSqlQuery>
#include <QStringList>

namespace est::reports {

namespace {

constexpr int kVersion = 1;
const QString kRelative = QStringLiteral("temp\\Library.mdb");

const QString kColumns = QStringLiteral(
    "FileName, Readable, Error, SlipNo, Day, Kind, Customer, Company, Car, Registration, Chassis, "
    "TotalA, TotalB, Discount, Tax, NonTaxable, GrandTotal, AmountDue");

EstimateSummary fromRow(const QSqlQuery &q)
{
    EstimateSummary s;
    s.fileName = q.value(0).toString();
    s.readable = q.value(1).toInt() != 0;
    s.error = q.value(2).toString();
    s.slipNumber = q.value(3).toString();
    s.day = QDate::fromString(q.value(4).toString(), Qt::ISODate);
    s.documentKind = q.value(5).toInt();
    s.customer = q.value(6).toString();
    s.company = q.value(7).toString();
    s.car = q.value(8).toString();
    s.registration = q.value(9).toString();
    s.chassis = q.value(10).toString();
    s.totalA = q.value(11).toInt();
    s.totalB = q.value(12).toInt();
    s.discount = q.value(13).toInt();
    s.tax = q.value(14).toInt();
    s.nonTaxable = q.value(15).toInt();
    s.grandTotal = q.value(16).toInt();
    s.amountDue = q.value(17).toInt();
    return s;
}

QString searchTextOf(const EstimateSummary &s)
{
    const QStringList parts = s.readable
                                  ? QStringList{s.customer, s.company, s.car, s.registration, s.chassis,
                                                s.slipNumber, s.fileName}
                                  : QStringList{s.fileName};
    // A separator that folding never produces keeps a match from spanning two fields.
    return foldForSearch(parts.join(QChar(0x1F))).replace(QChar(0x1F), QStringLiteral("\n"));
}

QVariant dayValue(const QDate &day)
{
    return day.isValid() ? QVariant(day.toString(Qt::ISODate)) : QVariant(QMetaType(QMetaType::QString));
}

} // namespace

EstimateLibrary::EstimateLibrary(QString appFolder)
    : m_appFolder(std::move(appFolder)), m_path(db::resolve(m_appFolder, kRelative))
{
}

QString EstimateLibrary::open()
{
    db::OpenResult opened = db::openDatabase(m_appFolder, kRelative);
    if (opened.ok()) {
        m_db = opened.database;
        QSqlQuery q(m_db);
        if (q.exec(QStringLiteral("SELECT Version FROM LibraryVersion")) && q.next() && q.value(0).toInt() == kVersion &&
            db::tableExists(m_db, QStringLiteral("Estimates")))
            return {};
    }
    return create();
}

QString EstimateLibrary::create()
{
    // The index can always be made again from the workbooks, so a broken or older one goes.
    m_db = QSqlDatabase();
    db::closeDatabase(m_path);
    QFile::remove(m_path);
    db::OpenResult opened = db::openDatabase(m_appFolder, kRelative);
    if (!opened.ok())
        return opened.error;
    m_db = opened.database;
    return {};
}

QHash<QString, FileStamp> EstimateLibrary::stamps() const
{
    QHash<QString, FileStamp> result;
    QSqlQuery q(m_db);
    q.setForwardOnly(true);
    if (!q.exec(QStringLiteral("SELECT FileName, Modified, Size FROM Estimates")))
        return result;
    while (q.next())
        result.insert(q.value(0).toString(), {q.value(1).toLongLong(), q.value(2).toLongLong()});
    return result;
}

QString EstimateLibrary::store(const EstimateSummary &s, FileStamp stamp)
{
    QSqlQuery q(m_db);
    q.prepare(QStringLiteral("INSERT OR REPLACE INTO Estimates (FileName, Modified, Size, Readable, Error, SlipNo, Day, "
                             "Kind, Customer, Company, Car, Registration, Chassis, TotalA, TotalB, Discount, Tax, "
                             "NonTaxable, GrandTotal, AmountDue, SearchText) "
                             "VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)"));
    const QVariantList values{s.fileName,     stamp.modified,  stamp.size,     s.readable ? 1 : 0,
                              s.error,        s.slipNumber,    dayValue(s.day), s.readable ? s.documentKind : -1,
                              s.customer,     s.company,       s.car,           s.registration,
                              s.chassis,      s.totalA,        s.totalB,        s.discount,
                              s.tax,          s.nonTaxable,    s.grandTotal,    s.amountDue,
                              searchTextOf(s)};
    for (const QVariant &v : values)
        q.addBindValue(v);
    return q.exec() ? QString() : q.lastError().text();
}

QString EstimateLibrary::remove(const QString &fileName)
{
    QSqlQuery q(m_db);
    q.prepare(QStringLiteral("DELETE FROM Estimates WHERE FileName = ?"));
    q.addBindValue(fileName);
    return q.exec() ? QString() : q.lastError().text();
}

int EstimateLibrary::count() const
{
    QSqlQuery q(m_db);
    return q.exec(QStringLiteral("SELECT COUNT(*) FROM Estimates")) && q.next() ? q.value(0).toInt() : 0;
}

QList<EstimateSummary> EstimateLibrary::search(const LibraryQuery &query) const
{
    QStringList where;
    QVariantList values;
    const QString text = foldForSearch(query.text);
    if (!text.isEmpty()) {
        where << QStringLiteral("instr(SearchText, ?) > 0");
        values << text;
    }
    if (query.from.isValid()) {
        where << QStringLiteral("Day >= ?");
        values << query.from.toString(Qt::ISODate);
    }
    if (query.to.isValid()) {
        where << QStringLiteral("Day <= ?");
        values << query.to.toString(Qt::ISODate);
    }
    if (query.kind >= 0) {
        where << QStringLiteral("(Kind = ? OR Readable = 0)");
        values << query.kind;
    }
    QString sql = QStringLiteral("SELECT ") + kColumns + QStringLiteral(" FROM Estimates");
    if (!where.isEmpty())
        sql += QStringLiteral(" WHERE ") + where.join(QStringLiteral(" AND "));
    sql += QStringLiteral(" ORDER BY Day DESC, FileName DESC LIMIT ?");
    values << query.limit;

    QList<EstimateSummary> result;
    QSqlQuery q(m_db);
    q.setForwardOnly(true);
    q.prepare(sql);
    for (const QVariant &v : values)
        q.addBindValue(v);
    if (!q.exec())
        return result;
    while (q.next())
        result.append(fromRow(q));
    return result;
}

QStringList EstimateLibrary::unreadable() const
{
    QStringList names;
    QSqlQuery q(m_db);
    q.setForwardOnly(true);
    if (q.exec(QStringLiteral("SELECT FileName FROM Estimates WHERE Readable = 0 ORDER BY FileName")))
        while (q.next())
            names.append(q.value(0).toString());
    return names;
}

QList<EstimateSummary> EstimateLibrary::sales(QDate from, QDate to) const
{
    QList<EstimateSummary> result;
    QSqlQuery q(m_db);
    q.setForwardOnly(true);
    q.prepare(QStringLiteral("SELECT ") + kColumns +
              QStringLiteral(" FROM Estimates WHERE Readable = 1 AND Kind BETWEEN 3 AND 6 AND Day BETWEEN ? AND ? "
                             "ORDER BY Day, SlipNo, FileName"));
    q.addBindValue(from.toString(Qt::ISODate));
    q.addBindValue(to.toString(Qt::ISODate));
    if (!q.exec())
        return result;
    while (q.next())
        result.append(fromRow(q));
    return result;
}

} // namespace est::reports
