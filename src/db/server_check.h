#pragma once
// Trying a server connection before it is used: the 接続テスト of the server screen and the
// start-up of a seat. Nothing is written to the server.

#include <QString>

namespace est::db {

struct ServerCheck
{
    bool ok = false;
    bool needsPassword = false; // the server asked for a password that was missing or wrong
    QString message;            // a sentence for the user, success or the reason in Japanese
};

// Connects with `connection` (and `password` when not empty) in a connection of its own and
// closes it again. connect_timeout defaults to 10 seconds so a cable pulled out cannot freeze
// the screen for libpq's default of forever.
ServerCheck checkServer(const QString &connection, const QString &password = {});

// Whether a server's error text asks for a password (none given, or a wrong one).
bool asksForPassword(const QString &reason);

// The connection string with connect_timeout added when it names none.
QString withConnectTimeout(const QString &connection);

} // namespace est::db
