#include "app/application_setup.h"

#include <QApplication>
#include <QFont>

namespace est::app {

void setUpApplication(QApplication &application)
{
    Q_UNUSED(application);
    QCoreApplication::setOrganizationName(QStringLiteral("EstimateApp"));
    QCoreApplication::setApplicationName(QStringLiteral("EstimateApp"));
    QCoreApplication::setApplicationVersion(QStringLiteral(ESTIMATE_VERSION));
    QFont font(QStringLiteral("Noto Sans CJK JP"));
    font.setPointSize(10);
    QApplication::setFont(font);
}

} // namespace est::app
