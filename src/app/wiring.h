#pragma once
// Each subsystem connects its screens to the start dialog, the sheet and the settings hub
// in a wire<Subsystem>() function of its own file; wireSubsystems() calls them all.

#include "app/app_context.h"

namespace est::app {

void wireSubsystems(AppContext &context);
void wireWorkItems(AppContext &context);

// Slip numbers and date, own company, non-taxable items.
void wireSheetExtras(AppContext &context);
// Customers and vehicles: frmKokyaku from the sheet, dlgNewTouroku and frmKokyakuSett from
// the settings hub.
void wireCustomers(AppContext &context);

} // namespace est::app
