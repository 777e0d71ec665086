#pragma once
// What "終了" and "ファイルの保存" do for the state of the open estimate.

#include "common/session.h"

namespace est::sheet {

enum class EndAction {
    EndNow,        // nothing started: the program ends at once
    AskSaveNew,    // "ファイルを保存しますか？": Yes opens the file-name dialog
    AskOverwrite,  // "ファイルを上書き保存しますか？": Yes overwrites the workbook
};

EndAction endAction(SheetState state, bool editExisting);

// Saving is refused only when no estimate has been started or opened.
bool hasDataToSave(SheetState state, bool editExisting);

} // namespace est::sheet
