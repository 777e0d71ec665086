#include "sheet/slip_numbering.h"

#include "common/number_format.h"
#include "sheet/era_date.h"

#include <limits>

namespace est::sheet {

namespace {
const QString kApplication = QStringLiteral("EstimateApp");
const QString kCounterKey = QStringLiteral("DenpyoNo/DNo");
const QString kDayKey = QStringLiteral("DenpyoDDay/DDay");
} // namespace

std::unique_ptr<QSettings> openSlipSettings()
{
    return std::make_unique<QSettings>(kApplication, kApplication);
}

void loadSlipSettings(Session &session, QSettings &settings, QDate today)
{
    const QString counterDefault = session.denpyoNo.isEmpty() ? QStringLiteral("000") : session.denpyoNo;
    const QString dayDefault = session.denpyoDDay.isEmpty() ? dayKey(today) : session.denpyoDDay;
    session.denpyoNo = settings.value(kCounterKey, counterDefault).toString();
    session.denpyoDDay = settings.value(kDayKey, dayDefault).toString();
}

void saveSlipSettings(const Session &session, QSettings &settings)
{
    settings.setValue(kCounterKey, session.denpyoNo);
    settings.setValue(kDayKey, session.denpyoDDay);
    settings.sync();
}

QString SlipProposal::labelText() const
{
    return QStringLiteral("新規伝票番号は ") + number + QStringLiteral(" です。");
}

SlipProposal proposeSlip(const QString &storedCounter, const QString &storedDay, QDate day)
{
    SlipProposal p;
    p.day = day;
    p.eraDate = eraDate(day);
    p.key = dayKey(day);

    bool ok = false;
    const long long stored = storedCounter.trimmed().toLongLong(&ok);
    const std::optional<QDate> last = parseDayKey(storedDay);
    long long counter = 0;
    if (last && *last > day) {
        p.outcome = SlipProposal::Outcome::DateInFuture;
        return p;
    }
    if (last && *last == day)
        counter = (ok ? stored : 0) + 1;
    else
        counter = 1;
    if (counter > std::numeric_limits<std::int16_t>::max() || counter < std::numeric_limits<std::int16_t>::min()) {
        p.outcome = SlipProposal::Outcome::Overflow;
        return p;
    }
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
