#pragma once
// The inner-panel table as its setting dialog dlgNaibanSetting edits it: captions, and the
// rules a typed value must follow (an index is a number of 0 or more with at most two decimals).

#include "mastertable/table_screen.h"

namespace est::paint {

mastertable::TableSpec innerPanelTableSpec();

// dlgNaibanSetting: the inner-panel table of temp\PartDB.
mastertable::TableScreen innerPanelScreen();

} // namespace est::paint
