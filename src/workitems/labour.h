#pragma once
// The arithmetic of one work item: labour from index and rate, the part total, and the
// texts of the numeric input fields.

#include "common/messages.h"
#include "common/money.h"

#include <QString>
#include <QStringList>
#include <cstdint>
#include <optional>

namespace est::workitems {

// The shop's rounding as the rate dialog set it.
struct Rounding
{
    std::int16_t digits = 0; // 0 none, 1 ones, 2 tens
    std::int16_t mode = 1;   // 1 half up, 2 up, 3 down
};

// Labour of one row: index × rate to whole yen (nearest, ties to even), then the shop's
// rounding when digits is not 0. Empty when the index text is not a number or the product
// leaves the 32-bit range.
std::optional<Yen> labourFromIndex(const QString &indexText, std::int16_t rate, Rounding rounding,
                                   Messages &messages);

// Sum of index texts, exact ("1.10" + "0.35" -> "1.45"), as the shortest decimal text
// ("2.60" + "0.40" -> "3"). Empty when a text is not a plain decimal number.
std::optional<QString> sumIndexTexts(const QStringList &texts);

// An index times a whole count, exact ("0.25" x 3 -> "0.75"), as the shortest decimal text.
// Empty when the text is not a plain decimal number.
std::optional<QString> multiplyIndexText(const QString &text, std::int64_t count);

// Part total of one row: unit price × quantity to whole yen (nearest, ties to even), never
// subject to the shop's rounding. Empty when either text is blank or not a number, or on overflow.
std::optional<Yen> partTotal(const QString &unitPriceText, const QString &quantityText);

// What the numeric fields keep of a text: digits (full-width ones become ASCII) and the first
// decimal point when `allowPoint`. Letters and signs typed or pasted are dropped.
QString filterNumericText(const QString &text, bool allowPoint = true);

// The index as shown once the field is left: "#.00", with a "0" put in front of a leading
// point so that one half reads "0.50". A blank or unreadable text stays as it is.
QString reformatIndex(const QString &text);

// Reads a labour rate text as a 16-bit rate: empty when blank, not a whole number, negative
// or above 32,767.
std::optional<std::int16_t> parseRate(const QString &text);

// Exact product of two decimal texts (index × rate, coefficient × amount) to whole yen,
// nearest with ties to even: 0.35 × 12,345 = 4,320.75 -> 4,321. Empty when either text is
// not a number or the result leaves the 32-bit range.
std::optional<Yen> decimalProductToYen(const QString &a, const QString &b);

// Exact sum of two decimal texts shown "0.00" (ties to even beyond two decimals), so that
// 0.35 + 0.10 reads "0.45" and never "0.44999". Empty when either text is not a number.
std::optional<QString> decimalSum(const QString &a, const QString &b);

} // namespace est::workitems
