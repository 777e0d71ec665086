#include "workbook/estimate_layout.h"

#include "common/number_format.h"
#include "sheet/document_kind.h"

#include <algorithm>
#include <cmath>

// Sheet "D", rows 1 and 2 (T = text, I = 16-bit integer, L = 32-bit integer, B = boolean).
// "derived" cells are written for the print sheets and not read back; the estimate value
// they come from is stored elsewhere.
//
//   A1 T slip number              A2 I upper index of the rows (-1 when there are none)
//   B1 T document title (derived  B2 L labour of the rows (lblKoutin)
//        from O1)                 C2 L parts of the rows (lblBuhin)
//   C1 T honorific: "御中" with   D2 L paint total B (lblPKei)
//        a company name, else     E2 B discount given by its rate (derived)
//        "様" (derived)           F2 L amount received in advance (txtAzukari, as a number)
//   D1 T customer name            G2   not written
//   E1 T customer company         H2 I rounding digits
//   F1 T car name                 I2 I rounding mode
//   G1 T chassis number           J2 I discount rate, whole per cent (0 = none)
//   H1 T first registration       K2 I consumption-tax rate (derived from the company block)
//   I1 T distance run             L2 T remarks
//   J1 T registration number      M2 T estimate date (era form)
//   K1 T model designation        N2 T discount amount as shown
//   L1 B customer is a company    O2 T file-name text
//        (derived)                P2 I number of rows (derived)
//   M1 L work total A (lblSkei)   Q2 I number of paint rows (derived)
//   N1 T class code
//   O1 I document kind (0 to 6)
//   P1 I labour rate
//   Q1 T colour
//   R1 I paint labour rate
//   S1 T engine
//   U1 I revision (1 first, 2 for 修正2 ...), missing in older workbooks
//
// Rows 3 to 5: company block, customer array, vehicle array. Rows 6 on, A to K: the rows.
// L8 I upper index of the non-taxable items, M8 B items present, N8 L their sum; rows 10 on,
// L to N: running number, item name, amount ("#,###").
//
// Sheet "P": A1 "バンパ", B1 B bumper entered, C1 L bumper line count, A2:AE2 bumper lines;
// A3 "付加指数", B3 B additional entered, C3 L additional line count, A4:E9 additional items;
// A10 "基礎加算指数", B10 L its value, D10 "高機能基本指数", E10 T, F10 "高機能材料指数", G10 T;
// A11:K11 and A16:K16 the paint line list; A12 "塗装作業内容", B12 I number of paint rows,
// C12 L paint labour (lblPaint), D12 L paint material (lblZairyo), E12 L bumper painting
// (lblBumpa), F12 T vehicle class key, G12 B painting entered, H12 T material coefficient;
// rows 18 on, A to K: the paint rows.

namespace est::workbook {

namespace {

enum Col { A = 1, B, C, D, E, F, G, H, I, J, K, L, M, N, O, P, Q, R, S, T, U };

constexpr int kFirstRow = kFirstEstimateRowOnD;
constexpr int kFirstNonTaxable = kFirstNonTaxableRowOnD;
constexpr int kFirstPaintRow = kFirstPaintRowOnP;

const QString kHonorificCompany = QStringLiteral("御中");
const QString kHonorificPerson = QStringLiteral("様");

Worksheet &requireSheet(Workbook &book, const char *name)
{
    Worksheet *sheet = book.sheet(QString::fromLatin1(name));
    if (!sheet)
        throw WorkbookError(ErrorKind::NotAnEstimate, QStringLiteral("no sheet \"%1\"").arg(QLatin1String(name)));
    return *sheet;
}

QString at(const QStringList &list, int i)
{
    return i < list.size() ? list.at(i) : QString();
}

std::int16_t clampedInt16(qsizetype value)
{
    return std::int16_t(std::clamp<qsizetype>(value, -32768, 32767));
}

std::int32_t yenOf(const QString &text)
{
    return parseDisplayedYen(text).value_or(0);
}

void writeHeader(Worksheet &d, const Session &s)
{
    const EstimateHeader &h = s.header;
    const SheetFigures &f = s.figures;
    const QStringList &kinds = sheet::documentKinds();
    const bool company = !h.customerCompany.trimmed().isEmpty();
    const auto rate = parseDisplayedNumber(f.discountRate);
    const std::int16_t wholeRate = rate ? roundToInt16(*rate).value_or(0) : std::int16_t(0);
    const auto taxRate = parseDisplayedNumber(at(s.company, 11));

    d.setText(1, A, s.slipNumber);
    d.setText(1, B, h.documentKind >= 0 && h.documentKind < kinds.size() ? kinds.at(h.documentKind) : QString());
    d.setText(1, C, company ? kHonorificCompany : kHonorificPerson);
    d.setText(1, D, h.customerName);
    d.setText(1, E, h.customerCompany);
    d.setText(1, F, h.carName);
    d.setText(1, G, h.chassisNumber);
    d.setText(1, H, h.firstRegistration);
    d.setText(1, I, h.distance);
    d.setText(1, J, h.registration);
    d.setText(1, K, h.modelCode);
    d.setBool(1, L, company);
    d.setInt32(1, M, s.totals.workTotalA);
    d.setText(1, N, h.classCode);
    d.setInt16(1, O, std::int16_t(h.documentKind));
    d.setInt16(1, P, s.labourRate);
    d.setText(1, Q, h.colour);
    d.setInt16(1, R, s.paintLabourRate);
    d.setText(1, S, h.engine);
    // The revision has a cell of its own, apart from the header the print sheets read; a
    // first estimate leaves it empty, so its workbook is the same as before revisions were.
    if (s.revision > 1)
        d.setInt16(1, U, s.revision);
    else if (!std::holds_alternative<std::monostate>(d.value(1, U)))
        d.setText(1, U, QString());

    d.setInt16(2, A, clampedInt16(std::min(s.rows.size(), qsizetype(kMaxEstimateRows)) - 1));
    d.setInt32(2, B, s.totals.labour);
    d.setInt32(2, C, s.totals.parts);
    d.setInt32(2, D, s.totals.paintTotalB);
    d.setBool(2, E, wholeRate > 0);
    d.setInt32(2, F, yenOf(f.advance));
    d.setInt16(2, H, s.roundDigits);
    d.setInt16(2, I, s.roundMode);
    d.setInt16(2, J, wholeRate);
    d.setInt16(2, K, taxRate ? roundToInt16(*taxRate).value_or(0) : std::int16_t(0));
    d.setText(2, L, h.memo);
    d.setText(2, M, s.estimateDate);
    d.setText(2, N, f.discountAmount);
    d.setText(2, O, s.fileNameText);
    d.setInt16(2, P, clampedInt16(std::min(s.rows.size(), qsizetype(kMaxEstimateRows))));
    d.setInt16(2, Q, clampedInt16(s.paint.rows.size()));
}

void writeArrays(Worksheet &d, const Session &s)
{
    for (int i = 0; i < 14; ++i) {
        if (i == 10)
            d.setNumberFormat(3, K, QStringLiteral("@"));   // the account number keeps its leading zeros
        d.setText(3, i + 1, at(s.company, i));
    }
    for (int i = 0; i < 18; ++i)
        d.setText(4, i + 1, at(s.customer, i));
    for (int i = 0; i < 19; ++i)
        d.setText(5, i + 1, at(s.vehicle, i));
}

void writeRows(Worksheet &d, const QList<EstimateRow> &rows, int firstRow)
{
    // Column by column, as the cells were always written; column L is never touched here.
    for (int c = 0; c < EstimateColumnCount; ++c)
        for (int r = 0; r < rows.size(); ++r)
            d.setText(firstRow + r, c + 1, rows.at(r).at(size_t(c)));
}

void writeNonTaxable(Worksheet &d, const NonTaxableItems &items)
{
    const qsizetype count = std::min(items.names.size(), qsizetype(kMaxNonTaxableItems));
    d.setInt16(8, L, clampedInt16(count - 1));
    d.setBool(8, M, items.present);
    d.setInt32(8, N, items.sum);
    for (int j = 0; j < count; ++j) {
        d.setText(kFirstNonTaxable + j, L, QString::number(j + 1));
        d.setText(kFirstNonTaxable + j, M, items.names.at(j));
        d.setText(kFirstNonTaxable + j, N, formatThousands(j < items.amounts.size() ? items.amounts.at(j) : 0));
    }
}

void writePaintSheet(Worksheet &p, const Session &s)
{
    p.setText(1, A, QStringLiteral("バンパ"));
    p.setBool(1, B, s.bumper.entered);
    p.setInt32(1, C, s.bumper.lineCount);
    for (int i = 0; i < 31; ++i)
        p.setText(2, i + 1, at(s.bumper.lines, i));

    p.setText(3, A, QStringLiteral("付加指数"));
    p.setBool(3, B, s.additional.entered);
    p.setInt32(3, C, s.additional.lineCount);
    for (int r = 0; r < kAdditionalItems; ++r)
        for (int c = 0; c < kAdditionalFields; ++c)
            p.setText(r + 4, c + 1, s.additional.items[size_t(r)][size_t(c)]);

    const PaintState &paint = s.paint;
    p.setText(10, A, QStringLiteral("基礎加算指数"));
    p.setInt32(10, B, paint.baseAdditionIndex);
    p.setText(10, D, QStringLiteral("高機能基本指数"));
    p.setText(10, E, paint.highFunctionBaseIndex);
    p.setText(10, F, QStringLiteral("高機能材料指数"));
    p.setText(10, G, paint.highFunctionMaterialIndex);
    for (int i = 0; i < 11; ++i)
        p.setText(11, i + 1, at(paint.lines, i));

    p.setText(12, A, QStringLiteral("塗装作業内容"));
    p.setInt16(12, B, clampedInt16(std::min(paint.rows.size(), qsizetype(kMaxPaintRows))));
    p.setInt32(12, C, s.totals.paintLabour);
    p.setInt32(12, D, s.totals.paintMaterial);
    p.setInt32(12, E, s.totals.bumperPaint);
    p.setText(12, F, paint.vehicleClass);
    p.setBool(12, G, paint.entered);
    p.setText(12, H, paint.materialCoefficient);

    for (int i = 0; i < 11; ++i)
        p.setText(16, i + 1, at(paint.lines, i));
    writeRows(p, paint.rows.mid(0, kMaxPaintRows), kFirstPaintRow);
}

// Reading: each value converts to its type or is left as it was.
class CellReader
{
public:
    explicit CellReader(const SheetCells &sheet) : m_sheet(sheet) {}
    CellValue value(int row, int column) const { return m_sheet.value(row, column); }
    QString text(int row, int column) const { return cellText(value(row, column)); }
    void read(int row, int column, QString &target) const { target = text(row, column); }
    void read(int row, int column, std::int16_t &target) const
    {
        if (const auto v = cellInt16(value(row, column)))
            target = *v;
    }
    void read(int row, int column, std::int32_t &target) const
    {
        if (const auto v = cellInt32(value(row, column)))
            target = *v;
    }
    void read(int row, int column, bool &target) const
    {
        if (const auto v = cellBool(value(row, column)))
            target = *v;
    }
    // A count that sizes a table: it must convert and lie within [low, high].
    int count(int row, int column, int low, int high, const char *what) const
    {
        const auto v = cellInt16(value(row, column));
        if (!v || *v < low || *v > high)
            throw WorkbookError(ErrorKind::NotAnEstimate,
                                QStringLiteral("%1 (%2) is out of range").arg(QLatin1String(what), text(row, column)));
        return *v;
    }

private:
    const SheetCells &m_sheet;
};

const SheetCells &requireCells(BookCells &book, const char *name)
{
    const SheetCells *sheet = book.cells(QString::fromLatin1(name));
    if (!sheet)
        throw WorkbookError(ErrorKind::NotAnEstimate, QStringLiteral("no sheet \"%1\"").arg(QLatin1String(name)));
    return *sheet;
}

void readHeader(const CellReader &d, Session &s)
{
    EstimateHeader &h = s.header;
    s.slipNumber = reformatDigits(d.text(1, A), 9);
    const qsizetype title = sheet::documentKinds().indexOf(d.text(1, B));
    if (title >= 0)
        h.documentKind = int(title);
    d.read(1, D, h.customerName);
    d.read(1, E, h.customerCompany);
    d.read(1, F, h.carName);
    d.read(1, G, h.chassisNumber);
    d.read(1, H, h.firstRegistration);
    d.read(1, I, h.distance);
    d.read(1, J, h.registration);
    d.read(1, K, h.modelCode);
    d.read(1, M, s.totals.workTotalA);
    d.read(1, N, h.classCode);
    std::int16_t kind = std::int16_t(h.documentKind);
    d.read(1, O, kind);
    if (kind >= 0 && kind < sheet::documentKinds().size())
        h.documentKind = kind;
    d.read(1, P, s.labourRate);
    d.read(1, Q, h.colour);
    d.read(1, R, s.paintLabourRate);
    d.read(1, S, h.engine);
    std::int16_t revision = 1;
    d.read(1, U, revision);
    s.revision = std::clamp<std::int16_t>(revision, 1, kMaxRevision);
    const sheet::DocumentTexts texts = sheet::documentTexts(h.documentKind);
    h.openingText = texts.opening;
    h.closingText = texts.closing;
    h.amountCaption = texts.amountCaption;

    d.read(2, B, s.totals.labour);
    d.read(2, C, s.totals.parts);
    d.read(2, D, s.totals.paintTotalB);
    std::int32_t advance = yenOf(s.figures.advance);
    d.read(2, F, advance);
    s.figures.advance = formatThousands(advance);
    d.read(2, H, s.roundDigits);
    d.read(2, I, s.roundMode);
    const auto shownRate = parseDisplayedNumber(s.figures.discountRate);
    std::int16_t rate = shownRate ? roundToInt16(*shownRate).value_or(0) : std::int16_t(0);
    d.read(2, J, rate);
    s.figures.discountRate = rate != 0 ? QString::number(rate) : QString();
    s.figures.rememberedRate = rate > 0 ? QString::number(rate) : QStringLiteral("0");
    d.read(2, L, h.memo);
    d.read(2, M, s.estimateDate);
    // An amount typed by hand is stored as typed; the sheet shows it as an amount again.
    s.figures.discountAmount = reformatThousands(d.text(2, N));
    d.read(2, O, s.fileNameText);
}

void readArrays(const CellReader &d, Session &s)
{
    s.company = QStringList(14);
    for (int i = 0; i < 14; ++i)
        s.company[i] = d.text(3, i + 1);
    s.figures.taxRate = s.company.at(11);
    s.customer = QStringList(18);
    for (int i = 0; i < 18; ++i)
        s.customer[i] = d.text(4, i + 1);
    s.vehicle = QStringList(19);
    for (int i = 0; i < 19; ++i)
        s.vehicle[i] = i == 9 ? reformatDigits(d.text(5, J), 5) : d.text(5, i + 1);
}

QList<EstimateRow> readRows(const CellReader &sheet, int firstRow, int count, bool reformat)
{
    QList<EstimateRow> rows(count);
    for (int r = 0; r < count; ++r) {
        for (int c = 0; c < EstimateColumnCount; ++c) {
            QString text = sheet.text(firstRow + r, c + 1);
            if (reformat && c == ColIndex)
                text = reformatFixed2(text);
            else if (reformat && (c == ColLabour || c == ColUnitPrice || c == ColPartsAmount))
                text = reformatThousands(text);
            rows[r][size_t(c)] = std::move(text);
        }
    }
    return rows;
}

void readNonTaxable(const CellReader &d, Session &s)
{
    const int upper = d.count(8, L, -1, kMaxNonTaxableItems - 1, "L8");
    NonTaxableItems &items = s.nonTaxable;
    NonTaxableItems read;
    read.present = items.present;
    read.sum = items.sum;
    items = std::move(read);
    d.read(8, M, items.present);
    d.read(8, N, items.sum);
    for (int j = 0; j <= upper; ++j) {
        items.names.append(d.text(kFirstNonTaxable + j, M));
        const auto amount = numberInText(d.text(kFirstNonTaxable + j, N));
        items.amounts.append(amount ? roundToYen(*amount).value_or(0) : 0);
    }
    items.count = std::int16_t(upper + 1);
    s.figures.nonTaxable = formatThousands(items.sum);
}

void readPaintSheet(const CellReader &p, Session &s)
{
    BumperState &bumper = s.bumper;
    p.read(1, B, bumper.entered);
    p.read(1, C, bumper.lineCount);
    bumper.lines = QStringList(31);
    for (int i = 0; i < 31; ++i)
        bumper.lines[i] = p.text(2, i + 1);

    AdditionalState &additional = s.additional;
    p.read(3, B, additional.entered);
    p.read(3, C, additional.lineCount);
    for (int r = 0; r < kAdditionalItems; ++r)
        for (int c = 0; c < kAdditionalFields; ++c)
            additional.items[size_t(r)][size_t(c)] = p.text(r + 4, c + 1);

    PaintState &paint = s.paint;
    p.read(10, B, paint.baseAdditionIndex);
    p.read(10, E, paint.highFunctionBaseIndex);
    p.read(10, G, paint.highFunctionMaterialIndex);
    paint.lines = QStringList(11);
    for (int i = 0; i < 11; ++i)
        paint.lines[i] = p.text(11, i + 1);
    const int paintRows = p.count(12, B, 0, kMaxPaintRows, "P!B12");
    p.read(12, C, s.totals.paintLabour);
    p.read(12, D, s.totals.paintMaterial);
    p.read(12, E, s.totals.bumperPaint);
    p.read(12, F, paint.vehicleClass);
    p.read(12, G, paint.entered);
    p.read(12, H, paint.materialCoefficient);
    // Row 16 repeats row 11 and is not read.
    paint.rows = readRows(p, kFirstPaintRow, paintRows, false);
}

std::optional<double> numberOf(const QString &text)
{
    if (text.size() > kMaxNumberText || isBlank(text))
        return std::nullopt;
    return numberInText(text);
}

} // namespace

QString reformatFixed2(const QString &text)
{
    const auto n = numberOf(text);
    return n ? formatFixed2(*n) : text;
}

QString reformatThousands(const QString &text)
{
    const auto n = numberOf(text);
    if (!n || std::abs(*n) > 9e15)
        return text;
    return formatThousands(std::llround(*n));
}

QString reformatDigits(const QString &text, int digits)
{
    const auto n = numberOf(text);
    if (!n || std::abs(*n) > 9e15)
        return text;
    const long long whole = std::llround(*n);
    const QString number = QString::number(std::llabs(whole)).rightJustified(digits, QLatin1Char('0'));
    return whole < 0 ? QLatin1Char('-') + number : number;
}

void writeEstimate(Workbook &book, const Session &session)
{
    Worksheet &d = requireSheet(book, "D");
    Worksheet &p = requireSheet(book, "P");
    writeHeader(d, session);
    writeArrays(d, session);
    writeRows(d, session.rows.mid(0, kMaxEstimateRows), kFirstRow);
    writeNonTaxable(d, session.nonTaxable);
    writePaintSheet(p, session);
}

void readEstimate(BookCells &book, Session &session)
{
    const CellReader d(requireCells(book, "D"));
    const CellReader p(requireCells(book, "P"));
    Session s = session;
    const int upper = d.count(2, A, -1, kMaxEstimateRows - 1, "A2");
    readHeader(d, s);
    readArrays(d, s);
    s.rows = readRows(d, kFirstRow, upper + 1, true);
    readNonTaxable(d, s);
    readPaintSheet(p, s);
    session = std::move(s);
}

} // namespace est::workbook
