#include "masters/master_screens.h"

#include "db/part_db.h"
#include "indices/bumper_calculation.h"

namespace est::masters {

using db::kPartDb;

using mastertable::ColumnSpec;
using mastertable::TableScreen;
using mastertable::TableSpec;

namespace {

ColumnSpec text(const char *field, const char *caption)
{
    return ColumnSpec::text(QString::fromUtf8(field), QString::fromUtf8(caption));
}

ColumnSpec index(const char *field, const char *caption)
{
    return ColumnSpec::index(QString::fromUtf8(field), QString::fromUtf8(caption));
}

ColumnSpec whole(const char *field, const char *caption)
{
    return ColumnSpec::whole(QString::fromUtf8(field), QString::fromUtf8(caption));
}

// "1枚" ... for the per-panel index columns `prefix`1 ... `prefix`count. Each panel count the
// screens offer needs its index: an empty one would leave the index of another count priced.
QList<ColumnSpec> panelColumns(const char *prefix, int count)
{
    QList<ColumnSpec> columns;
    for (int n = 1; n <= count; ++n)
        columns << ColumnSpec::index(QString::fromUtf8(prefix) + QString::number(n), QStringLiteral("%1枚").arg(n))
                       .mustHave();
    return columns;
}

// Tables whose first row alone is read: one per-unit index and a note.
TableSpec firstRowTable(const char *table, const char *caption)
{
    return {QString::fromUtf8(table), QString::fromUtf8(caption),
            {text("Kubun", "区分"), index("Sisu", "指数").mustHave()}, {}};
}

// Tables of one index per door count.
TableSpec doorCountTable(const char *table, const char *caption)
{
    return {QString::fromUtf8(table), QString::fromUtf8(caption),
            {text("Mai", "ドア数").mustHave(), text("備考", "備考"), index("Sisu", "指数").mustHave()}, {0}};
}

} // namespace

QStringList vehicleClasses()
{
    return {QStringLiteral("小型"), QStringLiteral("普通"), QStringLiteral("軽自")};
}

QStringList colourKindCodes()
{
    return {QStringLiteral("S"), QStringLiteral("M"), QStringLiteral("2P"), QStringLiteral("3P")};
}

TableScreen bumperScreen()
{
    TableSpec base{QStringLiteral("BanpaDB"), QStringLiteral("バンパー指数"),
                   {text("作業", "作業（X:取替 S:修理）").mustHave().oneOf({QStringLiteral("X"), QStringLiteral("S")}),
                    text("車種", "車種").mustHave().oneOf(vehicleClasses()), text("色種", "色種").mustHave(),
                    text("内容", "内容").mustHave().oneOf(indices::BumperCalculation::contents()), text("備考", "備考"), index("指数", "指数").mustHave()},
                   {0, 1, 2, 3}};
    TableSpec offVehicle{QStringLiteral("BampaTantaiDB"), QStringLiteral("単体塗装"),
                         {text("Colr", "色種").mustHave(), index("Sisu", "指数").mustHave()}, {0}};
    // Read in table order: the first three rows are the three condition check boxes.
    TableSpec conditions{QStringLiteral("BampaJyoukenDB"), QStringLiteral("条件加算（上から順に3行）"),
                         {text("Jyouken", "条件").mustHave(), index("Sisu", "指数").mustHave()}, {}};
    // Fewer rows would price the missing check boxes at 0 without a word.
    conditions.wholeTableCheck = [](const QList<QStringList> &rows) {
        return rows.size() >= 3 ? QString()
                                : QStringLiteral("条件加算は上から順に3行（センサー・灯火類付、モール・縞付、傷多数）が必要です。");
    };
    return {QStringLiteral("frmBSetting"), QStringLiteral("バンパー指数設定"), kPartDb, {base, offVehicle, conditions}};
}

TableScreen additionalScreen()
{
    TableSpec tone{QStringLiteral("2ToneDB"), QStringLiteral("2トーンカラー"),
                   QList<ColumnSpec>{text("Tone", "トーン").mustHave(), text("備考", "備考")} + panelColumns("Mai", 6), {0}};
    return {QStringLiteral("frmFukaSetting"), QStringLiteral("付加指数設定"), kPartDb,
            {tone, doorCountTable("SasyuDB", "ドアサッシュ黒塗装"), doorCountTable("Sutoraip", "ボデーストライプ"),
             firstRowTable("SeelingDB", "ボデーシーリング（1行目）"), firstRowTable("WaxDB", "防錆ワックス（1行目）"),
             firstRowTable("BoothDB", "塗装ブース（1行目）")}};
}

TableScreen basicIndexScreen()
{
    TableSpec basic{QStringLiteral("KihonSisuDB"), QStringLiteral("基礎指数"),
                    QList<ColumnSpec>{whole("No", "No"), text("Syaryo", "車種").mustHave().oneOf(vehicleClasses()),
                                      text("Iro", "色種").mustHave().oneOf(colourKindCodes()),
                                      text("Toryo", "塗料").mustHave()}
                        + panelColumns("M", 10),
                    {1, 2, 3}};
    TableSpec highFunction{QStringLiteral("KoukinoDB"), QStringLiteral("高機能塗料"),
                           {text("Iro", "塗装種類").mustHave(), index("KisoSisu", "基礎指数加算"),
                            index("FusoSisu", "ﾌｯｿｺｰﾄ係数加算"), index("TaisuriSisu", "ﾊｲﾚﾌｺｰﾄ係数加算")},
                           {0}};
    TableSpec material{QStringLiteral("PZairyohi"), QStringLiteral("材料係数"),
                       {whole("No", "No"), text("塗装種類", "塗装種類").mustHave(), index("材料係数", "材料係数").mustHave()},
                       {1}};
    TableSpec lowHiding{QStringLiteral("TeiInpeiDB"), QStringLiteral("低隠蔽性塗料"),
                        {text("Bui", "部位"), text("Syu", "種別").mustHave(), index("Sisu", "指数").mustHave(),
                         text("Biko", "備考")},
                        {0, 1}};
    TableSpec twoCoat{QStringLiteral("SoridTone"), QStringLiteral("2コートソリッド"),
                      {whole("No", "No"), text("Bui", "部位").mustHave(), index("Sisu", "指数").mustHave()}, {1}};
    return {QStringLiteral("frmKisoSetting"), QStringLiteral("基礎指数設定"), kPartDb,
            {basic, highFunction, material, lowHiding, twoCoat}};
}

TableScreen paintNameScreen()
{
    TableSpec categories{QStringLiteral("TKubunDB"), QStringLiteral("塗装区分"),
                         {text("KCode", "区分コード").mustHave().usedIn(QStringLiteral("PaintDB"), QStringLiteral("KCode")),
                          text("KName", "区分名")},
                         {0}};
    TableSpec parts{QStringLiteral("PaintDB"), QStringLiteral("部位名"),
                    {text("KCode", "区分コード").mustHave().references(QStringLiteral("TKubunDB"), QStringLiteral("KCode")),
                     text("Buhin", "部位名").mustHave(),
                     text("Basyo", "場所").oneOf({QStringLiteral("ルーフ"), QStringLiteral("ルーフ以外")})},
                    {0, 1}};
    return {QStringLiteral("frmPaintName"), QStringLiteral("塗装部位名設定"), kPartDb, {categories, parts}};
}

} // namespace est::masters
