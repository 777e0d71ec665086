#include "paint/paint_line.h"

#include "common/number_format.h"

namespace est::paint {

namespace {

const QString kHeader = QStringLiteral(
    "No | 部位　 | 部品名　        　      　　　　　　　　　　　　　　　| 部品 | 範囲　| 指数  | 工  賃  | 工賃計  | 材料費　");

// Codes of the hidden column; "+Z" marks a line that carries its material column.
QString kindCode(LineKind kind)
{
    switch (kind) {
    case LineKind::Basic: return QStringLiteral("PB");
    case LineKind::TwoCoatSolid: return QStringLiteral("P2");
    case LineKind::LowHiding: return QStringLiteral("PT");
    case LineKind::HighFunction: return QStringLiteral("PK");
    }
    return {};
}

std::optional<LineKind> kindOf(const QString &code)
{
    for (LineKind k : {LineKind::Basic, LineKind::TwoCoatSolid, LineKind::LowHiding, LineKind::HighFunction})
        if (code == kindCode(k))
            return k;
    return std::nullopt;
}

const QString kMaterialMark = QStringLiteral("+Z");

} // namespace

QStringList paintGridHeaders()
{
    return kHeader.split(QLatin1Char('|'));
}

QStringList gridCells(const PaintLine &line, int number, Yen running)
{
    return {QString::number(number), line.section,   line.partName,
            line.partKind,           line.range,     line.index,
            formatThousands(line.labour), formatThousands(running),
            line.withMaterial ? formatThousands(line.material) : QString()};
}

EstimateRow toEstimateRow(const PaintLine &line, int number)
{
    EstimateRow row;
    row[ColNo] = QString::number(number);
    row[ColSection] = line.section;
    row[ColPart] = line.partName;
    row[ColPartNumber] = line.partKind;
    row[ColWork] = line.range;
    row[ColIndex] = line.index;
    row[ColLabour] = formatThousands(line.labour);
    row[ColHidden] = kindCode(line.kind) + (line.withMaterial ? kMaterialMark : QString());
    return row;
}

std::optional<PaintLine> fromEstimateRow(const EstimateRow &row)
{
    PaintLine line;
    QString code = row[ColHidden];
    line.withMaterial = code.endsWith(kMaterialMark);
    if (line.withMaterial)
        code.chop(kMaterialMark.size());
    line.kind = kindOf(code).value_or(LineKind::Basic);
    line.section = row[ColSection];
    line.partName = row[ColPart];
    line.partKind = row[ColPartNumber];
    line.range = row[ColWork];
    line.index = row[ColIndex];
    if (isBlank(row[ColLabour])) {
        line.labour = 0;
    } else {
        const auto labour = parseDisplayedYen(row[ColLabour]);
        if (!labour || *labour < 0)
            return std::nullopt;
        line.labour = *labour;
    }
    return line;
}

} // namespace est::paint
