#pragma once
// The program's command line: what it was asked to do (open its window, print the help or the
// version, or run a command for scripts without a window), read before any window exists so
// that a wrong argument never opens one.

#include "compare/compare_command.h"
#include "einvoice/invoice_export.h"
#include "print/pdf_command.h"

#include <QString>
#include <QStringList>

namespace est::app {

enum class CommandKind { Window, Help, Version, Pdf, InvoiceXml, Compare, ToServer, FromServer, Refused };

// Exit status of a refused command line (the same as the script commands' wrong arguments).
inline constexpr int kUsageExitStatus = 1;

struct CommandLine
{
    CommandKind kind = CommandKind::Window;
    print::PdfRequest pdf;             // kind Pdf
    einvoice::InvoiceRequest invoice;  // kind InvoiceXml
    compare::CompareRequest compare;   // kind Compare
    QString refusal;                   // kind Refused: which argument and why
    QString folder;                    // kind FromServer: the new application folder
};

// Reads the arguments; the first one is the program itself. Qt's own options (-platform,
// -style ...) are left to Qt when the window opens.
CommandLine parseCommandLine(const QStringList &arguments);

// Every use of the command line, in Japanese, ending with where the data is kept.
QString helpText(const QString &appFolder);

// The program's name and version, as --version prints it.
QString versionText();

} // namespace est::app
