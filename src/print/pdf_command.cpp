#include "print/pdf_command.h"

#include "print/print_check.h"
#include "print/print_document.h"
#include "print/print_set.h"
#include "print/shop_info.h"

#include <QTextStream>

namespace est::print {

int runPdfCommand(const PdfRequest &request, const QString &appFolder, QTextStream &errors)
{
    QString error;
    const auto saved = loadSavedEstimate(request.workbook, &error);
    if (!saved) {
        errors << error << '\n';
        errors.flush();
        return PdfUnreadable;
    }
    if (const auto stop = checkPrintable(*saved)) {
        errors << *stop << '\n';
        errors.flush();
        return PdfUnreadable;
    }
    const PrintDocument doc = buildPrintDocument(saved->session, saved->honorific, readShopInfo(appFolder));
    error = writePdf(doc, request.options, request.output);
    if (!error.isEmpty()) {
        errors << error << '\n';
        errors.flush();
        return PdfWriteFailed;
    }
    return PdfDone;
}

} // namespace est::print
