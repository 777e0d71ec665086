#include "common/number_format.h"

#include "common/money.h"

#include <cmath>

namespace est {

QString formatThousands(std::int64_t value)
{
    if (value == 0)
        return {};
    const bool negative = value < 0;
    // Work on the magnitude as unsigned so the smallest int64 does not overflow.
    std::uint64_t magnitude = negative ? std::uint64_t(0) - std::uint64_t(value) : std::uint64_t(value);
    QString digits = QString::number(magnitude);
    QString out;
    out.reserve(digits.size() + digits.size() / 3 + 1);
    const int lead = digits.size() % 3;
    for (int i = 0; i < digits.size(); ++i) {
        if (i > 0 && (i - lead) % 3 == 0)
            out.append(QLatin1Char(','));
        out.append(digits.at(i));
    }
    return negative ? QLatin1Char('-') + out : out;
}

QString formatFixed2(double value)
{
    QString s = QString::number(value, 'f', 2);
    if (s == QLatin1String("-0.00"))
        s = QStringLiteral("0.00");
    return s;
}

QString formatHash2(double value)
{
    QString s = formatFixed2(value);
    if (s.startsWith(QLatin1String("0.")))
        s.remove(0, 1);
    else if (s.startsWith(QLatin1String("-0.")))
        s.remove(1, 1);
    return s;
}

QString formatThreeDigits(std::int64_t value)
{
    if (value < 0)
        return QLatin1Char('-') + QString::number(-value).rightJustified(3, QLatin1Char('0'));
    return QString::number(value).rightJustified(3, QLatin1Char('0'));
}

QString formatFiveDigits(std::int64_t value)
{
    if (value < 0)
        return QLatin1Char('-') + QString::number(-value).rightJustified(5, QLatin1Char('0'));
    return QString::number(value).rightJustified(5, QLatin1Char('0'));
}

bool isBlank(const QString &text)
{
    return text.trimmed().isEmpty();
}

QString asciiNumberText(const QString &text)
{
    QString s;
    s.reserve(text.size());
    for (QChar c : text) {
        // Full-width digits, minus, point and comma typed through an input method.
        if (c.unicode() >= 0xFF10 && c.unicode() <= 0xFF19)
            c = QChar(u'0' + (c.unicode() - 0xFF10));
        else if (c == QChar(0xFF0D) || c == QChar(0x2212))
            c = QLatin1Char('-');
        else if (c == QChar(0xFF0E))
            c = QLatin1Char('.');
        else if (c == QChar(0xFF0C))
            c = QLatin1Char(',');
        if (c == QLatin1Char(',') || c.isSpace() || c == QChar(0x3000))
            continue;
        s.append(c);
    }
    return s;
}

std::optional<double> parseDisplayedNumber(const QString &text)
{
    const QString s = asciiNumberText(text);
    if (s.isEmpty())
        return std::nullopt;
    bool ok = false;
    double v = s.toDouble(&ok);
    if (!ok || !std::isfinite(v))
        return std::nullopt;
    return v;
}

std::optional<std::int32_t> parseDisplayedYen(const QString &text)
{
    auto v = parseDisplayedNumber(text);
    if (!v)
        return std::nullopt;
    return roundToYen(*v);
}

} // namespace est
