#include "app/wiring.h"

namespace est::app {

// The order matters: each subsystem appends its steps to the new-estimate chain
// (file name, then date, then labour rate).
void wireSubsystems(AppContext &context)
{
    wireWorkbook(context);
    wireSheetExtras(context);
    wireWorkItems(context);
    wireCustomers(context);
    wirePaint(context);
    wireIndices(context);
    wireReports(context);
    wirePrint(context);
    wireCompare(context);
    wirePhotos(context);
    wireMasters(context);
    wireSimple(context);
    wireServer(context);
}

} // namespace est::app
