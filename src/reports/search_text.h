#pragma once
// The form in which texts are compared when searching saved estimates: full- and half-width
// letters, digits and katakana alike, upper and lower case alike, blanks and hyphens dropped
// (a registration number is found with or without them).

#include <QString>

namespace est::reports {

QString foldForSearch(const QString &text);

} // namespace est::reports
