#pragma once
// The simple estimate's dialogs end in the usual OK and キャンセル row.

#include "uikit/dialog_buttons.h"

namespace est::simple {

using ui::DialogButtons;
using ui::dialogButtons;

} // namespace est::simple
