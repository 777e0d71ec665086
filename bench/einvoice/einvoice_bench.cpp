// A full estimate (394 work rows of which 132 with parts, 73 paint rows, material, bumper,
// two non-taxable items: 605 invoice lines) as an electronic invoice, as 電子インボイス保存
// and `estimate --invoice-xml` make it: the shop and the customer's address read from the
// application folder, the invoice built with the printed figures, the UBL written and the
// file replaced in one step. Also the same from the workbook on disk, and the XML alone.
// Goal: under 50 ms for the invoice to XML.
//   build/bench/einvoice/einvoice_bench --benchmark_repetitions=5 --benchmark_report_aggregates_only=true

#include "bench_main.h"
#include "einvoice/invoice_export.h"
#include "einvoice/invoice_model.h"
#include "einvoice/ubl_writer.h"
#include "print/saved_estimate.h"
#include "print_samples.h"

#include <QTemporaryDir>

#include <benchmark/benchmark.h>

using namespace est;

namespace {

struct Fixture
{
    Fixture()
    {
        test::installShop(app.path(), test::sampleShop());
        Session s = test::fullPrintEstimate();
        s.header.documentKind = 4;
        workbook = test::saveWorkbook(s, dir.path(), QStringLiteral("240105FULL.xlsx"));
        saved = *print::loadSavedEstimate(workbook, nullptr);
    }
    QTemporaryDir app;
    QTemporaryDir dir;
    QString workbook;
    print::SavedEstimate saved;
};

Fixture &fixture()
{
    static Fixture f;
    return f;
}

void BM_FullInvoiceToFile(benchmark::State &state)
{
    Fixture &f = fixture();
    const QString out = einvoice::invoicePathFor(f.workbook);
    for (auto _ : state) {
        const einvoice::InvoiceFile file = einvoice::makeInvoiceFile(f.saved, f.app.path());
        if (file.xml.isEmpty() || !einvoice::writeInvoiceFile(out, file.xml).isEmpty())
            state.SkipWithError("no invoice");
    }
}
BENCHMARK(BM_FullInvoiceToFile)->Unit(benchmark::kMillisecond);

void BM_FullWorkbookToInvoiceFile(benchmark::State &state)
{
    Fixture &f = fixture();
    const QString out = einvoice::invoicePathFor(f.workbook);
    for (auto _ : state) {
        const auto saved = print::loadSavedEstimate(f.workbook, nullptr);
        const einvoice::InvoiceFile file = einvoice::makeInvoiceFile(*saved, f.app.path());
        if (file.xml.isEmpty() || !einvoice::writeInvoiceFile(out, file.xml).isEmpty())
            state.SkipWithError("no invoice");
    }
}
BENCHMARK(BM_FullWorkbookToInvoiceFile)->Unit(benchmark::kMillisecond);

void BM_BuildAndWriteXmlOnly(benchmark::State &state)
{
    Fixture &f = fixture();
    const einvoice::BuildResult built = einvoice::buildInvoice(f.saved.session, QStringLiteral("240105FULL.xlsx"),
                                                               test::sampleShop(), {});
    if (!built.invoice) {
        state.SkipWithError("refused");
        return;
    }
    for (auto _ : state) {
        const einvoice::BuildResult again = einvoice::buildInvoice(f.saved.session, QStringLiteral("240105FULL.xlsx"),
                                                                   test::sampleShop(), {});
        benchmark::DoNotOptimize(einvoice::writeUbl(*again.invoice));
    }
}
BENCHMARK(BM_BuildAndWriteXmlOnly)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char **argv)
{
    return est::bench::runBenchmarks(argc, argv, est::bench::App::Core);
}
