#include "hostile_workbooks.h"

#include "package_builder.h"
#include "sample_estimate.h"
#include "workbook/estimate_layout.h"
#include "workbook/photo_sheet.h"

#include <functional>

namespace est::test {

namespace {

constexpr qsizetype kMB = 1024 * 1024;

// The saved estimate with some parts' text changed.
QByteArray withParts(const std::function<void(const QString &, QByteArray &)> &change)
{
    Parts parts = unzipParts(fullEstimateWorkbook());
    for (auto &[name, data] : parts)
        change(name, data);
    return zipParts(parts);
}

} // namespace

QByteArray fullEstimateWorkbook()
{
    static const QByteArray bytes = [] {
        auto book = workbook::Workbook::fromBytes(templateBytes());
        workbook::writeEstimate(*book, fullEstimate(3));
        return book->toBytes();
    }();
    return bytes;
}

QByteArray longSharedStringWorkbook(qsizetype stringBytes)
{
    QByteArray d = "<row r=\"2\"><c r=\"A2\"><v>393</v></c></row>";
    for (int r = 6; r <= 6 + 393; ++r) {
        const QByteArray n = QByteArray::number(r);
        d += "<row r=\"" + n + "\">";
        for (const char *column : {"F", "G", "H", "J"})
            d += "<c r=\"" + QByteArray(column) + n + "\" t=\"s\"><v>0</v></c>";
        if (r == 8)
            d += "<c r=\"L8\"><v>98</v></c><c r=\"N8\" t=\"s\"><v>0</v></c>";
        if (r >= 10 && r < 10 + 99)
            d += "<c r=\"N" + n + "\" t=\"s\"><v>0</v></c>";
        d += "</row>";
    }
    const QByteArray text = QByteArray(std::max<qsizetype>(stringBytes - 4, 0), ' ') + "1000";
    const QByteArray strings = "<?xml version=\"1.0\" encoding=\"UTF-8\"?><sst xmlns=\"http://schemas.openxmlformats.org/"
                               "spreadsheetml/2006/main\"><si><t xml:space=\"preserve\">" +
                               text + "</t></si></sst>";
    Parts parts = minimalWorkbook({{QStringLiteral("D"), d}, {QStringLiteral("P"), ""}}, strings);
    parts.append({QStringLiteral("xl/sharedStrings.xml"), strings});
    return zipParts(parts);
}

QByteArray manyEndRecordsWorkbook(int copies)
{
    const QByteArray zip = fullEstimateWorkbook();
    return zip + zip.right(22).repeated(copies);
}

QByteArray sheetsOnOnePartWorkbook(int sheets)
{
    return withParts([sheets](const QString &name, QByteArray &data) {
        if (name != QLatin1String("xl/workbook.xml"))
            return;
        const QByteArray sheetD = data.mid(data.indexOf("<sheet name=\"D\""));
        const QByteArray element = sheetD.left(sheetD.indexOf("/>") + 2);
        QByteArray more;
        for (int i = 0; i < sheets; ++i)
            more += QByteArray(element).replace("name=\"D\"", "name=\"D" + QByteArray::number(i) + "\"");
        data.insert(data.indexOf("</sheets>"), more);
    });
}

QByteArray partsJustUnderTheLimitWorkbook()
{
    const qsizetype justUnder = workbook::Limits{}.maxPartBytes - 64 * 1024;
    return withParts([justUnder](const QString &name, QByteArray &data) {
        if (name == QLatin1String("xl/workbook.xml") || name == QLatin1String("_rels/.rels") ||
            name == QLatin1String("xl/worksheets/sheet6.xml") || name == QLatin1String("xl/worksheets/sheet7.xml"))
            data.insert(data.lastIndexOf("</"), QByteArray(justUnder - data.size(), ' '));
    });
}

QByteArray denseSheetWorkbook()
{
    return withParts([](const QString &name, QByteArray &data) {
        if (name != QLatin1String("xl/worksheets/sheet7.xml"))
            return;
        QByteArray rows;
        rows.reserve(7 * kMB + 16 * 1024);
        for (int r = 1000; rows.size() < 7 * kMB; ++r)
            rows += "<row r=\"" + QByteArray::number(r) + "\">" + QByteArray("<c/>").repeated(2000) + "</row>";
        data.insert(data.indexOf("</sheetData>"), rows);
    });
}

QByteArray photoSheetAtTheLimitsWorkbook()
{
    // Sixty pictures, each JPEG only in its first bytes, that together (stored, not
    // deflated) fill the package to just under its limit.
    const workbook::Limits limits;
    const QByteArray estimate = fullEstimateWorkbook();
    const qsizetype stored = zipParts(unzipParts(estimate), Compression::Store).size();
    const qsizetype each = (limits.maxFileBytes - stored - 256 * 1024) / kMaxPhotos;
    QList<EstimatePhoto> photos;
    for (int i = 0; i < kMaxPhotos; ++i)
        photos.append({QByteArray("\xFF\xD8\xFF", 3) + QByteArray(each - 3, char('a' + i % 26)), QString()});
    auto book = workbook::Workbook::fromBytes(estimate);
    workbook::writePhotos(*book, photos);
    Parts parts = unzipParts(book->toBytes());
    return zipParts(parts, Compression::Store);
}

} // namespace est::test
