// The paint sheet ("PaintA" / "PaintB"): the paint rows of the estimate with the paint
// totals (labour, material, bumper painting, total B). Layout "B" uses the compact rows.

#include "print/table_sheet.h"

namespace est::print {

namespace {

constexpr double kTotalsWidth = 84.0;
constexpr double kTotalsRow = 5.6;

class PaintSheet final : public TableSheet
{
public:
    PaintSheet(const PrintDocument &doc, bool compact)
        : TableSheet(doc, doc.paintRows, compact ? TableStyle{5.0, 5.5, 8.0} : TableStyle{6.0, 6.5, 8.5})
    {
        layOut();
    }

protected:
    QString subtitle() const override { return QStringLiteral("塗装明細"); }
    double firstTableTop() const override { return kContinuationTableTop + 15.0; }

    void drawFirstHeader(Canvas &c) const override
    {
        drawContinuationHeader(c, m_doc, subtitle());
        drawVehicleGrid(c, kMargin, kContinuationTableTop, kContentWidth, m_doc, 4, 5.5);
    }

    double tailHeight() const override { return m_doc.paintTotals.size() * kTotalsRow + (m_rows.isEmpty() ? 8 : 0); }

    void drawTail(Canvas &c, double y) const override
    {
        if (m_rows.isEmpty()) {
            c.text(kMargin, y, 100, 6, QStringLiteral("塗装作業はありません。"), c.font(9));
            y += 8;
        }
        drawAmountLines(c, kPageWidth - kMargin - kTotalsWidth, y, kTotalsWidth, m_doc.paintTotals, kTotalsRow, 9.5);
    }
};

} // namespace

std::unique_ptr<Sheet> makePaintSheet(const PrintDocument &doc, bool compact)
{
    return std::make_unique<PaintSheet>(doc, compact);
}

} // namespace est::print
