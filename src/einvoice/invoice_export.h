#pragma once
// Saving the electronic invoice of a saved estimate: the file Mitsumori/<name>.xml beside the
// workbook, written in one step, an existing one replaced only after asking; and the command
//   estimate --invoice-xml WORKBOOK OUT.xml [--replace]
// for scripts.

#include "common/messages.h"
#include "print/saved_estimate.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

class QTextStream;

namespace est::einvoice {

inline const QString kEInvoiceTitle = QStringLiteral("電子インボイス保存");

struct InvoiceFile
{
    QByteArray xml;           // empty when refused
    QString refusal;
    QStringList notices;
};

// The invoice of a saved estimate with the application folder's shop and the customer's
// electronic address.
InvoiceFile makeInvoiceFile(const print::SavedEstimate &saved, const QString &appFolder);

// The invoice file beside a workbook: the same name with ".xml".
QString invoicePathFor(const QString &workbookPath);

// Writes the bytes atomically; an error sentence for the user, empty on success.
QString writeInvoiceFile(const QString &path, const QByteArray &xml);

// The save button's steps, every question and notice through `messages`. True when a file
// was written.
bool saveInvoice(const print::SavedEstimate &saved, const QString &appFolder, const QString &path,
                 Messages &messages);

enum InvoiceCommandStatus { InvoiceDone = 0, InvoiceUsage = 1, InvoiceRefused = 2, InvoiceWriteFailed = 3 };

// What the command line asked for (read by app/command_line.h).
struct InvoiceRequest
{
    QString workbook;
    QString output;
    bool replace = false;   // an existing output file may be replaced
};

// The command; reasons and notices go to `errors`. Returns the exit status.
int runInvoiceCommand(const InvoiceRequest &request, const QString &appFolder, QTextStream &errors);

} // namespace est::einvoice
