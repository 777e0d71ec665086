// The invoice registration number (what is accepted) and the table of the company extras
// beside the company records.

#include "db/database.h"
#include "sheet/company_extras.h"
#include "temp_app_folder.h"

#include <QSqlQuery>
#include <QSqlRecord>
#include <gtest/gtest.h>

namespace est::sheet {
namespace {

struct NumberCase
{
    const char *typed;
    bool accepted;
    const char *stored;
};

class RegistrationNumbers : public ::testing::TestWithParam<NumberCase> {};

TEST_P(RegistrationNumbers, TAndThirteenDigits)
{
    const NumberCase c = GetParam();
    const QString typed = QString::fromUtf8(c.typed);
    EXPECT_EQ(!checkRegistrationNumber(typed).has_value(), c.accepted) << c.typed;
    if (c.accepted) {
        EXPECT_EQ(normalizeRegistrationNumber(typed), QString::fromUtf8(c.stored));
    }
}

INSTANTIATE_TEST_SUITE_P(
    Cases, RegistrationNumbers,
    ::testing::Values(NumberCase{"T1234567890123", true, "T1234567890123"},
                      NumberCase{"", true, ""},
                      NumberCase{"t1234567890123", true, "T1234567890123"},
                      NumberCase{"Ｔ１２３４５６７８９０１２３", true, "T1234567890123"},
                      NumberCase{" T 1234 5678 90123 ", true, "T1234567890123"},
                      NumberCase{"T123456789012", false, ""},      // twelve digits
                      NumberCase{"T12345678901234", false, ""},    // fourteen digits
                      NumberCase{"1234567890123", false, ""},      // no T
                      NumberCase{"X1234567890123", false, ""},
                      NumberCase{"T12345678901a3", false, ""},
                      NumberCase{"T-234567890123", false, ""}));

TEST(CompanyExtrasStore, KeepsTheNumberBesideTheCompanyTableWithoutChangingIt)
{
    test::TempAppFolder folder;
    db::OpenResult opened = db::openDatabase(folder.path(), QStringLiteral("temp\\Jisya_Jyouhou.mdb"));
    ASSERT_TRUE(opened.ok()) << opened.error.toStdString();
    QSqlQuery columns(opened.database);
    ASSERT_TRUE(columns.exec(QStringLiteral("SELECT * FROM \"Jisya_Jyouhou\"")));
    const int before = columns.record().count();

    CompanyExtrasStore store(opened.database);
    // A new installation's sample shop has a representative and no number yet.
    EXPECT_EQ(store.read(1), (CompanyExtras{QString(), false, QStringLiteral("代表取締役　緑川 健一")}));
    EXPECT_EQ(store.read(7), CompanyExtras{});
    ASSERT_TRUE(store.write(1, {QStringLiteral("T1234567890123"), true, QStringLiteral("代表 O'Brien")}));
    ASSERT_TRUE(store.write(2, {QStringLiteral("T9999999999999"), false, QString()}));
    ASSERT_TRUE(store.write(1, {QStringLiteral("T1111111111111"), false, QStringLiteral("代表 O'Brien")}));
    EXPECT_EQ(CompanyExtrasStore(opened.database).read(1),
              (CompanyExtras{QStringLiteral("T1111111111111"), false, QStringLiteral("代表 O'Brien")}));
    EXPECT_EQ(store.read(2).registrationNumber, QStringLiteral("T9999999999999"));
    ASSERT_TRUE(store.remove(2));
    EXPECT_EQ(store.read(2), CompanyExtras{});

    ASSERT_TRUE(columns.exec(QStringLiteral("SELECT * FROM \"Jisya_Jyouhou\"")));
    EXPECT_EQ(columns.record().count(), before);
}

} // namespace
} // namespace est::sheet
