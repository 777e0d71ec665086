// The estimate program: start-up and the event loop.

#include "app/app_controller.h"
#include "app/application_setup.h"
#include "db/app_folder.h"
#include "uikit/message_box_messages.h"

#include <QApplication>

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    est::app::setUpApplication(application);

    est::Session session;
    est::ui::MessageBoxMessages messages;
    est::SystemClock clock;
    est::app::AppController controller(session, messages, clock, est::db::applicationFolder());
    controller.start();
    return application.exec();
}
