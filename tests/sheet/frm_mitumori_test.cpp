#include "scripted_messages.h"
#include "sheet/estimate_store.h"
#include "sheet/frm_mitumori.h"

#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTableWidget>
#include <QTest>
#include <gtest/gtest.h>

using namespace est;
using est::sheet::FrmMitumori;

namespace {

struct RecordingStore : sheet::EstimateStore
{
    int saves = 0, newNames = 0, overwrites = 0;
    bool result = true;
    bool save() override { ++saves; return result; }
    bool saveWithNewName() override { ++newNames; return result; }
    bool overwrite() override { ++overwrites; return result; }
};

struct SheetFixture
{
    Session session;
    test::ScriptedMessages messages;
    FrmMitumori sheet{session, messages};

    SheetFixture()
    {
        session.company[11] = "10";
        sheet.showCompany();
    }
    template <typename T> T *find(const char *name) const
    {
        T *w = sheet.findChild<T *>(QLatin1String(name));
        EXPECT_NE(w, nullptr) << name;
        return w;
    }
    QString label(const char *name) const { return find<QLabel>(name)->text(); }
    // A + B of 1,000,000 with a discount rate of 10 typed; the focus in the amount field.
    QLineEdit *tenPercentOfAMillion()
    {
        session.totals.workTotalA = 1000000;
        sheet.refreshTotals();
        type("txtNebiki1", "10");
        QLineEdit *amount = find<QLineEdit>("txtNebiki2");
        amount->setFocus();
        return amount;
    }
    void type(const char *name, const QString &text)
    {
        QLineEdit *edit = find<QLineEdit>(name);
        edit->setFocus();
        // QTest types ASCII only; Japanese text arrives as an input method would commit it.
        bool ascii = true;
        for (QChar c : text)
            ascii = ascii && c.unicode() < 128;
        if (ascii)
            QTest::keyClicks(edit, text);
        else
            edit->insert(text);
    }
};

} // namespace

TEST(FrmMitumori, GridIsPreparedAsSpecified)
{
    SheetFixture x;
    auto *grid = x.find<QTableWidget>("HFlgSS");
    ASSERT_EQ(grid->columnCount(), 11);
    EXPECT_EQ(grid->rowCount() + 1, 14); // plus the header row
    EXPECT_EQ(grid->horizontalHeaderItem(5)->text(), QStringLiteral("指　数"));
    EXPECT_EQ(grid->horizontalHeaderItem(2)->text(), QStringLiteral("作 業 部 位"));
    EXPECT_EQ(grid->columnWidth(0), 33);   // 500 twips
    EXPECT_EQ(grid->columnWidth(2), 200);  // 3000 twips
    EXPECT_EQ(grid->columnWidth(8), 67);   // set to 750, then 1000 twips
    EXPECT_EQ(grid->columnWidth(9), grid->horizontalHeader()->defaultSectionSize());
    EXPECT_TRUE(grid->isColumnHidden(10));
    EXPECT_EQ(grid->verticalHeader()->defaultSectionSize(), 20); // 300 twips
    for (int r = 0; r < grid->rowCount(); ++r)
        EXPECT_TRUE(grid->item(r, 3)->text().isEmpty());
}

TEST(FrmMitumori, DocumentKindSetsTheThreeTexts)
{
    SheetFixture x;
    auto *kind = x.find<QComboBox>("cboHdai");
    ASSERT_EQ(kind->count(), 7);
    kind->setCurrentIndex(6); // 納品/請求書 takes the invoice texts
    EXPECT_EQ(x.label("lblBun1"), QStringLiteral("下記の通り御請求いたします。"));
    EXPECT_EQ(x.label("lblKBun"), QStringLiteral("御請求金額"));
    kind->setCurrentIndex(5);
    EXPECT_EQ(x.label("lblBun1"), QStringLiteral("下記の通り納品いたします。"));
    EXPECT_EQ(x.label("lblKBun"), QStringLiteral("合計金額"));
    EXPECT_EQ(x.session.header.amountCaption, QStringLiteral("合計金額"));
    kind->setCurrentIndex(1);
    EXPECT_EQ(x.label("lblBun2"), QStringLiteral("ご査収のほどよろしくお願いいたします。"));
    EXPECT_EQ(x.label("lblKBun"), QStringLiteral("御見積金額"));
}

TEST(FrmMitumori, DiscountRateTypedThroughTheControls)
{
    SheetFixture x;
    x.session.totals.workTotalA = 1000000;
    x.sheet.refreshTotals();
    EXPECT_EQ(x.label("lblGokei"), "1,000,000");
    x.type("txtNebiki1", "10");
    EXPECT_EQ(x.find<QLineEdit>("txtNebiki2")->text(), "100,000");
    EXPECT_EQ(x.label("lblNGo"), "900,000");
    EXPECT_EQ(x.label("lblSZei"), "90,000");
    EXPECT_EQ(x.label("lblSeikyu"), "990,000");
    EXPECT_EQ(x.label("lblGKei"), "990,000");

    x.type("txtAzukari", "90000");
    EXPECT_EQ(x.label("lblSeikyu"), "900,000");

    // A key typed into the amount takes the rate away.
    auto *amount = x.find<QLineEdit>("txtNebiki2");
    amount->selectAll();
    x.type("txtNebiki2", "5000");
    EXPECT_EQ(x.find<QLineEdit>("txtNebiki1")->text(), "");
    EXPECT_EQ(x.label("lblNGo"), "995,000");
    EXPECT_EQ(x.label("lblSZei"), "99,500");
}

// Keys that only move the focus are not typed into the amount: the rate stays and goes on
// deciding the discount when A + B changes.
class FocusKeyInTheAmount : public ::testing::TestWithParam<Qt::Key>
{
};

TEST_P(FocusKeyInTheAmount, KeepsTheRate)
{
    SheetFixture x;
    QLineEdit *amount = x.tenPercentOfAMillion();
    ASSERT_EQ(amount->text(), "100,000");
    QTest::keyClick(amount, GetParam());
    QTest::keyClick(amount, GetParam());
    EXPECT_EQ(x.find<QLineEdit>("txtNebiki1")->text(), "10");
    EXPECT_EQ(x.session.figures.discountRate, "10");

    x.session.totals.workTotalA = 2000000;
    x.sheet.refreshTotals();
    EXPECT_EQ(amount->text(), "200,000");
    EXPECT_EQ(x.label("lblNGo"), "1,800,000");
}

INSTANTIATE_TEST_SUITE_P(Keys, FocusKeyInTheAmount,
                         ::testing::Values(Qt::Key_Tab, Qt::Key_Backtab, Qt::Key_Return, Qt::Key_Enter,
                                           Qt::Key_Left, Qt::Key_Home));

TEST(FrmMitumori, DeletingInTheAmountTakesTheRateAway)
{
    SheetFixture x;
    QLineEdit *amount = x.tenPercentOfAMillion();
    amount->end(false);
    QTest::keyClick(amount, Qt::Key_Backspace);
    EXPECT_EQ(amount->text(), "100,00");
    EXPECT_EQ(x.find<QLineEdit>("txtNebiki1")->text(), "");
    EXPECT_EQ(x.label("lblNGo"), "990,000");
}

TEST(FrmMitumori, LettersAreDroppedWithABeep)
{
    SheetFixture x;
    x.session.totals.workTotalA = 1000;
    x.sheet.refreshTotals();
    x.type("txtNebiki1", "1a0");
    EXPECT_EQ(x.find<QLineEdit>("txtNebiki1")->text(), "10");
    EXPECT_EQ(x.messages.beeps, 1);
    x.type("txtNebiki2", "/");
    EXPECT_EQ(x.messages.beeps, 2);
    x.find<QLineEdit>("txtNebiki1")->setText("");
    x.type("txtNebiki1", "1/2");
    EXPECT_EQ(x.find<QLineEdit>("txtNebiki1")->text(), "1/2"); // "/" is a rate key
}

TEST(FrmMitumori, OversizeAmountIsReported)
{
    SheetFixture x;
    x.session.totals.workTotalA = 1000;
    x.sheet.refreshTotals();
    x.type("txtNebiki2", "99999999999");
    ASSERT_FALSE(x.messages.shown.isEmpty());
    EXPECT_TRUE(x.messages.lastText().contains(QStringLiteral("金額が大きすぎる")));
}

TEST(FrmMitumori, RowsFromTheSessionFillTheGrid)
{
    SheetFixture x;
    for (int i = 0; i < 20; ++i) {
        EstimateRow row;
        row[ColNo] = QString::number(i + 1);
        row[ColPart] = QStringLiteral("フロントバンパー");
        x.session.rows.append(row);
    }
    x.sheet.refreshRows();
    auto *grid = x.find<QTableWidget>("HFlgSS");
    EXPECT_EQ(grid->rowCount(), 20);
    EXPECT_EQ(grid->item(19, 0)->text(), "20");
    EXPECT_EQ(grid->item(0, 2)->text(), QStringLiteral("フロントバンパー"));
    x.session.rows.clear();
    x.sheet.refreshRows();
    EXPECT_EQ(grid->rowCount(), 13);
    EXPECT_TRUE(grid->item(0, 0)->text().isEmpty());
}

TEST(FrmMitumori, HeaderFieldsWriteTheSession)
{
    SheetFixture x;
    x.type("txtName", QStringLiteral("山田 太郎"));
    x.type("txtKaisya", QStringLiteral("O'Neil 商会"));
    EXPECT_EQ(x.session.header.customerName, QStringLiteral("山田 太郎"));
    EXPECT_EQ(x.session.header.customerCompany, QStringLiteral("O'Neil 商会"));
}

struct EndCase
{
    SheetState state;
    bool editExisting;
    Answer answer;
    bool mayEnd;
    const char *question; // "" when none is asked
    int newNames, overwrites;
};
class EndTest : public ::testing::TestWithParam<EndCase> {};

TEST_P(EndTest, EndAsksAsTheStateRequires)
{
    const EndCase c = GetParam();
    SheetFixture x;
    RecordingStore store;
    x.sheet.setStore(&store);
    x.session.sheetState = c.state;
    x.session.editExisting = c.editExisting;
    x.messages.answer(c.answer);
    QSignalSpy quit(&x.sheet, &FrmMitumori::quitRequested);
    x.find<QPushButton>("cmdEnd")->click();
    EXPECT_EQ(quit.count(), c.mayEnd ? 1 : 0);
    if (*c.question) {
        ASSERT_EQ(x.messages.shown.size(), 1);
        EXPECT_EQ(x.messages.lastText(), QString::fromUtf8(c.question));
        EXPECT_EQ(x.messages.shown.last().title, QStringLiteral("ファイルの保存"));
    } else {
        EXPECT_TRUE(x.messages.shown.isEmpty());
    }
    EXPECT_EQ(store.newNames, c.newNames);
    EXPECT_EQ(store.overwrites, c.overwrites);
}

INSTANTIATE_TEST_SUITE_P(Cases, EndTest, ::testing::Values(
    EndCase{SheetState::NotStarted, false, Answer::Cancel, true, "", 0, 0},
    EndCase{SheetState::NewStarted, false, Answer::No, true, "ファイルを保存しますか？", 0, 0},
    EndCase{SheetState::NewStarted, false, Answer::Cancel, false, "ファイルを保存しますか？", 0, 0},
    EndCase{SheetState::NameChosen, false, Answer::Yes, true, "ファイルを保存しますか？", 1, 0},
    EndCase{SheetState::NotStarted, true, Answer::Yes, true, "ファイルを上書き保存しますか？", 0, 1},
    EndCase{SheetState::NameChosen, true, Answer::No, true, "ファイルを上書き保存しますか？", 0, 0},
    EndCase{SheetState::NameChosen, true, Answer::Cancel, false, "ファイルを上書き保存しますか？", 0, 0}));

TEST(FrmMitumori, SaveWithNothingStartedIsRefused)
{
    SheetFixture x;
    RecordingStore store;
    x.sheet.setStore(&store);
    x.find<QPushButton>("cmdSave")->click();
    ASSERT_EQ(x.messages.shown.size(), 1);
    EXPECT_EQ(x.messages.lastText(), QStringLiteral("保存するデータがまだ有りません。"));
    EXPECT_EQ(x.messages.shown.last().title, QStringLiteral("保存できません。"));
    EXPECT_EQ(x.messages.shown.last().icon, MessageIcon::Critical);
    EXPECT_EQ(store.saves, 0);
    x.session.sheetState = SheetState::NewStarted;
    x.find<QPushButton>("cmdSave")->click();
    EXPECT_EQ(store.saves, 1);
}
