#pragma once
// A sheet made of a first-page header, a rows table continued over as many pages as it
// needs (the table header repeated on each), and a tail (totals) after the last row.
// The main documents and the paint sheets are such sheets; they differ in their header,
// tail and table style.

#include "print/page_kit.h"

namespace est::print {

class TableSheet : public Sheet
{
public:
    int pageCount() const override;
    void drawPage(Canvas &c, int page, const PageInfo &info) const override;

protected:
    TableSheet(const PrintDocument &doc, const QList<EstimateRow> &rows, TableStyle style);
    // Call at the end of the derived constructor, when the heights below are known.
    void layOut();

    // Where the table starts on the first page (the header above is drawn by drawFirstHeader).
    virtual double firstTableTop() const = 0;
    virtual void drawFirstHeader(Canvas &c) const = 0;
    // The subtitle of continuation pages ("塗装明細"), empty for the main document.
    virtual QString subtitle() const { return QString(); }
    virtual double tailHeight() const = 0;
    virtual void drawTail(Canvas &c, double y) const = 0;

    const PrintDocument &m_doc;
    const QList<EstimateRow> &m_rows;
    TableStyle m_style;

private:
    QList<PageSlice> m_pages;
};

// The bottom limit of the table area.
inline constexpr double kTableBottom = kFooterTop - 2.0;
inline constexpr double kContinuationTableTop = kMargin + 10.0;

} // namespace est::print
