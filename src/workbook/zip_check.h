#pragma once
// Internal to the workbook engine: a cheap look at a package's zip structure before libzip
// reads it. libzip searches the end of the file for the end-of-directory record and reads the
// whole directory again for every candidate it finds, and it trusts the sizes and offsets of
// the directory; this check reads each directory record once and refuses what no spreadsheet
// program writes: more than one end record, a directory that does not end where the end
// record begins, entries that overlap or lie outside the file, zip64 and multi-disk archives.

#include "workbook/workbook.h"

#include <QByteArray>

namespace est::workbook::detail {

// Throws WorkbookError: NotAWorkbook when the bytes are no zip archive at all, Damaged when
// they begin like one but the structure is broken (a cut-off file among them), TooLarge when
// the directory lists more entries than the limits allow.
void checkZipStructure(const QByteArray &bytes, const Limits &limits);

} // namespace est::workbook::detail
