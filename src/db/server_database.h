#pragma once
// The program's databases on a PostgreSQL server: one schema per database file (the file's
// base name in lower case: temp/PartDB.sqlite -> schema partdb), tables and columns named as
// in the file. A connection per schema, its search path set to that schema, so the SQL above
// src/db names tables as it does for a file.

#include "db/database.h"

#include <QString>
#include <QStringList>

namespace est::db {

// The layout of the server's tables this program knows; the server records the layout it holds.
inline constexpr int kServerLayoutVersion = 1;

// The first words of every message about a server that cannot be reached.
inline const QString kServerUnreachable = QStringLiteral("共有サーバーに接続できません。");

// The schema of a database file's base name ("PartDB" -> "partdb").
QString schemaName(const QString &baseName);

// The databases of the program that live on the server: every data/<name>.sql but the
// estimate library, which indexes this PC's own Mitsumori folder.
QStringList serverDatabases();
bool isServerDatabase(const QString &baseName);

// Opens the schema of `baseName` on the server of `connection`. On the first connection to a
// server database without the program's layout, every schema, table and sample row is made in
// one transaction; a layout newer than this program's is refused. A schema the layout lacks is
// made from data/<baseName>.sql when there is one (`create`), else reported missing. A
// connection found dead is replaced.
OpenResult openServerDatabase(const QString &connection, const QString &baseName, bool create = true);

// Makes the program's layout on an empty server database (nothing happens when it is there);
// an error text for the user, empty when the layout is usable.
QString prepareServer(const QString &connection);

// A message for the user from a server's error text: kServerUnreachable and the reason in
// Japanese where the reason is a known one.
QString serverFailure(const QString &reason);

// Whether an error text says the connection itself failed (server gone, password refused).
bool isConnectionFailure(const QString &reason);

// Closes every server connection of this process (tests, a change of server, the end).
void closeServerConnections();

// Inside the caller's transaction on an empty server database: every schema, table and sample
// row of the program, and the layout's version. An error text, empty on success.
QString createServerLayout(QSqlDatabase &database);

// Gives the identity columns the next number after the rows copied in with explicit values.
QString resyncIdentities(QSqlDatabase &database);

} // namespace est::db
