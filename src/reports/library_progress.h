#pragma once
// Brings the estimate library up to date before it is searched; many workbooks to read
// show a progress bar that can be cancelled.

#include "reports/library_refresh.h"

class QWidget;

namespace est::reports {

// From how many workbooks to read on the progress bar is shown.
inline constexpr int kProgressFrom = 30;

RefreshOutcome refreshWithProgress(EstimateLibrary &library, const QString &folder, QWidget *parent);

} // namespace est::reports
