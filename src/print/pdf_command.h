#pragma once
// The command line for scripts and batch work:
//   estimate --pdf WORKBOOK OUT.pdf [--layout A|B] [--copy] [--paint] [--sub]
// renders a saved estimate to PDF without a window, with the application folder's
// own-company data. Needs a QGuiApplication (any platform, "offscreen" will do).

#include <QString>
#include <QStringList>

class QTextStream;

namespace est::print {

// Exit statuses of the command.
enum PdfCommandStatus { PdfDone = 0, PdfUsage = 1, PdfUnreadable = 2, PdfWriteFailed = 3 };

// Runs the command; reasons for a failure go to `errors`. Returns the exit status.
int runPdfCommand(const QStringList &arguments, const QString &appFolder, QTextStream &errors);

} // namespace est::print
