#pragma once
// Slip numbers: today's "yymmdd" followed by a counter of the day ("240105006"). The
// counter and the date of the last slip live in the per-user settings store between runs.

#include "common/session.h"

#include <QDate>
#include <QSettings>
#include <QString>
#include <cstdint>
#include <memory>

namespace est::sheet {

// The settings store of the program (organisation and application "EstimateApp").
std::unique_ptr<QSettings> openSlipSettings();

// Reads "DenpyoNo/DNo" and "DenpyoDDay/DDay" into the session. What is missing keeps the
// value held in memory; when memory holds nothing either (the very first start) the
// counter is "000" and the slip date is today's key.
void loadSlipSettings(Session &session, QSettings &settings, QDate today);

// Writes both values back.
void saveSlipSettings(const Session &session, QSettings &settings);

// The number the date dialog proposes for a new slip on `day`.
struct SlipProposal
{
    enum class Outcome {
        Issued,       // a number is proposed
        DateInFuture, // the last slip is dated after `day`: the clock was set back
        Overflow,     // the counter no longer fits its 16 bits
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

// Same day as the last slip: counter + 1; a later day: 1; an earlier day: refused.
// A stored date that cannot be read counts as an earlier day, a stored counter that
// cannot be read as 0.
SlipProposal proposeSlip(const QString &storedCounter, const QString &storedDay, QDate day);

// Takes a confirmed proposal into the session: the stored counter, the slip number and the
// estimate date of the open estimate. The stored date of the last slip is `today`, whatever
// date the proposal was made for: a date typed for one estimate must not hold back the
// estimates of the following days.
void confirmSlip(Session &session, const SlipProposal &proposal, QDate today);

} // namespace est::sheet
