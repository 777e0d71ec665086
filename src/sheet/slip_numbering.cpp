#include "sheet/slip_numbering.h"

#include "common/number_format.h"
#include "sheet/era_date.h"

#include <limits>

namespace est::sheet {

namespace {
const QString kApplication = QStringLiteral("EstimateApp");
} // namespace

std::unique_ptr<QSettings> openSlipSettings()
{
    return std::make_unique<QSettings>(kApplication, kApplication);
}

QString SlipProposal::labelText() const
{
    return QStringLiteral("新規伝票番号は ") + number + QStringLiteral(" です。");
}

SlipProposal proposeSlip(const SlipLedgerState &state, QDate day)
{
    SlipProposal p;
    p.day = day;
    p.eraDate = eraDate(day);
    p.key = dayKey(day);
    if (state.lastConfirmed && *state.lastConfirmed > day) {
        p.outcome = SlipProposal::Outcome::DateInFuture;
        return p;
    }
    return issuedAs(p, state.lastOfDay + 1);
}

SlipProposal issuedAs(SlipProposal p, int counter)
{
    if (counter > std::numeric_limits<std::int16_t>::max() || counter < 1) {
        p.outcome = SlipProposal::Outcome::Overflow;
        p.number.clear();
        return p;
    }
    p.outcome = SlipProposal::Outcome::Issued;
    p.counter = std::int16_t(counter);
    p.number = p.key + formatThreeDigits(p.counter);
    return p;
}

void confirmSlip(Session &session, const SlipProposal &proposal, QDate today)
{
    session.denpyoNo = formatThreeDigits(proposal.counter);
    session.denpyoDDay = dayKey(today);
    session.slipNumber = proposal.number;
    session.estimateDate = proposal.eraDate;
}

} // namespace est::sheet
