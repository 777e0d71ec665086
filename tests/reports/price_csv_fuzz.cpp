// libFuzzer target for the price-list reader: any bytes are decoded, split into records and
// read as prices without crashing, and whatever is accepted is a whole number of yen.

#include "reports/price_csv.h"

#include <QByteArray>
#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, size_t size)
{
    const est::reports::PriceCsv csv =
        est::reports::readPriceCsv(QByteArray::fromRawData(reinterpret_cast<const char *>(data), qsizetype(size)));
    for (const est::reports::PriceEntry &e : csv.entries)
        if (e.price < 0 || e.partNumber.isEmpty() || e.line <= 0)
            std::abort();
    return 0;
}
