#pragma once
// The simple estimate's part of the session: the four classification numbers chosen in the
// work-kind and vehicle-class dialogs, and the entry that its price screen hands to the
// work item editor.

#include "common/money.h"

#include <QString>
#include <cstdint>

namespace est {

// Work kind, vehicle class A, vehicle class B and colour class; 0 = not chosen.
struct SimpleEstimateState
{
    std::int16_t workKind = 0;
    std::int16_t classA = 0;
    std::int16_t classB = 0;
    std::int16_t colour = 0;

    // The vehicle settings the price screen needs before it can open.
    bool vehicleChosen() const { return classA != 0 && classB != 0 && colour != 0; }
};

// One priced job handed to the work item editor's entry line.
struct SimpleEntry
{
    QString partName;   // 作業部位
    QString content;    // 作業内容
    Yen labour = 0;     // 工賃
    Yen material = 0;   // 材料/部品代, becomes the row's part price
};

} // namespace est
