#pragma once
// What differs between SQLite and PostgreSQL, in one place: the code above src/db writes SQL
// both understand and asks here for the few pieces that differ.

#include <QSqlDatabase>
#include <QSqlRecord>
#include <QString>
#include <QStringList>

namespace est::db {

// Whether the connection is to the shared server (else a SQLite file).
bool isServer(const QSqlDatabase &database);

// The integer value of a text column the way SQLite's CAST(x AS INTEGER) takes it: leading
// digits (with a sign), 0 when there are none. `expression` is a quoted column or "?".
QString integerOf(const QSqlDatabase &database, const QString &expression);

// INSERT of one row that replaces the row with the same key (an upsert); one "?" per column.
QString upsertStatement(const QString &table, const QStringList &columns, const QStringList &keys);

// A value for a NOT NULL text column: a null text is bound as the empty text.
inline QString nonNullText(const QString &text)
{
    return text.isNull() ? QStringLiteral("") : text;
}

// The fields of a row read with SELECT *, the server's row number column not counted (it
// comes last), so that reading a field by its position finds the same field on both.
int fieldCount(const QSqlRecord &record);

// The columns of a table in their order (the server's hidden row number not among them).
QStringList columnNames(const QSqlDatabase &database, const QString &table);

// Reads the database once: empty when it answers, else why not (a file that is no database,
// a server that is gone).
QString probe(const QSqlDatabase &database);

// The tables of the database (the schema of this database file on the server).
QStringList tableNames(const QSqlDatabase &database);

// One statement of a data/*.sql script made fit for the server: 64-bit integers, double
// floats, byte-order text comparison, a row number column "rowid" kept in insertion order,
// and SQLite's CAST(... AS INTEGER) as its server equivalent.
QString toServerStatement(const QString &statement);

// Name of the server schema holding the program's own functions and the layout version.
inline const QString kLayoutSchema = QStringLiteral("estimate");

} // namespace est::db
