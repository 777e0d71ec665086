#include "temp_app_folder.h"

#include <QSqlDatabase>

namespace est::test {

TempAppFolder::TempAppFolder() : m_previous(qgetenv("ESTIMATE_APP_HOME"))
{
    qputenv("ESTIMATE_APP_HOME", m_dir.path().toLocal8Bit());
}

TempAppFolder::~TempAppFolder()
{
    // Connections to files in the folder must go before the folder does.
    for (const QString &name : QSqlDatabase::connectionNames()) {
        if (name.contains(m_dir.path())) {
            {
                QSqlDatabase db = QSqlDatabase::database(name, false);
                db.close();
            }
            QSqlDatabase::removeDatabase(name);
        }
    }
    if (m_previous.isEmpty())
        qunsetenv("ESTIMATE_APP_HOME");
    else
        qputenv("ESTIMATE_APP_HOME", m_previous);
}

} // namespace est::test
