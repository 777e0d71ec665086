#include "app/wiring.h"

namespace est::app {

void wireSubsystems(AppContext &context)
{
    wireSheetExtras(context);
    wireCustomers(context);
}

} // namespace est::app
