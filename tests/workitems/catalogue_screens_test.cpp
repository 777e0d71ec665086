// The car type dialog, the catalogue choice, frmBuhin, frmNewMeka and the text box helpers.
#include "screen_fixtures.h"

using namespace est;
using namespace est::test::workitems_screens;

namespace {

TEST_F(FolderFixture, CarTypeDialogSetsTheFourChoices)
{
    session = Session();
    ASSERT_TRUE(choice.openCarSetDb());
    DlgCarType dialog(session, messages, choice.connections());
    auto *makers = find<QListWidget>(&dialog, "dlstMeka");
    auto *types = find<QListWidget>(&dialog, "dlstType");
    auto *ok = find<QPushButton>(&dialog, "OKButton");
    EXPECT_FALSE(ok->isEnabled());
    makers->setCurrentRow(1);
    EXPECT_EQ(find<QLabel>(&dialog, "lblMeka")->text(), QStringLiteral("メーカー名は 日産"));
    types->setCurrentRow(2);
    EXPECT_EQ(find<QLabel>(&dialog, "lblType")->text(), QStringLiteral("車両タイプは 軽自動車"));
    ok->click();
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    EXPECT_EQ(session.maker, QStringLiteral("日産"));
    EXPECT_EQ(session.makerDb, QStringLiteral("Nissan"));
    EXPECT_EQ(session.vehicleType, QStringLiteral("軽自動車"));
    EXPECT_EQ(session.typeTable, QStringLiteral("T_Kei"));
}

TEST_F(FolderFixture, OpenCatalogueWithoutAMakerSaysSo)
{
    session.makerDb.clear();
    QTimer::singleShot(0, [] {
        if (auto *d = qobject_cast<QDialog *>(QApplication::activeModalWidget()))
            d->findChild<QPushButton *>(QStringLiteral("CancelButton"))->click();
    });
    EXPECT_FALSE(choice.openCatalogueDb(nullptr));
    ASSERT_FALSE(messages.shown.isEmpty());
    EXPECT_EQ(messages.shown.first().text, QStringLiteral("部品データの選択条件がありません。条件を選択してください。"));
    EXPECT_EQ(messages.shown.first().title, QStringLiteral("データを表示できません"));
}

TEST_F(FolderFixture, MissingCatalogueFileOrTableGivesEmptyListsAndAMessage)
{
    session.makerDb = QStringLiteral("Mitsuoka");
    EXPECT_FALSE(choice.openCatalogueDb(nullptr));
    EXPECT_EQ(messages.shown.size(), 1);
    session.makerDb = QStringLiteral("Honda");
    session.typeTable = QStringLiteral("T_Truck");
    ASSERT_TRUE(choice.openCatalogueDb(nullptr));
    auto table = choice.currentTable();
    EXPECT_FALSE(table);
    EXPECT_EQ(messages.shown.size(), 2);
    FrmSakusei editor(session, messages, std::move(table));
    EXPECT_EQ(find<QListWidget>(&editor, "dlstB")->count(), 0);
}

TEST_F(FolderFixture, CarTypeDialogCountsOnlyTheUsersChoice)
{
    session = Session();
    ASSERT_TRUE(choice.openCarSetDb());
    DlgCarType dialog(session, messages, choice.connections());
    auto *makers = find<QListWidget>(&dialog, "dlstMeka");
    auto *types = find<QListWidget>(&dialog, "dlstType");
    focusIn(makers);
    focusIn(types);
    ASSERT_EQ(makers->currentRow(), 0);
    EXPECT_EQ(find<QLabel>(&dialog, "lblMeka")->text(), QString());
    EXPECT_EQ(find<QLabel>(&dialog, "lblType")->text(), QString());
    EXPECT_FALSE(find<QPushButton>(&dialog, "OKButton")->isEnabled());
}

TEST_F(FolderFixture, CatalogueEditorNeedsBothChoicesMadeByTheUser)
{
    session = Session();
    FrmBuhin editor(choice);
    find<QListWidget>(&editor, "dlstCType")->setCurrentRow(1);
    auto *makers = find<QListWidget>(&editor, "dlstCarSec");
    focusIn(makers);
    ASSERT_EQ(makers->currentRow(), 0);
    EXPECT_FALSE(find<QPushButton>(&editor, "cmdNext")->isEnabled());
}

// ---- frmBuhin and frmNewMeka ------------------------------------------------------------

TEST_F(FolderFixture, CatalogueEditorWalksThroughItsStates)
{
    session = Session();
    FrmBuhin editor(choice);
    EXPECT_EQ(find<QLabel>(&editor, "lblSetumei1")->text(),
              QStringLiteral("１．はじめに、編集するメーカー名と車両タイプを選択して次へボタンをクリックしてください。"));
    EXPECT_EQ(find<QLabel>(&editor, "lblSetumei7")->text(),
              QStringLiteral("＊メーカー選択からもう一度はじめる場合は、’最初に戻る’ボタンをクリックしてください。＊"));
    auto *next = find<QPushButton>(&editor, "cmdNext");
    EXPECT_EQ(editor.mode(), CatalogueEditorMode::Choosing);
    EXPECT_FALSE(next->isEnabled());
    find<QListWidget>(&editor, "dlstCType")->setCurrentRow(1);
    EXPECT_FALSE(next->isEnabled());
    find<QListWidget>(&editor, "dlstCarSec")->setCurrentRow(2);
    EXPECT_TRUE(next->isEnabled());
    next->click();
    EXPECT_EQ(editor.mode(), CatalogueEditorMode::Browsing);
    EXPECT_EQ(session.makerDb, QStringLiteral("Honda"));
    EXPECT_EQ(session.typeTable, QStringLiteral("T_Minivan"));
    EXPECT_FALSE(find<QListWidget>(&editor, "dlstCarSec")->isEnabled());

    auto *classes = find<QListWidget>(&editor, "dlstBunrui");
    ASSERT_GE(classes->count(), 2);
    classes->setCurrentRow(1);
    auto *sections = find<QListWidget>(&editor, "dlstKubun");
    ASSERT_GE(sections->count(), 1);
    sections->setCurrentRow(0);
    auto *grid = find<QTableWidget>(&editor, "DG1");
    const int before = grid->rowCount();
    ASSERT_GT(before, 0);
    EXPECT_EQ(find<QLabel>(&editor, "lblBNum")->text(), QStringLiteral("2"));
    EXPECT_EQ(find<QLabel>(&editor, "lblBunrui")->text(), QStringLiteral("サイド廻り"));
    EXPECT_EQ(find<QLabel>(&editor, "lblKNum")->text(), QStringLiteral("1"));
    EXPECT_EQ(find<QLabel>(&editor, "lblKubun")->text(), sections->item(0)->text());

    // Adding: highest Num + 1, a name with apostrophes, saved and shown.
    find<QPushButton>(&editor, "cmdNew")->click();
    EXPECT_EQ(editor.mode(), CatalogueEditorMode::Adding);
    EXPECT_FALSE(grid->isEnabled());
    EXPECT_EQ(find<QLabel>(&editor, "lblNum")->text(), QString::number(grid->item(before - 1, 0)->text().toInt() + 1));
    find<QLineEdit>(&editor, "txtBuhin")->setText(QStringLiteral("ドア'ストライカー'"));
    find<QPushButton>(&editor, "cmdOK")->click();
    EXPECT_EQ(editor.mode(), CatalogueEditorMode::Browsing);
    ASSERT_EQ(grid->rowCount(), before + 1);
    EXPECT_EQ(grid->item(before, 5)->text(), QStringLiteral("ドア'ストライカー'"));

    // An empty name saves nothing; Cancel abandons a begun row.
    find<QPushButton>(&editor, "cmdNew")->click();
    find<QPushButton>(&editor, "cmdOK")->click();
    EXPECT_EQ(grid->rowCount(), before + 1);
    find<QPushButton>(&editor, "cmdNew")->click();
    find<QLineEdit>(&editor, "txtBuhin")->setText(QStringLiteral("不要"));
    find<QPushButton>(&editor, "cmdCancel")->click();
    EXPECT_EQ(grid->rowCount(), before + 1);

    // Editing a name in the grid.
    find<QPushButton>(&editor, "cmdEdit")->click();
    EXPECT_EQ(editor.mode(), CatalogueEditorMode::Editing);
    grid->item(0, 5)->setText(QStringLiteral("改名した部品"));
    find<QPushButton>(&editor, "cmdOK")->click();
    EXPECT_EQ(grid->item(0, 5)->text(), QStringLiteral("改名した部品"));

    // Deleting asks; No keeps, Yes deletes.
    find<QPushButton>(&editor, "cmdDel")->click();
    grid->setCurrentCell(before, 5);
    messages.answer(Answer::No);
    find<QPushButton>(&editor, "cmdOK")->click();
    EXPECT_EQ(messages.lastText(), QStringLiteral("データを削除します。\nよろしいですか？"));
    EXPECT_EQ(messages.shown.last().title, QStringLiteral("削除"));
    EXPECT_EQ(grid->rowCount(), before + 1);
    find<QPushButton>(&editor, "cmdDel")->click();
    grid->setCurrentCell(before, 5);
    messages.answer(Answer::Yes);
    find<QPushButton>(&editor, "cmdOK")->click();
    EXPECT_EQ(grid->rowCount(), before);

    // The changes are in the file.
    auto table = CatalogueTable::open(choice.connections().catalogue(), QStringLiteral("T_Minivan"));
    ASSERT_TRUE(table);
    EXPECT_EQ(table->parts(2, 1).first().name, QStringLiteral("改名した部品"));

    find<QPushButton>(&editor, "cmdFarst")->click();
    EXPECT_EQ(editor.mode(), CatalogueEditorMode::Choosing);
    EXPECT_TRUE(find<QListWidget>(&editor, "dlstCarSec")->isEnabled());
    EXPECT_EQ(classes->count(), 0);
    EXPECT_EQ(grid->rowCount(), 0);
    table.reset();
    editor.reject();
    EXPECT_FALSE(choice.connections().catalogueOpen());
}

TEST_F(FolderFixture, MakerNameEditorNumbersFromOneOnAnEmptyList)
{
    {
        QSqlDatabase db;
        ASSERT_EQ(MakerNameList::open(folder.path(), &db), QString());
        MakerNameList list(db);
        for (const auto &r : list.all())
            list.remove(r.rowId);
    }
    FrmNewMeka editor(folder.path(), messages);
    auto *grid = find<QTableWidget>(&editor, "DGM");
    EXPECT_EQ(grid->rowCount(), 0);
    EXPECT_EQ(grid->horizontalHeaderItem(1)->text(), QStringLiteral("メーカー"));
    find<QPushButton>(&editor, "cmdNew")->click();
    EXPECT_EQ(find<QLabel>(&editor, "lblNo")->text(), QStringLiteral("1"));
    find<QLineEdit>(&editor, "txtM")->setText(QStringLiteral("光岡"));
    find<QPushButton>(&editor, "cmdOK")->click();
    find<QPushButton>(&editor, "cmdNew")->click();
    EXPECT_EQ(find<QLabel>(&editor, "lblNo")->text(), QStringLiteral("2"));
    find<QLineEdit>(&editor, "txtM")->setText(QStringLiteral("D'Auto"));
    find<QPushButton>(&editor, "cmdOK")->click();
    ASSERT_EQ(grid->rowCount(), 2);
    EXPECT_EQ(grid->item(1, 1)->text(), QStringLiteral("D'Auto"));

    grid->setCurrentCell(0, 1);
    find<QPushButton>(&editor, "cmdEdit")->click();
    find<QLineEdit>(&editor, "txtM")->setText(QStringLiteral("ミツオカ"));
    find<QPushButton>(&editor, "cmdOK")->click();
    EXPECT_EQ(grid->item(0, 1)->text(), QStringLiteral("ミツオカ"));

    grid->setCurrentCell(1, 1);
    messages.answer(Answer::Yes);
    find<QPushButton>(&editor, "cmdDel")->click();
    EXPECT_EQ(messages.lastText(), QStringLiteral("削除します。\nこのデータは失われます。\nよろしいですか？"));
    EXPECT_EQ(grid->rowCount(), 1);
}


TEST(TextBox, SelectAllTextAndFormatTwoDecimals)
{
    QLineEdit box;
    box.setText(QStringLiteral("1234"));
    box.setCursorPosition(2);
    selectAllText(&box);
    EXPECT_EQ(box.selectedText(), QStringLiteral("1234"));
    EXPECT_EQ(box.selectionStart(), 0);

    struct Case
    {
        const char *typed;
        const char *shown;
    };
    for (const Case c : {Case{"1.5", "1.50"}, Case{".5", "0.50"}, Case{"12", "12.00"}, Case{"0", "0.00"},
                         Case{"1.006", "1.01"}, Case{"", ""}, Case{"abc", "abc"}}) {
        box.setText(QString::fromUtf8(c.typed));
        box.setCursorPosition(0);
        formatTwoDecimals(&box);
        EXPECT_EQ(box.text(), QString::fromUtf8(c.shown)) << c.typed;
        EXPECT_EQ(box.cursorPosition(), box.text().size()) << c.typed;
    }
}

} // namespace
