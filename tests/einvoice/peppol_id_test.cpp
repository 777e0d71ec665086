// Peppol IDs and corporate numbers as typed, and where they are kept: the shop's beside its
// registration number, the customer's in a table a file made by an earlier version gains.

#include "common/peppol_id.h"
#include "customers/electronic_address.h"
#include "db/database.h"
#include "sheet/company_extras.h"
#include "temp_app_folder.h"

#include <QDir>
#include <QSqlQuery>
#include <gtest/gtest.h>

namespace est {
namespace {

struct IdCase
{
    const char *typed;
    bool accepted;
};

class PeppolIds : public ::testing::TestWithParam<IdCase> {};

TEST_P(PeppolIds, SchemeFromTheListColonAndAnAddress)
{
    EXPECT_EQ(!checkPeppolId(QString::fromUtf8(GetParam().typed)).has_value(), GetParam().accepted) << GetParam().typed;
}

INSTANTIATE_TEST_SUITE_P(Cases, PeppolIds,
                         ::testing::Values(IdCase{"", true}, IdCase{"0188:7000012050002", true},
                                           IdCase{"0221:T1234567890123", true},
                                           IdCase{"０１８８：７００００１２０５０００２", true},
                                           IdCase{" 0188 : 7000012050002 ", true}, IdCase{"7000012050002", false},
                                           IdCase{"9999:7000012050002", false}, IdCase{"0188:", false},
                                           IdCase{"0188:番号", false}, IdCase{"0188:1234567890124", false},
                                           IdCase{"0221:1234567890123", false}, IdCase{"0088:4912345678904", true}));

class CorporateNumbers : public ::testing::TestWithParam<IdCase> {};

TEST_P(CorporateNumbers, ThirteenDigitsWithTheirCheckDigit)
{
    EXPECT_EQ(!checkCorporateNumber(QString::fromUtf8(GetParam().typed)).has_value(), GetParam().accepted)
        << GetParam().typed;
}

// 7000012050002: 9 - ((2 + 5 + 2 + 1 x 2) mod 9) = 9 - 2 = 7.
INSTANTIATE_TEST_SUITE_P(Cases, CorporateNumbers,
                         ::testing::Values(IdCase{"", true}, IdCase{"7000012050002", true},
                                           IdCase{"7-0000-1205-0002", true}, IdCase{"７００００１２０５０００２", true},
                                           IdCase{"4000012090001", true}, IdCase{"6000012050002", false},
                                           IdCase{"700001205000", false}, IdCase{"70000120500021", false}));

TEST(ElectronicAddresses, TheShopsIdIsKeptBesideItsNumber)
{
    test::TempAppFolder app;
    db::OpenResult opened = db::openDatabase(app.path(), QStringLiteral("temp\\Jisya_Jyouhou.mdb"));
    ASSERT_TRUE(opened.ok());
    sheet::CompanyExtrasStore store(opened.database);
    const sheet::CompanyExtras extras{QStringLiteral("T1234567890123"), false, QStringLiteral("代表"),
                                      QStringLiteral("0188:7000012050002")};
    ASSERT_TRUE(store.write(1, extras));
    EXPECT_EQ(store.read(1), extras);
    ASSERT_TRUE(store.remove(1));
    EXPECT_EQ(store.read(1), sheet::CompanyExtras());
}

TEST(ElectronicAddresses, AnOlderCustomerFileGainsTheTableAndKeepsItsCustomers)
{
    test::TempAppFolder app;
    const QString path = app.file(QStringLiteral("temp/KokyakuDB.sqlite"));
    QDir().mkpath(app.file(QStringLiteral("temp")));
    {
        // A customer file as an earlier version made it: no address table.
        QSqlDatabase old = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("old"));
        old.setDatabaseName(path);
        ASSERT_TRUE(old.open());
        QString script = db::builtInSql(QStringLiteral("KokyakuDB"));
        ASSERT_TRUE(db::runScript(old, script).isEmpty());
        old.close();
    }
    QSqlDatabase::removeDatabase(QStringLiteral("old"));
    db::OpenResult opened = db::openDatabase(app.path(), QStringLiteral("temp\\KokyakuDB.mdb"));
    ASSERT_TRUE(opened.ok());
    EXPECT_TRUE(db::tableExists(opened.database, QStringLiteral("Kokyaku_Peppol")));
    customers::ElectronicAddressStore store(opened.database);
    EXPECT_TRUE(store.read(QStringLiteral("3")).isEmpty());
    const customers::ElectronicAddress address{QStringLiteral("0188:4000012090001"), QStringLiteral("4000012090001")};
    ASSERT_TRUE(store.write(QStringLiteral("3"), address));
    EXPECT_EQ(customers::readElectronicAddress(app.path(), QStringLiteral("3")), address);
    ASSERT_TRUE(store.write(QStringLiteral("3"), {}));
    QSqlQuery rows(opened.database);
    ASSERT_TRUE(rows.exec(QStringLiteral("SELECT COUNT(*) FROM \"Kokyaku_Peppol\"")) && rows.next());
    EXPECT_EQ(rows.value(0).toInt(), 0);
    ASSERT_TRUE(rows.exec(QStringLiteral("SELECT COUNT(*) FROM \"Kokyaku_Jyouhou\"")) && rows.next());
    EXPECT_EQ(rows.value(0).toInt(), 5);
}

} // namespace
} // namespace est
