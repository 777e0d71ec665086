#pragma once
// Slip numbers: the day's "yymmdd" followed by a counter of that day ("240105006"). The
// counters live in the slip ledger (slip_ledger.h); this is the rule of the proposal.

#include "common/session.h"

#include <QDate>
#include <QSettings>
#include <QString>
#include <cstdint>
#include <memory>
#include <optional>

namespace est::sheet {

// The settings store of the program (organisation and application "EstimateApp"), where
// earlier versions kept the counter.
std::unique_ptr<QSettings> openSlipSettings();

// What the ledger holds for a proposal.
struct SlipLedgerState
{
    int lastOfDay = 0;                  // the last counter issued for the asked day, 0 for none
    std::optional<QDate> lastConfirmed; // the latest day any slip was confirmed on
};

// The number the date dialog proposes for a new slip on `day`.
struct SlipProposal
{
    enum class Outcome {
        Issued,       // a number is proposed
        DateInFuture, // the last slip is dated after `day`: the clock was set back
        Overflow,     // the counter no longer fits its 16 bits
        Unreadable,   // the ledger could not be read
    };
    Outcome outcome = Outcome::Issued;
    std::int16_t counter = 0;
    QDate day;
    QString eraDate;    // "令和6年1月5日"
    QString key;        // "240105"
    QString number;     // key followed by the counter as "000"

    bool issued() const { return outcome == Outcome::Issued; }
    // "新規伝票番号は 240105006 です。"
    QString labelText() const;
};

// The day's next counter; a day before the latest day a slip was confirmed on is refused
// (the clock was set back), as is a counter beyond 16 bits.
SlipProposal proposeSlip(const SlipLedgerState &state, QDate day);

// The proposal with the counter the ledger actually issued (another seat may have taken the
// proposed one in the meantime).
SlipProposal issuedAs(SlipProposal proposal, int counter);

// Takes a confirmed proposal into the session: the stored counter, the slip number and the
// estimate date of the open estimate. The stored date of the last slip is `today`, whatever
// date the proposal was made for: a date typed for one estimate must not hold back the
// estimates of the following days.
void confirmSlip(Session &session, const SlipProposal &proposal, QDate today);

} // namespace est::sheet
