#pragma once
// dlgDay: shows today's era date and the proposed slip number before a new estimate starts
// (and from the sheet's "伝票日付変更"); confirming issues the number from the slip ledger.

#include "common/clock.h"
#include "common/messages.h"
#include "common/session.h"
#include "sheet/slip_ledger.h"
#include "sheet/slip_numbering.h"
#include "uikit/guarded_dialog.h"

class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace est::sheet {

class FrmMitumori;

class DlgDay : public ui::GuardedDialog
{
    Q_OBJECT
public:
    // `sheet` shows the confirmed date and number (may be null); `ledger` issues it.
    DlgDay(Session &session, Messages &messages, const Clock &clock, SlipLedger &ledger,
           FrmMitumori *sheet = nullptr, QWidget *parent = nullptr);

    // Proposes the number for today and, unless the last slip is dated after today, shows
    // the dialog modally. Returns Accepted when a number was issued.
    int run();

    // Computes the proposal for today without showing anything; false when none can be made
    // (the warning has been shown). run() calls it; tests drive the shown dialog after it.
    bool prepare();

    const SlipProposal &proposal() const { return m_proposal; }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void buildUi();
    void showProposal();
    bool proposeFor(QDate day);
    bool applyTypedDate();
    void useTypedDate(bool on);
    void confirm();

    Session &m_session;
    const Clock &m_clock;
    SlipLedger &m_ledger;
    FrmMitumori *m_sheet;
    SlipProposal m_proposal;
    QString m_appliedText;  // the typed text the proposal was last made from

    QLabel *m_lblKyou = nullptr;
    QLabel *m_lblDNo = nullptr;
    QLineEdit *m_txtHiduke = nullptr;
    QCheckBox *m_ck1 = nullptr;
    QPushButton *m_ok = nullptr;
    QPushButton *m_ok2 = nullptr;
};

} // namespace est::sheet
