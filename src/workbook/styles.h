#pragma once
// Internal to the workbook engine: the style sheet part (xl/styles.xml) as far as number
// formats go. A cell's number format is changed by pointing it at a copy of its cell format
// with the other number format, added once and reused.

#include <QByteArray>
#include <QString>

#include <pugixml.hpp>

#include <map>
#include <utility>

namespace est::workbook::detail {

class Styles
{
public:
    bool loaded() const { return m_loaded; }
    void load(const QByteArray &xml, const QString &part);
    bool changed() const { return m_changed; }
    QByteArray serialised() const;

    // The id of the number format with that code, added to the style sheet when missing.
    int numFmtIdFor(const QString &format);
    // A cell format like `xf` but with another number format.
    int derivedXf(int xf, int numFmtId);
    // The number format code of a cell format ("General" when it has none).
    QString formatOfXf(int xf) const;

private:
    pugi::xml_document m_doc;
    bool m_loaded = false;
    bool m_changed = false;
    std::map<std::pair<int, int>, int> m_derivedXfs;   // (old xf, numFmtId) -> new xf
};

} // namespace est::workbook::detail
