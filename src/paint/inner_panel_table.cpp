#include "paint/inner_panel_table.h"

#include "db/part_db.h"

namespace est::paint {

mastertable::TableSpec innerPanelTableSpec()
{
    using mastertable::ColumnSpec;
    // The menu shows the items in the order of their number, so the number is the key.
    return {QStringLiteral("NaibanPaintDB"),
            QStringLiteral("内板塗装"),
            {ColumnSpec::whole(QStringLiteral("No"), QStringLiteral("番号")).mustHave(),
             ColumnSpec::text(QStringLiteral("Bui"), QStringLiteral("部位")).mustHave().atMost(40),
             ColumnSpec::text(QStringLiteral("Naiyo"), QStringLiteral("内容")).atMost(40),
             ColumnSpec::index(QStringLiteral("Sisu"), QStringLiteral("指数(小型・普通)")).mustHave(),
             ColumnSpec::index(QStringLiteral("KeiSisu"), QStringLiteral("指数(軽自動車)")).mustHave(),
             ColumnSpec::text(QStringLiteral("Memo"), QStringLiteral("備考")).atMost(60)},
            {0}};
}

mastertable::TableScreen innerPanelScreen()
{
    return {QStringLiteral("dlgNaibanSetting"), QStringLiteral("内板指数設定"), db::kPartDb,
            {innerPanelTableSpec()}, {}};
}

} // namespace est::paint
