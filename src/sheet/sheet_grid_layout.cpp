#include "sheet/sheet_grid_layout.h"

namespace est::sheet {

const QString kGridHeaderFormat = QStringLiteral(
    "No|部 位|作 業 部 位|部 品 番 号|作 業|指　数|工　賃|部品単価|個数|部品計|");

QStringList gridHeaders()
{
    QStringList cells = kGridHeaderFormat.split(QLatin1Char('|'));
    while (cells.size() < kGridColumns)
        cells.append(QString());
    return cells.mid(0, kGridColumns);
}

const QList<ColumnWidth> &gridColumnWidths()
{
    static const QList<ColumnWidth> widths = {
        {0, 500}, {1, 1000}, {2, 3000}, {3, 2500}, {4, 1125}, {5, 750},
        {6, 1000}, {7, 1000}, {8, 750}, {8, 1000}, {10, 0},
    };
    return widths;
}

QList<EstimateRow> displayRows(const Session &session)
{
    return session.rows;
}

int gridRowCount(int dataRows)
{
    return std::max(kGridInitialRows, dataRows + 1);
}

} // namespace est::sheet
