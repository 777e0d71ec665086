// Speed of the parts catalogue lists on a catalogue of 200,000 parts (classifications,
// sections of one classification, parts of one section; each should stay under 5 ms) and of
// adding the 394th row to the work item editor's rows with the totals recomputed (under 2 ms).
// The catalogue is generated into a temporary SQLite file when the benchmark starts, and the
// three lists are also timed on a copy of it on a local server (/1; /0 is the file; goal
// under 20 ms there).

#include "bench_main.h"
#include "bench_server.h"
#include "db/server_database.h"
#include "db/table_copy.h"
#include "common/estimate_row.h"
#include "workitems/catalogue.h"
#include "workitems/work_item_table.h"
#include "temp_app_folder.h"

#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>
#include <cstdio>
#include <cstdlib>
#include <memory>

using namespace est;
using namespace est::workitems;

namespace {

constexpr int kClassifications = 20;
constexpr int kSectionsPerClassification = 50;
constexpr int kPartsPerSection = 200; // 20 × 50 × 200 = 200,000 parts

struct BigCatalogue
{
    QTemporaryDir dir;
    QSqlDatabase db;
    std::unique_ptr<CatalogueTable> table;

    BigCatalogue()
    {
        db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("bench"));
        db.setDatabaseName(dir.filePath(QStringLiteral("Big.sqlite")));
        db.open();
        createCatalogueTable(db, QStringLiteral("T_Big"));
        db.transaction();
        QSqlQuery insert(db);
        insert.prepare(QStringLiteral("INSERT INTO T_Big VALUES (?, ?, ?, ?, ?, ?)"));
        // Rows go in section by section but classifications interleaved, as a catalogue
        // grown over the years would be.
        for (int k = 1; k <= kSectionsPerClassification; ++k)
            for (int b = 1; b <= kClassifications; ++b)
                for (int n = 1; n <= kPartsPerSection; ++n) {
                    insert.bindValue(0, n);
                    insert.bindValue(1, b);
                    insert.bindValue(2, QStringLiteral("分類%1").arg(b));
                    insert.bindValue(3, k);
                    insert.bindValue(4, QStringLiteral("区分%1-%2").arg(b).arg(k));
                    insert.bindValue(5, QStringLiteral("部品名 %1-%2-%3").arg(b).arg(k).arg(n));
                    insert.exec();
                }
        db.commit();
        table = CatalogueTable::open(db, QStringLiteral("T_Big"));
    }
};

// The same table in the schema of a maker's catalogue on a local server.
struct ServerCatalogue
{
    test::TempAppFolder folder;
    std::unique_ptr<CatalogueTable> table;

    explicit ServerCatalogue(BigCatalogue &file)
    {
        const QString connection = est::bench::serverCopyOf(folder.path());
        db::OpenResult opened = db::openServerDatabase(connection, QStringLiteral("Toyota"));
        QString error = opened.error;
        if (error.isEmpty())
            error = createCatalogueTable(opened.database, QStringLiteral("T_Big"));
        qint64 rows = 0;
        if (error.isEmpty())
            error = db::copyTable({file.db, {}, QStringLiteral("T_Big")},
                                  {opened.database, QStringLiteral("toyota"), QStringLiteral("T_Big")}, &rows);
        if (error.isEmpty() && est::bench::analyse(opened.database))
            table = CatalogueTable::open(opened.database, QStringLiteral("T_Big"), &error);
        if (!table)
            std::fprintf(stderr, "no catalogue on the server: %s\n", qPrintable(error));
    }
};

BigCatalogue &catalogue()
{
    static BigCatalogue big;
    return big;
}

// The file's table (/0) or the server's (/1).
CatalogueTable &tableOf(const benchmark::State &state)
{
    if (state.range(0) == 0)
        return *catalogue().table;
    static ServerCatalogue server(catalogue());
    if (!server.table)
        std::abort(); // said above
    return *server.table;
}

void BM_Classifications(benchmark::State &state)
{
    CatalogueTable &t = tableOf(state);
    for (auto _ : state) {
        auto list = t.classifications();
        if (list.size() != kClassifications)
            state.SkipWithError("wrong classification count");
        benchmark::DoNotOptimize(list);
    }
}
BENCHMARK(BM_Classifications)->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond)->UseRealTime();

void BM_Sections(benchmark::State &state)
{
    CatalogueTable &t = tableOf(state);
    for (auto _ : state) {
        auto list = t.sections(std::int16_t(kClassifications / 2));
        if (list.size() != kSectionsPerClassification)
            state.SkipWithError("wrong section count");
        benchmark::DoNotOptimize(list);
    }
}
BENCHMARK(BM_Sections)->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond)->UseRealTime();

void BM_Parts(benchmark::State &state)
{
    CatalogueTable &t = tableOf(state);
    for (auto _ : state) {
        auto list = t.parts(std::int16_t(kClassifications / 2), std::int16_t(kSectionsPerClassification / 2));
        if (list.size() != kPartsPerSection)
            state.SkipWithError("wrong part count");
        benchmark::DoNotOptimize(list);
    }
}
BENCHMARK(BM_Parts)->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond)->UseRealTime();

void BM_Add394thRow(benchmark::State &state)
{
    QList<EstimateRow> rows;
    for (int i = 0; i < kMaxEstimateRows - 1; ++i) {
        EstimateRow r;
        r[ColNo] = QString::number(i + 1);
        r[ColSection] = QStringLiteral("フロント");
        r[ColPart] = QStringLiteral("フロントバンパーカバー");
        r[ColIndex] = QStringLiteral("1.50");
        r[ColLabour] = QStringLiteral("7500");
        r[ColUnitPrice] = QStringLiteral("12345");
        r[ColQuantity] = QStringLiteral("2");
        r[ColPartsAmount] = QStringLiteral("24690");
        rows.append(r);
    }
    const WorkItemTable full(rows);
    WorkItemRow last;
    last[WiSection] = QStringLiteral("リヤ");
    last[WiPart] = QStringLiteral("リヤバンパーカバー");
    last[WiLabour] = QStringLiteral("5000");
    last[WiPartsTotal] = QStringLiteral("30000");
    for (auto _ : state) {
        state.PauseTiming();
        WorkItemTable table = full;
        state.ResumeTiming();
        if (table.append(last) != WorkItemTable::Change::Done || table.totals().labour != 393 * 7500 + 5000)
            state.SkipWithError("the 394th row was not added");
        benchmark::DoNotOptimize(table.totals());
    }
}
BENCHMARK(BM_Add394thRow)->Unit(benchmark::kMicrosecond);

} // namespace

int main(int argc, char **argv)
{
    // The catalogue is built before anything is timed.
    return est::bench::runBenchmarks(argc, argv, est::bench::App::Core, {.prepare = [] {
                                         catalogue();
                                         return true;
                                     }});
}
