#include "workbook/styles.h"

#include "workbook/xml_part.h"

#include <QHash>

#include <algorithm>
#include <vector>

namespace est::workbook::detail {

namespace {

// Number formats built into every spreadsheet program.
const QHash<int, QString> &builtinFormats()
{
    static const QHash<int, QString> formats = {
        {0, QStringLiteral("General")}, {1, QStringLiteral("0")},         {2, QStringLiteral("0.00")},
        {3, QStringLiteral("#,##0")},   {4, QStringLiteral("#,##0.00")},  {9, QStringLiteral("0%")},
        {10, QStringLiteral("0.00%")},  {14, QStringLiteral("mm-dd-yy")}, {49, QStringLiteral("@")},
    };
    return formats;
}

std::vector<pugi::xml_node> cellFormats(const pugi::xml_node &styleSheet)
{
    std::vector<pugi::xml_node> xfs;
    for (pugi::xml_node n = childElement(styleSheet, "cellXfs").first_child(); n; n = n.next_sibling())
        if (isElement(n, "xf"))
            xfs.push_back(n);
    return xfs;
}

} // namespace

void Styles::load(const QByteArray &xml, const QString &part)
{
    parseXml(m_doc, xml, part);
    m_loaded = true;
}

QByteArray Styles::serialised() const
{
    return serialise(m_doc);
}

int Styles::numFmtIdFor(const QString &format)
{
    for (auto it = builtinFormats().cbegin(); it != builtinFormats().cend(); ++it)
        if (it.value() == format)
            return it.key();
    pugi::xml_node root = m_doc.document_element();
    pugi::xml_node numFmts = childElement(root, "numFmts");
    int highest = 163;
    for (pugi::xml_node n = numFmts.first_child(); n; n = n.next_sibling()) {
        if (!isElement(n, "numFmt"))
            continue;
        const int id = n.attribute("numFmtId").as_int();
        if (QString::fromUtf8(n.attribute("formatCode").value()) == format)
            return id;
        highest = std::max(highest, id);
    }
    const std::string prefix = prefixOf(root);
    if (!numFmts) {
        // numFmts is the first child of the style sheet.
        numFmts = root.prepend_child((prefix + "numFmts").c_str());
    }
    pugi::xml_node fmt = numFmts.append_child((prefix + "numFmt").c_str());
    fmt.append_attribute("numFmtId") = highest + 1;
    fmt.append_attribute("formatCode") = format.toUtf8().constData();
    int count = 0;
    for (pugi::xml_node n = numFmts.first_child(); n; n = n.next_sibling())
        count += isElement(n, "numFmt") ? 1 : 0;
    (numFmts.attribute("count") ? numFmts.attribute("count") : numFmts.append_attribute("count")) = count;
    m_changed = true;
    return highest + 1;
}

QString Styles::formatOfXf(int xf) const
{
    const auto xfs = cellFormats(m_doc.document_element());
    if (xf < 0 || xf >= int(xfs.size()))
        return builtinFormats().value(0);
    const int id = xfs[size_t(xf)].attribute("numFmtId").as_int();
    if (builtinFormats().contains(id))
        return builtinFormats().value(id);
    for (pugi::xml_node n = childElement(m_doc.document_element(), "numFmts").first_child(); n; n = n.next_sibling())
        if (isElement(n, "numFmt") && n.attribute("numFmtId").as_int() == id)
            return QString::fromUtf8(n.attribute("formatCode").value());
    return builtinFormats().value(0);
}

int Styles::derivedXf(int xf, int numFmtId)
{
    const auto known = m_derivedXfs.find({xf, numFmtId});
    if (known != m_derivedXfs.end())
        return known->second;
    const pugi::xml_node root = m_doc.document_element();
    pugi::xml_node cellXfs = childElement(root, "cellXfs");
    if (!cellXfs)
        fail(ErrorKind::Damaged, QStringLiteral("the styles have no cell formats"));
    auto xfs = cellFormats(root);
    if (xfs.empty())
        fail(ErrorKind::Damaged, QStringLiteral("the styles have no cell formats"));
    const pugi::xml_node base = xfs[size_t(xf >= 0 && xf < int(xfs.size()) ? xf : 0)];
    if (base.attribute("numFmtId").as_int() == numFmtId)
        return xf;
    pugi::xml_node copy = cellXfs.insert_copy_after(base, xfs.back());
    (copy.attribute("numFmtId") ? copy.attribute("numFmtId") : copy.append_attribute("numFmtId")) = numFmtId;
    (copy.attribute("applyNumberFormat") ? copy.attribute("applyNumberFormat")
                                         : copy.append_attribute("applyNumberFormat")) = 1;
    const int index = int(xfs.size());
    (cellXfs.attribute("count") ? cellXfs.attribute("count") : cellXfs.append_attribute("count")) = index + 1;
    m_changed = true;
    m_derivedXfs[{xf, numFmtId}] = index;
    return index;
}

} // namespace est::workbook::detail
