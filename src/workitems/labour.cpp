#include "workitems/labour.h"

#include "common/number_format.h"
#include "workitems/round_amount.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace est::workitems {

namespace {

// A typed number held exactly as digits and a power of ten ("1.15" -> 115, 2), so that a
// product landing on half a yen is seen as such instead of as a binary fraction just below
// or above it (0.05 x 5,010 is 250.5, which goes to 250, not 251).
struct ExactDecimal
{
    __int128 digits = 0;
    int scale = 0;
};

std::optional<ExactDecimal> exactDecimal(const QString &text)
{
    constexpr int kMaxDigits = 18;
    ExactDecimal value;
    bool negative = false, point = false, any = false;
    int count = 0;
    for (QChar c : text) {
        if (c.unicode() >= 0xFF10 && c.unicode() <= 0xFF19)
            c = QChar(u'0' + (c.unicode() - 0xFF10));
        else if (c == QChar(0xFF0E))
            c = QLatin1Char('.');
        else if (c == QChar(0xFF0D) || c == QChar(0x2212))
            c = QLatin1Char('-');
        if (c == QLatin1Char(',') || c == QChar(0xFF0C) || c.isSpace())
            continue;
        if (c == QLatin1Char('-') && !any && !negative && !point) {
            negative = true;
        } else if (c == QLatin1Char('.') && !point) {
            point = true;
        } else if (c >= QLatin1Char('0') && c <= QLatin1Char('9')) {
            any = true;
            if (value.digits == 0 && c == QLatin1Char('0') && !point)
                continue;
            if (++count > kMaxDigits)
                return std::nullopt;
            value.digits = value.digits * 10 + (c.unicode() - u'0');
            if (point)
                ++value.scale;
        } else {
            return std::nullopt;
        }
    }
    if (!any)
        return std::nullopt;
    if (negative)
        value.digits = -value.digits;
    return value;
}

// a x b to whole yen, nearest with ties to even; empty outside 32 bits.
std::optional<Yen> exactProduct(const ExactDecimal &a, const ExactDecimal &b)
{
    const __int128 n = a.digits * b.digits;
    __int128 d = 1;
    for (int i = 0; i < a.scale + b.scale; ++i)
        d *= 10;
    __int128 q = n / d;
    __int128 r = n % d;
    if (r < 0) {
        r += d;
        --q;
    }
    if (2 * r > d || (2 * r == d && q % 2 != 0))
        ++q;
    if (q < std::numeric_limits<Yen>::min() || q > std::numeric_limits<Yen>::max())
        return std::nullopt;
    return Yen(q);
}

// Brings a decimal to `scale` places (scale >= its own).
__int128 digitsAtScale(const ExactDecimal &value, int scale)
{
    __int128 digits = value.digits;
    for (int i = value.scale; i < scale; ++i)
        digits *= 10;
    return digits;
}

// The shortest decimal text of a value: no trailing zeros after the point, "0" for zero.
QString shortestText(ExactDecimal value)
{
    while (value.scale > 0 && value.digits % 10 == 0) {
        value.digits /= 10;
        --value.scale;
    }
    const bool negative = value.digits < 0;
    unsigned __int128 magnitude = negative ? -value.digits : value.digits;
    QString digits;
    do {
        digits.prepend(QChar(u'0' + int(magnitude % 10)));
        magnitude /= 10;
    } while (magnitude > 0);
    if (value.scale > 0) {
        while (digits.size() <= value.scale)
            digits.prepend(QLatin1Char('0'));
        digits.insert(digits.size() - value.scale, QLatin1Char('.'));
    }
    return negative ? QLatin1Char('-') + digits : digits;
}

// The product of two typed numbers; exact when both are plain decimals, else through doubles.
std::optional<Yen> productToYen(const QString &a, double aValue, const QString &b, double bValue)
{
    const auto x = exactDecimal(a);
    const auto y = exactDecimal(b);
    if (x && y)
        return exactProduct(*x, *y);
    return roundToYen(aValue * bValue);
}

} // namespace

std::optional<Yen> labourFromIndex(const QString &indexText, std::int16_t rate, Rounding rounding,
                                   Messages &messages)
{
    const auto index = parseDisplayedNumber(indexText);
    if (!index)
        return std::nullopt;
    const auto amount = productToYen(indexText, *index, QString::number(rate), double(rate));
    if (!amount)
        return std::nullopt;
    if (rounding.digits == 0)
        return amount;
    return roundAmount(*amount, rounding.digits, rounding.mode, messages);
}

std::optional<QString> sumIndexTexts(const QStringList &texts)
{
    constexpr int kMaxScale = 18;
    ExactDecimal sum;
    for (const QString &text : texts) {
        const auto value = exactDecimal(text);
        if (!value)
            return std::nullopt;
        const int scale = std::max(sum.scale, value->scale);
        if (scale > kMaxScale)
            return std::nullopt;
        sum.digits = digitsAtScale(sum, scale) + digitsAtScale(*value, scale);
        sum.scale = scale;
    }
    return shortestText(sum);
}

std::optional<QString> multiplyIndexText(const QString &text, std::int64_t count)
{
    auto value = exactDecimal(text);
    if (!value)
        return std::nullopt;
    value->digits *= count;
    return shortestText(*value);
}

std::optional<Yen> partTotal(const QString &unitPriceText, const QString &quantityText)
{
    if (isBlank(unitPriceText) || isBlank(quantityText))
        return std::nullopt;
    const auto price = parseDisplayedNumber(unitPriceText);
    const auto quantity = parseDisplayedNumber(quantityText);
    if (!price || !quantity)
        return std::nullopt;
    return productToYen(unitPriceText, *price, quantityText, *quantity);
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

std::optional<Yen> decimalProductToYen(const QString &a, const QString &b)
{
    const auto x = exactDecimal(a);
    const auto y = exactDecimal(b);
    if (!x || !y)
        return std::nullopt;
    return exactProduct(*x, *y);
}

std::optional<QString> decimalSum(const QString &a, const QString &b)
{
    const auto x = exactDecimal(a);
    const auto y = exactDecimal(b);
    if (!x || !y)
        return std::nullopt;
    const auto scaled = [](const ExactDecimal &v, int scale) {
        __int128 d = v.digits;
        for (int i = v.scale; i < scale; ++i)
            d *= 10;
        return d;
    };
    const int scale = std::max({x->scale, y->scale, 2});
    __int128 sum = scaled(*x, scale) + scaled(*y, scale);
    // Down to hundredths, ties to even, through the same rounding as the products.
    __int128 hundredths = sum;
    if (scale > 2) {
        ExactDecimal value{sum, scale - 2};
        const auto rounded = exactProduct(value, ExactDecimal{1, 0});
        if (!rounded)
            return std::nullopt;
        hundredths = *rounded;
    }
    const bool negative = hundredths < 0;
    if (negative)
        hundredths = -hundredths;
    const auto whole = static_cast<long long>(hundredths / 100);
    const int cents = int(hundredths % 100);
    return QStringLiteral("%1%2.%3")
        .arg(negative ? QStringLiteral("-") : QString())
        .arg(whole)
        .arg(cents, 2, 10, QLatin1Char('0'));
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
