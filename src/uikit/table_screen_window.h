#pragma once
// The one way a master-table screen is opened: its database below the application folder is
// opened and checked (a missing or damaged file, a missing table or column is reported in one
// notice and nothing is shown), then a TableEditorWindow with one tab per table is shown.
//
//     ui::showTableScreen(indices::sheetMetalScreen(), appFolder, messages, parent);
//
// A screen that adds something of its own (a list of gaps ...) opens the database with
// openScreenDatabase() and builds its window from makeTableScreenWindow().

#include "common/messages.h"
#include "mastertable/table_screen.h"
#include "uikit/table_editor.h"

#include <memory>
#include <optional>

namespace est::ui {

// The window over an open database (tests and the screen gallery hand in their own).
std::unique_ptr<TableEditorWindow> makeTableScreenWindow(const mastertable::TableScreen &screen, QSqlDatabase database,
                                                         Messages &messages, QWidget *parent = nullptr);

// The screen's database, opened and checked; empty after telling the user why not.
std::optional<QSqlDatabase> openScreenDatabase(const mastertable::TableScreen &screen, const QString &appFolder,
                                               Messages &messages);

// Opens the database and shows the window modally.
void showTableScreen(const mastertable::TableScreen &screen, const QString &appFolder, Messages &messages,
                     QWidget *parent = nullptr);

} // namespace est::ui
