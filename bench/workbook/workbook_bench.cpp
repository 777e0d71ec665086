// Saving and reopening a full estimate: 394 rows, 73 paint rows, 99 non-taxable items and
// every header, bumper and additional field, through the same calls the program makes
// (open the template file, write sheets "D" and "P", fit the print sheets, save atomically;
// open, read back). BM_ZipFloor is what any save costs at the least: the parts of that saved
// workbook, ready in memory, zipped at the save's level and written the same way. A save of
// another estimate right after (one row more or less) fits the print sheets anew.
// The counter "peak_MB" is the process's peak resident memory above what it used before the
// first workbook was touched. Target: save under 10 ms and within 1.2 x the floor, open under
// 20 ms, under 50 MB.
//   build/bench/workbook/workbook_bench --benchmark_repetitions=5 --benchmark_report_aggregates_only=true

#include "bench_main.h"
#include "package_builder.h"
#include "sample_estimate.h"
#include "workbook/atomic_file.h"
#include "workbook/default_template.h"
#include "workbook/estimate_files.h"
#include "workbook/estimate_layout.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

using namespace est;
using namespace est::workbook;

namespace {

long g_baseKb = 0;

struct Files
{
    QTemporaryDir dir;
    QString templ = dir.filePath(QStringLiteral("newfile.xlsx"));
    QString target = dir.filePath(QStringLiteral("240105full.xlsx"));
    Session estimate = test::fullEstimate(42);
    test::Parts savedParts;
    Files()
    {
        writeDefaultTemplate(templ);
        writeEstimateWorkbook(templ, estimate, target);
        QFile saved(target);
        saved.open(QIODevice::ReadOnly);
        savedParts = test::unzipParts(saved.readAll());
    }
};

Files &files()
{
    static Files f;
    return f;
}

void report(benchmark::State &state)
{
    state.counters["peak_MB"] = double(bench::peakKb() - g_baseKb) / 1024.0;
}

void BM_SaveFullEstimate(benchmark::State &state)
{
    Files &f = files();
    for (auto _ : state)
        writeEstimateWorkbook(f.templ, f.estimate, f.target);
    report(state);
}
BENCHMARK(BM_SaveFullEstimate)->Unit(benchmark::kMillisecond);

void BM_ZipFloor(benchmark::State &state)
{
    Files &f = files();
    for (auto _ : state)
        replaceFileAtomically(f.target, test::zipParts(f.savedParts, test::Compression::DeflateAsSaved));
    report(state);
}
BENCHMARK(BM_ZipFloor)->Unit(benchmark::kMillisecond);

void BM_OpenFullEstimate(benchmark::State &state)
{
    Files &f = files();
    for (auto _ : state) {
        Session s;
        auto book = Workbook::open(f.target);
        readEstimate(*book, s);
        benchmark::DoNotOptimize(s.rows.size());
    }
    report(state);
}
BENCHMARK(BM_OpenFullEstimate)->Unit(benchmark::kMillisecond);

void BM_SaveWithOneRowMoreOrLess(benchmark::State &state)
{
    Files &f = files();
    Session shorter = f.estimate;
    shorter.rows.removeLast();
    bool flip = false;
    for (auto _ : state)
        writeEstimateWorkbook(f.templ, (flip = !flip) ? shorter : f.estimate, f.target);
    report(state);
}
BENCHMARK(BM_SaveWithOneRowMoreOrLess)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char **argv)
{
    return bench::runBenchmarks(argc, argv, bench::App::Core, {.prepare = [] {
                                    g_baseKb = bench::peakKb();
                                    return true;
                                }});
}
