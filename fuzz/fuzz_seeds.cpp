// Writes the seed inputs that are too large to keep in the repository into a folder per
// target: the default template and a small saved estimate, and an .xls sample and its workbook
// stream (tools/fuzz runs it before fuzzing).
//   fuzz_seeds <folder>
#include "fuzz_support.h"
#include "package_builder.h"
#include "sample_estimate.h"
#include "workbook/cfb_stream.h"
#include "xls_samples.h"

#include <QDir>
#include <QFile>

using namespace est;

namespace {
void write(const QString &path, const QByteArray &bytes)
{
    QFile f(path);
    if (f.open(QIODevice::WriteOnly))
        f.write(bytes);
}
} // namespace

int main(int argc, char **argv)
{
    if (argc != 2)
        return 2;
    fuzz::initialise();
    const QDir out(QString::fromLocal8Bit(argv[1]));
    for (const char *target : {"fuzz_package", "fuzz_estimate", "fuzz_save", "fuzz_xml_part", "fuzz_xls", "fuzz_xls_stream", "fuzz_photo_sheet"})
        out.mkpath(QString::fromLatin1(target));
    for (const char *target : {"fuzz_package", "fuzz_estimate", "fuzz_save"}) {
        write(out.filePath(QStringLiteral("%1/template.xlsx").arg(QLatin1String(target))), test::templateBytes());
        write(out.filePath(QStringLiteral("%1/estimate.xlsx").arg(QLatin1String(target))), fuzz::savedEstimate());
    }
    // Each XML part of the saved estimate, behind the byte that picks it.
    const char *const targets[] = {"xl/worksheets/sheet6.xml", "xl/worksheets/sheet7.xml", "xl/workbook.xml",
                                   "xl/_rels/workbook.xml.rels", "_rels/.rels", "[Content_Types].xml",
                                   "xl/styles.xml", "xl/sharedStrings.xml"};
    const test::Parts parts = test::unzipParts(fuzz::savedEstimate());
    for (int i = 0; i < int(std::size(targets)); ++i)
        for (const auto &[name, data] : parts)
            if (name == QLatin1String(targets[i]))
                write(out.filePath(QStringLiteral("fuzz_xml_part/part%1.xml").arg(i)), char(i) + data);
    // Each part of the sheet 写真, behind the byte that picks it.
    const test::Parts withPhotos = test::unzipParts(fuzz::savedEstimateWithPhotos());
    for (int i = 0; i < int(std::size(fuzz::kPhotoParts)); ++i)
        for (const auto &[name, data] : withPhotos)
            if (name == QLatin1String(fuzz::kPhotoParts[i]))
                write(out.filePath(QStringLiteral("fuzz_photo_sheet/part%1").arg(i)), char(i) + data);
    QFile xls(QDir(test::xlsSampleFolder()).filePath(QStringLiteral("empty.xls")));
    if (xls.open(QIODevice::ReadOnly)) {
        const QByteArray bytes = xls.readAll();
        write(out.filePath(QStringLiteral("fuzz_xls/empty.xls")), bytes);
        write(out.filePath(QStringLiteral("fuzz_xls_stream/empty")), workbook::detail::workbookStream(bytes, {}));
    }
    return 0;
}
