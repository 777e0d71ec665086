// The printed "修正内容比較表": on the first page the title, the customer and vehicle, both
// estimates' slip numbers and dates and the shop's block; then the changed work rows, the
// changed paint lines and the totals, each table continued with its header on later pages.

#include "compare/comparison_report.h"

#include <algorithm>

namespace est::compare {

namespace {

using print::Canvas;
using print::DetailTable;
using print::kContentWidth;
using print::kMargin;

constexpr double kRowHeight = 5.2;
constexpr double kHeadingHeight = 7.5;
constexpr double kFirstPageTop = kMargin + 78.0;   // below the first page's header block
constexpr double kBottom = print::kFooterTop - 2.0;

QList<double> columnWidths(const DetailTable &table)
{
    if (table.headers.size() == 4)
        return {66, 40, 40, 40};
    return {10, 14, 44, 26, 13, 7, 12, 15, 17, 10, 18};
}

// One printed line of the stream: a table's title, its header, one of its rows, or the
// note that a table has no rows.
struct Item
{
    enum Kind { Heading, Header, Row, Nothing } kind;
    int table;
    int row = -1;
    double height() const { return kind == Heading ? kHeadingHeight : kRowHeight; }
};

class ComparisonSheet : public print::Sheet
{
public:
    explicit ComparisonSheet(const ComparisonReport &report)
        : m_report(report), m_tables(comparisonTables(report.comparison))
    {
        m_continued = report.after;
        m_continued.title = kComparisonTitle;
        paginate();
    }

    int pageCount() const override { return int(m_pages.size()); }

    void drawPage(Canvas &c, int page, const print::PageInfo &info) const override
    {
        double y = page == 0 ? drawFirstHeader(c) : print::drawContinuationHeader(c, m_continued, QString());
        for (const Item &item : m_pages.at(page)) {
            drawItem(c, y, item);
            y += item.height();
        }
        print::drawFooter(c, m_report.after, info);
    }

private:
    void paginate()
    {
        QList<Item> stream;
        for (int t = 0; t < m_tables.size(); ++t) {
            stream.append({Item::Heading, t});
            if (m_tables.at(t).rows.isEmpty()) {
                stream.append({Item::Nothing, t});
                continue;
            }
            stream.append({Item::Header, t});
            for (int r = 0; r < m_tables.at(t).rows.size(); ++r)
                stream.append({Item::Row, t, r});
        }
        const double continuedTop = kMargin + 10.0;
        QList<Item> page;
        double y = kFirstPageTop;
        for (qsizetype i = 0; i < stream.size(); ++i) {
            const Item &item = stream.at(i);
            // A title keeps its header and first row with it.
            const double needed = item.kind == Item::Heading ? kHeadingHeight + 2 * kRowHeight : item.height();
            if (y + needed > kBottom && !page.isEmpty()) {
                m_pages.append(page);
                page.clear();
                y = continuedTop;
                if (item.kind == Item::Row) {
                    page.append({Item::Header, item.table});
                    y += kRowHeight;
                }
            }
            page.append(item);
            y += item.height();
        }
        m_pages.append(page);
    }

    double drawFirstHeader(Canvas &c) const
    {
        double y = kMargin;
        y += print::drawTitle(c, kMargin, y, kContentWidth, kComparisonTitle, 18) + 5;
        const double leftWidth = 104;
        double left = y + print::drawCustomer(c, kMargin, y, leftWidth, m_report.after, 12) + 2;
        const QFont small = c.font(8.5);
        const QString vehicle = QStringList{m_report.after.vehicle.value(0).value, m_report.after.vehicle.value(1).value}
                                    .join(QStringLiteral("　"))
                                    .trimmed();
        if (!vehicle.isEmpty()) {
            c.text(kMargin, left, leftWidth, 5, QStringLiteral("車両　") + vehicle, small);
            left += 6;
        }
        left += 1;
        c.box(kMargin, left, leftWidth, 12, 0.25);
        c.text(kMargin + 2, left + 0.5, leftWidth - 4, 5.5,
               sideLine(QStringLiteral("修正前"), m_report.before, m_report.beforeName), small);
        c.text(kMargin + 2, left + 6, leftWidth - 4, 5.5,
               sideLine(QStringLiteral("修正後"), m_report.after, m_report.afterName), small);
        const double right = y + print::drawShopBlock(c, kMargin + leftWidth + 8, y, kContentWidth - leftWidth - 8,
                                                      m_report.after, true);
        Q_UNUSED(right);
        return kFirstPageTop;
    }

    void drawCells(Canvas &c, double y, const DetailTable &table, const QStringList &cells, bool header) const
    {
        const QList<double> widths = columnWidths(table);
        const QFont f = c.font(8, header);
        double x = kMargin;
        for (int i = 0; i < widths.size(); ++i) {
            const bool number = !header && table.firstNumberColumn >= 0 && i >= table.firstNumberColumn;
            const Qt::Alignment align = header ? Qt::AlignCenter
                                               : (number ? Qt::AlignRight | Qt::AlignVCenter : Qt::AlignLeft | Qt::AlignVCenter);
            c.text(x + 0.8, y, widths.at(i) - 1.6, kRowHeight, cells.value(i), f, align);
            x += widths.at(i);
        }
        c.line(kMargin, y + kRowHeight, kMargin + kContentWidth, y + kRowHeight, header ? 0.3 : 0.1);
    }

    void drawItem(Canvas &c, double y, const Item &item) const
    {
        const DetailTable &table = m_tables.at(item.table);
        switch (item.kind) {
        case Item::Heading:
            c.text(kMargin, y + 1.5, kContentWidth, kHeadingHeight - 1.5, QStringLiteral("■ ") + table.title,
                   c.font(10, true));
            break;
        case Item::Header:
            c.fill(kMargin, y, kContentWidth, kRowHeight, QColor(235, 235, 235));
            drawCells(c, y, table, table.headers, true);
            break;
        case Item::Row:
            drawCells(c, y, table, table.rows.at(item.row), false);
            break;
        case Item::Nothing:
            c.text(kMargin + 2, y, kContentWidth, kRowHeight, QStringLiteral("（変更なし）"), c.font(8.5));
            break;
        }
    }

    const ComparisonReport &m_report;
    QList<DetailTable> m_tables;
    print::PrintDocument m_continued;
    QList<QList<Item>> m_pages;
};

} // namespace

std::unique_ptr<print::Sheet> makeComparisonSheet(const ComparisonReport &report)
{
    return std::make_unique<ComparisonSheet>(report);
}

print::Render comparisonRender(const ComparisonReport &report)
{
    auto kept = std::make_shared<ComparisonReport>(report);
    auto sheet = std::shared_ptr<print::Sheet>(makeComparisonSheet(*kept));
    return [kept, sheet](QPagedPaintDevice &device) { return print::renderSheets(device, {sheet.get()}); };
}

QString writeComparisonPdf(const ComparisonReport &report, const QString &path)
{
    return print::writePdfFile(path, kComparisonTitle + QStringLiteral(" ") + report.after.slipNumber,
                               comparisonRender(report));
}

} // namespace est::compare
