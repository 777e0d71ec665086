#pragma once
// The same work timed on the shared server: a fresh database of a local PostgreSQL server
// (the tests' own, tests/support/pg_server.h, over its Unix socket) holding a copy of an
// application folder's databases, with the server's statistics gathered as a shop's
// server would have them.

#include <QSqlDatabase>
#include <QString>

namespace est::bench {

// The connection string of the copy; empty (with the reason on standard error) when the
// server could not be started or the copy failed.
QString serverCopyOf(const QString &appFolder);

// Gathers the statistics of every table the connection reaches (ANALYZE).
bool analyse(QSqlDatabase database);

} // namespace est::bench
