#pragma once
// Whole-yen arithmetic: rounding to a 32-bit integer the way the estimate rules demand
// (nearest, ties to even) and sums/products that report overflow instead of wrapping.

#include <cstdint>
#include <optional>

namespace est {

using Yen = std::int32_t;

// Rounds to the nearest integer, ties to even (0.5 -> 0, 1.5 -> 2, 2.5 -> 2, -2.5 -> -2).
// Empty when the result does not fit in 32 bits or the value is not finite.
std::optional<Yen> roundToYen(double value);

// Same rounding into a 16-bit integer.
std::optional<std::int16_t> roundToInt16(double value);

// numerator / denominator rounded half to even, computed exactly in integers.
// Used for percentages (rate * amount / 100) so that 12.5 yen becomes 12 and 13.5 becomes 14
// without the drift of binary fractions. Empty on overflow or a zero denominator.
std::optional<Yen> divideRoundHalfEven(std::int64_t numerator, std::int64_t denominator);

// Checked whole-yen operations: empty when the exact result does not fit in 32 bits.
std::optional<Yen> addYen(Yen a, Yen b);
std::optional<Yen> subtractYen(Yen a, Yen b);
std::optional<Yen> multiplyYen(Yen a, std::int64_t b);

// Narrows a 64-bit value to whole yen, empty when it does not fit.
std::optional<Yen> toYen(std::int64_t value);

} // namespace est
