#include "paint/paint_kind.h"

#include <array>
#include <utility>

namespace est::paint {

namespace {

using Pair = std::pair<const char16_t *, const char16_t *>;

constexpr std::array<Pair, 4> kColourCodes = {{
    {u"ｿﾘｯﾄﾞ", u"S"}, {u"3ｺｰﾄﾊﾟｰﾙ", u"3P"}, {u"ﾒﾀﾘｯｸ", u"M"}, {u"2ｺｰﾄﾊﾟｰﾙ", u"2P"},
}};

constexpr std::array<Pair, 3> kClasses = {{
    {u"小型", u"小型自動車"}, {u"普通", u"普通自動車"}, {u"軽自", u"軽自動車"},
}};

} // namespace

QString colourKindCode(const QString &paintKind)
{
    for (const auto &[kind, code] : kColourCodes)
        if (paintKind == QString::fromUtf16(kind))
            return QString::fromUtf16(code);
    return {};
}

QString presetMaterial(const QString &paintKind)
{
    return paintKind == QStringLiteral("ｿﾘｯﾄﾞ") ? QStringLiteral("速乾") : QString();
}

HighFunction highFunctionOf(const QString &name)
{
    if (name == QStringLiteral("ﾌｯｿｺｰﾄ"))
        return HighFunction::Fluorine;
    if (name == QStringLiteral("ﾊｲﾚﾌｺｰﾄ"))
        return HighFunction::Other;
    return HighFunction::None;
}

QString classFullName(const QString &key)
{
    for (const auto &[k, full] : kClasses)
        if (key == QString::fromUtf16(k))
            return QString::fromUtf16(full);
    return {};
}

QString classKey(const QString &fullName)
{
    for (const auto &[k, full] : kClasses)
        if (fullName == QString::fromUtf16(full))
            return QString::fromUtf16(k);
    return {};
}

QStringList classFullNames()
{
    QStringList names;
    for (const auto &pair : kClasses)
        names.append(QString::fromUtf16(pair.second));
    return names;
}

} // namespace est::paint
