#include "db/server_database.h"

#include "db/dialect.h"
#include "db/schema_upgrade.h"
#include "db/server_check.h"
#include "db/server_settings.h"
#include "db/transaction_guard.h"

#include <QDir>
#include <QSet>
#include <QSqlError>
#include <QSqlQuery>

namespace est::db {

namespace {

const QString kConnectionPrefix = QStringLiteral("server|");

// Connections whose layout was checked in this run.
QSet<QString> &preparedServers()
{
    static QSet<QString> servers;
    return servers;
}

QSqlDatabase connectionFor(const QString &connection, const QString &schema)
{
    const QString name = kConnectionPrefix + schema + QLatin1Char('|') + connection;
    if (QSqlDatabase::contains(name))
        return QSqlDatabase::database(name, false);
    QSqlDatabase database = QSqlDatabase::addDatabase(QStringLiteral("QPSQL"), name);
    // The whole libpq string goes through as options, so service names and TLS settings work.
    database.setConnectOptions(withConnectTimeout(connection));
    return database;
}

bool alive(const QSqlDatabase &database)
{
    QSqlQuery probe(database);
    return probe.exec(QStringLiteral("SELECT 1"));
}

// Opens (or finds open and alive) the connection; a dead one is closed and opened afresh.
QString openSession(QSqlDatabase &database, const QString &connection, const QString &schema)
{
    if (database.isOpen() && alive(database))
        return {};
    database.close();
    database.setPassword(rememberedPassword(connection));
    if (!database.open())
        return database.lastError().text();
    QSqlQuery query(database);
    if (!schema.isEmpty() && !query.exec(QStringLiteral("SET search_path TO %1").arg(quoteIdentifier(schema)))) {
        const QString error = query.lastError().text();
        database.close();
        return error;
    }
    return {};
}

bool schemaExists(const QSqlDatabase &database, const QString &schema)
{
    QSqlQuery query(database);
    query.prepare(QStringLiteral("SELECT 1 FROM information_schema.schemata WHERE schema_name = ?"));
    query.addBindValue(schema);
    return query.exec() && query.next();
}

QString failed(const QSqlQuery &query)
{
    return query.lastError().text();
}

// Inside the caller's transaction: a schema with the tables and sample rows of its script.
QString createSchema(QSqlDatabase &database, const QString &baseName)
{
    const QString schema = schemaName(baseName);
    QSqlQuery query(database);
    if (!query.exec(QStringLiteral("CREATE SCHEMA %1").arg(quoteIdentifier(schema)))
        || !query.exec(QStringLiteral("SET LOCAL search_path TO %1").arg(quoteIdentifier(schema))))
        return failed(query);
    const QStringList scripts = QStringList{builtInSql(baseName)} + addOnScripts(baseName);
    for (const QString &script : scripts)
        for (const QString &statement : splitStatements(script))
            if (!query.exec(toServerStatement(statement)))
                return failed(query) + QStringLiteral("\n") + statement.left(200);
    if (QString error = recordLayout(database, currentLayout(schemaSteps(baseName))); !error.isEmpty())
        return error;
    return resyncIdentities(database);
}

QString createLayout(QSqlDatabase &database)
{
    QSqlQuery query(database);
    const QString schema = quoteIdentifier(kLayoutSchema);
    // SQLite's CAST(text AS INTEGER): the leading digits, 0 when there are none.
    const QString integerOf = QStringLiteral(
        "CREATE FUNCTION %1.integer_of(value text) RETURNS bigint LANGUAGE sql IMMUTABLE PARALLEL SAFE AS "
        "$$ SELECT CASE WHEN value IS NULL THEN NULL ELSE "
        "COALESCE(substring(value FROM '^\\s*([+-]?[0-9]{1,18})')::bigint, 0) END $$")
                                  .arg(schema);
    if (!query.exec(QStringLiteral("CREATE SCHEMA IF NOT EXISTS %1").arg(schema)) || !query.exec(integerOf)
        || !query.exec(QStringLiteral("CREATE TABLE %1.\"Layout\" (\"Version\" INTEGER NOT NULL)").arg(schema)))
        return failed(query);
    query.prepare(QStringLiteral("INSERT INTO %1.\"Layout\" (\"Version\") VALUES (?)").arg(schema));
    query.addBindValue(kServerLayoutVersion);
    if (!query.exec())
        return failed(query);
    for (const QString &base : serverDatabases()) {
        if (schemaExists(database, schemaName(base)))
            continue;
        if (QString error = createSchema(database, base); !error.isEmpty())
            return error;
    }
    return {};
}

QString newerLayout(int found)
{
    return QStringLiteral("共有サーバーのデータは、このプログラムより新しい版の形式です（サーバー: 版 %1、"
                          "このプログラム: 版 %2 まで）。\nプログラムを新しい版にしてください。サーバーには何も書き込んでいません。")
        .arg(found)
        .arg(kServerLayoutVersion);
}

} // namespace

QString createServerLayout(QSqlDatabase &database)
{
    return createLayout(database);
}

QString schemaName(const QString &baseName)
{
    return baseName.toLower();
}

QStringList serverDatabases()
{
    QStringList names;
    for (const QString &file : QDir(QStringLiteral(":/data")).entryList({QStringLiteral("*.sql")}, QDir::Files, QDir::Name)) {
        const QString base = file.section(QLatin1Char('.'), 0, 0);
        if (!names.contains(base) && isServerDatabase(base) && file.count(QLatin1Char('.')) == 1)
            names.append(base);
    }
    return names;
}

bool isServerDatabase(const QString &baseName)
{
    return baseName != QStringLiteral("Library");
}

QString prepareServer(const QString &connection)
{
    if (preparedServers().contains(connection))
        return {};
    QSqlDatabase database = connectionFor(connection, {});
    if (QString error = openSession(database, connection, {}); !error.isEmpty())
        return serverFailure(error);
    QString error;
    {
        TransactionGuard guard(database);
        QSqlQuery query(database);
        // Two seats starting on an empty server: the second waits and then finds the layout.
        if (!guard.started() || !query.exec(QStringLiteral("SELECT pg_advisory_xact_lock(72430023)")))
            return serverFailure(guard.started() ? failed(query) : database.lastError().text());
        query.prepare(QStringLiteral("SELECT 1 FROM information_schema.tables WHERE table_schema = ? AND table_name = 'Layout'"));
        query.addBindValue(kLayoutSchema);
        if (!query.exec())
            return serverFailure(failed(query));
        if (query.next()) {
            if (!query.exec(QStringLiteral("SELECT MAX(\"Version\") FROM %1.\"Layout\"").arg(quoteIdentifier(kLayoutSchema)))
                || !query.next())
                return serverFailure(failed(query));
            if (const int found = query.value(0).toInt(); found > kServerLayoutVersion)
                return newerLayout(found);
        } else if (error = createLayout(database); error.isEmpty() && !guard.commit()) {
            error = database.lastError().text();
        }
    }
    if (!error.isEmpty())
        return QStringLiteral("共有サーバーにデータベースを作れませんでした。何も変更していません。\n%1").arg(error);
    preparedServers().insert(connection);
    return {};
}

OpenResult openServerDatabase(const QString &connection, const QString &baseName, bool create)
{
    OpenResult result;
    if (result.error = prepareServer(connection); !result.ok())
        return result;
    const QString schema = schemaName(baseName);
    result.database = connectionFor(connection, schema);
    const bool first = !result.database.isOpen();
    if (QString error = openSession(result.database, connection, schema); !error.isEmpty()) {
        result.error = serverFailure(error);
        return result;
    }
    if (!first)
        return result;
    if (!schemaExists(result.database, schema)) {
        if (!create || builtInSql(baseName).isEmpty()) {
            result.error = QStringLiteral("共有サーバーに %1 がありません。").arg(baseName);
            return result;
        }
        TransactionGuard guard(result.database);
        if (QString error = createSchema(result.database, baseName); !error.isEmpty() || !guard.commit()) {
            result.error = QStringLiteral("共有サーバーに %1 を作れませんでした。\n%2").arg(baseName, error);
            return result;
        }
        result.created = true;
        return result;
    }
    // A schema of an earlier layout is upgraded as a file is; a newer one is never written to.
    const UpgradeOutcome outcome = upgradeDatabase(result.database, schemaSteps(baseName), {});
    if (outcome.state == UpgradeOutcome::State::Newer) {
        result.error = QStringLiteral("共有サーバーの %1 は、このプログラムより新しい版の形式です（形式 %2、このプログラムは形式 %3 まで）。"
                                      "\nプログラムを新しい版にしてください。サーバーには何も書き込んでいません。")
                           .arg(baseName).arg(outcome.from).arg(currentLayout(schemaSteps(baseName)));
        result.database.close();
    } else if (outcome.state == UpgradeOutcome::State::Failed) {
        result.error = QStringLiteral("共有サーバーの %1: %2").arg(baseName, outcome.message);
        result.database.close();
    }
    return result;
}

bool isConnectionFailure(const QString &reason)
{
    static const char *const patterns[] = {"could not connect", "connection to server", "server closed the connection",
                                           "no connection to the server", "terminating connection", "password",
                                           "Connection refused", "No such file or directory", "could not translate host",
                                           "timeout expired", "connection not open", "Unable to connect",
                                           "could not send data", "could not receive data", "SSL"};
    for (const char *pattern : patterns)
        if (reason.contains(QLatin1String(pattern), Qt::CaseInsensitive))
            return true;
    return false;
}

QString serverFailure(const QString &reason)
{
    static const std::pair<const char *, const char *> known[] = {
        {"password authentication failed", "パスワードが違います。"},
        {"no password supplied", "パスワードが必要です。"},
        {"does not exist", "指定したデータベースかユーザーがサーバーにありません。"},
        {"could not translate host", "サーバーの名前が見つかりません。"},
        {"timeout expired", "サーバーから時間内に応答がありません。"},
        {"Connection refused", "サーバーが応答しません（停止しているか、ネットワークにつながっていません）。"},
        {"No such file or directory", "サーバーが応答しません（停止しているか、ネットワークにつながっていません）。"},
        {"server closed the connection", "サーバーとの接続が切れました。"},
        {"terminating connection", "サーバーとの接続が切れました。"},
        {"no connection to the server", "サーバーとの接続が切れました。"},
        {"SSL", "暗号化（TLS）の設定がサーバーと合いません。"},
    };
    QString plain = QStringLiteral("サーバーが接続を受け付けませんでした。");
    for (const auto &[pattern, text] : known) {
        if (reason.contains(QLatin1String(pattern), Qt::CaseInsensitive)) {
            plain = QString::fromUtf8(text);
            break;
        }
    }
    return kServerUnreachable + QLatin1Char('\n') + plain + QStringLiteral("\n（%1）").arg(reason.trimmed());
}

void closeServerConnections()
{
    for (const QString &name : QSqlDatabase::connectionNames()) {
        if (!name.startsWith(kConnectionPrefix))
            continue;
        {
            QSqlDatabase database = QSqlDatabase::database(name, false);
            database.close();
        }
        QSqlDatabase::removeDatabase(name);
    }
    preparedServers().clear();
}

QString resyncIdentities(QSqlDatabase &database)
{
    QSqlQuery columns(database);
    if (!columns.exec(QStringLiteral("SELECT table_name, column_name FROM information_schema.columns "
                                     "WHERE table_schema = current_schema() AND is_identity = 'YES'")))
        return failed(columns);
    QSqlQuery schema(database);
    if (!schema.exec(QStringLiteral("SELECT current_schema()")) || !schema.next())
        return failed(schema);
    QSqlQuery set(database);
    while (columns.next()) {
        const QString table = columns.value(0).toString();
        const QString column = columns.value(1).toString();
        set.prepare(QStringLiteral("SELECT setval(pg_get_serial_sequence(?, ?), COALESCE(MAX(%1), 0) + 1, false) FROM %2")
                        .arg(quoteIdentifier(column), quoteIdentifier(table)));
        set.addBindValue(quoteIdentifier(schema.value(0).toString()) + QLatin1Char('.') + quoteIdentifier(table));
        set.addBindValue(column);
        if (!set.exec())
            return failed(set);
    }
    return {};
}

} // namespace est::db
