#include "app/application_setup.h"

#include <QApplication>
#include <QFont>
#include <QIcon>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

namespace est::app {

void setApplicationNames()
{
    QCoreApplication::setOrganizationName(QStringLiteral("EstimateApp"));
    QCoreApplication::setApplicationName(QStringLiteral("EstimateApp"));
    QCoreApplication::setApplicationVersion(QStringLiteral(ESTIMATE_VERSION));
}

void setUpApplication(QApplication &application)
{
    setApplicationNames();
    // The desktop entry and icon of an installed program (packaging/); desktops match the
    // windows to the entry by this name (Wayland) or the window class EstimateApp (X11).
    QGuiApplication::setDesktopFileName(QStringLiteral("estimate"));
    QApplication::setWindowIcon(QIcon::fromTheme(QStringLiteral("estimate")));
    QFont font(QStringLiteral("Noto Sans CJK JP"));
    font.setPointSize(10);
    QApplication::setFont(font);
    installQtTranslations(application);
}

bool installQtTranslations(QCoreApplication &application)
{
    // The program speaks Japanese whatever the machine's locale is.
    const QLocale japanese(QLocale::Japanese, QLocale::Japan);
    auto *translator = new QTranslator(&application);
    if (!translator->load(japanese, QStringLiteral("qtbase"), QStringLiteral("_"),
                          QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
        delete translator;
        return false;
    }
    return QCoreApplication::installTranslator(translator);
}

} // namespace est::app
