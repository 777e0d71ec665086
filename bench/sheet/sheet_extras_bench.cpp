// What the date dialog and start-up cost: the era date through ICU (a calendar and a
// formatter are made for every call), a whole slip proposal, and reading the company file.

#include "bench_main.h"
#include "sheet/company_block.h"
#include "sheet/era_date.h"
#include "sheet/slip_numbering.h"

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

void BM_ProposeSlip(benchmark::State &state)
{
    const QDate day(2024, 1, 5);
    for (auto _ : state)
        benchmark::DoNotOptimize(est::sheet::proposeSlip(QStringLiteral("017"), QStringLiteral("240105"), day));
}
BENCHMARK(BM_ProposeSlip);

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
