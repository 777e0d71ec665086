// Printing: dlgPrint from the sheet's "印刷" (printer, preview, PDF or electronic invoice of
// the saved estimate), dlgOpenXls from the start dialog's cmdXls, frmPrinter from the
// settings hub.

#include "app/dlg_hajime.h"
#include "app/frm_setting.h"
#include "app/wiring.h"
#include "einvoice/invoice_export.h"
#include "print/dlg_open_xls.h"
#include "print/dlg_print.h"
#include "print/frm_printer.h"
#include "print/print_actions.h"
#include "print/print_flow.h"
#include "sheet/frm_mitumori.h"
#include "workbook/workbook_store.h"

#include <QPointer>

namespace est::app {

namespace {

void runPrintDialog(AppContext &context)
{
    print::DlgPrint dialog(context.messages, context.sheet);
    dialog.setInvoiceKind(print::isInvoiceKind(context.session.header.documentKind));
    if (dialog.exec() != QDialog::Accepted)
        return;
    print::PrintFlow flow(context.session, context.messages, context.appFolder,
                          [&context] { return context.store && context.store->save(); });
    if (dialog.action() == print::DlgPrint::Action::EInvoice) {
        if (const auto saved = flow.prepareSaved(einvoice::kEInvoiceTitle, QStringLiteral("電子インボイスに")))
            einvoice::saveInvoice(*saved, context.appFolder, einvoice::invoicePathFor(flow.workbookPath()),
                                  context.messages);
        return;
    }
    const auto doc = flow.prepare();
    if (!doc)
        return;
    print::PrintActions actions(context.messages, context.wait, context.sheet);
    switch (dialog.action()) {
    case print::DlgPrint::Action::Print:
        actions.print(*doc, dialog.options());
        break;
    case print::DlgPrint::Action::Preview:
        actions.preview(*doc, dialog.options());
        break;
    case print::DlgPrint::Action::Pdf:
        actions.savePdf(*doc, dialog.options(), flow.pdfPath());
        break;
    case print::DlgPrint::Action::None:
    case print::DlgPrint::Action::EInvoice:
        break;
    }
}

} // namespace

void wirePrint(AppContext &context)
{
    sheet::FrmMitumori *frm = context.sheet;
    frm->setButtonEnabled(sheet::SheetButton::Print, true);
    QObject::connect(frm, &sheet::FrmMitumori::openRequested, frm, [&context](sheet::SheetButton b) {
        if (b == sheet::SheetButton::Print)
            runPrintDialog(context);
    });

    context.openWorkbook = [&context] {
        print::DlgOpenXls dialog(context.messages, context.appFolder, context.start);
        dialog.exec();
    };

    auto printer = std::make_shared<QPointer<print::FrmPrinter>>();
    context.settings->setScreen(QStringLiteral("cmdPrinter"), [printer] {
        if (!*printer) {
            *printer = new print::FrmPrinter;
            (*printer)->setAttribute(Qt::WA_DeleteOnClose);
        }
        (*printer)->show();
        (*printer)->raise();
    });
}

} // namespace est::app
