// The estimate library and the yearly report on many saved estimates:
//   BM_BuildIndex    reading every workbook into a new index (target with 10,000: < 20 s)
//   BM_Search        one search by a fragment of a customer, car or registration (< 20 ms)
//   BM_YearlyReport  the sales workbook of a year with 2,000 invoices and delivery notes (< 2 s)
// The estimates are made by saving one estimate and patching its cells for each copy.
// The default run makes 1,000 (the machine is shared); --estimates=10000 gives the full size:
//   build/bench/reports/reports_bench --estimates=10000

#include "bench_main.h"
#include "reports/estimate_library.h"
#include "reports/library_refresh.h"
#include "reports/sales_job.h"
#include "sheet/era_date.h"
#include "workbook/estimate_files.h"
#include "workbook/workbook.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>
#include <random>

using namespace est;
using namespace est::reports;

namespace {

int g_estimates = 1000;

const QString kSurnames[] = {QStringLiteral("山田"), QStringLiteral("鈴木"), QStringLiteral("佐藤"),
                             QStringLiteral("田中"), QStringLiteral("高橋"), QStringLiteral("伊藤"),
                             QStringLiteral("渡辺"), QStringLiteral("中村"), QStringLiteral("小林"),
                             QStringLiteral("加藤")};
const QString kCars[] = {QStringLiteral("プリウス"), QStringLiteral("フィット"), QStringLiteral("セレナ"),
                         QStringLiteral("ハイエース"), QStringLiteral("N-BOX"), QStringLiteral("アクア")};

// Mitsumori with g_estimates workbooks, made once.
struct Estimates
{
    QTemporaryDir dir;
    QString folder() const { return dir.path(); }
    QString mitsumori() const { return workbook::estimatesFolder(dir.path()); }

    Estimates()
    {
        workbook::ensureTemplate(folder());
        QDir().mkpath(mitsumori());
        Session base;
        base.company[11] = QStringLiteral("10");
        base.header.chassisNumber = QStringLiteral("ZVW50-1234567");
        const QString first = QDir(mitsumori()).filePath(QStringLiteral("base.xlsx"));
        workbook::writeEstimateWorkbook(workbook::templatePath(folder()), base, first);
        auto book = workbook::Workbook::open(first);
        QFile::remove(first);
        workbook::Worksheet &d = *book->sheet(QStringLiteral("D"));
        std::mt19937 rng(1);
        auto pick = [&rng](int n) { return int(rng() % unsigned(n)); };
        for (int i = 0; i < g_estimates; ++i) {
            const QDate day = QDate(2020, 1, 1).addDays(pick(5 * 365));
            const QString slip = sheet::dayKey(day) + QStringLiteral("%1").arg(i % 1000, 3, 10, QLatin1Char('0'));
            d.setText(1, 1, slip);
            d.setText(1, 4, kSurnames[pick(10)] + QStringLiteral("　") + QStringLiteral("お客様%1").arg(i));
            d.setText(1, 6, kCars[pick(6)]);
            d.setText(1, 10, QStringLiteral("品川 %1 あ %2").arg(300 + pick(600)).arg(1000 + i));
            d.setInt32(1, 13, 10000 + pick(900000));
            d.setInt16(1, 15, std::int16_t(pick(7)));
            d.setInt32(2, 4, pick(300000));
            d.setText(2, 13, sheet::eraDate(day));
            QFile out(QDir(mitsumori()).filePath(sheet::dayKey(day) + QStringLiteral("見積%1.xlsx").arg(i)));
            out.open(QIODevice::WriteOnly);
            out.write(book->toBytes());
        }
    }
};

Estimates &estimates()
{
    static Estimates e;
    return e;
}

void BM_BuildIndex(benchmark::State &state)
{
    Estimates &e = estimates();
    for (auto _ : state) {
        state.PauseTiming();
        EstimateLibrary library(e.folder());
        QFile::remove(library.path());
        library.open();
        state.ResumeTiming();
        int steps = 0;
        const RefreshOutcome outcome = applyChanges(library, e.mitsumori(), findChanges(library, e.mitsumori()),
                                                    [&steps](int, int) { return ++steps > 0; });
        if (outcome.read != g_estimates || outcome.unreadable != 0)
            state.SkipWithError("not every estimate was read");
        state.counters["estimates"] = outcome.read;
    }
}
BENCHMARK(BM_BuildIndex)->Unit(benchmark::kMillisecond)->Iterations(1);

void BM_Search(benchmark::State &state)
{
    Estimates &e = estimates();
    EstimateLibrary library(e.folder());
    library.open();
    applyChanges(library, e.mitsumori(), findChanges(library, e.mitsumori()));
    const QString fragments[] = {QStringLiteral("山田"), QStringLiteral("ﾌﾟﾘｳｽ"), QStringLiteral("１２３"),
                                 QStringLiteral("お客様77"), QStringLiteral("あ1500"), QStringLiteral("見つからない")};
    size_t i = 0;
    qint64 found = 0;
    for (auto _ : state) {
        LibraryQuery q;
        q.text = fragments[i++ % std::size(fragments)];
        q.limit = 500;
        found += library.search(q).size();
    }
    benchmark::DoNotOptimize(found);
}
BENCHMARK(BM_Search)->Unit(benchmark::kMillisecond);

void BM_YearlyReport(benchmark::State &state)
{
    QTemporaryDir dir;
    EstimateLibrary library(dir.path());
    library.open();
    QSqlDatabase db = library.database();
    db.transaction();
    std::mt19937 rng(2);
    for (int i = 0; i < 2000; ++i) {
        EstimateSummary s;
        s.fileName = QStringLiteral("請求%1.xlsx").arg(i);
        s.slipNumber = QString::number(240000000 + i);
        s.day = QDate(2024, 1, 1).addDays(int(rng() % 366));
        s.documentKind = 3 + int(rng() % 4);
        s.customer = kSurnames[i % 10] + QStringLiteral("様");
        s.car = kCars[i % 6];
        s.totalA = Yen(rng() % 500000);
        s.totalB = Yen(rng() % 200000);
        s.tax = (s.totalA + s.totalB) / 10;
        s.grandTotal = s.totalA + s.totalB + s.tax;
        library.store(s, {});
    }
    db.commit();
    for (auto _ : state) {
        const SalesJobResult result = makeSalesWorkbook(library, dir.path(), {2024, 1});
        if (!result.error.isEmpty() || result.report.year.count != 2000)
            state.SkipWithError("the report was not written");
    }
}
BENCHMARK(BM_YearlyReport)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char **argv)
{
    std::vector<char *> rest;
    for (int i = 0; i < argc; ++i) {
        const QByteArray arg(argv[i]);
        if (arg.startsWith("--estimates="))
            g_estimates = std::max(1, arg.mid(12).toInt());
        else
            rest.push_back(argv[i]);
    }
    return est::bench::runBenchmarks(int(rest.size()), rest.data(), est::bench::App::Core);
}
