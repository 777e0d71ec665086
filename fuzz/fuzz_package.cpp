// Any bytes as a workbook package: opened, every sheet looked at, a few cells read.
#include "fuzz_support.h"
#include "workbook/workbook.h"

using namespace est;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    fuzz::initialise();
    try {
        auto book = workbook::Workbook::fromBytes(fuzz::bytesOf(data, size));
        for (const QString &name : book->sheetNames())
            if (workbook::Worksheet *sheet = book->sheet(name))
                for (int row = 1; row <= 3; ++row)
                    for (int column = 1; column <= 3; ++column)
                        workbook::cellText(sheet->value(row, column));
    } catch (const workbook::WorkbookError &) {
    }
    return 0;
}
