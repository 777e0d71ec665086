#pragma once
// The bumper rows the bumper screen can ask for but the tables do not hold. It looks up a base
// index for every work (取替, 修理) × vehicle class × paint kind × content and an off-vehicle
// index for every paint kind; a missing row prices the bumper at index 0 without a word, so the
// editor lists the gaps beforehand. The paint kinds are those the material-coefficient table
// prices and those the bumper tables name, so a kind typed differently in one row shows up as
// a kind with gaps.

#include <QSqlDatabase>
#include <QStringList>

namespace est::masters {

struct BumperGaps
{
    QStringList baseRows;        // "取替・普通・ﾒﾀﾘｯｸ・全面塗装"
    QStringList offVehicleKinds; // paint kinds without an off-vehicle index

    bool empty() const { return baseRows.isEmpty() && offVehicleKinds.isEmpty(); }
};

// `error` is set when a table cannot be read.
BumperGaps missingBumperRows(const QSqlDatabase &database, QString *error);

// One line for the editor, like the basic-index gaps: what is missing, or that nothing is.
QString describeBumperGaps(const BumperGaps &gaps, int shown = 12);

} // namespace est::masters
