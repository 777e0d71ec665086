// Revised estimates and their comparison: the sheet's "修正見積" continues the open estimate
// as its next revision; frmHikaku from the sheet's "比較" (the open estimate against its
// previous revision) and from the open dialog's "比較" (the chosen workbook as the later one).

#include "app/wiring.h"
#include "compare/frm_hikaku.h"
#include "print/saved_state.h"
#include "sheet/frm_mitumori.h"
#include "workbook/dlg_open.h"
#include "workbook/estimate_files.h"
#include "workbook/revisions.h"
#include "workbook/workbook_store.h"

#include <QDir>
#include <QFileInfo>
#include <QPushButton>

namespace est::app {

namespace {

const QString kReviseTitle = QStringLiteral("修正見積");

void runComparison(AppContext &context, const QString &before, const QString &after, QWidget *parent)
{
    compare::FrmHikaku frm(context.messages, context.appFolder, compare::dialogWorkbookChooser(), context.wait, parent);
    frm.setWorkbooks(QFileInfo::exists(before) ? before : QString(), QFileInfo::exists(after) ? after : QString());
    frm.exec();
}

// The revision before the workbook's, when it is there.
QString previousRevision(const QString &workbook)
{
    const QFileInfo info(workbook);
    const workbook::RevisionName name = workbook::parseRevisionName(info.fileName());
    if (name.revision < 2)
        return QString();
    return info.dir().filePath(workbook::revisionFileName(name.base, name.revision - 1));
}

// Saves the estimate when the workbook does not hold what the sheet shows, then continues it
// as the next revision in a workbook of its own.
void revise(AppContext &context)
{
    Session &s = context.session;
    if (!context.store)
        return;
    const bool saved = !s.workbookPath.isEmpty()
                       && print::compareWithWorkbook(s, s.workbookPath) == print::SavedState::Same;
    if (!saved && !context.store->save())
        return;
    const Session before = s;
    if (workbook::beginNextRevision(s, workbook::estimatesFolder(context.appFolder)) == 0) {
        context.messages.inform(QStringLiteral("これ以上の修正見積は作れません。"), kReviseTitle, MessageIcon::Exclamation);
        return;
    }
    s.editExisting = true;
    if (!context.store->save()) {
        s = before;
        return;
    }
    context.sheet->showRevision();
    context.messages.inform(revisionCaption(s.revision) + QStringLiteral("として保存しました。\nファイル名　") + s.fileName,
                            kReviseTitle, MessageIcon::Information);
}

} // namespace

void wireCompare(AppContext &context)
{
    sheet::FrmMitumori *frm = context.sheet;
    frm->setButtonEnabled(sheet::SheetButton::Compare, true);
    frm->setButtonEnabled(sheet::SheetButton::Revise, context.store != nullptr);
    QObject::connect(frm, &sheet::FrmMitumori::openRequested, frm, [&context](sheet::SheetButton b) {
        if (b == sheet::SheetButton::Compare) {
            const QString open = context.session.workbookPath;
            runComparison(context, previousRevision(open), open, context.sheet);
        } else if (b == sheet::SheetButton::Revise) {
            revise(context);
        }
    });
    if (context.store) {
        context.store->addOpenDialogHook([&context](workbook::DlgOpen &dialog) {
            QPushButton *button = dialog.addButton(QStringLiteral("cmdHikaku"), QStringLiteral("比較"));
            QObject::connect(button, &QPushButton::clicked, &dialog, [&context, &dialog] {
                const QString chosen = dialog.selectedPath();
                runComparison(context, previousRevision(chosen), chosen, &dialog);
            });
        });
    }
}

} // namespace est::app
