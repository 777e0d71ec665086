// The inner-panel table editor reached from the settings hub: a refused index says why and
// keeps the stored value; an accepted one reaches the inner-panel menu after saving.

#include "grid_typing.h"
#include "mastertable/table_edit_model.h"
#include "paint/paint_masters.h"
#include "program_fixture.h"
#include "uikit/table_editor.h"
#include "when_modal.h"

#include <QPushButton>
#include <QTableView>
#include <gtest/gtest.h>

using namespace est;
using est::test::whenModal;

TEST(InnerPanelSetting, HubOpensTheTableAndIndicesAreChecked)
{
    test::Program p;
    p.start();
    app::AppContext &c = p.context();
    auto *command9 = c.settings->findChild<QPushButton *>(QStringLiteral("Command9"));
    ASSERT_TRUE(command9);
    ASSERT_TRUE(command9->isEnabled());
    whenModal(QStringLiteral("dlgNaibanSetting"), [&p](QDialog *d) {
        auto *window = qobject_cast<ui::TableEditorWindow *>(d);
        ASSERT_TRUE(window);
        ui::TableEditor *editor = window->editor(QStringLiteral("NaibanPaintDB"));
        ASSERT_TRUE(editor);
        EXPECT_EQ(editor->model().rowCount(), 7);
        ASSERT_TRUE(test::typeIntoCell(editor->view(), 0, 3, QStringLiteral("-1")));
        ASSERT_FALSE(p.messages.shown.isEmpty());
        EXPECT_TRUE(p.messages.lastText().contains(QStringLiteral("0以上の数値"))) << p.messages.lastText().toStdString();
        EXPECT_EQ(editor->model().text(0, 3), QStringLiteral("1.20"));
        if (QLineEdit *open = test::openCellEditor(editor->view()))
            QTest::keyClick(open, Qt::Key_Escape);
        ASSERT_TRUE(test::typeIntoCell(editor->view(), 0, 3, QStringLiteral("1.5")));
        ASSERT_TRUE(test::typeIntoCell(editor->view(), 6, 4, QStringLiteral("abc")));
        if (QLineEdit *open = test::openCellEditor(editor->view()))
            QTest::keyClick(open, Qt::Key_Escape);
        EXPECT_EQ(editor->model().text(6, 4), QStringLiteral("2.00"));
        ASSERT_TRUE(editor->save());
        d->accept();
    });
    command9->click();
    QString error;
    const auto masters = paint::PaintMasters::open(p.folder.path(), &error);
    ASSERT_TRUE(masters);
    const auto items = masters->innerPanelItems();
    ASSERT_EQ(items.size(), 7);
    EXPECT_EQ(items.at(0).index, QStringLiteral("1.50"));
    EXPECT_EQ(items.at(6).lightIndex, QStringLiteral("2.00"));
}
