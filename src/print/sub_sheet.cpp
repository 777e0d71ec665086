// The sub sheet ("PrintSub"): the details behind the paint total, one captioned table per
// section (paint index, bumper painting, additional index), continued on further pages
// when they do not fit.

#include "print/page_kit.h"

#include <cmath>

namespace est::print {

namespace {

constexpr double kRow = 5.5;
constexpr double kTitleRow = 8.0;
constexpr double kTop = kMargin + 10.0;
constexpr double kBottom = kFooterTop - 2.0;

// One line of the sheet: a table's title, its header, or one of its rows.
struct Item
{
    enum Kind { Title, Header, Row } kind;
    int table;
    int row;
};

class SubSheet final : public Sheet
{
public:
    explicit SubSheet(const PrintDocument &doc) : m_doc(doc)
    {
        QList<Item> page;
        double y = kTop;
        auto place = [&](const Item &item, double h, bool keepWithNext) {
            if (y + h + (keepWithNext ? kRow * 2 : 0) > kBottom && !page.isEmpty()) {
                m_pages.append(page);
                page.clear();
                y = kTop;
            }
            page.append(item);
            y += h;
        };
        for (int t = 0; t < doc.details.size(); ++t) {
            place({Item::Title, t, 0}, kTitleRow, true);
            place({Item::Header, t, 0}, kRow, true);
            for (int r = 0; r < doc.details.at(t).rows.size(); ++r)
                place({Item::Row, t, r}, kRow, false);
        }
        m_pages.append(page);
    }

    int pageCount() const override { return int(m_pages.size()); }

    void drawPage(Canvas &c, int page, const PageInfo &info) const override
    {
        drawContinuationHeader(c, m_doc, QStringLiteral("指数明細"));
        double y = kTop;
        for (const Item &item : m_pages.at(page)) {
            const DetailTable &table = m_doc.details.at(item.table);
            const QList<double> widths = columnWidths(table);
            switch (item.kind) {
            case Item::Title:
                c.text(kMargin, y + 2, kContentWidth, kTitleRow - 2, QStringLiteral("■ ") + table.title,
                       c.font(10, true));
                y += kTitleRow;
                break;
            case Item::Header:
                c.fill(kMargin, y, kContentWidth, kRow, QColor(232, 232, 232));
                drawCells(c, y, widths, table.headers, true, -1);
                y += kRow;
                break;
            case Item::Row:
                drawCells(c, y, widths, table.rows.at(item.row), false, table.firstNumberColumn);
                y += kRow;
                break;
            }
        }
        drawFooter(c, m_doc, info);
    }

private:
    static QList<double> columnWidths(const DetailTable &table)
    {
        // The first column names the item; the others share the rest.
        const int n = int(table.headers.size());
        const double first = n <= 2 ? 50.0 : 40.0;
        QList<double> widths{first};
        for (int i = 1; i < n; ++i)
            widths.append((kContentWidth - first) / (n - 1));
        return widths;
    }

    void drawCells(Canvas &c, double y, const QList<double> &widths, const QStringList &cells, bool header,
                   int firstNumberColumn) const
    {
        double x = kMargin;
        const QFont f = c.font(8.5, header);
        for (int i = 0; i < widths.size(); ++i) {
            const QString text = i < cells.size() ? cells.at(i) : QString();
            const Qt::Alignment align = header ? Qt::AlignCenter
                                        : firstNumberColumn >= 0 && i >= firstNumberColumn
                                            ? Qt::AlignRight | Qt::AlignVCenter
                                            : Qt::AlignLeft | Qt::AlignVCenter;
            c.text(x, y, widths.at(i), kRow, text, f, align);
            c.box(x, y, widths.at(i), kRow, 0.15);
            x += widths.at(i);
        }
    }

    const PrintDocument &m_doc;
    QList<QList<Item>> m_pages;
};

} // namespace

std::unique_ptr<Sheet> makeSubSheet(const PrintDocument &doc)
{
    return std::make_unique<SubSheet>(doc);
}

} // namespace est::print
