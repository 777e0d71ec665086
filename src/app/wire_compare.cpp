// Comparing estimates: frmHikaku from the sheet's "比較" (the open estimate's workbook as the
// later one) and from the open dialog's "比較" (the chosen workbook as the later one).

#include "app/wiring.h"
#include "compare/frm_hikaku.h"
#include "sheet/frm_mitumori.h"
#include "workbook/dlg_open.h"
#include "workbook/workbook_store.h"

#include <QFileInfo>
#include <QPushButton>

namespace est::app {

namespace {

void runComparison(AppContext &context, const QString &after, QWidget *parent)
{
    compare::FrmHikaku frm(context.messages, context.appFolder, compare::dialogWorkbookChooser(), context.wait, parent);
    frm.setWorkbooks(QString(), QFileInfo::exists(after) ? after : QString());
    frm.exec();
}

} // namespace

void wireCompare(AppContext &context)
{
    sheet::FrmMitumori *frm = context.sheet;
    frm->setButtonEnabled(sheet::SheetButton::Compare, true);
    QObject::connect(frm, &sheet::FrmMitumori::openRequested, frm, [&context](sheet::SheetButton b) {
        if (b == sheet::SheetButton::Compare)
            runComparison(context, context.session.workbookPath, context.sheet);
    });
    if (context.store) {
        context.store->addOpenDialogHook([&context](workbook::DlgOpen &dialog) {
            QPushButton *button = dialog.addButton(QStringLiteral("cmdHikaku"), QStringLiteral("比較"));
            QObject::connect(button, &QPushButton::clicked, &dialog,
                             [&context, &dialog] { runComparison(context, dialog.selectedPath(), &dialog); });
        });
    }
}

} // namespace est::app
