#include "db/dialect.h"

#include "db/database.h"

#include <QRegularExpression>
#include <QSqlError>
#include <QSqlQuery>

namespace est::db {

bool isServer(const QSqlDatabase &database)
{
    return database.driverName() == QStringLiteral("QPSQL");
}

QString integerOf(const QSqlDatabase &database, const QString &expression)
{
    if (isServer(database))
        return kLayoutSchema + QStringLiteral(".integer_of(%1)").arg(expression);
    return QStringLiteral("CAST(%1 AS INTEGER)").arg(expression);
}

QString upsertStatement(const QString &table, const QStringList &columns, const QStringList &keys)
{
    QStringList quoted;
    QStringList updates;
    for (const QString &column : columns) {
        quoted.append(quoteIdentifier(column));
        if (!keys.contains(column))
            updates.append(QStringLiteral("%1 = excluded.%1").arg(quoteIdentifier(column)));
    }
    QStringList quotedKeys;
    for (const QString &key : keys)
        quotedKeys.append(quoteIdentifier(key));
    // SQLite (3.24 on) and PostgreSQL read the same upsert.
    return QStringLiteral("INSERT INTO %1 (%2) VALUES (%3) ON CONFLICT (%4) %5")
        .arg(quoteIdentifier(table), quoted.join(QStringLiteral(", ")),
             QStringList(columns.size(), QStringLiteral("?")).join(QStringLiteral(", ")),
             quotedKeys.join(QStringLiteral(", ")),
             updates.isEmpty() ? QStringLiteral("DO NOTHING")
                               : QStringLiteral("DO UPDATE SET ") + updates.join(QStringLiteral(", ")));
}

int fieldCount(const QSqlRecord &record)
{
    const int count = record.count();
    return count > 0 && record.fieldName(count - 1) == QLatin1String("rowid") ? count - 1 : count;
}

QStringList columnNames(const QSqlDatabase &database, const QString &table)
{
    QStringList names;
    QSqlQuery query(database);
    if (isServer(database)) {
        query.prepare(QStringLiteral("SELECT column_name FROM information_schema.columns WHERE table_schema = "
                                     "current_schema() AND table_name = ? AND column_name <> 'rowid' "
                                     "ORDER BY ordinal_position"));
        query.addBindValue(table);
        if (query.exec())
            while (query.next())
                names.append(query.value(0).toString());
        return names;
    }
    if (query.exec(QStringLiteral("PRAGMA table_info(%1)").arg(quoteIdentifier(table))))
        while (query.next())
            names.append(query.value(1).toString());
    return names;
}

QString probe(const QSqlDatabase &database)
{
    QSqlQuery query(database);
    if (query.exec(isServer(database) ? QStringLiteral("SELECT 1") : QStringLiteral("SELECT COUNT(*) FROM sqlite_master")))
        return {};
    return query.lastError().text();
}

QStringList tableNames(const QSqlDatabase &database)
{
    QStringList names;
    QSqlQuery query(database);
    const QString sql = isServer(database)
                            ? QStringLiteral("SELECT table_name FROM information_schema.tables WHERE table_schema = "
                                             "current_schema() AND table_type = 'BASE TABLE' ORDER BY table_name")
                            : QStringLiteral("SELECT name FROM sqlite_master WHERE type = 'table' AND name NOT LIKE "
                                             "'sqlite_%' ORDER BY name");
    if (query.exec(sql))
        while (query.next())
            names.append(query.value(0).toString());
    return names;
}

namespace {

// Maps the words outside quotes of a CREATE TABLE statement; quoted names stay as they are.
QString mapTypes(const QString &statement)
{
    static const QRegularExpression word(QStringLiteral(R"("(?:[^"]|"")*"|'(?:[^']|'')*'|\b[A-Za-z_]+\b)"));
    QString out;
    qsizetype last = 0;
    auto it = word.globalMatch(statement);
    while (it.hasNext()) {
        const auto m = it.next();
        out += statement.mid(last, m.capturedStart() - last);
        const QString token = m.captured();
        const QString upper = token.toUpper();
        if (upper == QStringLiteral("INTEGER"))
            out += QStringLiteral("BIGINT");
        else if (upper == QStringLiteral("REAL") || upper == QStringLiteral("NUMERIC"))
            out += QStringLiteral("DOUBLE PRECISION");
        else if (upper == QStringLiteral("TEXT"))
            out += QStringLiteral("TEXT COLLATE \"C\"");
        else
            out += token;
        last = m.capturedEnd();
    }
    return out + statement.mid(last);
}

} // namespace

QString toServerStatement(const QString &statement)
{
    static const QRegularExpression cast(QStringLiteral(R"(CAST\(("(?:[^"]|"")*")\s+AS\s+INTEGER\))"),
                                         QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression createTable(QStringLiteral(R"(^\s*CREATE\s+TABLE\b)"),
                                                QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression rowidKey(QStringLiteral(R"(\bINTEGER\s+PRIMARY\s+KEY\b)"),
                                             QRegularExpression::CaseInsensitiveOption);
    QString text = statement;
    text.replace(cast, kLayoutSchema + QStringLiteral(".integer_of(\\1)"));
    if (!createTable.match(text).hasMatch())
        return text;
    // SQLite numbers an INTEGER PRIMARY KEY itself when a row comes without one.
    text.replace(rowidKey, QStringLiteral("INTEGER GENERATED BY DEFAULT AS IDENTITY PRIMARY KEY"));
    text = mapTypes(text);
    const qsizetype close = text.lastIndexOf(QLatin1Char(')'));
    if (close > 0)
        text.insert(close, QStringLiteral(", rowid BIGINT GENERATED BY DEFAULT AS IDENTITY"));
    return text;
}

} // namespace est::db
