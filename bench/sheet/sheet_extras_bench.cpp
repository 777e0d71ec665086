// What the date dialog and start-up cost: the era date through ICU (a calendar and a
// formatter are made for every call), confirming a slip in the ledger (a proposal and one
// committed statement; /0 in the SQLite file, /1 on the benchmark's own PostgreSQL server
// over its Unix socket; goal under 5 ms), and reading the company file.

#include "bench_main.h"
#include "sheet/company_block.h"
#include "sheet/era_date.h"
#include "sheet/slip_ledger.h"
#include "sheet/slip_numbering.h"
#include "storage_backend.h"

#include <QTemporaryDir>
#include <benchmark/benchmark.h>

namespace {

void BM_EraDate(benchmark::State &state)
{
    QDate day(2019, 4, 30);
    for (auto _ : state) {
        benchmark::DoNotOptimize(est::sheet::eraDate(day));
        day = day.addDays(1);
    }
}
BENCHMARK(BM_EraDate);

void BM_ConfirmSlip(benchmark::State &state)
{
    const est::test::BackendScope backend(state.range(0) == 0 ? est::test::Backend::Sqlite : est::test::Backend::Server);
    QTemporaryDir folder;
    const est::db::OpenResult opened = est::sheet::openSlipLedgerDatabase(folder.path());
    if (!opened.ok()) {
        state.SkipWithError(opened.error.toStdString().c_str());
        return;
    }
    est::sheet::SlipLedger ledger(opened.database);
    QDate day(2024, 1, 5);
    int n = 0;
    for (auto _ : state) {
        if (++n % 30000 == 0)
            day = day.addDays(1); // stay within a day's 16-bit counter
        const est::sheet::SlipProposal p = est::sheet::proposeSlip(*ledger.state(day), day);
        benchmark::DoNotOptimize(est::sheet::issueProposal(ledger, p, day));
    }
}
BENCHMARK(BM_ConfirmSlip)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond)->UseRealTime();

void BM_ParseCompanyFile(benchmark::State &state)
{
    QStringList block;
    for (int i = 0; i < est::sheet::kCompanyItems; ++i)
        block << QStringLiteral("有限会社 みどり台オートボディ %1").arg(i);
    const QByteArray bytes = est::sheet::companyFileBytes(block);
    for (auto _ : state)
        benchmark::DoNotOptimize(est::sheet::parseCompanyFile(bytes));
}
BENCHMARK(BM_ParseCompanyFile);

} // namespace

int main(int argc, char **argv)
{
    return est::bench::runBenchmarks(argc, argv, est::bench::App::Core);
}
