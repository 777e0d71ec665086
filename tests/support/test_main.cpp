// GoogleTest main with a QApplication, so that widget tests can run offscreen.

#include <QApplication>
#include <QDialog>
#include <QElapsedTimer>
#include <QPointer>
#include <QTimer>
#include <gtest/gtest.h>

namespace {

// A modal dialog that nobody answers would hang the test run: after a few seconds it is
// reported as a failure and closed, so the suite goes on.
void watchForStuckModals()
{
    static QPointer<QWidget> current;
    static QElapsedTimer since;
    auto *timer = new QTimer(qApp);
    timer->setInterval(100);
    QObject::connect(timer, &QTimer::timeout, [] {
        QWidget *modal = QApplication::activeModalWidget();
        if (modal != current) {
            current = modal;
            since.restart();
            return;
        }
        if (!modal || since.elapsed() < 5000)
            return;
        ADD_FAILURE() << "modal window '" << modal->objectName().toStdString()
                      << "' was left open with nobody to answer it";
        if (auto *dialog = qobject_cast<QDialog *>(modal))
            dialog->done(QDialog::Rejected);
        else
            modal->close();
        current = nullptr;
    });
    timer->start();
}

} // namespace

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    QCoreApplication::setOrganizationName(QStringLiteral("EstimateAppTest"));
    QCoreApplication::setApplicationName(QStringLiteral("EstimateAppTest"));
    watchForStuckModals();
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
