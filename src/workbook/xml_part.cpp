#include "workbook/xml_part.h"

#include <cstring>

namespace est::workbook::detail {

void fail(ErrorKind kind, const QString &detail)
{
    throw WorkbookError(kind, detail);
}

const char *localName(const char *name)
{
    const char *colon = std::strrchr(name, ':');
    return colon ? colon + 1 : name;
}

bool isElement(const pugi::xml_node &node, const char *local)
{
    return node.type() == pugi::node_element && std::strcmp(localName(node.name()), local) == 0;
}

pugi::xml_node childElement(const pugi::xml_node &parent, const char *local)
{
    for (pugi::xml_node n = parent.first_child(); n; n = n.next_sibling())
        if (isElement(n, local))
            return n;
    return {};
}

std::string prefixOf(const pugi::xml_node &root)
{
    const char *name = root.name();
    const char *colon = std::strrchr(name, ':');
    return colon ? std::string(name, colon - name + 1) : std::string();
}

namespace {
constexpr unsigned kParseOptions = pugi::parse_default | pugi::parse_ws_pcdata | pugi::parse_declaration;
} // namespace

void parseXml(pugi::xml_document &doc, const QByteArray &bytes, const QString &part)
{
    const pugi::xml_parse_result result =
        doc.load_buffer(bytes.constData(), size_t(bytes.size()), kParseOptions, pugi::encoding_auto);
    if (!result)
        fail(ErrorKind::Damaged, QStringLiteral("%1: %2 (offset %3)")
                                     .arg(part, QString::fromUtf8(result.description()))
                                     .arg(result.offset));
    if (!doc.document_element())
        fail(ErrorKind::Damaged, QStringLiteral("%1: no root element").arg(part));
}

namespace {
struct Writer : pugi::xml_writer
{
    QByteArray out;
    void write(const void *data, size_t size) override
    {
        out.append(static_cast<const char *>(data), qsizetype(size));
    }
};
} // namespace

QByteArray serialiseNode(const pugi::xml_node &node)
{
    Writer writer;
    node.print(writer, "", pugi::format_raw, pugi::encoding_utf8);
    return writer.out;
}

QByteArray serialise(const pugi::xml_document &doc)
{
    Writer writer;
    // Keeps the declaration the part came with; adds none of its own.
    doc.save(writer, "", pugi::format_raw | pugi::format_no_declaration, pugi::encoding_utf8);
    if (!doc.first_child() || doc.first_child().type() != pugi::node_declaration)
        writer.out.prepend("<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n");
    return writer.out;
}

} // namespace est::workbook::detail
