#include "customers/hand_over.h"

namespace est::customers {

HandOver handOver(const Customer &c, const Vehicle *v)
{
    using F = CustomerField;
    HandOver h;
    h.customer = QStringList(kCustomerArraySize);
    h.vehicle = QStringList(kVehicleArraySize);
    const F customerSources[kCustomerArraySize] = {
        F::KNo,      F::KNo /* 1: replaced by the vehicle's SNo */,
        F::Namae,    F::Jyusyo1,   F::Jyusyo2,   F::TEL,       F::FAX,        F::Cell,
        F::KaisyaN,  F::KaisyaJ1,  F::KaisyaJ2,  F::KaisyaTEL, F::KaisyaFAX,  F::KaisyaCell,
        F::KKubun,   F::Memo,      F::KaisyaPost, F::Post,
    };
    for (int i = 0; i < kCustomerArraySize; ++i)
        h.customer[i] = c[customerSources[i]];
    h.customer[1] = v ? (*v)[VehicleField::SNo] : QString();

    if (v) {
        using V = VehicleField;
        const std::pair<int, V> vehicleSources[] = {
            {0, V::SNo},        {1, V::KNo},     {2, V::NyuDay},    {3, V::Meka},
            {4, V::Syamei},     {5, V::Katasiki}, {6, V::SyataiNo}, {7, V::Touroku},
            {8, V::Syonendo},   {9, V::KataSitei}, {10, V::Ruibetu}, {11, V::Eg},
            {12, V::Soukou},    {13, V::IroNo},  {14, V::IroSyurui}, {15, V::Koukinou},
            {16, V::Bikou},     {17, V::Soukou}, // 17 repeats the mileage
            {18, V::Yuko},
        };
        for (const auto &[index, field] : vehicleSources)
            h.vehicle[index] = (*v)[field];
    }
    return h;
}

void applyToHeader(const QStringList &customer, const QStringList &vehicle, EstimateHeader &header)
{
    const auto at = [](const QStringList &list, int i) { return i < list.size() ? list.at(i) : QString(); };
    header.customerName = at(customer, 2);     // Namae
    header.customerCompany = at(customer, 8);  // KaisyaN
    header.carName = at(vehicle, 4);           // Syamei
    header.chassisNumber = at(vehicle, 6);     // SyataiNo
    header.firstRegistration = at(vehicle, 8); // Syonendo
    header.distance = at(vehicle, 12);         // Soukou
    header.registration = at(vehicle, 7);      // Touroku
    header.modelCode = at(vehicle, 5);         // Katasiki
    header.classCode = at(vehicle, 10);        // Ruibetu
    header.colour = at(vehicle, 13);           // IroNo
    header.engine = at(vehicle, 11);           // Eg
}

void handOverToSession(const Customer &customer, const Vehicle *vehicle, Session &session)
{
    const HandOver h = handOver(customer, vehicle);
    session.customer = h.customer;
    session.vehicle = h.vehicle;
    applyToHeader(session.customer, session.vehicle, session.header);
}

} // namespace est::customers
