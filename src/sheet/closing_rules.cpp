#include "sheet/closing_rules.h"

namespace est::sheet {

EndAction endAction(SheetState state, bool editExisting)
{
    if (state == SheetState::NotStarted && !editExisting)
        return EndAction::EndNow;
    return editExisting ? EndAction::AskOverwrite : EndAction::AskSaveNew;
}

bool hasDataToSave(SheetState state, bool editExisting)
{
    return !(state == SheetState::NotStarted && !editExisting);
}

} // namespace est::sheet
