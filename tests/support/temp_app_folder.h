#pragma once
// A fresh, empty application folder for one test, removed afterwards; ESTIMATE_APP_HOME
// points at it while it lives.

#include <QString>
#include <QTemporaryDir>
#include <memory>

namespace est::test {

class BackendScope;

class TempAppFolder
{
public:
    TempAppFolder();
    ~TempAppFolder();
    QString path() const { return m_dir.path(); }
    // Every database file of the program made in the folder with its sample data, as a shop's
    // folder has them after a while (the files, whatever server is in force), then closed.
    void makeDatabases() const;
    // Full path of a relative path below the folder ("temp/kdata.txt").
    QString file(const QString &relative) const { return m_dir.filePath(relative); }

private:
    QTemporaryDir m_dir;
    QByteArray m_previous;
    // In a test program's server run, the folder's databases live on a fresh server database.
    std::unique_ptr<BackendScope> m_backend;
};

} // namespace est::test
