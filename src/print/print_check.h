#pragma once
// The check made before anything is printed: the saved estimate needs its document title
// and the customer's honorific.

#include "print/saved_estimate.h"

#include <QString>
#include <optional>

namespace est::print {

inline const QString kPrintStopTitle = QStringLiteral("印刷中止");

// The message that stops printing, or nothing when the estimate can be printed.
std::optional<QString> checkPrintable(const SavedEstimate &saved);

} // namespace est::print
