#include "app/wiring.h"

namespace est::app {

void wireSubsystems(AppContext &context)
{
    wireWorkItems(context);
}

} // namespace est::app
