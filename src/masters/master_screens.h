#pragma once
// The master-data screens of the settings hub as descriptions for the table editor: which
// database, which tables, and the rule of every column. The screens that read these tables
// look rows up by the key columns, so those are required, restricted to the values the screens
// offer where the set is fixed, and unique.

#include "mastertable/table_screen.h"

#include <QList>
#include <QString>

namespace est::masters {

// frmBSetting: base bumper index, off-vehicle index, condition additions.
mastertable::TableScreen bumperScreen();
// frmFukaSetting: two-tone, door sash, stripe, sealing, wax, booth.
mastertable::TableScreen additionalScreen();
// frmKisoSetting: basic index, high-function additions, material coefficients, low-hiding
// and two-coat solid surcharges.
mastertable::TableScreen basicIndexScreen();
// frmPaintName: paint categories and the part names in each.
mastertable::TableScreen paintNameScreen();

// The vehicle classes and colour-kind codes under which the paint screen looks the basic index up.
QStringList vehicleClasses();
QStringList colourKindCodes();

} // namespace est::masters
