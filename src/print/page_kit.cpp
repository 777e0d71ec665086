#include "print/page_kit.h"

#include "print/print_fonts.h"
#include "sheet/company_block.h"

#include <QFontMetricsF>
#include <QPaintDevice>
#include <QPen>
#include <algorithm>
#include <cmath>

namespace est::print {

namespace {
constexpr double kPad = 1.0;   // space between a box's border and its text
const QColor kHeaderFill(232, 232, 232);
const QColor kStrongFill(242, 242, 242);
} // namespace

Canvas::Canvas(QPainter &painter) : m_p(painter), m_unit(painter.device()->logicalDpiX() / 25.4) {}

QRectF Canvas::rect(double x, double y, double w, double h) const
{
    return QRectF(x * m_unit, y * m_unit, w * m_unit, h * m_unit);
}

QFont Canvas::font(double points, bool bold, bool serif) const
{
    QFont f;
    f.setFamilies(serif ? printFonts().serif : printFonts().sans);
    f.setPointSizeF(points);
    f.setBold(bold);
    f.setStyleHint(serif ? QFont::Serif : QFont::SansSerif);
    // Shaped Latin runs take glyph variants that the PDF's text map lacks, so digits in
    // "TEL 000-111-2222" could not be searched or copied; Japanese needs no shaping.
    f.setStyleStrategy(QFont::PreferNoShaping);
    return f;
}

double Canvas::textWidth(const QString &text, const QFont &font) const
{
    return QFontMetricsF(font, m_p.device()).horizontalAdvance(text) / m_unit;
}

void Canvas::text(double x, double y, double w, double h, const QString &text, const QFont &font,
                  Qt::Alignment align)
{
    if (text.isEmpty())
        return;
    QFont f = font;
    const double room = std::max(0.0, w - 2 * kPad);
    QString shown = text;
    const double width = textWidth(text, font);
    if (width > room && width > 0) {
        const int stretch = std::max(50, int(std::floor(100.0 * room / width)));
        f.setStretch(stretch);
        const QFontMetricsF metrics(f, m_p.device());
        if (metrics.horizontalAdvance(text) / m_unit > room)
            shown = metrics.elidedText(text, Qt::ElideRight, room * m_unit);
    }
    m_p.setFont(f);
    m_p.setPen(Qt::black);
    m_p.drawText(rect(x + kPad, y, room, h), int(align) | Qt::TextSingleLine, shown);
}

void Canvas::line(double x1, double y1, double x2, double y2, double width)
{
    m_p.setPen(QPen(Qt::black, width * m_unit));
    m_p.drawLine(QPointF(x1 * m_unit, y1 * m_unit), QPointF(x2 * m_unit, y2 * m_unit));
}

void Canvas::box(double x, double y, double w, double h, double width)
{
    m_p.setPen(QPen(Qt::black, width * m_unit));
    m_p.setBrush(Qt::NoBrush);
    m_p.drawRect(rect(x, y, w, h));
}

void Canvas::fill(double x, double y, double w, double h, const QColor &colour)
{
    m_p.fillRect(rect(x, y, w, h), colour);
}

QList<PageSlice> paginate(int rows, int first, int other, int tail)
{
    QList<PageSlice> pages;
    first = std::max(1, first);
    other = std::max(1, other);
    int begin = 0;
    int capacity = first;
    for (;;) {
        const int take = std::min(capacity, rows - begin);
        pages.append({begin, begin + take, false});
        begin += take;
        if (begin >= rows) {
            if (capacity - take >= tail) {
                pages.last().tail = true;
            } else {
                // The totals never stand alone: a few of the last rows go with them.
                PageSlice &last = pages.last();
                const int carried = std::clamp(std::min(other - tail, last.end - last.begin - 1), 0, 5);
                last.end -= carried;
                pages.append({rows - carried, rows, true});
            }
            return pages;
        }
        capacity = other;
    }
}

QList<TableColumn> rowColumns(double totalWidth)
{
    // Proportions of the sheet's grid columns; the quantity column is narrower on paper.
    QList<TableColumn> columns = {
        {QStringLiteral("No"), ColNo, 8, Qt::AlignCenter},
        {QStringLiteral("部　位"), ColSection, 17, Qt::AlignLeft | Qt::AlignVCenter},
        {QStringLiteral("作　業　部　位"), ColPart, 43, Qt::AlignLeft | Qt::AlignVCenter},
        {QStringLiteral("部　品　番　号"), ColPartNumber, 28, Qt::AlignLeft | Qt::AlignVCenter},
        {QStringLiteral("作　業"), ColWork, 15, Qt::AlignCenter},
        {QStringLiteral("指　数"), ColIndex, 12, Qt::AlignRight | Qt::AlignVCenter},
        {QStringLiteral("工　賃"), ColLabour, 17, Qt::AlignRight | Qt::AlignVCenter},
        {QStringLiteral("部品単価"), ColUnitPrice, 17, Qt::AlignRight | Qt::AlignVCenter},
        {QStringLiteral("個数"), ColQuantity, 9, Qt::AlignRight | Qt::AlignVCenter},
        {QStringLiteral("部品計"), ColPartsAmount, 20, Qt::AlignRight | Qt::AlignVCenter},
    };
    double sum = 0;
    for (const TableColumn &c : columns)
        sum += c.width;
    for (TableColumn &c : columns)
        c.width = c.width * totalWidth / sum;
    return columns;
}

double drawTableHeader(Canvas &c, double x, double y, const QList<TableColumn> &columns, const TableStyle &style)
{
    const QFont f = c.font(style.fontSize, true);
    double cx = x;
    double total = 0;
    for (const TableColumn &col : columns)
        total += col.width;
    c.fill(x, y, total, style.headerHeight, kHeaderFill);
    for (const TableColumn &col : columns) {
        c.text(cx, y, col.width, style.headerHeight, col.header, f, Qt::AlignCenter);
        c.line(cx, y, cx, y + style.headerHeight);
        cx += col.width;
    }
    c.line(cx, y, cx, y + style.headerHeight);
    c.line(x, y, cx, y, 0.35);
    c.line(x, y + style.headerHeight, cx, y + style.headerHeight, 0.35);
    return style.headerHeight;
}

double drawTableRows(Canvas &c, double x, double y, const QList<TableColumn> &columns, const QList<EstimateRow> &rows,
                     int begin, int end, const TableStyle &style)
{
    const QFont f = c.font(style.fontSize);
    double total = 0;
    for (const TableColumn &col : columns)
        total += col.width;
    double cy = y;
    for (int r = begin; r < end; ++r) {
        const EstimateRow &row = rows.at(r);
        double cx = x;
        for (const TableColumn &col : columns) {
            c.text(cx, cy, col.width, style.rowHeight, row.at(size_t(col.source)).trimmed(), f, col.align);
            cx += col.width;
        }
        cy += style.rowHeight;
        c.line(x, cy, x + total, cy, 0.1);
    }
    // Column rules in one stroke per column for the whole block.
    double cx = x;
    for (const TableColumn &col : columns) {
        c.line(cx, y, cx, cy, 0.15);
        cx += col.width;
    }
    c.line(cx, y, cx, cy, 0.15);
    if (end > begin)
        c.line(x, cy, x + total, cy, 0.35);
    return cy - y;
}

double drawShopBlock(Canvas &c, double x, double y, double w, const PrintDocument &doc, bool compact)
{
    const ShopInfo &s = doc.shop;
    const double small = compact ? 7.5 : 8.0;
    const double lh = compact ? 3.8 : 4.2;
    double cy = y;
    auto line = [&](const QString &text, const QFont &f, double h) {
        if (text.trimmed().isEmpty())
            return;
        c.text(x, cy, w, h, text, f);
        cy += h;
    };
    line(s.item(sheet::CompanyComment), c.font(small - 0.5), lh);
    line(s.item(sheet::CompanyName), c.font(compact ? 11 : 13, true), compact ? 5.5 : 6.5);
    line(s.extras.representative, c.font(small + 0.5), lh + 0.3);
    line(s.item(sheet::CompanyAddress), c.font(small), lh);
    QStringList phone;
    if (!s.item(sheet::CompanyTel).trimmed().isEmpty())
        phone << QStringLiteral("TEL ") + s.item(sheet::CompanyTel);
    if (!s.item(sheet::CompanyFax).trimmed().isEmpty())
        phone << QStringLiteral("FAX ") + s.item(sheet::CompanyFax);
    line(phone.join(QStringLiteral("　")), c.font(small), lh);
    if (doc.printRegistration)
        line(QStringLiteral("登録番号　") + s.extras.registrationNumber, c.font(small, true), lh);
    if (s.printAccount() && !s.item(sheet::CompanyBank).trimmed().isEmpty()) {
        QString bank = QStringLiteral("振込先　") + s.item(sheet::CompanyBank) + QStringLiteral("　")
                       + s.item(sheet::CompanyBankBranch);
        const QString branchNo = sheet::formatBranchNumber(s.item(sheet::CompanyBranchNo));
        if (!branchNo.isEmpty())
            bank += QStringLiteral("（店番 ") + branchNo + QStringLiteral("）");
        line(bank, c.font(small), lh);
        line(s.item(sheet::CompanyAccountType) + QStringLiteral("　") + s.item(sheet::CompanyAccountNo)
                 + QStringLiteral("　名義 ") + s.item(sheet::CompanyAccountHolder),
             c.font(small), lh);
    }
    return cy - y;
}

double drawCustomer(Canvas &c, double x, double y, double w, const PrintDocument &doc, double size)
{
    const double h = size * 0.55;
    double cy = y;
    const QFont big = c.font(size, true);
    const QFont hon = c.font(size * 0.85);
    const double honWidth = 12;
    auto entry = [&](const QString &name, const QString &honorific) {
        c.text(x, cy, w - honWidth, h, name, big, Qt::AlignLeft | Qt::AlignBottom);
        c.text(x + w - honWidth, cy, honWidth, h, honorific, hon, Qt::AlignRight | Qt::AlignBottom);
        cy += h;
        c.line(x, cy + 0.6, x + w, cy + 0.6, 0.35);
        cy += 2.0;
    };
    if (!doc.customerCompany.isEmpty()) {
        entry(doc.customerCompany, QStringLiteral("御中"));
        if (!doc.customerName.isEmpty())
            entry(doc.customerName, QStringLiteral("様"));
    } else {
        entry(doc.customerName, doc.honorific.isEmpty() ? QStringLiteral("様") : doc.honorific);
    }
    return cy - y;
}

void drawAmountBox(Canvas &c, double x, double y, double w, double h, const PrintDocument &doc)
{
    const double captionWidth = w * 0.34;
    c.fill(x, y, captionWidth, h, kHeaderFill);
    c.box(x, y, w, h, 0.5);
    c.line(x + captionWidth, y, x + captionWidth, y + h, 0.3);
    c.text(x, y, captionWidth, h, doc.amountCaption, c.font(11, true), Qt::AlignCenter);
    c.text(x + captionWidth, y, w - captionWidth - 16, h, QStringLiteral("¥") + doc.amountDue + QStringLiteral("-"),
           c.font(17, true), Qt::AlignRight | Qt::AlignVCenter);
    c.text(x + w - 16, y, 16, h, QStringLiteral("（税込）"), c.font(7.5), Qt::AlignCenter);
}

double drawVehicleGrid(Canvas &c, double x, double y, double w, const PrintDocument &doc, int columns,
                       double rowHeight)
{
    const int rows = int((doc.vehicle.size() + columns - 1) / columns);
    const double pairWidth = w / columns;
    const double captionWidth = std::min(17.0, pairWidth * 0.4);
    const QFont cap = c.font(7.5);
    const QFont val = c.font(8.5);
    for (int i = 0; i < doc.vehicle.size(); ++i) {
        const double cx = x + (i % columns) * pairWidth;
        const double cy = y + (i / columns) * rowHeight;
        c.fill(cx, cy, captionWidth, rowHeight, kHeaderFill);
        c.text(cx, cy, captionWidth, rowHeight, doc.vehicle.at(i).caption, cap, Qt::AlignCenter);
        c.text(cx + captionWidth, cy, pairWidth - captionWidth, rowHeight, doc.vehicle.at(i).value, val);
        c.line(cx + captionWidth, cy, cx + captionWidth, cy + rowHeight, 0.15);
        c.line(cx, cy, cx, cy + rowHeight, 0.15);
    }
    for (int r = 0; r <= rows; ++r)
        c.line(x, y + r * rowHeight, x + w, y + r * rowHeight, 0.15);
    c.box(x, y, w, rows * rowHeight, 0.3);
    return rows * rowHeight;
}

double drawAmountLines(Canvas &c, double x, double y, double w, const QList<AmountLine> &lines, double rowHeight,
                       double fontSize)
{
    const double captionWidth = w * 0.55;
    double cy = y;
    for (const AmountLine &l : lines) {
        if (l.strong)
            c.fill(x, cy, w, rowHeight, kStrongFill);
        c.text(x, cy, captionWidth, rowHeight, l.caption, c.font(fontSize, l.strong));
        c.text(x + captionWidth, cy, w - captionWidth - 1, rowHeight, l.amount, c.font(fontSize, l.strong),
               Qt::AlignRight | Qt::AlignVCenter);
        c.line(x, cy + rowHeight, x + w, cy + rowHeight, l.strong ? 0.3 : 0.1);
        cy += rowHeight;
    }
    c.line(x + captionWidth, y, x + captionWidth, cy, 0.15);
    c.box(x, y, w, cy - y, 0.35);
    return cy - y;
}

double drawTitle(Canvas &c, double x, double y, double w, const QString &title, double size)
{
    QFont f = c.font(size, true, true);
    f.setLetterSpacing(QFont::PercentageSpacing, 140);
    const double h = size * 0.6;
    c.text(x, y, w, h, title, f, Qt::AlignCenter);
    const double tw = std::min(w, c.textWidth(title, f) + 10);
    const double lx = x + (w - tw) / 2;
    c.line(lx, y + h + 0.5, lx + tw, y + h + 0.5, 0.3);
    c.line(lx, y + h + 1.3, lx + tw, y + h + 1.3, 0.3);
    return h + 2;
}

double drawSlipAndDate(Canvas &c, double x, double y, double w, const PrintDocument &doc, double size)
{
    const QFont f = c.font(size);
    const double h = size * 0.5;
    c.text(x, y, w, h, QStringLiteral("No. ") + doc.slipNumber, f, Qt::AlignRight | Qt::AlignVCenter);
    c.text(x, y + h, w, h, doc.date, f, Qt::AlignRight | Qt::AlignVCenter);
    return 2 * h;
}

double drawContinuationHeader(Canvas &c, const PrintDocument &doc, const QString &subtitle)
{
    const double y = kMargin;
    QString title = doc.title;
    if (!subtitle.isEmpty())
        title += QStringLiteral("　") + subtitle;
    c.text(kMargin, y, 90, 7, title, c.font(12, true, true));
    QString customer = doc.customerCompany.isEmpty()
                           ? doc.customerName + QStringLiteral(" ") + (doc.honorific.isEmpty() ? QStringLiteral("様") : doc.honorific)
                           : doc.customerCompany + QStringLiteral(" 御中");
    c.text(kMargin + 90, y, 56, 7, customer, c.font(9), Qt::AlignLeft | Qt::AlignVCenter);
    c.text(kMargin + 146, y, kContentWidth - 146, 7, QStringLiteral("No. ") + doc.slipNumber, c.font(8.5),
           Qt::AlignRight | Qt::AlignVCenter);
    c.line(kMargin, y + 7.5, kMargin + kContentWidth, y + 7.5, 0.35);
    return y + 10;
}

void drawFooter(Canvas &c, const PrintDocument &doc, const PageInfo &info)
{
    const double y = kFooterTop;
    c.text(kMargin, y, 70, 5, doc.shop.item(sheet::CompanyName), c.font(7));
    c.text(kMargin + 70, y, kContentWidth - 140, 5, QStringLiteral("%1 / %2").arg(info.number).arg(info.total),
           c.font(8.5), Qt::AlignCenter);
    if (!doc.revision.isEmpty())
        c.text(kMargin + kContentWidth - 70, y, 70, 5, doc.revision, c.font(9, true), Qt::AlignRight | Qt::AlignVCenter);
    if (info.shopCopy) {
        // The shop's copy carries "控" in a box at the top right corner of every page.
        const double bx = kPageWidth - kMargin - 11, by = 3.5;
        c.box(bx, by, 11, 8, 0.5);
        c.text(bx, by, 11, 8, QStringLiteral("控"), c.font(14, true, true), Qt::AlignCenter);
    }
}

double notesHeight(const PrintDocument &doc, double fontSize)
{
    const double lh = fontSize * 0.55;
    double h = 0;
    if (!doc.nonTaxableItems.isEmpty())
        h += lh + lh * doc.nonTaxableItems.size() + 2;
    if (!doc.memo.trimmed().isEmpty())
        h += lh + lh * 2.2;
    return h;
}

double drawNotes(Canvas &c, double x, double y, double w, const PrintDocument &doc, double fontSize)
{
    double cy = y;
    const double lh = fontSize * 0.55;
    if (!doc.nonTaxableItems.isEmpty()) {
        c.text(x, cy, w, lh, QStringLiteral("非課税項目"), c.font(fontSize, true));
        cy += lh;
        cy += drawAmountLines(c, x, cy, w, doc.nonTaxableItems, lh, fontSize);
        cy += 2;
    }
    if (!doc.memo.trimmed().isEmpty()) {
        c.text(x, cy, w, lh, QStringLiteral("備考"), c.font(fontSize, true));
        cy += lh;
        const double h = lh * 2.2;
        c.box(x, cy, w, h, 0.2);
        c.painter().setFont(c.font(fontSize));
        c.painter().drawText(c.rect(x + 1, cy + 0.5, w - 2, h - 1), Qt::TextWordWrap | Qt::AlignLeft | Qt::AlignTop,
                             doc.memo.trimmed());
        cy += h;
    }
    return cy - y;
}

} // namespace est::print
