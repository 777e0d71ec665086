#pragma once
// What the labour rate dialog decides: the rate (16-bit, yen per index point) and the shop's
// rounding, from the dialog's rate text and option buttons.

#include "common/session.h"
#include "workitems/labour.h"

#include <QString>

namespace est::workitems {

// opt1: index 0, 1, 2 = rounding digits 0, 1, 2 (the third, or none chosen, is 2).
std::int16_t digitsForOption(int opt1Index);
// opt2: index 0, 1, 2 = mode 1, 2, 3 (the third, or none chosen, is 3).
std::int16_t modeForOption(int opt2Index);
// The mode buttons only matter when there is rounding.
bool modeOptionsEnabled(int opt1Index);
// The option indexes that show the current settings when the dialog opens.
int optionForDigits(std::int16_t digits);
int optionForMode(std::int16_t mode);

enum class RateOutcome {
    Set,       // rate and rounding stored
    Empty,     // no rate typed: nothing stored yet, the user is asked
    TooLarge,  // the rate does not fit in 16 bits: the old rate stays, the rounding is stored
};

// Stores the dialog's choice in the session: the labour rate and the paint labour rate
// together, and the rounding digits and mode. A blank rate text changes nothing.
RateOutcome applyRateChoice(Session &session, const QString &rateText, int opt1Index, int opt2Index);

} // namespace est::workitems
