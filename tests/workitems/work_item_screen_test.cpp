// frmSakusei, the work item editor, driven through its controls.
#include "screen_fixtures.h"

using namespace est;
using namespace est::test::workitems_screens;

namespace {

TEST_F(EditorFixture, TitleRateAndHeaders)
{
    session.labourRate = 12000;
    openEditor();
    EXPECT_EQ(editor->windowTitle(), QStringLiteral("作業作成 - トヨタ/セダン"));
    EXPECT_EQ(edit("txtRato")->text(), QStringLiteral("12,000"));
    auto *grid = w<QTableWidget>("HFLg1");
    ASSERT_EQ(grid->columnCount(), 12);
    EXPECT_EQ(grid->horizontalHeaderItem(3)->text(), QStringLiteral("部品番号・その他"));
    auto *parts = w<QTableWidget>("HFlg4");
    EXPECT_EQ(parts->horizontalHeaderItem(0)->text(), QStringLiteral("No"));
    EXPECT_EQ(parts->horizontalHeaderItem(1)->text(), QStringLiteral("部品名"));
    EXPECT_FALSE(w<QPushButton>("cmdEasy")->isEnabled());
    EXPECT_FALSE(w<QPushButton>("cmdBankin")->isEnabled());
}

struct IndexCase
{
    const char *typed;
    std::int16_t rate;
    std::int16_t digits;
    std::int16_t mode;
    const char *labour;
    const char *shown; // the index once the field is left
};

class EditorLabour : public EditorFixture, public ::testing::WithParamInterface<IndexCase>
{
};

TEST_P(EditorLabour, TypedIndexGivesLabour)
{
    const IndexCase c = GetParam();
    session.labourRate = c.rate;
    session.roundDigits = c.digits;
    session.roundMode = c.mode;
    openEditor();
    QTest::keyClicks(edit("txtSisu"), c.typed);
    EXPECT_EQ(label("lblKKei"), QString::fromUtf8(c.labour));
    leave(edit("txtSisu"));
    EXPECT_EQ(edit("txtSisu")->text(), QString::fromUtf8(c.shown));
    EXPECT_EQ(label("lblKKei"), QString::fromUtf8(c.labour));
    EXPECT_TRUE(messages.shown.isEmpty());
}

INSTANTIATE_TEST_SUITE_P(ByHand, EditorLabour,
                         ::testing::Values(IndexCase{"1.5", 5000, 0, 1, "7500", "1.50"},
                                           IndexCase{".5", 5000, 0, 1, "2500", "0.50"},
                                           IndexCase{"0.5", 7, 0, 1, "4", "0.50"},    // 3.5 -> 4
                                           IndexCase{"0.5", 5, 0, 1, "2", "0.50"},    // 2.5 -> 2
                                           IndexCase{"1", 7534, 1, 1, "7530", "1.00"},
                                           IndexCase{"1", 7534, 1, 2, "7540", "1.00"},
                                           IndexCase{"1", 7550, 2, 3, "7500", "1.00"},
                                           IndexCase{"1a.b5", 5000, 0, 1, "7500", "1.50"}));

TEST_F(EditorFixture, LabourFollowsTheIndexAsReformattedWhenLeft)
{
    session.labourRate = 1000;
    openEditor();
    QTest::keyClicks(edit("txtSisu"), "1.257");
    EXPECT_EQ(label("lblKKei"), QStringLiteral("1257"));
    leave(edit("txtSisu"));
    // The row shows 1.26 points; its labour is 1.26 × 1,000.
    EXPECT_EQ(edit("txtSisu")->text(), QStringLiteral("1.26"));
    EXPECT_EQ(label("lblKKei"), QStringLiteral("1260"));
    click("cmdAdd");
    EXPECT_EQ(cell(0, 5), QStringLiteral("1.26"));
    EXPECT_EQ(cell(0, 6), QStringLiteral("1260"));
    EXPECT_EQ(label("lblKSum"), QStringLiteral("1,260"));
}

TEST_F(EditorFixture, MissingRateIsReportedWhenTheIndexIsLeft)
{
    session.labourRate = 0;
    openEditor();
    EXPECT_EQ(edit("txtRato")->text(), QString());
    QTest::keyClicks(edit("txtSisu"), "1.5");
    EXPECT_EQ(label("lblKKei"), QString()); // nothing is computed without a rate
    leave(edit("txtSisu"));
    ASSERT_EQ(messages.shown.size(), 1);
    EXPECT_EQ(messages.lastText(), QStringLiteral("レーバーレートに金額が入力されておりません。"));
    EXPECT_EQ(messages.shown.last().title, QStringLiteral("注意"));
    EXPECT_EQ(messages.shown.last().icon, MessageIcon::Critical);
    EXPECT_EQ(edit("txtSisu")->text(), QString());
}

TEST_F(EditorFixture, LeavingAnEmptyIndexWithoutARateSendsTheUserToTheRate)
{
    session.labourRate = 0;
    openEditor();
    editor->show();
    QTest::keyClicks(edit("txtKoutin"), "3000");
    edit("txtSisu")->setFocus();
    leave(edit("txtSisu"));
    ASSERT_EQ(messages.shown.size(), 1);
    EXPECT_EQ(messages.lastText(), QStringLiteral("レーバーレートに金額が入力されておりません。"));
    EXPECT_EQ(messages.shown.last().icon, MessageIcon::Critical);
    // The labour typed directly is kept.
    EXPECT_EQ(edit("txtKoutin")->text(), QStringLiteral("3000"));
    EXPECT_EQ(label("lblKKei"), QStringLiteral("3000"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return edit("txtRato")->hasFocus(); }, 1000));
    // An index typed without a rate computes nothing and goes when left; the typed labour stays.
    QTest::keyClicks(edit("txtSisu"), "1");
    EXPECT_EQ(edit("txtKoutin")->text(), QStringLiteral("3000"));
    leave(edit("txtSisu"));
    EXPECT_EQ(messages.shown.size(), 2);
    EXPECT_EQ(edit("txtSisu")->text(), QString());
    EXPECT_EQ(label("lblKKei"), QStringLiteral("3000"));

    // Closing the editor with the focus in the index field is not leaving it.
    edit("txtSisu")->setFocus();
    QTest::qWait(20);
    const qsizetype shown = messages.shown.size();
    click("cmdOK");
    // Only the typed labour not yet added is asked about (unanswered: back to the editor).
    ASSERT_EQ(messages.shown.size(), shown + 1);
    EXPECT_EQ(messages.lastText(), QStringLiteral("入力中の作業項目があります。\n追加しますか？"));
    EXPECT_EQ(session.rows.size(), 0);
}

// The rate box only decides whether labour is computed; the amount is index × the
// estimate's rate, and the estimate keeps one rate for labour and paint.
TEST_F(EditorFixture, LabourUsesTheEstimatesRateNotTheRateBox)
{
    session.labourRate = 5000;
    session.paintLabourRate = 5000;
    openEditor();
    auto *rate = edit("txtRato");
    rate->selectAll();
    QTest::keyClicks(rate, "6000");
    EXPECT_EQ(rate->text(), QStringLiteral("6000"));
    QTest::keyClicks(edit("txtSisu"), "1.5");
    EXPECT_EQ(label("lblKKei"), QStringLiteral("7500"));
    click("cmdAdd");
    EXPECT_EQ(cell(0, 6), QStringLiteral("7500"));
    click("cmdOK");
    EXPECT_EQ(session.labourRate, 5000);
    EXPECT_EQ(session.paintLabourRate, 5000);
    EXPECT_EQ(session.totals.labour, 7500);
    EXPECT_TRUE(messages.shown.isEmpty()) << messages.lastText().toStdString();
}

TEST_F(EditorFixture, AnEmptyRateBoxComputesNothing)
{
    session.labourRate = 5000;
    openEditor();
    edit("txtRato")->clear();
    QTest::keyClicks(edit("txtSisu"), "1.5");
    EXPECT_EQ(label("lblKKei"), QString());
    QTest::keyClicks(edit("txtRato"), "1");
    edit("txtSisu")->clear();
    QTest::keyClicks(edit("txtSisu"), "2");
    EXPECT_EQ(label("lblKKei"), QStringLiteral("10000")); // 2 × 5,000, not 2 × 1
}

TEST_F(EditorFixture, DirectLabourAndIndexClearEachOther)
{
    session.labourRate = 5000;
    openEditor();
    QTest::keyClicks(edit("txtSisu"), "1.5");
    QTest::keyClicks(edit("txtKoutin"), "3000");
    EXPECT_EQ(edit("txtSisu")->text(), QString());
    EXPECT_EQ(label("lblKKei"), QStringLiteral("3000"));
    QTest::keyClicks(edit("txtSisu"), "1");
    EXPECT_EQ(edit("txtKoutin")->text(), QString());
    EXPECT_EQ(label("lblKKei"), QStringLiteral("5000"));
}

TEST_F(EditorFixture, PartTotalsAreNotShopRoundedAndLettersAreFiltered)
{
    session.labourRate = 5000;
    session.roundDigits = 2;
    session.roundMode = 2;
    openEditor();
    QTest::keyClicks(edit("txtBTan"), "12x345");
    QTest::keyClicks(edit("txtBKo"), "2");
    EXPECT_EQ(edit("txtBTan")->text(), QStringLiteral("12345"));
    EXPECT_EQ(label("lblBKei"), QStringLiteral("24690"));
    EXPECT_EQ(messages.beeps, 1);
    edit("txtBKo")->setText(QStringLiteral("abc")); // pasted text is filtered too
    EXPECT_EQ(edit("txtBKo")->text(), QString());
    EXPECT_EQ(label("lblBKei"), QString());
}

TEST_F(EditorFixture, CataloguePartBecomesARowWithItsLabour)
{
    session.labourRate = 5000;
    openEditor();
    auto *classes = w<QListWidget>("dlstB");
    ASSERT_GE(classes->count(), 4);
    EXPECT_EQ(classes->item(0)->text(), QStringLiteral("フロント廻り"));
    classes->setCurrentRow(0);
    auto *sections = w<QListWidget>("dlstK");
    ASSERT_GE(sections->count(), 2);
    sections->setCurrentRow(0);
    auto *parts = w<QTableWidget>("HFlg4");
    ASSERT_GE(parts->rowCount(), 5);
    parts->setCurrentCell(1, 1);
    EXPECT_EQ(edit("txtBuhin")->text(), parts->item(1, 1)->text());
    EXPECT_EQ(label("lblNum"), QStringLiteral("2"));

    w<QComboBox>("cboBui")->setCurrentText(QStringLiteral("フロント"));
    edit("txtBuhinT")->setText(QStringLiteral("52021-12A40"));
    w<QComboBox>("cboSagyo")->setCurrentText(QStringLiteral("取替"));
    QTest::keyClicks(edit("txtSisu"), "1.5");
    QTest::keyClicks(edit("txtBTan"), "12345");
    QTest::keyClicks(edit("txtBKo"), "2");
    EXPECT_EQ(label("lblGNo"), QStringLiteral("1"));
    click("cmdAdd");
    EXPECT_EQ(cell(0, 0), "1");
    EXPECT_EQ(cell(0, 1), QStringLiteral("フロント"));
    EXPECT_EQ(cell(0, 2), parts->item(1, 1)->text());
    EXPECT_EQ(cell(0, 3), QStringLiteral("52021-12A40"));
    EXPECT_EQ(cell(0, 4), QStringLiteral("取替"));
    EXPECT_EQ(cell(0, 5), QStringLiteral("1.50"));
    EXPECT_EQ(cell(0, 6), "7500");
    EXPECT_EQ(cell(0, 7), "12345");
    EXPECT_EQ(cell(0, 8), "2");
    EXPECT_EQ(cell(0, 9), "24690");
    EXPECT_EQ(cell(0, 11), "2");
    EXPECT_EQ(label("lblKSum"), QStringLiteral("7,500"));
    EXPECT_EQ(label("lblBSum"), QStringLiteral("24,690"));
    EXPECT_EQ(label("lblSSum"), QStringLiteral("32,190"));
    EXPECT_EQ(label("lblGNo"), QStringLiteral("2"));
    EXPECT_EQ(edit("txtBuhin")->text(), QString()); // inputs cleared

    // Nothing reaches the estimate before OK.
    EXPECT_TRUE(session.rows.isEmpty());
    click("cmdOK");
    EXPECT_EQ(editor->result(), QDialog::Accepted);
    ASSERT_EQ(session.rows.size(), 1);
    EXPECT_EQ(session.rows.first()[ColLabour], "7500");
    EXPECT_EQ(session.rows.first()[ColPartsAmount], "24690");
    EXPECT_EQ(session.totals.labour, 7500);
    EXPECT_EQ(session.totals.parts, 24690);
    EXPECT_EQ(session.totals.workTotalA, 32190);
}

TEST_F(EditorFixture, CancelChangesNothingAndTheCloseBoxIsRefused)
{
    session.labourRate = 5000;
    EstimateRow existing;
    existing[ColNo] = "1";
    existing[ColLabour] = "1000";
    session.rows = {existing};
    session.totals.labour = 1000;
    session.totals.workTotalA = 1000;
    openEditor();
    editor->show();
    QTest::keyClicks(edit("txtSisu"), "1");
    click("cmdAdd");
    EXPECT_EQ(label("lblKSum"), QStringLiteral("6,000"));
    editor->close();
    EXPECT_TRUE(editor->isVisible());
    EXPECT_EQ(messages.lastText(), QStringLiteral("中止する場合、キャンセルボタンをクリックしてください"));
    click("cmdCancel");
    EXPECT_FALSE(editor->isVisible());
    EXPECT_EQ(editor->result(), QDialog::Rejected);
    EXPECT_EQ(session.rows.size(), 1);
    EXPECT_EQ(session.totals.labour, 1000);
    EXPECT_EQ(session.totals.workTotalA, 1000);
}

TEST_F(EditorFixture, AFullEstimateRefusesTheFirstAdd)
{
    session.labourRate = 5000;
    for (int i = 0; i < kMaxEstimateRows; ++i) {
        EstimateRow r;
        r[ColNo] = QString::number(i + 1);
        r[ColLabour] = "100";
        session.rows.append(r);
    }
    openEditor();
    EXPECT_EQ(label("lblKSum"), QStringLiteral("39,400"));
    QTest::keyClicks(edit("txtSisu"), "1");
    ASSERT_TRUE(w<QPushButton>("cmdAdd")->isEnabled());
    click("cmdAdd");
    ASSERT_EQ(messages.shown.size(), 1);
    EXPECT_EQ(messages.lastText(), QStringLiteral("行の上限です。\nこれ以上書き込めません。"));
    EXPECT_EQ(messages.shown.last().title, QStringLiteral("警告"));
    EXPECT_EQ(messages.shown.last().icon, MessageIcon::Critical);
    EXPECT_FALSE(w<QPushButton>("cmdAdd")->isEnabled());
    EXPECT_EQ(edit("txtSisu")->text(), QString());
    EXPECT_EQ(editor->rows().count(), kMaxEstimateRows);
}

TEST_F(EditorFixture, DeleteAsksAndRenumbers)
{
    session.labourRate = 1000;
    openEditor();
    click("cmdDel");
    EXPECT_EQ(messages.lastText(), QStringLiteral("削除するデータはありません．"));
    EXPECT_EQ(messages.shown.last().title, QStringLiteral("警告"));
    for (const char *index : {"1", "2", "3"}) {
        QTest::keyClicks(edit("txtSisu"), index);
        click("cmdAdd");
    }
    EXPECT_EQ(label("lblKSum"), QStringLiteral("6,000"));
    w<QTableWidget>("HFLg1")->setCurrentCell(0, 1);
    messages.answer(Answer::No);
    click("cmdDel");
    EXPECT_EQ(messages.lastText(), QStringLiteral("削除します。\nこのデータは失われます。\nよろしいですか？"));
    EXPECT_EQ(editor->rows().count(), 3);
    w<QTableWidget>("HFLg1")->setCurrentCell(0, 1);
    messages.answer(Answer::Yes);
    click("cmdDel");
    EXPECT_EQ(editor->rows().count(), 2);
    EXPECT_EQ(cell(0, 0), "1");
    EXPECT_EQ(cell(0, 6), "2000");
    EXPECT_EQ(cell(1, 0), "2");
    EXPECT_EQ(label("lblKSum"), QStringLiteral("5,000"));
}

TEST_F(EditorFixture, InsertEditAndSort)
{
    session.labourRate = 1000;
    openEditor();
    auto add = [this](const QString &section, const char *index) {
        w<QComboBox>("cboBui")->setCurrentText(section);
        QTest::keyClicks(edit("txtSisu"), index);
        click("cmdAdd");
    };
    add(QStringLiteral("リヤ"), "1");
    add(QStringLiteral("フロント"), "2");
    auto *grid = w<QTableWidget>("HFLg1");
    grid->setCurrentCell(1, 1);
    click("cmdInsRow");
    EXPECT_FALSE(grid->isEnabled());
    EXPECT_EQ(cell(1, 0), "2");
    EXPECT_EQ(cell(2, 0), "3");
    EXPECT_EQ(label("lblGNo"), QStringLiteral("2"));
    add(QStringLiteral("右側"), "4");
    EXPECT_TRUE(grid->isEnabled());
    EXPECT_EQ(cell(1, 1), QStringLiteral("右側"));
    EXPECT_EQ(cell(1, 6), "4000");
    EXPECT_EQ(label("lblKSum"), QStringLiteral("7,000"));

    grid->setCurrentCell(0, 1);
    click("cmdEdit");
    EXPECT_EQ(edit("txtSisu")->text(), QStringLiteral("1.00"));
    edit("txtSisu")->clear();
    QTest::keyClicks(edit("txtSisu"), "3");
    click("cmdEOK");
    EXPECT_EQ(cell(0, 6), "3000");
    EXPECT_EQ(cell(0, 0), "1");
    EXPECT_EQ(label("lblKSum"), QStringLiteral("9,000"));

    grid->setCurrentCell(2, 1);
    click("cmdEdit");
    QTest::keyClicks(edit("txtSisu"), "9");
    click("cmdECancel");
    EXPECT_EQ(cell(2, 6), "2000");

    click("cmdSort");
    EXPECT_EQ(cell(0, 1), QStringLiteral("フロント"));
    EXPECT_EQ(cell(0, 0), "1");
    EXPECT_EQ(cell(2, 0), "3");
    EXPECT_EQ(label("lblKSum"), QStringLiteral("9,000"));
}

// 削除 with rows but none chosen says which row to choose, and deletes nothing.
TEST_F(EditorFixture, DeleteWithoutAChosenRowAsksForOne)
{
    session.labourRate = 1000;
    openEditor();
    for (const char *index : {"1", "2"}) {
        QTest::keyClicks(edit("txtSisu"), index);
        click("cmdAdd");
    }
    auto *grid = w<QTableWidget>("HFLg1");
    grid->clearSelection();
    // Qt makes a row current when the grid takes the focus; that is not the user's choice.
    grid->selectionModel()->setCurrentIndex(grid->model()->index(0, 1), QItemSelectionModel::NoUpdate);
    messages.answer(Answer::Yes);
    click("cmdDel");
    ASSERT_EQ(messages.shown.size(), 1);
    EXPECT_EQ(messages.lastText(), QStringLiteral("削除する行を一覧で選んでから、削除をクリックしてください。"));
    EXPECT_EQ(messages.shown.last().kind, test::ShownMessage::Kind::Inform);
    EXPECT_EQ(editor->rows().count(), 2);
}

// OK while a row is being edited or an item is typed but not added asks what to do with it.
struct PendingCase
{
    bool editRow; // else: an item typed but not added
    Answer answer;
};

class EditorPendingOk : public EditorFixture, public ::testing::WithParamInterface<PendingCase>
{
};

TEST_P(EditorPendingOk, IsNeverDroppedSilently)
{
    const PendingCase c = GetParam();
    session.labourRate = 5000;
    openEditor();
    editor->show();
    QTest::keyClicks(edit("txtSisu"), "1.5");
    click("cmdAdd");
    if (c.editRow) {
        w<QTableWidget>("HFLg1")->setCurrentCell(0, 1);
        click("cmdEdit");
        edit("txtSisu")->clear();
        QTest::keyClicks(edit("txtSisu"), "3");
    } else {
        QTest::keyClicks(edit("txtSisu"), "2");
    }
    messages.answer(c.answer);
    click("cmdOK");
    ASSERT_EQ(messages.shown.size(), 1);
    EXPECT_EQ(messages.shown.last().kind, test::ShownMessage::Kind::YesNoCancel);
    EXPECT_EQ(messages.lastText(), c.editRow ? QStringLiteral("修正中の行があります。\n修正を確定しますか？")
                                             : QStringLiteral("入力中の作業項目があります。\n追加しますか？"));
    switch (c.answer) {
    case Answer::Yes:
        EXPECT_EQ(editor->result(), QDialog::Accepted);
        ASSERT_EQ(session.rows.size(), c.editRow ? 1 : 2);
        EXPECT_EQ(session.rows.last()[ColLabour], c.editRow ? QStringLiteral("15000") : QStringLiteral("10000"));
        EXPECT_EQ(session.totals.labour, c.editRow ? 15000 : 17500);
        break;
    case Answer::No:
        EXPECT_EQ(editor->result(), QDialog::Accepted);
        ASSERT_EQ(session.rows.size(), 1);
        EXPECT_EQ(session.rows.first()[ColIndex], QStringLiteral("1.50"));
        EXPECT_EQ(session.totals.labour, 7500);
        break;
    default:
        EXPECT_TRUE(editor->isVisible());
        EXPECT_TRUE(session.rows.isEmpty());
        EXPECT_EQ(edit("txtSisu")->text(), QString::fromLatin1(c.editRow ? "3" : "2"));
        break;
    }
}

INSTANTIATE_TEST_SUITE_P(Answers, EditorPendingOk,
                         ::testing::Values(PendingCase{true, Answer::Yes}, PendingCase{true, Answer::No},
                                           PendingCase{true, Answer::Cancel}, PendingCase{false, Answer::Yes},
                                           PendingCase{false, Answer::No}, PendingCase{false, Answer::Cancel}));

TEST_F(EditorFixture, WorkListSpellsSheetMetalWorkOneWay)
{
    openEditor();
    auto *work = w<QComboBox>("cboSagyo");
    EXPECT_GE(work->findText(QStringLiteral("鈑金")), 0);
    EXPECT_EQ(work->findText(QStringLiteral("板金")), -1);
    EXPECT_EQ(w<QPushButton>("cmdBankin")->text(), QStringLiteral("鈑金指数"));
}

TEST_F(EditorFixture, PartsListTakingTheFocusPicksNoPart)
{
    session.labourRate = 5000;
    openEditor();
    auto *classes = w<QListWidget>("dlstB");
    focusIn(classes);
    EXPECT_EQ(w<QListWidget>("dlstK")->count(), 0);
    classes->setCurrentRow(0);
    w<QListWidget>("dlstK")->setCurrentRow(0);
    auto *parts = w<QTableWidget>("HFlg4");
    ASSERT_GT(parts->rowCount(), 0);
    focusIn(parts);
    EXPECT_EQ(edit("txtBuhin")->text(), QString());
    EXPECT_EQ(label("lblNum"), QString());
}

} // namespace
