// One part of the sheet 写真 of a saved estimate with photos replaced by the input (the first
// byte picks the part), then the photos read as opening the estimate reads them.
#include "fuzz_support.h"
#include "package_builder.h"
#include "workbook/photo_sheet.h"

using namespace est;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    fuzz::initialise();
    if (size == 0)
        return 0;
    static const test::Parts parts = test::unzipParts(fuzz::savedEstimateWithPhotos());
    const char *target = fuzz::kPhotoParts[data[0] % std::size(fuzz::kPhotoParts)];
    test::Parts changed = parts;
    for (auto &[name, bytes] : changed)
        if (name == QLatin1String(target))
            bytes = fuzz::bytesOf(data + 1, size - 1);
    try {
        auto book = workbook::Workbook::fromBytes(test::zipParts(changed, test::Compression::Store));
        const QList<EstimatePhoto> photos = workbook::readPhotos(*book);
        for (const EstimatePhoto &p : photos)
            workbook::declaredImageSize(p.image);
    } catch (const workbook::WorkbookError &) {
    }
    return 0;
}
