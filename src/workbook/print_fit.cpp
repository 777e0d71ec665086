#include "workbook/print_fit.h"

#include "workbook/estimate_layout.h"
#include "workbook/worksheet_impl.h"
#include "workbook/xml_part.h"

#include <QRegularExpression>

#include <algorithm>
#include <limits>

namespace est::workbook {

namespace {

const QString kDataD = QStringLiteral("D");
const QString kDataP = QStringLiteral("P");
constexpr int kNever = -1;   // a count is never at most this: the row is never hidden

// The table of "D" or "P" a data cell belongs to (0 rows, 1 paint rows, 2 non-taxable items)
// and its position there; -1 for cells outside the tables.
std::pair<int, int> tablePosition(char sheet, const CellAddress &cell)
{
    constexpr int lastTableColumn = 11;   // K
    if (sheet == 'D' && cell.column <= lastTableColumn && cell.row >= kFirstEstimateRowOnD)
        return {0, cell.row - kFirstEstimateRowOnD};
    if (sheet == 'D' && cell.column >= 12 && cell.column <= 14 && cell.row >= kFirstNonTaxableRowOnD)
        return {2, cell.row - kFirstNonTaxableRowOnD};
    if (sheet == 'P' && cell.column <= lastTableColumn && cell.row >= kFirstPaintRowOnP)
        return {1, cell.row - kFirstPaintRowOnP};
    return {-1, 0};
}

// A row that reads data is hidden when every data cell it reads lies beyond what the estimate
// fills: while each count is at most the first position it reads in that table.
UsedRows hiddenUpTo(const std::vector<QString> &formulas)
{
    constexpr int unread = std::numeric_limits<int>::max();
    UsedRows upTo{unread, unread, unread};
    bool reads = false;
    for (const QString &formula : formulas) {
        for (const DataReference &r : dataReferences(formula)) {
            const auto [table, position] = tablePosition(r.sheet, r.cell);
            if (table < 0)
                return {kNever, kNever, kNever};
            upTo[size_t(table)] = std::min(upTo[size_t(table)], position);
            reads = true;
        }
    }
    return reads ? upTo : UsedRows{kNever, kNever, kNever};
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

UsedRows usedRows(const Session &session)
{
    return {int(std::min(session.rows.size(), qsizetype(kMaxEstimateRows))),
            int(std::min(session.paint.rows.size(), qsizetype(kMaxPaintRows))),
            int(std::min(session.nonTaxable.names.size(), qsizetype(kMaxNonTaxableItems)))};
}

PrintSheetFitter::PrintSheetFitter(Workbook &book)
{
    m_hasDataSheets = book.sheet(kDataD) && book.sheet(kDataP);
    if (!m_hasDataSheets)
        return;
    static const QRegularExpression address(QStringLiteral("([A-Z]+)([0-9]+)"));
    static const char *const marker = "estimateRowsGoHere";
    for (const QString &name : book.sheetNames()) {
        Worksheet *worksheet = name == kDataD || name == kDataP ? nullptr : book.sheet(name);
        if (!worksheet)
            continue;
        // Saved workbooks carry no formula results: spreadsheet programs compute them afresh.
        worksheet->clearFormulaResults();
        Worksheet::Impl &impl = *worksheet->d;
        impl.updateDimension();
        Sheet sheet;
        sheet.name = name;
        if (book.printArea(name).isEmpty())
            sheet.printArea = QString::fromLatin1(worksheet->usedRange()).replace(address, QStringLiteral("$\\1$\\2"));
        for (const Worksheet::Impl::RowEntry &entry : impl.rows) {
            std::vector<QString> formulas;
            for (const Worksheet::Impl::CellEntry &c : entry.cells)
                if (const pugi::xml_node f = detail::childElement(c.node, "f"))
                    formulas.push_back(QString::fromUtf8(f.text().get()));
            Row row;
            pugi::xml_node node = entry.node;
            if (formulas.empty()) {
                row.shown = row.hidden = detail::serialiseNode(node);
            } else {
                row.fitted = true;
                row.hiddenUpTo = hiddenUpTo(formulas);
                node.remove_attribute("hidden");
                row.shown = detail::serialiseNode(node);
                node.append_attribute("hidden") = "1";
                row.hidden = detail::serialiseNode(node);
            }
            sheet.rows.push_back(std::move(row));
            impl.sheetData.remove_child(node);
        }
        impl.rows.clear();
        impl.sheetData.append_child(marker);
        const QByteArray text = detail::serialise(impl.doc);
        const QByteArray markup = QByteArray("<") + marker + "/>";
        const qsizetype at = text.indexOf(markup);
        if (at < 0)
            detail::fail(ErrorKind::Damaged, name);
        sheet.head = deflatePiece(QByteArrayView(text).first(at));
        sheet.tail = deflatePiece(QByteArrayView(text).sliced(at + markup.size()));
        sheet.pieces.resize((sheet.rows.size() + kPieceRows - 1) / kPieceRows);
        m_sheets.push_back(std::move(sheet));
    }
}

QStringList PrintSheetFitter::sheetNames() const
{
    QStringList names;
    for (const Sheet &sheet : m_sheets)
        names.append(sheet.name);
    return names;
}

DeflatedPart PrintSheetFitter::fitted(Sheet &sheet, const UsedRows &used)
{
    DeflatedPart out = sheet.head;
    for (size_t piece = 0; piece < sheet.pieces.size(); ++piece) {
        const size_t first = piece * kPieceRows;
        const size_t end = std::min(sheet.rows.size(), first + kPieceRows);
        quint64 hidden = 0;
        for (size_t i = first; i < end; ++i) {
            const Row &row = sheet.rows[i];
            if (row.fitted && used[0] <= row.hiddenUpTo[0] && used[1] <= row.hiddenUpTo[1] && used[2] <= row.hiddenUpTo[2])
                hidden |= quint64(1) << (i - first);
        }
        auto &compressed = sheet.pieces[piece];
        auto found = compressed.find(hidden);
        if (found == compressed.end()) {
            QByteArray text;
            for (size_t i = first; i < end; ++i)
                text += hidden & (quint64(1) << (i - first)) ? sheet.rows[i].hidden : sheet.rows[i].shown;
            found = compressed.emplace(hidden, deflatePiece(text)).first;
        }
        appendPiece(out, found->second);
    }
    appendPiece(out, sheet.tail);
    return finishPieces(std::move(out));
}

void PrintSheetFitter::fit(Workbook &book, const UsedRows &used)
{
    if (!m_hasDataSheets)
        return;
    for (Sheet &sheet : m_sheets) {
        book.setDeflatedSheet(sheet.name, fitted(sheet, used));
        if (!sheet.printArea.isEmpty())
            book.setPrintArea(sheet.name, sheet.printArea);
    }
    book.setSheetHidden(kDataD, true);
    book.setSheetHidden(kDataP, true);
}

} // namespace est::workbook
