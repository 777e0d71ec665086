#pragma once
// What the bumper and additional-index screens take from the open estimate when they open.

#include "common/session.h"
#include "indices/bumper_calculation.h"

#include <QString>
#include <array>

namespace est::indices {

// The shop's rounding as the rate dialog set it.
workitems::Rounding roundingOf(const Session &session);

// Vehicle class key, the vehicle's paint kind, the paint labour rate and the rounding.
BumperSettings bumperSettings(const Session &session);

// lbl1 to lbl5 of the additional-index screen: customer, vehicle name, colour number, paint
// kind, high-function paint.
std::array<QString, 5> vehicleLabels(const Session &session);

} // namespace est::indices
