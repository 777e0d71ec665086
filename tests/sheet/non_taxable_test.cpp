#include "db/database.h"
#include "sheet/non_taxable_list.h"
#include "sheet/non_taxable_store.h"
#include "storage_backend.h"
#include "temp_app_folder.h"

#include <QFile>
#include <QSqlQuery>
#include <gtest/gtest.h>

using namespace est;
using namespace est::sheet;

namespace {

TEST(NonTaxableList, DeleteTheMiddleOfThree)
{
    NonTaxableList list;
    ASSERT_EQ(list.append(QStringLiteral("自賠責保険料"), "17,650"), NonTaxableList::Change::Done);
    ASSERT_EQ(list.append(QStringLiteral("重量税"), "16400"), NonTaxableList::Change::Done);
    ASSERT_EQ(list.append(QStringLiteral("印紙代"), "1800"), NonTaxableList::Change::Done);
    EXPECT_EQ(list.sum(), 35850);
    EXPECT_EQ(list.nextNumber(), 4);
    ASSERT_TRUE(list.remove(1));
    ASSERT_EQ(list.size(), 2);
    EXPECT_EQ(list.rows().at(1).name, QStringLiteral("印紙代"));
    EXPECT_EQ(list.sum(), 19450);
    EXPECT_EQ(list.nextNumber(), 3);
    EXPECT_FALSE(list.remove(2));
}

struct AmountCase
{
    const char *text;
    std::optional<Yen> expected;
};
class AmountTest : public ::testing::TestWithParam<AmountCase> {};

TEST_P(AmountTest, OnlyWholeYenCounts)
{
    EXPECT_EQ(NonTaxableList::parseAmount(QString::fromUtf8(GetParam().text)), GetParam().expected)
        << GetParam().text;
}

INSTANTIATE_TEST_SUITE_P(Texts, AmountTest,
    ::testing::Values(AmountCase{"1800", 1800}, AmountCase{"1,800", 1800}, AmountCase{" ", 0},
                      AmountCase{"", 0}, AmountCase{"１８００", 1800}, AmountCase{"-500", -500},
                      AmountCase{"abc", std::nullopt}, AmountCase{"12.5", std::nullopt},
                      AmountCase{"3000000000", std::nullopt}));

TEST(NonTaxableList, BadAmountsAreNotAdded)
{
    NonTaxableList list;
    ASSERT_EQ(list.append("A", "1000"), NonTaxableList::Change::Done);
    EXPECT_EQ(list.append("B", QStringLiteral("千円")), NonTaxableList::Change::BadAmount);
    EXPECT_EQ(list.append("C", "2147483000"), NonTaxableList::Change::SumTooLarge);
    EXPECT_EQ(list.size(), 1);
    EXPECT_EQ(list.sum(), 1000);
    EXPECT_EQ(list.replace(0, "A2", "x"), NonTaxableList::Change::BadAmount);
    EXPECT_EQ(list.replace(0, "A2", "2147483647"), NonTaxableList::Change::Done);
    EXPECT_EQ(list.sum(), 2147483647);
    EXPECT_EQ(list.replace(3, "Z", "1"), NonTaxableList::Change::NoSuchRow);
}

TEST(NonTaxableList, SessionRoundTripAndJoinedNames)
{
    NonTaxableList list;
    QString name = NonTaxableList::joinName(QString(), QStringLiteral("重量税"));
    name = NonTaxableList::joinName(name, QStringLiteral("印紙代"));
    EXPECT_EQ(name, QStringLiteral("重量税 印紙代 "));
    list.append(name, "18200");
    list.append("O'Neil fee", "300");
    NonTaxableItems items;
    EXPECT_TRUE(NonTaxableList::fromSession(items).rows().isEmpty());
    list.toSession(items);
    EXPECT_TRUE(items.present);
    EXPECT_EQ(items.count, 2);
    EXPECT_EQ(items.sum, 18500);
    EXPECT_EQ(items.amounts, (QList<Yen>{18200, 300}));
    EXPECT_EQ(NonTaxableList::fromSession(items).rows(), list.rows());
    items.present = false;
    EXPECT_TRUE(NonTaxableList::fromSession(items).rows().isEmpty());
}

// The list of non-taxable items on the application folder's file or on the server.
struct NonTaxableStoreOn : ::testing::TestWithParam<test::Backend>
{
    test::TempAppFolder folder;
    test::BackendScope backend{GetParam()};
    db::OpenResult opened = db::openDatabase(folder.path(), "Data\\Hikazei.mdb");
    NonTaxableStore store{opened.database};
};

TEST_P(NonTaxableStoreOn, SampleListAndApostrophes)
{
    NonTaxableStoreOn &x = *this;
    ASSERT_TRUE(x.opened.ok()) << x.opened.error.toStdString();
    EXPECT_EQ(QFile::exists(x.folder.file("Data/Hikazei.sqlite")), GetParam() == test::Backend::Sqlite);
    const QList<NonTaxableEntry> all = x.store.entries();
    ASSERT_GE(all.size(), 4);
    for (int i = 0; i < all.size(); ++i)
        EXPECT_EQ(all.at(i).no, i + 1);
    ASSERT_TRUE(x.store.find(QStringLiteral("印紙代")).has_value());

    ASSERT_TRUE(x.store.append("Owner's fee", 1200));
    const auto found = x.store.find("Owner's fee");
    ASSERT_TRUE(found.has_value());
    EXPECT_EQ(found->no, all.size() + 1);
    EXPECT_EQ(found->amount, 1200);
    EXPECT_FALSE(x.store.find("Owner").has_value());
}

TEST_P(NonTaxableStoreOn, DeleteRenumbersAndTheListStopsAt99)
{
    NonTaxableStoreOn &x = *this;
    ASSERT_TRUE(x.opened.ok());
    const int start = x.store.count();
    ASSERT_TRUE(x.store.remove(2));
    QList<NonTaxableEntry> all = x.store.entries();
    ASSERT_EQ(all.size(), start - 1);
    for (int i = 0; i < all.size(); ++i)
        EXPECT_EQ(all.at(i).no, i + 1);

    while (x.store.count() < kMaxNonTaxableEntries)
        ASSERT_TRUE(x.store.append(QStringLiteral("項目%1").arg(x.store.count() + 1), 100));
    EXPECT_FALSE(x.store.append("one too many", 1));
    EXPECT_EQ(x.store.count(), kMaxNonTaxableEntries);
    ASSERT_TRUE(x.store.update(99, QStringLiteral("最後"), 5));
    EXPECT_EQ(x.store.entries().last(), (NonTaxableEntry{99, QStringLiteral("最後"), 5}));
}

INSTANTIATE_TEST_SUITE_P(Backends, NonTaxableStoreOn, ::testing::ValuesIn(test::kBothBackends),
                         [](const auto &info) { return test::backendName(info.param); });

} // namespace
