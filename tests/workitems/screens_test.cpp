#include "db/database.h"
#include "scripted_messages.h"
#include "temp_app_folder.h"
#include "workitems/catalogue_choice.h"
#include "workitems/dlg_car_type.h"
#include "workitems/dlg_rato.h"
#include "workitems/frm_buhin.h"
#include "workitems/frm_new_meka.h"
#include "workitems/frm_sakusei.h"
#include "workitems/maker_name_list.h"
#include "workitems/text_box.h"

#include <QAbstractButton>
#include <QApplication>
#include <QButtonGroup>
#include <QComboBox>
#include <QFocusEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSignalSpy>
#include <QTableWidget>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

using namespace est;
using namespace est::workitems;

namespace {

template <typename T>
T *find(const QObject *parent, const char *name)
{
    T *child = parent->findChild<T *>(QLatin1String(name));
    EXPECT_NE(child, nullptr) << name;
    return child;
}

void leave(QLineEdit *edit)
{
    QFocusEvent out(QEvent::FocusOut, Qt::TabFocusReason);
    QApplication::sendEvent(edit, &out);
}

// ---- dlgRato ---------------------------------------------------------------------------

struct RatoFixture : ::testing::Test
{
    Session session;
    test::ScriptedMessages messages;
    int catalogueChosen = 0;
    std::unique_ptr<DlgRato> dialog;

    void openDialog()
    {
        dialog = std::make_unique<DlgRato>(session, messages, [this] { ++catalogueChosen; });
    }
    QLineEdit *rate() { return find<QLineEdit>(dialog.get(), "txtRato"); }
    QAbstractButton *option(const char *name) { return find<QAbstractButton>(dialog.get(), name); }
    void ok() { find<QPushButton>(dialog.get(), "OKButton")->click(); }
};

TEST_F(RatoFixture, SetsRateAndPaintRateAndRounding)
{
    session.rateDialogRequested = true;
    openDialog();
    QSignalSpy accepted(dialog.get(), &QDialog::accepted);
    QTest::keyClicks(rate(), "5000");
    option("opt1_1")->click();
    option("opt2_1")->click();
    ok();
    EXPECT_EQ(accepted.count(), 1);
    EXPECT_EQ(session.labourRate, 5000);
    EXPECT_EQ(session.paintLabourRate, 5000);
    EXPECT_EQ(session.roundDigits, 1);
    EXPECT_EQ(session.roundMode, 2);
    EXPECT_FALSE(session.rateDialogRequested);
    EXPECT_TRUE(messages.shown.isEmpty());
    EXPECT_EQ(catalogueChosen, 1); // no catalogue chosen yet: dlgCarType follows
}

TEST_F(RatoFixture, ModeButtonsFollowTheDigitsChoice)
{
    openDialog();
    option("opt1_0")->click();
    for (const char *name : {"opt2_0", "opt2_1", "opt2_2"})
        EXPECT_FALSE(option(name)->isEnabled()) << name;
    option("opt1_2")->click();
    for (const char *name : {"opt2_0", "opt2_1", "opt2_2"})
        EXPECT_TRUE(option(name)->isEnabled()) << name;
    EXPECT_NE(dialog->findChild<QButtonGroup *>(QStringLiteral("opt1")), nullptr);
    EXPECT_NE(dialog->findChild<QButtonGroup *>(QStringLiteral("opt2")), nullptr);
}

TEST_F(RatoFixture, ARateBeyond16BitsKeepsTheOldRateWithAMessage)
{
    session.labourRate = 4500;
    session.paintLabourRate = 4500;
    session.makerDb = "Toyota";
    openDialog();
    rate()->clear();
    QTest::keyClicks(rate(), "40000");
    ok();
    EXPECT_EQ(session.labourRate, 4500);
    EXPECT_EQ(session.paintLabourRate, 4500);
    ASSERT_EQ(messages.shown.size(), 1);
    EXPECT_TRUE(messages.lastText().contains(QStringLiteral("32,767")));
    EXPECT_TRUE(messages.lastText().contains(QStringLiteral("4,500")));
    EXPECT_EQ(catalogueChosen, 0); // a maker is chosen already
}

TEST_F(RatoFixture, LettersCannotBeTypedIntoTheRate)
{
    openDialog();
    QTest::keyClicks(rate(), "5a0b00");
    EXPECT_EQ(rate()->text(), QStringLiteral("5000"));
    EXPECT_EQ(messages.beeps, 2);
}

TEST_F(RatoFixture, EmptyRateAsksYesStaysNoClosesWithTheOldRate)
{
    session.labourRate = 4200;
    session.roundDigits = 2;
    session.roundMode = 3;
    openDialog();
    rate()->clear();
    QSignalSpy accepted(dialog.get(), &QDialog::accepted);
    messages.answer(Answer::Yes);
    ok();
    EXPECT_EQ(accepted.count(), 0);
    ASSERT_EQ(messages.shown.size(), 1);
    EXPECT_EQ(messages.lastText(), QStringLiteral("レートが入力されておりません。入力しますか？"));
    EXPECT_EQ(messages.shown.last().title, QStringLiteral("レート"));
    EXPECT_EQ(messages.shown.last().icon, MessageIcon::Question);

    messages.answer(Answer::No);
    ok();
    EXPECT_EQ(accepted.count(), 1);
    EXPECT_EQ(session.labourRate, 4200);
    EXPECT_EQ(session.roundDigits, 2);
    EXPECT_EQ(session.roundMode, 3);
}

TEST_F(RatoFixture, OpensShowingTheCurrentSettings)
{
    session.labourRate = 6200;
    session.roundDigits = 2;
    session.roundMode = 3;
    openDialog();
    EXPECT_EQ(rate()->text(), QStringLiteral("6200"));
    EXPECT_TRUE(option("opt1_2")->isChecked());
    EXPECT_TRUE(option("opt2_2")->isChecked());
}

// ---- screens on a real application folder ---------------------------------------------

struct FolderFixture : ::testing::Test
{
    test::TempAppFolder folder;
    Session session;
    test::ScriptedMessages messages;
    CatalogueChoice choice{session, messages, folder.path()};

    FolderFixture()
    {
        session.maker = QStringLiteral("トヨタ");
        session.makerDb = QStringLiteral("Toyota");
        session.vehicleType = QStringLiteral("セダン");
        session.typeTable = QStringLiteral("T_Sedan");
    }
    ~FolderFixture() override
    {
        choice.connections().closeCatalogue();
        choice.connections().closeCarSet();
        db::closeDatabase(folder.file("temp/SettingDB.sqlite"));
    }
};

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

struct EditorFixture : FolderFixture
{
    std::unique_ptr<FrmSakusei> editor;

    void openEditor()
    {
        std::unique_ptr<CatalogueTable> table;
        if (choice.openCatalogueDb(nullptr))
            table = choice.currentTable();
        editor = std::make_unique<FrmSakusei>(session, messages, std::move(table));
    }
    template <typename T> T *w(const char *name) { return find<T>(editor.get(), name); }
    QLineEdit *edit(const char *name) { return w<QLineEdit>(name); }
    QString label(const char *name) { return w<QLabel>(name)->text(); }
    void click(const char *name) { w<QPushButton>(name)->click(); }
    QString cell(int row, int column) const
    {
        auto *grid = editor->findChild<QTableWidget *>(QStringLiteral("HFLg1"));
        auto *item = grid->item(row, column);
        return item ? item->text() : QStringLiteral("<none>");
    }
};

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

// A list taking the focus makes its first row current; only a row the user picks is a choice.
void focusIn(QAbstractItemView *view)
{
    QFocusEvent in(QEvent::FocusIn, Qt::TabFocusReason);
    QApplication::sendEvent(view, &in);
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

} // namespace

namespace {

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
