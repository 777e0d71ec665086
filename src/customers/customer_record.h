#pragma once
// The records of the customer database: one customer (Kokyaku_Jyouhou) and one vehicle
// (Kokyaku_Syaryou), their fields in table order, and the captions the screens show.

#include <QString>
#include <QStringList>
#include <array>

namespace est::customers {

// Fields of Kokyaku_Jyouhou, in table order.
enum class CustomerField {
    KNo, Namae, Post, Jyusyo1, Jyusyo2, TEL, FAX, Cell, KaisyaN, KaisyaPost, KaisyaJ1, KaisyaJ2,
    KaisyaTEL, KaisyaFAX, KaisyaCell, KKubun, Memo,
};
inline constexpr int kCustomerFieldCount = 17;

// Fields of Kokyaku_Syaryou, in table order.
enum class VehicleField {
    SNo, KNo, NyuDay, Meka, Syamei, Katasiki, SyataiNo, Touroku, Syonendo, KataSitei, Ruibetu, Eg,
    Syajyu, Soukou, Yuko, IroNo, IroSyurui, Koukinou, Bikou,
};
inline constexpr int kVehicleFieldCount = 19;

// A record as texts, one per field. KKubun is "1" (a company) or "0".
template <typename Field, int N>
struct Record
{
    std::array<QString, N> values;

    QString &operator[](Field f) { return values[static_cast<std::size_t>(f)]; }
    const QString &operator[](Field f) const { return values[static_cast<std::size_t>(f)]; }
    bool operator==(const Record &) const = default;
};

using Customer = Record<CustomerField, kCustomerFieldCount>;
using Vehicle = Record<VehicleField, kVehicleFieldCount>;

// Field names as the tables have them ("KNo", "Namae" ...).
QString fieldName(CustomerField field);
QString fieldName(VehicleField field);
const QStringList &customerFieldNames();
const QStringList &vehicleFieldNames();

// Column captions for grids, in table order.
const QStringList &customerCaptions();
const QStringList &vehicleCaptions();

} // namespace est::customers
