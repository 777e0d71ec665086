// The estimate program: start-up and the event loop.

#include "app/app_controller.h"
#include "db/app_folder.h"
#include "uikit/message_box_messages.h"

#include <QApplication>
#include <QFont>

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    QCoreApplication::setOrganizationName(QStringLiteral("EstimateApp"));
    QCoreApplication::setApplicationName(QStringLiteral("EstimateApp"));
    QCoreApplication::setApplicationVersion(QStringLiteral(ESTIMATE_VERSION));
    QFont font(QStringLiteral("Noto Sans CJK JP"));
    font.setPointSize(10);
    QApplication::setFont(font);

    est::Session session;
    est::ui::MessageBoxMessages messages;
    est::SystemClock clock;
    est::app::AppController controller(session, messages, clock, est::db::applicationFolder());
    controller.start();
    return application.exec();
}
