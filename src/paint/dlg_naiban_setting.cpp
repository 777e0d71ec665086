#include "paint/dlg_naiban_setting.h"

#include "paint/inner_panel_table.h"
#include "uikit/table_screen_window.h"

namespace est::paint {

void editInnerPanels(const QString &appFolder, Messages &messages, QWidget *parent)
{
    ui::showTableScreen(innerPanelScreen(), appFolder, messages, parent);
}

} // namespace est::paint
