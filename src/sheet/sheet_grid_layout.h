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

// The heading row of the paint section, in the part column.
extern const QString kPaintHeading;

// The paint section: when there is painting, the heading row, the stored paint rows as they
// are, then one row each for the additional-index labour, the bumper painting and the paint
// material that paint total B holds besides the rows.
QList<EstimateRow> paintSectionRows(const Session &session);

// The paint labour that the stored paint rows do not hold: the additional-index labour.
// Derived from the saved totals, so it is right after reopening a workbook too.
Yen additionalLabour(const Session &session);

// The rows the sheet shows below the header: the work rows, then the paint section.
QList<EstimateRow> displayRows(const Session &session);

// How many grid rows (header included) are needed to show `dataRows` rows.
int gridRowCount(int dataRows);

} // namespace est::sheet
