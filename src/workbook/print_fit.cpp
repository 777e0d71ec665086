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
        for (const DataReference &r : dataReferences(formula)) {
            reads.reads = true;
            reads.allUnused = reads.allUnused
                              && unusedDataCell(r.sheet == 'D' ? kDataD : kDataP, r.cell.row, r.cell.column, used);
        }
    }
    for (const auto &[row, reads] : rows)
        sheet.setRowHidden(row, reads.reads && reads.allUnused);
}

bool isAsciiUpper(QChar c) { return c >= QLatin1Char('A') && c <= QLatin1Char('Z'); }
bool isAsciiDigit(QChar c) { return c >= QLatin1Char('0') && c <= QLatin1Char('9'); }

// Characters that would make the sheet name before "!" a longer one ("見積D").
bool continuesAName(QChar c)
{
    return c.isLetterOrNumber() || c == QLatin1Char('_') || c == QLatin1Char('.');
}

} // namespace

QList<DataReference> dataReferences(QStringView formula)
{
    // A scan from each "!" rather than a regular expression: saving runs this on every formula
    // of every print sheet.
    QList<DataReference> found;
    const qsizetype n = formula.size();
    for (qsizetype bang = formula.indexOf(QLatin1Char('!')); bang >= 0;
         bang = formula.indexOf(QLatin1Char('!'), bang + 1)) {
        qsizetype at = bang - 1;
        if (at >= 0 && formula[at] == QLatin1Char('\''))
            --at;
        if (at < 0 || (formula[at] != QLatin1Char('D') && formula[at] != QLatin1Char('P')))
            continue;
        if (at > 0 && formula[at - 1] != QLatin1Char('\'') && continuesAName(formula[at - 1]))
            continue;
        const char sheet = char(formula[at].unicode());
        qsizetype i = bang + 1;
        if (i < n && formula[i] == QLatin1Char('$'))
            ++i;
        int column = 0;
        int letters = 0;
        for (; i < n && isAsciiUpper(formula[i]) && letters < 4; ++i, ++letters)
            column = column * 26 + (formula[i].unicode() - 'A' + 1);
        if (letters == 0 || letters > 3)
            continue;
        if (i < n && formula[i] == QLatin1Char('$'))
            ++i;
        int row = 0;
        int digits = 0;
        for (; i < n && isAsciiDigit(formula[i]) && digits < 7; ++i, ++digits)
            row = row * 10 + (formula[i].unicode() - '0');
        if (digits == 0 || row < 1 || row > kMaxRows || column > kMaxColumns)
            continue;
        found.append(DataReference{sheet, CellAddress{row, column}});
    }
    return found;
}

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
