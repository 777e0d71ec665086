// Cell addresses and the conversions of a read cell value to the program's types.

#include "workbook/workbook.h"

#include "common/money.h"
#include "common/number_format.h"

namespace est::workbook {

namespace {
bool isLetter(char c) { return c >= 'A' && c <= 'Z'; }
bool isLowerLetter(char c) { return c >= 'a' && c <= 'z'; }
bool isDigit(char c) { return c >= '0' && c <= '9'; }
} // namespace

QByteArray columnLetters(int column)
{
    QByteArray letters;
    while (column > 0) {
        const int rem = (column - 1) % 26;
        letters.prepend(char('A' + rem));
        column = (column - 1) / 26;
    }
    return letters;
}

QByteArray cellAddress(int row, int column)
{
    return columnLetters(column) + QByteArray::number(row);
}

std::optional<CellAddress> parseCellAddress(const QByteArray &text)
{
    qsizetype i = 0;
    qint64 column = 0;
    while (i < text.size() && (isLetter(text.at(i)) || isLowerLetter(text.at(i)))) {
        const char c = isLetter(text.at(i)) ? text.at(i) : char(text.at(i) - 'a' + 'A');
        column = column * 26 + (c - 'A' + 1);
        if (column > kMaxColumns)
            return std::nullopt;
        ++i;
    }
    if (i == 0 || i == text.size())
        return std::nullopt;
    qint64 row = 0;
    for (; i < text.size(); ++i) {
        if (!isDigit(text.at(i)))
            return std::nullopt;
        row = row * 10 + (text.at(i) - '0');
        if (row > kMaxRows)
            return std::nullopt;
    }
    if (row < 1)
        return std::nullopt;
    return CellAddress{int(row), int(column)};
}

std::optional<double> cellNumber(const CellValue &value)
{
    if (std::holds_alternative<std::monostate>(value))
        return 0.0;
    if (const double *d = std::get_if<double>(&value))
        return *d;
    if (const bool *b = std::get_if<bool>(&value))
        return *b ? -1.0 : 0.0;
    if (const QString *s = std::get_if<QString>(&value))
        return numberInText(*s);
    return std::nullopt;
}

std::optional<double> numberInText(const QString &text)
{
    if (text.size() > kMaxNumberText)
        return std::nullopt;
    return parseDisplayedNumber(text);
}

QString cellText(const CellValue &value)
{
    if (const QString *s = std::get_if<QString>(&value))
        return *s;
    if (const double *d = std::get_if<double>(&value)) {
        if (*d == 0)
            return QStringLiteral("0");
        return QString::number(*d, 'g', 15);
    }
    if (const bool *b = std::get_if<bool>(&value))
        return *b ? QStringLiteral("True") : QStringLiteral("False");
    if (const CellErrorValue *e = std::get_if<CellErrorValue>(&value))
        return e->code;
    return QString();
}

std::optional<std::int16_t> cellInt16(const CellValue &value)
{
    const auto n = cellNumber(value);
    return n ? roundToInt16(*n) : std::nullopt;
}

std::optional<std::int32_t> cellInt32(const CellValue &value)
{
    const auto n = cellNumber(value);
    return n ? roundToYen(*n) : std::nullopt;
}

std::optional<bool> cellBool(const CellValue &value)
{
    if (const bool *b = std::get_if<bool>(&value))
        return *b;
    if (std::holds_alternative<std::monostate>(value))
        return false;
    if (const double *d = std::get_if<double>(&value))
        return *d != 0;
    if (const QString *s = std::get_if<QString>(&value)) {
        if (s->size() > kMaxNumberText)
            return std::nullopt;
        const QString t = s->trimmed();
        if (t.compare(QLatin1String("true"), Qt::CaseInsensitive) == 0)
            return true;
        if (t.compare(QLatin1String("false"), Qt::CaseInsensitive) == 0)
            return false;
        if (const auto n = numberInText(t))
            return *n != 0;
    }
    return std::nullopt;
}

} // namespace est::workbook
