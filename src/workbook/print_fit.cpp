#include "workbook/print_fit.h"

#include "workbook/estimate_layout.h"

#include <QRegularExpression>

#include <algorithm>

namespace est::workbook {

namespace {

const QString kDataD = QStringLiteral("D");
const QString kDataP = QStringLiteral("P");

struct Used
{
    qsizetype estimateRows;
    qsizetype paintRows;
    qsizetype nonTaxableItems;
};

// Whether a cell of a data sheet holds part of a table the estimate leaves empty.
bool unusedDataCell(const QString &sheet, int row, int column, const Used &used)
{
    constexpr int lastTableColumn = 11;   // K
    if (sheet == kDataD && column <= lastTableColumn && row >= kFirstEstimateRowOnD)
        return row - kFirstEstimateRowOnD >= used.estimateRows;
    if (sheet == kDataD && column >= 12 && column <= 14 && row >= kFirstNonTaxableRowOnD)
        return row - kFirstNonTaxableRowOnD >= used.nonTaxableItems;
    if (sheet == kDataP && column <= lastTableColumn && row >= kFirstPaintRowOnP)
        return row - kFirstPaintRowOnP >= used.paintRows;
    return false;
}

// References to a cell of "D" or "P" in a formula ("D!A6", "'P'!$B$20").
const QRegularExpression &dataReference()
{
    static const QRegularExpression pattern(
        QStringLiteral("(?<![A-Za-z0-9_.])'?([DP])'?!\\$?([A-Z]{1,3})\\$?([0-9]{1,7})"));
    return pattern;
}

void hideUnusedRows(Worksheet &sheet, const Used &used)
{
    // Per row: whether it reads a data cell, and whether every data cell it reads is unused.
    struct RowReads
    {
        bool reads = false;
        bool allUnused = true;
    };
    std::vector<std::pair<int, RowReads>> rows;
    for (const auto &[row, formula] : sheet.formulas()) {
        if (rows.empty() || rows.back().first != row)
            rows.push_back({row, {}});
        RowReads &reads = rows.back().second;
        for (const QRegularExpressionMatch &m : dataReference().globalMatch(formula)) {
            const auto address = parseCellAddress((m.captured(2) + m.captured(3)).toLatin1());
            if (!address)
                continue;
            reads.reads = true;
            reads.allUnused = reads.allUnused && unusedDataCell(m.captured(1), address->row, address->column, used);
        }
    }
    for (const auto &[row, reads] : rows)
        sheet.setRowHidden(row, reads.reads && reads.allUnused);
}

} // namespace

void fitPrintSheets(Workbook &book, const Session &session)
{
    if (!book.sheet(kDataD) || !book.sheet(kDataP))
        return;
    const Used used{std::min(session.rows.size(), qsizetype(kMaxEstimateRows)),
                    std::min(session.paint.rows.size(), qsizetype(kMaxPaintRows)),
                    std::min(session.nonTaxable.names.size(), qsizetype(kMaxNonTaxableItems))};
    for (const QString &name : book.sheetNames()) {
        if (name == kDataD || name == kDataP)
            continue;
        Worksheet *sheet = book.sheet(name);
        if (!sheet)
            continue;
        hideUnusedRows(*sheet, used);
        if (book.printArea(name).isEmpty()) {
            static const QRegularExpression address(QStringLiteral("([A-Z]+)([0-9]+)"));
            book.setPrintArea(name, QString::fromLatin1(sheet->usedRange()).replace(address, QStringLiteral("$\\1$\\2")));
        }
    }
    book.setSheetHidden(kDataD, true);
    book.setSheetHidden(kDataP, true);
}

} // namespace est::workbook
