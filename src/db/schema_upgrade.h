#pragma once
// Versions of the table layout of each database. A database records the version of its layout
// in the plain table "SchemaVersion" (one row, column "version"), so the same record works in
// a SQLite file and in a schema on a server. Opening a database made by an earlier version
// upgrades it step by step, one function per step, each step in one transaction together with
// the record of its version, after a copy of the file <name>.sqlite.bak-<version>. A database
// made by a newer version is left unchanged (its caller opens it read-only).
//
// A step runs plain SQL through the QSqlDatabase it is given, every value bound, so the steps
// serve any backend. Databases made before versions were recorded count as layout 1; the steps
// after 1 add only what such a file lacks, as the add-on tables of those versions did.

#include <QList>
#include <QSqlDatabase>
#include <QString>
#include <QStringList>

namespace est::db {

inline const QString kVersionTable = QStringLiteral("SchemaVersion");

// One step from layout `version - 1` to `version`. Returns an error text, empty on success;
// it runs inside a transaction that the caller opens and commits.
struct SchemaStep
{
    int version = 0;
    QString (*apply)(QSqlDatabase &database) = nullptr;
};

// The steps of a database by its base name ("KokyakuDB"), in order; none for a database whose
// layout never changed.
QList<SchemaStep> schemaSteps(const QString &baseName);

// The layout this program makes and reads: the version of the last step, else 1.
int currentLayout(const QList<SchemaStep> &steps);

// The recorded layout, 1 when the database has no record, -1 when it cannot be read or is
// below 0.
int recordedLayout(const QSqlDatabase &database);

// Records `version` as the layout (the table is made when missing). Runs in the caller's
// transaction. Returns an error text, empty on success.
QString recordLayout(QSqlDatabase &database, int version);

// recordLayout() in a transaction of its own (a new database).
QString markLayout(QSqlDatabase &database, int version);

struct UpgradeOutcome
{
    enum class State { Current, Upgraded, Newer, Failed };
    State state = State::Current;
    int from = 0;            // the layout found
    int to = 0;              // the layout the database has now
    QString backupPath;      // the copy made before the first step, when one was made
    QString message;         // a sentence for the user when Newer or Failed
};

// Brings an open database up to the layout of `steps`. `filePath` is the database file, copied
// to <filePath>.bak-<from> before the first step; empty for a database that is not a file.
// A failing step is rolled back: the database keeps the layout of the steps before it.
UpgradeOutcome upgradeDatabase(QSqlDatabase &database, const QList<SchemaStep> &steps, const QString &filePath);

// Opens every database file of the application folder's "temp" and "Data", upgrading each
// as its opening does, and returns the sentences for the user (newer files, failed steps).
QStringList upgradeAllDatabases(const QString &appFolder);

// Creates the tables of `script` (CREATE TABLE / CREATE INDEX / INSERT INTO statements) that
// the database lacks, with their rows when `withRows`; tables already there are left as they
// are. `only`, when not empty, limits it to those tables. Runs in the caller's transaction.
// Returns an error text, empty on success.
QString createMissingTables(QSqlDatabase &database, const QString &script, bool withRows,
                            const QStringList &only = {});

} // namespace est::db
