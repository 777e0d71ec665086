#pragma once
// Workbooks built to cost a reader time or memory, one generator per shape, for the bounds
// tests and the benchmark of opening the worst file of each shape.

#include <QByteArray>

namespace est::test {

// A saved estimate with every section full (the largest valid workbook the program writes).
QByteArray fullEstimateWorkbook();
// One shared string of that many bytes (blanks, then "1000") in every amount cell of 394 rows
// and 99 non-taxable items.
QByteArray longSharedStringWorkbook(qsizetype stringBytes);
// A saved estimate followed by copies of its end-of-directory record.
QByteArray manyEndRecordsWorkbook(int copies);
// A saved estimate with that many more sheets on the part of sheet "D".
QByteArray sheetsOnOnePartWorkbook(int sheets);
// A saved estimate whose four parts read first are padded to just under the per-part limit.
QByteArray partsJustUnderTheLimitWorkbook();
// A saved estimate with about 7 MB of empty cells in sheet "P".
QByteArray denseSheetWorkbook();
// A saved estimate with 60 photos filling the package to just under its size limit.
QByteArray photoSheetAtTheLimitsWorkbook();

} // namespace est::test
