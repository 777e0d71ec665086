#pragma once
// An estimate as it was last saved: read from its workbook for printing.

#include "common/session.h"

#include <QString>
#include <optional>

namespace est::print {

struct SavedEstimate
{
    Session session;
    QString title;       // D!B1, the document title
    QString honorific;   // D!C1
};

// Reads the workbook at the path. On failure, nothing and a sentence for the user in `error`.
std::optional<SavedEstimate> loadSavedEstimate(const QString &path, QString *error);

} // namespace est::print
