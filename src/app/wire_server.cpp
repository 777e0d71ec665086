#include "app/frm_setting.h"
#include "app/wiring.h"
#include "server/dlg_password.h"
#include "server/frm_server.h"

namespace est::app {

void wireServer(AppContext &context)
{
    AppContext *c = &context;
    c->settings->setScreen(QStringLiteral("cmdServer"), [c] {
        server::FrmServer form(
            c->messages, [c](const QString &prompt) { return server::DlgPassword::ask(prompt, c->messages, c->settings); },
            c->settings);
        form.exec();
    });
}

} // namespace est::app
