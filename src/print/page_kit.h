#pragma once
// Drawing on an A4 page in millimetres, and the pieces every layout shares: the shop's
// block, the customer, the amount box, the vehicle grid, the rows table, totals blocks,
// page numbers and the shop-copy mark. Layout modules arrange these pieces.

#include "common/estimate_row.h"
#include "print/print_document.h"

#include <QFont>
#include <QList>
#include <QPainter>
#include <QString>
#include <memory>

namespace est::print {

inline constexpr double kPageWidth = 210.0;
inline constexpr double kPageHeight = 297.0;
inline constexpr double kMargin = 12.0;
inline constexpr double kContentWidth = kPageWidth - 2 * kMargin;
inline constexpr double kFooterTop = kPageHeight - kMargin - 5.0;   // page number line

// A painter in millimetres on a device of any resolution.
class Canvas
{
public:
    explicit Canvas(QPainter &painter);

    QPainter &painter() { return m_p; }
    QRectF rect(double x, double y, double w, double h) const;
    QFont font(double points, bool bold = false, bool serif = false) const;

    // Text inside the box; a text wider than the box is narrowed (down to half its width),
    // then elided, so it never runs into the next box.
    void text(double x, double y, double w, double h, const QString &text, const QFont &font,
              Qt::Alignment align = Qt::AlignLeft | Qt::AlignVCenter);
    void line(double x1, double y1, double x2, double y2, double width = 0.2);
    void box(double x, double y, double w, double h, double width = 0.25);
    void fill(double x, double y, double w, double h, const QColor &colour);
    // Width of the text in millimetres.
    double textWidth(const QString &text, const QFont &font) const;

private:
    QPainter &m_p;
    double m_unit;   // device units per millimetre
};

// Position of the page in the printed set.
struct PageInfo
{
    int number = 1;
    int total = 1;
    bool shopCopy = false;
};

// One printed sheet kind (main document, paint sheet, sub sheet): its pages, drawn on demand.
class Sheet
{
public:
    virtual ~Sheet() = default;
    virtual int pageCount() const = 0;
    virtual void drawPage(Canvas &canvas, int page, const PageInfo &info) const = 0;
};

std::unique_ptr<Sheet> makeMainSheetA(const PrintDocument &doc);
std::unique_ptr<Sheet> makeMainSheetB(const PrintDocument &doc);
std::unique_ptr<Sheet> makePaintSheet(const PrintDocument &doc, bool compact);
std::unique_ptr<Sheet> makeSubSheet(const PrintDocument &doc);
// The photos, four to a page with their captions or one large on each page.
std::unique_ptr<Sheet> makePhotoSheet(const PrintDocument &doc, bool large);

// Rows of a table split into pages: `first` rows fit on the first page, `other` on the
// rest; the tail (totals block), `tail` rows high, follows the last row on its page or
// gets a page of its own. A row is never cut.
struct PageSlice
{
    int begin = 0;
    int end = 0;
    bool tail = false;
};
QList<PageSlice> paginate(int rows, int first, int other, int tail);

// The columns of the rows table, widths in millimetres.
struct TableColumn
{
    QString header;
    int source;        // EstimateColumn
    double width;
    Qt::Alignment align;
};
QList<TableColumn> rowColumns(double totalWidth);

struct TableStyle
{
    double rowHeight = 6.0;
    double headerHeight = 6.5;
    double fontSize = 8.5;
};
// The header row; returns its height.
double drawTableHeader(Canvas &c, double x, double y, const QList<TableColumn> &columns, const TableStyle &style);
// Rows [begin, end) under the header; returns the height drawn.
double drawTableRows(Canvas &c, double x, double y, const QList<TableColumn> &columns, const QList<EstimateRow> &rows,
                     int begin, int end, const TableStyle &style);

// The shop's block; returns its height.
double drawShopBlock(Canvas &c, double x, double y, double w, const PrintDocument &doc, bool compact);
// Customer with honorific, underlined; returns the height.
double drawCustomer(Canvas &c, double x, double y, double w, const PrintDocument &doc, double size);
// The amount box: caption and amount due, with "（税込）".
void drawAmountBox(Canvas &c, double x, double y, double w, double h, const PrintDocument &doc);
// The vehicle fields in a grid of `columns` pairs; returns the height.
double drawVehicleGrid(Canvas &c, double x, double y, double w, const PrintDocument &doc, int columns,
                       double rowHeight);
// A ruled list of captioned amounts; returns the height.
double drawAmountLines(Canvas &c, double x, double y, double w, const QList<AmountLine> &lines, double rowHeight,
                       double fontSize);
// The title with wide letter spacing, centred in the width; returns the height.
double drawTitle(Canvas &c, double x, double y, double w, const QString &title, double size);
// Slip number and date, right-aligned; returns the height.
double drawSlipAndDate(Canvas &c, double x, double y, double w, const PrintDocument &doc, double size);
// The header of a page after the first: title, customer, slip number; returns its bottom.
double drawContinuationHeader(Canvas &c, const PrintDocument &doc, const QString &subtitle);
// Page number "2 / 5" at the foot, the shop's name beside it, and the shop-copy mark.
void drawFooter(Canvas &c, const PrintDocument &doc, const PageInfo &info);
// The remarks and the non-taxable items beside the totals; returns the height.
double notesHeight(const PrintDocument &doc, double fontSize);
double drawNotes(Canvas &c, double x, double y, double w, const PrintDocument &doc, double fontSize);

// Height of the amount lines block for the given number of lines.
inline double amountLinesHeight(int lines, double rowHeight) { return lines * rowHeight; }

} // namespace est::print
