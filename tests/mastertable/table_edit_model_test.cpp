#include "mastertable/table_edit_model.h"
#include "scratch_database.h"

#include <QSignalSpy>
#include <gtest/gtest.h>

using namespace est;
using namespace est::mastertable;

namespace {

struct ModelTest : ::testing::Test
{
    test::ScratchDatabase scratch;
    TableEditModel tones{TableStore(scratch.database(), test::ScratchDatabase::toneSpec())};
    TableEditModel parts{TableStore(scratch.database(), test::ScratchDatabase::partSpec())};

    bool type(TableEditModel &m, int row, int column, const QString &text)
    {
        return m.setData(m.index(row, column), text);
    }
    QString stored(const char *sql)
    {
        QSqlQuery q(scratch.database());
        q.exec(QString::fromUtf8(sql));
        return q.next() ? q.value(0).toString() : QStringLiteral("<none>");
    }
};

} // namespace

TEST_F(ModelTest, ShowsRowsInTableOrderWithCaptionsAndTwoDecimals)
{
    ASSERT_EQ(tones.rowCount(), 2);
    EXPECT_EQ(tones.headerData(3, Qt::Horizontal).toString(), QStringLiteral("1枚"));
    EXPECT_EQ(tones.text(0, 3), QStringLiteral("1.50"));
    EXPECT_EQ(tones.text(0, 4), QStringLiteral("2.25"));
    EXPECT_EQ(tones.text(1, 0), QStringLiteral("普通"));
    EXPECT_FALSE(tones.isDirty());
}

TEST_F(ModelTest, EditIsHeldUntilSavedThenStoredAsANumber)
{
    ASSERT_TRUE(type(tones, 1, 3, QStringLiteral("1.75")));
    EXPECT_TRUE(tones.isDirty());
    EXPECT_EQ(tones.headerData(1, Qt::Vertical).toString(), QStringLiteral("＊2"));
    EXPECT_EQ(stored("SELECT Mai1 FROM \"2ToneDB\" WHERE Syaryo = '普通'"), QStringLiteral("1.8"));
    const SaveOutcome outcome = tones.save();
    ASSERT_TRUE(outcome.saved) << outcome.message.toStdString();
    EXPECT_EQ(stored("SELECT Mai1 FROM \"2ToneDB\" WHERE Syaryo = '普通'"), QStringLiteral("1.75"));
    EXPECT_EQ(stored("SELECT typeof(Mai1) FROM \"2ToneDB\" WHERE Syaryo = '普通'"), QStringLiteral("real"));
    EXPECT_FALSE(tones.isDirty());
    EXPECT_EQ(tones.headerData(1, Qt::Vertical).toString(), QStringLiteral("2"));
}

TEST_F(ModelTest, RefusedEditNamesTheCellAndKeepsTheValue)
{
    QSignalSpy spy(&tones, &TableEditModel::refused);
    EXPECT_FALSE(type(tones, 0, 4, QStringLiteral("-1")));
    ASSERT_EQ(spy.count(), 1);
    EXPECT_EQ(spy.at(0).at(2).toString(), QStringLiteral("-1"));
    EXPECT_EQ(spy.at(0).at(3).toString(), QStringLiteral("1行目「2枚」：0以上の数値を小数2桁までで入力してください。"));
    EXPECT_EQ(tones.text(0, 4), QStringLiteral("2.25"));
    EXPECT_FALSE(tones.isDirty());
    EXPECT_FALSE(type(tones, 1, 0, QStringLiteral("大型")));
    EXPECT_TRUE(spy.at(1).at(3).toString().startsWith(QStringLiteral("2行目「車種」：次のどれか")));
}

TEST_F(ModelTest, DuplicateKeyOverTwoColumnsIsRefusedAndNothingIsWritten)
{
    const QStringList before = scratch.dump(QStringLiteral("2ToneDB"));
    ASSERT_TRUE(type(tones, 1, 0, QStringLiteral("小型")));
    ASSERT_TRUE(type(tones, 0, 3, QStringLiteral("9")));
    const SaveOutcome outcome = tones.save();
    EXPECT_FALSE(outcome.saved);
    EXPECT_EQ(outcome.row, 1);
    EXPECT_TRUE(outcome.message.startsWith(QStringLiteral("2行目「車種」：「車種・トーン」の組み合わせが1行目と同じです。")))
        << outcome.message.toStdString();
    EXPECT_EQ(scratch.dump(QStringLiteral("2ToneDB")), before);
    EXPECT_TRUE(tones.isDirty());  // the edits are still there to be corrected
    // A different tone makes the key unique again.
    ASSERT_TRUE(type(tones, 1, 1, QStringLiteral("ｽﾄﾗｲﾌﾟ")));
    EXPECT_TRUE(tones.save().saved);
}

TEST_F(ModelTest, ReferenceMustExistInTheOtherTable)
{
    const int row = parts.appendRow();
    ASSERT_TRUE(type(parts, row, 0, QStringLiteral("Z")));
    ASSERT_TRUE(type(parts, row, 1, QStringLiteral("O'Brien ミラー")));
    SaveOutcome outcome = parts.save();
    EXPECT_FALSE(outcome.saved);
    EXPECT_EQ(outcome.column, 0);
    EXPECT_TRUE(outcome.message.startsWith(QStringLiteral("3行目「区分」：「Z」は TKubunDB にありません。")));
    EXPECT_EQ(scratch.dump(QStringLiteral("PaintDB")).size(), 2);
    ASSERT_TRUE(type(parts, row, 0, QStringLiteral("B")));
    outcome = parts.save();
    ASSERT_TRUE(outcome.saved) << outcome.message.toStdString();
    EXPECT_EQ(scratch.dump(QStringLiteral("PaintDB")).last(), QStringLiteral("B|O'Brien ミラー|"));
}

TEST_F(ModelTest, RequiredCellOfAnAddedRowIsCheckedOnSave)
{
    const int row = parts.appendRow();
    ASSERT_TRUE(type(parts, row, 0, QStringLiteral("A")));
    const SaveOutcome outcome = parts.save();
    EXPECT_FALSE(outcome.saved);
    EXPECT_TRUE(outcome.message.startsWith(QStringLiteral("3行目「部品名」：値を入力してください。")));
}

TEST_F(ModelTest, BlankAddedRowIsNotStored)
{
    parts.appendRow();
    EXPECT_TRUE(parts.isDirty());
    ASSERT_TRUE(parts.save().saved);
    EXPECT_EQ(parts.rowCount(), 2);
}

TEST_F(ModelTest, DeleteEditAndAddGoInOneTransaction)
{
    scratch.run("CREATE TRIGGER refuse BEFORE INSERT ON PaintDB WHEN NEW.Buhin = '壊れ部品' "
                "BEGIN SELECT RAISE(ABORT, 'refused by trigger'); END");
    const QStringList before = scratch.dump(QStringLiteral("PaintDB"));
    parts.removeHeldRows({0});
    ASSERT_TRUE(type(parts, 0, 2, QStringLiteral("5")));
    const int row = parts.appendRow();
    ASSERT_TRUE(type(parts, row, 0, QStringLiteral("A")));
    ASSERT_TRUE(type(parts, row, 1, QStringLiteral("壊れ部品")));
    const SaveOutcome failed = parts.save();
    EXPECT_FALSE(failed.saved);
    // Told in Japanese, without SQLite's English text.
    EXPECT_TRUE(failed.message.startsWith(QStringLiteral("データベースに書き込めませんでした。"))) << failed.message.toStdString();
    EXPECT_TRUE(failed.message.endsWith(QStringLiteral("表は変更していません。")));
    EXPECT_FALSE(failed.message.contains(QStringLiteral("refused")));
    EXPECT_EQ(scratch.dump(QStringLiteral("PaintDB")), before);
    ASSERT_TRUE(type(parts, row, 1, QStringLiteral("フェンダー")));
    ASSERT_TRUE(parts.save().saved);
    EXPECT_EQ(scratch.dump(QStringLiteral("PaintDB")), (QStringList{"B|トランク|5", "A|フェンダー|"}));
}

TEST_F(ModelTest, MissingTableOrColumnIsAClearMessage)
{
    TableSpec tableSpec = test::ScratchDatabase::partSpec();
    tableSpec.table = QStringLiteral("NoSuchDB");
    TableEditModel missing{TableStore(scratch.database(), tableSpec)};
    EXPECT_EQ(missing.loadError(), QStringLiteral("表 NoSuchDB がありません。"));
    EXPECT_FALSE(missing.save().saved);
    tableSpec = test::ScratchDatabase::partSpec();
    tableSpec.columns[2].field = QStringLiteral("Nai");
    TableEditModel noColumn{TableStore(scratch.database(), tableSpec)};
    EXPECT_EQ(noColumn.loadError(), QStringLiteral("表 PaintDB に列 Nai がありません。"));
}

// Keys the database itself keeps unique: a text primary key, and a number that is the row's
// rowid. Exchanging two keys in one save works, and a real duplicate is still refused.
struct SwapCase
{
    const char *create;
    const char *fill;
    bool numberKey;
    const char *expected; // rows in rowid order after swapping the keys of the first two
};

class KeySwap : public ::testing::TestWithParam<SwapCase>
{};

TEST_P(KeySwap, TwoRowsExchangeTheirKeysInOneSave)
{
    const SwapCase &c = GetParam();
    test::ScratchDatabase scratch;
    ASSERT_TRUE(scratch.run(c.create));
    ASSERT_TRUE(scratch.run(c.fill));
    const ColumnSpec key = c.numberKey ? ColumnSpec::whole(QStringLiteral("No"), QStringLiteral("番号"))
                                       : ColumnSpec::text(QStringLiteral("No"), QStringLiteral("番号")).mustHave();
    const TableSpec layout{QStringLiteral("Keyed"), QStringLiteral("区分"),
                         {key, ColumnSpec::text(QStringLiteral("Name"), QStringLiteral("名前"))},
                         {0}};
    TableEditModel model{TableStore(scratch.database(), layout)};
    ASSERT_EQ(model.rowCount(), 3);
    ASSERT_TRUE(model.setData(model.index(0, 0), QStringLiteral("9")));
    ASSERT_TRUE(model.setData(model.index(1, 0), QStringLiteral("1")));
    ASSERT_TRUE(model.setData(model.index(0, 0), QStringLiteral("2")));
    const SaveOutcome outcome = model.save();
    ASSERT_TRUE(outcome.saved) << outcome.message.toStdString();
    EXPECT_EQ(scratch.dump(QStringLiteral("Keyed")).join(QLatin1Char(' ')), QString::fromUtf8(c.expected));

    // The third row taking a key that stays in use is refused before anything is written.
    TableEditModel again{TableStore(scratch.database(), layout)};
    ASSERT_TRUE(again.setData(again.index(2, 0), QStringLiteral("1")));
    EXPECT_FALSE(again.save().saved);
    EXPECT_EQ(scratch.dump(QStringLiteral("Keyed")).join(QLatin1Char(' ')), QString::fromUtf8(c.expected));
}

INSTANTIATE_TEST_SUITE_P(
    UniqueInTheDatabase, KeySwap,
    ::testing::Values(
        SwapCase{"CREATE TABLE Keyed (No TEXT NOT NULL PRIMARY KEY, Name TEXT)",
                 "INSERT INTO Keyed VALUES ('1', '軽'), ('2', '小型'), ('3', '普通')", false,
                 "2|軽 1|小型 3|普通"},
        SwapCase{"CREATE TABLE Keyed (No INTEGER PRIMARY KEY, Name TEXT)",
                 "INSERT INTO Keyed VALUES (1, '軽'), (2, '小型'), (3, '普通')", true,
                 "1|小型 2|軽 3|普通"}));

// An optional text left empty goes in as '' (a text column is often NOT NULL), whether typed
// into a new row or cleared in an old one.
TEST(OptionalText, EmptyIsStoredAsAnEmptyText)
{
    test::ScratchDatabase scratch;
    ASSERT_TRUE(scratch.run("CREATE TABLE Jobs (Part TEXT NOT NULL, Content TEXT NOT NULL DEFAULT '')"));
    ASSERT_TRUE(scratch.run("INSERT INTO Jobs VALUES ('バンパー', '小')"));
    const TableSpec layout{QStringLiteral("Jobs"), QStringLiteral("単価"),
                         {ColumnSpec::text(QStringLiteral("Part"), QStringLiteral("作業部位")).mustHave(),
                          ColumnSpec::text(QStringLiteral("Content"), QStringLiteral("作業内容"))},
                         {}};
    TableEditModel model{TableStore(scratch.database(), layout)};
    ASSERT_TRUE(model.setData(model.index(0, 1), QString()));
    const int row = model.appendRow();
    ASSERT_TRUE(model.setData(model.index(row, 0), QStringLiteral("ルーフ")));
    const SaveOutcome outcome = model.save();
    ASSERT_TRUE(outcome.saved) << outcome.message.toStdString();
    EXPECT_EQ(scratch.dump(QStringLiteral("Jobs")), (QStringList{"バンパー|", "ルーフ|"}));
}

// Rows chosen in any order, some twice, some neighbours: exactly those go.
TEST_F(ModelTest, RemovingRowsInRunsDeletesExactlyTheChosenOnes)
{
    for (const char *name : {"フェンダー", "ドア", "ルーフ"}) {
        const int row = parts.appendRow();
        ASSERT_TRUE(type(parts, row, 0, QStringLiteral("A")));
        ASSERT_TRUE(type(parts, row, 1, QString::fromUtf8(name)));
    }
    ASSERT_TRUE(parts.save().saved);
    ASSERT_EQ(parts.rowCount(), 5); // ボンネット, トランク, フェンダー, ドア, ルーフ
    parts.removeHeldRows({4, 0, 3, 3, 9, -1});
    ASSERT_EQ(parts.rowCount(), 2);
    EXPECT_EQ(parts.text(0, 1), QStringLiteral("トランク"));
    EXPECT_EQ(parts.text(1, 1), QStringLiteral("フェンダー"));
    ASSERT_TRUE(parts.save().saved);
    EXPECT_EQ(scratch.dump(QStringLiteral("PaintDB")), (QStringList{"B|トランク|2", "A|フェンダー|"}));
}
