#include "reports/sales_report.h"

#include <algorithm>

namespace est::reports {

QString SalesPeriod::fileName() const
{
    return QString::number(year) + kSalesReportSuffix;
}

QString SalesPeriod::title() const
{
    return QStringLiteral("%1年度売上表").arg(year);
}

QString SalesPeriod::rangeText() const
{
    const QString format = QStringLiteral("yyyy/MM/dd");
    return from().toString(format) + QStringLiteral(" ～ ") + to().toString(format);
}

void SalesSums::add(const EstimateSummary &d)
{
    ++count;
    totalA += d.totalA;
    totalB += d.totalB;
    discount += d.discount;
    tax += d.tax;
    nonTaxable += d.nonTaxable;
    total += d.grandTotal;
}

int monthIndex(const SalesPeriod &period, const QDate &day)
{
    if (!day.isValid() || day < period.from() || day > period.to())
        return -1;
    return (day.year() - period.year) * 12 + day.month() - period.firstMonth;
}

SalesReport buildSalesReport(const SalesPeriod &period, const QList<EstimateSummary> &documents)
{
    SalesReport report;
    report.period = period;
    for (const EstimateSummary &d : documents) {
        const int month = monthIndex(period, d.day);
        if (!d.readable || !isSale(d.documentKind) || month < 0)
            continue;
        report.documents.append(d);
        report.months[size_t(month)].add(d);
        report.year.add(d);
    }
    std::stable_sort(report.documents.begin(), report.documents.end(),
                     [](const EstimateSummary &a, const EstimateSummary &b) { return a.day < b.day; });
    return report;
}

} // namespace est::reports
