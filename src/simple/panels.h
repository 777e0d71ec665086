#pragma once
// The eleven panels of the car drawing: their panel numbers (Num of the unit prices), the
// objectName of their picture and the name the user reads.

#include <QList>
#include <QString>
#include <cstdint>

namespace est::simple {

struct Panel
{
    std::int16_t num;
    const char *pictureName;  // objectName of the clickable picture
    QString caption;          // shown to the user
};

// In panel-number order, 1 to 11.
const QList<Panel> &panels();

// The panel of that number, or null.
const Panel *panelByNum(int num);

} // namespace est::simple
