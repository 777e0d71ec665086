#pragma once
// The columns of the estimate search results and the text each shows.

#include "reports/estimate_summary.h"

#include <QStringList>

namespace est::reports {

enum LibraryColumn : int {
    LibDay = 0,
    LibSlip,
    LibKind,
    LibCustomer,
    LibCar,
    LibRegistration,
    LibTotal,
    LibFile,
    LibraryColumnCount
};

QStringList libraryHeaders();
// The row as shown: a workbook that cannot be read says so in the kind column.
QStringList libraryRowTexts(const EstimateSummary &summary);
// One result per estimate: of an estimate's revisions found, only the newest is kept, in the
// place of the first one found (the open dialog offers the others).
QList<EstimateSummary> newestRevisions(const QList<EstimateSummary> &found);
// The company, then the person, as one text.
QString customerText(const EstimateSummary &summary);
// "yyyy/MM/dd", empty for no date.
QString shownDay(const QDate &day);

} // namespace est::reports
