#include "sheet/era_date.h"

#include <QRegularExpression>

#include <memory>
#include <unicode/calendar.h>
#include <unicode/locid.h>
#include <unicode/smpdtfmt.h>
#include <unicode/timezone.h>
#include <unicode/unistr.h>

namespace est::sheet {

QString eraDate(QDate day)
{
    if (!day.isValid())
        return {};
    UErrorCode status = U_ZERO_ERROR;
    const icu::Locale locale("ja_JP@calendar=japanese");
    // Noon UTC of that day, read in UTC: no time zone can move it to another day.
    const double millisPerDay = 86400000.0;
    const UDate when = double(QDate(1970, 1, 1).daysTo(day)) * millisPerDay + millisPerDay / 2;
    std::unique_ptr<icu::Calendar> calendar(
        icu::Calendar::createInstance(icu::TimeZone::createTimeZone(icu::UnicodeString::fromUTF8("UTC")), locale,
                                      status));
    if (U_FAILURE(status))
        return {};
    calendar->setTime(when, status);
    const int32_t eraYear = calendar->get(UCAL_YEAR, status);
    // Only the era name comes from the formatter: its year would be "元" for the first year,
    // where the documents have always printed the digit ("令和1年").
    icu::SimpleDateFormat eraName(icu::UnicodeString::fromUTF8("GGGG"), locale, status);
    if (U_FAILURE(status))
        return {};
    eraName.adoptCalendar(calendar.release());
    icu::UnicodeString era;
    eraName.format(when, era);
    std::string utf8;
    era.toUTF8String(utf8);
    return QString::fromStdString(utf8) + QString::number(eraYear) + QStringLiteral("年") +
           QString::number(day.month()) + QStringLiteral("月") + QString::number(day.day()) +
           QStringLiteral("日");
}

QString dayKey(QDate day)
{
    return day.isValid() ? day.toString(QStringLiteral("yyMMdd")) : QString();
}

std::optional<QDate> parseDayKey(const QString &key)
{
    static const QRegularExpression sixDigits(QStringLiteral("^\\d{6}$"));
    const QString text = key.trimmed();
    if (!sixDigits.match(text).hasMatch())
        return std::nullopt;
    const QDate day(2000 + text.left(2).toInt(), text.mid(2, 2).toInt(), text.mid(4, 2).toInt());
    if (!day.isValid())
        return std::nullopt;
    return day;
}

std::optional<QDate> parseTypedDate(const QString &text)
{
    QString t = text.trimmed();
    // Full-width digits and separators as a Japanese input method gives them.
    for (QChar &c : t) {
        if (c.unicode() >= 0xFF01 && c.unicode() <= 0xFF5E)
            c = QChar(c.unicode() - 0xFEE0);
    }
    static const QRegularExpression separated(QStringLiteral("^(\\d{4})[/\\-.](\\d{1,2})[/\\-.](\\d{1,2})$"));
    static const QRegularExpression compact(QStringLiteral("^(\\d{4})(\\d{2})(\\d{2})$"));
    QRegularExpressionMatch m = separated.match(t);
    if (!m.hasMatch())
        m = compact.match(t);
    if (!m.hasMatch())
        return std::nullopt;
    const QDate day(m.captured(1).toInt(), m.captured(2).toInt(), m.captured(3).toInt());
    if (!day.isValid())
        return std::nullopt;
    return day;
}

} // namespace est::sheet
