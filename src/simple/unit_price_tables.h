#pragma once
// What the unit-price editor frmKaniSet knows about the simple estimate's tables: the unit
// prices, whose classifications must exist and whose amounts are whole yen, and the four
// classification tables, one tab each.

#include "mastertable/table_screen.h"

namespace est::simple {

// frmKaniSet over Data\EasyEstimate: T_TUnitPrice first, then M_TSKubun, M_TSyaryoA,
// M_TSyaryoB and M_TColor.
mastertable::TableScreen unitPriceScreen();

} // namespace est::simple
