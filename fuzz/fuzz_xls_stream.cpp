// Any bytes as the workbook stream (the BIFF records) of an .xls, put into a well-formed
// compound file, so that the fuzzer spends its time on the records FreeXL reads.
#include "fuzz_support.h"
#include "workbook/biff_rewrite.h"
#include "workbook/estimate_layout.h"
#include "workbook/xls_book.h"

using namespace est;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    fuzz::initialise();
    try {
        auto book = workbook::XlsBook::fromBytes(workbook::detail::compoundFileWith(fuzz::bytesOf(data, size)));
        Session session;
        workbook::readEstimate(*book, session);
    } catch (const workbook::WorkbookError &) {
    }
    return 0;
}
