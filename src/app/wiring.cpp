#include "app/wiring.h"

namespace est::app {

void wireSubsystems(AppContext &context)
{
    wireWorkbook(context);
}

} // namespace est::app
