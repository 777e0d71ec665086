#include "paint/dlg_naiban_setting.h"

#include "db/database.h"
#include "paint/inner_panel_table.h"
#include "uikit/table_editor.h"

namespace est::paint {

void editInnerPanels(const QString &appFolder, Messages &messages, QWidget *parent)
{
    db::OpenResult opened = db::openDatabase(appFolder, QStringLiteral("temp\\PartDB.mdb"));
    if (!opened.ok() || !db::tableExists(opened.database, QStringLiteral("NaibanPaintDB"))) {
        messages.inform(opened.ok() ? QStringLiteral("内板塗装の表（NaibanPaintDB）が見つかりません。") : opened.error,
                        QStringLiteral("内板指数設定"), MessageIcon::Exclamation);
        return;
    }
    ui::TableEditorWindow window(QStringLiteral("dlgNaibanSetting"), QStringLiteral("内板指数設定"), messages,
                                 parent);
    window.addTable(innerPanelTableSpec(), opened.database);
    window.exec();
}

} // namespace est::paint
