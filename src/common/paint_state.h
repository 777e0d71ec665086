#pragma once
// The paint, bumper and additional-index state of the open estimate: what the paint,
// bumper and additional-index screens keep between openings and what the estimate
// workbook stores on its sheet "P". Plain data; the screens give the values their meaning.

#include "common/estimate_row.h"
#include "common/money.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <array>
#include <cstdint>

namespace est {

// Bumper screen (frmBumpa).
struct BumperState
{
    bool entered = false;                 // the screen has been completed once for this estimate
    std::int32_t lineCount = 0;           // number of bumper lines
    QStringList lines = QStringList(31);  // the screen's choices, restored when it reopens
    Yen labourSum = 0;                    // front + rear bumper amount, whole yen
};

inline constexpr int kAdditionalItems = 6;
inline constexpr int kAdditionalFields = 5;

// Additional-index screen (frmFuka): six items of five texts (label, choice, index, amount ...;
// the two-tone item carries one extra field, so its index and amount sit one field later).
struct AdditionalState
{
    bool entered = false;                 // AdditionalEntered
    std::int32_t lineCount = 0;           // number of additional lines
    std::array<std::array<QString, kAdditionalFields>, kAdditionalItems> items;
    Yen total = 0;                        // AdditionalTotal: the six amounts, whole yen
};

// Paint screen (frmPaint) and the paint section of the estimate.
struct PaintState
{
    std::int32_t baseAdditionIndex = 0;   // 基礎加算指数
    QString highFunctionBaseIndex;        // 高機能基本指数
    QString highFunctionMaterialIndex;    // 高機能材料指数
    QStringList lines = QStringList(11);  // paint line list
    QString vehicleClass;                 // vehicle class key: "小型", "普通" or "軽自"
    QString materialCoefficient;          // material coefficient in force, as shown
    bool entered = false;                 // painting has been estimated for this estimate
    QList<EstimateRow> rows;              // paint work table, eleven texts per row
};

} // namespace est
