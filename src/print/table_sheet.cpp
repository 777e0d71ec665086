#include "print/table_sheet.h"

#include <cmath>

namespace est::print {

TableSheet::TableSheet(const PrintDocument &doc, const QList<EstimateRow> &rows, TableStyle style)
    : m_doc(doc), m_rows(rows), m_style(style)
{
}

void TableSheet::layOut()
{
    auto capacity = [this](double top) {
        return int(std::floor((kTableBottom - top - m_style.headerHeight) / m_style.rowHeight + 1e-6));
    };
    const int tailRows = int(std::ceil((tailHeight() + 3.0) / m_style.rowHeight - 1e-6));
    m_pages = paginate(int(m_rows.size()), capacity(firstTableTop()), capacity(kContinuationTableTop), tailRows);
}

int TableSheet::pageCount() const
{
    return int(m_pages.size());
}

void TableSheet::drawPage(Canvas &c, int page, const PageInfo &info) const
{
    const PageSlice &slice = m_pages.at(page);
    double y = 0;
    if (page == 0) {
        drawFirstHeader(c);
        y = firstTableTop();
    } else {
        drawContinuationHeader(c, m_doc, subtitle());
        y = kContinuationTableTop;
    }
    const QList<TableColumn> columns = rowColumns(kContentWidth);
    if (slice.end > slice.begin || page == 0) {
        y += drawTableHeader(c, kMargin, y, columns, m_style);
        y += drawTableRows(c, kMargin, y, columns, m_rows, slice.begin, slice.end, m_style);
    }
    if (slice.tail)
        drawTail(c, y + 3.0);
    drawFooter(c, m_doc, info);
}

} // namespace est::print
