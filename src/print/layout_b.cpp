// Layout "B": the compact form. A slim heading band, customer and vehicle in one box beside
// the shop, then the money first: the amount box and every total in a grid across the page,
// and only then the rows, in smaller type, with the closing sentence and notes at the end.

#include "print/table_sheet.h"

#include <algorithm>

namespace est::print {

namespace {

constexpr double kGridCaption = 4.6;
constexpr double kGridAmount = 5.6;
constexpr int kCellsPerBand = 6;
constexpr double kNotesFont = 8.0;
constexpr double kAmountTop = 68.0;
constexpr double kAmountHeight = 12.0;

// Captioned amounts as a grid: a caption row over an amount row, `kCellsPerBand` per band.
double drawAmountGrid(Canvas &c, double x, double y, double cell, const QList<AmountLine> &lines)
{
    double cy = y;
    for (int start = 0; start < lines.size(); start += kCellsPerBand) {
        const int n = std::min<int>(kCellsPerBand, int(lines.size()) - start);
        for (int i = 0; i < n; ++i) {
            const AmountLine &l = lines.at(start + i);
            const double cx = x + i * cell;
            c.fill(cx, cy, cell, kGridCaption, l.strong ? QColor(215, 215, 215) : QColor(235, 235, 235));
            c.text(cx, cy, cell, kGridCaption, l.caption, c.font(7, l.strong), Qt::AlignCenter);
            c.text(cx, cy + kGridCaption, cell, kGridAmount, l.amount, c.font(9, l.strong),
                   Qt::AlignRight | Qt::AlignVCenter);
            c.box(cx, cy, cell, kGridCaption + kGridAmount, 0.2);
        }
        cy += kGridCaption + kGridAmount;
    }
    return cy - y;
}

int bands(qsizetype lines)
{
    return int((lines + kCellsPerBand - 1) / kCellsPerBand);
}

class MainSheetB final : public TableSheet
{
public:
    explicit MainSheetB(const PrintDocument &doc) : TableSheet(doc, doc.workRows, TableStyle{5.0, 5.5, 8.0})
    {
        const int gridBands = bands(doc.totals.size()) + bands(doc.taxBreakdown.size());
        m_gridTop = kAmountTop + kAmountHeight + 2.0;
        m_tableTop = m_gridTop + gridBands * (kGridCaption + kGridAmount) + 10.0;
        layOut();
    }

protected:
    double firstTableTop() const override { return m_tableTop; }

    void drawFirstHeader(Canvas &c) const override
    {
        // Heading band.
        c.fill(kMargin, kMargin, kContentWidth, 11, QColor(240, 240, 240));
        c.line(kMargin, kMargin + 11, kMargin + kContentWidth, kMargin + 11, 0.5);
        QFont title = c.font(17, true, true);
        title.setLetterSpacing(QFont::PercentageSpacing, 130);
        c.text(kMargin + 2, kMargin, 100, 11, m_doc.title, title);
        drawSlipAndDate(c, kPageWidth - kMargin - 62, kMargin + 1, 60, m_doc, 8.5);

        // Customer and vehicle on the left, the shop on the right.
        const double top = 27.0;
        const double leftWidth = 110.0;
        const double customer = drawCustomer(c, kMargin, top, leftWidth, m_doc, 12);
        drawVehicleGrid(c, kMargin, std::max(top + customer + 1, 45.0), leftWidth, m_doc, 2, 5.0);
        const double shopX = kMargin + leftWidth + 6;
        drawShopBlock(c, shopX, top, kPageWidth - kMargin - shopX, m_doc, true);

        // The money first: the amount box, then every total across the page.
        drawAmountBox(c, kMargin, kAmountTop, 110.0, kAmountHeight, m_doc);
        double y = m_gridTop;
        const double cell = kContentWidth / kCellsPerBand;
        y += drawAmountGrid(c, kMargin, y, cell, m_doc.totals);
        if (!m_doc.taxBreakdown.isEmpty()) {
            y += 1.0;
            y += drawAmountGrid(c, kMargin, y, cell, m_doc.taxBreakdown);
        }
        c.text(kMargin, y + 1.5, kContentWidth, 5, m_doc.opening, c.font(9));
    }

    double tailHeight() const override { return 7.0 + notesHeight(m_doc, kNotesFont); }

    void drawTail(Canvas &c, double y) const override
    {
        c.text(kMargin, y, kContentWidth, 6, m_doc.closing, c.font(9));
        drawNotes(c, kMargin, y + 7, 100, m_doc, kNotesFont);
    }

private:
    double m_gridTop = 0;
    double m_tableTop = 0;
};

} // namespace

std::unique_ptr<Sheet> makeMainSheetB(const PrintDocument &doc)
{
    return std::make_unique<MainSheetB>(doc);
}

} // namespace est::print
