#pragma once
// A PostgreSQL server of the test run's own: initdb into a temporary folder, listening only on a
// Unix socket in a temporary folder (no TCP port), stopped when the test executable ends. One
// server per executable; each test asks for a database of its own. PostgreSQL refuses to run as
// root, so under root the server runs as the unprivileged user `nobody`.

#include <QString>
#include <QTemporaryDir>

namespace est::test {

class PgServer
{
public:
    // The server of this test executable, started on first use. Fails the calling test (and
    // returns nullptr) when it cannot be started: a machine set up by tools/install-deps has
    // everything it needs.
    static PgServer *shared();

    ~PgServer();
    PgServer(const PgServer &) = delete;
    PgServer &operator=(const PgServer &) = delete;

    // A new, empty database with a name not used before in this run; its libpq connection
    // string ("host=<socket folder> user=... dbname=...").
    QString createDatabase();
    // The connection string of a database by name.
    QString connectionString(const QString &database) const;
    // A new, empty database owned by the user kPasswordUser, who must give a password (the
    // other users of the server need none), and its connection string without the password.
    QString createPasswordDatabase(const QString &password);
    // Changes that user's password (as a shop's administrator would).
    bool setPassword(const QString &password);
    static constexpr const char *kPasswordUser = "seat_with_password";
    // Stops the server at once (as a crash or a pulled cable would look to the program) and
    // starts it again; the data survive.
    bool stop();
    bool start();
    bool running() const { return m_running; }
    // Text of the last failure (start, stop or createDatabase).
    QString error() const { return m_error; }

private:
    PgServer() = default;
    bool initialise();
    bool run(const QString &program, const QStringList &arguments);
    // Runs statements as the server's own user on the database `postgres`; false and error() on failure.
    bool administer(const QStringList &statements);

    QTemporaryDir m_root;
    QString m_bin;
    QString m_data;
    QString m_socket;
    QString m_error;
    bool m_running = false;
    int m_databases = 0;
    bool m_passwordUser = false;
};

} // namespace est::test
