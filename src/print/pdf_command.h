#pragma once
// The command line for scripts and batch work:
//   estimate --pdf WORKBOOK OUT.pdf [--layout A|B] [--copy] [--paint] [--sub] [--photos | --photos-large]
// renders a saved estimate to PDF without a window, with the application folder's
// own-company data. Needs a QGuiApplication (any platform, "offscreen" will do). The
// arguments are read by the program's command-line module (app/command_line.h).

#include "print/print_options.h"

#include <QString>

class QTextStream;

namespace est::print {

// Exit statuses of the command.
enum PdfCommandStatus { PdfDone = 0, PdfUsage = 1, PdfUnreadable = 2, PdfWriteFailed = 3 };

// What the command line asked for.
struct PdfRequest
{
    QString workbook;
    QString output;
    PrintOptions options;
};

// Runs the command; reasons for a failure go to `errors`. Returns the exit status.
int runPdfCommand(const PdfRequest &request, const QString &appFolder, QTextStream &errors);

} // namespace est::print
