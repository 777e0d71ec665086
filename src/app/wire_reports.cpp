#include "app/wiring.h"

#include "app/frm_setting.h"
#include "reports/dlg_price_import.h"
#include "reports/dlg_uriage.h"
#include "reports/frm_exp.h"
#include "reports/estimate_library.h"
#include "reports/library_progress.h"
#include "reports/library_search_panel.h"
#include "sheet/frm_mitumori.h"
#include "workbook/dlg_open.h"
#include "workbook/estimate_files.h"
#include "workbook/workbook_store.h"
#include "workitems/catalogue.h"

#include <memory>

namespace est::app {

namespace {

// The library is opened on first use; a library that cannot be opened only leaves the
// search out, never the dialog or the save.
bool ready(reports::EstimateLibrary &library, bool &opened)
{
    if (!opened)
        opened = library.open().isEmpty();
    return opened;
}

void openPriceImport(AppContext &context, QWidget *parent)
{
    workitems::CatalogueConnections register_(context.appFolder);
    if (const QString error = register_.openCarSet(); !error.isEmpty()) {
        context.messages.inform(QStringLiteral("部品データの一覧を開けません。\n") + error,
                                QStringLiteral("部品価格の取り込み"), MessageIcon::Critical);
        return;
    }
    reports::DlgPriceImport dialog(context.appFolder, register_.makers(), register_.vehicleTypes(),
                                   reports::dialogFileChooser(), context.messages, parent);
    dialog.exec();
}

} // namespace

void wireReports(AppContext &context)
{
    struct Shared
    {
        reports::EstimateLibrary library;
        bool opened = false;
    };
    auto shared = std::make_shared<Shared>(Shared{reports::EstimateLibrary(context.appFolder)});
    const QString folder = workbook::estimatesFolder(context.appFolder);

    if (context.store) {
        context.store->setSavedHook([shared, folder, &context](const QString &path) {
            if (ready(shared->library, shared->opened))
                reports::recordSaved(shared->library, folder, path, context.session);
        });
        context.store->addOpenDialogHook([shared, folder, &context](workbook::DlgOpen &dialog) {
            if (!ready(shared->library, shared->opened))
                return;
            reports::refreshWithProgress(shared->library, folder, &dialog);
            auto *panel = new reports::LibrarySearchPanel(shared->library, context.clock.today());
            dialog.addPanel(panel);
            QObject::connect(panel, &reports::LibrarySearchPanel::chosen, &dialog,
                             [&dialog](const QString &name) { dialog.selectFile(name); });
            QObject::connect(panel, &reports::LibrarySearchPanel::activated, &dialog, [&dialog, &context](const QString &name) {
                if (dialog.selectFile(name))
                    dialog.load();
                else
                    context.messages.inform(name + QStringLiteral("が存在しません。\nもう一度ファイルを確認してください。"),
                                            QStringLiteral("ファイルを開く"), MessageIcon::Information);
            });
        });
    }

    context.sheet->setButtonEnabled(sheet::SheetButton::Sales, true);
    QObject::connect(context.sheet, &sheet::FrmMitumori::openRequested, context.sheet,
                     [shared, &context](sheet::SheetButton button) {
                         if (button != sheet::SheetButton::Sales)
                             return;
                         if (!ready(shared->library, shared->opened)) {
                             context.messages.inform(QStringLiteral("見積ファイルの一覧を開けません。"),
                                                     QStringLiteral("売上表"), MessageIcon::Critical);
                             return;
                         }
                         reports::DlgUriage dialog(shared->library, context.appFolder, context.clock.today(),
                                                   context.messages, context.sheet);
                         dialog.exec();
                     });

    context.settings->setScreen(QStringLiteral("cmdExp"), [&context] {
        reports::FrmExp dialog(context.appFolder, context.clock, reports::dialogFileChooser(), context.messages,
                               context.settings);
        dialog.setPriceImport([&context](QWidget *parent) { openPriceImport(context, parent); });
        dialog.exec();
    });
}

} // namespace est::app
