// The sample vehicles of a new installation read like a Japanese shop's own records: real
// model names, registration numbers as the registration dialog composes them, and the paint
// kind that the colour really has (paint kind drives paint pricing).

#include "customer_fixture.h"

#include <QRegularExpression>
#include <QSqlQuery>
#include <gtest/gtest.h>

using namespace est;

namespace {

struct SampleVehicle
{
    QString maker, carName, registration, colourCode, paintKind;
};

QList<SampleVehicle> sampleVehicles(const test::CustomerFixture &x)
{
    QList<SampleVehicle> vehicles;
    QSqlQuery q(x.store->database());
    EXPECT_TRUE(q.exec(QStringLiteral("SELECT Meka, Syamei, Touroku, IroNo, IroSyurui FROM Kokyaku_Syaryou")));
    while (q.next())
        vehicles.append({q.value(0).toString(), q.value(1).toString(), q.value(2).toString(), q.value(3).toString(),
                         q.value(4).toString()});
    return vehicles;
}

TEST(SampleData, VehiclesHaveRealNamesPlatesAndPaintKinds)
{
    test::CustomerFixture x;
    const QList<SampleVehicle> vehicles = sampleVehicles(x);
    ASSERT_GE(vehicles.size(), 4);
    const QStringList kinds = x.settings->paintKinds();
    // Office, three-digit class number, one hiragana, then "12-34".
    const QRegularExpression plate(QStringLiteral("^\\p{Han}+\\d{3}\\p{Hiragana}\\d{2}-\\d{2}$"));
    for (const SampleVehicle &v : vehicles) {
        EXPECT_FALSE(v.carName.contains(QStringLiteral("サンプル"))) << v.carName.toStdString();
        EXPECT_TRUE(plate.match(v.registration).hasMatch()) << v.registration.toStdString();
        EXPECT_TRUE(kinds.contains(v.paintKind)) << v.paintKind.toStdString();
    }
}

struct ColourCase
{
    const char *maker;
    const char *code;
    const char *kind;
};

class SampleColours : public ::testing::TestWithParam<ColourCase>
{
};

// Colour codes whose paint kind every body shop knows.
TEST_P(SampleColours, PaintKindFollowsTheColour)
{
    test::CustomerFixture x;
    const ColourCase c = GetParam();
    for (const SampleVehicle &v : sampleVehicles(x)) {
        if (v.maker == QString::fromUtf8(c.maker) && v.colourCode == QLatin1String(c.code))
            EXPECT_EQ(v.paintKind, QString::fromUtf8(c.kind)) << c.maker << ' ' << c.code;
    }
}

INSTANTIATE_TEST_SUITE_P(KnownCodes, SampleColours,
                         ::testing::Values(ColourCase{"トヨタ", "070", "3ｺｰﾄﾊﾟｰﾙ"},   // white pearl crystal shine
                                           ColourCase{"スズキ", "ZVR", "3ｺｰﾄﾊﾟｰﾙ"},   // pure white pearl
                                           ColourCase{"マツダ", "25D", "3ｺｰﾄﾊﾟｰﾙ"},   // snowflake white pearl
                                           ColourCase{"ホンダ", "NH-731P", "2ｺｰﾄﾊﾟｰﾙ"}, // crystal black pearl
                                           ColourCase{"トヨタ", "058", "ｿﾘｯﾄﾞ"}));      // white

} // namespace
