// Any bytes as a saved estimate: read into a session, which changes only when the read succeeds.
#include "fuzz_support.h"
#include "sample_estimate.h"
#include "workbook/estimate_layout.h"

#include <cstdlib>

using namespace est;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    fuzz::initialise();
    Session session = fuzz::smallEstimate();
    try {
        auto book = workbook::Workbook::fromBytes(fuzz::bytesOf(data, size));
        workbook::readEstimate(*book, session);
    } catch (const workbook::WorkbookError &) {
        if (test::storedFields(session) != test::storedFields(fuzz::smallEstimate()))
            std::abort();   // a refused workbook must leave the estimate as it was
    }
    return 0;
}
