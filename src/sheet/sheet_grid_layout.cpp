#include "sheet/sheet_grid_layout.h"

#include "common/number_format.h"

#include <limits>

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

const QString kPaintHeading = QStringLiteral("－　塗　装　内　容　－");

namespace {

EstimateRow summaryRow(const QString &name, int column, Yen amount)
{
    EstimateRow row;
    row[ColPart] = name;
    row[column] = formatThousands(amount);
    return row;
}

} // namespace

QList<EstimateRow> paintSectionRows(const Session &session)
{
    const EditorTotals &t = session.totals;
    QList<EstimateRow> rows;
    if (session.paint.rows.isEmpty() && t.paintTotalB == 0)
        return rows;
    rows.append(EstimateRow());
    rows.last()[ColPart] = kPaintHeading;
    rows.append(session.paint.rows);
    // What paint total B holds besides the paint rows, one line each, so that the section adds
    // up to B: the additional-index labour (the paint labour the rows do not hold), the bumper
    // painting and the paint material.
    const Yen additional = additionalLabour(session);
    if (additional != 0)
        rows.append(summaryRow(QStringLiteral("付加指数"), ColLabour, additional));
    if (t.bumperPaint != 0)
        rows.append(summaryRow(QStringLiteral("バンパー塗装"), ColLabour, t.bumperPaint));
    if (t.paintMaterial != 0) {
        rows.append(summaryRow(QStringLiteral("塗装材料費"), ColPartsAmount, t.paintMaterial));
        rows.last()[ColWork] = QStringLiteral("係数");
        rows.last()[ColIndex] = session.paint.materialCoefficient;
    }
    return rows;
}

Yen additionalLabour(const Session &session)
{
    std::int64_t rest = session.totals.paintLabour;
    for (const EstimateRow &row : session.paint.rows)
        rest -= parseDisplayedYen(row[ColLabour]).value_or(0);
    return rest > 0 && rest <= std::numeric_limits<Yen>::max() ? Yen(rest) : 0;
}

QList<EstimateRow> displayRows(const Session &session)
{
    return session.rows + paintSectionRows(session);
}

int gridRowCount(int dataRows)
{
    return std::max(kGridInitialRows, dataRows + 1);
}

} // namespace est::sheet
