#include "db/database.h"
#include "grid_typing.h"
#include "mastertable/table_edit_model.h"
#include "settings_hub_fixture.h"
#include "uikit/table_editor.h"

#include <QLabel>
#include <QSqlQuery>
#include <QTabWidget>
#include <QTableView>
#include <gtest/gtest.h>

using namespace est;

namespace {

// Master screens opened from the settings hub, with the PartDB they edit at hand.
struct HubTest : test::SettingsHubTest
{
    void withScreen(const char *button, const char *screen, const std::function<void(ui::TableEditorWindow *)> &drive)
    {
        EXPECT_TRUE(SettingsHubTest::withScreen(button, screen, drive)) << screen;
    }
    QSqlDatabase partDb()
    {
        return db::openDatabase(program.folder.path(), QStringLiteral("temp\\PartDB.mdb")).database;
    }
    QString value(const QString &sql)
    {
        QSqlQuery q(partDb());
        return q.exec(sql) && q.next() ? q.value(0).toString() : QStringLiteral("<none>");
    }
};

struct ScreenCase
{
    const char *button;
    const char *screen;
    int tabs;
    const char *table;  // first tab's table
    int indexColumn;    // an index column of that table
};

class HubScreenTest : public HubTest, public ::testing::WithParamInterface<ScreenCase> {};

} // namespace

// Each screen opens from its hub button with one tab per table, and refuses a text in an
// index column, a negative index and a duplicate key with a message naming the cell, leaving
// the table as it was.
TEST_P(HubScreenTest, OpensFromTheHubAndRefusesBadInput)
{
    const ScreenCase &c = GetParam();
    const QString table = QString::fromUtf8(c.table);
    const QString countSql = QStringLiteral("SELECT COUNT(*), TOTAL(rowid) FROM %1").arg(db::quoteIdentifier(table));
    const QString before = value(countSql);
    withScreen(c.button, c.screen, [&](ui::TableEditorWindow *window) {
        EXPECT_EQ(window->findChild<QTabWidget *>(QStringLiteral("tabTables"))->count(), c.tabs);
        ui::TableEditor *editor = window->editors().first();
        EXPECT_EQ(editor->objectName(), table);
        program.messages.clear();
        ASSERT_TRUE(test::typeIntoCell(editor->view(), 0, c.indexColumn, QStringLiteral("abc")));
        EXPECT_TRUE(program.messages.lastText().startsWith(QStringLiteral("1行目「"))) << program.messages.lastText().toStdString();
        EXPECT_TRUE(program.messages.lastText().endsWith(QStringLiteral("0以上の数値を小数2桁までで入力してください。")));
        QTest::keyClick(test::openCellEditor(editor->view()), Qt::Key_Escape);
        ASSERT_TRUE(test::typeIntoCell(editor->view(), 0, c.indexColumn, QStringLiteral("-0.5")));
        EXPECT_EQ(program.messages.shown.size(), 2);
        QTest::keyClick(test::openCellEditor(editor->view()), Qt::Key_Escape);
        EXPECT_FALSE(editor->isDirty());
        // A copy of the first row repeats its key.
        mastertable::TableEditModel &model = editor->model();
        const int added = model.appendRow();
        for (int col = 0; col < model.columnCount(); ++col)
            model.setData(model.index(added, col), model.text(0, col));
        EXPECT_FALSE(editor->save());
        EXPECT_TRUE(program.messages.lastText().contains(QStringLiteral("1行目と同じです。"))) << program.messages.lastText().toStdString();
        program.messages.answer(Answer::No);  // closing: do not save
    });
    EXPECT_EQ(value(countSql), before);
}

INSTANTIATE_TEST_SUITE_P(Screens, HubScreenTest,
                         ::testing::Values(ScreenCase{"Command3", "frmBSetting", 3, "BanpaDB", 5},
                                           ScreenCase{"cmdPaintSisu", "frmFukaSetting", 6, "2ToneDB", 2},
                                           ScreenCase{"Command7", "frmKisoSetting", 5, "KihonSisuDB", 4}),
                         [](const auto &info) { return std::string(info.param.screen); });

TEST_F(HubTest, PaintNamesRefuseAnUnknownCategoryAndKeepAnApostrophe)
{
    withScreen("Command5", "frmPaintName", [&](ui::TableEditorWindow *window) {
        ui::TableEditor *parts = window->editor(QStringLiteral("PaintDB"));
        ASSERT_NE(parts, nullptr);
        window->findChild<QTabWidget *>()->setCurrentWidget(parts);
        parts->findChild<QPushButton *>(QStringLiteral("cmdAdd"))->click();
        const int row = parts->model().rowCount() - 1;
        QTest::keyClick(test::openCellEditor(parts->view()), Qt::Key_Escape);
        ASSERT_TRUE(test::typeIntoCell(parts->view(), row, 0, QStringLiteral("99")));
        ASSERT_TRUE(test::typeIntoCell(parts->view(), row, 1, QStringLiteral("O'Brien スポイラー")));
        EXPECT_FALSE(parts->save());
        EXPECT_EQ(program.messages.lastText(),
                  QStringLiteral("%1行目「区分コード」：「99」は TKubunDB にありません。先にそちらへ登録してください。\n保存していません。")
                      .arg(row + 1));
        ASSERT_TRUE(test::typeIntoCell(parts->view(), row, 0, QStringLiteral("05")));
        EXPECT_TRUE(parts->save());
    });
    EXPECT_EQ(value(QStringLiteral("SELECT \"KCode\" FROM \"PaintDB\" WHERE \"Buhin\" = 'O''Brien スポイラー'")), QStringLiteral("05"));
}

TEST_F(HubTest, BasicIndexScreenShowsMissingCombinationsAfterSaving)
{
    withScreen("Command7", "frmKisoSetting", [&](ui::TableEditorWindow *window) {
        auto *missing = window->findChild<QLabel *>(QStringLiteral("lblMissing"));
        ASSERT_NE(missing, nullptr);
        EXPECT_EQ(missing->text(), QStringLiteral("車種・色種・塗料のすべての組み合わせに基礎指数があります。"));
        ui::TableEditor *basic = window->editor(QStringLiteral("KihonSisuDB"));
        // The first sample row is 小型・S・速乾; renaming its material leaves that combination without a row.
        ASSERT_TRUE(test::typeIntoCell(basic->view(), 0, 3, QStringLiteral("特殊")));
        EXPECT_TRUE(basic->save());
        EXPECT_TRUE(missing->text().startsWith(QStringLiteral("基礎指数の無い組み合わせ（")));
        EXPECT_TRUE(missing->text().contains(QStringLiteral("小型・S・速乾")));
    });
}

// A database without the screen's tables (or none at all) is named in one notice and the
// screen does not open.
TEST_F(HubTest, MissingTablesAreReportedOnceAndNothingOpens)
{
    const db::OpenResult opened = db::openDatabase(program.folder.path(), QStringLiteral("temp\\PartDB.mdb"));
    if (opened.ok())
        QSqlQuery(opened.database).exec(QStringLiteral("DROP TABLE IF EXISTS \"TKubunDB\""));
    program.messages.clear();
    program.context().settings->button(QStringLiteral("Command5"))->click();
    EXPECT_EQ(program.dialogs.seen(QStringLiteral("frmPaintName")), 0);
    ASSERT_EQ(program.messages.shown.size(), 1);
    EXPECT_EQ(program.messages.shown.first().icon, MessageIcon::Critical);
    const QString text = program.messages.lastText();
    EXPECT_TRUE(opened.ok() ? text.startsWith(QStringLiteral("表 TKubunDB がありません。")) : text.contains(QStringLiteral("PartDB.sqlite")))
        << text.toStdString();
}
