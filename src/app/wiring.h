#pragma once
// Each subsystem connects its screens to the start dialog, the sheet and the settings hub
// in a wire<Subsystem>() function of its own file; wireSubsystems() calls them all.

#include "app/app_context.h"

namespace est::app {

void wireSubsystems(AppContext &context);

// Saving and opening estimate workbooks: dlgFname, dlgOpen, the sheet's store, the template.
void wireWorkbook(AppContext &context);
// Slip numbers and date, own company, non-taxable items.
void wireSheetExtras(AppContext &context);
// Labour rate in the new-estimate chain, the work item editor, catalogue and maker editors.
void wireWorkItems(AppContext &context);
// Customers and vehicles: frmKokyaku from the sheet, dlgNewTouroku and frmKokyakuSett from
// the settings hub.
void wireCustomers(AppContext &context);
// Painting: the sheet's 塗装作成 (dlgToryo, then frmPaint with its bumper and additional-index
// screens) and the inner-panel table editor.
void wirePaint(AppContext &context);
// Bumper, additional and sheet-metal indices: the PartDB upgrade at start-up, frmBankin from
// the work item editor, dlgBankinSetting from the settings hub.
void wireIndices(AppContext &context);
// Reports and data exchange: the estimate search in dlgOpen and the library kept up to date
// on every save, the yearly sales report, frmExp.
void wireReports(AppContext &context);
// Printing: dlgPrint from the sheet, dlgOpenXls from the start dialog, frmPrinter from the hub.
void wirePrint(AppContext &context);
// frmHikaku from the sheet's 比較 and from the open dialog; the sheet's 修正見積.
void wireCompare(AppContext &context);
// frmPhoto from the sheet's 写真.
void wirePhotos(AppContext &context);
// Master-data editors of the settings hub: frmBSetting, frmFukaSetting, frmKisoSetting, frmPaintName.
void wireMasters(AppContext &context);
// Simple estimate: the chain of its screens for the work item editor's 簡易見積.
void wireSimple(AppContext &context);
// The shared server: frmServer from the settings hub.
void wireServer(AppContext &context);

} // namespace est::app
