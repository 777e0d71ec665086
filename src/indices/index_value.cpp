#include "indices/index_value.h"

#include "common/number_format.h"

#include <QLocale>

namespace est::indices {

QString indexText(const QVariant &value)
{
    if (value.isNull() || !value.isValid())
        return {};
    bool ok = false;
    const double number = value.toDouble(&ok);
    if (!ok)
        return {};
    // A stored 2.6 is the double nearest 2.6; its shortest text is "2.6" again.
    return QString::number(number, 'g', QLocale::FloatingPointShortest);
}

QString shownIndex(const QString &text)
{
    const auto value = parseDisplayedNumber(text);
    return value ? formatFixed2(*value) : text;
}

} // namespace est::indices
