#include "pg_server.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QVersionNumber>
#include <gtest/gtest.h>
#include <memory>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

namespace est::test {

namespace {

constexpr char kUser[] = "estimate";
constexpr char kServerUser[] = "nobody";

// Debian installs each major version under /usr/lib/postgresql/<version>/bin; the newest wins.
QString serverBinaries()
{
    QDir lib(QStringLiteral("/usr/lib/postgresql"));
    QString best;
    QVersionNumber bestVersion;
    for (const QString &entry : lib.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        const QVersionNumber version = QVersionNumber::fromString(entry);
        if (QFile::exists(lib.filePath(entry + QStringLiteral("/bin/pg_ctl"))) && version > bestVersion) {
            bestVersion = version;
            best = lib.filePath(entry + QStringLiteral("/bin"));
        }
    }
    return best;
}

bool giveTo(const QString &path, const passwd *user, mode_t mode)
{
    const QByteArray local = QFile::encodeName(path);
    return ::chown(local.constData(), user->pw_uid, user->pw_gid) == 0 && ::chmod(local.constData(), mode) == 0;
}

} // namespace

PgServer *PgServer::shared()
{
    static std::unique_ptr<PgServer> server;
    static bool tried = false;
    if (!tried) {
        tried = true;
        server.reset(new PgServer);
        if (!server->initialise()) {
            ADD_FAILURE() << "the test PostgreSQL server did not start: " << server->m_error.toStdString();
            server.reset();
        }
    }
    if (!server)
        ADD_FAILURE() << "no test PostgreSQL server (see the first failure)";
    return server.get();
}

PgServer::~PgServer()
{
    if (m_running)
        stop();
}

bool PgServer::run(const QString &program, const QStringList &arguments)
{
    QProcess process;
    QString executable = QDir(m_bin).filePath(program);
    QStringList args = arguments;
    if (::geteuid() == 0) {
        const passwd *user = ::getpwnam(kServerUser);
        args.prepend(executable);
        args = QStringList{QStringLiteral("--reuid=%1").arg(user->pw_uid), QStringLiteral("--regid=%1").arg(user->pw_gid),
                           QStringLiteral("--clear-groups"), QStringLiteral("--")}
               + args;
        executable = QStringLiteral("setpriv");
    }
    process.setWorkingDirectory(m_root.path());
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(executable, args);
    if (!process.waitForFinished(120000) || process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0) {
        m_error = program + QStringLiteral(": ") + QString::fromLocal8Bit(process.readAll()) + process.errorString();
        return false;
    }
    return true;
}

bool PgServer::initialise()
{
    m_bin = serverBinaries();
    if (m_bin.isEmpty()) {
        m_error = QStringLiteral("no PostgreSQL server under /usr/lib/postgresql (tools/install-deps installs it)");
        return false;
    }
    if (!m_root.isValid()) {
        m_error = m_root.errorString();
        return false;
    }
    m_data = m_root.filePath(QStringLiteral("data"));
    m_socket = m_root.filePath(QStringLiteral("socket"));
    QDir().mkpath(m_data);
    QDir().mkpath(m_socket);
    if (::geteuid() == 0) {
        const passwd *user = ::getpwnam(kServerUser);
        if (!user) {
            m_error = QStringLiteral("no user %1 to run the server as").arg(QLatin1String(kServerUser));
            return false;
        }
        // The server user owns its folders (its log is written beside them).
        if (!giveTo(m_root.path(), user, 0755) || !giveTo(m_data, user, 0700) || !giveTo(m_socket, user, 0755)) {
            m_error = QStringLiteral("cannot hand the temporary folders to %1").arg(QLatin1String(kServerUser));
            return false;
        }
    }
    if (!run(QStringLiteral("initdb"), {QStringLiteral("-D"), m_data, QStringLiteral("-U"), QLatin1String(kUser),
                                        QStringLiteral("-A"), QStringLiteral("trust"), QStringLiteral("-E"),
                                        QStringLiteral("UTF8"), QStringLiteral("--no-locale"), QStringLiteral("--no-sync")}))
        return false;
    // One user must give a password; everyone else is trusted.
    QFile hba(QDir(m_data).filePath(QStringLiteral("pg_hba.conf")));
    if (!hba.open(QIODevice::ReadOnly)) {
        m_error = hba.errorString();
        return false;
    }
    const QByteArray rules = hba.readAll();
    hba.close();
    if (!hba.open(QIODevice::WriteOnly | QIODevice::Truncate)
        || hba.write(QByteArray("local all ") + kPasswordUser + " scram-sha-256\n" + rules) < 0) {
        m_error = hba.errorString();
        return false;
    }
    hba.close();
    return start();
}

bool PgServer::start()
{
    // Durability is not what the tests are about: fsync off keeps the shared machine quiet.
    const QString options = QStringLiteral("-c listen_addresses='' -k %1 -c fsync=off "
                                           "-c full_page_writes=off -c max_connections=200")
                                .arg(m_socket);
    if (!run(QStringLiteral("pg_ctl"), {QStringLiteral("-D"), m_data, QStringLiteral("-l"),
                                        m_root.filePath(QStringLiteral("server.log")), QStringLiteral("-w"),
                                        QStringLiteral("-o"), options, QStringLiteral("start")}))
        return false;
    m_running = true;
    return true;
}

bool PgServer::stop()
{
    if (!run(QStringLiteral("pg_ctl"), {QStringLiteral("-D"), m_data, QStringLiteral("-w"), QStringLiteral("-m"),
                                        QStringLiteral("immediate"), QStringLiteral("stop")}))
        return false;
    m_running = false;
    return true;
}

QString PgServer::connectionString(const QString &database) const
{
    return QStringLiteral("host=%1 user=%2 dbname=%3").arg(m_socket, QLatin1String(kUser), database);
}

namespace {

// A password of the tests' own, as an SQL literal (ALTER ROLE takes no parameters).
QString literal(const QString &text)
{
    QString quoted = text;
    quoted.replace(QLatin1Char('\''), QStringLiteral("''"));
    return QLatin1Char('\'') + quoted + QLatin1Char('\'');
}

} // namespace

bool PgServer::administer(const QStringList &statements)
{
    const QString connection = QStringLiteral("pg-server-admin");
    QString error;
    {
        QSqlDatabase admin = QSqlDatabase::addDatabase(QStringLiteral("QPSQL"), connection);
        admin.setConnectOptions(connectionString(QStringLiteral("postgres")));
        if (!admin.open()) {
            error = admin.lastError().text();
        } else {
            QSqlQuery query(admin);
            for (const QString &statement : statements) {
                if (!query.exec(statement)) {
                    error = query.lastError().text();
                    break;
                }
            }
        }
        admin.close();
    }
    QSqlDatabase::removeDatabase(connection);
    if (!error.isEmpty())
        m_error = error;
    return error.isEmpty();
}

QString PgServer::createPasswordDatabase(const QString &password)
{
    const QString name = QStringLiteral("test%1").arg(++m_databases);
    const QString user = QLatin1String(kPasswordUser);
    QStringList statements;
    if (!m_passwordUser)
        statements << QStringLiteral("CREATE ROLE %1 LOGIN").arg(user);
    statements << QStringLiteral("ALTER ROLE %1 PASSWORD %2").arg(user, literal(password))
               << QStringLiteral("CREATE DATABASE %1 OWNER %2").arg(name, user);
    if (!administer(statements)) {
        ADD_FAILURE() << "cannot create a database with a password: " << m_error.toStdString();
        return {};
    }
    m_passwordUser = true;
    return QStringLiteral("host=%1 user=%2 dbname=%3").arg(m_socket, user, name);
}

bool PgServer::setPassword(const QString &password)
{
    return administer({QStringLiteral("ALTER ROLE %1 PASSWORD %2").arg(QLatin1String(kPasswordUser), literal(password))});
}

QString PgServer::createDatabase()
{
    const QString name = QStringLiteral("test%1").arg(++m_databases);
    // A name of our own making: digits after a fixed word, safe as an identifier.
    if (!administer({QStringLiteral("CREATE DATABASE %1").arg(name)})) {
        ADD_FAILURE() << "cannot create a test database: " << m_error.toStdString();
        return {};
    }
    return connectionString(name);
}

} // namespace est::test
