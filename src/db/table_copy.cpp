#include "db/table_copy.h"

#include "db/database.h"
#include "db/dialect.h"

#include <QSqlError>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QVariant>
#include <cmath>

namespace est::db {

namespace {

bool numericType(const QString &type)
{
    static const QStringList numbers{QStringLiteral("smallint"), QStringLiteral("integer"), QStringLiteral("bigint"),
                                     QStringLiteral("numeric"), QStringLiteral("real"), QStringLiteral("double precision")};
    return numbers.contains(type);
}

// SQLite's declared types that hold numbers.
bool numericAffinity(const QString &declared)
{
    const QString type = declared.toUpper();
    return type.contains(QLatin1String("INT")) || type.contains(QLatin1String("REAL")) || type.contains(QLatin1String("FLOA"))
           || type.contains(QLatin1String("DOUB")) || type.contains(QLatin1String("NUM")) || type.contains(QLatin1String("DEC"));
}

QString quotedList(const QStringList &names)
{
    QStringList quoted;
    for (const QString &name : names)
        quoted.append(quoteIdentifier(name));
    return quoted.join(QStringLiteral(", "));
}

// Rows per INSERT on the server: one round trip carries many rows.
int batchRows(qsizetype columns)
{
    return int(std::max<qsizetype>(1, std::min<qsizetype>(200, 20000 / std::max<qsizetype>(1, columns))));
}

QString insertStatement(const TableRef &to, const QStringList &columns, int rows)
{
    const QString one = QLatin1Char('(') + QStringList(columns.size(), QStringLiteral("?")).join(QStringLiteral(", ")) + QLatin1Char(')');
    return QStringLiteral("INSERT INTO %1 (%2) VALUES %3")
        .arg(to.qualified(), quotedList(columns), QStringList(rows, one).join(QStringLiteral(", ")));
}

QVariant valueFor(const QVariant &value, bool numberColumn, bool toServer)
{
    if (toServer && numberColumn && value.typeId() == QMetaType::QString && value.toString().trimmed().isEmpty())
        return QVariant(QMetaType(QMetaType::QString)); // NULL: the server takes no empty text as a number
    return value;
}

bool sameSum(const QVariant &a, const QVariant &b)
{
    const bool aReal = a.typeId() == QMetaType::Double || a.toString().contains(QLatin1Char('.'));
    const bool bReal = b.typeId() == QMetaType::Double || b.toString().contains(QLatin1Char('.'));
    if (!aReal && !bReal)
        return a.toLongLong() == b.toLongLong();
    const double x = a.toDouble(), y = b.toDouble();
    return std::fabs(x - y) <= 1e-9 * std::max(1.0, std::max(std::fabs(x), std::fabs(y)));
}

QString plain(const QVariant &sum)
{
    return sum.isNull() ? QStringLiteral("0") : sum.toString();
}

} // namespace

QString TableRef::qualified() const
{
    return schema.isEmpty() ? quoteIdentifier(table) : quoteIdentifier(schema) + QLatin1Char('.') + quoteIdentifier(table);
}

TableColumns tableColumns(const TableRef &ref)
{
    TableColumns columns;
    QSqlQuery query(ref.database);
    if (ref.onServer()) {
        query.prepare(QStringLiteral("SELECT column_name, data_type FROM information_schema.columns WHERE table_schema = ? "
                                     "AND table_name = ? AND column_name <> 'rowid' ORDER BY ordinal_position"));
        query.addBindValue(ref.schema);
        query.addBindValue(ref.table);
        if (query.exec())
            while (query.next()) {
                columns.names.append(query.value(0).toString());
                if (numericType(query.value(1).toString()))
                    columns.numeric.append(query.value(0).toString());
            }
        return columns;
    }
    if (query.exec(QStringLiteral("PRAGMA table_info(%1)").arg(quoteIdentifier(ref.table))))
        while (query.next()) {
            columns.names.append(query.value(1).toString());
            if (numericAffinity(query.value(2).toString()))
                columns.numeric.append(query.value(1).toString());
        }
    return columns;
}

QStringList serverTables(const QSqlDatabase &database, const QString &schema)
{
    QStringList tables;
    QSqlQuery query(database);
    query.prepare(QStringLiteral("SELECT table_name FROM information_schema.tables WHERE table_schema = ? "
                                 "AND table_type = 'BASE TABLE' ORDER BY table_name"));
    query.addBindValue(schema);
    if (query.exec())
        while (query.next())
            tables.append(query.value(0).toString());
    return tables;
}

QString copyTable(const TableRef &from, const TableRef &to, qint64 *rows)
{
    const TableColumns target = tableColumns(to);
    const QStringList sourceNames = tableColumns(from).names;
    // A name written without quotes is lower case on the server and as written in the file.
    QStringList columns, sourceColumns;
    for (const QString &name : target.names)
        for (const QString &source : sourceNames)
            if (source.compare(name, Qt::CaseInsensitive) == 0) {
                columns.append(name);
                sourceColumns.append(source);
                break;
            }
    *rows = 0;
    if (target.names.isEmpty() || sourceNames.isEmpty())
        return QStringLiteral("表 %1 の列を読めません。").arg(to.table);
    QSqlQuery write(to.database);
    if (!write.exec(QStringLiteral("DELETE FROM ") + to.qualified()))
        return write.lastError().text();
    if (columns.isEmpty())
        return {};
    QSqlQuery read(from.database);
    read.setForwardOnly(true);
    if (!read.exec(QStringLiteral("SELECT %1 FROM %2 ORDER BY rowid").arg(quotedList(sourceColumns), from.qualified())))
        return read.lastError().text();
    QList<bool> numbers;
    for (const QString &name : columns)
        numbers.append(target.numeric.contains(name));
    const int batch = to.onServer() ? batchRows(columns.size()) : 1;
    const QString full = insertStatement(to, columns, batch);
    QVariantList pending;
    const auto flush = [&](int count) -> QString {
        if (count == 0)
            return {};
        write.prepare(count == batch ? full : insertStatement(to, columns, count));
        for (const QVariant &v : pending)
            write.addBindValue(v);
        pending.clear();
        return write.exec() ? QString() : write.lastError().text();
    };
    int inBatch = 0;
    while (read.next()) {
        for (int c = 0; c < columns.size(); ++c)
            pending.append(valueFor(read.value(c), numbers.at(c), to.onServer()));
        ++*rows;
        if (++inBatch == batch) {
            if (QString error = flush(inBatch); !error.isEmpty())
                return error;
            inBatch = 0;
        }
    }
    if (read.lastError().isValid())
        return read.lastError().text();
    return flush(inBatch);
}

QString compareTables(const TableRef &a, const TableRef &b, const QStringList &numericColumns, qint64 *rows)
{
    QStringList sums{QStringLiteral("COUNT(*)")};
    for (const QString &column : numericColumns)
        sums.append(QStringLiteral("SUM(%1)").arg(quoteIdentifier(column)));
    const QString select = QStringLiteral("SELECT %1 FROM ").arg(sums.join(QStringLiteral(", ")));
    QSqlQuery qa(a.database), qb(b.database);
    for (QSqlQuery *q : {&qa, &qb})
        if (!q->exec(select + (q == &qa ? a : b).qualified()) || !q->next())
            return QStringLiteral("比べるために読めません。%1").arg(q->lastError().text());
    *rows = qa.value(0).toLongLong();
    if (qa.value(0).toLongLong() != qb.value(0).toLongLong())
        return QStringLiteral("件数が違います（%1 と %2）").arg(qa.value(0).toLongLong()).arg(qb.value(0).toLongLong());
    for (int i = 0; i < numericColumns.size(); ++i)
        if (!sameSum(qa.value(i + 1), qb.value(i + 1)))
            return QStringLiteral("列 %1 の合計が違います（%2 と %3）")
                .arg(numericColumns.at(i), plain(qa.value(i + 1)), plain(qb.value(i + 1)));
    return {};
}

} // namespace est::db
