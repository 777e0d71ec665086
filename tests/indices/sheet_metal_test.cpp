// Area classes of a dent, the grade remark, and the sheet-metal table with its checks.
#include "indices/sheet_metal.h"
#include "indices/sheet_metal_table.h"
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
protected:
    QList<SheetMetalRow> fullTable()
    {
        QList<SheetMetalRow> rows;
        for (int a = 1; a <= kAreaClasses; ++a)
            rows.append({QString::number(a), {QString::number(a), QString::number(a) + ".5", QString::number(a * 2)}});
        return rows;
    }
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

TEST_F(SheetMetalTableTest, ReplacesTheWholeTableOrNothing)
{
    SheetMetalTable table(database);
    QList<SheetMetalRow> rows = fullTable();
    rows[12].grades = {"1.25", "2", "0"};
    EXPECT_EQ(table.replaceRows(rows), "");
    EXPECT_EQ(table.grades(13), (std::array<QString, 3>{"1.25", "2", "0"}));
    EXPECT_EQ(table.rows().size(), kAreaClasses);

    QList<SheetMetalRow> broken = fullTable();
    broken[5].grades[1] = "-0.5";
    EXPECT_FALSE(table.replaceRows(broken).isEmpty());
    EXPECT_EQ(table.grades(13), (std::array<QString, 3>{"1.25", "2", "0"}));
}

TEST_F(SheetMetalTableTest, MissingTableFindsNothing)
{
    exec("DROP TABLE \"bankinsisu\"");
    SheetMetalTable table(database);
    EXPECT_EQ(table.grades(13), std::nullopt);
    EXPECT_TRUE(table.rows().isEmpty());
    EXPECT_FALSE(table.replaceRows(fullTable()).isEmpty());
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
