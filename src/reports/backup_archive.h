#pragma once
// One dated zip archive of everything the shop would lose with the computer: the database
// files and small text files (temp, Data) and the saved estimates (Mitsumori). Restoring
// checks the whole archive first (it is our backup, every name stays inside the three
// folders, every entry reads back with its checksum and listed size) and only then replaces
// the files, each through a rename.

#include <QDate>
#include <QString>
#include <QStringList>

namespace est::reports {

// "見積バックアップ_20240105.zip"
QString backupFileName(QDate day);

// The files a backup holds, relative to the application folder ("temp/KokyakuDB.sqlite"),
// sorted. Transient files (SQLite journals, half-written ".new" files) and the estimate
// library's index are left out.
QStringList backupFiles(const QString &appFolder);

struct BackupResult
{
    QString error;
    QString path;
    int files = 0;
};

// Writes the archive at `target` (a temporary file, then a rename).
BackupResult writeBackup(const QString &appFolder, const QString &target);

struct BackupCheck
{
    QString error;        // why the archive cannot be restored; empty when it can
    QStringList files;    // its files, relative to the application folder
    qint64 bytes = 0;
};

BackupCheck checkBackup(const QString &archive);

// Checks the archive, then puts every file of it in place below the application folder.
// Files that are not in the archive are left alone. Returns an error text, empty on success.
QString restoreBackup(const QString &appFolder, const QString &archive, BackupCheck *checked = nullptr);

} // namespace est::reports
