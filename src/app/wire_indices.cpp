#include "app/frm_setting.h"
#include "app/wiring.h"
#include "db/app_folder.h"
#include "db/database.h"
#include "db/part_db.h"
#include "indices/index_screens.h"
#include "indices/index_value.h"
#include "indices/sheet_metal_setting.h"
#include "uikit/table_screen_window.h"

#include <QFileInfo>

namespace est::app {

void wireIndices(AppContext &context)
{
    AppContext *c = &context;

    // A PartDB made by an earlier version gains the index tables added since, before any
    // screen needs them.
    context.startupSteps.append([c] {
        if (QFileInfo::exists(db::resolve(c->appFolder, db::kPartDb)))
            db::openDatabase(c->appFolder, db::kPartDb);
    });
    c->settings->setScreen(QStringLiteral("Command10"), [c] {
        ui::showTableScreen(indices::sheetMetalScreen(), c->appFolder, c->messages, c->settings);
    });
    context.sheetMetalIndex = [c](QWidget *parent) {
        return indices::openSheetMetal(c->appFolder, c->messages, parent);
    };
}

} // namespace est::app
