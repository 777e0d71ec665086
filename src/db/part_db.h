#pragma once
// The paint master database (paint, bumper, additional and sheet-metal index tables), which
// the paint screens, the index screens and the master-table editors share.

#include <QString>

namespace est::db {

inline const QString kPartDb = QStringLiteral("temp\\PartDB.mdb");

} // namespace est::db
