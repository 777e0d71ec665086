#include "db/server_check.h"

#include "db/dialect.h"
#include "db/server_database.h"

#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QUuid>

namespace est::db {

bool asksForPassword(const QString &reason)
{
    return reason.contains(QLatin1String("no password supplied"), Qt::CaseInsensitive)
           || reason.contains(QLatin1String("password authentication failed"), Qt::CaseInsensitive)
           || reason.contains(QLatin1String("fe_sendauth"), Qt::CaseInsensitive);
}

QString withConnectTimeout(const QString &connection)
{
    if (connection.contains(QLatin1String("connect_timeout")))
        return connection;
    return connection + QStringLiteral(" connect_timeout=10");
}

namespace {

// What an open connection reaches, for the user.
QString describe(const QSqlDatabase &database)
{
    QSqlQuery query(database);
    QString where;
    if (query.exec(QStringLiteral("SELECT current_database(), current_user, current_setting('server_version')"))
        && query.next())
        where = QStringLiteral("データベース %1、ユーザー %2、PostgreSQL %3")
                    .arg(query.value(0).toString(), query.value(1).toString(), query.value(2).toString());
    query.prepare(QStringLiteral("SELECT 1 FROM information_schema.schemata WHERE schema_name = ?"));
    query.addBindValue(kLayoutSchema);
    const bool hasData = query.exec() && query.next();
    return QStringLiteral("接続できました。（%1）\n%2")
        .arg(where, hasData ? QStringLiteral("このデータベースには見積のデータがあります。")
                            : QStringLiteral("このデータベースはまだ空です。最初に使うときにデータの入れ物を作ります。"));
}

} // namespace

ServerCheck checkServer(const QString &connection, const QString &password)
{
    ServerCheck check;
    const QString name = QStringLiteral("server-check|") + QUuid::createUuid().toString(QUuid::WithoutBraces);
    {
        QSqlDatabase database = QSqlDatabase::addDatabase(QStringLiteral("QPSQL"), name);
        database.setConnectOptions(withConnectTimeout(connection));
        if (!password.isEmpty())
            database.setPassword(password);
        if (database.open()) {
            check.ok = true;
            check.message = describe(database);
            database.close();
        } else {
            const QString reason = database.lastError().text();
            check.needsPassword = asksForPassword(reason);
            check.message = serverFailure(reason);
        }
    }
    QSqlDatabase::removeDatabase(name);
    return check;
}

} // namespace est::db
