#include "mastertable/column_spec.h"

#include "common/number_format.h"

#include <QRegularExpression>
#include <QVariant>
#include <cmath>

namespace est::mastertable {

namespace {

constexpr qint64 kWholeLimit = 2147483647;
// Index tables hold a few points per panel; anything near this is a typing mistake.
constexpr qint64 kIndexLimitHundredths = 9999999;

// "007" -> "7", "000" -> "0".
QString withoutLeadingZeros(const QString &digits)
{
    qsizetype i = 0;
    while (i + 1 < digits.size() && digits.at(i) == QLatin1Char('0'))
        ++i;
    return digits.mid(i);
}

CellCheck refuse(const QString &reason) { return {QString(), reason}; }

CellCheck checkWhole(const QString &typed, qint64 limit)
{
    static const QRegularExpression digits(QStringLiteral("^[0-9]+$"));
    const QString s = asciiNumberText(typed);
    if (!digits.match(s).hasMatch())
        return refuse(QStringLiteral("0以上の整数を入力してください。"));
    const QString trimmed = withoutLeadingZeros(s);
    if (trimmed.size() > 10 || trimmed.toLongLong() > limit)
        return refuse(QStringLiteral("大きすぎます（%1まで）。").arg(limit));
    return {trimmed, {}};
}

CellCheck checkIndex(const QString &typed)
{
    static const QRegularExpression number(QStringLiteral("^([0-9]*)(?:\\.([0-9]*))?$"));
    const QString s = asciiNumberText(typed);
    const QRegularExpressionMatch m = number.match(s);
    const QString whole = m.captured(1), fraction = m.captured(2);
    if (!m.hasMatch() || (whole.isEmpty() && fraction.isEmpty()) || fraction.size() > 2)
        return refuse(QStringLiteral("0以上の数値を小数2桁までで入力してください。"));
    const QString units = whole.isEmpty() ? QStringLiteral("0") : whole;
    const QString cents = fraction.leftJustified(2, QLatin1Char('0'));
    const QString digits = withoutLeadingZeros(units + cents);
    if (digits.size() > 9 || digits.toLongLong() > kIndexLimitHundredths)
        return refuse(QStringLiteral("大きすぎます（%1まで）。").arg(QStringLiteral("99999.99")));
    const qint64 hundredths = digits.toLongLong();
    return {QStringLiteral("%1.%2").arg(hundredths / 100).arg(hundredths % 100, 2, 10, QLatin1Char('0')), {}};
}

CellCheck checkText(const ColumnSpec &column, const QString &typed)
{
    const QString s = typed.trimmed();
    for (QChar c : s)
        if (c.category() == QChar::Other_Control)
            return refuse(QStringLiteral("改行やタブは入力できません。"));
    if (column.maxLength > 0 && s.size() > column.maxLength)
        return refuse(QStringLiteral("%1文字以内で入力してください。").arg(column.maxLength));
    return {s, {}};
}

} // namespace

ColumnSpec ColumnSpec::text(const QString &field, const QString &caption)
{
    return ColumnSpec{field, caption, ColumnKind::Text};
}

ColumnSpec ColumnSpec::whole(const QString &field, const QString &caption)
{
    return ColumnSpec{field, caption, ColumnKind::WholeNumber};
}

ColumnSpec ColumnSpec::index(const QString &field, const QString &caption)
{
    return ColumnSpec{field, caption, ColumnKind::Index2};
}

int TableSpec::columnOf(const QString &field) const
{
    for (int i = 0; i < columns.size(); ++i)
        if (columns.at(i).field.compare(field, Qt::CaseInsensitive) == 0)
            return i;
    return -1;
}

CellCheck checkCell(const ColumnSpec &column, const QString &typed)
{
    if (typed.trimmed().isEmpty()) {
        if (column.required)
            return refuse(QStringLiteral("値を入力してください。"));
        return {QString(), {}};
    }
    CellCheck result;
    switch (column.kind) {
    case ColumnKind::Text: result = checkText(column, typed); break;
    case ColumnKind::WholeNumber: result = checkWhole(typed, column.maxValue > 0 ? column.maxValue : kWholeLimit); break;
    case ColumnKind::Index2: result = checkIndex(typed); break;
    }
    if (result.ok() && !column.choices.isEmpty() && !column.choices.contains(result.value))
        return refuse(QStringLiteral("次のどれかを入力してください：") + column.choices.join(QStringLiteral("、")));
    return result;
}

QString displayValue(const ColumnSpec &column, const QVariant &stored)
{
    if (stored.isNull())
        return {};
    QString text;
    if (stored.typeId() == QMetaType::Double) {
        const double v = stored.toDouble();
        // Shortest text that reads back as the same double: 1.15 stays "1.15".
        text = std::isfinite(v) ? QString::number(v, 'g', 15) : stored.toString();
    } else {
        text = stored.toString();
    }
    if (column.kind == ColumnKind::Text)
        return text;
    // A number stored with more decimals than allowed is shown as it is, so nothing is
    // silently rounded; checking the cell again will refuse it.
    const CellCheck check = checkCell(ColumnSpec{column.field, column.caption, column.kind}, text);
    return check.ok() ? check.value : text;
}

} // namespace est::mastertable
