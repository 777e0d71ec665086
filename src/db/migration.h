#pragma once
// Moving a shop's data between the application folder's SQLite files and a shared server, for
// `estimate --to-server` and `estimate --from-server FOLDER`. Every table is copied row by row
// in its order, then both sides are compared table by table (row counts and the sum of every
// numeric column); any difference, or a connection lost half-way, leaves nothing behind.

#include <QString>
#include <QStringList>
#include <functional>

namespace est::db {

// One line for a person watching the copy ("[3/42] kokyakudb.TKokyaku 120 件").
using MigrationProgress = std::function<void(const QString &line)>;

struct MigrationResult
{
    enum class Outcome { Copied, TargetHoldsData, Failed };
    Outcome outcome = Outcome::Failed;
    QStringList report;  // the comparison, a line a table, in Japanese
    QString error;       // why nothing was copied, when not Copied
};

// The databases of `appFolder` into the empty server database of `connection`, in one
// transaction. A database the folder has no file of keeps the server's sample rows.
MigrationResult copyFolderToServer(const QString &appFolder, const QString &connection,
                                   const MigrationProgress &progress = {});

// The server's databases into SQLite files of a new application folder `folder` (made when
// missing; refused when it holds database files already). Written beside it first and moved
// in place only when everything compared equal.
MigrationResult copyServerToFolder(const QString &connection, const QString &folder,
                                   const MigrationProgress &progress = {});

// Where a database of the program lives in an application folder ("temp\KokyakuDB.mdb").
QString databaseRelativePath(const QString &baseName);

} // namespace est::db
