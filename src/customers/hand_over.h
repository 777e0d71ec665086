#pragma once
// Handing the chosen customer and vehicle to the estimate: the two shared arrays, and the
// one place that decides which array entries fill which header fields of the sheet.

#include "common/session.h"
#include "customers/customer_record.h"

#include <QStringList>

namespace est::customers {

inline constexpr int kCustomerArraySize = 18;
inline constexpr int kVehicleArraySize = 19;

struct HandOver
{
    QStringList customer; // 18 texts, index by index as the paint screens read them
    QStringList vehicle;  // 19 texts
};

// The arrays for a customer and the chosen vehicle (none: the vehicle entries stay empty).
HandOver handOver(const Customer &customer, const Vehicle *vehicle);

// Fills the sheet's customer and vehicle header fields from the two arrays. Arrays shorter
// than their size count as empty from where they end.
void applyToHeader(const QStringList &customer, const QStringList &vehicle, EstimateHeader &header);

// Both arrays into the session and its header, as the select button does.
void handOverToSession(const Customer &customer, const Vehicle *vehicle, Session &session);

} // namespace est::customers
