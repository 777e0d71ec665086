#include "customer_fixture.h"
#include "customers/hand_over.h"
#include "customers/input_format.h"

#include <gtest/gtest.h>

using namespace est;
using namespace est::customers;

namespace {

// Each field holds its own name, so every array entry shows where it came from.
Customer namedCustomer()
{
    Customer c;
    for (int i = 0; i < kCustomerFieldCount; ++i)
        c.values[i] = customerFieldNames().at(i);
    return c;
}

Vehicle namedVehicle()
{
    Vehicle v;
    for (int i = 0; i < kVehicleFieldCount; ++i)
        v.values[i] = vehicleFieldNames().at(i);
    return v;
}

} // namespace

TEST(HandOver, ArraysIndexByIndex)
{
    const Vehicle v = namedVehicle();
    const HandOver h = handOver(namedCustomer(), &v);
    EXPECT_EQ(h.customer, (QStringList{"KNo", "SNo", "Namae", "Jyusyo1", "Jyusyo2", "TEL", "FAX", "Cell", "KaisyaN",
                                       "KaisyaJ1", "KaisyaJ2", "KaisyaTEL", "KaisyaFAX", "KaisyaCell", "KKubun", "Memo",
                                       "KaisyaPost", "Post"}));
    EXPECT_EQ(h.vehicle, (QStringList{"SNo", "KNo", "NyuDay", "Meka", "Syamei", "Katasiki", "SyataiNo", "Touroku",
                                      "Syonendo", "KataSitei", "Ruibetu", "Eg", "Soukou", "IroNo", "IroSyurui",
                                      "Koukinou", "Bikou", "Soukou", "Yuko"}));
}

TEST(HandOver, WithoutVehicleTheVehicleEntriesAreEmpty)
{
    const HandOver h = handOver(namedCustomer(), nullptr);
    EXPECT_EQ(h.customer.size(), 18);
    EXPECT_TRUE(h.customer.at(1).isEmpty());
    EXPECT_EQ(h.customer.at(2), QStringLiteral("Namae"));
    EXPECT_EQ(h.vehicle, QStringList(19));
}

TEST(HandOver, SessionGetsArraysAndHeader)
{
    Session session;
    session.header.memo = QStringLiteral("残す");
    session.header.documentKind = 3;
    const Vehicle v = namedVehicle();
    handOverToSession(namedCustomer(), &v, session);
    EXPECT_EQ(session.customer.at(0), QStringLiteral("KNo"));
    EXPECT_EQ(session.vehicle.at(17), QStringLiteral("Soukou"));
    const EstimateHeader &h = session.header;
    EXPECT_EQ(h.customerName, QStringLiteral("Namae"));
    EXPECT_EQ(h.customerCompany, QStringLiteral("KaisyaN"));
    EXPECT_EQ(h.carName, QStringLiteral("Syamei"));
    EXPECT_EQ(h.chassisNumber, QStringLiteral("SyataiNo"));
    EXPECT_EQ(h.firstRegistration, QStringLiteral("Syonendo"));
    EXPECT_EQ(h.distance, QStringLiteral("Soukou"));
    EXPECT_EQ(h.registration, QStringLiteral("Touroku"));
    EXPECT_EQ(h.modelCode, QStringLiteral("Katasiki"));
    EXPECT_EQ(h.classCode, QStringLiteral("Ruibetu"));
    EXPECT_EQ(h.colour, QStringLiteral("IroNo"));
    EXPECT_EQ(h.engine, QStringLiteral("Eg"));
    // Fields that are not the customer's stay as they were.
    EXPECT_EQ(h.memo, QStringLiteral("残す"));
    EXPECT_EQ(h.documentKind, 3);
}

TEST(HandOver, ShortArraysFillTheHeaderWithEmptyTexts)
{
    EstimateHeader h;
    h.engine = QStringLiteral("old");
    applyToHeader(QStringList{"0", "1", "名前"}, QStringList{}, h);
    EXPECT_EQ(h.customerName, QStringLiteral("名前"));
    EXPECT_TRUE(h.customerCompany.isEmpty());
    EXPECT_TRUE(h.engine.isEmpty());
}

struct MaskCase
{
    const char *typed;
    const char *mask;
    const char *shown;
};

class DigitMask : public ::testing::TestWithParam<MaskCase>
{
};

TEST_P(DigitMask, FormatsPlainNumbersOnly)
{
    const MaskCase &c = GetParam();
    EXPECT_EQ(formatDigits(QString::fromUtf8(c.typed), QString::fromUtf8(c.mask)), QString::fromUtf8(c.shown));
}

INSTANTIATE_TEST_SUITE_P(
    Cases, DigitMask,
    ::testing::Values(MaskCase{"1234567", "000-0000", "123-4567"}, MaskCase{"12345", "000-0000", "001-2345"},
                      MaskCase{"12345678", "000-0000", "1234-5678"}, MaskCase{"123-4567", "000-0000", "123-4567"},
                      MaskCase{"123", "00000", "00123"}, MaskCase{"0012", "00000", "00012"},
                      MaskCase{"123456", "00000", "123456"}, MaskCase{"7", "0000", "0007"},
                      MaskCase{" 42 ", "0000", "0042"}, MaskCase{"0", "0000", "0000"},
                      MaskCase{"", "0000", ""}, MaskCase{"12a", "0000", "12a"},
                      MaskCase{"１２３", "0000", "１２３"}));

TEST(Registration, PartsJoinedWithoutSeparators)
{
    EXPECT_EQ(composeRegistration("品川", "300", "あ", "12-34"), QStringLiteral("品川300あ12-34"));
    EXPECT_EQ(composeRegistration("練馬", "", "さ", "1"), QStringLiteral("練馬さ1"));
    EXPECT_EQ(composeRegistration("", "", "", ""), QString());
}
