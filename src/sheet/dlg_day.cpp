#include "sheet/dlg_day.h"

#include "sheet/era_date.h"
#include "sheet/frm_mitumori.h"

#include <QCheckBox>
#include <QKeyEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace est::sheet {

DlgDay::DlgDay(Session &session, Messages &messages, const Clock &clock, SlipLedger &ledger, FrmMitumori *sheet,
               QWidget *parent)
    : GuardedDialog(messages, parent), m_session(session), m_clock(clock), m_ledger(ledger), m_sheet(sheet)
{
    setObjectName(QStringLiteral("dlgDay"));
    setEscapeCancels(true);
    setWindowTitle(QStringLiteral("伝票日付"));
    buildUi();
}

void DlgDay::buildUi()
{
    auto *layout = new QVBoxLayout(this);
    auto *grid = new QGridLayout;
    grid->addWidget(new QLabel(QStringLiteral("見積日付"), this), 0, 0);
    m_lblKyou = new QLabel(this);
    m_lblKyou->setObjectName(QStringLiteral("lblKyou"));
    QFont big = m_lblKyou->font();
    big.setPointSizeF(big.pointSizeF() * 1.3);
    big.setBold(true);
    m_lblKyou->setFont(big);
    grid->addWidget(m_lblKyou, 0, 1, 1, 2);

    m_ck1 = new QCheckBox(QStringLiteral("日付を指定する"), this);
    m_ck1->setObjectName(QStringLiteral("Ck1"));
    grid->addWidget(m_ck1, 1, 0);
    m_txtHiduke = new QLineEdit(this);
    m_txtHiduke->setObjectName(QStringLiteral("txtHiduke"));
    m_txtHiduke->setPlaceholderText(QStringLiteral("1999/01/01"));
    m_txtHiduke->setEnabled(false);
    grid->addWidget(m_txtHiduke, 1, 1);
    m_ok2 = new QPushButton(QStringLiteral("日付確定"), this);
    m_ok2->setObjectName(QStringLiteral("cmdOk2"));
    m_ok2->setEnabled(false);
    m_ok2->setAutoDefault(false);
    grid->addWidget(m_ok2, 1, 2);
    layout->addLayout(grid);

    m_lblDNo = new QLabel(this);
    m_lblDNo->setObjectName(QStringLiteral("lblDNo"));
    m_lblDNo->setFrameShape(QFrame::Panel);
    m_lblDNo->setFrameShadow(QFrame::Sunken);
    m_lblDNo->setMinimumHeight(32);
    layout->addWidget(m_lblDNo);

    auto *buttons = new QHBoxLayout;
    buttons->addStretch(1);
    m_ok = new QPushButton(QStringLiteral("OK"), this);
    m_ok->setObjectName(QStringLiteral("OKButton"));
    m_ok->setDefault(true);
    auto *cancel = new QPushButton(QStringLiteral("キャンセル"), this);
    cancel->setObjectName(QStringLiteral("CancelButton"));
    cancel->setAutoDefault(false);
    buttons->addWidget(m_ok);
    buttons->addWidget(cancel);
    layout->addLayout(buttons);
    setMinimumWidth(420);

    connect(m_ck1, &QCheckBox::toggled, this, &DlgDay::useTypedDate);
    connect(m_ok2, &QPushButton::clicked, this, &DlgDay::applyTypedDate);
    m_txtHiduke->installEventFilter(this);
    // A new typed date may be confirmed straight away (OK applies it first), even when the
    // previous one was refused.
    connect(m_txtHiduke, &QLineEdit::textEdited, this, [this] { m_ok->setEnabled(true); });
    connect(m_ok, &QPushButton::clicked, this, &DlgDay::confirm);
    connect(cancel, &QPushButton::clicked, this, [this] { cancelByButton(); });
}

bool DlgDay::eventFilter(QObject *watched, QEvent *event)
{
    // Enter in the date field shows the proposal for the typed date; it must not also press
    // OK and issue the number before the user has seen it.
    if (watched == m_txtHiduke && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent *>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            applyTypedDate();
            return true;
        }
    }
    return GuardedDialog::eventFilter(watched, event);
}

bool DlgDay::proposeFor(QDate day)
{
    const std::optional<SlipLedgerState> state = m_ledger.state(day);
    if (state) {
        m_proposal = proposeSlip(*state, day);
    } else {
        m_proposal = SlipProposal{};
        m_proposal.outcome = SlipProposal::Outcome::Unreadable;
        m_proposal.eraDate = eraDate(day);
    }
    showProposal();
    switch (m_proposal.outcome) {
    case SlipProposal::Outcome::Issued:
        return true;
    case SlipProposal::Outcome::DateInFuture:
        messages().inform(QStringLiteral("日付が違います。正しい日付を入力してください。"), QStringLiteral("警告"),
                          MessageIcon::Critical);
        return false;
    case SlipProposal::Outcome::Overflow:
        messages().inform(QStringLiteral("伝票番号がこれ以上増やせません。"), QStringLiteral("警告"),
                          MessageIcon::Critical);
        return false;
    case SlipProposal::Outcome::Unreadable:
        messages().inform(QStringLiteral("伝票番号の記録を読めません。\n") + m_ledger.lastError(),
                          QStringLiteral("警告"), MessageIcon::Critical);
        return false;
    }
    return false;
}

void DlgDay::showProposal()
{
    m_lblKyou->setText(m_proposal.eraDate);
    m_lblDNo->setText(m_proposal.issued() ? m_proposal.labelText() : QString());
    m_ok->setEnabled(m_proposal.issued());
}

bool DlgDay::prepare()
{
    m_appliedText.clear();
    return proposeFor(m_clock.today());
}

int DlgDay::run()
{
    if (!prepare())
        return QDialog::Rejected;
    return exec();
}

void DlgDay::useTypedDate(bool on)
{
    m_txtHiduke->setEnabled(on);
    m_ok2->setEnabled(on);
    if (on) {
        if (m_txtHiduke->text().isEmpty())
            m_txtHiduke->setText(m_clock.today().toString(QStringLiteral("yyyy/MM/dd")));
        m_txtHiduke->setFocus();
        m_txtHiduke->selectAll();
    } else {
        m_appliedText.clear();
        proposeFor(m_clock.today());
    }
}

bool DlgDay::applyTypedDate()
{
    if (!m_ck1->isChecked())
        return true;
    const auto day = parseTypedDate(m_txtHiduke->text());
    if (!day) {
        messages().inform(QStringLiteral("1999/01/01 のように\n入力してください。"), QStringLiteral("日付の入力"),
                          MessageIcon::Exclamation);
        m_txtHiduke->setFocus();
        m_txtHiduke->selectAll();
        return false;
    }
    m_appliedText = m_txtHiduke->text();
    return proposeFor(*day);
}

void DlgDay::confirm()
{
    // A typed date that was not applied yet is applied first, so the user confirms what was typed.
    if (m_ck1->isChecked() && m_txtHiduke->text() != m_appliedText && !applyTypedDate())
        return;
    if (!m_proposal.issued())
        return;
    const SlipConfirmation issued = issueProposal(m_ledger, m_proposal, m_clock.today());
    if (!issued.error.isEmpty()) {
        messages().inform(issued.error, QStringLiteral("警告"), MessageIcon::Critical);
        return;
    }
    m_proposal = issued.proposal;
    confirmSlip(m_session, m_proposal, m_clock.today());
    if (m_sheet)
        m_sheet->showSlip();
    if (!issued.notice.isEmpty())
        messages().inform(issued.notice, QStringLiteral("伝票番号"), MessageIcon::Information);
    accept();
}

} // namespace est::sheet
