#include "customers/input_format.h"

namespace est::customers {

QString formatDigits(const QString &text, const QString &mask)
{
    const QString trimmed = text.trimmed();
    if (trimmed.isEmpty())
        return text;
    for (QChar c : trimmed)
        if (c < QLatin1Char('0') || c > QLatin1Char('9'))
            return text;
    // Read as a number: leading zeros carry no meaning of their own.
    QString digits = trimmed;
    while (digits.size() > 1 && digits.front() == QLatin1Char('0'))
        digits.remove(0, 1);
    const qsizetype slots = mask.count(QLatin1Char('0'));
    if (digits.size() < slots)
        digits = QString(slots - digits.size(), QLatin1Char('0')) + digits;
    const QString front = digits.left(digits.size() - slots);
    qsizetype next = front.size();
    QString out = front;
    for (QChar m : mask)
        out.append(m == QLatin1Char('0') ? digits.at(next++) : m);
    return out;
}

QString composeRegistration(const QString &office, const QString &classNumber, const QString &kana,
                            const QString &number)
{
    return office + classNumber + kana + number;
}

} // namespace est::customers
