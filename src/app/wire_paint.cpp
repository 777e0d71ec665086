#include "app/frm_setting.h"
#include "app/wiring.h"
#include "customers/setting_lists.h"
#include "indices/index_screens.h"
#include "paint/dlg_naiban_setting.h"
#include "paint/dlg_toryo.h"
#include "paint/frm_paint.h"
#include "paint/paint_session.h"
#include "sheet/frm_mitumori.h"

#include <QPushButton>

namespace est::app {

namespace {

// 工賃 of the bumper and additional screens follows the paint rate as the paint screen shows
// it now, which the user may have changed since it opened.
Session indexContext(const Session &draft, const paint::FrmPaint &screen)
{
    Session context = draft;
    context.paintLabourRate = screen.editor().calculation().rate();
    return context;
}

// バンパー and 付加指数 of the paint screen: each works on the draft's state and, on OK, hands
// its sum to the paint screen.
void connectIndexScreens(AppContext &c, Session &draft, paint::FrmPaint &screen)
{
    screen.bumperButton()->setEnabled(true);
    screen.additionalButton()->setEnabled(true);
    QObject::connect(screen.bumperButton(), &QPushButton::clicked, &screen, [&c, &draft, &screen] {
        const auto state = indices::openBumper(indexContext(draft, screen), draft.bumper, c.appFolder, c.messages,
                                               &screen);
        if (!state)
            return;
        draft.bumper = *state;
        screen.setBumperLabour(state->labourSum);
    });
    QObject::connect(screen.additionalButton(), &QPushButton::clicked, &screen, [&c, &draft, &screen] {
        const auto state = indices::openAdditional(indexContext(draft, screen), draft.additional, c.appFolder,
                                                   c.messages, &screen);
        if (!state)
            return;
        draft.additional = *state;
        screen.setAdditionalTotal(state->total);
    });
}

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
    connectIndexScreens(c, draft, screen);
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
