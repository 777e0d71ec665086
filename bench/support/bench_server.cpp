#include "bench_server.h"

#include "db/migration.h"
#include "pg_server.h"

#include <QSqlError>
#include <QSqlQuery>
#include <cstdio>

namespace est::bench {

bool analyse(QSqlDatabase database)
{
    QSqlQuery query(database);
    if (query.exec(QStringLiteral("ANALYZE")))
        return true;
    std::fprintf(stderr, "ANALYZE failed: %s\n", qPrintable(query.lastError().text()));
    return false;
}

QString serverCopyOf(const QString &appFolder)
{
    test::PgServer *server = test::PgServer::shared();
    if (!server) {
        std::fprintf(stderr, "no local server\n");
        return {};
    }
    const QString connection = server->createDatabase();
    const db::MigrationResult copied = db::copyFolderToServer(appFolder, connection);
    if (copied.outcome != db::MigrationResult::Outcome::Copied) {
        std::fprintf(stderr, "copy onto the server failed: %s\n", qPrintable(copied.error));
        return {};
    }
    const QString name = QStringLiteral("bench-analyse");
    bool analysed = false;
    {
        QSqlDatabase database = QSqlDatabase::addDatabase(QStringLiteral("QPSQL"), name);
        database.setConnectOptions(connection);
        analysed = database.open() && analyse(database);
        database.close();
    }
    QSqlDatabase::removeDatabase(name);
    return analysed ? connection : QString();
}

} // namespace est::bench
