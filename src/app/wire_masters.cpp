#include "app/frm_setting.h"
#include "app/wiring.h"
#include "masters/master_window.h"

namespace est::app {

void wireMasters(AppContext &context)
{
    AppContext *c = &context;
    const std::pair<const char *, mastertable::TableScreen (*)()> screens[] = {
        {"Command3", &masters::bumperScreen},
        {"cmdPaintSisu", &masters::additionalScreen},
        {"Command7", &masters::basicIndexScreen},
        {"Command5", &masters::paintNameScreen},
    };
    for (const auto &[button, describe] : screens)
        c->settings->setScreen(QLatin1String(button), [c, describe] {
            masters::showMasterScreen(describe(), c->appFolder, c->messages, c->settings);
        });
}

} // namespace est::app
