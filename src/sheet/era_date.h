#pragma once
// Dates as the documents print them: the Japanese era form ("令和6年1月5日") and the
// six-digit key "yymmdd" that slip numbers start with.

#include <QDate>
#include <QString>
#include <optional>

namespace est::sheet {

// Era name, era year, month and day without leading zeros, from ICU's Japanese calendar.
// Empty for an invalid date.
QString eraDate(QDate day);

// "yymmdd" (2024-01-05 -> "240105").
QString dayKey(QDate day);

// Reads a "yymmdd" key back as a date in 2000-2099; nothing when it is not a valid key.
std::optional<QDate> parseDayKey(const QString &key);

// Reads a date typed by hand: "2024/1/5", "2024-01-05", "2024.1.5" or "20240105",
// full-width digits and separators too. Nothing when it is not a real date.
std::optional<QDate> parseTypedDate(const QString &text);

} // namespace est::sheet
