#pragma once
// dlgBankinSetting: the sheet-metal table as the table editor shows it: a grid of area class
// and the indices of grades A, B and C; each class 1 to 40 once, every index a number of 0 or
// more with at most two decimals, and the table is stored only when all forty classes are there.

#include "mastertable/table_screen.h"

namespace est::indices {

mastertable::TableScreen sheetMetalScreen();

} // namespace est::indices
