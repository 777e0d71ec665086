#pragma once
// The inner-panel table as its setting dialog edits it: captions, and the rules a typed
// value must follow (an index is a number of 0 or more with at most two decimals).

#include "mastertable/column_spec.h"

namespace est::paint {

mastertable::TableSpec innerPanelTableSpec();

} // namespace est::paint
