#include "customer_fixture.h"

#include <gtest/gtest.h>

using namespace est::customers;
using est::test::CustomerFixture;

TEST(SettingLists, ChoiceListsInTheirOrder)
{
    CustomerFixture x;
    EXPECT_EQ(x.settings->paintKinds(), (QStringList{"ｿﾘｯﾄﾞ", "3ｺｰﾄﾊﾟｰﾙ", "ﾒﾀﾘｯｸ", "2ｺｰﾄﾊﾟｰﾙ"}));
    EXPECT_EQ(x.settings->highFunctionPaints(), (QStringList{"ﾌｯｿｺｰﾄ", "ﾊｲﾚﾌｺｰﾄ"}));
    const QStringList makers = x.settings->makers();
    ASSERT_FALSE(makers.isEmpty());
    EXPECT_EQ(makers.first(), QStringLiteral("トヨタ"));
}

TEST(SettingLists, OfficeNamesAddRenameRemove)
{
    CustomerFixture x;
    const QList<RegistrationOffice> before = x.settings->offices();
    ASSERT_FALSE(before.isEmpty());
    EXPECT_EQ(before.first().name, QStringLiteral("品川"));

    ASSERT_TRUE(x.settings->addOffice(QStringLiteral("那覇")));
    ASSERT_TRUE(x.settings->addOffice(QStringLiteral("那覇"))); // a repeated name is a record of its own
    QList<RegistrationOffice> after = x.settings->offices();
    ASSERT_EQ(after.size(), before.size() + 2);
    EXPECT_EQ(after.last().name, QStringLiteral("那覇"));

    ASSERT_TRUE(x.settings->renameOffice(after.last().id, QStringLiteral("沖縄")));
    after = x.settings->offices();
    EXPECT_EQ(after.at(after.size() - 2).name, QStringLiteral("那覇"));
    EXPECT_EQ(after.last().name, QStringLiteral("沖縄"));

    ASSERT_TRUE(x.settings->removeOffice(after.at(after.size() - 2).id));
    after = x.settings->offices();
    EXPECT_EQ(after.size(), before.size() + 1);
    EXPECT_EQ(after.last().name, QStringLiteral("沖縄"));

    EXPECT_FALSE(x.settings->removeOffice(-5));
    EXPECT_FALSE(x.settings->lastError().isEmpty());
}
