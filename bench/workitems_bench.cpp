// Speed of the parts catalogue lists on a catalogue of 200,000 parts (classifications,
// sections of one classification, parts of one section; each should stay under 5 ms) and of
// adding the 394th row to the work item editor's rows with the totals recomputed (under 2 ms).
// The catalogue is generated into a temporary SQLite file when the benchmark starts.

#include "bench_main.h"
#include "common/estimate_row.h"
#include "workitems/catalogue.h"
#include "workitems/work_item_table.h"

#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>
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

BigCatalogue &catalogue()
{
    static BigCatalogue big;
    return big;
}

void BM_Classifications(benchmark::State &state)
{
    CatalogueTable &t = *catalogue().table;
    for (auto _ : state) {
        auto list = t.classifications();
        if (list.size() != kClassifications)
            state.SkipWithError("wrong classification count");
        benchmark::DoNotOptimize(list);
    }
}
BENCHMARK(BM_Classifications)->Unit(benchmark::kMicrosecond);

void BM_Sections(benchmark::State &state)
{
    CatalogueTable &t = *catalogue().table;
    for (auto _ : state) {
        auto list = t.sections(std::int16_t(kClassifications / 2));
        if (list.size() != kSectionsPerClassification)
            state.SkipWithError("wrong section count");
        benchmark::DoNotOptimize(list);
    }
}
BENCHMARK(BM_Sections)->Unit(benchmark::kMicrosecond);

void BM_Parts(benchmark::State &state)
{
    CatalogueTable &t = *catalogue().table;
    for (auto _ : state) {
        auto list = t.parts(std::int16_t(kClassifications / 2), std::int16_t(kSectionsPerClassification / 2));
        if (list.size() != kPartsPerSection)
            state.SkipWithError("wrong part count");
        benchmark::DoNotOptimize(list);
    }
}
BENCHMARK(BM_Parts)->Unit(benchmark::kMicrosecond);

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
