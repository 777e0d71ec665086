#include "storage_backend.h"

#include "db/server_database.h"
#include "pg_server.h"

namespace est::test {

BackendScope::BackendScope(Backend backend)
    : m_backend(backend), m_previous(qgetenv("ESTIMATE_DB")), m_hadPrevious(qEnvironmentVariableIsSet("ESTIMATE_DB"))
{
    if (backend == Backend::Sqlite) {
        qunsetenv("ESTIMATE_DB");
        return;
    }
    if (PgServer *server = PgServer::shared())
        m_connection = server->createDatabase();
    // Without a server the test fails (above) rather than passing on the files.
    qputenv("ESTIMATE_DB", m_connection.isEmpty() ? QByteArray("host=/nonexistent") : m_connection.toUtf8());
}

BackendScope::~BackendScope()
{
    db::closeServerConnections();
    if (m_hadPrevious)
        qputenv("ESTIMATE_DB", m_previous);
    else
        qunsetenv("ESTIMATE_DB");
}

Backend backendOfRun()
{
    return qEnvironmentVariable("ESTIMATE_TEST_BACKEND") == QLatin1String("server") ? Backend::Server : Backend::Sqlite;
}

std::string backendName(Backend backend)
{
    return backend == Backend::Sqlite ? "Sqlite" : "Server";
}

} // namespace est::test
