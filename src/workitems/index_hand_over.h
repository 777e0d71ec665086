#pragma once
// What another index screen hands to the work item editor: a remark for the row's
// "部品番号・その他" column and an index, from which the editor computes the labour as for any
// typed index (the sheet-metal screen: " B : 13d㎡" and "2.35").

#include <QString>
#include <functional>
#include <optional>

class QWidget;

namespace est::workitems {

struct IndexHandOver
{
    QString remark;
    QString index;
};

// Opens such a screen modally over `parent`; empty when the user chose nothing.
using IndexScreen = std::function<std::optional<IndexHandOver>(QWidget *parent)>;

} // namespace est::workitems
