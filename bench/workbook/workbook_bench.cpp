// Saving and reopening a full estimate: 394 rows, 73 paint rows, 99 non-taxable items and
// every header, bumper and additional field, through the same calls the program makes
// (open the template file, write sheets "D" and "P", save atomically; open, read back).
// The counter "peak_MB" is the process's peak resident memory above what it used before
// the first workbook was touched. Target: each under 20 ms median, under 50 MB.
//   build/bench/workbook/workbook_bench --benchmark_repetitions=5 --benchmark_report_aggregates_only=true

#include "sample_estimate.h"
#include "workbook/default_template.h"
#include "workbook/estimate_files.h"
#include "workbook/estimate_layout.h"

#include <QCoreApplication>
#include <QDir>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>
#include <sys/resource.h>

using namespace est;
using namespace est::workbook;

namespace {

long g_baseKb = 0;

long peakKb()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
}

struct Files
{
    QTemporaryDir dir;
    QString templ = dir.filePath(QStringLiteral("newfile.xlsx"));
    QString target = dir.filePath(QStringLiteral("240105full.xlsx"));
    Session estimate = test::fullEstimate(42);
    Files()
    {
        writeDefaultTemplate(templ);
        auto book = Workbook::open(templ);
        writeEstimate(*book, estimate);
        book->save(target);
    }
};

Files &files()
{
    static Files f;
    return f;
}

void BM_SaveFullEstimate(benchmark::State &state)
{
    Files &f = files();
    for (auto _ : state)
        writeEstimateWorkbook(f.templ, f.estimate, f.target);
    state.counters["peak_MB"] = double(peakKb() - g_baseKb) / 1024.0;
}
BENCHMARK(BM_SaveFullEstimate)->Unit(benchmark::kMillisecond);

void BM_OpenFullEstimate(benchmark::State &state)
{
    Files &f = files();
    for (auto _ : state) {
        Session s;
        auto book = Workbook::open(f.target);
        readEstimate(*book, s);
        benchmark::DoNotOptimize(s.rows.size());
    }
    state.counters["peak_MB"] = double(peakKb() - g_baseKb) / 1024.0;
}
BENCHMARK(BM_OpenFullEstimate)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    g_baseKb = peakKb();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
