#pragma once
// A table-editor screen as data: its window name and title, the database file it edits and
// one table layout per tab, with an optional hint shown under the tabs. Every screen that
// edits master tables (the settings hub's master screens, the inner-panel, sheet-metal and
// unit-price editors) is described this way and opened the same way.

#include "mastertable/column_spec.h"

#include <QList>
#include <QSqlDatabase>
#include <QString>

namespace est::mastertable {

struct TableScreen
{
    QString objectName;  // frmBSetting, dlgBankinSetting ...
    QString title;
    QString database;    // relative path of the database file ("temp\\PartDB.mdb")
    QList<TableSpec> tables;  // one tab each
    QString hint;        // shown under the tabs when not empty
};

// Empty when the database can be read and holds every table and column of the screen; else
// one notice naming every problem (a damaged file says so rather than listing every table).
QString checkScreenLayout(const TableScreen &screen, const QSqlDatabase &database);

} // namespace est::mastertable
