#pragma once
// What one .xls workbook may cost. The .xls reader (FreeXL) trusts the sizes, counts and
// chains it finds in the file, so every one of them is checked against these limits before it
// sees the file; together they keep an open below 2 s and 150 MB whatever the file holds.

#include <QtGlobal>

namespace est::workbook {

struct XlsLimits
{
    qint64 maxFileBytes = 4 * 1024 * 1024;   // an estimate is about 0.5 MB
    qint64 maxCells = 1000000;               // cells of all sheets, as their dimensions declare them
    qint64 maxStrings = 200000;              // entries of the shared string table
    int maxSheets = 255;
};

} // namespace est::workbook
