// The yearly sales report: periods, which documents count, and the workbook's sums checked
// against totals worked out independently from the documents' own figures.

#include "common/number_format.h"
#include "library_fixture.h"
#include "mastertable/csv_file.h"
#include "reports/library_refresh.h"
#include "reports/sales_job.h"
#include "reports/sales_workbook.h"
#include "workbook/workbook.h"

#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <random>

using namespace est;
using namespace est::reports;

namespace {

struct MonthCase
{
    int firstMonth;
    QDate day;
    int index;
};

class PeriodMonths : public ::testing::TestWithParam<MonthCase> {};

TEST_P(PeriodMonths, IndexWithinThePeriod)
{
    const SalesPeriod period{2024, GetParam().firstMonth};
    EXPECT_EQ(monthIndex(period, GetParam().day), GetParam().index);
}

INSTANTIATE_TEST_SUITE_P(
    Days, PeriodMonths,
    ::testing::Values(MonthCase{1, QDate(2024, 1, 1), 0}, MonthCase{1, QDate(2024, 12, 31), 11},
                      MonthCase{1, QDate(2025, 1, 1), -1}, MonthCase{1, QDate(2023, 12, 31), -1},
                      MonthCase{4, QDate(2024, 4, 1), 0}, MonthCase{4, QDate(2024, 12, 15), 8},
                      MonthCase{4, QDate(2025, 3, 31), 11}, MonthCase{4, QDate(2024, 3, 31), -1},
                      MonthCase{4, QDate(2025, 4, 1), -1}, MonthCase{4, QDate(), -1}));

TEST(SalesPeriod, NamesAndRange)
{
    const SalesPeriod fiscal{2024, 4};
    EXPECT_EQ(fiscal.fileName(), QStringLiteral("2024年度売上表.xlsx"));
    EXPECT_EQ(fiscal.rangeText(), QStringLiteral("2024/04/01 ～ 2025/03/31"));
    EXPECT_EQ(SalesPeriod({2024, 1}).to(), QDate(2024, 12, 31));
}

// CLng of n / d, half to even, in plain integer arithmetic (positive values).
qint64 halfEven(qint64 n, qint64 d)
{
    const qint64 q = n / d;
    const qint64 twice = 2 * (n % d);
    return twice > d || (twice == d && q % 2 == 1) ? q + 1 : q;
}

struct Expected
{
    int count = 0;
    qint64 a = 0, b = 0, discount = 0, tax = 0, nonTaxable = 0, total = 0;
};

class SalesWorkbook : public ::testing::Test
{
protected:
    void SetUp() override { ASSERT_EQ(library.open(), QString()); }

    // Saves a document and adds it to the expected sums when it counts for fiscal 2024 (April).
    void document(int i, int kind, QDate day, qint64 a, qint64 b, int rate, qint64 nonTaxable)
    {
        test::EstimateSpec tableSpec;
        tableSpec.kind = kind;
        tableSpec.day = day;
        tableSpec.slip = day.toString(QStringLiteral("yyMMdd")) + QStringLiteral("%1").arg(i % 1000, 3, 10, QLatin1Char('0'));
        tableSpec.customer = QStringLiteral("お客様%1").arg(i);
        tableSpec.totalA = Yen(a);
        tableSpec.totalB = Yen(b);
        tableSpec.discountRate = rate > 0 ? QString::number(rate) : QString();
        tableSpec.nonTaxable = Yen(nonTaxable);
        test::saveWorkbook(folder, QStringLiteral("doc%1.xlsx").arg(i), test::estimateOf(tableSpec));
        if (kind < 3 || day < QDate(2024, 4, 1) || day > QDate(2025, 3, 31))
            return;
        const qint64 discount = halfEven(rate * (a + b), 100);
        const qint64 base = a + b - discount;
        const qint64 tax = halfEven(10 * base, 100);
        for (Expected *e : {&year, &months[(day.year() - 2024) * 12 + day.month() - 4]}) {
            ++e->count;
            e->a += a;
            e->b += b;
            e->discount += discount;
            e->tax += tax;
            e->nonTaxable += nonTaxable;
            e->total += base + tax + nonTaxable;
        }
    }

    // Brings the library up to date and writes the report of the period.
    SalesJobResult report(SalesPeriod period)
    {
        const QString mitsumori = test::mitsumori(folder);
        applyChanges(library, mitsumori, findChanges(library, mitsumori));
        return makeSalesWorkbook(library, folder.path(), period);
    }

    static void expectRow(workbook::Worksheet &sheet, int row, int firstColumn, const Expected &e)
    {
        const qint64 values[] = {e.a, e.b, e.discount, e.tax, e.nonTaxable, e.total};
        for (int i = 0; i < 6; ++i)
            EXPECT_EQ(workbook::cellNumber(sheet.value(row, firstColumn + i)).value_or(-1), double(values[i]))
                << "row " << row << " column " << firstColumn + i;
    }

    test::TempAppFolder folder;
    EstimateLibrary library{folder.path()};
    Expected year;
    Expected months[12];
};

TEST_F(SalesWorkbook, SumsEqualTheDocumentsTotalsToTheYen)
{
    std::mt19937 rng(7);
    auto between = [&rng](int lo, int hi) { return std::uniform_int_distribution<int>(lo, hi)(rng); };
    for (int i = 0; i < 40; ++i) {
        const QDate day = QDate(2024, 1, 1).addDays(between(0, 500));
        document(i, between(0, 6), day, between(0, 900000), between(0, 300000), between(0, 1) * between(1, 15),
                 between(0, 1) * between(1, 30000));
    }
    QFile broken(QDir(test::mitsumori(folder)).filePath(QStringLiteral("broken.xlsx")));
    ASSERT_TRUE(broken.open(QIODevice::WriteOnly));
    broken.write("garbage");
    broken.close();
    const QString mitsumori = test::mitsumori(folder);
    const SalesJobResult result = report({2024, 4});
    ASSERT_EQ(result.error, QString());
    EXPECT_EQ(result.path, QDir(mitsumori).filePath(QStringLiteral("2024年度売上表.xlsx")));
    EXPECT_TRUE(QFileInfo::exists(profitsTemplatePath(folder.path())));
    EXPECT_EQ(result.report.year.count, year.count);
    ASSERT_GT(year.count, 5);

    auto book = workbook::Workbook::open(result.path);
    workbook::Worksheet &docs = *book->sheet(sales_layout::kDocumentsSheet);
    EXPECT_EQ(workbook::cellText(docs.value(1, 1)), QStringLiteral("2024年度売上表"));
    // Each row adds up: A + B - discount + tax + non-taxable = total; the dates run forward.
    qint64 columnTotal = 0;
    QString previous;
    for (int r = 0; r < year.count; ++r) {
        const int row = sales_layout::kFirstDocumentRow + r;
        auto n = [&](int c) { return qint64(workbook::cellNumber(docs.value(row, c)).value_or(0)); };
        EXPECT_EQ(n(6) + n(7) - n(8) + n(9) + n(10), n(11)) << "row " << row;
        const QString day = workbook::cellText(docs.value(row, 1));
        EXPECT_LE(previous, day);
        previous = day;
        columnTotal += n(11);
    }
    EXPECT_EQ(columnTotal, year.total);
    const int totalRow = sales_layout::kFirstDocumentRow + year.count + 1;
    EXPECT_EQ(workbook::cellText(docs.value(totalRow, 1)), QStringLiteral("年度合計"));
    expectRow(docs, totalRow, 6, year);

    workbook::Worksheet &monthSheet = *book->sheet(sales_layout::kMonthsSheet);
    for (int m = 0; m < 12; ++m) {
        EXPECT_EQ(workbook::cellNumber(monthSheet.value(sales_layout::kFirstMonthRow + m, 2)).value_or(-1),
                  months[m].count);
        expectRow(monthSheet, sales_layout::kFirstMonthRow + m, 3, months[m]);
    }
    EXPECT_EQ(workbook::cellText(monthSheet.value(sales_layout::kFirstMonthRow, 1)), QStringLiteral("2024年4月"));
    expectRow(monthSheet, sales_layout::kFirstMonthRow + 12, 3, year);

    // The report itself is not listed as an estimate.
    EXPECT_TRUE(findChanges(library, mitsumori).empty());
}

TEST_F(SalesWorkbook, EstimatesAndOtherYearsAreLeftOut)
{
    document(1, 2, QDate(2024, 5, 1), 50000, 0, 0, 0);    // an estimate
    document(2, 4, QDate(2024, 3, 31), 70000, 0, 0, 0);   // the previous fiscal year
    document(3, 5, QDate(2025, 3, 31), 10000, 5000, 0, 0);
    const SalesJobResult result = report({2024, 4});
    ASSERT_EQ(result.error, QString());
    ASSERT_EQ(result.report.documents.size(), 1);
    EXPECT_EQ(result.report.documents.first().fileName, QStringLiteral("doc3.xlsx"));
    EXPECT_EQ(result.report.months[11].total, 16500);
}

TEST_F(SalesWorkbook, AnEmptyYearStillGivesAWorkbookWithZeroTotals)
{
    const SalesJobResult result = makeSalesWorkbook(library, folder.path(), {2030, 1});
    ASSERT_EQ(result.error, QString());
    auto book = workbook::Workbook::open(result.path);
    expectRow(*book->sheet(sales_layout::kMonthsSheet), sales_layout::kFirstMonthRow + 12, 3, Expected{});
}

TEST_F(SalesWorkbook, ABrokenTemplateIsReportedAndNothingIsWritten)
{
    QDir().mkpath(QFileInfo(profitsTemplatePath(folder.path())).path());
    QFile bad(profitsTemplatePath(folder.path()));
    ASSERT_TRUE(bad.open(QIODevice::WriteOnly));
    bad.write("no workbook");
    bad.close();
    const SalesJobResult result = makeSalesWorkbook(library, folder.path(), {2024, 1});
    EXPECT_FALSE(result.error.isEmpty());
    EXPECT_FALSE(QFileInfo::exists(result.path));
}

TEST_F(SalesWorkbook, OpenpyxlReadsTheSameSums)
{
    const QString python = QStringLiteral("/usr/bin/python3");
    if (QProcess::execute(python, {QStringLiteral("-c"), QStringLiteral("import openpyxl")}) != 0)
        GTEST_SKIP() << "python3-openpyxl is not installed";
    document(1, 4, QDate(2024, 6, 1), 123456, 65432, 5, 17650);
    document(2, 6, QDate(2024, 7, 2), 99999, 1, 0, 0);
    const SalesJobResult result = report({2024, 4});
    ASSERT_EQ(result.error, QString());
    QProcess p;
    p.start(python, {QStringLiteral("-c"), QStringLiteral(R"(
import json, sys, openpyxl
wb = openpyxl.load_workbook(sys.argv[1])
docs = wb['売上表']
rows = [r for r in docs.iter_rows(min_row=6, values_only=True) if r[0] and r[0] != '年度合計']
print(json.dumps({'count': len(rows), 'total': sum(r[10] for r in rows),
                  'year': wb['月別'].cell(row=17, column=8).value}))
)"),
                     result.path});
    ASSERT_TRUE(p.waitForFinished(60000));
    ASSERT_EQ(p.exitCode(), 0) << p.readAllStandardError().toStdString();
    const QJsonObject read = QJsonDocument::fromJson(p.readAllStandardOutput()).object();
    EXPECT_EQ(read.value(QStringLiteral("count")).toInt(), 2);
    EXPECT_EQ(qint64(read.value(QStringLiteral("total")).toDouble()), year.total);
    EXPECT_EQ(qint64(read.value(QStringLiteral("year")).toDouble()), year.total);
}

TEST_F(SalesWorkbook, LibreOfficeShowsTheYearsTotal)
{
    const QString soffice = QStandardPaths::findExecutable(QStringLiteral("soffice"));
    if (soffice.isEmpty())
        GTEST_SKIP() << "LibreOffice is not installed";
    document(1, 3, QDate(2024, 4, 1), 250000, 80000, 10, 17650);
    document(2, 5, QDate(2025, 2, 28), 43210, 0, 0, 0);
    const SalesJobResult result = report({2024, 4});
    ASSERT_EQ(result.error, QString());
    QTemporaryDir profile, outDir;
    QProcess p;
    // The first sheet as UTF-8 CSV, with the numbers as shown.
    p.start(soffice, {QStringLiteral("-env:UserInstallation=file://") + profile.path(), QStringLiteral("--headless"),
                      QStringLiteral("--convert-to"), QStringLiteral("csv:Text - txt - csv (StarCalc):44,34,76"),
                      QStringLiteral("--outdir"), outDir.path(), result.path});
    ASSERT_TRUE(p.waitForFinished(240000));
    QFile csv(QDir(outDir.path()).filePath(QStringLiteral("2024年度売上表.csv")));
    ASSERT_TRUE(csv.open(QIODevice::ReadOnly)) << p.readAllStandardError().toStdString();
    const mastertable::CsvRecords rows =
        mastertable::parseCsv(mastertable::decodeCsv(csv.readAll(), mastertable::CsvEncoding::Auto).text);
    ASSERT_EQ(rows.error, QString());
    const auto total = std::find_if(rows.records.begin(), rows.records.end(),
                                    [](const QStringList &r) { return r.value(0) == QStringLiteral("年度合計"); });
    ASSERT_NE(total, rows.records.end());
    EXPECT_EQ(total->value(2), QStringLiteral("2 件"));
    EXPECT_EQ(total->value(10), formatThousands(year.total));
    EXPECT_EQ(rows.records.value(0).value(0), QStringLiteral("2024年度売上表"));
}

} // namespace

