#pragma once
// Internal to the .xls reader: the workbook stream rewritten into the plain form FreeXL reads
// correctly, and a compound file around it. FreeXL misreads shared strings whose formatting
// runs or phonetic data go on in the next record (LibreOffice writes such tables), and reads
// past its record for a string split more than once; the rewritten table has neither runs
// nor phonetic data and splits no string, and the sheets' positions are moved to match.

#include "workbook/xls_limits.h"

#include <QByteArray>

namespace est::workbook::detail {

// Throws WorkbookError (Damaged) when the shared string table is broken.
QByteArray plainWorkbookStream(const QByteArray &stream);

// A compound file holding only the workbook stream. Throws WorkbookError (TooLarge) beyond
// what one header's allocation table reaches (about 7 MB).
QByteArray compoundFileWith(const QByteArray &workbookStream);

} // namespace est::workbook::detail
