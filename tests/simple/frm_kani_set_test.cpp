// frmKaniSet: the unit prices and their classifications on the table editor. Refused cells say
// which cell and why and keep the old value; keys and references are checked on saving; what
// is saved is what the price screen then lists. From the settings hub, a damaged file or a
// missing table is reported and nothing opens.

#include "db/database.h"
#include "grid_typing.h"
#include "mastertable/table_edit_model.h"
#include "program_fixture.h"
#include "simple/unit_price_tables.h"
#include "simple_fixture.h"
#include "uikit/table_screen_window.h"

#include <QDir>
#include <QFile>
#include <QLabel>
#include <QPushButton>
#include <QTableView>

using namespace est;
using namespace est::simple;

namespace {

// Columns of the unit-price tab.
enum { Kind, ClassA, ClassB, Colour, Num, Part, Content, Material, Labour };

struct FrmKaniSetTest : ::testing::Test
{
    test::SimpleFixture x;
    test::ScriptedMessages messages;
    std::unique_ptr<ui::TableEditorWindow> window =
        ui::makeTableScreenWindow(unitPriceScreen(), x.store->database(), messages);
    ui::TableEditor *prices = window->editor(QStringLiteral("T_TUnitPrice"));

    void SetUp() override
    {
        ASSERT_TRUE(prices);
        window->show();
        QApplication::processEvents();
    }
    void type(ui::TableEditor *editor, int row, int column, const QString &text)
    {
        ASSERT_TRUE(test::typeIntoCell(editor->view(), row, column, text));
    }
    void click(ui::TableEditor *editor, const char *name)
    {
        editor->findChild<QPushButton *>(QLatin1String(name))->click();
    }
    // The first sample row's classification (軽自動車, ハッチバック, ソリッド) and panel (the
    // bumper) as the price screen reads them.
    QList<UnitPriceRow> firstRowsPrices()
    {
        return x.store->unitPrices({1, 1, 2, 1}, 1, PanelMatch::AsNumber).value_or(QList<UnitPriceRow>());
    }
};

} // namespace

TEST_F(FrmKaniSetTest, HasATabForTheUnitPricesAndEachClassification)
{
    EXPECT_EQ(window->objectName(), QStringLiteral("frmKaniSet"));
    ASSERT_EQ(window->editors().size(), 5);
    for (const char *table : {"M_TSKubun", "M_TSyaryoA", "M_TSyaryoB", "M_TColor"})
        EXPECT_TRUE(window->editor(QLatin1String(table))) << table;
    EXPECT_EQ(prices->model().text(0, Part), QStringLiteral("バンパー"));
    EXPECT_EQ(prices->model().text(0, ClassB), QStringLiteral("2"));
    EXPECT_EQ(prices->model().text(0, Labour), QStringLiteral("8600"));
    auto *hint = window->findChild<QLabel *>(QStringLiteral("lblHint"));
    ASSERT_TRUE(hint);
    EXPECT_TRUE(hint->text().contains(QStringLiteral("6＝ボンネット"))) << hint->text().toStdString();
}

struct Refusal
{
    const char *table;
    int column;
    const char *typed;
    const char *reason;
};

class RefusedCell : public FrmKaniSetTest, public ::testing::WithParamInterface<Refusal> {};

TEST_P(RefusedCell, SaysWhichCellAndWhyAndKeepsTheOldValue)
{
    const Refusal &r = GetParam();
    ui::TableEditor *editor = window->editor(QLatin1String(r.table));
    const QString before = editor->model().text(0, r.column);
    type(editor, 0, r.column, QString::fromUtf8(r.typed));
    ASSERT_EQ(messages.shown.size(), 1);
    const QString caption = editor->tableSpec().columns.at(r.column).caption;
    EXPECT_EQ(messages.lastText(), QStringLiteral("1行目「%1」：%2").arg(caption, QString::fromUtf8(r.reason)));
    EXPECT_EQ(editor->model().text(0, r.column), before);
    EXPECT_FALSE(editor->isDirty());
}

INSTANTIATE_TEST_SUITE_P(
    Cases, RefusedCell,
    ::testing::Values(Refusal{"T_TUnitPrice", Labour, "-500", "0以上の整数を入力してください。"},
                      Refusal{"T_TUnitPrice", Labour, "1.5", "0以上の整数を入力してください。"},
                      Refusal{"T_TUnitPrice", Material, "abc", "0以上の整数を入力してください。"},
                      Refusal{"T_TUnitPrice", Material, "3000000000", "大きすぎます（2147483647まで）。"},
                      Refusal{"T_TUnitPrice", Num, "12", "次のどれかを入力してください：0、1、2、3、4、5、6、7、8、9、10、11"},
                      Refusal{"T_TUnitPrice", Part, "", "値を入力してください。"},
                      Refusal{"M_TSyaryoA", 0, "40000", "大きすぎます（32767まで）。"},
                      // The work-kind dialog offers two kinds only.
                      Refusal{"M_TSKubun", 0, "3", "次のどれかを入力してください：1、2"},
                      Refusal{"M_TColor", 1, "　", "値を入力してください。"}));

TEST_F(FrmKaniSetTest, AnEditIsHeldUntilSavedAndThenReachesThePriceScreen)
{
    type(prices, 0, Labour, QStringLiteral("１２，３００"));
    type(prices, 0, Content, QStringLiteral("O'Neil's 修理"));
    EXPECT_TRUE(messages.shown.isEmpty()) << messages.lastText().toStdString();
    EXPECT_EQ(prices->model().text(0, Labour), QStringLiteral("12300"));
    ASSERT_FALSE(firstRowsPrices().isEmpty());
    EXPECT_EQ(firstRowsPrices().first().labour, 8600);
    click(prices, "cmdSave");
    EXPECT_TRUE(messages.shown.isEmpty()) << messages.lastText().toStdString();
    ASSERT_FALSE(firstRowsPrices().isEmpty());
    EXPECT_EQ(firstRowsPrices().first().labour, 12300);
    EXPECT_EQ(firstRowsPrices().first().material, 3600);
    EXPECT_EQ(firstRowsPrices().first().content, QStringLiteral("O'Neil's 修理"));
}

TEST_F(FrmKaniSetTest, AClassificationThatDoesNotExistIsRefusedOnSaving)
{
    type(prices, 0, ClassA, QStringLiteral("9"));
    EXPECT_TRUE(messages.shown.isEmpty());
    click(prices, "cmdSave");
    EXPECT_EQ(messages.lastText(),
              QStringLiteral("1行目「車両区分Ａ」：「9」は M_TSyaryoA にありません。先にそちらへ登録してください。\n保存していません。"));
    EXPECT_TRUE(prices->isDirty());
    EXPECT_EQ(firstRowsPrices().size(), 2);  // the file is as it was
}

// Row 1 is the medium repair of row 0's panel; giving it row 0's work content repeats a job.
TEST_F(FrmKaniSetTest, TheSameJobTwiceIsRefusedOnSaving)
{
    type(prices, 1, Content, prices->model().text(0, Content));
    click(prices, "cmdSave");
    ASSERT_FALSE(messages.shown.isEmpty());
    EXPECT_TRUE(messages.lastText().startsWith(QStringLiteral("2行目"))) << messages.lastText().toStdString();
    EXPECT_TRUE(messages.lastText().contains(QStringLiteral("1行目と同じです。"))) << messages.lastText().toStdString();
    ASSERT_EQ(firstRowsPrices().size(), 2);
    EXPECT_EQ(firstRowsPrices().at(1).content, QStringLiteral("キズ・ヘコミ修理（中）"));
}

// The same work content under another vehicle class B is another job (the sample file has no
// prices for trucks of class A 1).
TEST_F(FrmKaniSetTest, TheSameContentUnderAnotherClassIsAccepted)
{
    type(prices, 1, Content, prices->model().text(0, Content));
    type(prices, 1, ClassB, QStringLiteral("5"));
    click(prices, "cmdSave");
    EXPECT_TRUE(messages.shown.isEmpty()) << messages.lastText().toStdString();
    EXPECT_EQ(firstRowsPrices().size(), 1);
    const auto trucks = x.store->unitPrices({1, 1, 5, 1}, 1, PanelMatch::AsNumber);
    ASSERT_TRUE(trucks && trucks->size() == 1);
    EXPECT_EQ(trucks->first().labour, 13800);
}

TEST_F(FrmKaniSetTest, DeletingAsksFirstAndIsSavedWithTheRest)
{
    const int rows = prices->model().rowCount();
    prices->view()->selectRow(0);
    messages.answer(Answer::No);
    click(prices, "cmdDel");
    EXPECT_EQ(messages.lastText(), QStringLiteral("削除します。\nデータが失われます。\nよろしいですか？"));
    EXPECT_EQ(prices->model().rowCount(), rows);
    messages.answer(Answer::Yes);
    click(prices, "cmdDel");
    EXPECT_EQ(prices->model().rowCount(), rows - 1);
    EXPECT_EQ(firstRowsPrices().size(), 2);
    click(prices, "cmdSave");
    ASSERT_EQ(firstRowsPrices().size(), 1);
    EXPECT_EQ(firstRowsPrices().first().content, QStringLiteral("キズ・ヘコミ修理（中）"));
}

TEST_F(FrmKaniSetTest, ANewClassificationCanBeUsedByAUnitPrice)
{
    ui::TableEditor *classes = window->editor(QStringLiteral("M_TSyaryoA"));
    click(classes, "cmdAdd");
    const int row = classes->model().rowCount() - 1;
    if (QLineEdit *open = test::openCellEditor(classes->view()))
        QTest::keyClick(open, Qt::Key_Escape);
    type(classes, row, 0, QStringLiteral("5"));
    type(classes, row, 1, QStringLiteral("キャンピングカー"));
    click(classes, "cmdSave");
    EXPECT_TRUE(messages.shown.isEmpty()) << messages.lastText().toStdString();
    type(prices, 0, ClassA, QStringLiteral("5"));
    click(prices, "cmdSave");
    EXPECT_TRUE(messages.shown.isEmpty()) << messages.lastText().toStdString();
    EXPECT_EQ(test::names(x.store->classesA(1)).last(), QStringLiteral("キャンピングカー"));
}

// Deleting or renumbering a class that unit prices use would orphan them.
TEST_F(FrmKaniSetTest, AClassThatUnitPricesUseCannotBeDeletedOrRenumbered)
{
    ui::TableEditor *colours = window->editor(QStringLiteral("M_TColor"));
    ASSERT_EQ(colours->model().rowCount(), 3);
    colours->view()->selectRow(0);
    messages.answer(Answer::Yes);
    click(colours, "cmdDel");
    type(colours, 0, 0, QStringLiteral("7"));  // メタリック, now the first row, becomes 7
    messages.clear();
    click(colours, "cmdSave");
    EXPECT_EQ(messages.lastText(), QStringLiteral("番号「1」「2」は T_TUnitPrice で使われているため、消せません。先にそちらを変えてください。\n保存していません。"));
    EXPECT_EQ(test::names(x.store->allColours()), (QStringList{"ソリッド", "メタリック", "パール"}));
    // A class no unit price uses can go.
    messages.answer(Answer::Yes);
    click(colours, "cmdUndo");
    click(colours, "cmdAdd");
    if (QLineEdit *open = test::openCellEditor(colours->view()))
        QTest::keyClick(open, Qt::Key_Escape);
    type(colours, 3, 0, QStringLiteral("4"));
    type(colours, 3, 1, QStringLiteral("マイカ"));
    click(colours, "cmdSave");
    colours->view()->selectRow(3);
    messages.clear();
    messages.answer(Answer::Yes);
    click(colours, "cmdDel");
    click(colours, "cmdSave");
    EXPECT_EQ(messages.shown.size(), 1) << messages.lastText().toStdString();  // only the question
    EXPECT_EQ(test::names(x.store->allColours()).size(), 3);
}

namespace {

struct HubCase
{
    const char *name;
    std::function<void(const QString &appFolder)> spoil;
    const char *expected;  // part of the notice; null: the screen opens
};

class KaniSetFromHub : public ::testing::TestWithParam<HubCase> {};

} // namespace

// cmdKaniSet opens frmKaniSet on the file below the application folder; a damaged file or one
// without a table gets one clear notice and nothing opens.
TEST_P(KaniSetFromHub, OpensOrSaysWhyNot)
{
    test::Program program;
    const HubCase &c = GetParam();
    if (c.spoil)
        c.spoil(program.folder.path());
    program.start();
    program.context().settings->show();
    int rows = -1;
    program.dialogs.on(QStringLiteral("frmKaniSet"), [&](QWidget *w) {
        auto *window = qobject_cast<ui::TableEditorWindow *>(w);
        ASSERT_TRUE(window);
        rows = window->editor(QStringLiteral("T_TUnitPrice"))->model().rowCount();
        window->close();
    });
    program.context().settings->button(QStringLiteral("cmdKaniSet"))->click();
    if (!c.expected) {
        EXPECT_GT(rows, 0);
        EXPECT_TRUE(program.messages.shown.isEmpty()) << program.messages.lastText().toStdString();
        return;
    }
    EXPECT_EQ(program.dialogs.seen(QStringLiteral("frmKaniSet")), 0);
    ASSERT_EQ(program.messages.shown.size(), 1);
    EXPECT_EQ(program.messages.shown.first().icon, MessageIcon::Critical);
    EXPECT_EQ(program.messages.shown.first().title, QStringLiteral("簡易見積単価設定"));
    EXPECT_TRUE(program.messages.lastText().contains(QString::fromUtf8(c.expected))) << program.messages.lastText().toStdString();
    EXPECT_TRUE(program.messages.lastText().endsWith(QStringLiteral("簡易見積単価設定を開けません。")));
}

INSTANTIATE_TEST_SUITE_P(
    Files, KaniSetFromHub,
    ::testing::Values(
        HubCase{"Sample", {}, nullptr},
        HubCase{"NotADatabase",
                [](const QString &appFolder) {
                    ASSERT_TRUE(QDir(appFolder).mkpath(QStringLiteral("Data")));
                    QFile f(appFolder + QStringLiteral("/Data/EasyEstimate.sqlite"));
                    ASSERT_TRUE(f.open(QIODevice::WriteOnly | QIODevice::Truncate));
                    f.write(QByteArray(4096, 'x'));
                },
                "EasyEstimate.sqlite は壊れているか、データベースのファイルではありません。"},
        HubCase{"WithoutColours",
                [](const QString &appFolder) {
                    const db::OpenResult opened = db::openDatabase(appFolder, EasyEstimateStore::kRelativePath);
                    ASSERT_TRUE(opened.ok());
                    ASSERT_TRUE(QSqlQuery(opened.database).exec(QStringLiteral("DROP TABLE M_TColor")));
                },
                "表 M_TColor がありません。"}),
    [](const auto &info) { return std::string(info.param.name); });
