// A full estimate (394 work rows, 73 paint rows, the sub sheet) to PDF, as "PDF保存" and
// `estimate --pdf` do it: read the saved workbook, build the printed document, render
// layout A or B with the paint and sub sheets into a PDF file. Also the rendering alone, and
// `estimate --pdf` as a whole process (start-up, fonts, reading, rendering, the file synced;
// goal under 150 ms, timed as wall-clock time).
//   build/bench/print/print_bench --benchmark_repetitions=5 --benchmark_report_aggregates_only=true

#include "bench_main.h"
#include "print/print_document.h"
#include "print/print_set.h"
#include "print/saved_estimate.h"
#include "print_samples.h"
#include "temp_app_folder.h"

#include <QTemporaryDir>

#include <benchmark/benchmark.h>

using namespace est;
using namespace est::print;

namespace {

struct Fixture
{
    QTemporaryDir dir;
    QString workbook = test::saveWorkbook(test::fullPrintEstimate(), dir.path(), QStringLiteral("240105FULL.xlsx"));
    ShopInfo shop = test::sampleShop();
};

Fixture &fixture()
{
    static Fixture f;
    return f;
}

void BM_WorkbookToPdf(benchmark::State &state)
{
    Fixture &f = fixture();
    const PrintOptions options{state.range(0) == 0 ? Layout::A : Layout::B, false, true, true};
    const QString out = f.dir.filePath(QStringLiteral("full.pdf"));
    for (auto _ : state) {
        const auto saved = loadSavedEstimate(f.workbook, nullptr);
        const PrintDocument doc = buildPrintDocument(saved->session, saved->honorific, f.shop);
        if (!writePdf(doc, options, out).isEmpty())
            state.SkipWithError("PDF not written");
    }
}
BENCHMARK(BM_WorkbookToPdf)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

void BM_RenderOnly(benchmark::State &state)
{
    Fixture &f = fixture();
    const auto saved = loadSavedEstimate(f.workbook, nullptr);
    const PrintDocument doc = buildPrintDocument(saved->session, saved->honorific, f.shop);
    const QString out = f.dir.filePath(QStringLiteral("render.pdf"));
    for (auto _ : state)
        writePdf(doc, PrintOptions{Layout::A, false, true, true}, out);
}
BENCHMARK(BM_RenderOnly)->Unit(benchmark::kMillisecond);

void BM_PdfProcess(benchmark::State &state)
{
    Fixture &f = fixture();
    test::TempAppFolder app;
    const QString out = f.dir.filePath(QStringLiteral("process.pdf"));
    const QStringList args{QStringLiteral("--pdf"), f.workbook, out, QStringLiteral("--paint"), QStringLiteral("--sub")};
    for (auto _ : state)
        if (test::runProgram(QStringLiteral(ESTIMATE_PROGRAM), args, app.path()) != 0)
            state.SkipWithError("--pdf failed");
}
BENCHMARK(BM_PdfProcess)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(20);

} // namespace

int main(int argc, char **argv)
{
    return est::bench::runBenchmarks(argc, argv, est::bench::App::Gui);
}
