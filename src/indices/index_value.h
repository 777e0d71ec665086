#pragma once
// Index values as the index screens hold them: decimal texts, exactly as stored or typed,
// so that sums and products with a rate never go through binary fractions.

#include <QString>
#include <QVariant>

namespace est::indices {

// A number read from a table as its shortest decimal text (2.6 -> "2.6", 3 -> "3"); empty
// for a null or non-numeric field.
QString indexText(const QVariant &value);

// An index shown "0.00" ("3.1" -> "3.10"); empty stays empty, a non-number stays as it is.
QString shownIndex(const QString &text);

} // namespace est::indices
