#pragma once
// dlgNaibanSetting: the inner-panel table in the shared table editor (settings hub).

#include "common/messages.h"

#include <QString>

class QWidget;

namespace est::paint {

// Opens temp\PartDB and shows the editor modally; a database that cannot be opened is reported.
void editInnerPanels(const QString &appFolder, Messages &messages, QWidget *parent);

} // namespace est::paint
