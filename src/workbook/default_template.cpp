#include "workbook/default_template.h"

#include "common/estimate_row.h"
#include "workbook/workbook.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <xlsxwriter.h>

#include <string>

namespace est::workbook {

namespace {

// Rows of sheet "D" that hold estimate rows, and rows of sheet "P" that hold paint rows.
constexpr int kFirstEstimateRow = 6;
constexpr int kFirstPaintRow = 18;
constexpr int kPaintRowsShown = 73;
constexpr int kNonTaxableShown = 99;   // all the items the shop's list can hold

std::string col(int zeroBased)
{
    std::string s;
    for (int c = zeroBased + 1; c > 0; c = (c - 1) / 26)
        s.insert(s.begin(), char('A' + (c - 1) % 26));
    return s;
}

std::string ref(const char *sheet, int zeroBasedColumn, int row)
{
    return std::string(sheet) + "!" + col(zeroBasedColumn) + std::to_string(row);
}

// A reference that shows an empty cell as empty text rather than 0.
std::string textOf(const std::string &reference)
{
    return "=" + reference + "&\"\"";
}

struct Formats
{
    lxw_format *title, *heading, *label, *text, *textBox, *amount, *amountBox, *bigAmount, *small, *centre;
};

Formats makeFormats(lxw_workbook *wb)
{
    auto base = [wb](double size) {
        lxw_format *f = workbook_add_format(wb);
        format_set_font_name(f, "Noto Sans CJK JP");
        format_set_font_size(f, size);
        format_set_align(f, LXW_ALIGN_VERTICAL_CENTER);
        return f;
    };
    Formats f{};
    f.title = base(20);
    format_set_bold(f.title);
    format_set_align(f.title, LXW_ALIGN_CENTER);
    format_set_bottom(f.title, LXW_BORDER_DOUBLE);
    f.heading = base(10);
    format_set_bold(f.heading);
    format_set_align(f.heading, LXW_ALIGN_CENTER);
    format_set_border(f.heading, LXW_BORDER_THIN);
    format_set_bg_color(f.heading, 0xDDEBF7);
    f.label = base(10);
    format_set_bold(f.label);
    f.text = base(10);
    f.textBox = base(10);
    format_set_border(f.textBox, LXW_BORDER_THIN);
    f.amount = base(10);
    format_set_num_format(f.amount, "#,###");
    format_set_align(f.amount, LXW_ALIGN_RIGHT);
    f.amountBox = base(10);
    format_set_num_format(f.amountBox, "#,###");
    format_set_align(f.amountBox, LXW_ALIGN_RIGHT);
    format_set_border(f.amountBox, LXW_BORDER_THIN);
    f.bigAmount = base(16);
    format_set_bold(f.bigAmount);
    format_set_num_format(f.bigAmount, "\"¥\"#,##0");
    format_set_align(f.bigAmount, LXW_ALIGN_RIGHT);
    format_set_bottom(f.bigAmount, LXW_BORDER_MEDIUM);
    f.small = base(8);
    f.centre = base(10);
    format_set_align(f.centre, LXW_ALIGN_CENTER);
    format_set_border(f.centre, LXW_BORDER_THIN);
    return f;
}

void formula(lxw_worksheet *ws, int row, int column, const std::string &text, lxw_format *format)
{
    worksheet_write_formula(ws, lxw_row_t(row), lxw_col_t(column), text.c_str(), format);
}

void label(lxw_worksheet *ws, int row, int column, const char *text, lxw_format *format)
{
    worksheet_write_string(ws, lxw_row_t(row), lxw_col_t(column), text, format);
}

// Half to even, as the estimate sheet rounds amounts (CLng).
std::string halfEven(const std::string &x)
{
    return "IF(ABS((" + x + ")-INT(" + x + "))=0.5,2*ROUND((" + x + ")/2,0),ROUND(" + x + ",0))";
}

// The amounts below the rows, computed from "D" and "P" by the estimate sheet's rules: A + B,
// the discount (the amount as shown, rounded half to even), the total after it, tax on that
// total (on A + B when there is no discount or the total after it is zero, which the sheet
// shows as empty), rounded half to even, non-taxable items, advance.
// Captions fill the two columns left of `valueColumn`. Returns the cell of the amount due.
std::string writeTotals(lxw_worksheet *ws, int top, int valueColumn, const Formats &f)
{
    const int labelColumn = valueColumn - 2;
    const std::string vc = col(valueColumn);
    auto at = [&](int i) { return vc + std::to_string(top + i + 1); };
    struct Line
    {
        const char *caption;
        std::string formula;
    };
    const std::string gokei = at(7), discount = at(9), after = at(10), tax = at(11), withTax = at(12),
                      nonTaxable = at(13), grand = at(14), advance = at(15);
    const std::string noDiscount = "TRIM(D!N2)=\"\"";
    const std::string base = "IF(OR(" + noDiscount + "," + gokei + "-" + discount + "=0)," + gokei + "," + after + ")";
    const std::string n = "(D!K2*" + base + ")";
    const Line lines[] = {
        {"工賃計", "=D!B2"},
        {"部品計", "=D!C2"},
        {"作業計(A)", "=D!M1"},
        {"塗装工賃計", "=P!C12"},
        {"塗装材料費", "=P!D12"},
        {"バンパー塗装", "=P!E12"},
        {"塗装計(B)", "=D!D2"},
        {"合計金額(A+B)", "=D!M1+D!D2"},
        {"値引率(%)", "=IF(D!J2>0,D!J2,\"\")"},
        {"値引き金額", "=IF(" + noDiscount + ",0," + halfEven("IFERROR(VALUE(SUBSTITUTE(D!N2,\",\",\"\")),0)") + ")"},
        {"値引後金額", "=IF(" + noDiscount + ",\"\"," + gokei + "-" + discount + ")"},
        {"消費税", "=IF(MOD(" + n + ",100)=50,(" + n + "-50)/100+MOD((" + n + "-50)/100,2),ROUND(" + n +
                       "/100,0))"},
        {"税込金額", "=" + base + "+" + tax},
        {"非課税金額", "=D!N8"},
        {"総合計金額", "=" + withTax + "+" + nonTaxable},
        {"前受金額", "=D!F2"},
        {"請求金額", "=" + grand + "-" + advance},
    };
    int i = 0;
    for (const Line &line : lines) {
        worksheet_merge_range(ws, lxw_row_t(top + i), lxw_col_t(labelColumn), lxw_row_t(top + i),
                              lxw_col_t(labelColumn + 1), line.caption, f.textBox);
        formula(ws, top + i, valueColumn, line.formula, f.amountBox);
        ++i;
    }
    formula(ws, top + 11, labelColumn, "=\"消費税(\"&D!K2&\"%)\"", f.textBox);
    return at(16);
}

// Opening sentence and amount caption follow the document kind (D!O1), as on the sheet.
const char *const kOpening =
    "=IF(D!O1<=2,\"下記の通りお見積もりいたします。\",IF(D!O1=5,\"下記の通り納品いたします。\","
    "\"下記の通り御請求いたします。\"))";
const char *const kCaption = "=IF(D!O1<=2,\"御見積金額\",IF(D!O1=5,\"合計金額\",\"御請求金額\"))";

// Layout A shows every column of the rows; layout B leaves out the part number and puts
// the company block under the customer.
void writeMainSheet(lxw_worksheet *ws, const Formats &f, bool layoutB)
{
    worksheet_set_paper(ws, 9);   // A4
    worksheet_set_margins(ws, 0.4, 0.4, 0.5, 0.5);
    worksheet_fit_to_pages(ws, 1, 0);
    // Amount columns hold ¥99,999,999 (a number too wide for its column shows as "###").
    const double widths[] = {4, 9, 26, 16, 8, 7, 12, 12, 6, 12};
    // Columns of sheet "D" shown, in order.
    std::vector<int> source = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9};
    const char *headers[] = {"No", "部 位", "作 業 部 位", "部 品 番 号", "作 業", "指数", "工 賃", "部品単価",
                             "個数", "部品計"};
    if (layoutB)
        source = {0, 1, 2, 4, 5, 6, 7, 8, 9};
    const int lastColumn = int(source.size()) - 1;
    for (int c = 0; c <= lastColumn; ++c)
        worksheet_set_column(ws, lxw_col_t(c), lxw_col_t(c), widths[source[size_t(c)]] * (layoutB && c == 2 ? 1.5 : 1),
                             nullptr);

    worksheet_merge_range(ws, 0, 0, 0, lxw_col_t(lastColumn), "", f.title);
    formula(ws, 0, 0, "=D!B1", f.title);
    worksheet_set_row(ws, 0, 32, nullptr);
    formula(ws, 1, lastColumn - 2, "=\"No. \"&D!A1", f.text);
    formula(ws, 2, lastColumn - 2, textOf("D!M2"), f.text);

    formula(ws, 3, 0, "=IF(D!E1=\"\",\"\",D!E1&\"　御中\")", f.label);
    formula(ws, 4, 0, "=IF(D!D1=\"\",\"\",D!D1&\"　様\")", f.label);
    formula(ws, 6, 0, kOpening, f.text);
    formula(ws, 7, 0, kCaption, f.label);

    // Company block.
    const int companyColumn = layoutB ? 0 : lastColumn - 3;
    const int companyTop = layoutB ? 17 : 3;
    const char *const company[] = {
        "=D!B3&\"\"", "=D!C3&\"\"", "=D!D3&\"\"", "=\"TEL \"&D!E3&\"　FAX \"&D!F3",
        "=IF(OR(D!N3=\"\",D!N3=\"0\",D!N3=\"False\"),\"\",D!G3&\" \"&D!H3&\" \"&D!J3&\" \"&D!K3)",
        "=IF(OR(D!N3=\"\",D!N3=\"0\",D!N3=\"False\"),\"\",\"口座名義 \"&D!M3)",
    };
    for (int i = 0; i < 6; ++i)
        formula(ws, companyTop + i, companyColumn, company[i], i == 1 ? f.label : f.text);

    // Vehicle: three caption and value pairs a row, each over columns wide enough for it.
    struct Pair
    {
        int captionFirst, captionLast, valueFirst, valueLast;
    };
    const Pair pairsA[] = {{0, 1, 2, 2}, {3, 3, 4, 5}, {6, 6, 7, 9}};
    const Pair pairsB[] = {{0, 1, 2, 2}, {3, 4, 5, 5}, {6, 6, 7, 8}};
    const Pair *pairs = layoutB ? pairsB : pairsA;
    const int vehicleTop = 9;
    const std::pair<const char *, const char *> vehicle[] = {
        {"車名", "D!F1"},     {"登録番号", "D!J1"}, {"型式", "D!K1"},     {"車台番号", "D!G1"}, {"初度登録", "D!H1"},
        {"走行距離", "D!I1"}, {"カラー", "D!Q1"},   {"類別", "D!N1"},     {"エンジン", "D!S1"},
    };
    for (int i = 0; i < 9; ++i) {
        const auto row = lxw_row_t(vehicleTop + i / 3);
        const Pair &p = pairs[i % 3];
        if (p.captionFirst != p.captionLast)
            worksheet_merge_range(ws, row, lxw_col_t(p.captionFirst), row, lxw_col_t(p.captionLast), "", f.label);
        label(ws, int(row), p.captionFirst, vehicle[i].first, f.label);
        if (p.valueFirst != p.valueLast)
            worksheet_merge_range(ws, row, lxw_col_t(p.valueFirst), row, lxw_col_t(p.valueLast), "", f.text);
        formula(ws, int(row), p.valueFirst, textOf(vehicle[i].second), f.text);
    }
    formula(ws, 12, 0, "=\"備考：\"&D!L2", f.text);

    // The rows, with the amount due at the top.
    const int headerRow = layoutB ? 24 : 14;
    for (int c = 0; c <= lastColumn; ++c)
        label(ws, headerRow, c, headers[source[size_t(c)]], f.heading);
    worksheet_repeat_rows(ws, lxw_row_t(headerRow), lxw_row_t(headerRow));
    for (int i = 0; i < kMaxEstimateRows; ++i) {
        const int dRow = kFirstEstimateRow + i;
        for (int c = 0; c <= lastColumn; ++c) {
            const int s = source[size_t(c)];
            const bool number = s >= ColIndex && s != ColQuantity;
            formula(ws, headerRow + 1 + i, c, textOf(ref("D", s, dRow)), number ? f.amountBox : f.textBox);
        }
    }
    const int totalsTop = headerRow + 2 + kMaxEstimateRows;
    const std::string due = writeTotals(ws, totalsTop, lastColumn, f);
    formula(ws, 7, 2, "=" + due, f.bigAmount);

    // Non-taxable items, beside the totals (saving hides the rows of items the estimate lacks).
    const int amountColumn = lastColumn - 3;
    label(ws, totalsTop, 0, "非課税項目", f.label);
    for (int i = 0; i < kNonTaxableShown; ++i) {
        formula(ws, totalsTop + 1 + i, 1, textOf(ref("D", 12, 10 + i)), f.text);
        formula(ws, totalsTop + 1 + i, amountColumn, textOf(ref("D", 13, 10 + i)), f.amount);
    }
    formula(ws, totalsTop + 2 + kNonTaxableShown, 0, "=\"ご査収のほどよろしくお願いいたします。\"", f.text);
}

void writePaintSheet(lxw_worksheet *ws, const Formats &f, bool layoutB)
{
    worksheet_set_paper(ws, 9);
    worksheet_fit_to_pages(ws, 1, 0);
    const double widths[] = {4, 9, 30, 8, 8, 7, 12, 12, 12, 9, 6};
    for (int c = 0; c < 11; ++c)
        worksheet_set_column(ws, lxw_col_t(c), lxw_col_t(c), widths[c], nullptr);
    worksheet_merge_range(ws, 0, 0, 0, 9, "－　塗　装　内　容　－", f.title);
    formula(ws, 1, 0, "=\"お客様：\"&D!D1&\"　車名：\"&D!F1&\"　カラー：\"&D!Q1", f.text);
    formula(ws, 2, 0, "=\"車両区分：\"&P!F12&\"　材料係数：\"&P!H12", f.text);
    const char *const headers[] = {"No", "部位", "部品名", "部品", "範囲", "指数", "工賃", "工賃計", "材料費", "", ""};
    const int headerRow = 4;
    const int columns = layoutB ? 8 : 9;
    for (int c = 0; c < columns; ++c)
        label(ws, headerRow, c, headers[c], f.heading);
    for (int i = 0; i < kPaintRowsShown; ++i)
        for (int c = 0; c < columns; ++c)
            formula(ws, headerRow + 1 + i, c, textOf(ref("P", c, kFirstPaintRow + i)),
                    c >= 5 ? f.amountBox : f.textBox);
    const int top = headerRow + 2 + kPaintRowsShown;
    const std::pair<const char *, const char *> sums[] = {
        {"塗装工賃計", "=P!C12"}, {"塗装材料費", "=P!D12"}, {"バンパー塗装", "=P!E12"}, {"塗装計(B)", "=D!D2"}};
    for (int i = 0; i < 4; ++i) {
        worksheet_merge_range(ws, lxw_row_t(top + i), 5, lxw_row_t(top + i), 6, sums[i].first, f.textBox);
        formula(ws, top + i, 7, sums[i].second, f.amountBox);
    }
}

void writeSubSheet(lxw_worksheet *ws, const Formats &f)
{
    worksheet_set_paper(ws, 9);
    worksheet_set_column(ws, 0, 0, 18, nullptr);
    worksheet_set_column(ws, 1, 4, 12, nullptr);
    worksheet_merge_range(ws, 0, 0, 0, 4, "塗装指数明細", f.title);
    label(ws, 2, 0, "付加指数", f.label);
    for (int r = 0; r < 6; ++r)
        for (int c = 0; c < 5; ++c)
            formula(ws, 3 + r, c, textOf(ref("P", c, 4 + r)), f.textBox);
    label(ws, 10, 0, "基礎加算指数", f.label);
    formula(ws, 10, 1, "=P!B10", f.amount);
    label(ws, 11, 0, "高機能基本指数", f.label);
    formula(ws, 11, 1, textOf("P!E10"), f.text);
    label(ws, 12, 0, "高機能材料指数", f.label);
    formula(ws, 12, 1, textOf("P!G10"), f.text);
    label(ws, 14, 0, "バンパー", f.label);
    for (int i = 0; i < 31; ++i)
        formula(ws, 15 + i / 5, i % 5, textOf(ref("P", i, 2)), f.textBox);
}

void writeDataSheets(lxw_worksheet *d, lxw_worksheet *p, const Formats &f)
{
    worksheet_set_column(d, 0, 18, 12, nullptr);
    worksheet_set_column(p, 0, 30, 12, nullptr);
    // The labels of sheet "P"; saving writes them again.
    label(p, 0, 0, "バンパ", f.text);
    label(p, 2, 0, "付加指数", f.text);
    label(p, 9, 0, "基礎加算指数", f.text);
    label(p, 9, 3, "高機能基本指数", f.text);
    label(p, 9, 5, "高機能材料指数", f.text);
    label(p, 11, 0, "塗装作業内容", f.text);
}

} // namespace

bool writeDefaultTemplate(const QString &path, QString *error)
{
    const QFileInfo info(path);
    if (!QDir().mkpath(info.absolutePath())) {
        if (error)
            *error = QStringLiteral("cannot create %1").arg(info.absolutePath());
        return false;
    }
    const QString temporary = path + QStringLiteral(".new");
    const QByteArray name = QFile::encodeName(temporary);
    lxw_workbook *wb = workbook_new(name.constData());
    if (!wb) {
        if (error)
            *error = QStringLiteral("cannot write %1").arg(temporary);
        return false;
    }
    const Formats f = makeFormats(wb);
    lxw_worksheet *mainA = workbook_add_worksheet(wb, "PrintMainA");
    lxw_worksheet *paintA = workbook_add_worksheet(wb, "PaintA");
    lxw_worksheet *mainB = workbook_add_worksheet(wb, "PrintMain B");
    lxw_worksheet *paintB = workbook_add_worksheet(wb, "PaintB");
    lxw_worksheet *sub = workbook_add_worksheet(wb, "PrintSub");
    lxw_worksheet *d = workbook_add_worksheet(wb, "D");
    lxw_worksheet *p = workbook_add_worksheet(wb, "P");
    writeMainSheet(mainA, f, false);
    writePaintSheet(paintA, f, false);
    writeMainSheet(mainB, f, true);
    writePaintSheet(paintB, f, true);
    writeSubSheet(sub, f);
    writeDataSheets(d, p, f);
    worksheet_activate(mainA);
    const lxw_error result = workbook_close(wb);
    if (result != LXW_NO_ERROR) {
        QFile::remove(temporary);
        if (error)
            *error = QString::fromUtf8(lxw_strerror(result));
        return false;
    }
    // The writer stores a result of 0 with every formula; without results, spreadsheet
    // programs compute the print sheets from the data when they open an estimate.
    try {
        auto book = Workbook::open(temporary);
        for (const char *name : kPrintSheets)
            book->sheet(QString::fromUtf8(name))->clearFormulaResults();
        book->save(path);
    } catch (const WorkbookError &e) {
        QFile::remove(temporary);
        if (error)
            *error = e.detail();
        return false;
    }
    QFile::remove(temporary);
    return true;
}

QByteArray defaultTemplateBytes()
{
    static const QByteArray bytes = [] {
        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("newfile.xlsx"));
        QFile file(path);
        if (!writeDefaultTemplate(path) || !file.open(QIODevice::ReadOnly))
            return QByteArray();
        return file.readAll();
    }();
    return bytes;
}

} // namespace est::workbook
