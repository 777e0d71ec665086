#pragma once
// Runs a store or database test on either backend: the application folder's SQLite files, or
// a fresh database of the test run's own PostgreSQL server (ESTIMATE_DB names it while the
// scope lives). Parameterise a suite over kBothBackends instead of copying it.

#include <QByteArray>
#include <QString>
#include <ostream>

namespace est::test {

enum class Backend { Sqlite, Server };

inline constexpr Backend kBothBackends[] = {Backend::Sqlite, Backend::Server};

class BackendScope
{
public:
    explicit BackendScope(Backend backend);
    ~BackendScope();
    BackendScope(const BackendScope &) = delete;
    BackendScope &operator=(const BackendScope &) = delete;

    Backend backend() const { return m_backend; }
    // The server database's connection string; empty on SQLite.
    QString connection() const { return m_connection; }

private:
    Backend m_backend;
    QString m_connection;
    QByteArray m_previous;
    bool m_hadPrevious;
};

// The backend a fixture shared by a whole test program runs on: the server when CTest runs the
// program a second time with ESTIMATE_TEST_BACKEND=server (est_test's BOTH_BACKENDS), else the files.
Backend backendOfRun();

// GoogleTest's name of a backend parameter ("Sqlite", "Server").
std::string backendName(Backend backend);
inline void PrintTo(Backend backend, std::ostream *out) { *out << backendName(backend); }

} // namespace est::test
