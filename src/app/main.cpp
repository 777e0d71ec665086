// The estimate program: start-up and the event loop, or one of the command-line uses that
// answer without a window (see app/command_line.h).

#include "app/app_controller.h"
#include "app/application_setup.h"
#include "app/command_line.h"
#include "app/migration_command.h"
#include "db/app_folder.h"
#include "uikit/message_box_messages.h"

#include <QApplication>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QTextStream>
#include <cstdio>

namespace {

// A command that draws pages: no window is shown, so it works without a display.
template <typename Command>
int runDrawing(int argc, char *argv[], Command command)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication application(argc, argv);
    QTextStream errors(stderr);
    return command(est::db::applicationFolder(), errors);
}

int runInvoiceXml(int argc, char *argv[], const est::einvoice::InvoiceRequest &request)
{
    QCoreApplication application(argc, argv);
    QTextStream errors(stderr);
    return est::einvoice::runInvoiceCommand(request, est::db::applicationFolder(), errors);
}

// Moving the databases onto or off the shared server: no window, no display needed.
int runMigration(int argc, char *argv[], const QString &folder)
{
    QCoreApplication application(argc, argv);
    QTextStream out(stdout);
    QTextStream progress(stderr);
    return est::app::runMigrationCommand(est::db::applicationFolder(), folder, out, progress);
}

// --help, --version and a refused command line: no window, no display needed.
int answer(int argc, char *argv[], const est::app::CommandLine &command)
{
    using est::app::CommandKind;
    QCoreApplication application(argc, argv);
    if (command.kind == CommandKind::Version) {
        QTextStream(stdout) << est::app::versionText() << '\n';
        return 0;
    }
    const QString help = est::app::helpText(est::db::applicationFolder());
    if (command.kind == CommandKind::Help) {
        QTextStream(stdout) << help;
        return 0;
    }
    QTextStream(stderr) << command.refusal << "\n\n" << help;
    return est::app::kUsageExitStatus;
}

int runWindow(int argc, char *argv[])
{
    QApplication application(argc, argv);
    est::app::setUpApplication(application);

    est::Session session;
    est::ui::MessageBoxMessages messages;
    est::SystemClock clock;
    est::app::AppController controller(session, messages, clock, est::db::applicationFolder());
    if (!controller.start())
        return 1;
    return application.exec();
}

} // namespace

int main(int argc, char *argv[])
{
    using est::app::CommandKind;
    est::app::setApplicationNames();
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments.append(QString::fromLocal8Bit(argv[i]));
    const est::app::CommandLine command = est::app::parseCommandLine(arguments);
    switch (command.kind) {
    case CommandKind::Help:
    case CommandKind::Version:
    case CommandKind::Refused:
        return answer(argc, argv, command);
    case CommandKind::Pdf:
        return runDrawing(argc, argv, [&command](const QString &folder, QTextStream &errors) {
            return est::print::runPdfCommand(command.pdf, folder, errors);
        });
    case CommandKind::InvoiceXml:
        return runInvoiceXml(argc, argv, command.invoice);
    case CommandKind::Compare:
        return runDrawing(argc, argv, [&command](const QString &folder, QTextStream &errors) {
            return est::compare::runCompareCommand(command.compare, folder, errors);
        });
    case CommandKind::ToServer:
    case CommandKind::FromServer:
        return runMigration(argc, argv, command.folder);
    case CommandKind::Window:
        break;
    }
    return runWindow(argc, argv);
}
