#pragma once
// Where the program's databases live: the SQLite files of the application folder (empty
// connection, the default) or a PostgreSQL server named by a libpq connection string. The
// string never holds a password: libpq reads ~/.pgpass (or PGPASSFILE) itself, and a password
// typed into the program is kept in memory for this run only.

#include <QString>

namespace est::db {

// Settings group and key of the per-user connection string.
inline const QString kServerGroup = QStringLiteral("Server");
inline const QString kConnectionKey = QStringLiteral("Connection");
inline const QString kSeatKey = QStringLiteral("Seat");

// The connection in force: ESTIMATE_DB when set (a connection string or "service=NAME"),
// else the settings' Server/Connection; empty when this PC works on its own files, also
// after useLocalDataForThisSession().
QString serverConnection();

// The connection string kept in the settings (empty = this PC only); a password in it is dropped.
QString storedConnection();
void storeConnection(const QString &connection);

// This seat's name as other seats see it: the settings' Server/Seat, else the computer's name.
QString seatName();
void storeSeatName(const QString &seat);

// The start-up found the server unreachable and the user chose this PC's own data: every
// database opened from now on in this run is the local file.
void useLocalDataForThisSession();
bool usingLocalDataForThisSession();
// Back to the server in force (a test that plays several start-ups in one process).
void forgetLocalDataChoice();

// A password typed for a connection string, kept in memory for this run.
void rememberPassword(const QString &connection, const QString &password);
QString rememberedPassword(const QString &connection);

// The parts of a connection string the server screen edits; `other` keeps whatever else the
// string held (service, options ...) so that saving does not lose it.
struct ConnectionFields
{
    QString host;
    QString port;
    QString database;
    QString user;
    QString sslMode;
    QString other;
};

// libpq's "key=value key='quoted value'" form. A password is never returned nor written.
ConnectionFields parseConnection(const QString &connection);
QString composeConnection(const ConnectionFields &fields);

} // namespace est::db
