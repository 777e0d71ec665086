#pragma once
// A fresh, empty application folder for one test, removed afterwards; ESTIMATE_APP_HOME
// points at it while it lives.

#include <QString>
#include <QTemporaryDir>

namespace est::test {

class TempAppFolder
{
public:
    TempAppFolder();
    ~TempAppFolder();
    QString path() const { return m_dir.path(); }
    // Full path of a relative path below the folder ("temp/kdata.txt").
    QString file(const QString &relative) const { return m_dir.filePath(relative); }

private:
    QTemporaryDir m_dir;
    QByteArray m_previous;
};

} // namespace est::test
