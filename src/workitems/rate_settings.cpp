#include "workitems/rate_settings.h"

#include "common/number_format.h"

namespace est::workitems {

std::int16_t digitsForOption(int opt1Index)
{
    return opt1Index == 0 ? 0 : opt1Index == 1 ? 1 : 2;
}

std::int16_t modeForOption(int opt2Index)
{
    return opt2Index == 0 ? 1 : opt2Index == 1 ? 2 : 3;
}

bool modeOptionsEnabled(int opt1Index)
{
    return opt1Index != 0;
}

int optionForDigits(std::int16_t digits)
{
    return digits <= 0 ? 0 : digits == 1 ? 1 : 2;
}

int optionForMode(std::int16_t mode)
{
    return mode == 2 ? 1 : mode == 3 ? 2 : 0;
}

RateOutcome applyRateChoice(Session &session, const QString &rateText, int opt1Index, int opt2Index)
{
    if (isBlank(rateText))
        return RateOutcome::Empty;
    const auto rate = parseRate(filterNumericText(rateText, false));
    // Like every step of this dialog, a failing one is skipped and the rest still applies.
    if (rate) {
        session.labourRate = *rate;
        session.paintLabourRate = *rate;
    }
    session.roundDigits = digitsForOption(opt1Index);
    session.roundMode = modeForOption(opt2Index);
    return rate ? RateOutcome::Set : RateOutcome::TooLarge;
}

} // namespace est::workitems
