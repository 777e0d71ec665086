// Start-up to the start dialog, and the estimate sheet with a full estimate of 394 rows:
// rebuilding the grid and recomputing the chain of totals. Peak resident memory of the whole
// benchmark process is reported as the counter "peak_rss_MB". Start-up /1 runs against a
// local server (every connection made afresh, as a new process would; goal under 300 ms),
// /0 on the application folder's files.
//
//   build/bench/sheet_bench

#include "bench_main.h"
#include "bench_server.h"
#include "db/server_database.h"
#include "app/app_controller.h"
#include "app/dlg_hajime.h"
#include "common/quiet_messages.h"
#include "common/session.h"
#include "sheet/frm_mitumori.h"
#include "sheet/totals_chain.h"
#include "uikit/message_box_messages.h"

#include <QApplication>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

namespace {

double peakRssMb()
{
    return double(est::bench::peakKb()) / 1024.0;
}

void fillEstimate(est::Session &s)
{
    s.company[11] = QStringLiteral("10");
    for (int i = 0; i < est::kMaxEstimateRows; ++i) {
        est::EstimateRow row;
        row[est::ColNo] = QString::number(i + 1);
        row[est::ColSection] = QStringLiteral("フロント廻り");
        row[est::ColPart] = QStringLiteral("フロントバンパーフェイス");
        row[est::ColPartNumber] = QStringLiteral("52119-12A%1").arg(i, 3, 10, QLatin1Char('0'));
        row[est::ColWork] = QStringLiteral("取替");
        row[est::ColIndex] = QStringLiteral("1.50");
        row[est::ColLabour] = QStringLiteral("7,500");
        row[est::ColUnitPrice] = QStringLiteral("12,300");
        row[est::ColQuantity] = QStringLiteral("1");
        row[est::ColPartsAmount] = QStringLiteral("12,300");
        s.rows.append(row);
    }
    s.totals.workTotalA = 394 * (7500 + 12300);
    s.totals.paintTotalB = 250000;
    s.figures.discountRate = QStringLiteral("5");
    s.figures.advance = QStringLiteral("100,000");
}

void BM_StartupToStartDialog(benchmark::State &state)
{
    QTemporaryDir folder;
    const bool onServer = state.range(0) == 1;
    if (onServer) {
        const QString connection = est::bench::serverCopyOf(folder.path());
        if (connection.isEmpty()) {
            state.SkipWithError("no local server");
            return;
        }
        qputenv("ESTIMATE_DB", connection.toUtf8());
    }
    for (auto _ : state) {
        est::db::closeServerConnections();
        est::Session session;
        est::QuietMessages messages;
        est::SystemClock clock;
        est::app::AppController controller(session, messages, clock, folder.path());
        controller.start(0);
        QApplication::processEvents();
        benchmark::DoNotOptimize(controller.context().start->isVisible());
    }
    qunsetenv("ESTIMATE_DB");
    est::db::closeServerConnections();
    state.counters["peak_rss_MB"] = peakRssMb();
}
BENCHMARK(BM_StartupToStartDialog)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond)->UseRealTime();

void BM_RecomputeTotals394Rows(benchmark::State &state)
{
    est::Session session;
    fillEstimate(session);
    est::QuietMessages messages;
    est::sheet::FrmMitumori sheet(session, messages);
    sheet.refresh();
    est::Yen extra = 0;
    for (auto _ : state) {
        // A new A every time, so the whole chain really runs.
        session.totals.workTotalA = 394 * (7500 + 12300) + (++extra % 1000);
        sheet.refreshTotals();
    }
    state.counters["peak_rss_MB"] = peakRssMb();
}
BENCHMARK(BM_RecomputeTotals394Rows)->Unit(benchmark::kMicrosecond);

void BM_RebuildGrid394Rows(benchmark::State &state)
{
    est::Session session;
    fillEstimate(session);
    est::QuietMessages messages;
    est::sheet::FrmMitumori sheet(session, messages);
    for (auto _ : state)
        sheet.refreshRows();
    state.counters["peak_rss_MB"] = peakRssMb();
}
BENCHMARK(BM_RebuildGrid394Rows)->Unit(benchmark::kMicrosecond);

void BM_TotalsChainOnly(benchmark::State &state)
{
    est::Session session;
    fillEstimate(session);
    est::sheet::TotalsChain chain(session.figures, session.totals);
    chain.setTaxRate(QStringLiteral("10"));
    est::Yen extra = 0;
    for (auto _ : state) {
        session.totals.workTotalA = 394 * (7500 + 12300) + (++extra % 1000);
        chain.sumsChanged();
    }
}
BENCHMARK(BM_TotalsChainOnly)->Unit(benchmark::kMicrosecond);

} // namespace

int main(int argc, char **argv)
{
    return est::bench::runBenchmarks(argc, argv, est::bench::App::Widgets);
}
