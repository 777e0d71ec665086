#include "temp_app_folder.h"

#include "db/database.h"
#include "db/migration.h"
#include "db/server_database.h"
#include "db/server_settings.h"
#include "storage_backend.h"

#include <QSqlDatabase>
#include <gtest/gtest.h>

namespace est::test {

TempAppFolder::TempAppFolder() : m_previous(qgetenv("ESTIMATE_APP_HOME"))
{
    qputenv("ESTIMATE_APP_HOME", m_dir.path().toLocal8Bit());
    if (backendOfRun() == Backend::Server)
        m_backend = std::make_unique<BackendScope>(Backend::Server);
}

TempAppFolder::~TempAppFolder()
{
    m_backend.reset();
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

void TempAppFolder::makeDatabases() const
{
    const bool wasLocal = db::usingLocalDataForThisSession();
    db::useLocalDataForThisSession();
    for (const QString &base : db::serverDatabases()) {
        QString path;
        {
            const db::OpenResult opened = db::openDatabase(m_dir.path(), db::databaseRelativePath(base));
            EXPECT_TRUE(opened.ok()) << opened.error.toStdString();
            path = opened.database.databaseName();
        }
        db::closeDatabase(path);
    }
    if (!wasLocal)
        db::forgetLocalDataChoice();
}

} // namespace est::test
