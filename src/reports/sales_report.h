#pragma once
// The yearly sales report: every invoice and delivery note of a year (calendar year, or the
// shop's fiscal year starting in a chosen month), summed per month and for the year.

#include "reports/estimate_summary.h"

#include <QDate>
#include <QList>
#include <array>

namespace est::reports {

// The end of a sales report's file name.
inline const QString kSalesReportSuffix = QStringLiteral("年度売上表.xlsx");

struct SalesPeriod
{
    int year = 0;        // the year the period starts in
    int firstMonth = 1;  // 1 = the calendar year; 4 = April to March

    QDate from() const { return QDate(year, firstMonth, 1); }
    QDate to() const { return from().addYears(1).addDays(-1); }
    // "<year>年度売上表.xlsx"
    QString fileName() const;
    // "2024年度売上表"
    QString title() const;
    // "2024/04/01 ～ 2025/03/31"
    QString rangeText() const;
};

// Sums of a group of documents; 64 bits, a year of sales can exceed what one document holds.
struct SalesSums
{
    int count = 0;
    qint64 totalA = 0;
    qint64 totalB = 0;
    qint64 discount = 0;
    qint64 tax = 0;
    qint64 nonTaxable = 0;
    qint64 total = 0;

    void add(const EstimateSummary &document);
    bool operator==(const SalesSums &) const = default;
};

struct SalesReport
{
    SalesPeriod period;
    QList<EstimateSummary> documents;   // oldest first
    std::array<SalesSums, 12> months{}; // month i of the period (0 = its first month)
    SalesSums year;
};

// Keeps the sales documents dated inside the period and sums them; estimates are left out.
SalesReport buildSalesReport(const SalesPeriod &period, const QList<EstimateSummary> &documents);

// The month index of a day within the period, -1 outside it.
int monthIndex(const SalesPeriod &period, const QDate &day);

} // namespace est::reports
