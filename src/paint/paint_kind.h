#pragma once
// The small fixed vocabularies of painting: paint kinds and their colour-kind codes, the
// high-function paints, and the vehicle class keys with their full names.

#include <QString>
#include <QStringList>

namespace est::paint {

// Colour-kind code (the Iro key of the basic-index table) of a paint kind: "ｿﾘｯﾄﾞ" -> "S",
// "3ｺｰﾄﾊﾟｰﾙ" -> "3P", "ﾒﾀﾘｯｸ" -> "M", "2ｺｰﾄﾊﾟｰﾙ" -> "2P"; any other text -> "".
QString colourKindCode(const QString &paintKind);

// The paint material preset for a paint kind ("速乾" for solid colours, else empty).
QString presetMaterial(const QString &paintKind);

// High-function paints: which material addition of the high-function table applies.
enum class HighFunction { None, Fluorine, Other };
HighFunction highFunctionOf(const QString &name);

// Vehicle class: short key ("小型", "普通", "軽自") and full name ("小型自動車" ...).
// Unknown texts map to an empty text.
QString classFullName(const QString &key);
QString classKey(const QString &fullName);
QStringList classFullNames();

// The full class name the bumper screen expects for the class key shown on the paint screen.
inline QString bumperClassName(const QString &key) { return classFullName(key); }

} // namespace est::paint
