#pragma once
// `estimate --to-server` and `estimate --from-server FOLDER`: moving a shop's databases onto
// the shared server in force (ESTIMATE_DB or the saved connection) or off it into a new
// application folder, with the table-by-table comparison printed and progress shown.

#include <QString>
#include <QTextStream>

namespace est::app {

enum MigrationExit { MigrationDone = 0, MigrationNoServer = 1, MigrationTargetHoldsData = 2, MigrationFailed = 3 };

// `folder` empty: to the server from `appFolder`; else from the server into `folder`.
int runMigrationCommand(const QString &appFolder, const QString &folder, QTextStream &out, QTextStream &progress);

} // namespace est::app
