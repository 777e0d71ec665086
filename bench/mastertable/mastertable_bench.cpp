// Master tables at a size a shop could bring from a spreadsheet: a basic-index table of
// 20,000 rows (3 keys and 10 indices each) in a temporary SQLite file. Measures exporting it to
// CSV, importing that CSV back (decode, parse, check every cell, the key and the references,
// replace the table in one transaction), decoding a CP932 file of the same size, and loading
// the held-edit model and saving one changed cell.

#include "bench_main.h"
#include "mastertable/csv_transfer.h"
#include "mastertable/table_edit_model.h"

#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>
#include <unicode/ucnv.h>
#include <cstdio>

using namespace est::mastertable;

namespace {

constexpr int kRows = 20000;

TableSpec benchTable()
{
    QList<ColumnSpec> columns{ColumnSpec::text(QStringLiteral("Syaryo"), QStringLiteral("車種")).mustHave(),
                              ColumnSpec::text(QStringLiteral("Iro"), QStringLiteral("色種")).mustHave(),
                              ColumnSpec::text(QStringLiteral("Toryo"), QStringLiteral("塗料")).mustHave()};
    for (int n = 1; n <= 10; ++n)
        columns << ColumnSpec::index(QStringLiteral("M%1").arg(n), QStringLiteral("%1枚").arg(n));
    return {QStringLiteral("KihonSisuDB"), QStringLiteral("基礎指数"), columns, {0, 1, 2}};
}

QSqlDatabase *database = nullptr;

bool fill(QSqlDatabase db)
{
    QSqlQuery q(db);
    QStringList fields;
    for (int n = 1; n <= 10; ++n)
        fields << QStringLiteral("M%1 NUMERIC").arg(n);
    if (!q.exec(QStringLiteral("CREATE TABLE KihonSisuDB (Syaryo TEXT, Iro TEXT, Toryo TEXT, %1)").arg(fields.join(','))))
        return false;
    db.transaction();
    q.prepare(QStringLiteral("INSERT INTO KihonSisuDB VALUES (?,?,?,?,?,?,?,?,?,?,?,?,?)"));
    for (int r = 0; r < kRows; ++r) {
        q.bindValue(0, QStringLiteral("車種%1").arg(r % 100));
        q.bindValue(1, QStringLiteral("色%1").arg(r / 100 % 20));
        q.bindValue(2, QStringLiteral("塗料%1").arg(r / 2000));
        for (int n = 1; n <= 10; ++n)
            q.bindValue(2 + n, QStringLiteral("%1.%2").arg(n * 2).arg(r % 100, 2, 10, QLatin1Char('0')));
        if (!q.exec())
            return false;
    }
    return db.commit();
}

QByteArray toCp932(const QByteArray &utf8)
{
    UErrorCode status = U_ZERO_ERROR;
    QByteArray out(utf8.size() * 2 + 16, '\0');
    const int32_t n = ucnv_convert("windows-31j", "UTF-8", out.data(), int32_t(out.size()), utf8.constData(),
                                   int32_t(utf8.size()), &status);
    out.resize(U_SUCCESS(status) ? n : 0);
    return out;
}

void BM_ExportCsv(benchmark::State &state)
{
    const TableStore store(*database, benchTable());
    for (auto _ : state) {
        QString error;
        benchmark::DoNotOptimize(exportCsv(store, &error));
    }
}
BENCHMARK(BM_ExportCsv)->Unit(benchmark::kMillisecond);

void BM_ImportCsv(benchmark::State &state)
{
    const TableStore store(*database, benchTable());
    QString error;
    const QByteArray bytes = exportCsv(store, &error);
    for (auto _ : state) {
        const ImportReport report = importCsv(store, bytes, CsvEncoding::Auto);
        if (!report.applied)
            state.SkipWithError("import refused");
    }
}
BENCHMARK(BM_ImportCsv)->Unit(benchmark::kMillisecond);

void BM_DecodeCp932(benchmark::State &state)
{
    QString error;
    const QByteArray bytes = toCp932(exportCsv(TableStore(*database, benchTable()), &error).mid(3));
    for (auto _ : state)
        benchmark::DoNotOptimize(decodeCsv(bytes, CsvEncoding::Auto));
    state.SetBytesProcessed(state.iterations() * bytes.size());
}
BENCHMARK(BM_DecodeCp932)->Unit(benchmark::kMillisecond);

void BM_LoadEditSave(benchmark::State &state)
{
    int round = 0;
    for (auto _ : state) {
        TableEditModel model{TableStore(*database, benchTable())};
        model.setData(model.index(kRows / 2, 3), QStringLiteral("%1.00").arg(++round % 50));
        if (!model.save().saved)
            state.SkipWithError("save refused");
    }
}
BENCHMARK(BM_LoadEditSave)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char **argv)
{
    std::unique_ptr<QTemporaryDir> folder;
    est::bench::Hooks hooks;
    hooks.prepare = [&folder] {
        folder = std::make_unique<QTemporaryDir>();
        QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("bench"));
        db.setDatabaseName(folder->filePath(QStringLiteral("PartDB.sqlite")));
        if (!db.open() || !fill(db)) {
            std::fprintf(stderr, "cannot prepare the table\n");
            return false;
        }
        database = new QSqlDatabase(db);
        return true;
    };
    hooks.finish = [] {
        database->close();
        delete database;
        database = nullptr;
        QSqlDatabase::removeDatabase(QStringLiteral("bench"));
    };
    return est::bench::runBenchmarks(argc, argv, est::bench::App::Core, hooks);
}
