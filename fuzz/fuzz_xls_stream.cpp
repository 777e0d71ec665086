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
    // Streams this small live in the mini stream, which the reader refuses: a short input is
    // padded with zeros, which end the records.
    QByteArray stream = fuzz::bytesOf(data, size);
    if (stream.size() <= 4096)
        stream.append(4100 - stream.size(), '\0');
    try {
        auto book = workbook::XlsBook::fromBytes(workbook::detail::compoundFileWith(stream));
        Session session;
        workbook::readEstimate(*book, session);
    } catch (const workbook::WorkbookError &) {
    }
    return 0;
}
