#include "app/frm_setting.h"
#include "app/wiring.h"
#include "simple/simple_flow.h"
#include "simple/unit_price_tables.h"
#include "uikit/table_screen_window.h"

namespace est::app {

void wireSimple(AppContext &context)
{
    AppContext *c = &context;
    context.simpleEstimate = [c](QWidget *parent) {
        simple::SimpleFlow flow(c->session, c->messages, c->appFolder);
        return flow.run(parent);
    };
    c->settings->setScreen(QStringLiteral("cmdKaniSet"), [c] {
        ui::showTableScreen(simple::unitPriceScreen(), c->appFolder, c->messages, c->settings);
    });
}

} // namespace est::app
