#pragma once
// A hand-made pair of estimates for the comparison tests: the earlier one is the printing
// tests' hand estimate; the later one changes a part price, drops the right headlamp, adds a
// radiator grille, repaints the fender at a higher index, and trades the 5 % discount for
// 5,000 yen and the 30,000 yen advance for 50,000.

#include "common/session.h"

namespace est::test {

Session earlierEstimate();
Session laterEstimate();

} // namespace est::test
