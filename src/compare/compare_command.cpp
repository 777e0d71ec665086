#include "compare/compare_command.h"

#include "compare/comparison_report.h"
#include "print/pdf_command.h"

#include <QTextStream>

namespace est::compare {

int runCompareCommand(const CompareRequest &request, const QString &appFolder, QTextStream &errors)
{
    QString error;
    const auto report = loadComparison(request.before, request.after, print::readShopInfo(appFolder), &error);
    int status = print::PdfDone;
    if (!report)
        status = print::PdfUnreadable;
    else if (error = writeComparisonPdf(*report, request.output); !error.isEmpty())
        status = print::PdfWriteFailed;
    if (status != print::PdfDone) {
        errors << error << '\n';
        errors.flush();
    }
    return status;
}

} // namespace est::compare
