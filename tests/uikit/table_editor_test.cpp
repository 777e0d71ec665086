#include "mastertable/table_edit_model.h"
#include "grid_typing.h"
#include "scratch_database.h"
#include "scripted_messages.h"
#include "uikit/table_editor.h"

#include <QFile>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QTemporaryDir>
#include <QTest>
#include <gtest/gtest.h>

using namespace est;

namespace {

struct TableEditorTest : ::testing::Test
{
    test::ScratchDatabase scratch;
    test::ScriptedMessages messages;
    ui::TableEditorWindow window{QStringLiteral("frmTest"), QStringLiteral("試験"), messages};
    ui::TableEditor *tones = window.addTable(test::ScratchDatabase::toneSpec(), scratch.database());
    ui::TableEditor *parts = window.addTable(test::ScratchDatabase::partSpec(), scratch.database());

    void SetUp() override
    {
        window.show();
        QApplication::processEvents();
    }
    QPushButton *button(ui::TableEditor *editor, const char *name)
    {
        return editor->findChild<QPushButton *>(QLatin1String(name));
    }
    QLineEdit *openEditor(ui::TableEditor *editor) { return test::openCellEditor(editor->view()); }
    void typeInto(ui::TableEditor *editor, int row, int column, const QString &text)
    {
        ASSERT_TRUE(test::typeIntoCell(editor->view(), row, column, text));
    }
};

} // namespace

TEST_F(TableEditorTest, GridShowsCaptionsAndSavesTypedValues)
{
    EXPECT_EQ(tones->objectName(), QStringLiteral("2ToneDB"));
    EXPECT_EQ(tones->view()->objectName(), QStringLiteral("dgTable"));
    EXPECT_EQ(tones->view()->model()->headerData(1, Qt::Horizontal).toString(), QStringLiteral("トーン"));
    typeInto(tones, 0, 3, QStringLiteral("１．２"));
    EXPECT_EQ(tones->model().text(0, 3), QStringLiteral("1.20"));
    EXPECT_EQ(scratch.dump(QStringLiteral("2ToneDB")).first(), QStringLiteral("小型|ﾂｰﾄｰﾝ||1.5|2.25"));
    button(tones, "cmdSave")->click();
    EXPECT_EQ(scratch.dump(QStringLiteral("2ToneDB")).first(), QStringLiteral("小型|ﾂｰﾄｰﾝ||1.2|2.25"));
    EXPECT_TRUE(messages.shown.isEmpty());
}

TEST_F(TableEditorTest, RefusedCellIsReportedAndReopenedWithTheTypedText)
{
    typeInto(tones, 1, 4, QStringLiteral("abc"));
    ASSERT_EQ(messages.shown.size(), 1);
    EXPECT_EQ(messages.lastText(), QStringLiteral("2行目「2枚」：0以上の数値を小数2桁までで入力してください。"));
    EXPECT_EQ(messages.shown.last().title, QStringLiteral("2トーン"));
    QLineEdit *again = openEditor(tones);
    ASSERT_NE(again, nullptr);
    EXPECT_EQ(again->text(), QStringLiteral("abc"));
    EXPECT_EQ(tones->model().text(1, 4), QStringLiteral("2.60"));
    EXPECT_FALSE(tones->isDirty());
}

TEST_F(TableEditorTest, DeleteAsksFirstAndIsHeldUntilSaved)
{
    tones->view()->selectRow(0);
    messages.answer(Answer::No);
    button(tones, "cmdDel")->click();
    EXPECT_EQ(messages.lastText(), QStringLiteral("削除します。\nデータが失われます。\nよろしいですか？"));
    EXPECT_EQ(messages.shown.last().kind, test::ShownMessage::Kind::YesNo);
    EXPECT_EQ(tones->model().rowCount(), 2);
    messages.answer(Answer::Yes);
    button(tones, "cmdDel")->click();
    EXPECT_EQ(tones->model().rowCount(), 1);
    EXPECT_EQ(scratch.dump(QStringLiteral("2ToneDB")).size(), 2);
    ASSERT_TRUE(tones->save());
    EXPECT_EQ(scratch.dump(QStringLiteral("2ToneDB")), QStringList{QStringLiteral("普通|ﾂｰﾄｰﾝ||1.8|2.6")});
}

TEST_F(TableEditorTest, UndoAsksAndRestoresTheSavedRows)
{
    button(parts, "cmdAdd")->click();
    QLineEdit *line = openEditor(parts);
    ASSERT_NE(line, nullptr);
    QTest::keyClicks(line, "A");
    messages.answer(Answer::Yes);
    button(parts, "cmdUndo")->click();
    EXPECT_EQ(parts->model().rowCount(), 2);
    EXPECT_FALSE(parts->isDirty());
}

struct CloseCase
{
    Answer answer;
    bool closed;
    const char *storedMai1;
};

class CloseWithEditsTest : public TableEditorTest, public ::testing::WithParamInterface<CloseCase> {};

TEST_P(CloseWithEditsTest, AsksWhetherToSave)
{
    typeInto(parts, 1, 2, QStringLiteral("9"));
    typeInto(tones, 0, 3, QStringLiteral("3"));
    messages.answer(GetParam().answer);
    messages.answer(Answer::No);  // for the second tab when the first was answered
    window.close();
    EXPECT_EQ(window.isVisible(), !GetParam().closed);
    ASSERT_FALSE(messages.shown.isEmpty());
    EXPECT_EQ(messages.shown.first().text, QStringLiteral("「2トーン」の変更が保存されていません。\n保存しますか？"));
    EXPECT_EQ(messages.shown.first().kind, test::ShownMessage::Kind::YesNoCancel);
    EXPECT_TRUE(scratch.dump(QStringLiteral("2ToneDB")).first().endsWith(QString::fromUtf8(GetParam().storedMai1)));
}

INSTANTIATE_TEST_SUITE_P(Answers, CloseWithEditsTest,
                         ::testing::Values(CloseCase{Answer::Yes, true, "|3|2.25"}, CloseCase{Answer::No, true, "|1.5|2.25"},
                                           CloseCase{Answer::Cancel, false, "|1.5|2.25"}));

TEST_F(TableEditorTest, CloseIsRefusedWhenTheEditsCannotBeSaved)
{
    typeInto(tones, 1, 0, QStringLiteral("小型"));  // now the key repeats row 1
    messages.answer(Answer::Yes);
    window.close();
    EXPECT_TRUE(window.isVisible());
    EXPECT_TRUE(messages.lastText().startsWith(QStringLiteral("2行目「車種」：「車種・トーン」の組み合わせが1行目と同じです。")));
    EXPECT_EQ(tones->view()->currentIndex().row(), 1);
}

TEST_F(TableEditorTest, ImportAndExportThroughChosenFiles)
{
    QTemporaryDir dir;
    const QString exported = dir.filePath(QStringLiteral("tone.csv"));
    tones->setFileChooser([&](bool forExport, const QString &name) {
        EXPECT_TRUE(forExport);
        EXPECT_EQ(name, QStringLiteral("2ToneDB.csv"));
        return exported;
    });
    button(tones, "cmdExport")->click();
    EXPECT_EQ(messages.lastText(), QStringLiteral("2行を書き出しました。"));
    QFile file(exported);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    QByteArray bytes = file.readAll();
    file.close();
    bytes.replace("1.50", "1.55");
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
    file.close();

    tones->setFileChooser([&](bool forExport, const QString &) {
        EXPECT_FALSE(forExport);
        return exported;
    });
    messages.answer(Answer::Yes);
    button(tones, "cmdImport")->click();
    EXPECT_EQ(messages.lastText(), QStringLiteral("2行を読み込みました。"));
    EXPECT_EQ(tones->model().text(0, 3), QStringLiteral("1.55"));
    EXPECT_EQ(scratch.dump(QStringLiteral("2ToneDB")).first(), QStringLiteral("小型|ﾂｰﾄｰﾝ||1.55|2.25"));
}

TEST_F(TableEditorTest, CsvWaitsForUnsavedEdits)
{
    typeInto(tones, 0, 2, QStringLiteral("メモ"));
    bool asked = false;
    tones->setFileChooser([&](bool, const QString &) {
        asked = true;
        return QString();
    });
    button(tones, "cmdImport")->click();
    EXPECT_FALSE(asked);
    EXPECT_EQ(messages.lastText(), QStringLiteral("保存していない変更があります。\n先に保存するか、元に戻してください。"));
}

// Every tab is asked before anything is dropped: No for the first and キャンセル for the second
// keeps the window and both tabs' edits.
TEST_F(TableEditorTest, CancelOnALaterTabKeepsTheEditsOfEveryTab)
{
    typeInto(tones, 0, 3, QStringLiteral("3"));
    typeInto(parts, 1, 2, QStringLiteral("9"));
    messages.answer(Answer::No);
    messages.answer(Answer::Cancel);
    window.close();
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(messages.shown.size(), 2);
    EXPECT_TRUE(tones->isDirty());
    EXPECT_EQ(tones->model().text(0, 3), QStringLiteral("3.00"));
    EXPECT_TRUE(parts->isDirty());
    EXPECT_EQ(scratch.dump(QStringLiteral("2ToneDB")).first(), QStringLiteral("小型|ﾂｰﾄｰﾝ||1.5|2.25"));
}

// A value refused when the click on 保存 takes the focus from its cell stops that save: the
// other held edits are not written behind the message.
TEST_F(TableEditorTest, ARefusalOnTheWayToSaveStopsTheSave)
{
    typeInto(tones, 0, 3, QStringLiteral("3"));
    const QModelIndex cell = tones->model().index(1, 4);
    tones->view()->setCurrentIndex(cell);
    tones->view()->edit(cell);
    QLineEdit *line = openEditor(tones);
    ASSERT_NE(line, nullptr);
    line->selectAll();
    line->insert(QStringLiteral("1.555"));
    QTest::mouseClick(button(tones, "cmdSave"), Qt::LeftButton);
    for (int i = 0; i < 3; ++i)
        QApplication::processEvents();
    EXPECT_EQ(scratch.dump(QStringLiteral("2ToneDB")).first(), QStringLiteral("小型|ﾂｰﾄｰﾝ||1.5|2.25"));
    EXPECT_TRUE(tones->isDirty());
    EXPECT_TRUE(messages.lastText().startsWith(QStringLiteral("2行目「2枚」"))) << messages.lastText().toStdString();
    // Given up with Esc, the next 保存 writes the edit that was accepted.
    if (QLineEdit *again = openEditor(tones))
        QTest::keyClick(again, Qt::Key_Escape);
    button(tones, "cmdSave")->click();
    EXPECT_EQ(scratch.dump(QStringLiteral("2ToneDB")).first(), QStringLiteral("小型|ﾂｰﾄｰﾝ||3|2.25"));
}

// A row added and left blank is not an edit to save: closing asks nothing.
TEST_F(TableEditorTest, ABlankAddedRowIsNotAskedAbout)
{
    button(parts, "cmdAdd")->click();
    if (QLineEdit *open = openEditor(parts))
        QTest::keyClick(open, Qt::Key_Escape);
    window.close();
    EXPECT_FALSE(window.isVisible());
    EXPECT_TRUE(messages.shown.isEmpty());
}

// Closing with Yes saves a tab that refers to a row another tab adds, whatever their order.
TEST(TableEditorWindow, SavesATabThatNeedsAnotherTabsNewRow)
{
    test::ScratchDatabase scratch;
    test::ScriptedMessages messages;
    ui::TableEditorWindow window{QStringLiteral("frmTest"), QStringLiteral("試験"), messages};
    ui::TableEditor *parts = window.addTable(test::ScratchDatabase::partSpec(), scratch.database());
    const mastertable::TableSpec categories{
        QStringLiteral("TKubunDB"), QStringLiteral("区分"),
        {mastertable::ColumnSpec::text(QStringLiteral("KCode"), QStringLiteral("区分")).mustHave(),
         mastertable::ColumnSpec::text(QStringLiteral("Namae"), QStringLiteral("名前"))},
        {0}};
    ui::TableEditor *kinds = window.addTable(categories, scratch.database());
    window.show();
    QApplication::processEvents();
    const int row = kinds->model().appendRow();
    ASSERT_TRUE(test::typeIntoCell(kinds->view(), row, 0, QStringLiteral("C")));
    ASSERT_TRUE(test::typeIntoCell(kinds->view(), row, 1, QStringLiteral("サイド")));
    ASSERT_TRUE(test::typeIntoCell(parts->view(), 0, 0, QStringLiteral("C")));
    messages.answer(Answer::Yes);
    messages.answer(Answer::Yes);
    window.close();
    EXPECT_FALSE(window.isVisible()) << messages.lastText().toStdString();
    EXPECT_EQ(scratch.dump(QStringLiteral("PaintDB")).first(), QStringLiteral("C|ボンネット|1"));
    EXPECT_EQ(scratch.dump(QStringLiteral("TKubunDB")).last(), QStringLiteral("C|サイド"));
}
