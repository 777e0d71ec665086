#pragma once
// One line of the paint grid: what it paints, its index and labour, and which sum its labour
// belongs to. Also how a line is kept in the estimate's paint work table (eleven texts).

#include "common/estimate_row.h"
#include "common/money.h"

#include <QString>
#include <QStringList>
#include <optional>

namespace est::paint {

// The sum a line's labour counts into: basic painting, or one of the three surcharges.
enum class LineKind { Basic, TwoCoatSolid, LowHiding, HighFunction };

struct PaintLine
{
    LineKind kind = LineKind::Basic;
    QString section;    // 部位: the category
    QString partName;   // 部品名
    QString partKind;   // 部品: "新品" or "修正" for a low-hiding line, else empty
    QString range;      // 範囲: number of panels ("2枚"), when known
    QString index;      // 指数, "0.00"
    Yen labour = 0;     // 工賃
    bool withMaterial = false; // the material column is filled for this line
    Yen material = 0;   // 材料費 of the line, shown only (the total is computed on the sums)

    bool operator==(const PaintLine &) const = default;
};

// The nine cells of the paint grid for a line; `number` is its running number and
// `running` the labour of all lines up to and including it (工賃計).
QStringList gridCells(const PaintLine &line, int number, Yen running);

// The line as a row of the paint work table: No, 部位, 部品名, 部品, 範囲, 指数, 工賃 in
// the estimate's columns; the hidden column keeps the kind and the material flag.
EstimateRow toEstimateRow(const PaintLine &line, int number);
// Back from a stored row; empty when the row's labour or index cannot be read.
std::optional<PaintLine> fromEstimateRow(const EstimateRow &row);

// The paint grid's header, one text per column.
QStringList paintGridHeaders();

} // namespace est::paint
