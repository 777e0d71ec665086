// One XML part of a well-formed saved estimate replaced by the input, so that the fuzzer
// explores the XML and the cells rather than zip checksums. The first byte picks the part.
// The package is stored, not deflated: zipping it anew is most of the cost of an input.
#include "fuzz_support.h"
#include "package_builder.h"
#include "workbook/estimate_layout.h"

using namespace est;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    fuzz::initialise();
    if (size == 0)
        return 0;
    static const test::Parts parts = test::unzipParts(fuzz::savedEstimate());
    static const char *const targets[] = {"xl/worksheets/sheet6.xml", "xl/worksheets/sheet7.xml",
                                          "xl/workbook.xml",          "xl/_rels/workbook.xml.rels",
                                          "_rels/.rels",              "[Content_Types].xml",
                                          "xl/styles.xml",            "xl/sharedStrings.xml"};
    const char *target = targets[data[0] % std::size(targets)];
    test::Parts changed = parts;
    bool replaced = false;
    for (auto &[name, bytes] : changed)
        if (name == QLatin1String(target))
            bytes = fuzz::bytesOf(data + 1, size - 1), replaced = true;
    if (!replaced)
        changed.append({QString::fromLatin1(target), fuzz::bytesOf(data + 1, size - 1)});
    try {
        auto book = workbook::Workbook::fromBytes(test::zipParts(changed, test::Compression::Store));
        Session session;
        workbook::readEstimate(*book, session);
        // The styles part is only read when a number format is set, as a save does.
        book->sheet(QStringLiteral("D"))->setNumberFormat(3, 11, QStringLiteral("@"));
        book->toBytes();
    } catch (const workbook::WorkbookError &) {
    }
    return 0;
}
