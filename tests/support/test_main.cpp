// GoogleTest main with a QApplication, so that widget tests can run offscreen.

#include <QApplication>
#include <gtest/gtest.h>

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    QCoreApplication::setOrganizationName(QStringLiteral("EstimateAppTest"));
    QCoreApplication::setApplicationName(QStringLiteral("EstimateAppTest"));
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
