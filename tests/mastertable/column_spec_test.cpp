#include "mastertable/column_spec.h"

#include <QVariant>
#include <gtest/gtest.h>

using namespace est::mastertable;

struct CellCase
{
    ColumnKind kind;
    const char *typed;
    const char *stored;   // nullptr: refused
    const char *reason;   // part of the refusal
};

class CellCheckTest : public ::testing::TestWithParam<CellCase> {};

TEST_P(CellCheckTest, AcceptsOrRefusesWithReason)
{
    const CellCase &c = GetParam();
    ColumnSpec column{QStringLiteral("F"), QStringLiteral("列"), c.kind};
    const CellCheck check = checkCell(column, QString::fromUtf8(c.typed));
    if (c.stored) {
        EXPECT_TRUE(check.ok()) << check.reason.toStdString();
        EXPECT_EQ(check.value, QString::fromUtf8(c.stored));
    } else {
        EXPECT_FALSE(check.ok()) << check.value.toStdString();
        EXPECT_TRUE(check.reason.contains(QString::fromUtf8(c.reason))) << check.reason.toStdString();
    }
}

INSTANTIATE_TEST_SUITE_P(
    Numbers, CellCheckTest,
    ::testing::Values(
        CellCase{ColumnKind::Index2, "1.5", "1.50", nullptr}, CellCase{ColumnKind::Index2, ".5", "0.50", nullptr},
        CellCase{ColumnKind::Index2, "２．２５", "2.25", nullptr}, CellCase{ColumnKind::Index2, " 12 ", "12.00", nullptr},
        CellCase{ColumnKind::Index2, "0", "0.00", nullptr}, CellCase{ColumnKind::Index2, "007.1", "7.10", nullptr},
        CellCase{ColumnKind::Index2, "1.", "1.00", nullptr}, CellCase{ColumnKind::Index2, "99999.99", "99999.99", nullptr},
        CellCase{ColumnKind::Index2, "-1", nullptr, "0以上"}, CellCase{ColumnKind::Index2, "1.234", nullptr, "小数2桁"},
        CellCase{ColumnKind::Index2, "abc", nullptr, "0以上"}, CellCase{ColumnKind::Index2, ".", nullptr, "0以上"},
        CellCase{ColumnKind::Index2, "1e3", nullptr, "0以上"}, CellCase{ColumnKind::Index2, "100000", nullptr, "大きすぎ"},
        CellCase{ColumnKind::WholeNumber, "1,200", "1200", nullptr}, CellCase{ColumnKind::WholeNumber, "０７", "7", nullptr},
        CellCase{ColumnKind::WholeNumber, "2147483647", "2147483647", nullptr},
        CellCase{ColumnKind::WholeNumber, "2147483648", nullptr, "大きすぎ"},
        CellCase{ColumnKind::WholeNumber, "99999999999999999999", nullptr, "大きすぎ"},
        CellCase{ColumnKind::WholeNumber, "1.5", nullptr, "整数"}, CellCase{ColumnKind::WholeNumber, "-3", nullptr, "整数"},
        CellCase{ColumnKind::WholeNumber, "三", nullptr, "整数"}, CellCase{ColumnKind::WholeNumber, "", "", nullptr},
        CellCase{ColumnKind::Text, " O'Brien 自動車 ", "O'Brien 自動車", nullptr},
        CellCase{ColumnKind::Text, "ﾙｰﾌ以外", "ﾙｰﾌ以外", nullptr}, CellCase{ColumnKind::Text, "a\tb", nullptr, "タブ"},
        CellCase{ColumnKind::Text, "a\nb", nullptr, "改行"}));

TEST(CellCheck, RequiredChoicesAndLength)
{
    ColumnSpec work = ColumnSpec::text(QStringLiteral("作業"), QStringLiteral("作業")).mustHave().oneOf({"X", "S"});
    EXPECT_TRUE(checkCell(work, QStringLiteral("X")).ok());
    EXPECT_EQ(checkCell(work, QStringLiteral(" ")).reason, QStringLiteral("値を入力してください。"));
    EXPECT_EQ(checkCell(work, QStringLiteral("x")).reason, QStringLiteral("次のどれかを入力してください：X、S"));
    ColumnSpec name = ColumnSpec::text(QStringLiteral("N"), QStringLiteral("名")).atMost(3);
    EXPECT_TRUE(checkCell(name, QStringLiteral("ルーフ")).ok());
    EXPECT_EQ(checkCell(name, QStringLiteral("ルーフ以外")).reason, QStringLiteral("3文字以内で入力してください。"));
}

TEST(DisplayValue, StoredNumbersShowAsTheGridShowsThem)
{
    const ColumnSpec index = ColumnSpec::index(QStringLiteral("I"), QStringLiteral("指数"));
    EXPECT_EQ(displayValue(index, QVariant(1.15)), QStringLiteral("1.15"));
    EXPECT_EQ(displayValue(index, QVariant(2.0)), QStringLiteral("2.00"));
    EXPECT_EQ(displayValue(index, QVariant(QStringLiteral("0.5"))), QStringLiteral("0.50"));
    // Nothing is silently rounded: three decimals stay visible.
    EXPECT_EQ(displayValue(index, QVariant(1.125)), QStringLiteral("1.125"));
    EXPECT_EQ(displayValue(index, QVariant()), QString());
    const ColumnSpec whole = ColumnSpec::whole(QStringLiteral("W"), QStringLiteral("数"));
    EXPECT_EQ(displayValue(whole, QVariant(qlonglong(42))), QStringLiteral("42"));
}
