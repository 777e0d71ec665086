#include "reports/sales_workbook.h"

#include "reports/library_columns.h"
#include "sheet/document_kind.h"
#include "workbook/estimate_files.h"
#include "workbook/workbook.h"

#include <limits>

namespace est::reports {

namespace {

using namespace sales_layout;

const QString kAmountFormat = QStringLiteral("#,##0");

struct TooLarge
{
};

class Writer
{
public:
    explicit Writer(workbook::Worksheet &sheet) : m_sheet(sheet) {}
    void text(int row, int column, const QString &value) { m_sheet.setText(row, column, value); }
    void amount(int row, int column, qint64 value)
    {
        if (value > std::numeric_limits<std::int32_t>::max() || value < std::numeric_limits<std::int32_t>::min())
            throw TooLarge{};
        m_sheet.setInt32(row, column, std::int32_t(value));
        m_sheet.setNumberFormat(row, column, kAmountFormat);
    }
    void sums(int row, int firstColumn, const SalesSums &s)
    {
        const qint64 values[] = {s.totalA, s.totalB, s.discount, s.tax, s.nonTaxable, s.total};
        for (int i = 0; i < 6; ++i)
            amount(row, firstColumn + i, values[i]);
    }

private:
    workbook::Worksheet &m_sheet;
};

workbook::Worksheet &sheetOf(workbook::Workbook &book, const QString &name)
{
    workbook::Worksheet *sheet = book.sheet(name);
    if (!sheet)
        throw workbook::WorkbookError(workbook::ErrorKind::Damaged, name);
    return *sheet;
}

void writeTitle(Writer &w, const SalesReport &report, const QString &title)
{
    w.text(kTitleRow, 1, title);
    w.text(kRangeRow, 1, report.period.rangeText());
    w.text(kNoteRow, 1, QStringLiteral("請求書・納品書を集計しています（見積書は売上げに含みません）。"));
}

void writeDocuments(workbook::Worksheet &sheet, const SalesReport &report)
{
    Writer w(sheet);
    writeTitle(w, report, report.period.title());
    const QStringList &kinds = sheet::documentKinds();
    int row = kFirstDocumentRow;
    for (const EstimateSummary &d : report.documents) {
        w.text(row, 1, shownDay(d.day));
        w.text(row, 2, d.slipNumber);
        w.text(row, 3, kinds.value(d.documentKind));
        w.text(row, 4, customerText(d));
        w.text(row, 5, d.car);
        SalesSums one;
        one.add(d);
        w.sums(row, 6, one);
        w.text(row, 12, d.fileName);
        ++row;
    }
    w.text(row + 1, 1, QStringLiteral("年度合計"));
    w.text(row + 1, 3, QStringLiteral("%1 件").arg(report.year.count));
    w.sums(row + 1, 6, report.year);
}

void writeMonths(workbook::Worksheet &sheet, const SalesReport &report)
{
    Writer w(sheet);
    writeTitle(w, report, report.period.title() + QStringLiteral("（月別）"));
    for (int m = 0; m < 12; ++m) {
        const int row = kFirstMonthRow + m;
        const QDate first = report.period.from().addMonths(m);
        w.text(row, 1, QStringLiteral("%1年%2月").arg(first.year()).arg(first.month()));
        sheet.setInt32(row, 2, report.months[size_t(m)].count);
        w.sums(row, 3, report.months[size_t(m)]);
    }
    const int total = kFirstMonthRow + 12;
    w.text(total, 1, QStringLiteral("年度合計"));
    sheet.setInt32(total, 2, report.year.count);
    w.sums(total, 3, report.year);
}

} // namespace

QString writeSalesWorkbook(const QString &templateFile, const SalesReport &report, const QString &target)
{
    try {
        auto book = workbook::Workbook::open(templateFile);
        writeDocuments(sheetOf(*book, kDocumentsSheet), report);
        writeMonths(sheetOf(*book, kMonthsSheet), report);
        book->clearFormulaResults();
        book->save(target);
        return {};
    } catch (const TooLarge &) {
        return QStringLiteral("合計金額が大きすぎるため、売上表に書き込めません。");
    } catch (const workbook::WorkbookError &e) {
        return workbook::describeError(e);
    }
}

} // namespace est::reports
