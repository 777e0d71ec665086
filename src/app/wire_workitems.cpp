#include "app/frm_setting.h"
#include "app/wiring.h"
#include "sheet/frm_mitumori.h"
#include "uikit/wait_dialog.h"
#include "workitems/catalogue_choice.h"
#include "workitems/dlg_rato.h"
#include "workitems/frm_buhin.h"
#include "workitems/frm_new_meka.h"
#include "workitems/frm_sakusei.h"

#include <memory>

namespace est::app {

void wireWorkItems(AppContext &context)
{
    // The register and catalogue connections live as long as the program.
    auto choice = std::make_shared<workitems::CatalogueChoice>(context.session, context.messages, context.appFolder);
    AppContext *c = &context;

    // After the date dialog of a new estimate: the labour rate and the shop's rounding.
    context.newEstimateSteps.append([c, choice] {
        if (!c->session.rateDialogRequested)
            return true;
        c->session.rateDialogRequested = false;
        workitems::DlgRato dialog(c->session, c->messages, [c, choice] { choice->chooseCarType(c->sheet); },
                                  c->sheet);
        dialog.exec();
        return true;
    });

    c->sheet->setButtonEnabled(sheet::SheetButton::WorkItems, true);
    QObject::connect(c->sheet, &sheet::FrmMitumori::openRequested, c->sheet, [c, choice](sheet::SheetButton b) {
        if (b != sheet::SheetButton::WorkItems)
            return;
        // The catalogue may have to be chosen first; that dialog must not sit under the wait window.
        const bool catalogueOpen = choice->openCatalogueDb(c->sheet);
        std::unique_ptr<workitems::FrmSakusei> editor;
        {
            ui::WaitScope wait(c->wait);
            std::unique_ptr<workitems::CatalogueTable> table;
            if (catalogueOpen)
                table = choice->currentTable();
            editor = std::make_unique<workitems::FrmSakusei>(c->session, c->messages, std::move(table), c->sheet);
        }
        if (c->sheetMetalIndex)
            editor->setSheetMetalScreen(c->sheetMetalIndex);
        if (c->simpleEstimate)
            editor->setSimpleEstimate(c->simpleEstimate);
        if (editor->exec() == QDialog::Accepted)
            c->sheet->refreshRows();
    });

    c->settings->setScreen(QStringLiteral("Command1"), [c, choice] {
        workitems::FrmBuhin editor(*choice, c->settings);
        editor.exec();
    });
    c->settings->setScreen(QStringLiteral("Command11"), [c] {
        workitems::FrmNewMeka editor(c->appFolder, c->messages, c->settings);
        editor.exec();
    });
}

} // namespace est::app
