#pragma once
// Internal to the workbook engine: the text of string cells. Characters XML 1.0 cannot carry
// (and CR, which parsers turn into LF) are written as "_xHHHH_", the spreadsheet convention.

#include <QString>

#include <pugixml.hpp>

namespace est::workbook::detail {

QString escapeCellText(const QString &text);
QString unescapeCellText(const QString &text);
// Whether the text needs xml:space="preserve" to keep its blanks.
bool needsPreserve(const QString &text);
// Text of a string item: <t> directly, or the runs <r><t>; phonetic runs (<rPh>) are skipped.
QString stringItemText(const pugi::xml_node &item);

} // namespace est::workbook::detail
