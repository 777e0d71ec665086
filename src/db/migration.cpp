#include "db/migration.h"

#include "db/app_folder.h"
#include "db/database.h"
#include "db/dialect.h"
#include "db/schema_upgrade.h"
#include "db/server_database.h"
#include "db/server_check.h"
#include "db/server_settings.h"
#include "db/table_copy.h"
#include "db/transaction_guard.h"

#include <QDir>
#include <QFileInfo>
#include <QSqlError>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QUuid>

namespace est::db {

namespace {

// The databases opened by name use this PC's files while it lives, whatever server is in force.
class LocalFiles
{
public:
    LocalFiles() : m_wasLocal(usingLocalDataForThisSession()) { useLocalDataForThisSession(); }
    ~LocalFiles()
    {
        if (!m_wasLocal)
            forgetLocalDataChoice();
    }

private:
    bool m_wasLocal;
};

// A connection of the migration's own to the server, closed and forgotten at the end.
class ServerSession
{
public:
    explicit ServerSession(const QString &connection)
        : m_name(QStringLiteral("migration|") + QUuid::createUuid().toString(QUuid::WithoutBraces))
    {
        m_database = QSqlDatabase::addDatabase(QStringLiteral("QPSQL"), m_name);
        m_database.setConnectOptions(withConnectTimeout(connection));
        m_database.setPassword(rememberedPassword(connection));
        if (!m_database.open())
            m_error = serverFailure(m_database.lastError().text());
    }
    ~ServerSession()
    {
        m_database.close();
        m_database = QSqlDatabase();
        QSqlDatabase::removeDatabase(m_name);
    }
    QSqlDatabase &database() { return m_database; }
    QString error() const { return m_error; }

private:
    QString m_name;
    QSqlDatabase m_database;
    QString m_error;
};

// The program's schemas the server database already holds.
QStringList programSchemas(const QSqlDatabase &database)
{
    QStringList found;
    QSqlQuery query(database);
    if (!query.exec(QStringLiteral("SELECT schema_name FROM information_schema.schemata")))
        return found;
    QStringList wanted{kLayoutSchema};
    for (const QString &base : serverDatabases())
        wanted.append(schemaName(base));
    while (query.next())
        if (wanted.contains(query.value(0).toString()))
            found.append(query.value(0).toString());
    return found;
}

// Copies and compares the tables of one database; appends to the report; an error text.
QString copyDatabase(const QString &base, QSqlDatabase &file, QSqlDatabase &server, bool toServer, int &step, int steps,
                     const MigrationProgress &progress, QStringList &report)
{
    const QString schema = schemaName(base);
    if (QString gone = probe(server); !gone.isEmpty())
        return serverFailure(gone);
    QStringList tables = serverTables(server, schema);
    tables.removeAll(kVersionTable);
    const QStringList fileTables = tableNames(file);
    for (const QString &table : tables) {
        const auto inFile = std::find_if(fileTables.begin(), fileTables.end(),
                                         [&](const QString &t) { return t.compare(table, Qt::CaseInsensitive) == 0; });
        const TableRef onFile{file, {}, inFile == fileTables.end() ? table : *inFile};
        const TableRef onServer{server, schema, table};
        if (inFile == fileTables.end()) {
            // Only a file of another layout lacks one; its rows stay where they are.
            report.append(QStringLiteral("%1.%2: このPCのファイルにない表のため、写していません").arg(base, table));
            continue;
        }
        qint64 copied = 0;
        if (QString error = toServer ? copyTable(onFile, onServer, &copied) : copyTable(onServer, onFile, &copied);
            !error.isEmpty())
            return QStringLiteral("%1.%2 を写せませんでした。\n%3").arg(base, table, error);
        QStringList numeric = tableColumns(onServer).numeric;
        const QStringList fileColumns = tableColumns(onFile).names;
        numeric.erase(std::remove_if(numeric.begin(), numeric.end(),
                                     [&](const QString &c) { return !fileColumns.contains(c, Qt::CaseInsensitive); }),
                      numeric.end());
        qint64 rows = 0;
        if (QString difference = compareTables(onFile, onServer, numeric, &rows); !difference.isEmpty())
            return QStringLiteral("%1.%2: %3").arg(base, table, difference);
        report.append(QStringLiteral("%1.%2: %3 件、数の列 %4 の合計も一致").arg(base, table).arg(rows).arg(numeric.size()));
        if (progress)
            progress(QStringLiteral("[%1/%2] %3.%4 %5 件").arg(++step).arg(steps).arg(base, table).arg(copied));
    }
    return {};
}

int countTables(QSqlDatabase &server)
{
    int n = 0;
    for (const QString &base : serverDatabases()) {
        QStringList tables = serverTables(server, schemaName(base));
        tables.removeAll(kVersionTable);
        n += int(tables.size());
    }
    return n;
}

// Gives the identity columns of every schema their next numbers after rows copied in.
QString resyncAll(QSqlDatabase &server)
{
    QSqlQuery query(server);
    for (const QString &base : serverDatabases()) {
        if (!query.exec(QStringLiteral("SET LOCAL search_path TO %1").arg(quoteIdentifier(schemaName(base)))))
            return query.lastError().text();
        if (QString error = resyncIdentities(server); !error.isEmpty())
            return error;
    }
    return {};
}

MigrationResult failed(const QString &error, MigrationResult::Outcome outcome = MigrationResult::Outcome::Failed)
{
    MigrationResult result;
    result.outcome = outcome;
    result.error = error;
    return result;
}

} // namespace

QString databaseRelativePath(const QString &baseName)
{
    static const QStringList inTemp{QStringLiteral("KokyakuDB"), QStringLiteral("SettingDB"), QStringLiteral("Jisya_Jyouhou"),
                                    QStringLiteral("PartDB"), QStringLiteral("Library")};
    return (inTemp.contains(baseName) ? QStringLiteral("temp\\") : QStringLiteral("Data\\")) + baseName + QStringLiteral(".mdb");
}

MigrationResult copyFolderToServer(const QString &appFolder, const QString &connection, const MigrationProgress &progress)
{
    const LocalFiles local;
    ServerSession session(connection);
    if (!session.error().isEmpty())
        return failed(session.error());
    QSqlDatabase &server = session.database();
    if (!programSchemas(server).isEmpty())
        return failed(QStringLiteral("共有サーバーのデータベースには、すでにこのプログラムのデータがあります。何も変えていません。"),
                      MigrationResult::Outcome::TargetHoldsData);
    TransactionGuard transaction(server);
    if (!transaction.started())
        return failed(serverFailure(server.lastError().text()));
    if (QString error = createServerLayout(server); !error.isEmpty())
        return failed(QStringLiteral("共有サーバーにデータベースを作れませんでした。何も変えていません。\n") + error);
    MigrationResult result;
    int step = 0;
    const int steps = countTables(server);
    for (const QString &base : serverDatabases()) {
        const QString path = resolve(appFolder, databaseRelativePath(base));
        if (!QFileInfo::exists(path)) {
            result.report.append(QStringLiteral("%1: このPCにファイルがないため、見本のデータのままです").arg(base));
            continue;
        }
        QString error;
        {
            OpenResult opened = openExistingDatabase(path);
            error = opened.ok() ? copyDatabase(base, opened.database, server, true, step, steps, progress, result.report)
                                : opened.error;
        }
        closeDatabase(path);
        if (!error.isEmpty())
            return failed(QStringLiteral("移行をやめました。共有サーバーには何も残していません。\n") + error);
    }
    if (QString error = resyncAll(server); !error.isEmpty())
        return failed(error);
    if (!transaction.commit())
        return failed(QStringLiteral("移行をやめました。共有サーバーには何も残していません。\n") + server.lastError().text());
    result.outcome = MigrationResult::Outcome::Copied;
    return result;
}

MigrationResult copyServerToFolder(const QString &connection, const QString &folder, const MigrationProgress &progress)
{
    const LocalFiles local;
    for (const QString &base : serverDatabases())
        if (QFileInfo::exists(resolve(folder, databaseRelativePath(base))))
            return failed(QStringLiteral("フォルダ %1 にはすでにデータベースがあります。何も変えていません。").arg(QDir::toNativeSeparators(folder)),
                          MigrationResult::Outcome::TargetHoldsData);
    ServerSession session(connection);
    if (!session.error().isEmpty())
        return failed(session.error());
    QSqlDatabase &server = session.database();
    if (!programSchemas(server).contains(kLayoutSchema))
        return failed(QStringLiteral("共有サーバーのデータベースには、このプログラムのデータがありません。"));
    if (!QDir().mkpath(folder))
        return failed(QStringLiteral("フォルダ %1 を作れません。").arg(QDir::toNativeSeparators(folder)));
    // Everything is made in a folder beside the target and moved in only when it all compared equal.
    QTemporaryDir staging(QDir(folder).filePath(QStringLiteral(".from-server-XXXXXX")));
    if (!staging.isValid())
        return failed(staging.errorString());
    MigrationResult result;
    int step = 0;
    const int steps = countTables(server);
    QStringList made;
    for (const QString &base : serverDatabases()) {
        QString error;
        {
            OpenResult opened = openDatabase(staging.path(), databaseRelativePath(base));
            if (opened.ok()) {
                TransactionGuard transaction(opened.database);
                error = copyDatabase(base, opened.database, server, false, step, steps, progress, result.report);
                if (error.isEmpty() && !transaction.commit())
                    error = opened.database.lastError().text();
            } else {
                error = opened.error;
            }
        }
        closeDatabase(resolve(staging.path(), databaseRelativePath(base)));
        if (!error.isEmpty())
            return failed(QStringLiteral("写すのをやめました。フォルダには何も残していません。\n") + error);
        made.append(databaseRelativePath(base));
    }
    for (const QString &relative : made) {
        const QString target = resolve(folder, relative);
        QDir().mkpath(QFileInfo(target).absolutePath());
        if (!QFile::rename(resolve(staging.path(), relative), target))
            return failed(QStringLiteral("%1 を置けませんでした。").arg(QDir::toNativeSeparators(target)));
    }
    result.outcome = MigrationResult::Outcome::Copied;
    return result;
}

} // namespace est::db
