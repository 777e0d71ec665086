#include "indices/sheet_metal.h"

#include <limits>

namespace est::indices {

std::optional<AreaClass> areaClassFor(std::int16_t heightCm, std::int16_t widthCm)
{
    const int product = int(heightCm) * int(widthCm);
    if (product > std::numeric_limits<std::int16_t>::max() || product < std::numeric_limits<std::int16_t>::min())
        return std::nullopt;
    const int area = product / 100;
    if (area < 1)
        return AreaClass{1, QStringLiteral("以下")};
    if (area > kAreaClasses)
        return AreaClass{kAreaClasses, QStringLiteral("以上")};
    return AreaClass{area, QString()};
}

std::optional<std::int16_t> sizeFromText(const QString &text)
{
    const QString trimmed = text.trimmed();
    if (trimmed.isEmpty())
        return std::int16_t(0);
    bool ok = false;
    const int value = trimmed.toInt(&ok);
    if (!ok || value < 0 || value > std::numeric_limits<std::int16_t>::max())
        return std::nullopt;
    return std::int16_t(value);
}

QString gradeRemark(Grade grade, int areaClass)
{
    static const char *const letters[] = {" A : ", " B : ", " C : "};
    return QLatin1String(letters[int(grade)]) + QString::number(areaClass) + QStringLiteral("d㎡");
}

} // namespace est::indices
