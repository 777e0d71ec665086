#include "workitems/round_amount.h"

#include <QString>

namespace est::workitems {

namespace {

// Message boxes without a title of their own carry the program's name.
const QString kAppTitle = QStringLiteral("見積書作成");

// Moves the amount by `delta`; out of range leaves it as it was.
Yen shifted(Yen amount, std::int64_t delta)
{
    return toYen(std::int64_t(amount) + delta).value_or(amount);
}

} // namespace

Yen roundAmount(Yen amount, std::int16_t digits, std::int16_t mode, Messages &messages)
{
    if (digits < 1 || amount < 0)
        return amount;
    if (digits >= 3) {
        messages.inform(QStringLiteral("指定数は１０の位までです。"), kAppTitle, MessageIcon::None);
        return 0;
    }
    // Short amounts are read as if padded with leading zeros (5 at the tens digit: d 0, r 5).
    const QString s = QString::number(amount).rightJustified(digits, QLatin1Char('0'));
    const int d = s.at(s.size() - digits).digitValue();
    const int r = s.right(digits).toInt();
    if (digits == 1) {
        switch (mode) {
        case 1:
            return d < 5 ? shifted(amount, -d) : shifted(amount, 10 - d);
        case 2:
            return d != 0 ? shifted(amount, 10 - d) : amount;
        default:
            return d != 0 ? shifted(amount, -d) : amount;
        }
    }
    switch (mode) {
    case 1:
        return d < 5 ? shifted(amount, -r) : shifted(amount, 100 - r);
    case 2:
        return d != 0 ? shifted(amount, 100 - r) : amount;
    case 3:
        return d != 0 ? shifted(amount, -r) : amount;
    default:
        messages.inform(QStringLiteral("指定数は３までです。"), kAppTitle, MessageIcon::None);
        return 0;
    }
}

} // namespace est::workitems
