// Versioned databases: what every start pays to check the layout of every database file of a
// full application folder (all current), and the one-time upgrade of a customer database of
// layout 1 at shop scale (100,000 customers, 150,000 vehicles), its copy included; moving the
// sample data of a full folder onto an empty database of a local server over its Unix socket
// (estimate --to-server without the process; goal under 10 s).

#include "bench_main.h"
#include "db/app_folder.h"
#include "db/database.h"
#include "db/migration.h"
#include "db/schema_upgrade.h"
#include "pg_server.h"
#include "temp_app_folder.h"

#include <QFile>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

using namespace est;

namespace {

const QStringList kFiles{QStringLiteral("temp\\KokyakuDB.mdb"),   QStringLiteral("temp\\PartDB.mdb"),
                         QStringLiteral("temp\\SettingDB.mdb"),   QStringLiteral("temp\\Jisya_Jyouhou.mdb"),
                         QStringLiteral("temp\\Library.mdb"),     QStringLiteral("Data\\Hikazei.mdb"),
                         QStringLiteral("Data\\CarSet.mdb"),      QStringLiteral("Data\\EasyEstimate.mdb"),
                         QStringLiteral("Data\\Toyota.mdb"),      QStringLiteral("Data\\Nissan.mdb"),
                         QStringLiteral("Data\\Honda.mdb")};

void BM_StartUpCheckOfEveryFile(benchmark::State &state)
{
    QTemporaryDir folder;
    for (const QString &file : kFiles) {
        if (!db::openDatabase(folder.path(), file).ok())
            state.SkipWithError("could not make the files");
        db::closeDatabase(db::resolve(folder.path(), file));
    }
    for (auto _ : state) {
        const QStringList notices = db::upgradeAllDatabases(folder.path());
        if (!notices.isEmpty())
            state.SkipWithError("a file was not current");
    }
}
BENCHMARK(BM_StartUpCheckOfEveryFile)->Unit(benchmark::kMillisecond);

// A customer file of layout 1 (before versions were recorded) at shop scale.
QString makeOldCustomers(const QString &folder)
{
    const QString path = folder + QStringLiteral("/old.sqlite");
    const QString connection = QStringLiteral("bench-old");
    {
        QSqlDatabase old = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), connection);
        old.setDatabaseName(path);
        old.open();
        db::runScript(old, db::builtInSql(QStringLiteral("KokyakuDB")));
        QSqlQuery q(old);
        q.exec(QStringLiteral("WITH RECURSIVE n(i) AS (SELECT 1000 UNION ALL SELECT i + 1 FROM n WHERE i < 100999) "
                              "INSERT INTO \"Kokyaku_Jyouhou\" (\"KNo\", \"Namae\", \"Jyusyo1\", \"TEL\") "
                              "SELECT i, '顧客 ' || i, '若葉県みどり台市東町' || i, '000-111-' || i FROM n"));
        q.exec(QStringLiteral("WITH RECURSIVE n(i) AS (SELECT 1000 UNION ALL SELECT i + 1 FROM n WHERE i < 150999) "
                              "INSERT INTO \"Kokyaku_Syaryou\" (\"SNo\", \"KNo\", \"Syamei\", \"Touroku\") "
                              "SELECT i, 1000 + i % 100000, 'プリウス', '品川300さ' || i FROM n"));
        old.close();
    }
    QSqlDatabase::removeDatabase(connection);
    return path;
}

void BM_UpgradeCustomersOfLayout1(benchmark::State &state)
{
    QTemporaryDir folder;
    const QString old = makeOldCustomers(folder.path());
    const QString path = db::resolve(folder.path(), QStringLiteral("temp/KokyakuDB.sqlite"));
    QDir().mkpath(folder.path() + QStringLiteral("/temp"));
    for (auto _ : state) {
        state.PauseTiming();
        QFile::remove(path);
        QFile::copy(old, path);
        state.ResumeTiming();
        const db::OpenResult opened = db::openExistingDatabase(path);
        if (!opened.ok() || !opened.notice.isEmpty() || db::recordedLayout(opened.database) != 2)
            state.SkipWithError("not upgraded");
        db::closeDatabase(path);
    }
    state.counters["file_MB"] = double(QFileInfo(old).size()) / (1024 * 1024);
}
BENCHMARK(BM_UpgradeCustomersOfLayout1)->Unit(benchmark::kMillisecond);

void BM_MigrateSampleDataToServer(benchmark::State &state)
{
    test::PgServer *server = test::PgServer::shared();
    if (!server) {
        state.SkipWithError("no test server");
        return;
    }
    test::TempAppFolder folder;
    folder.makeDatabases();
    for (auto _ : state) {
        state.PauseTiming();
        const QString connection = server->createDatabase();
        state.ResumeTiming();
        const db::MigrationResult result = db::copyFolderToServer(folder.path(), connection);
        if (result.outcome != db::MigrationResult::Outcome::Copied)
            state.SkipWithError(result.error.toStdString().c_str());
    }
}
BENCHMARK(BM_MigrateSampleDataToServer)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(3);

} // namespace

int main(int argc, char **argv)
{
    return est::bench::runBenchmarks(argc, argv, est::bench::App::Core);
}
