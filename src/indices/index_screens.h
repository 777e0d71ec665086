#pragma once
// Opening the index screens modally: each reads what it needs from the estimate, works on a
// copy, and hands back the result only when the user confirms. A PartDB that cannot be opened
// is reported and the screen is not shown.

#include "common/messages.h"
#include "common/session.h"
#include "workitems/index_hand_over.h"

#include <QString>
#include <optional>

class QWidget;

namespace est::indices {

// frmBankin: the grade chosen, as remark and index for the work item editor.
std::optional<workitems::IndexHandOver> openSheetMetal(const QString &appFolder, Messages &messages,
                                                       QWidget *parent);

// frmBumpa on a copy of `kept`: the new bumper state after OK.
std::optional<BumperState> openBumper(const Session &session, const BumperState &kept, const QString &appFolder,
                                      Messages &messages, QWidget *parent);

// frmFuka on a copy of `kept`: the new additional state after OK. Refused, with the message,
// while the paint labour rate is 0.
std::optional<AdditionalState> openAdditional(const Session &session, const AdditionalState &kept,
                                              const QString &appFolder, Messages &messages, QWidget *parent);

} // namespace est::indices
