// libFuzzer target for CSV files brought into a master table (clang, -DESTIMATE_BUILD_FUZZ=ON).
// The first byte chooses the encoding the user picked; the rest is the file. The whole import
// runs against an in-memory table with a key and a numeric column, so decoding, splitting,
// the cell checks and the key check all see hostile input.
//   build-fuzz/fuzz/csv_fuzz -max_total_time=60 corpus/   (tools/fuzz runs it)

#include "mastertable/csv_transfer.h"

#include <QCoreApplication>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <cstddef>
#include <cstdint>
#include <cstdlib>

using namespace est::mastertable;

namespace {

TableStore &store()
{
    static int argc = 1;
    static char name[] = "csv_fuzz";
    static char *argv[] = {name, nullptr};
    static QCoreApplication app(argc, argv);
    static QSqlDatabase db = [] {
        QSqlDatabase d = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("fuzz"));
        d.setDatabaseName(QStringLiteral(":memory:"));
        d.open();
        QSqlQuery(d).exec(QStringLiteral("CREATE TABLE T (Mai TEXT, Memo TEXT, Sisu REAL, Kazu INTEGER)"));
        return d;
    }();
    static TableStore s(db, TableSpec{QStringLiteral("T"), QStringLiteral("試験"),
                                      {ColumnSpec::text(QStringLiteral("Mai"), QStringLiteral("ドア数")).mustHave(),
                                       ColumnSpec::text(QStringLiteral("Memo"), QStringLiteral("備考")).atMost(40),
                                       ColumnSpec::index(QStringLiteral("Sisu"), QStringLiteral("指数")),
                                       ColumnSpec::whole(QStringLiteral("Kazu"), QStringLiteral("数"))},
                                      {0}});
    return s;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    if (size == 0)
        return 0;
    const auto encoding = CsvEncoding(data[0] % 3);
    const QByteArray bytes(reinterpret_cast<const char *>(data + 1), qsizetype(size - 1));
    const CsvRecords parsed = parseCsv(decodeCsv(bytes, encoding).text);
    if (parsed.records.size() != parsed.lines.size())
        std::abort();
    for (const QStringList &record : parsed.records)
        if (record.size() > kCsvMaxFields)
            std::abort();
    const ImportReport report = importCsv(store(), bytes, encoding);
    // Applied exactly when nothing was refused, and a refusal always says why.
    const bool refused = !report.error.isEmpty() || !report.refusedRows.isEmpty();
    if (report.applied == refused)
        std::abort();
    return 0;
}
