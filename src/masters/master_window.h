#pragma once
// Opens the master-data screens of the settings hub on the table editor: one tab per table of
// the screen's description. frmKisoSetting and frmBSetting also list the rows the paint and
// bumper screens can ask for that are missing, refreshed after every save.

#include "common/messages.h"
#include "masters/master_screens.h"
#include "uikit/table_editor.h"

#include <memory>

namespace est::masters {

// The screen over an open database (tests and the gallery hand in their own).
std::unique_ptr<ui::TableEditorWindow> makeMasterWindow(const mastertable::TableScreen &screen, QSqlDatabase database,
                                                        Messages &messages, QWidget *parent = nullptr);

// Opens the screen's database below the application folder and shows the screen modally;
// a database that cannot be opened or lacks a table is reported and nothing is shown.
void showMasterScreen(const mastertable::TableScreen &screen, const QString &appFolder, Messages &messages,
                      QWidget *parent = nullptr);

} // namespace est::masters
