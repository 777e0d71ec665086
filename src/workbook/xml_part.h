#pragma once
// Internal to the workbook engine: errors, and reading and writing the XML parts of a package
// with element names compared without their namespace prefix.

#include "workbook/workbook.h"

#include <QByteArray>
#include <QString>

#include <pugixml.hpp>

#include <string>

namespace est::workbook::detail {

[[noreturn]] void fail(ErrorKind kind, const QString &detail);

inline bool isDigit(char c) { return c >= '0' && c <= '9'; }

// The element name without a prefix: some writers use "x:row".
const char *localName(const char *name);
bool isElement(const pugi::xml_node &node, const char *local);
pugi::xml_node childElement(const pugi::xml_node &parent, const char *local);
// The prefix ("" or "x:") used by the document's root element, for the elements we add.
std::string prefixOf(const pugi::xml_node &root);

// Parses a part; a part that is not well-formed, or has no root element, is Damaged.
void parseXml(pugi::xml_document &doc, const QByteArray &bytes, const QString &part);
// The document as UTF-8, with the declaration it came with (or a standard one).
QByteArray serialise(const pugi::xml_document &doc);
// One element with what it holds, as UTF-8.
QByteArray serialiseNode(const pugi::xml_node &node);

} // namespace est::workbook::detail
