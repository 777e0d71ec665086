#include "simple_fixture.h"

#include "simple/price_form.h"

using namespace est;
using namespace est::simple;
using est::test::SimpleFixture;

namespace {

SimpleEstimateState state(int kind, int a, int b, int colour)
{
    return {std::int16_t(kind), std::int16_t(a), std::int16_t(b), std::int16_t(colour)};
}

} // namespace

TEST(PriceForm, PanelPaintingShowsNothingUntilAPanelIsChosen)
{
    SimpleFixture x;
    PriceForm form(x.store.get(), state(2, 2, 1, 1));
    form.open();
    EXPECT_TRUE(form.rows().isEmpty());
    ASSERT_TRUE(form.choosePanel(6));
    ASSERT_EQ(form.rows().size(), 1);
    EXPECT_EQ(form.rows().first().part, QStringLiteral("ボンネット"));
    EXPECT_EQ(form.panel(), 6);
}

TEST(PriceForm, OtherWorkKindsOpenOnTheJobsOfNoPanel)
{
    SimpleFixture x;
    PriceForm form(x.store.get(), state(1, 2, 1, 1));
    form.open();
    ASSERT_EQ(form.rows().size(), 2);
    for (const UnitPriceRow &row : form.rows())
        EXPECT_EQ(row.part, QStringLiteral("部位共通"));
    ASSERT_TRUE(form.choosePanel(11)); // a sedan has no sliding door
    EXPECT_TRUE(form.rows().isEmpty());
}

TEST(PriceForm, AClassificationWithoutPricesGivesAnEmptyGrid)
{
    SimpleFixture x;
    PriceForm form(x.store.get(), state(1, 4, 5, 1));
    form.open();
    EXPECT_TRUE(form.rows().isEmpty());
    EXPECT_TRUE(form.choosePanel(3));
    EXPECT_TRUE(form.rows().isEmpty());
    EXPECT_FALSE(form.row(0));
}

TEST(PriceForm, WithoutTheFileTheGridStaysEmpty)
{
    PriceForm form(nullptr, state(1, 1, 2, 1));
    form.open();
    EXPECT_FALSE(form.choosePanel(3));
    EXPECT_TRUE(form.rows().isEmpty());
}

TEST(PriceForm, AFailingQueryLeavesTheGridAsItWas)
{
    SimpleFixture x;
    PriceForm form(x.store.get(), state(1, 2, 1, 1));
    ASSERT_TRUE(form.choosePanel(3));
    ASSERT_EQ(form.rows().size(), 2);
    x.exec(QStringLiteral("ALTER TABLE T_TUnitPrice RENAME TO T_Old"));
    EXPECT_FALSE(form.choosePanel(4));
    EXPECT_EQ(form.rows().size(), 2);
    EXPECT_EQ(form.rows().first().part, QStringLiteral("フロントドア"));
}

struct EntryCase
{
    const char *labour;
    const char *material;
    bool accepted;
    Yen labourYen = 0;
    Yen materialYen = 0;
};

class EntryTest : public ::testing::TestWithParam<EntryCase> {};

TEST_P(EntryTest, AmountsAreWholeYenOfAtLeastZero)
{
    const EntryCase &c = GetParam();
    QString error;
    const auto entry = PriceForm::entry(QStringLiteral(" フロントドア "), QStringLiteral("修理"),
                                        QString::fromUtf8(c.labour), QString::fromUtf8(c.material), &error);
    ASSERT_EQ(bool(entry), c.accepted) << c.labour << " " << c.material;
    if (!entry) {
        EXPECT_EQ(error, QStringLiteral("工賃と材料／部品代は０以上の円単位の金額で入力してください。"));
        return;
    }
    EXPECT_EQ(entry->partName, QStringLiteral("フロントドア"));
    EXPECT_EQ(entry->content, QStringLiteral("修理"));
    EXPECT_EQ(entry->labour, c.labourYen);
    EXPECT_EQ(entry->material, c.materialYen);
}

INSTANTIATE_TEST_SUITE_P(Cases, EntryTest,
                         ::testing::Values(EntryCase{"15000", "3900", true, 15000, 3900},
                                           EntryCase{"15,000", "", true, 15000, 0},
                                           EntryCase{"", "0", true, 0, 0},
                                           EntryCase{"１２０００", "5", true, 12000, 5},
                                           EntryCase{"-1", "0", false}, EntryCase{"1.5", "0", false},
                                           EntryCase{"abc", "0", false}, EntryCase{"100", "1'0", false},
                                           EntryCase{"3000000000", "0", false}));

TEST(PriceForm, AnEntryNeedsAPartOrAContent)
{
    QString error;
    EXPECT_FALSE(PriceForm::entry(QStringLiteral(" "), QString(), QStringLiteral("100"), QString(), &error));
    EXPECT_EQ(error, QStringLiteral("単価の行を選択してください。"));
}
