#pragma once
// Internal to the .xls reader: one pass over the records of a workbook stream (BIFF5 or
// BIFF8) before FreeXL reads it. It refuses what FreeXL would read out of bounds or pay for
// without limit (records shorter than their kind, declared sheet sizes beyond the limits,
// cells outside their sheet, dates that FreeXL would count day by day for years), and it
// keeps the cells FreeXL does not report as what they are: booleans and errors, and the
// results of formula cells.

#include "workbook/workbook.h"
#include "workbook/xls_limits.h"

#include <QByteArray>
#include <QHash>
#include <QList>

namespace est::workbook::detail {

struct XlsSheetScan
{
    QString name;
    // Cells by (row << 16 | column), both from 0: booleans, errors, formula results.
    QHash<quint32, CellValue> cells;
};

struct XlsScan
{
    QList<XlsSheetScan> sheets;   // in the workbook's order, as FreeXL numbers them
};

// Throws WorkbookError (Damaged): a count the file declares beyond the limits makes it a
// broken file as much as a record that is cut off.
XlsScan scanWorkbookStream(const QByteArray &stream, const XlsLimits &limits);

inline quint32 xlsCellKey(quint32 row, quint32 column)
{
    return row << 16 | column;
}

} // namespace est::workbook::detail
