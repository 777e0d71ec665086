#pragma once
// RoundAmount: the shop's second rounding of a whole-yen labour amount, at the ones digit
// (result a multiple of 10) or at the tens digit (a multiple of 100).

#include "common/messages.h"
#include "common/money.h"

#include <cstdint>

namespace est::workitems {

// Rounding digits: 0 none, 1 ones digit, 2 tens digit. Mode: 1 half up, 2 up, 3 down.
//
// The amount is read through its decimal digits, and two habits of the shop's rounding are
// kept on purpose: at digits 2 the modes "up" and "down" look only at the tens digit, so
// 1,203 stays 1,203; and at digits 1 any mode other than 1 and 2 rounds down silently.
// Digits 2 with an unknown mode and digits of 3 or more are reported and give 0.
//
// A negative amount has no meaningful digits to round and is returned unchanged; so is an
// amount whose rounding would leave the 32-bit range.
Yen roundAmount(Yen amount, std::int16_t digits, std::int16_t mode, Messages &messages);

} // namespace est::workitems
