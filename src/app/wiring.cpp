#include "app/wiring.h"

namespace est::app {

void wireSubsystems(AppContext &context)
{
    Q_UNUSED(context);
}

} // namespace est::app
