// Opening the worst workbook of each hostile shape the reader must survive: the time to open
// (or refuse) it, and the process's peak resident memory while opening it ("peak_MB", the
// whole process; the peak is reset after the file is made, through /proc/self/clear_refs).
//   build/bench/workbook/hostile_bench
// Target: every shape under 2 s and 150 MB.

#include "bench_main.h"
#include "hostile_workbooks.h"
#include "workbook/estimate_layout.h"
#include "workbook/photo_sheet.h"

#include <QFile>

#include <benchmark/benchmark.h>

using namespace est;

namespace {

// The process's peak resident set since the last reset (VmHWM), in kB.
long peakKb()
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray &line : status.readAll().split('\n'))
        if (line.startsWith("VmHWM:"))
            return line.mid(6).trimmed().split(' ').first().toLong();
    return 0;
}

void resetPeak()
{
    QFile refs(QStringLiteral("/proc/self/clear_refs"));
    if (refs.open(QIODevice::WriteOnly))
        refs.write("5");
}

void open(benchmark::State &state, const QByteArray &bytes, bool photos = false)
{
    int refused = 0;
    resetPeak();
    for (auto _ : state) {
        try {
            auto book = workbook::Workbook::fromBytes(bytes);
            Session s;
            workbook::readEstimate(*book, s);
            if (photos)
                s.photos = workbook::readPhotos(*book);
        } catch (const workbook::WorkbookError &) {
            ++refused;
        }
    }
    state.counters["refused"] = refused > 0 ? 1 : 0;
    state.counters["file_KB"] = double(bytes.size()) / 1024.0;
    state.counters["peak_MB"] = double(peakKb()) / 1024.0;
}

void BM_FullEstimate(benchmark::State &state) { open(state, test::fullEstimateWorkbook()); }
void BM_LongSharedString(benchmark::State &state) { open(state, test::longSharedStringWorkbook(8 * 1024 * 1024 - 256)); }
void BM_EndRecords(benchmark::State &state) { open(state, test::manyEndRecordsWorkbook(80000)); }
void BM_SheetsOnOnePart(benchmark::State &state) { open(state, test::sheetsOnOnePartWorkbook(5000)); }
void BM_PartsJustUnderTheLimit(benchmark::State &state) { open(state, test::partsJustUnderTheLimitWorkbook()); }
void BM_DenseSheet(benchmark::State &state) { open(state, test::denseSheetWorkbook()); }
void BM_PhotosAtTheLimits(benchmark::State &state) { open(state, test::photoSheetAtTheLimitsWorkbook(), true); }

BENCHMARK(BM_FullEstimate)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_LongSharedString)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_EndRecords)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_SheetsOnOnePart)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_PartsJustUnderTheLimit)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_DenseSheet)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_PhotosAtTheLimits)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char **argv)
{
    return est::bench::runBenchmarks(argc, argv, est::bench::App::Core);
}
