#include "workitems/labour.h"

#include "common/number_format.h"
#include "workitems/round_amount.h"

#include <cmath>
#include <limits>

namespace est::workitems {

std::optional<Yen> labourFromIndex(const QString &indexText, std::int16_t rate, Rounding rounding,
                                   Messages &messages)
{
    const auto index = parseDisplayedNumber(indexText);
    if (!index)
        return std::nullopt;
    const auto amount = roundToYen(*index * double(rate));
    if (!amount)
        return std::nullopt;
    if (rounding.digits == 0)
        return amount;
    return roundAmount(*amount, rounding.digits, rounding.mode, messages);
}

std::optional<Yen> partTotal(const QString &unitPriceText, const QString &quantityText)
{
    if (isBlank(unitPriceText) || isBlank(quantityText))
        return std::nullopt;
    const auto price = parseDisplayedNumber(unitPriceText);
    const auto quantity = parseDisplayedNumber(quantityText);
    if (!price || !quantity)
        return std::nullopt;
    return roundToYen(*price * *quantity);
}

QString filterNumericText(const QString &text, bool allowPoint)
{
    QString out;
    out.reserve(text.size());
    bool point = false;
    for (QChar c : text) {
        if (c.unicode() >= 0xFF10 && c.unicode() <= 0xFF19)
            c = QChar(u'0' + (c.unicode() - 0xFF10));
        else if (c == QChar(0xFF0E))
            c = QLatin1Char('.');
        if (c >= QLatin1Char('0') && c <= QLatin1Char('9')) {
            out.append(c);
        } else if (c == QLatin1Char('.') && allowPoint && !point) {
            point = true;
            out.append(c);
        }
    }
    return out;
}

QString reformatIndex(const QString &text)
{
    const auto value = parseDisplayedNumber(text);
    if (!value)
        return text;
    QString s = formatHash2(*value);
    if (s.startsWith(QLatin1Char('.')))
        s.prepend(QLatin1Char('0'));
    return s;
}

std::optional<std::int16_t> parseRate(const QString &text)
{
    const QString trimmed = text.trimmed();
    bool ok = false;
    const qlonglong value = trimmed.toLongLong(&ok);
    if (!ok || value < 0 || value > std::numeric_limits<std::int16_t>::max())
        return std::nullopt;
    return std::int16_t(value);
}

} // namespace est::workitems
