#pragma once
// What the sheet needs from the workbook side to save the open estimate. The workbook
// subsystem implements it; the sheet only decides when to call it.

namespace est::sheet {

class EstimateStore
{
public:
    virtual ~EstimateStore() = default;
    // "ファイルの保存": saves as the state of the estimate requires (asking for a name,
    // overwriting or refusing). True when the estimate was written.
    virtual bool save() = 0;
    // "終了" on a new estimate, answered Yes: asks for a file name, then saves.
    virtual bool saveWithNewName() = 0;
    // "終了" on an opened estimate, answered Yes: writes over the workbook it came from.
    virtual bool overwrite() = 0;
};

} // namespace est::sheet
