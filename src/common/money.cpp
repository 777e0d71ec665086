#include "common/money.h"

#include <cmath>
#include <limits>

namespace est {

namespace {

template <typename Int>
std::optional<Int> roundHalfEvenTo(double value)
{
    if (!std::isfinite(value))
        return std::nullopt;
    double floor = std::floor(value);
    double diff = value - floor;
    double rounded = floor;
    if (diff > 0.5)
        rounded = floor + 1.0;
    else if (diff == 0.5)
        rounded = std::fmod(floor, 2.0) == 0.0 ? floor : floor + 1.0;
    if (rounded < double(std::numeric_limits<Int>::min())
        || rounded > double(std::numeric_limits<Int>::max()))
        return std::nullopt;
    return static_cast<Int>(rounded);
}

} // namespace

std::optional<Yen> roundToYen(double value)
{
    return roundHalfEvenTo<Yen>(value);
}

std::optional<std::int16_t> roundToInt16(double value)
{
    return roundHalfEvenTo<std::int16_t>(value);
}

std::optional<Yen> toYen(std::int64_t value)
{
    if (value < std::numeric_limits<Yen>::min() || value > std::numeric_limits<Yen>::max())
        return std::nullopt;
    return static_cast<Yen>(value);
}

std::optional<Yen> divideRoundHalfEven(std::int64_t numerator, std::int64_t denominator)
{
    if (denominator == 0)
        return std::nullopt;
    if (denominator < 0) {
        numerator = -numerator;
        denominator = -denominator;
    }
    std::int64_t quotient = numerator / denominator;
    std::int64_t remainder = numerator % denominator;
    // C++ truncates toward zero; bring the quotient down to the floor first.
    if (remainder < 0) {
        quotient -= 1;
        remainder += denominator;
    }
    std::int64_t twice = remainder * 2;
    if (twice > denominator || (twice == denominator && (quotient % 2 != 0)))
        quotient += 1;
    return toYen(quotient);
}

std::optional<Yen> addYen(Yen a, Yen b)
{
    return toYen(std::int64_t(a) + std::int64_t(b));
}

std::optional<Yen> subtractYen(Yen a, Yen b)
{
    return toYen(std::int64_t(a) - std::int64_t(b));
}

std::optional<Yen> multiplyYen(Yen a, std::int64_t b)
{
    __int128 product = static_cast<__int128>(a) * b;
    if (product < std::numeric_limits<Yen>::min() || product > std::numeric_limits<Yen>::max())
        return std::nullopt;
    return static_cast<Yen>(product);
}

} // namespace est
