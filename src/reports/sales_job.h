#pragma once
// Making the yearly sales report file from the library: the period's invoices and delivery
// notes, the template (written when missing) and the workbook in Mitsumori.

#include "reports/estimate_library.h"
#include "reports/sales_report.h"

namespace est::reports {

struct SalesJobResult
{
    QString error;       // for the user; empty when the file was written
    QString path;        // the workbook written
    SalesReport report;
};

SalesJobResult makeSalesWorkbook(const EstimateLibrary &library, const QString &appFolder, const SalesPeriod &period);

} // namespace est::reports
