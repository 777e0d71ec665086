#pragma once
// Opening the program's databases by the relative path of their file. Without a server (see
// server_settings.h) that is the SQLite file, a missing file made from the schema and sample
// data kept as SQL text in the program (data/<name>.sql); with one, the file's schema on the
// server (server_database.h).

#include <QSqlDatabase>
#include <QString>
#include <QStringList>

namespace est::db {

struct OpenResult
{
    QSqlDatabase database;   // valid and open when error is empty
    QString error;           // a sentence for the user when opening failed
    bool created = false;    // the file was made from the built-in schema just now
    bool readOnly = false;   // made by a newer version: opened read-only
    QString notice;          // a sentence for the user about its upgrade (db/schema_upgrade.h)

    bool ok() const { return error.isEmpty(); }
};

// Opens (creating when missing) the database file at `relative` below `appFolder`,
// e.g. "temp\KokyakuDB.mdb" -> <appFolder>/temp/KokyakuDB.sqlite. The connection is named
// after the full path and reused while open. A new file is made from <name>.sql and its
// add-on scripts; an existing file is upgraded to the current layout on its first opening.
OpenResult openDatabase(const QString &appFolder, const QString &relative);

// Opens an existing file only; never creates it.
OpenResult openExistingDatabase(const QString &fullPath);

// Opens the database at `relative` only when it exists (the file, or its schema on the server
// in force); never creates it.
OpenResult openIfPresent(const QString &appFolder, const QString &relative);

// Closes and forgets the connection of that file (before it is replaced or deleted).
void closeDatabase(const QString &fullPath);

// The built-in SQL text for a database base name ("KokyakuDB"), empty when there is none.
QString builtInSql(const QString &baseName);

// Tables that later versions added to a database: the scripts data/<baseName>.<part>.sql,
// in name order. Each holds CREATE TABLE statements and the sample rows of those tables.
QStringList addOnScripts(const QString &baseName);

// The table that a CREATE TABLE, CREATE INDEX ... ON or INSERT INTO statement is about, with
// its quotes removed; empty for any other statement.
QString statementTable(const QString &statement);

// Runs a script of SQL statements separated by ";" (quotes and "--" comments respected)
// in one transaction. Returns an error text, empty on success.
QString runScript(QSqlDatabase &database, const QString &script);

// Splits a script into statements; exposed for tests.
QStringList splitStatements(const QString &script);

// Whether a table of that exact name exists in the database.
bool tableExists(const QSqlDatabase &database, const QString &table);

// The name in double quotes, inner quotes doubled, for the only place where a name (never a
// value) enters SQL text: a table name from a register, after tableExists() said yes.
QString quoteIdentifier(const QString &name);

} // namespace est::db
