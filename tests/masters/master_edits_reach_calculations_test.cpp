// A value saved through a master screen's table editor is what the matching computation uses
// the next time it reads the tables: the bumper, additional-index and paint calculations on a
// freshly opened PartDB give the amount worked out by hand from the new value.

#include "db/app_folder.h"
#include "db/database.h"
#include "db/part_db.h"
#include "indices/additional_calculation.h"
#include "indices/bumper_calculation.h"
#include "indices/index_value.h"
#include "mastertable/table_edit_model.h"
#include "masters/master_screens.h"
#include "paint/paint_editor.h"
#include "scripted_messages.h"
#include "temp_app_folder.h"

#include <gtest/gtest.h>
#include <functional>
#include <memory>

using namespace est;

namespace {

// A fresh connection to the application folder's PartDB, as a screen opened later gets.
QSqlDatabase reopenedPartDb(const QString &appFolder)
{
    db::closeDatabase(db::resolve(appFolder, db::kPartDb));
    return db::openDatabase(appFolder, db::kPartDb).database;
}

std::optional<Yen> bumperFrontReplace(const QString &appFolder)
{
    test::ScriptedMessages messages;
    const indices::BumperTables tables(reopenedPartDb(appFolder));
    indices::BumperCalculation calc(tables, {QStringLiteral("小型"), QStringLiteral("ｿﾘｯﾄﾞ"), 7010, {}}, messages);
    calc.setIncluded(indices::Side::Front, true);
    calc.setWorkKind(indices::Side::Front, QStringLiteral("取替"));
    calc.setContent(indices::Side::Front, QStringLiteral("全面塗装"));
    return calc.total();
}

std::optional<Yen> sealingThreeUnits(const QString &appFolder)
{
    test::ScriptedMessages messages;
    const indices::AdditionalTables tables(reopenedPartDb(appFolder));
    indices::AdditionalCalculation calc(tables, 7010, {}, messages);
    calc.setUnits(indices::UnitTable::Sealing, QStringLiteral("3"));
    return calc.total();
}

std::optional<Yen> paintOnePanelSmallSolid(const QString &appFolder)
{
    QString error;
    const auto masters = paint::PaintMasters::open(appFolder, &error);
    Session session;
    session.vehicle[14] = QStringLiteral("ｿﾘｯﾄﾞ");
    session.paint.vehicleClass = QStringLiteral("小型");
    session.paintLabourRate = 7010;
    paint::PaintEditor editor(masters.get(), session);
    const QString index = editor.basicIndex(QStringLiteral("1"), QStringLiteral("速乾"));
    const auto line = editor.makeLine(paint::LineKind::Basic, QStringLiteral("フロント"), QStringLiteral("ボンネット"),
                                      QString(), QStringLiteral("1枚"), index, false);
    return line ? std::optional<Yen>(line->labour) : std::nullopt;
}

struct EditCase
{
    const char *name;
    mastertable::TableScreen (*screen)();
    const char *table;
    QMap<QString, QString> rowKey;  // field -> value of the row edited
    const char *field;
    const char *newValue;
    std::function<std::optional<Yen>(const QString &appFolder)> compute;
    Yen before, after;
};

class MasterEditReachesCalculation : public ::testing::TestWithParam<EditCase> {};

} // namespace

TEST_P(MasterEditReachesCalculation, TheNewValueGivesTheNewAmount)
{
    const EditCase &c = GetParam();
    test::TempAppFolder folder;
    EXPECT_EQ(c.compute(folder.path()), c.before);

    mastertable::TableSpec layout;
    for (const mastertable::TableSpec &table : c.screen().tables)
        if (table.table == QLatin1String(c.table))
            layout = table;
    ASSERT_EQ(layout.table, QLatin1String(c.table));
    // The editor keeps a connection of its own; the computations reopen theirs.
    QSqlDatabase editorConnection = QSqlDatabase::cloneDatabase(reopenedPartDb(folder.path()), QStringLiteral("editor"));
    ASSERT_TRUE(editorConnection.open());
    auto model = std::make_unique<mastertable::TableEditModel>(mastertable::TableStore(editorConnection, layout));
    int row = -1;
    for (int r = 0; r < model->rowCount() && row < 0; ++r) {
        bool matches = true;
        for (auto it = c.rowKey.cbegin(); it != c.rowKey.cend(); ++it)
            matches = matches && model->text(r, layout.columnOf(it.key())) == it.value();
        if (matches)
            row = r;
    }
    ASSERT_GE(row, 0);
    ASSERT_TRUE(model->setData(model->index(row, layout.columnOf(QString::fromUtf8(c.field))), QString::fromUtf8(c.newValue)));
    EXPECT_EQ(c.compute(folder.path()), c.before);  // held until saved
    const mastertable::SaveOutcome outcome = model->save();
    EXPECT_TRUE(outcome.saved) << outcome.message.toStdString();
    model.reset();
    editorConnection.close();
    editorConnection = QSqlDatabase();
    QSqlDatabase::removeDatabase(QStringLiteral("editor"));
    EXPECT_EQ(c.compute(folder.path()), c.after);
}

INSTANTIATE_TEST_SUITE_P(
    ByHand, MasterEditReachesCalculation,
    ::testing::Values(
        // frmBSetting, 取替 全面塗装 of a small car in solid colour: 2.40 × 7,010 = 16,824;
        // at 2.55: 17,875.5, to the even 17,876.
        EditCase{"BumperIndex", &masters::bumperScreen, "BanpaDB",
                 {{"作業", "X"}, {"車種", "小型"}, {"色種", "ｿﾘｯﾄﾞ"}, {"内容", "全面塗装"}}, "指数", "2.55",
                 bumperFrontReplace, 16824, 17876},
        // frmFukaSetting, sealing for 3 units: 0.25 × 3 = 0.75 × 7,010 = 5,257.5 -> 5,258; at
        // 0.45: 1.35 × 7,010 = 9,463.5 -> 9,464.
        EditCase{"SealingIndex", &masters::additionalScreen, "SeelingDB", {}, "Sisu", "0.45", sealingThreeUnits,
                 5258, 9464},
        // frmKisoSetting, one panel of a small car in solid colour with quick-dry paint:
        // 4.00 × 7,010 = 28,040; at 4.35: 30,493.5 -> 30,494.
        EditCase{"BasicIndex", &masters::basicIndexScreen, "KihonSisuDB",
                 {{"Syaryo", "小型"}, {"Iro", "S"}, {"Toryo", "速乾"}}, "M1", "４．３５", paintOnePanelSmallSolid,
                 28040, 30494}),
    [](const auto &info) { return std::string(info.param.name); });
