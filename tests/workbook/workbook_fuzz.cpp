// libFuzzer target for the workbook reader (clang, -DESTIMATE_BUILD_FUZZ=ON). The first byte
// chooses what the input is: a whole package, or the XML of sheet "D" inside a valid package
// (which reaches the cell reader instead of stopping at the zip checksums).
//   build-fuzz/tests/workbook/workbook_fuzz -max_total_time=60 corpus/

#include "package_builder.h"
#include "workbook/estimate_layout.h"

#include <cstddef>
#include <cstdint>

using namespace est;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    if (size == 0)
        return 0;
    const QByteArray input(reinterpret_cast<const char *>(data + 1), qsizetype(size - 1));
    QByteArray package = input;
    if (data[0] & 1) {
        test::Parts parts = test::minimalWorkbook({{QStringLiteral("D"), ""}, {QStringLiteral("P"), ""}});
        parts[5].second = input;
        package = test::zipParts(parts);
    }
    try {
        auto book = workbook::Workbook::fromBytes(package);
        Session session;
        workbook::readEstimate(*book, session);
    } catch (const workbook::WorkbookError &) {
    }
    return 0;
}
