// The comparison of two full estimates (394 work rows, 73 paint lines; target under 20 ms),
// and `estimate --compare OLD NEW OUT.pdf` as a whole process (target under 200 ms).

#include "bench_main.h"
#include "compare/comparison_report.h"
#include "compare/estimate_comparison.h"
#include "print_samples.h"
#include "temp_app_folder.h"

#include <QTemporaryDir>
#include <benchmark/benchmark.h>

using namespace est;

namespace {

// The full estimate revised: every tenth row's quantity changed, every 25th removed, rows
// added at the end, a paint line changed, the discount and advance changed.
Session revised(const Session &before)
{
    Session after = before;
    for (qsizetype i = 0; i < after.rows.size(); i += 10)
        after.rows[i][ColQuantity] = QStringLiteral("2");
    for (qsizetype i = after.rows.size() - 1; i >= 0; i -= 25)
        after.rows.removeAt(i);
    for (int i = 0; i < 20; ++i)
        after.rows.append(test::estimateRow({QString::number(400 + i), QStringLiteral("後部"), QStringLiteral("追加部品%1").arg(i),
                                             QString(), QStringLiteral("取替"), QStringLiteral("0.50"), QStringLiteral("3,500"),
                                             QStringLiteral("12,000"), QStringLiteral("1"), QStringLiteral("12,000")}));
    if (!after.paint.rows.isEmpty())
        after.paint.rows[0][ColQuantity] = QStringLiteral("3");
    after.figures.discountRate = QStringLiteral("3");
    after.figures.advance = QStringLiteral("50,000");
    return after;
}

void BM_CompareFullEstimates(benchmark::State &state)
{
    const Session before = test::fullPrintEstimate();
    const Session after = revised(before);
    int changes = 0;
    for (auto _ : state) {
        const compare::EstimateComparison c = compare::compareEstimates(before, after);
        changes = int(c.workRows.size());
        benchmark::DoNotOptimize(changes);
    }
    state.counters["changedRows"] = changes;
}
BENCHMARK(BM_CompareFullEstimates)->Unit(benchmark::kMillisecond);

void BM_ComparisonPdfProcess(benchmark::State &state)
{
    QTemporaryDir dir;
    test::TempAppFolder app;
    const Session before = test::fullPrintEstimate();
    const QString old = test::saveWorkbook(before, dir.path(), QStringLiteral("240112B.xlsx"));
    const QString now = test::saveWorkbook(revised(before), dir.path(), QStringLiteral("240112B_R2.xlsx"));
    const QString pdf = dir.filePath(QStringLiteral("diff.pdf"));
    for (auto _ : state)
        if (test::runProgram(QStringLiteral(ESTIMATE_PROGRAM), {QStringLiteral("--compare"), old, now, pdf}, app.path()) != 0)
            state.SkipWithError("--compare failed");
}
BENCHMARK(BM_ComparisonPdfProcess)->Unit(benchmark::kMillisecond)->Iterations(10);

} // namespace

int main(int argc, char **argv)
{
    return est::bench::runBenchmarks(argc, argv, est::bench::App::Gui);
}
