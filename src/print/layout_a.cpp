// Layout "A": the classic form. Title and slip at the top, the customer, the opening
// sentence and the amount box on the left, the shop on the right, the vehicle grid, then
// the rows table over as many pages as needed, and after the last row the closing sentence,
// the notes and the full totals block.

#include "print/table_sheet.h"

#include <algorithm>

namespace est::print {

namespace {

constexpr double kTotalsWidth = 84.0;
constexpr double kTotalsRow = 5.6;
constexpr double kBreakdownRow = 5.0;
constexpr double kNotesFont = 8.5;
constexpr double kNotesWidth = kContentWidth - kTotalsWidth - 6.0;

class MainSheetA final : public TableSheet
{
public:
    explicit MainSheetA(const PrintDocument &doc) : TableSheet(doc, doc.workRows, TableStyle{6.0, 6.5, 8.5})
    {
        layOut();
    }

protected:
    double firstTableTop() const override { return 96.0; }

    void drawFirstHeader(Canvas &c) const override
    {
        drawSlipAndDate(c, kPageWidth - kMargin - 60, kMargin, 60, m_doc, 9);
        drawTitle(c, kMargin + 40, kMargin + 2, kContentWidth - 80, m_doc.title, 20);

        const double top = 36.0;
        const double leftWidth = 104.0;
        double y = top + drawCustomer(c, kMargin, top, leftWidth, m_doc, 14);
        y = std::max(y + 2, 56.0);
        c.text(kMargin, y, leftWidth, 5.5, m_doc.opening, c.font(9.5));
        drawAmountBox(c, kMargin, 63.0, leftWidth, 13.0, m_doc);

        const double shopX = kMargin + leftWidth + 8;
        drawShopBlock(c, shopX, top, kPageWidth - kMargin - shopX, m_doc, false);

        drawVehicleGrid(c, kMargin, 81.0, kContentWidth, m_doc, 4, 6.0);
    }

    double tailHeight() const override
    {
        double totals = m_doc.totals.size() * kTotalsRow;
        if (!m_doc.taxBreakdown.isEmpty())
            totals += 6.5 + m_doc.taxBreakdown.size() * kBreakdownRow;
        return std::max(totals, 8.0 + notesHeight(m_doc, kNotesFont));
    }

    void drawTail(Canvas &c, double y) const override
    {
        c.text(kMargin, y, kNotesWidth, 6, m_doc.closing, c.font(9.5));
        drawNotes(c, kMargin, y + 8, kNotesWidth, m_doc, kNotesFont);

        const double x = kPageWidth - kMargin - kTotalsWidth;
        double ty = y + drawAmountLines(c, x, y, kTotalsWidth, m_doc.totals, kTotalsRow, 9.5);
        if (!m_doc.taxBreakdown.isEmpty()) {
            ty += 1.5;
            c.text(x, ty, kTotalsWidth, 5, QStringLiteral("税率別内訳"), c.font(8, true));
            drawAmountLines(c, x, ty + 5, kTotalsWidth, m_doc.taxBreakdown, kBreakdownRow, 8.5);
        }
    }
};

} // namespace

std::unique_ptr<Sheet> makeMainSheetA(const PrintDocument &doc)
{
    return std::make_unique<MainSheetA>(doc);
}

} // namespace est::print
