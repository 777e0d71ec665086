// The customer's Peppol ID and corporate number in frmKokyaku: shown with the customer,
// editable only with the customer block, checked before anything is saved, kept with the
// customer and gone with it.

#include "customers/electronic_address.h"
#include "screen_fixture.h"

#include <gtest/gtest.h>

namespace est::customers {
namespace {

using test::ScreenFixture;

ElectronicAddress stored(const ScreenFixture &x, const char *kno)
{
    return ElectronicAddressStore(x.store->database()).read(QString::fromLatin1(kno));
}

TEST(FrmKokyakuAddresses, AreSavedWithTheCustomerBlockAndShownWithTheCustomer)
{
    ScreenFixture x;
    x.open();
    x.search(QStringLiteral("上野　健太"));
    EXPECT_TRUE(x.find<QLineEdit>("txtPeppol")->isReadOnly());
    x.click("cmdEditJ");
    EXPECT_FALSE(x.find<QLineEdit>("txtHoujinNo")->isReadOnly());
    x.type("txtPeppol", QStringLiteral("0188:4000012090001"));
    x.type("txtHoujinNo", QStringLiteral("4000-0120-90001"));
    x.click("cmdOkJ");
    EXPECT_TRUE(x.messages.shown.isEmpty()) << x.messages.lastText().toStdString();
    EXPECT_EQ(stored(x, "3"), (ElectronicAddress{QStringLiteral("0188:4000012090001"), QStringLiteral("4000012090001")}));
    EXPECT_TRUE(x.find<QLineEdit>("txtPeppol")->isReadOnly());

    x.search(QStringLiteral("青木　一郎"));
    EXPECT_TRUE(x.text("txtPeppol").isEmpty());
    x.search(QStringLiteral("上野　健太"));
    EXPECT_EQ(x.text("txtHoujinNo"), QStringLiteral("4000012090001"));
}

struct BadCase
{
    const char *field;
    const char *typed;
    const char *says;
};

class FrmKokyakuBadAddresses : public ::testing::TestWithParam<BadCase> {};

TEST_P(FrmKokyakuBadAddresses, AreRefusedAndTheBlockStaysOpen)
{
    ScreenFixture x;
    x.open();
    x.click("cmdEditJ");
    x.type("txtMemo", QStringLiteral("memo"));
    x.type(GetParam().field, QString::fromUtf8(GetParam().typed));
    x.click("cmdOkJ");
    ASSERT_EQ(x.messages.shown.size(), 1);
    EXPECT_TRUE(x.messages.lastText().startsWith(QString::fromUtf8(GetParam().says)));
    EXPECT_FALSE(x.find<QLineEdit>("txtMemo")->isReadOnly());
    EXPECT_TRUE(x.store->customer(QStringLiteral("1")).value()[CustomerField::Memo].isEmpty());
    EXPECT_TRUE(stored(x, "1").isEmpty());
}

INSTANTIATE_TEST_SUITE_P(Cases, FrmKokyakuBadAddresses,
                         ::testing::Values(BadCase{"txtPeppol", "4000012090001", "Peppol IDは"},
                                           BadCase{"txtHoujinNo", "5000012090001", "法人番号は"}));

TEST(FrmKokyakuAddresses, GoWithTheCustomerAndNeverPassToANewOne)
{
    ScreenFixture x;
    ElectronicAddressStore(x.store->database()).write(QStringLiteral("5"), {QStringLiteral("0188:4000012090001"), {}});
    x.open();
    x.search(QStringLiteral("小川　修"));
    EXPECT_EQ(x.text("txtPeppol"), QStringLiteral("0188:4000012090001"));
    x.messages.answer(Answer::Yes);
    x.click("cmdDel");
    EXPECT_TRUE(stored(x, "5").isEmpty());

    // Number 5 is given again; a row left by another screen does not come with it.
    ElectronicAddressStore(x.store->database()).write(QStringLiteral("5"), {QStringLiteral("0188:4000012090001"), {}});
    x.click("cmdNew");
    EXPECT_EQ(x.text("txtKNo"), QStringLiteral("5"));
    EXPECT_TRUE(x.text("txtPeppol").isEmpty());
    x.type("txtNamae", QStringLiteral("新井　和也"));
    x.click("cmdOkJ");
    EXPECT_TRUE(stored(x, "5").isEmpty());
}

} // namespace
} // namespace est::customers
