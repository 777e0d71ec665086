#pragma once
// Everything the screens of the running program share, handed to the wiring code of each
// subsystem. One instance, owned by the AppController; never global.

#include "common/clock.h"
#include "common/messages.h"
#include "common/session.h"
#include "workitems/index_hand_over.h"

#include <QList>
#include <QString>
#include <functional>
#include <optional>

class QWidget;

namespace est::ui { class WaitDialog; }
namespace est::sheet { class FrmMitumori; }
namespace est::workbook { class WorkbookStore; }

namespace est::app {

class DlgHajime;
class FrmSetting;

// One step of starting a new or opened estimate (file-name dialog, date dialog, rate
// dialog ...). Returns false when the user cancelled: the chain stops and the start
// dialog comes back.
using FlowStep = std::function<bool()>;

struct AppContext
{
    Session &session;
    Messages &messages;
    const Clock &clock;
    QString appFolder;

    sheet::FrmMitumori *sheet = nullptr;
    DlgHajime *start = nullptr;
    FrmSetting *settings = nullptr;
    ui::WaitDialog *wait = nullptr;
    // Saves and opens the estimate's workbook (set by the workbook wiring).
    workbook::WorkbookStore *store = nullptr;

    // Run at start-up, in order, before the start dialog is shown.
    QList<std::function<void()>> startupSteps;
    // Steps of a new estimate, after SheetState became 1 and before the sheet is shown.
    QList<FlowStep> newEstimateSteps;
    // Steps of opening a saved estimate (the open dialog), before the sheet is shown.
    QList<FlowStep> openEstimateSteps;
    // Opens a workbook in the spreadsheet program (start dialog's third choice).
    std::function<void()> openWorkbook;
    // Runs the simple estimate over the work item editor: the priced job the user confirmed.
    std::function<std::optional<SimpleEntry>(QWidget *parent)> simpleEstimate;
    // Opens frmBankin over the work item editor: the remark and index of the grade chosen.
    workitems::IndexScreen sheetMetalIndex;
};

} // namespace est::app
