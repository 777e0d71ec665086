// dlgBankinSetting from the settings hub: a typed index is checked in the grid and, once saved,
// is what the sheet-metal lookup finds; a PartDB without the table is reported.

#include "db/database.h"
#include "db/part_db.h"
#include "grid_typing.h"
#include "indices/index_value.h"
#include "indices/sheet_metal_table.h"
#include "mastertable/table_edit_model.h"
#include "settings_hub_fixture.h"
#include "uikit/table_editor.h"

#include <QLabel>
#include <QSqlQuery>
#include <QTableView>
#include <gtest/gtest.h>

using namespace est;

namespace {

struct BankinSettingTest : test::SettingsHubTest
{
    std::optional<std::array<QString, 3>> grades(int areaClass)
    {
        return indices::SheetMetalTable(db::openDatabase(program.folder.path(), db::kPartDb).database).grades(areaClass);
    }
};

} // namespace

TEST_F(BankinSettingTest, ATypedIndexIsCheckedSavedAndLookedUp)
{
    const bool opened = withScreen("Command10", "dlgBankinSetting", [&](ui::TableEditorWindow *window) {
        EXPECT_EQ(window->windowTitle(), QStringLiteral("鈑金指数設定"));
        EXPECT_TRUE(window->findChild<QLabel *>(QStringLiteral("lblHint")));
        ui::TableEditor *editor = window->editor(QStringLiteral("bankinsisu"));
        ASSERT_TRUE(editor);
        ASSERT_EQ(editor->model().rowCount(), 40);
        ASSERT_TRUE(test::typeIntoCell(editor->view(), 12, 2, QStringLiteral("2.5円")));
        EXPECT_EQ(program.messages.lastText(), QStringLiteral("13行目「B（中度）」：0以上の数値を小数2桁までで入力してください。"));
        if (QLineEdit *open = test::openCellEditor(editor->view()))
            QTest::keyClick(open, Qt::Key_Escape);
        ASSERT_TRUE(test::typeIntoCell(editor->view(), 12, 2, QStringLiteral("２．４")));
        EXPECT_EQ(editor->model().text(12, 2), QStringLiteral("2.40"));
        program.messages.answer(Answer::Yes);  // closing: save the edit
        window->close();
    });
    EXPECT_TRUE(opened);
    EXPECT_EQ(grades(13), (std::array<QString, 3>{"1.5", "2.4", "3.3"}));
}

TEST_F(BankinSettingTest, APartDbWithoutTheTableIsReported)
{
    QSqlQuery(db::openDatabase(program.folder.path(), db::kPartDb).database)
        .exec(QStringLiteral("DROP TABLE bankinsisu"));
    program.messages.clear();
    clickHub("Command10");
    EXPECT_EQ(program.dialogs.seen(QStringLiteral("dlgBankinSetting")), 0);
    EXPECT_EQ(program.messages.lastText(), QStringLiteral("表 bankinsisu がありません。\n鈑金指数設定を開けません。"));
}
