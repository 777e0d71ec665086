#include "indices/sheet_metal_setting.h"

#include "db/part_db.h"
#include "indices/index_value.h"
#include "indices/sheet_metal.h"
#include "indices/sheet_metal_table.h"

namespace est::indices {

mastertable::TableScreen sheetMetalScreen()
{
    using mastertable::ColumnSpec;
    QStringList areaClasses;
    for (int area = 1; area <= kAreaClasses; ++area)
        areaClasses.append(QString::number(area));
    // The area is stored as text; a whole-number column still takes "４" or "04" as "4".
    mastertable::TableSpec table{
        QStringLiteral("bankinsisu"),
        QStringLiteral("鈑金指数"),
        {ColumnSpec::whole(QStringLiteral("Area"), QStringLiteral("面積区分（d㎡）")).mustHave().oneOf(areaClasses),
         ColumnSpec::index(QStringLiteral("A"), QStringLiteral("A（軽度）")).mustHave(),
         ColumnSpec::index(QStringLiteral("B"), QStringLiteral("B（中度）")).mustHave(),
         ColumnSpec::index(QStringLiteral("C"), QStringLiteral("C（重度）")).mustHave()},
        {0}};
    table.wholeTableCheck = [](const QList<QStringList> &rows) {
        QList<SheetMetalRow> sheetMetalRows;
        for (const QStringList &row : rows)
            sheetMetalRows.append({row.value(0), {row.value(1), row.value(2), row.value(3)}});
        return checkRows(sheetMetalRows);
    };
    return {QStringLiteral("dlgBankinSetting"), QStringLiteral("鈑金指数設定"), db::kPartDb, {table},
            QStringLiteral("面積区分は凹みの面積（d㎡）で、1 から 40 まで各1行です。1 d㎡未満は 1、41 d㎡以上は 40 の行を使います。")};
}

} // namespace est::indices
