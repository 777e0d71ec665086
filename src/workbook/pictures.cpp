// Pictures on a worksheet: a drawing part anchoring each picture at a cell, its relationships
// to the image parts, and the content types spreadsheet programs need to show them.

#include "workbook/package.h"
#include "workbook/xml_part.h"

#include <QStringList>

#include <algorithm>
#include <cstring>

namespace est::workbook {

using namespace detail;

namespace {

const char kRelationshipsNs[] = "http://schemas.openxmlformats.org/officeDocument/2006/relationships";
const char kRelType[] = "http://schemas.openxmlformats.org/officeDocument/2006/relationships/";
constexpr qint64 kEmuPerPixel = 9525;
constexpr int kMaxShownPixels = 20000;

QByteArray imageExtension(const QByteArray &image)
{
    if (image.startsWith("\xFF\xD8\xFF"))
        return QByteArrayLiteral("jpeg");
    if (image.startsWith("\x89PNG\r\n\x1A\n"))
        return QByteArrayLiteral("png");
    return QByteArray();
}

// A part name the package does not use yet: "xl/media/photo3.jpeg".
QString freePart(const Workbook::Impl &book, const QString &stem, const QString &extension)
{
    for (int n = 1;; ++n) {
        const QString part = QStringLiteral("%1%2.%3").arg(stem).arg(n).arg(extension);
        if (!book.has(part))
            return part;
    }
}

// The target of a relationship from the owner part to the part, relative as Excel writes it.
QString relativeTarget(const QString &owner, const QString &part)
{
    QStringList from = owner.split(QLatin1Char('/'));
    from.removeLast();
    QStringList to = part.split(QLatin1Char('/'));
    while (!from.isEmpty() && to.size() > 1 && from.first() == to.first()) {
        from.removeFirst();
        to.removeFirst();
    }
    return QStringLiteral("../").repeated(from.size()) + to.join(QLatin1Char('/'));
}

// The prefix the workbook part gives the relationships namespace ("r"), declared when missing.
std::string relationshipPrefix(pugi::xml_node root)
{
    for (pugi::xml_attribute a = root.first_attribute(); a; a = a.next_attribute())
        if (std::strcmp(a.value(), kRelationshipsNs) == 0 && std::strncmp(a.name(), "xmlns:", 6) == 0)
            return a.name() + 6;
    root.append_attribute("xmlns:r") = kRelationshipsNs;
    return "r";
}

void ensureContentType(pugi::xml_node types, const char *kind, const char *key, const QString &value, const char *type)
{
    const QByteArray wanted = value.toUtf8();
    for (pugi::xml_node n = types.first_child(); n; n = n.next_sibling())
        if (isElement(n, kind) && QByteArray(n.attribute(key).value()).compare(wanted, Qt::CaseInsensitive) == 0)
            return;
    pugi::xml_node n = types.append_child((prefixOf(types) + kind).c_str());
    n.append_attribute(key) = wanted.constData();
    n.append_attribute("ContentType") = type;
}

QByteArray relationships(const std::vector<std::pair<QString, QString>> &targets, const char *type)
{
    QByteArray xml = "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n"
                     "<Relationships xmlns=\"http://schemas.openxmlformats.org/package/2006/relationships\">";
    for (const auto &[id, target] : targets)
        xml += "<Relationship Id=\"" + id.toUtf8() + "\" Type=\"" + kRelType + type + "\" Target=\"" + target.toUtf8() + "\"/>";
    return xml + "</Relationships>";
}

QByteArray escaped(const QString &text)
{
    return text.toHtmlEscaped().toUtf8();
}

QByteArray drawingXml(const std::vector<SheetPicture> &pictures)
{
    QByteArray xml = "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n"
                     "<xdr:wsDr xmlns:xdr=\"http://schemas.openxmlformats.org/drawingml/2006/spreadsheetDrawing\" "
                     "xmlns:a=\"http://schemas.openxmlformats.org/drawingml/2006/main\" xmlns:r=\"";
    xml += kRelationshipsNs;
    xml += "\">";
    for (size_t i = 0; i < pictures.size(); ++i) {
        const SheetPicture &p = pictures[i];
        const QByteArray cx = QByteArray::number(qint64(p.widthPx) * kEmuPerPixel);
        const QByteArray cy = QByteArray::number(qint64(p.heightPx) * kEmuPerPixel);
        xml += "<xdr:oneCellAnchor><xdr:from><xdr:col>" + QByteArray::number(p.column - 1) +
               "</xdr:col><xdr:colOff>0</xdr:colOff><xdr:row>" + QByteArray::number(p.row - 1) +
               "</xdr:row><xdr:rowOff>0</xdr:rowOff></xdr:from><xdr:ext cx=\"" + cx + "\" cy=\"" + cy +
               "\"/><xdr:pic><xdr:nvPicPr><xdr:cNvPr id=\"" + QByteArray::number(qint64(i) + 2) + "\" name=\"" +
               escaped(p.name) + "\"/><xdr:cNvPicPr><a:picLocks noChangeAspect=\"1\"/></xdr:cNvPicPr></xdr:nvPicPr>"
               "<xdr:blipFill><a:blip r:embed=\"rId" + QByteArray::number(qint64(i) + 1) +
               "\"/><a:stretch><a:fillRect/></a:stretch></xdr:blipFill><xdr:spPr><a:xfrm><a:off x=\"0\" y=\"0\"/>"
               "<a:ext cx=\"" + cx + "\" cy=\"" + cy + "\"/></a:xfrm><a:prstGeom prst=\"rect\"><a:avLst/></a:prstGeom>"
               "</xdr:spPr></xdr:pic><xdr:clientData/></xdr:oneCellAnchor>";
    }
    return xml + "</xdr:wsDr>";
}

const QByteArray kPictureSheet = "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n"
                                 "<worksheet xmlns=\"http://schemas.openxmlformats.org/spreadsheetml/2006/main\" "
                                 "xmlns:r=\"http://schemas.openxmlformats.org/officeDocument/2006/relationships\">"
                                 "<dimension ref=\"A1\"/><sheetViews><sheetView workbookViewId=\"0\"/></sheetViews>"
                                 "<sheetFormatPr defaultRowHeight=\"15\"/><cols><col min=\"1\" max=\"1\" width=\"8\" "
                                 "customWidth=\"1\"/><col min=\"2\" max=\"2\" width=\"70\" customWidth=\"1\"/></cols>"
                                 "<sheetData/><pageMargins left=\"0.7\" right=\"0.7\" top=\"0.75\" bottom=\"0.75\" "
                                 "header=\"0.3\" footer=\"0.3\"/><drawing r:id=\"rId1\"/></worksheet>";

// A number of an anchor, within 0..max; -1 when it is not one.
int anchorNumber(pugi::xml_node parent, const char *name, int max)
{
    const pugi::xml_node n = childElement(parent, name);
    bool ok = false;
    const qint64 value = QByteArray(n.text().get()).trimmed().toLongLong(&ok);
    return ok && value >= 0 && value <= max ? int(value) : -1;
}

int shownPixels(pugi::xml_node ext, const char *name)
{
    bool ok = false;
    const qint64 emu = QByteArray(ext.attribute(name).value()).toLongLong(&ok);
    return ok && emu >= 0 ? int(std::min<qint64>(emu / kEmuPerPixel, kMaxShownPixels)) : 0;
}

QString relationshipTarget(const pugi::xml_document &rels, const QByteArray &id, const char *typeSuffix)
{
    for (pugi::xml_node rel = rels.document_element().first_child(); rel; rel = rel.next_sibling()) {
        if (!isElement(rel, "Relationship") || QByteArray(rel.attribute("TargetMode").value()) == "External")
            continue;
        const QByteArray type = rel.attribute("Type").value();
        if ((id.isEmpty() || id == rel.attribute("Id").value()) && type.endsWith(typeSuffix))
            return QString::fromUtf8(rel.attribute("Target").value());
    }
    return QString();
}

} // namespace

Worksheet *Workbook::setPictureSheet(const QString &name, const std::vector<SheetPicture> &pictures)
{
    Impl::SheetInfo *info = d->sheetInfo(name);
    if (info && info->part.isEmpty())
        fail(ErrorKind::Damaged, QStringLiteral("%1 is not a worksheet").arg(name));
    if (!info) {
        pugi::xml_node root = d->workbookDoc.document_element();
        pugi::xml_node list = childElement(root, "sheets");
        if (!list || !d->workbookRels.document_element())
            fail(ErrorKind::Damaged, QStringLiteral("the workbook lists no sheets"));
        long long sheetId = 0;
        for (pugi::xml_node s = list.first_child(); s; s = s.next_sibling())
            sheetId = std::max(sheetId, s.attribute("sheetId").as_llong());
        QString id = QStringLiteral("rIdPictures");
        while (!relationshipTarget(d->workbookRels, id.toUtf8(), "").isEmpty())
            id += QLatin1Char('x');
        const QString part = freePart(*d, QStringLiteral("xl/worksheets/pictures"), QStringLiteral("xml"));
        pugi::xml_node sheet = list.append_child((prefixOf(root) + "sheet").c_str());
        sheet.append_attribute("name") = name.toUtf8().constData();
        sheet.append_attribute("sheetId") = sheetId + 1;
        sheet.append_attribute((relationshipPrefix(root) + ":id").c_str()) = id.toUtf8().constData();
        pugi::xml_node rels = d->workbookRels.document_element();
        pugi::xml_node rel = rels.append_child((prefixOf(rels) + "Relationship").c_str());
        rel.append_attribute("Id") = id.toUtf8().constData();
        rel.append_attribute("Type") = (QByteArray(kRelType) + "worksheet").constData();
        rel.append_attribute("Target") = relativeTarget(d->workbookPart, part).toUtf8().constData();
        d->workbookRelsChanged = true;
        Impl::SheetInfo added;
        added.name = name;
        added.part = part;
        added.node = sheet;
        d->sheets.push_back(std::move(added));
        info = &d->sheets.back();
    }
    // The sheet is made anew: an earlier parse of it no longer counts.
    info->sheet.reset();
    d->parsedParts.remove(info->part.toLower());

    d->loadContentTypes();
    pugi::xml_node types = d->contentTypes.document_element();
    const QString drawing = freePart(*d, QStringLiteral("xl/drawings/pictures"), QStringLiteral("xml"));
    ensureContentType(types, "Override", "PartName", QLatin1Char('/') + info->part,
                      "application/vnd.openxmlformats-officedocument.spreadsheetml.worksheet+xml");
    ensureContentType(types, "Override", "PartName", QLatin1Char('/') + drawing,
                      "application/vnd.openxmlformats-officedocument.drawing+xml");
    std::vector<std::pair<QString, QString>> images;
    for (size_t i = 0; i < pictures.size(); ++i) {
        const QByteArray extension = imageExtension(pictures[i].image);
        if (extension.isEmpty())
            fail(ErrorKind::WriteFailed, QStringLiteral("picture %1 is neither JPEG nor PNG").arg(i + 1));
        ensureContentType(types, "Default", "Extension", QString::fromLatin1(extension), ("image/" + extension).constData());
        const QString media = freePart(*d, QStringLiteral("xl/media/picture"), QString::fromLatin1(extension));
        d->put(media, pictures[i].image);
        images.emplace_back(QStringLiteral("rId%1").arg(i + 1), relativeTarget(drawing, media));
    }
    d->contentTypesChanged = true;
    d->put(drawing, drawingXml(pictures));
    d->put(relsPathOf(drawing), relationships(images, "image"));
    d->put(relsPathOf(info->part), relationships({{QStringLiteral("rId1"), relativeTarget(info->part, drawing)}}, "drawing"));
    d->put(info->part, kPictureSheet);
    return d->worksheet(*info);
}

std::vector<SheetPicture> Workbook::sheetPictures(const QString &name, int maxPictures)
{
    std::vector<SheetPicture> pictures;
    const Impl::SheetInfo *info = d->sheetInfo(name);
    if (!info || info->part.isEmpty() || !d->has(relsPathOf(info->part)))
        return pictures;
    pugi::xml_document sheetRels;
    d->loadXml(sheetRels, relsPathOf(info->part));
    const QString target = relationshipTarget(sheetRels, QByteArray(), "/drawing");
    if (target.isEmpty())
        return pictures;
    const QString drawing = resolveTarget(info->part, target);
    if (!d->has(drawing))
        fail(ErrorKind::Damaged, QStringLiteral("missing part %1").arg(drawing));
    pugi::xml_document drawingDoc, drawingRels;
    d->loadXml(drawingDoc, drawing);
    if (d->has(relsPathOf(drawing)))
        d->loadXml(drawingRels, relsPathOf(drawing));
    for (pugi::xml_node anchor = drawingDoc.document_element().first_child(); anchor; anchor = anchor.next_sibling()) {
        const bool oneCell = isElement(anchor, "oneCellAnchor");
        if (!oneCell && !isElement(anchor, "twoCellAnchor"))
            continue;
        const pugi::xml_node pic = childElement(anchor, "pic");
        pugi::xml_node blip = childElement(childElement(pic, "blipFill"), "blip");
        if (!blip)
            continue;
        if (int(pictures.size()) >= maxPictures)
            fail(ErrorKind::TooLarge, QStringLiteral("%1: more than %2 pictures").arg(name).arg(maxPictures));
        QByteArray embed;
        for (pugi::xml_attribute a = blip.first_attribute(); a; a = a.next_attribute())
            if (std::strcmp(localName(a.name()), "embed") == 0)
                embed = a.value();
        const QString imageTarget = embed.isEmpty() ? QString() : relationshipTarget(drawingRels, embed, "/image");
        const QString imagePart = resolveTarget(drawing, imageTarget);
        if (imageTarget.isEmpty() || !d->has(imagePart))
            fail(ErrorKind::Damaged, QStringLiteral("%1: a picture without its image").arg(name));
        SheetPicture p;
        p.image = d->read(imagePart);
        if (imageExtension(p.image).isEmpty())
            fail(ErrorKind::Damaged, QStringLiteral("%1 is neither JPEG nor PNG").arg(imagePart));
        const pugi::xml_node from = childElement(anchor, "from");
        p.row = anchorNumber(from, "row", kMaxRows - 1) + 1;
        p.column = anchorNumber(from, "col", kMaxColumns - 1) + 1;
        if (p.row < 1 || p.column < 1)
            fail(ErrorKind::Damaged, QStringLiteral("%1: a picture anchored outside the sheet").arg(name));
        const pugi::xml_node ext = oneCell ? childElement(anchor, "ext")
                                           : childElement(childElement(childElement(pic, "spPr"), "xfrm"), "ext");
        p.widthPx = shownPixels(ext, "cx");
        p.heightPx = shownPixels(ext, "cy");
        p.name = QString::fromUtf8(childElement(childElement(pic, "nvPicPr"), "cNvPr").attribute("name").value()).left(255);
        pictures.push_back(std::move(p));
    }
    return pictures;
}

} // namespace est::workbook
