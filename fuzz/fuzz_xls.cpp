// Any bytes as an .xls estimate (a compound file read by FreeXL after our checks): read into a
// session, which changes only when the read succeeds.
#include "fuzz_support.h"
#include "sample_estimate.h"
#include "workbook/estimate_layout.h"
#include "workbook/xls_book.h"

#include <cstdlib>

using namespace est;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    fuzz::initialise();
    Session session = fuzz::smallEstimate();
    try {
        auto book = workbook::XlsBook::fromBytes(fuzz::bytesOf(data, size));
        workbook::readEstimate(*book, session);
    } catch (const workbook::WorkbookError &) {
        if (test::storedFields(session) != test::storedFields(fuzz::smallEstimate()))
            std::abort();   // a refused workbook must leave the estimate as it was
    }
    return 0;
}
