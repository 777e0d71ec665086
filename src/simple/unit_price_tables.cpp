#include "simple/unit_price_tables.h"

#include "simple/easy_estimate_store.h"
#include "simple/panels.h"

#include <limits>

namespace est::simple {

using mastertable::ColumnSpec;
using mastertable::TableSpec;

namespace {

// The dialogs hand a classification on as a 16-bit number.
constexpr qint64 kLargestNumber = std::numeric_limits<std::int16_t>::max();

// A classification table: its number, unique and kept while a unit price uses it, and its
// name. The name field is named like the unit prices' field that refers to the table.
// `numbers` limits the numbers to those a dialog can offer (empty: any).
TableSpec classification(const QString &table, const QString &field, const QString &caption,
                         const QStringList &numbers = {})
{
    ColumnSpec number = ColumnSpec::whole(QStringLiteral("No"), QStringLiteral("番号"))
                            .mustHave()
                            .upTo(kLargestNumber)
                            .usedIn(QStringLiteral("T_TUnitPrice"), field);
    if (!numbers.isEmpty())
        number.oneOf(numbers);
    return TableSpec{table, caption, {number, ColumnSpec::text(field, QStringLiteral("名称")).mustHave().atMost(40)}, {0}};
}

ColumnSpec classReference(const QString &field, const QString &caption, const QString &table)
{
    return ColumnSpec::whole(field, caption).mustHave().references(table, QStringLiteral("No"));
}

QStringList panelNumbers()
{
    QStringList numbers{QStringLiteral("0")};
    for (const Panel &panel : panels())
        numbers.append(QString::number(panel.num));
    return numbers;
}

// Two lines of panel numbers that the grid shows only as numbers.
QString panelHint()
{
    QStringList names{QStringLiteral("0＝部位共通")};
    for (const Panel &panel : panels())
        names.append(QStringLiteral("%1＝%2").arg(panel.num).arg(panel.caption));
    return QStringLiteral("部位番号：") + names.mid(0, 6).join(QStringLiteral("、")) + QStringLiteral("、\n")
        + names.mid(6).join(QStringLiteral("、")) + QStringLiteral("。区分の番号は各区分のタブで確かめてください。");
}

} // namespace

mastertable::TableScreen unitPriceScreen()
{
    // One work kind, vehicle classes, colour and panel may hold several jobs, told apart by
    // the work content; the same job twice is refused.
    TableSpec prices{
        QStringLiteral("T_TUnitPrice"),
        QStringLiteral("単価"),
        {classReference(QStringLiteral("作業区分"), QStringLiteral("作業区分"), QStringLiteral("M_TSKubun")),
         classReference(QStringLiteral("車両区分A"), QStringLiteral("車両区分Ａ"), QStringLiteral("M_TSyaryoA")),
         classReference(QStringLiteral("車両区分B"), QStringLiteral("車両区分Ｂ"), QStringLiteral("M_TSyaryoB")),
         classReference(QStringLiteral("色区分"), QStringLiteral("色区分"), QStringLiteral("M_TColor")),
         ColumnSpec::whole(QStringLiteral("Num"), QStringLiteral("部位番号")).mustHave().oneOf(panelNumbers()),
         ColumnSpec::text(QStringLiteral("作業部位"), QStringLiteral("作業部位")).mustHave().atMost(40),
         ColumnSpec::text(QStringLiteral("作業内容"), QStringLiteral("作業内容")).atMost(60),
         ColumnSpec::whole(QStringLiteral("材料/部品代"), QStringLiteral("材料/部品代（円）")).mustHave(),
         ColumnSpec::whole(QStringLiteral("工賃"), QStringLiteral("工賃（円）")).mustHave()},
        {0, 1, 2, 3, 4, 6}};
    return {QStringLiteral("frmKaniSet"),
            QStringLiteral("簡易見積単価設定"),
            EasyEstimateStore::kRelativePath,
            {prices,
             // dlgSSelect offers work kinds 1 (optKH) and 2 (optZP) only.
             classification(QStringLiteral("M_TSKubun"), QStringLiteral("作業区分"), QStringLiteral("作業区分"),
                            {QStringLiteral("1"), QStringLiteral("2")}),
             classification(QStringLiteral("M_TSyaryoA"), QStringLiteral("車両区分A"), QStringLiteral("車両区分Ａ")),
             classification(QStringLiteral("M_TSyaryoB"), QStringLiteral("車両区分B"), QStringLiteral("車両区分Ｂ")),
             classification(QStringLiteral("M_TColor"), QStringLiteral("色区分"), QStringLiteral("色区分"))},
            panelHint()};
}

} // namespace est::simple
