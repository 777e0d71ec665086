#pragma once
// Internal to the .xls reader: the "Workbook" stream of an Excel 97-2003 file (a compound
// file: sectors chained through an allocation table), taken out with every sector number,
// chain and count checked, the way FreeXL will walk it afterwards.

#include "workbook/workbook.h"
#include "workbook/xls_limits.h"

#include <QByteArray>

namespace est::workbook::detail {

// True when the bytes start like a compound file (any Excel 97-2003 workbook does).
bool looksLikeCompoundFile(const QByteArray &bytes);

// The bytes of the workbook stream. Throws WorkbookError: NotAWorkbook when the bytes are no
// compound file or hold no workbook stream, TooLarge beyond the limits, Damaged when a sector
// number, a chain or a directory entry is out of place.
QByteArray workbookStream(const QByteArray &bytes, const XlsLimits &limits);

} // namespace est::workbook::detail
