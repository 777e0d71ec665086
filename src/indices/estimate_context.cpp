#include "indices/estimate_context.h"

namespace est::indices {

namespace {

QString entry(const QStringList &list, int i) { return i < list.size() ? list.at(i) : QString(); }

// Places in the customer and vehicle hand-over arrays.
constexpr int kCustomerName = 2;
constexpr int kVehicleName = 4;
constexpr int kColourNumber = 13;
constexpr int kPaintKind = 14;
constexpr int kHighFunction = 15;

} // namespace

workitems::Rounding roundingOf(const Session &session)
{
    return {session.roundDigits, session.roundMode};
}

BumperSettings bumperSettings(const Session &session)
{
    return {session.paint.vehicleClass, entry(session.vehicle, kPaintKind), session.paintLabourRate,
            roundingOf(session)};
}

std::array<QString, 5> vehicleLabels(const Session &session)
{
    return {entry(session.customer, kCustomerName), entry(session.vehicle, kVehicleName),
            entry(session.vehicle, kColourNumber), entry(session.vehicle, kPaintKind),
            entry(session.vehicle, kHighFunction)};
}

} // namespace est::indices
