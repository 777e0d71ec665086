#pragma once
// Key rule of the numeric fields of the work item screens: digits (and a point where
// decimals make sense) get through, every other printable key is dropped with a beep.

#include "uikit/key_filter.h"

namespace est::workitems {

ui::KeyRule numericKeyRule(bool allowPoint);

} // namespace est::workitems
