#pragma once
// The display formats of the estimate screens and the reading of displayed texts back.

#include <QString>
#include <cstdint>
#include <optional>

namespace est {

// "#,###": thousands separators, zero shows as an empty text, negatives with a leading "-".
QString formatThousands(std::int64_t value);

// "0.00": always a digit before the point (0 -> "0.00", 1.5 -> "1.50").
QString formatFixed2(double value);

// "#.00": no digit before the point when it would be zero (0.5 -> ".50", 0 -> ".00").
QString formatHash2(double value);

// "000": at least three digits, zero-padded (7 -> "007", 1234 -> "1234").
QString formatThreeDigits(std::int64_t value);

// "00000": at least five digits, zero-padded.
QString formatFiveDigits(std::int64_t value);

// A typed number in plain ASCII: full-width digits, minus, point and comma become ASCII;
// blanks and thousands separators are dropped. Nothing else is checked.
QString asciiNumberText(const QString &text);

// Reads a displayed number: blanks around it and thousands separators are accepted,
// full-width digits too. Empty text or anything that is not a number gives nothing.
std::optional<double> parseDisplayedNumber(const QString &text);

// Reads a displayed amount as whole yen (CLng of the text: nearest, ties to even).
// Empty for an empty text, a non-number or a value that does not fit in 32 bits.
std::optional<std::int32_t> parseDisplayedYen(const QString &text);

// True when the text counts as "no value" in the totals (empty after trimming).
bool isBlank(const QString &text);

} // namespace est
