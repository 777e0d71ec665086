// Slip numbers and the date dialog, the own-company block and editor, the non-taxable items:
// their start-up steps, their place in the new-estimate chain, the sheet's buttons and the
// settings hub's buttons.

#include "app/frm_setting.h"
#include "app/wiring.h"
#include "sheet/company_block.h"
#include "sheet/dlg_day.h"
#include "sheet/dlg_hikazei.h"
#include "sheet/frm_hikazei_setting.h"
#include "sheet/frm_kaisya.h"
#include "sheet/frm_mitumori.h"
#include "sheet/slip_ledger.h"
#include "sheet/slip_numbering.h"

#include <QDir>
#include <QPointer>

namespace est::app {

namespace {

// Reads the company block at start-up; a missing file is offered to be created empty.
void readCompanyAtStartup(AppContext &context)
{
    const QString path = sheet::companyFilePath(context.appFolder);
    const sheet::CompanyFileRead read = sheet::readCompanyBlock(path);
    context.session.company = read.block;
    if (!read.error.isEmpty()) {
        context.messages.inform(read.error, QStringLiteral("自社情報"), MessageIcon::Exclamation);
        return;
    }
    if (read.exists)
        return;
    const Answer answer = context.messages.askYesNo(
        QDir::toNativeSeparators(path) + QStringLiteral("は存在していません。\n自社情報を作成してください。"),
        QStringLiteral("自社情報"), MessageIcon::Question);
    if (answer != Answer::Yes)
        return;
    const QString error = sheet::writeCompanyBlock(path, context.session.company);
    if (!error.isEmpty())
        context.messages.inform(error, QStringLiteral("自社情報"), MessageIcon::Critical);
}

// The counter that earlier versions kept in this user's settings joins the ledger once; a
// ledger that cannot be written now is tried again at the next start.
void takeOverOldSlipCounter(AppContext &context)
{
    const db::OpenResult opened = sheet::openSlipLedgerDatabase(context.appFolder);
    if (!opened.ok())
        return;
    sheet::SlipLedger ledger(opened.database);
    auto settings = sheet::openSlipSettings();
    sheet::takeOverSlipSettings(ledger, *settings);
}

// The date dialog; true when a slip number was issued.
bool runDateDialog(AppContext &context)
{
    const db::OpenResult opened = sheet::openSlipLedgerDatabase(context.appFolder);
    if (!opened.ok()) {
        context.messages.inform(opened.error, QStringLiteral("警告"), MessageIcon::Critical);
        return false;
    }
    sheet::SlipLedger ledger(opened.database);
    sheet::DlgDay dialog(context.session, context.messages, context.clock, ledger, context.sheet);
    return dialog.run() == QDialog::Accepted;
}

// Shows one instance of a window, made on first use and deleted when closed.
template <typename Window, typename Make>
void showSingle(QPointer<Window> &slot, Make make)
{
    if (!slot) {
        slot = make();
        slot->setAttribute(Qt::WA_DeleteOnClose);
    }
    slot->show();
    slot->raise();
    slot->activateWindow();
}

} // namespace

void wireSheetExtras(AppContext &context)
{
    context.startupSteps.append([&context] { takeOverOldSlipCounter(context); });
    context.startupSteps.append([&context] { readCompanyAtStartup(context); });

    // After the file-name dialog: the date dialog, which asks for the rate dialog next.
    context.newEstimateSteps.append([&context] {
        context.session.rateDialogRequested = true;
        if (!runDateDialog(context)) {
            context.session.rateDialogRequested = false;
            return false;
        }
        return true;
    });

    auto companyEditor = std::make_shared<QPointer<sheet::FrmKaisya>>();
    auto openCompany = [&context, companyEditor] {
        showSingle(*companyEditor, [&context] {
            return new sheet::FrmKaisya(context.session, context.messages, context.appFolder, context.sheet);
        });
    };
    auto listEditor = std::make_shared<QPointer<sheet::FrmHikazeiSetting>>();
    auto openList = [&context, listEditor] {
        showSingle(*listEditor,
                   [&context] { return new sheet::FrmHikazeiSetting(context.messages, context.appFolder); });
    };

    sheet::FrmMitumori *frm = context.sheet;
    frm->setButtonEnabled(sheet::SheetButton::SlipDate, true);
    frm->setButtonEnabled(sheet::SheetButton::Company, true);
    frm->setButtonEnabled(sheet::SheetButton::NonTaxable, true);
    QObject::connect(frm, &sheet::FrmMitumori::openRequested, frm, [&context, openCompany](sheet::SheetButton b) {
        switch (b) {
        case sheet::SheetButton::SlipDate:
            runDateDialog(context);
            break;
        case sheet::SheetButton::Company:
            openCompany();
            break;
        case sheet::SheetButton::NonTaxable: {
            sheet::DlgHikazei dialog(context.session, context.messages, context.appFolder, context.sheet);
            dialog.exec();
            break;
        }
        default:
            break;
        }
    });

    context.settings->setScreen(QStringLiteral("Command4"), openCompany);
    context.settings->setScreen(QStringLiteral("Command6"), openList);
}

} // namespace est::app
