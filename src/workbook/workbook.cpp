#include "workbook/workbook.h"

#include "common/money.h"
#include "common/number_format.h"

#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QSaveFile>
#include <QSet>

#include <pugixml.hpp>
#include <zip.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <map>
#include <vector>

namespace est::workbook {

WorkbookError::WorkbookError(ErrorKind kind, const QString &detail)
    : std::runtime_error(detail.toStdString()), m_kind(kind), m_detail(detail)
{
}

namespace {

[[noreturn]] void fail(ErrorKind kind, const QString &detail)
{
    throw WorkbookError(kind, detail);
}

// ---- cell addresses ------------------------------------------------------------------

bool isLetter(char c) { return c >= 'A' && c <= 'Z'; }
bool isLowerLetter(char c) { return c >= 'a' && c <= 'z'; }
bool isDigit(char c) { return c >= '0' && c <= '9'; }

// ---- XML helpers ---------------------------------------------------------------------

// Element names are compared without their namespace prefix: some writers use "x:row".
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

// The prefix ("" or "x:") used by the document's root element, for the elements we add.
std::string prefixOf(const pugi::xml_node &root)
{
    const char *name = root.name();
    const char *colon = std::strrchr(name, ':');
    return colon ? std::string(name, colon - name + 1) : std::string();
}

constexpr unsigned kParseOptions = pugi::parse_default | pugi::parse_ws_pcdata | pugi::parse_declaration;

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

QByteArray serialise(const pugi::xml_document &doc)
{
    struct Writer : pugi::xml_writer
    {
        QByteArray out;
        void write(const void *data, size_t size) override
        {
            out.append(static_cast<const char *>(data), qsizetype(size));
        }
    } writer;
    // Keeps the declaration the part came with; adds none of its own.
    doc.save(writer, "", pugi::format_raw | pugi::format_no_declaration, pugi::encoding_utf8);
    if (!doc.first_child() || doc.first_child().type() != pugi::node_declaration)
        writer.out.prepend("<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n");
    return writer.out;
}

// ---- text escapes ---------------------------------------------------------------------

// Characters XML 1.0 cannot carry (and CR, which parsers turn into LF) are written as
// "_xHHHH_", the spreadsheet convention; a literal "_x" that would look like one is escaped.
bool looksLikeEscape(const QString &s, qsizetype i)
{
    if (i + 7 > s.size())
        return false;
    if (s.at(i) != QLatin1Char('_') || s.at(i + 1) != QLatin1Char('x') || s.at(i + 6) != QLatin1Char('_'))
        return false;
    for (qsizetype k = i + 2; k < i + 6; ++k) {
        const QChar c = s.at(k);
        if (!(c.isDigit() || (c >= QLatin1Char('a') && c <= QLatin1Char('f')) ||
              (c >= QLatin1Char('A') && c <= QLatin1Char('F'))))
            return false;
    }
    return true;
}

QString escapeCellText(const QString &text)
{
    QString out;
    out.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text.at(i);
        const ushort u = c.unicode();
        const bool forbidden = (u < 0x20 && u != '\t' && u != '\n') || u == 0xFFFE || u == 0xFFFF;
        if (forbidden || looksLikeEscape(text, i))
            out += QLatin1String("_x") + QString::number(u, 16).rightJustified(4, QLatin1Char('0')).toUpper() +
                   QLatin1Char('_');
        else
            out += c;
    }
    return out;
}

QString unescapeCellText(const QString &text)
{
    if (!text.contains(QLatin1String("_x")))
        return text;
    QString out;
    out.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (looksLikeEscape(text, i)) {
            out += QChar(ushort(text.mid(i + 2, 4).toUShort(nullptr, 16)));
            i += 6;
        } else {
            out += text.at(i);
        }
    }
    return out;
}

bool needsPreserve(const QString &text)
{
    if (text.isEmpty())
        return false;
    auto ws = [](QChar c) { return c == QLatin1Char(' ') || c == QLatin1Char('\t') || c == QLatin1Char('\n'); };
    return ws(text.front()) || ws(text.back()) || text.contains(QLatin1String("  "));
}

// Text of a string item: <t> directly, or the runs <r><t>; phonetic runs (<rPh>) are skipped.
QString stringItemText(const pugi::xml_node &item)
{
    QString text;
    for (pugi::xml_node n = item.first_child(); n; n = n.next_sibling()) {
        if (isElement(n, "t"))
            text += QString::fromUtf8(n.text().get());
        else if (isElement(n, "r"))
            text += QString::fromUtf8(childElement(n, "t").text().get());
    }
    return unescapeCellText(text);
}

// ---- package paths -------------------------------------------------------------------

QString directoryOf(const QString &part)
{
    const qsizetype slash = part.lastIndexOf(QLatin1Char('/'));
    return slash < 0 ? QString() : part.left(slash + 1);
}

// A relationship target relative to the part that owns the relationships.
QString resolveTarget(const QString &ownerPart, const QString &target)
{
    QString path = target.startsWith(QLatin1Char('/')) ? target.mid(1) : directoryOf(ownerPart) + target;
    QStringList out;
    for (const QString &seg : path.split(QLatin1Char('/'), Qt::SkipEmptyParts)) {
        if (seg == QLatin1String(".."))
            out.isEmpty() ? void() : out.removeLast();
        else if (seg != QLatin1String("."))
            out.append(seg);
    }
    return out.join(QLatin1Char('/'));
}

QString relsPathOf(const QString &part)
{
    const qsizetype slash = part.lastIndexOf(QLatin1Char('/'));
    return part.left(slash + 1) + QStringLiteral("_rels/") + part.mid(slash + 1) + QStringLiteral(".rels");
}

bool typeIs(const char *type, const char *suffix)
{
    const size_t a = std::strlen(type), b = std::strlen(suffix);
    return a >= b && std::strcmp(type + a - b, suffix) == 0;
}

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

} // namespace

// ---- addresses ---------------------------------------------------------------------------

QByteArray columnLetters(int column)
{
    QByteArray letters;
    while (column > 0) {
        const int rem = (column - 1) % 26;
        letters.prepend(char('A' + rem));
        column = (column - 1) / 26;
    }
    return letters;
}

QByteArray cellAddress(int row, int column)
{
    return columnLetters(column) + QByteArray::number(row);
}

std::optional<CellAddress> parseCellAddress(const QByteArray &text)
{
    qsizetype i = 0;
    qint64 column = 0;
    while (i < text.size() && (isLetter(text.at(i)) || isLowerLetter(text.at(i)))) {
        const char c = isLetter(text.at(i)) ? text.at(i) : char(text.at(i) - 'a' + 'A');
        column = column * 26 + (c - 'A' + 1);
        if (column > kMaxColumns)
            return std::nullopt;
        ++i;
    }
    if (i == 0 || i == text.size())
        return std::nullopt;
    qint64 row = 0;
    for (; i < text.size(); ++i) {
        if (!isDigit(text.at(i)))
            return std::nullopt;
        row = row * 10 + (text.at(i) - '0');
        if (row > kMaxRows)
            return std::nullopt;
    }
    if (row < 1)
        return std::nullopt;
    return CellAddress{int(row), int(column)};
}

// ---- value conversions -------------------------------------------------------------------

std::optional<double> cellNumber(const CellValue &value)
{
    if (std::holds_alternative<std::monostate>(value))
        return 0.0;
    if (const double *d = std::get_if<double>(&value))
        return *d;
    if (const bool *b = std::get_if<bool>(&value))
        return *b ? -1.0 : 0.0;
    if (const QString *s = std::get_if<QString>(&value))
        return parseDisplayedNumber(*s);
    return std::nullopt;
}

QString cellText(const CellValue &value)
{
    if (const QString *s = std::get_if<QString>(&value))
        return *s;
    if (const double *d = std::get_if<double>(&value)) {
        if (*d == 0)
            return QStringLiteral("0");
        return QString::number(*d, 'g', 15);
    }
    if (const bool *b = std::get_if<bool>(&value))
        return *b ? QStringLiteral("True") : QStringLiteral("False");
    if (const CellErrorValue *e = std::get_if<CellErrorValue>(&value))
        return e->code;
    return QString();
}

std::optional<std::int16_t> cellInt16(const CellValue &value)
{
    const auto n = cellNumber(value);
    return n ? roundToInt16(*n) : std::nullopt;
}

std::optional<std::int32_t> cellInt32(const CellValue &value)
{
    const auto n = cellNumber(value);
    return n ? roundToYen(*n) : std::nullopt;
}

std::optional<bool> cellBool(const CellValue &value)
{
    if (const bool *b = std::get_if<bool>(&value))
        return *b;
    if (std::holds_alternative<std::monostate>(value))
        return false;
    if (const double *d = std::get_if<double>(&value))
        return *d != 0;
    if (const QString *s = std::get_if<QString>(&value)) {
        const QString t = s->trimmed();
        if (t.compare(QLatin1String("true"), Qt::CaseInsensitive) == 0)
            return true;
        if (t.compare(QLatin1String("false"), Qt::CaseInsensitive) == 0)
            return false;
        if (const auto n = parseDisplayedNumber(t))
            return *n != 0;
    }
    return std::nullopt;
}

// ---- the package -------------------------------------------------------------------------

struct Workbook::Impl
{
    Limits limits;
    QByteArray bytes;
    zip_source_t *source = nullptr;
    zip_t *archive = nullptr;

    struct Entry
    {
        QString name;
        zip_uint64_t index;
    };
    std::vector<Entry> entries;
    QHash<QString, QByteArray> replaced;   // part -> new content
    QSet<QString> removed;

    QString workbookPart;
    pugi::xml_document workbookDoc;
    pugi::xml_document workbookRels;
    bool workbookRelsChanged = false;
    pugi::xml_document contentTypes;
    bool contentTypesLoaded = false;
    bool contentTypesChanged = false;

    struct SheetInfo
    {
        QString name;
        QString part;   // empty for sheets that are not worksheets
        std::unique_ptr<Worksheet> sheet;
    };
    std::vector<SheetInfo> sheets;

    QString sharedStringsPart;
    bool sharedStringsLoaded = false;
    std::vector<QString> sharedStrings;

    QString stylesPart;
    pugi::xml_document styles;
    bool stylesLoaded = false;
    bool stylesChanged = false;
    std::map<std::pair<int, int>, int> derivedXfs;   // (old xf, numFmtId) -> new xf

    ~Impl()
    {
        if (archive)
            zip_discard(archive);
        else if (source)
            zip_source_free(source);
    }

    const Entry *find(const QString &part) const
    {
        for (const Entry &e : entries)
            if (e.name.compare(part, Qt::CaseInsensitive) == 0)
                return &e;
        return nullptr;
    }

    bool has(const QString &part) const { return find(part) && !removed.contains(part); }

    QByteArray read(const QString &part) const
    {
        if (replaced.contains(part))
            return replaced.value(part);
        const Entry *entry = find(part);
        if (!entry || removed.contains(part))
            fail(ErrorKind::Damaged, QStringLiteral("missing part %1").arg(part));
        zip_stat_t st;
        zip_stat_init(&st);
        if (zip_stat_index(archive, entry->index, 0, &st) != 0 || !(st.valid & ZIP_STAT_SIZE))
            fail(ErrorKind::Damaged, QStringLiteral("%1: unreadable entry").arg(part));
        if (st.size > zip_uint64_t(limits.maxPartBytes))
            fail(ErrorKind::TooLarge, QStringLiteral("%1: %2 bytes").arg(part).arg(st.size));
        zip_file_t *file = zip_fopen_index(archive, entry->index, 0);
        if (!file)
            fail(ErrorKind::Damaged, QStringLiteral("%1: %2").arg(part, QString::fromUtf8(zip_strerror(archive))));
        QByteArray data(qsizetype(st.size), Qt::Uninitialized);
        qint64 got = 0;
        while (got < data.size()) {
            const zip_int64_t n = zip_fread(file, data.data() + got, zip_uint64_t(data.size() - got));
            if (n <= 0)
                break;
            got += n;
        }
        char extra;
        const zip_int64_t more = got == data.size() ? zip_fread(file, &extra, 1) : -1;
        const QString error = QString::fromUtf8(zip_file_strerror(file));
        zip_fclose(file);
        if (got != data.size() || more != 0)
            fail(ErrorKind::Damaged, QStringLiteral("%1: %2").arg(part, error));
        return data;
    }

    void loadXml(pugi::xml_document &doc, const QString &part) const { parseXml(doc, read(part), part); }

    void loadContentTypes()
    {
        if (!contentTypesLoaded) {
            loadXml(contentTypes, QStringLiteral("[Content_Types].xml"));
            contentTypesLoaded = true;
        }
    }

    void openPackage();
    void loadSharedStrings();
    void loadStyles();
    int derivedXf(int xf, int numFmtId);
    int numFmtIdFor(const QString &format);
    QString formatOfXf(int xf);
    void prepareForSave();
    QByteArray build(const SaveFault &fault);
};

struct Worksheet::Impl
{
    Workbook::Impl *book = nullptr;
    QString name;
    QString part;
    pugi::xml_document doc;
    pugi::xml_node sheetData;
    std::string prefix;
    bool dirty = false;

    struct CellEntry
    {
        int column;
        pugi::xml_node node;
    };
    struct RowEntry
    {
        int row;
        pugi::xml_node node;
        std::vector<CellEntry> cells;
    };
    std::vector<RowEntry> rows;

    void load();
    pugi::xml_node findCell(int row, int column) const;
    pugi::xml_node cell(int row, int column);
    pugi::xml_node clearedCell(int row, int column);
    void updateDimension();
};

void Workbook::Impl::openPackage()
{
    zip_error_t error;
    zip_error_init(&error);
    source = zip_source_buffer_create(bytes.constData(), zip_uint64_t(bytes.size()), 0, &error);
    if (!source)
        fail(ErrorKind::NotAWorkbook, QString::fromUtf8(zip_error_strerror(&error)));
    archive = zip_open_from_source(source, ZIP_RDONLY | ZIP_CHECKCONS, &error);
    if (!archive) {
        const QString why = QString::fromUtf8(zip_error_strerror(&error));
        zip_error_fini(&error);
        fail(ErrorKind::NotAWorkbook, why);
    }
    const zip_int64_t count = zip_get_num_entries(archive, 0);
    if (count > limits.maxEntries)
        fail(ErrorKind::TooLarge, QStringLiteral("%1 parts").arg(count));
    for (zip_int64_t i = 0; i < count; ++i) {
        const char *name = zip_get_name(archive, zip_uint64_t(i), 0);
        if (name)
            entries.push_back({QString::fromUtf8(name), zip_uint64_t(i)});
    }

    if (!has(QStringLiteral("_rels/.rels")) || !has(QStringLiteral("[Content_Types].xml")))
        fail(ErrorKind::NotAWorkbook, QStringLiteral("no package relationships"));
    pugi::xml_document rootRels;
    loadXml(rootRels, QStringLiteral("_rels/.rels"));
    for (pugi::xml_node rel = rootRels.document_element().first_child(); rel; rel = rel.next_sibling())
        if (isElement(rel, "Relationship") && typeIs(rel.attribute("Type").value(), "/officeDocument"))
            workbookPart = resolveTarget(QString(), QString::fromUtf8(rel.attribute("Target").value()));
    if (workbookPart.isEmpty() || !has(workbookPart))
        fail(ErrorKind::NotAWorkbook, QStringLiteral("no workbook part"));
    loadXml(workbookDoc, workbookPart);
    if (!isElement(workbookDoc.document_element(), "workbook"))
        fail(ErrorKind::NotAWorkbook, QStringLiteral("%1 is not a workbook").arg(workbookPart));

    const QString relsPart = relsPathOf(workbookPart);
    QHash<QString, std::pair<QString, QString>> targets;   // id -> (type, part)
    if (has(relsPart)) {
        loadXml(workbookRels, relsPart);
        for (pugi::xml_node rel = workbookRels.document_element().first_child(); rel; rel = rel.next_sibling()) {
            if (!isElement(rel, "Relationship") ||
                QByteArray(rel.attribute("TargetMode").value()) == "External")
                continue;
            const QString type = QString::fromUtf8(rel.attribute("Type").value());
            const QString part = resolveTarget(workbookPart, QString::fromUtf8(rel.attribute("Target").value()));
            targets.insert(QString::fromUtf8(rel.attribute("Id").value()), {type, part});
            if (type.endsWith(QLatin1String("/sharedStrings")))
                sharedStringsPart = part;
            else if (type.endsWith(QLatin1String("/styles")))
                stylesPart = part;
        }
    }

    const pugi::xml_node sheetList = childElement(workbookDoc.document_element(), "sheets");
    for (pugi::xml_node s = sheetList.first_child(); s; s = s.next_sibling()) {
        if (!isElement(s, "sheet"))
            continue;
        QString id;
        for (pugi::xml_attribute a = s.first_attribute(); a; a = a.next_attribute())
            if (std::strcmp(localName(a.name()), "id") == 0 && std::strchr(a.name(), ':'))
                id = QString::fromUtf8(a.value());
        const auto target = targets.value(id);
        SheetInfo info;
        info.name = QString::fromUtf8(s.attribute("name").value());
        if (target.first.endsWith(QLatin1String("/worksheet")))
            info.part = target.second;
        sheets.push_back(std::move(info));
    }
}

void Workbook::Impl::loadSharedStrings()
{
    if (sharedStringsLoaded)
        return;
    sharedStringsLoaded = true;
    if (sharedStringsPart.isEmpty() || !has(sharedStringsPart))
        return;
    pugi::xml_document doc;
    loadXml(doc, sharedStringsPart);
    for (pugi::xml_node si = doc.document_element().first_child(); si; si = si.next_sibling())
        if (isElement(si, "si"))
            sharedStrings.push_back(stringItemText(si));
}

void Workbook::Impl::loadStyles()
{
    if (stylesLoaded)
        return;
    if (stylesPart.isEmpty() || !has(stylesPart))
        fail(ErrorKind::Damaged, QStringLiteral("the workbook has no styles"));
    loadXml(styles, stylesPart);
    stylesLoaded = true;
}

int Workbook::Impl::numFmtIdFor(const QString &format)
{
    for (auto it = builtinFormats().cbegin(); it != builtinFormats().cend(); ++it)
        if (it.value() == format)
            return it.key();
    pugi::xml_node root = styles.document_element();
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
    stylesChanged = true;
    return highest + 1;
}

namespace {
std::vector<pugi::xml_node> cellFormats(const pugi::xml_node &styleSheet)
{
    std::vector<pugi::xml_node> xfs;
    for (pugi::xml_node n = childElement(styleSheet, "cellXfs").first_child(); n; n = n.next_sibling())
        if (isElement(n, "xf"))
            xfs.push_back(n);
    return xfs;
}
} // namespace

QString Workbook::Impl::formatOfXf(int xf)
{
    loadStyles();
    const auto xfs = cellFormats(styles.document_element());
    if (xf < 0 || xf >= int(xfs.size()))
        return builtinFormats().value(0);
    const int id = xfs[size_t(xf)].attribute("numFmtId").as_int();
    if (builtinFormats().contains(id))
        return builtinFormats().value(id);
    for (pugi::xml_node n = childElement(styles.document_element(), "numFmts").first_child(); n; n = n.next_sibling())
        if (isElement(n, "numFmt") && n.attribute("numFmtId").as_int() == id)
            return QString::fromUtf8(n.attribute("formatCode").value());
    return builtinFormats().value(0);
}

// A cell format like `xf` but with another number format; added once and reused.
int Workbook::Impl::derivedXf(int xf, int numFmtId)
{
    const auto known = derivedXfs.find({xf, numFmtId});
    if (known != derivedXfs.end())
        return known->second;
    const pugi::xml_node root = styles.document_element();
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
    stylesChanged = true;
    derivedXfs[{xf, numFmtId}] = index;
    return index;
}

// Spreadsheet programs recalculate formulas on load, and the stale calculation chain goes.
void Workbook::Impl::prepareForSave()
{
    pugi::xml_node root = workbookDoc.document_element();
    const std::string prefix = prefixOf(root);
    pugi::xml_node calcPr = childElement(root, "calcPr");
    if (!calcPr) {
        static const char *const before[] = {"fileVersion", "fileSharing", "workbookPr", "workbookProtection",
                                             "bookViews", "sheets", "functionGroups", "externalReferences",
                                             "definedNames"};
        pugi::xml_node after;
        for (pugi::xml_node n = root.first_child(); n; n = n.next_sibling())
            for (const char *name : before)
                if (isElement(n, name))
                    after = n;
        calcPr = after ? root.insert_child_after((prefix + "calcPr").c_str(), after)
                       : root.prepend_child((prefix + "calcPr").c_str());
    }
    (calcPr.attribute("fullCalcOnLoad") ? calcPr.attribute("fullCalcOnLoad")
                                        : calcPr.append_attribute("fullCalcOnLoad")) = "1";
    replaced.insert(workbookPart, serialise(workbookDoc));

    pugi::xml_node relsRoot = workbookRels.document_element();
    for (pugi::xml_node rel = relsRoot.first_child(); rel;) {
        pugi::xml_node next = rel.next_sibling();
        if (isElement(rel, "Relationship") && typeIs(rel.attribute("Type").value(), "/calcChain")) {
            const QString part = resolveTarget(workbookPart, QString::fromUtf8(rel.attribute("Target").value()));
            relsRoot.remove_child(rel);
            workbookRelsChanged = true;
            if (const Entry *e = find(part))
                removed.insert(e->name);
            loadContentTypes();
            pugi::xml_node types = contentTypes.document_element();
            for (pugi::xml_node o = types.first_child(); o;) {
                pugi::xml_node nextType = o.next_sibling();
                if (isElement(o, "Override") &&
                    QString::fromUtf8(o.attribute("PartName").value()).compare(QLatin1Char('/') + part,
                                                                                 Qt::CaseInsensitive) == 0) {
                    types.remove_child(o);
                    contentTypesChanged = true;
                }
                o = nextType;
            }
        }
        rel = next;
    }
    if (workbookRelsChanged)
        replaced.insert(relsPathOf(workbookPart), serialise(workbookRels));
    if (contentTypesChanged)
        replaced.insert(QStringLiteral("[Content_Types].xml"), serialise(contentTypes));
    if (stylesChanged)
        replaced.insert(stylesPart, serialise(styles));
    for (SheetInfo &info : sheets) {
        if (info.sheet && info.sheet->d->dirty) {
            info.sheet->d->updateDimension();
            replaced.insert(info.part, serialise(info.sheet->d->doc));
        }
    }
}

QByteArray Workbook::Impl::build(const SaveFault &fault)
{
    auto check = [&](SaveStep step, const QString &part) {
        if (fault && fault(step, part))
            fail(ErrorKind::WriteFailed, QStringLiteral("simulated failure: %1").arg(part));
    };
    prepareForSave();

    zip_error_t error;
    zip_error_init(&error);
    zip_source_t *out = zip_source_buffer_create(nullptr, 0, 0, &error);
    if (!out)
        fail(ErrorKind::WriteFailed, QString::fromUtf8(zip_error_strerror(&error)));
    zip_source_keep(out);
    struct SourceGuard
    {
        zip_source_t *s;
        ~SourceGuard() { zip_source_free(s); }
    } guard{out};
    zip_t *target = zip_open_from_source(out, ZIP_TRUNCATE, &error);
    if (!target)
        fail(ErrorKind::WriteFailed, QString::fromUtf8(zip_error_strerror(&error)));
    auto abandon = [&](const QString &why) { fail(ErrorKind::WriteFailed, why); };

    try {
        for (const Entry &entry : entries) {
            if (removed.contains(entry.name))
                continue;
            const QByteArray name = entry.name.toUtf8();
            zip_source_t *data = nullptr;
            const auto newContent = replaced.constFind(entry.name);
            if (newContent != replaced.cend()) {
                check(SaveStep::BuildPackage, entry.name);
                // The hash keeps the bytes alive until the archive is closed.
                data = zip_source_buffer(target, newContent->constData(), zip_uint64_t(newContent->size()), 0);
            } else {
                // Copied as it is, without inflating and deflating again.
                data = zip_source_zip(target, archive, entry.index, ZIP_FL_COMPRESSED, 0, 0);
            }
            if (!data)
                abandon(QString::fromUtf8(zip_strerror(target)));
            const zip_int64_t index = zip_file_add(target, name.constData(), data, ZIP_FL_ENC_UTF_8);
            if (index < 0) {
                zip_source_free(data);
                abandon(QString::fromUtf8(zip_strerror(target)));
            }
            if (newContent != replaced.cend())
                zip_set_file_compression(target, zip_uint64_t(index), ZIP_CM_DEFLATE, 6);
        }
        check(SaveStep::BuildPackage, QString());
    } catch (...) {
        zip_discard(target);
        throw;
    }
    if (zip_close(target) != 0) {
        const QString why = QString::fromUtf8(zip_strerror(target));
        zip_discard(target);
        fail(ErrorKind::WriteFailed, why);
    }

    if (zip_source_open(out) != 0)
        fail(ErrorKind::WriteFailed, QStringLiteral("cannot read the new package"));
    zip_source_seek(out, 0, SEEK_END);
    const zip_int64_t size = zip_source_tell(out);
    zip_source_seek(out, 0, SEEK_SET);
    QByteArray result(qsizetype(std::max<zip_int64_t>(size, 0)), Qt::Uninitialized);
    const zip_int64_t got = zip_source_read(out, result.data(), zip_uint64_t(result.size()));
    zip_source_close(out);
    if (got != size)
        fail(ErrorKind::WriteFailed, QStringLiteral("cannot read the new package"));
    return result;
}

// ---- worksheets --------------------------------------------------------------------------

namespace {
int parsePositive(const char *text, int max)
{
    qint64 value = 0;
    if (!*text)
        return -1;
    for (const char *p = text; *p; ++p) {
        if (!isDigit(*p))
            return -1;
        value = value * 10 + (*p - '0');
        if (value > max)
            return -1;
    }
    return value >= 1 ? int(value) : -1;
}
} // namespace

void Worksheet::Impl::load()
{
    book->loadXml(doc, part);
    const pugi::xml_node root = doc.document_element();
    if (!isElement(root, "worksheet"))
        fail(ErrorKind::Damaged, QStringLiteral("%1 is not a worksheet").arg(part));
    prefix = prefixOf(root);
    sheetData = childElement(root, "sheetData");
    if (!sheetData)
        fail(ErrorKind::Damaged, QStringLiteral("%1 has no cell data").arg(part));
    int lastRow = 0;
    for (pugi::xml_node r = sheetData.first_child(); r; r = r.next_sibling()) {
        if (!isElement(r, "row"))
            continue;
        int rowNumber = lastRow + 1;
        if (pugi::xml_attribute a = r.attribute("r"))
            rowNumber = parsePositive(a.value(), kMaxRows);
        if (rowNumber <= lastRow || rowNumber > kMaxRows)
            fail(ErrorKind::Damaged, QStringLiteral("%1: bad row number %2").arg(part, QString::fromUtf8(r.attribute("r").value())));
        lastRow = rowNumber;
        RowEntry entry{rowNumber, r, {}};
        int lastColumn = 0;
        for (pugi::xml_node c = r.first_child(); c; c = c.next_sibling()) {
            if (!isElement(c, "c"))
                continue;
            int column = lastColumn + 1;
            if (pugi::xml_attribute a = c.attribute("r")) {
                const auto address = parseCellAddress(QByteArray(a.value()));
                if (!address || address->row != rowNumber)
                    fail(ErrorKind::Damaged, QStringLiteral("%1: bad cell address %2").arg(part, QString::fromUtf8(a.value())));
                column = address->column;
            }
            if (column <= lastColumn || column > kMaxColumns)
                fail(ErrorKind::Damaged, QStringLiteral("%1: cells out of order in row %2").arg(part).arg(rowNumber));
            lastColumn = column;
            entry.cells.push_back({column, c});
        }
        rows.push_back(std::move(entry));
    }
}

pugi::xml_node Worksheet::Impl::findCell(int row, int column) const
{
    const auto r = std::lower_bound(rows.begin(), rows.end(), row,
                                    [](const RowEntry &e, int value) { return e.row < value; });
    if (r == rows.end() || r->row != row)
        return {};
    const auto c = std::lower_bound(r->cells.begin(), r->cells.end(), column,
                                    [](const CellEntry &e, int value) { return e.column < value; });
    if (c == r->cells.end() || c->column != column)
        return {};
    return c->node;
}

pugi::xml_node Worksheet::Impl::cell(int row, int column)
{
    if (row < 1 || row > kMaxRows || column < 1 || column > kMaxColumns)
        fail(ErrorKind::Damaged, QStringLiteral("no cell at row %1, column %2").arg(row).arg(column));
    dirty = true;
    auto r = std::lower_bound(rows.begin(), rows.end(), row,
                              [](const RowEntry &e, int value) { return e.row < value; });
    if (r == rows.end() || r->row != row) {
        pugi::xml_node node = r == rows.end()
                                  ? sheetData.append_child((prefix + "row").c_str())
                                  : sheetData.insert_child_before((prefix + "row").c_str(), r->node);
        node.append_attribute("r") = row;
        r = rows.insert(r, RowEntry{row, node, {}});
    }
    auto c = std::lower_bound(r->cells.begin(), r->cells.end(), column,
                              [](const CellEntry &e, int value) { return e.column < value; });
    if (c != r->cells.end() && c->column == column)
        return c->node;
    // "spans" only hints at the cells of a row; it may no longer be true.
    r->node.remove_attribute("spans");
    pugi::xml_node node = c == r->cells.end()
                              ? r->node.append_child((prefix + "c").c_str())
                              : r->node.insert_child_before((prefix + "c").c_str(), c->node);
    node.append_attribute("r") = cellAddress(row, column).constData();
    r->cells.insert(c, CellEntry{column, node});
    return node;
}

// The cell with its value, formula and type removed; its style stays.
pugi::xml_node Worksheet::Impl::clearedCell(int row, int column)
{
    pugi::xml_node node = cell(row, column);
    node.remove_attribute("t");
    node.remove_attribute("cm");
    node.remove_attribute("vm");
    while (pugi::xml_node child = node.first_child())
        node.remove_child(child);
    if (!node.attribute("r"))
        node.append_attribute("r") = cellAddress(row, column).constData();
    return node;
}

void Worksheet::Impl::updateDimension()
{
    int top = 0, bottom = 0, left = 0, right = 0;
    for (const RowEntry &r : rows) {
        if (r.cells.empty())
            continue;
        if (!top)
            top = r.row;
        bottom = r.row;
        left = left ? std::min(left, r.cells.front().column) : r.cells.front().column;
        right = std::max(right, r.cells.back().column);
    }
    QByteArray ref = top ? cellAddress(top, left) : QByteArray("A1");
    if (top && (top != bottom || left != right))
        ref += ':' + cellAddress(bottom, right);
    pugi::xml_node root = doc.document_element();
    pugi::xml_node dimension = childElement(root, "dimension");
    if (!dimension) {
        pugi::xml_node sheetPr = childElement(root, "sheetPr");
        dimension = sheetPr ? root.insert_child_after((prefix + "dimension").c_str(), sheetPr)
                            : root.prepend_child((prefix + "dimension").c_str());
    }
    (dimension.attribute("ref") ? dimension.attribute("ref") : dimension.append_attribute("ref")) = ref.constData();
}

Worksheet::Worksheet(std::unique_ptr<Impl> impl) : d(std::move(impl)) {}
Worksheet::~Worksheet() = default;

QString Worksheet::name() const
{
    return d->name;
}

CellValue Worksheet::value(int row, int column) const
{
    const pugi::xml_node node = d->findCell(row, column);
    if (!node)
        return std::monostate{};
    const std::string_view type = node.attribute("t").value();
    const pugi::xml_node v = childElement(node, "v");
    const char *text = v.text().get();
    if (type == "inlineStr")
        return stringItemText(childElement(node, "is"));
    if (type == "s") {
        d->book->loadSharedStrings();
        const int index = std::strcmp(text, "0") == 0 ? 0 : parsePositive(text, INT32_MAX - 1);
        if (index < 0 || size_t(index) >= d->book->sharedStrings.size())
            return std::monostate{};
        return d->book->sharedStrings[size_t(index)];
    }
    if (!v)
        return std::monostate{};
    if (type == "str")
        return unescapeCellText(QString::fromUtf8(text));
    if (type == "b")
        return std::strcmp(text, "1") == 0 || std::strcmp(text, "true") == 0;
    if (type == "e")
        return CellErrorValue{QString::fromUtf8(text)};
    if (type == "d")
        return QString::fromUtf8(text);
    bool ok = false;
    const double number = QByteArray(text).trimmed().toDouble(&ok);
    if (!ok || !std::isfinite(number))
        return std::monostate{};
    return number;
}

void Worksheet::setText(int row, int column, const QString &text)
{
    pugi::xml_node node = d->clearedCell(row, column);
    node.append_attribute("t") = "inlineStr";
    pugi::xml_node t = node.append_child((d->prefix + "is").c_str()).append_child((d->prefix + "t").c_str());
    const QString escaped = escapeCellText(text);
    if (needsPreserve(escaped))
        t.append_attribute("xml:space") = "preserve";
    t.text().set(escaped.toUtf8().constData());
}

void Worksheet::setInt16(int row, int column, std::int16_t number)
{
    setInt32(row, column, number);
}

void Worksheet::setInt32(int row, int column, std::int32_t number)
{
    pugi::xml_node node = d->clearedCell(row, column);
    node.append_child((d->prefix + "v").c_str()).text().set(int(number));
}

void Worksheet::setBool(int row, int column, bool flag)
{
    pugi::xml_node node = d->clearedCell(row, column);
    node.append_attribute("t") = "b";
    node.append_child((d->prefix + "v").c_str()).text().set(flag ? "1" : "0");
}

void Worksheet::setNumberFormat(int row, int column, const QString &format)
{
    d->book->loadStyles();
    pugi::xml_node node = d->cell(row, column);
    const int id = d->book->numFmtIdFor(format);
    const int xf = d->book->derivedXf(node.attribute("s").as_int(0), id);
    (node.attribute("s") ? node.attribute("s") : node.append_attribute("s")) = xf;
}

QString Worksheet::numberFormat(int row, int column) const
{
    const pugi::xml_node node = d->findCell(row, column);
    return d->book->formatOfXf(node ? node.attribute("s").as_int(0) : 0);
}

void Worksheet::clearFormulaResults()
{
    for (const Impl::RowEntry &r : d->rows) {
        for (const Impl::CellEntry &c : r.cells) {
            if (!childElement(c.node, "f"))
                continue;
            pugi::xml_node node = c.node;
            while (pugi::xml_node v = childElement(node, "v"))
                node.remove_child(v);
            node.remove_attribute("t");
            d->dirty = true;
        }
    }
}

// ---- workbook ----------------------------------------------------------------------------

Workbook::Workbook(std::unique_ptr<Impl> impl) : d(std::move(impl)) {}
Workbook::~Workbook() = default;

std::unique_ptr<Workbook> Workbook::open(const QString &path, const Limits &limits)
{
    QFile file(path);
    if (!QFileInfo(path).isFile())
        fail(ErrorKind::FileMissing, path);
    if (file.size() > limits.maxFileBytes)
        fail(ErrorKind::TooLarge, QStringLiteral("%1: %2 bytes").arg(path).arg(file.size()));
    if (!file.open(QIODevice::ReadOnly))
        fail(ErrorKind::FileUnreadable, file.errorString());
    QByteArray bytes = file.read(limits.maxFileBytes + 1);
    if (bytes.size() > limits.maxFileBytes)
        fail(ErrorKind::TooLarge, path);
    return fromBytes(std::move(bytes), limits);
}

std::unique_ptr<Workbook> Workbook::fromBytes(QByteArray bytes, const Limits &limits)
{
    if (bytes.size() > limits.maxFileBytes)
        fail(ErrorKind::TooLarge, QStringLiteral("%1 bytes").arg(bytes.size()));
    auto impl = std::make_unique<Impl>();
    impl->limits = limits;
    impl->bytes = std::move(bytes);
    impl->openPackage();
    return std::unique_ptr<Workbook>(new Workbook(std::move(impl)));
}

QStringList Workbook::sheetNames() const
{
    QStringList names;
    for (const auto &info : d->sheets)
        names.append(info.name);
    return names;
}

Worksheet *Workbook::sheet(const QString &name)
{
    for (auto &info : d->sheets) {
        if (info.name != name || info.part.isEmpty())
            continue;
        if (!info.sheet) {
            auto impl = std::make_unique<Worksheet::Impl>();
            impl->book = d.get();
            impl->name = info.name;
            impl->part = info.part;
            impl->load();
            info.sheet.reset(new Worksheet(std::move(impl)));
        }
        return info.sheet.get();
    }
    return nullptr;
}

void Workbook::clearFormulaResults(const QStringList &exceptSheets)
{
    for (auto &info : d->sheets) {
        if (info.part.isEmpty() || exceptSheets.contains(info.name))
            continue;
        // A cheap look at the text first: most sheets have no cached results to drop.
        if (!info.sheet && !d->read(info.part).contains("</f><v"))
            continue;
        sheet(info.name)->clearFormulaResults();
    }
}

QByteArray Workbook::toBytes(const SaveFault &fault)
{
    return d->build(fault);
}

void Workbook::save(const QString &path, const SaveFault &fault)
{
    const QByteArray bytes = toBytes(fault);
    auto failed = [&](SaveStep step) { return fault && fault(step, path); };
    QSaveFile file(path);
    if (failed(SaveStep::OpenTemporary) || !file.open(QIODevice::WriteOnly))
        fail(ErrorKind::WriteFailed, file.errorString());
    if (failed(SaveStep::Write)) {
        file.write(bytes.constData(), bytes.size() / 2);
        file.cancelWriting();
        fail(ErrorKind::WriteFailed, QStringLiteral("simulated write failure"));
    }
    if (file.write(bytes) != bytes.size()) {
        const QString why = file.errorString();
        file.cancelWriting();
        fail(ErrorKind::WriteFailed, why);
    }
    if (failed(SaveStep::Commit)) {
        file.cancelWriting();
        fail(ErrorKind::WriteFailed, QStringLiteral("simulated commit failure"));
    }
    if (!file.commit())
        fail(ErrorKind::WriteFailed, file.errorString());
}

} // namespace est::workbook
