// The estimate program: start-up and the event loop, or, with --pdf, a saved estimate
// rendered to PDF without a window, or, with --invoice-xml, its electronic invoice.

#include "app/app_controller.h"
#include "app/application_setup.h"
#include "db/app_folder.h"
#include "einvoice/invoice_export.h"
#include "print/pdf_command.h"
#include "uikit/message_box_messages.h"

#include <QApplication>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QTextStream>
#include <cstdio>

namespace {

int runPdf(int argc, char *argv[])
{
    // No window is shown: the command works without a display.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication application(argc, argv);
    QTextStream errors(stderr);
    return est::print::runPdfCommand(QGuiApplication::arguments(), est::db::applicationFolder(), errors);
}

int runInvoiceXml(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    QTextStream errors(stderr);
    return est::einvoice::runInvoiceCommand(QCoreApplication::arguments(), est::db::applicationFolder(), errors);
}

} // namespace

int main(int argc, char *argv[])
{
    for (int i = 1; i < argc; ++i)
        if (qstrcmp(argv[i], "--pdf") == 0)
            return runPdf(argc, argv);
    for (int i = 1; i < argc; ++i)
        if (qstrcmp(argv[i], "--invoice-xml") == 0)
            return runInvoiceXml(argc, argv);

    QApplication application(argc, argv);
    est::app::setUpApplication(application);

    est::Session session;
    est::ui::MessageBoxMessages messages;
    est::SystemClock clock;
    est::app::AppController controller(session, messages, clock, est::db::applicationFolder());
    controller.start();
    return application.exec();
}
