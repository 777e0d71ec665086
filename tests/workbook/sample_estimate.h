#pragma once
// Estimates for workbook tests and benchmarks: a full one (every field set, 394 rows,
// 73 paint rows) and random ones, in the forms the screens keep their values.

#include "common/session.h"

#include <QByteArray>

#include <cstdint>

namespace est::test {

// The bytes of the default template as the program writes it (made once per test run).
QByteArray templateBytes();

// Every field set, the largest tables.
Session fullEstimate(std::uint32_t seed = 1);

// A random estimate: random sizes (0 to the maximum) and random texts, including Japanese,
// full-width blanks, digits with leading zeros, markup characters and blanks at the ends.
Session randomEstimate(std::uint32_t seed);

// The fields a workbook stores, as one text per field ("rows[3][5] = 1.50"), for comparing
// two sessions field by field with a readable difference.
QStringList storedFields(const Session &session);

} // namespace est::test
