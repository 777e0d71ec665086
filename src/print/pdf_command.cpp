#include "print/pdf_command.h"

#include "print/print_check.h"
#include "print/print_document.h"
#include "print/print_set.h"
#include "print/shop_info.h"

#include <QTextStream>

namespace est::print {

namespace {

const char *kUsage = "使い方: estimate --pdf WORKBOOK OUT.pdf [--layout A|B] [--copy] [--paint] [--sub]";

struct Request
{
    QString workbook;
    QString output;
    PrintOptions options;
};

// Parses the arguments after the program name; an empty text means success.
QString parse(const QStringList &args, Request &request)
{
    QStringList files;
    for (int i = 1; i < args.size(); ++i) {
        const QString &a = args.at(i);
        if (a == QLatin1String("--pdf"))
            continue;
        if (a == QLatin1String("--layout")) {
            if (i + 1 >= args.size() || !parseLayout(args.at(i + 1), &request.options.layout))
                return QStringLiteral("--layout には A か B を指定してください。");
            ++i;
        } else if (a == QLatin1String("--copy")) {
            request.options.shopCopy = true;
        } else if (a == QLatin1String("--paint")) {
            request.options.paintSheet = true;
        } else if (a == QLatin1String("--sub")) {
            request.options.subSheet = true;
        } else if (a.startsWith(QLatin1String("--"))) {
            return QStringLiteral("不明なオプションです: ") + a;
        } else {
            files.append(a);
        }
    }
    if (files.size() != 2)
        return QStringLiteral("ブックと出力するPDFの2つのパスを指定してください。");
    request.workbook = files.at(0);
    request.output = files.at(1);
    return QString();
}

} // namespace

int runPdfCommand(const QStringList &arguments, const QString &appFolder, QTextStream &errors)
{
    Request request;
    const QString usage = parse(arguments, request);
    if (!usage.isEmpty()) {
        errors << usage << '\n' << QString::fromUtf8(kUsage) << '\n';
        errors.flush();
        return PdfUsage;
    }
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
