#include "reports/sales_job.h"

#include "reports/sales_workbook.h"

#include <QDir>
#include <QFileInfo>

namespace est::reports {

SalesJobResult makeSalesWorkbook(const EstimateLibrary &library, const QString &appFolder, const SalesPeriod &period)
{
    SalesJobResult result;
    result.path = salesWorkbookPath(appFolder, period);
    QString error;
    if (!ensureProfitsTemplate(appFolder, &error)) {
        result.error = QStringLiteral("売上表のひな形（temp/Profits.xlsx）を作成できません。\n") + error;
        return result;
    }
    if (!QDir().mkpath(QFileInfo(result.path).path())) {
        result.error = QStringLiteral("フォルダ Mitsumori を作成できません。");
        return result;
    }
    result.report = buildSalesReport(period, library.sales(period.from(), period.to()));
    result.error = writeSalesWorkbook(profitsTemplatePath(appFolder), result.report, result.path);
    return result;
}

} // namespace est::reports
