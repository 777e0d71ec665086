#pragma once
// What frmServer edits, without widgets: whether this seat uses a shared server, the parts of
// its connection string, and this seat's name; checked, tried and saved from here.

#include "db/server_check.h"
#include "db/server_settings.h"

#include <QString>
#include <QStringList>
#include <functional>
#include <optional>

namespace est::server {

// Asks the user for the password of a connection; nothing when cancelled.
using PasswordAsker = std::function<std::optional<QString>(const QString &prompt)>;

// The TLS modes offered, in the order of the list, with their captions.
struct TlsMode
{
    QString mode;    // libpq's sslmode
    QString caption;
};
const QList<TlsMode> &tlsModes();

class ServerForm
{
public:
    // The stored connection and seat name (not ESTIMATE_DB, which only overrides them).
    ServerForm();

    bool shared = false;
    db::ConnectionFields fields;
    QString seat;

    // The connection string the fields make (empty when not shared).
    QString connection() const;
    // What is wrong with the fields, for the user; empty when they can be saved.
    QString problem() const;
    // Connects once, asking for a password when the server wants one (kept in memory only).
    db::ServerCheck test(const PasswordAsker &askPassword) const;
    // Writes the connection (no password) and the seat name to the settings.
    void save() const;

    // Whether ESTIMATE_DB overrides what is saved here.
    static bool overridden();
    // The prompt of the password dialog for a connection.
    static QString passwordPrompt(const QString &connection);
};

} // namespace est::server
