#pragma once
// The paint master database comes with the paint and index subsystems: a test of a screen
// whose tables a new PartDB does not have yet is skipped with the reason, and runs as soon
// as the tables are part of the schema.

#include "db/database.h"
#include "masters/master_screens.h"

#include <QStringList>

namespace est::test {

// The screen's tables missing from the database, or the reason it cannot be opened.
inline QStringList missingTables(const QString &appFolder, const masters::MasterScreen &screen)
{
    const db::OpenResult opened = db::openDatabase(appFolder, screen.database);
    if (!opened.ok())
        return {opened.error};
    QStringList missing;
    for (const mastertable::TableSpec &table : screen.tables)
        if (!db::tableExists(opened.database, table.table))
            missing << table.table;
    return missing;
}

} // namespace est::test

#define SKIP_WITHOUT_TABLES(folder, screen)                                                                   \
    if (const QStringList missing = est::test::missingTables(folder, screen); !missing.isEmpty())            \
    GTEST_SKIP() << "PartDB has no " << missing.join(QStringLiteral(", ")).toStdString() << " yet"
