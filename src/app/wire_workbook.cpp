#include "app/wiring.h"

#include "sheet/frm_mitumori.h"
#include "workbook/estimate_files.h"
#include "workbook/workbook_store.h"

namespace est::app {

void wireWorkbook(AppContext &context)
{
    auto *store = new workbook::WorkbookStore(context.session, context.messages, context.clock, context.appFolder,
                                              context.wait, nullptr, context.sheet);
    context.sheet->setStore(store);
    context.store = store;
    // The file name comes first in a new estimate, before the date and rate dialogs.
    // A new estimate has no workbook of its own yet.
    context.newEstimateSteps.prepend([store, &context] {
        context.session.workbookPath.clear();
        context.session.fileNameText.clear();
        return store->askFileName();
    });
    context.openEstimateSteps.append([store] { return store->askOpen(); });
    context.startupSteps.append([&context] {
        QString error;
        if (!workbook::ensureTemplate(context.appFolder, &error))
            context.messages.inform(QStringLiteral("見積書のひな形（temp/newfile.xlsx）を作成できません。\n") + error,
                                    QStringLiteral("ひな形"), MessageIcon::Critical);
    });
}

} // namespace est::app
