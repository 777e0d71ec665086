// Area classes of a dent, the grade remark, and the sheet-metal table with its checks and its
// setting on the table editor.
#include "indices/sheet_metal.h"
#include "indices/sheet_metal_setting.h"
#include "indices/sheet_metal_table.h"
#include "mastertable/csv_transfer.h"
#include "mastertable/table_edit_model.h"
#include "part_db_fixture.h"

using namespace est;
using namespace est::indices;

namespace {

struct AreaCase
{
    std::int16_t height, width;
    std::optional<AreaClass> expected;
};

class AreaTable : public ::testing::TestWithParam<AreaCase>
{
};

TEST_P(AreaTable, ClassAndQualifier)
{
    const AreaCase &c = GetParam();
    EXPECT_EQ(areaClassFor(c.height, c.width), c.expected) << c.height << " x " << c.width;
}

INSTANTIATE_TEST_SUITE_P(
    ByHand, AreaTable,
    ::testing::Values(AreaCase{5, 10, AreaClass{1, "以下"}},     // 50 cm² -> 0 d㎡
                      AreaCase{0, 0, AreaClass{1, "以下"}},
                      AreaCase{10, 10, AreaClass{1, ""}},        // exactly 1 d㎡
                      AreaCase{9, 11, AreaClass{1, "以下"}},     // 99 cm², truncated to 0
                      AreaCase{30, 45, AreaClass{13, ""}},       // 1,350 cm² -> 13
                      AreaCase{100, 40, AreaClass{40, ""}},
                      AreaCase{100, 41, AreaClass{40, "以上"}},
                      AreaCase{181, 181, AreaClass{40, "以上"}}, // 32,761 still fits 16 bits
                      AreaCase{182, 181, std::nullopt},          // 32,942 does not
                      AreaCase{200, 200, std::nullopt}));

TEST(SheetMetalInput, SizesAndRemarks)
{
    EXPECT_EQ(sizeFromText("30"), std::int16_t(30));
    EXPECT_EQ(sizeFromText(""), std::int16_t(0));
    EXPECT_EQ(sizeFromText("32767"), std::int16_t(32767));
    EXPECT_EQ(sizeFromText("32768"), std::nullopt);
    EXPECT_EQ(sizeFromText("-5"), std::nullopt);
    EXPECT_EQ(sizeFromText("3O"), std::nullopt);
    EXPECT_EQ(gradeRemark(Grade::A, 1), " A : 1d㎡");
    EXPECT_EQ(gradeRemark(Grade::B, 13), " B : 13d㎡");
    EXPECT_EQ(gradeRemark(Grade::C, 40), " C : 40d㎡");
}

class SheetMetalTableTest : public test::PartDbTest
{
};

TEST_F(SheetMetalTableTest, SampleHasEveryClassWithGradesRising)
{
    SheetMetalTable table(database);
    const QList<SheetMetalRow> rows = table.rows();
    ASSERT_EQ(rows.size(), kAreaClasses);
    EXPECT_EQ(checkRows(rows), "");
    for (const SheetMetalRow &row : rows) {
        EXPECT_LT(row.grades[0].toDouble(), row.grades[1].toDouble()) << row.area.toStdString();
        EXPECT_LT(row.grades[1].toDouble(), row.grades[2].toDouble()) << row.area.toStdString();
    }
    EXPECT_EQ(table.grades(13), (std::array<QString, 3>{"1.5", "2.35", "3.3"}));
    EXPECT_EQ(table.grades(41), std::nullopt);
}

// dlgBankinSetting's rules on the table editor's held edits: a changed index is stored and read
// back by the sheet-metal screen's lookup; a table without every class is not stored.
TEST_F(SheetMetalTableTest, TheSettingStoresAChangedIndexOnlyWithEveryClass)
{
    mastertable::TableEditModel model(mastertable::TableStore(database, sheetMetalScreen().tables.first()));
    ASSERT_EQ(model.rowCount(), kAreaClasses);
    ASSERT_EQ(model.text(12, 0), "13");
    EXPECT_EQ(model.text(12, 2), "2.35");
    ASSERT_TRUE(model.setData(model.index(12, 1), QStringLiteral("1.25")));
    ASSERT_TRUE(model.setData(model.index(12, 3), QStringLiteral("０")));
    ASSERT_TRUE(model.save().saved);
    SheetMetalTable table(database);
    EXPECT_EQ(table.grades(13), (std::array<QString, 3>{"1.25", "2.35", "0"}));

    model.removeHeldRows({39});
    const mastertable::SaveOutcome outcome = model.save();
    EXPECT_FALSE(outcome.saved);
    EXPECT_EQ(outcome.message, "面積区分 40 がありません。1 から 40 まですべて入力してください。\n保存していません。");
    EXPECT_EQ(table.rows().size(), kAreaClasses);
}

// The sample file exported and read back with one class dropped is refused as a whole.
TEST_F(SheetMetalTableTest, AnImportWithoutEveryClassChangesNothing)
{
    const mastertable::TableStore store(database, sheetMetalScreen().tables.first());
    QString error;
    const QByteArray exported = mastertable::exportCsv(store, &error);
    ASSERT_EQ(error, "");
    QList<QByteArray> lines = exported.split('\n');
    ASSERT_EQ(lines.size(), kAreaClasses + 2);  // header, 40 rows, the empty text after the last line end
    EXPECT_EQ(QString::fromUtf8(lines.at(13)).trimmed(), "13,1.50,2.35,3.30");
    lines[13] = "13,1.60,2.35,3.30\r";
    mastertable::ImportReport report = mastertable::importCsv(store, lines.join('\n'), mastertable::CsvEncoding::Auto);
    EXPECT_TRUE(report.applied) << report.summary().toStdString();
    EXPECT_EQ(SheetMetalTable(database).grades(13), (std::array<QString, 3>{"1.6", "2.35", "3.3"}));

    lines[13] = "13,1.70,2.35,3.30\r";
    lines.removeAt(21);
    report = mastertable::importCsv(store, lines.join('\n'), mastertable::CsvEncoding::Auto);
    EXPECT_FALSE(report.applied);
    EXPECT_EQ(report.summary(), "面積区分 21 がありません。1 から 40 まですべて入力してください。\n表は変更していません。");
    EXPECT_EQ(SheetMetalTable(database).grades(13), (std::array<QString, 3>{"1.6", "2.35", "3.3"}));
}

struct SettingRefusal
{
    int column;
    const char *typed;
    const char *message;
};

class SheetMetalSettingRefusal : public SheetMetalTableTest, public ::testing::WithParamInterface<SettingRefusal> {};

TEST_P(SheetMetalSettingRefusal, NamesTheCellAndKeepsTheValue)
{
    mastertable::TableEditModel model(mastertable::TableStore(database, sheetMetalScreen().tables.first()));
    QString message;
    QObject::connect(&model, &mastertable::TableEditModel::refused,
                     [&](int, int, const QString &, const QString &m) { message = m; });
    const QString before = model.text(4, GetParam().column);
    EXPECT_FALSE(model.setData(model.index(4, GetParam().column), QString::fromUtf8(GetParam().typed)));
    EXPECT_EQ(message, QString::fromUtf8(GetParam().message));
    EXPECT_EQ(model.text(4, GetParam().column), before);
    EXPECT_FALSE(model.isDirty());
}

INSTANTIATE_TEST_SUITE_P(
    Cases, SheetMetalSettingRefusal,
    ::testing::Values(SettingRefusal{1, "abc", "5行目「A（軽度）」：0以上の数値を小数2桁までで入力してください。"},
                      SettingRefusal{2, "-0.5", "5行目「B（中度）」：0以上の数値を小数2桁までで入力してください。"},
                      SettingRefusal{3, "1.255", "5行目「C（重度）」：0以上の数値を小数2桁までで入力してください。"},
                      SettingRefusal{0, "41", "5行目「面積区分（d㎡）」：次のどれかを入力してください：1、2、3、4、5、6、7、8、9、10、11、12、13、14、15、16、17、18、19、20、21、22、23、24、25、26、27、28、29、30、31、32、33、34、35、36、37、38、39、40"},
                      SettingRefusal{0, "", "5行目「面積区分（d㎡）」：値を入力してください。"}));

TEST_F(SheetMetalTableTest, AClassTwiceIsRefusedOnSaving)
{
    mastertable::TableEditModel model(mastertable::TableStore(database, sheetMetalScreen().tables.first()));
    ASSERT_TRUE(model.setData(model.index(4, 0), QStringLiteral("４")));
    const mastertable::SaveOutcome outcome = model.save();
    EXPECT_FALSE(outcome.saved);
    EXPECT_EQ(outcome.message, "5行目「面積区分（d㎡）」：「面積区分（d㎡）」が4行目と同じです。\n保存していません。");
}

TEST_F(SheetMetalTableTest, MissingTableFindsNothing)
{
    exec("DROP TABLE \"bankinsisu\"");
    SheetMetalTable table(database);
    EXPECT_EQ(table.grades(13), std::nullopt);
    EXPECT_TRUE(table.rows().isEmpty());
}

struct CheckCase
{
    const char *name;
    std::function<void(QList<SheetMetalRow> &)> edit;
    const char *problem; // empty: accepted
};

class CheckRowsTable : public ::testing::TestWithParam<CheckCase>
{
};

TEST_P(CheckRowsTable, NamesWhatIsWrong)
{
    QList<SheetMetalRow> rows;
    for (int a = 1; a <= kAreaClasses; ++a)
        rows.append({QString::number(a), {"1", "2", "3"}});
    GetParam().edit(rows);
    EXPECT_EQ(checkRows(rows), QString::fromUtf8(GetParam().problem));
}

INSTANTIATE_TEST_SUITE_P(
    Cases, CheckRowsTable,
    ::testing::Values(
        CheckCase{"Complete", [](auto &) {}, ""},
        CheckCase{"ShuffledAndZero", [](auto &r) { std::swap(r[0], r[39]); r[3].grades[0] = "0"; }, ""},
        CheckCase{"Missing", [](auto &r) { r.removeAt(39); }, "面積区分 40 がありません。1 から 40 まですべて入力してください。"},
        CheckCase{"Twice", [](auto &r) { r[1].area = "1"; }, "面積区分 1 が2回以上あります。"},
        CheckCase{"Beyond", [](auto &r) { r[39].area = "41"; }, "40 行目の面積区分「41」は 1 から 40 の整数で入力してください。"},
        CheckCase{"NotANumber", [](auto &r) { r[0].area = "一"; }, "1 行目の面積区分「一」は 1 から 40 の整数で入力してください。"},
        CheckCase{"Leading0", [](auto &r) { r[6].area = "07"; }, "7 行目の面積区分「07」は 1 から 40 の整数で入力してください。"},
        CheckCase{"Negative", [](auto &r) { r[2].grades[2] = "-1"; }, "3 行目の指数 C は 0 以上の数値で入力してください。"},
        CheckCase{"Text", [](auto &r) { r[4].grades[1] = "abc"; }, "5 行目の指数 B は 0 以上の数値で入力してください。"},
        CheckCase{"Empty", [](auto &r) { r[4].grades[0] = ""; }, "5 行目の指数 A は 0 以上の数値で入力してください。"}),
    [](const auto &info) { return std::string(info.param.name); });

} // namespace
