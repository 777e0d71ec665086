#include "einvoice/invoice_export.h"

#include "customers/electronic_address.h"
#include "einvoice/invoice_model.h"
#include "einvoice/ubl_writer.h"
#include "print/shop_info.h"
#include "workbook/atomic_file.h"
#include "workbook/estimate_files.h"

#include <QDir>
#include <QFileInfo>
#include <QTextStream>

namespace est::einvoice {

namespace {

enum CustomerIndex { KNo = 0 };

} // namespace

InvoiceFile makeInvoiceFile(const print::SavedEstimate &saved, const QString &appFolder)
{
    const Session &s = saved.session;
    const customers::ElectronicAddress ids =
        customers::readElectronicAddress(appFolder, s.customer.value(KNo));
    const BuildResult built = buildInvoice(s, QFileInfo(s.workbookPath).fileName(), print::readShopInfo(appFolder), ids);
    InvoiceFile file;
    file.refusal = built.refusal;
    file.notices = built.notices;
    if (built.invoice)
        file.xml = writeUbl(*built.invoice);
    return file;
}

QString invoicePathFor(const QString &workbookPath)
{
    const QFileInfo info(workbookPath);
    return info.dir().filePath(info.completeBaseName() + QStringLiteral(".xml"));
}

QString writeInvoiceFile(const QString &path, const QByteArray &xml)
{
    try {
        QDir().mkpath(QFileInfo(path).absolutePath());
        workbook::replaceFileAtomically(path, xml);
        return QString();
    } catch (const workbook::WorkbookError &e) {
        return QDir::toNativeSeparators(path) + QStringLiteral(" に保存できませんでした。\n") + workbook::describeError(e);
    }
}

bool saveInvoice(const print::SavedEstimate &saved, const QString &appFolder, const QString &path,
                 Messages &messages)
{
    const InvoiceFile file = makeInvoiceFile(saved, appFolder);
    if (file.xml.isEmpty()) {
        messages.inform(file.refusal, kEInvoiceTitle, MessageIcon::Exclamation);
        return false;
    }
    if (QFileInfo::exists(path)
        && messages.askYesNo(QDir::toNativeSeparators(path) + QStringLiteral(" は既にあります。\n置き換えますか？"),
                             kEInvoiceTitle, MessageIcon::Question)
               != Answer::Yes)
        return false;
    const QString error = writeInvoiceFile(path, file.xml);
    if (!error.isEmpty()) {
        messages.inform(error, kEInvoiceTitle, MessageIcon::Critical);
        return false;
    }
    QString text = QStringLiteral("電子インボイスを保存しました。\n") + QDir::toNativeSeparators(path);
    for (const QString &notice : file.notices)
        text += QStringLiteral("\n\n") + notice;
    messages.inform(text, kEInvoiceTitle,
                    file.notices.isEmpty() ? MessageIcon::Information : MessageIcon::Exclamation);
    return true;
}

int runInvoiceCommand(const InvoiceRequest &request, const QString &appFolder, QTextStream &errors)
{
    const auto fail = [&errors](const QString &text, int status) {
        errors << text << '\n';
        errors.flush();
        return status;
    };
    QString error;
    const auto saved = print::loadSavedEstimate(request.workbook, &error);
    if (!saved)
        return fail(error, InvoiceRefused);
    const InvoiceFile file = makeInvoiceFile(*saved, appFolder);
    if (file.xml.isEmpty())
        return fail(file.refusal, InvoiceRefused);
    if (QFileInfo::exists(request.output) && !request.replace)
        return fail(QStringLiteral("%1 は既にあります。置き換えるには --replace を付けてください。").arg(request.output),
                    InvoiceWriteFailed);
    error = writeInvoiceFile(request.output, file.xml);
    if (!error.isEmpty())
        return fail(error, InvoiceWriteFailed);
    for (const QString &notice : file.notices)
        errors << notice << '\n';
    errors.flush();
    return InvoiceDone;
}

} // namespace est::einvoice
