#pragma once
// The yearly sales report as a workbook: the template temp/Profits.xlsx (written when
// missing, and free to be restyled by the shop) filled into Mitsumori/<year>年度売上表.xlsx.
// Sheet "売上表" lists the documents, sheet "月別" the months; both end with the year's totals.

#include "reports/sales_report.h"

#include <QString>

namespace est::reports {

// Where the cells go; the template and the writer share these.
namespace sales_layout {
inline const QString kDocumentsSheet = QStringLiteral("売上表");
inline const QString kMonthsSheet = QStringLiteral("月別");
inline constexpr int kTitleRow = 1;
inline constexpr int kRangeRow = 2;
inline constexpr int kNoteRow = 3;
inline constexpr int kDocumentsHeaderRow = 5;
inline constexpr int kFirstDocumentRow = 6;
inline constexpr int kMonthsHeaderRow = 4;
inline constexpr int kFirstMonthRow = 5;
QStringList documentHeaders();
QStringList monthHeaders();
} // namespace sales_layout

QString profitsTemplatePath(const QString &appFolder);
QString salesWorkbookPath(const QString &appFolder, const SalesPeriod &period);

// Writes the default template (a temporary file, then a rename). False with a reason.
bool writeProfitsTemplate(const QString &path, QString *error = nullptr);
bool ensureProfitsTemplate(const QString &appFolder, QString *error = nullptr);

// Fills a copy of the template with the report and saves it at the target. Returns an
// error text for the user, empty on success; the target is untouched on failure.
QString writeSalesWorkbook(const QString &templateFile, const SalesReport &report, const QString &target);

} // namespace est::reports
