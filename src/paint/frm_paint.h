#pragma once
// frmPaint: the paint screen. The user picks painted panels by category, takes the basic
// index from the panel count and paint material, adds surcharge and inner-panel lines, and
// sees labour, material cost and paint total B. It works on a PaintEditor (a copy of the
// estimate's paint state) and writes into the session only on OK.

#include "common/session.h"
#include "paint/paint_editor.h"
#include "uikit/guarded_dialog.h"

class QLabel;
class QPushButton;

namespace est::paint {

class FrmPaint : public ui::GuardedDialog
{
    Q_OBJECT
public:
    // `masters` may be null (no paint database): the lists stay empty, lines are typed by hand.
    FrmPaint(Session &session, Messages &messages, const PaintMasters *masters, QWidget *parent = nullptr);
    ~FrmPaint() override;

    const PaintEditor &editor() const { return m_editor; }

    // The bumper and additional-index screens hand their sums in here.
    void setBumperLabour(Yen labour);
    void setAdditionalTotal(Yen total);
    QPushButton *bumperButton() const;
    QPushButton *additionalButton() const;

private:
    struct Widgets;
    void buildUi();
    void connectUi();
    void fillCategories();
    void categoryClicked(int row);
    void partClicked(int row);
    void basicInputsChanged();
    void basicIndexChanged(const QString &text);
    void setEntryIndex(const QString &index, LineKind kind);
    void entryIndexChanged();
    void indexLeft();
    void rateChanged(const QString &text);
    void twoCoatToggled(bool on);
    void lowHidingToggled(bool on);
    void applySurcharge(const SurchargeEntry &entry);
    void openLowHiding();
    void openInnerPanels();

    void addLine();
    void insertLine();
    void editLine();
    void cancelEdit();
    void deleteLine();
    void confirm();

    EntryText entryText() const;
    // Shows the grid and sums after Done, says anything else; true for Done.
    bool report(EntryOutcome outcome);
    void clearEntry();
    void loadEntry(const EntryText &entry);
    void showLines();
    void showSums();
    void updateButtons();
    void showLabour(QLabel *label, const QString &index);

    Session &m_session;
    PaintEditor m_editor;
    Widgets *m_w;
};

} // namespace est::paint
