// Speed of the paint screen: opening frmPaint on the sample paint tables with a full paint
// grid of 73 lines (goal under 100 ms; the paint database is opened, the categories, materials
// and lines are filled), and adding the 73rd line to the paint calculation with every sum,
// the material cost and paint total B recomputed (goal under 2 ms).
//
//   build/bench/paint/paint_bench

#include "bench_main.h"
#include "common/quiet_messages.h"
#include "paint/frm_paint.h"

#include <QTemporaryDir>
#include <benchmark/benchmark.h>

using namespace est;
using namespace est::paint;

namespace {

PaintLine sampleLine(int i)
{
    const LineKind kinds[] = {LineKind::Basic, LineKind::TwoCoatSolid, LineKind::LowHiding, LineKind::HighFunction};
    return {kinds[i % 4], QStringLiteral("フロント"), QStringLiteral("フロントフェンダー(右) %1").arg(i),
            QString(), QStringLiteral("2枚"), QStringLiteral("9.16"), 64212, i % 2 == 0, 30180};
}

Session paintedEstimate(int lines)
{
    Session s;
    s.vehicle[14] = QStringLiteral("ﾒﾀﾘｯｸ");
    s.vehicle[15] = QStringLiteral("ﾌｯｿｺｰﾄ");
    s.paint.vehicleClass = QStringLiteral("普通");
    s.paintLabourRate = 7010;
    PaintCalculation calc;
    for (int i = 0; i < lines; ++i)
        calc.add(sampleLine(i));
    storePaint(calc, PaintOutcome{QStringLiteral("普通"), QStringLiteral("0.47"), QStringLiteral("0.45"),
                                  QStringLiteral("0.12"), 7010, {}},
               s);
    return s;
}

void BM_OpenFrmPaint(benchmark::State &state)
{
    QTemporaryDir folder;
    est::QuietMessages messages;
    Session session = paintedEstimate(kMaxPaintLines);
    QString error;
    PaintMasters::open(folder.path(), &error); // the sample database is made once, as on a first start
    for (auto _ : state) {
        auto masters = PaintMasters::open(folder.path(), &error);
        FrmPaint screen(session, messages, masters.get());
        if (screen.editor().calculation().count() != kMaxPaintLines)
            state.SkipWithError("lines missing");
        benchmark::DoNotOptimize(screen.editor().calculation().totals());
    }
}
BENCHMARK(BM_OpenFrmPaint)->Unit(benchmark::kMillisecond);

void BM_Add73rdLine(benchmark::State &state)
{
    PaintCalculation full;
    full.setRate(7010);
    full.setCoefficient(QStringLiteral("0.47"));
    full.setBumperLabour(12000);
    full.setAdditionalTotal(5000);
    for (int i = 0; i < kMaxPaintLines - 1; ++i)
        full.add(sampleLine(i));
    const PaintLine last = sampleLine(kMaxPaintLines - 1);
    for (auto _ : state) {
        PaintCalculation calc = full;
        if (calc.add(last) != PaintCalculation::Change::Done)
            state.SkipWithError("refused");
        benchmark::DoNotOptimize(calc.totals().totalB);
        benchmark::DoNotOptimize(calc.runningLabour(kMaxPaintLines - 1));
    }
}
BENCHMARK(BM_Add73rdLine)->Unit(benchmark::kMicrosecond);

} // namespace

int main(int argc, char **argv)
{
    return est::bench::runBenchmarks(argc, argv, est::bench::App::Widgets);
}
