#pragma once
// Copying one table between two databases of the program (a SQLite file and a server schema,
// either way) and comparing the two copies, for moving a shop onto or off a server.

#include <QSqlDatabase>
#include <QString>
#include <QStringList>

namespace est::db {

// A table in one database: on the server, in the schema of its database file.
struct TableRef
{
    QSqlDatabase database;
    QString schema; // empty on SQLite
    QString table;

    QString qualified() const;
    bool onServer() const { return !schema.isEmpty(); }
};

// The columns of a table in their order, and which of them hold numbers.
struct TableColumns
{
    QStringList names;
    QStringList numeric;
};
TableColumns tableColumns(const TableRef &ref);
// The tables of a server schema.
QStringList serverTables(const QSqlDatabase &database, const QString &schema);

// Replaces the rows of `to` with those of `from` in their order (the columns both have);
// an error text, empty on success. Empty text in a number column of the server becomes NULL.
QString copyTable(const TableRef &from, const TableRef &to, qint64 *rows);

// The row counts and the sums of the numeric columns of both, compared: empty when they
// agree, else a sentence naming what differs.
QString compareTables(const TableRef &a, const TableRef &b, const QStringList &numericColumns, qint64 *rows);

} // namespace est::db
