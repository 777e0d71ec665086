#pragma once
// One row of the estimate as the shared row table keeps it: eleven texts.

#include <QString>
#include <array>

namespace est {

enum EstimateColumn : int {
    ColNo = 0,        // running row number
    ColSection = 1,   // section of the car
    ColPart = 2,      // work position or part name
    ColPartNumber = 3,
    ColWork = 4,      // kind of work
    ColIndex = 5,     // labour index
    ColLabour = 6,    // labour amount, yen
    ColUnitPrice = 7, // part unit price, yen
    ColQuantity = 8,
    ColPartsAmount = 9,
    ColHidden = 10,
    EstimateColumnCount = 11
};

using EstimateRow = std::array<QString, EstimateColumnCount>;

// The most rows one estimate may hold.
inline constexpr int kMaxEstimateRows = 394;

} // namespace est
