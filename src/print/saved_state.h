#pragma once
// Whether the open estimate is the one its workbook holds: the estimate is written into a
// copy of its saved workbook in memory and read back, and the two readings are compared,
// so only differences that saving would store count as changes.

#include "common/session.h"

#include <QString>

namespace est::print {

enum class SavedState {
    NotSaved,   // no workbook yet (or it cannot be read)
    Same,       // the workbook holds what the sheet shows
    Changed,    // the sheet has changes that are not saved
};

SavedState compareWithWorkbook(const Session &current, const QString &workbookPath);

// The values a workbook stores, one text per value, in a fixed order.
QStringList storedValues(const Session &session);

} // namespace est::print
