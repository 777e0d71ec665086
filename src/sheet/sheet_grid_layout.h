#pragma once
// The fixed shape of the estimate grid HFlgSS: columns, header texts, widths and rows.

#include "common/session.h"

#include <QList>
#include <QString>
#include <QStringList>

namespace est::sheet {

// The header as one format string, cells separated by "|".
extern const QString kGridHeaderFormat;

inline constexpr int kGridColumns = 11;
inline constexpr int kGridInitialRows = 14;  // one fixed header row and 13 rows
inline constexpr int kGridRowHeightTwips = 300;

// The header texts, one per column, read from the format string.
QStringList gridHeaders();

// Column widths in twips, applied in this order; column 8 is set twice (750, then 1000)
// and column 9 is never set, so it keeps the grid's default width.
struct ColumnWidth
{
    int column;
    int twips;
};
const QList<ColumnWidth> &gridColumnWidths();

// The rows the sheet shows below the header: the work rows, then what the paint section adds.
QList<EstimateRow> displayRows(const Session &session);

// How many grid rows (header included) are needed to show `dataRows` rows.
int gridRowCount(int dataRows);

} // namespace est::sheet
