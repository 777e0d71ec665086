// The .xls reader: opening the full estimate (394 work rows, 73 paint rows) made by LibreOffice
// from our own .xlsx, converting 1,000 .xls estimates into .xlsx as frmExp does (the progress
// callback counted, as the bar moves with it), and opening the costliest workbooks the checks let
// through (a sheet declaring the whole cell budget; the most shared strings and cells that fit
// the size limit), with the process's peak memory.
// Targets: open < 20 ms, 1,000 conversions < 60 s, the worst declared size < 2 s and 150 MB.
//   build/bench/workbook/xls_bench --benchmark_repetitions=5 --benchmark_report_aggregates_only=true

#include "bench_main.h"
#include "reports/legacy_conversion.h"
#include "workbook/biff_rewrite.h"
#include "workbook/cfb_stream.h"
#include "workbook/estimate_layout.h"
#include "workbook/xls_book.h"
#include "xls_samples.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>
#include <unistd.h>

using namespace est;
using namespace est::workbook;

namespace {

QString sample(const char *name)
{
    return QDir(test::xlsSampleFolder()).filePath(QString::fromLatin1(name) + QStringLiteral(".xls"));
}

// The process's peak resident set since the last reset (VmHWM), in MB.
double peakMb()
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray &line : status.readAll().split('\n'))
        if (line.startsWith("VmHWM:"))
            return line.mid(6).trimmed().split(' ').first().toDouble() / 1024.0;
    return 0;
}

void resetPeak()
{
    QFile refs(QStringLiteral("/proc/self/clear_refs"));
    if (refs.open(QIODevice::WriteOnly))
        refs.write("5");
}

void BM_OpenFullXls(benchmark::State &state)
{
    const QString path = sample("full");
    for (auto _ : state) {
        Session s;
        auto book = openForReading(path);
        readEstimate(*book, s);
        benchmark::DoNotOptimize(s.rows.size());
    }
}
BENCHMARK(BM_OpenFullXls)->Unit(benchmark::kMillisecond);

void BM_Convert1000(benchmark::State &state)
{
    const int count = int(state.range(0));
    for (auto _ : state) {
        state.PauseTiming();
        QTemporaryDir app;
        QTemporaryDir old;
        // Hard links: a thousand estimates without a thousand copies on disk.
        for (int i = 0; i < count; ++i) {
            const QString target = QDir(old.path()).filePath(QStringLiteral("%1/%2.xls").arg(i / 100).arg(i));
            QDir().mkpath(QFileInfo(target).path());
            if (::link(QFile::encodeName(sample(i % 2 ? "full" : "kind3")).constData(),
                       QFile::encodeName(target).constData()) != 0)
                QFile::copy(sample(i % 2 ? "full" : "kind3"), target);
        }
        const QStringList files = reports::legacyEstimatesBelow(old.path());
        int calls = 0;
        state.ResumeTiming();
        const auto outcome = reports::convertLegacyEstimates(old.path(), files, reports::ConversionPlace::Beside,
                                                             app.path(), [&calls](int, int) { return ++calls > 0; });
        state.PauseTiming();
        state.counters["converted"] = outcome.converted;
        state.counters["failed"] = double(outcome.failures.size());
        state.counters["progress_calls"] = calls;
        state.ResumeTiming();
    }
}
BENCHMARK(BM_Convert1000)->Arg(1000)->Iterations(1)->Unit(benchmark::kSecond);

// Sheet "D" declared as large as the whole budget allows; the file is otherwise the sample's.
QByteArray budgetSizedSheet()
{
    QFile f(sample("empty"));
    f.open(QIODevice::ReadOnly);
    QByteArray stream = detail::workbookStream(f.readAll(), {});
    auto u16 = [&stream](qsizetype at) { return quint16(quint8(stream[at]) | quint8(stream[at + 1]) << 8); };
    QList<qsizetype> dimensions;
    qint64 others = 0;
    for (qsizetype pos = 0; pos + 4 <= stream.size(); pos += 4 + u16(pos + 2))
        if (u16(pos) == 0x0200)
            dimensions.append(pos + 4);
    for (qsizetype i = 0; i + 1 < dimensions.size(); ++i)
        others += qint64(u16(dimensions[i] + 4)) * u16(dimensions[i] + 10);
    // Sheets are in workbook order and "P" is the last one: "D" is the one before it.
    const qsizetype d = dimensions.at(dimensions.size() - 2);
    others -= qint64(u16(d + 4)) * u16(d + 10);
    others += qint64(u16(dimensions.last() + 4)) * u16(dimensions.last() + 10);
    const quint32 rows = quint32((XlsLimits{}.maxCells - others) / 256);
    for (int i = 0; i < 4; ++i)
        stream[d + 4 + i] = char(rows >> (8 * i) & 0xFF);
    stream[d + 10] = char(0);
    stream[d + 11] = char(1);   // 256 columns
    return detail::compoundFileWith(stream);
}

// A workbook made to cost the most within the limits: the most shared strings, split over
// CONTINUE records, with formatting runs, and sheets "D" and "P" declared at the cell budget,
// filled with number and boolean cells up to the file size limit.
QByteArray mostCostlyWorkbook()
{
    QByteArray stream;
    auto record = [&stream](quint16 type, const QByteArray &body) {
        stream.append(char(type & 0xFF)).append(char(type >> 8));
        stream.append(char(body.size() & 0xFF)).append(char(body.size() >> 8));
        stream.append(body);
    };
    auto le = [](quint64 v, int bytes) {
        QByteArray out;
        for (int i = 0; i < bytes; ++i)
            out.append(char(v >> (8 * i) & 0xFF));
        return out;
    };
    const QByteArray globalsBof = le(0x0600, 2) + le(5, 2) + le(0, 12);
    const QByteArray sheetBof = le(0x0600, 2) + le(0x10, 2) + le(0, 12);
    const int strings = int(XlsLimits{}.maxStrings);
    // Globals: BOF, code page, two sheets (offsets patched below), the string table.
    record(0x0809, globalsBof);
    record(0x0042, le(1200, 2));
    const qsizetype sheetD = stream.size() + 4;
    record(0x0085, le(0, 4) + le(0, 2) + le(1, 1) + le(0, 1) + QByteArray("D"));
    const qsizetype sheetP = stream.size() + 4;
    record(0x0085, le(0, 4) + le(0, 2) + le(1, 1) + le(0, 1) + QByteArray("P"));
    QByteArray body = le(strings, 4) + le(strings, 4);
    quint16 type = 0x00FC;
    for (int i = 0; i < strings; ++i) {
        // One character with one formatting run: as many strings as the size limit lets in.
        QByteArray piece = le(1, 2) + le(0x08, 1) + le(1, 2) + QByteArray(1, 'x') + le(0, 4);
        if (body.size() + piece.size() > 8224) {
            record(type, body);
            type = 0x003C;
            body.clear();
        }
        body.append(piece);
    }
    record(type, body);
    record(0x000A, {});
    const quint32 rows = quint32(XlsLimits{}.maxCells / 2 / 256);
    auto sheet = [&](qsizetype patch, int cells) {
        const quint32 at = quint32(stream.size());
        for (int i = 0; i < 4; ++i)
            stream[patch + i] = char(at >> (8 * i) & 0xFF);
        record(0x0809, sheetBof);
        record(0x0200, le(0, 4) + le(rows, 4) + le(0, 2) + le(256, 2) + le(0, 2));
        for (int i = 0; i < cells; ++i) {
            // Below the rows an estimate reads its counts from, so that it opens as one.
            const quint32 row = 20 + quint32(i / 256) % (rows - 20), column = quint32(i % 256);
            if (i % 2)
                record(0x0205, le(row, 2) + le(column, 2) + le(15, 2) + le(1, 1) + le(0, 1));
            else
                record(0x00FD, le(row, 2) + le(column, 2) + le(15, 2) + le(quint32(i) % strings, 4));
        }
        record(0x000A, {});
    };
    const int room = int((XlsLimits{}.maxFileBytes - stream.size()) * 9 / 10 / 2 / 14);
    sheet(sheetD, room);
    sheet(sheetP, room);
    return detail::compoundFileWith(stream);
}

void openHostile(benchmark::State &state, const QByteArray &bytes)
{
    int refused = 0;
    resetPeak();
    for (auto _ : state) {
        try {
            auto book = XlsBook::fromBytes(bytes);
            Session s;
            readEstimate(*book, s);
        } catch (const WorkbookError &) {
            ++refused;
        }
    }
    state.counters["refused"] = refused > 0 ? 1 : 0;
    state.counters["file_KB"] = double(bytes.size()) / 1024.0;
    state.counters["peak_MB"] = peakMb();
}

void BM_WorstDeclaredSize(benchmark::State &state) { openHostile(state, budgetSizedSheet()); }
BENCHMARK(BM_WorstDeclaredSize)->Unit(benchmark::kMillisecond);
void BM_MostCostlyWorkbook(benchmark::State &state) { openHostile(state, mostCostlyWorkbook()); }
BENCHMARK(BM_MostCostlyWorkbook)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char **argv)
{
    return est::bench::runBenchmarks(argc, argv, est::bench::App::Core);
}
