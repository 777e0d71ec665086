#include "app/wiring.h"
#include "db/app_folder.h"
#include "db/database.h"
#include "indices/index_screens.h"
#include "indices/index_value.h"

#include <QFileInfo>

namespace est::app {

void wireIndices(AppContext &context)
{
    AppContext *c = &context;

    // A PartDB made by an earlier version gains the index tables added since, before any
    // screen needs them.
    context.startupSteps.append([c] {
        if (QFileInfo::exists(db::resolve(c->appFolder, indices::kPartDb)))
            db::openDatabase(c->appFolder, indices::kPartDb);
    });
    context.sheetMetalIndex = [c](QWidget *parent) {
        return indices::openSheetMetal(c->appFolder, c->messages, parent);
    };
}

} // namespace est::app
