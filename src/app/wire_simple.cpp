#include "app/wiring.h"
#include "simple/simple_flow.h"

namespace est::app {

void wireSimple(AppContext &context)
{
    AppContext *c = &context;
    context.simpleEstimate = [c](QWidget *parent) {
        simple::SimpleFlow flow(c->session, c->messages, c->appFolder);
        return flow.run(parent);
    };
}

} // namespace est::app
