#include "app/frm_setting.h"
#include "app/wiring.h"
#include "customers/setting_lists.h"
#include "paint/dlg_naiban_setting.h"
#include "paint/dlg_toryo.h"
#include "paint/frm_paint.h"
#include "paint/paint_session.h"
#include "sheet/frm_mitumori.h"

namespace est::app {

namespace {

// 塗装作成: the paint kind dialog, then the paint screen, both on a draft of the estimate;
// only the paint screen's OK takes the draft's paint over.
void estimatePainting(AppContext &c)
{
    Session draft = c.session;
    QString error;
    QStringList kinds, highFunctions;
    if (auto lists = customers::SettingLists::open(c.appFolder, &error)) {
        kinds = lists->paintKinds();
        highFunctions = lists->highFunctionPaints();
    }
    paint::DlgToryo kindDialog(draft, c.messages, kinds, highFunctions, c.sheet);
    if (kindDialog.exec() != QDialog::Accepted)
        return;
    auto masters = paint::PaintMasters::open(c.appFolder, &error);
    if (!masters)
        c.messages.inform(error, QStringLiteral("塗装作成"), MessageIcon::Exclamation);
    paint::FrmPaint screen(draft, c.messages, masters.get(), c.sheet);
    if (screen.exec() != QDialog::Accepted)
        return;
    paint::takePaintResult(draft, c.session);
    c.sheet->refreshRows();
}

} // namespace

void wirePaint(AppContext &context)
{
    AppContext *c = &context;
    c->sheet->setButtonEnabled(sheet::SheetButton::Paint, true);
    QObject::connect(c->sheet, &sheet::FrmMitumori::openRequested, c->sheet, [c](sheet::SheetButton b) {
        if (b == sheet::SheetButton::Paint)
            estimatePainting(*c);
    });
    c->settings->setScreen(QStringLiteral("Command9"),
                           [c] { paint::editInnerPanels(c->appFolder, c->messages, c->settings); });
}

} // namespace est::app
