#pragma once
// Each subsystem connects its screens to the start dialog, the sheet and the settings hub
// in a wire<Subsystem>() function of its own file; wireSubsystems() calls them all.

#include "app/app_context.h"

namespace est::app {

void wireSubsystems(AppContext &context);

// Estimate workbooks: the file-name and open dialogs, saving from the sheet, the template.
void wireWorkbook(AppContext &context);

} // namespace est::app
