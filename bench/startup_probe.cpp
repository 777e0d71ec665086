// The whole program's start-up as a process: it starts exactly as the program does and ends
// as soon as the start dialog is on screen, so timing the process times the start-up.
//   ESTIMATE_APP_HOME=<folder> /usr/bin/time -v build/bench/startup_probe -platform offscreen

#include "app/app_controller.h"
#include "app/application_setup.h"
#include "app/dlg_hajime.h"
#include "common/quiet_messages.h"
#include "db/app_folder.h"
#include "uikit/message_box_messages.h"

#include <QApplication>
#include <QTimer>
#include <cstdio>

namespace {

} // namespace

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    est::app::setUpApplication(application);
    est::Session session;
    est::QuietMessages messages;
    est::SystemClock clock;
    est::app::AppController controller(session, messages, clock, est::db::applicationFolder());
    controller.start();
    QTimer::singleShot(0, &application, [&] {
        if (!controller.context().start->isVisible())
            std::fprintf(stderr, "the start dialog is not shown\n");
        QCoreApplication::quit();
    });
    return application.exec();
}
