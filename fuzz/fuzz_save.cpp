// Any bytes as the template of a save: either refused, or the saved workbook reads back as
// the estimate that was written.
#include "fuzz_support.h"
#include "sample_estimate.h"
#include "workbook/estimate_files.h"
#include "workbook/estimate_layout.h"

#include <cstdlib>

using namespace est;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    fuzz::initialise();
    QByteArray saved;
    try {
        saved = workbook::estimateWorkbookBytes(fuzz::bytesOf(data, size), fuzz::smallEstimate());
    } catch (const workbook::WorkbookError &) {
        return 0;
    }
    try {
        auto book = workbook::Workbook::fromBytes(saved);
        Session back;
        workbook::readEstimate(*book, back);
    } catch (const workbook::WorkbookError &e) {
        // A template that was accepted must give a workbook that opens.
        std::abort();
    }
    return 0;
}
