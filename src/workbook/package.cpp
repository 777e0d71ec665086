#include "workbook/package.h"

#include "workbook/cell_text.h"
#include "workbook/worksheet_impl.h"
#include "workbook/xml_part.h"
#include "workbook/zip_check.h"

#include <QStringList>

#include <algorithm>
#include <set>
#include <cstring>

namespace est::workbook {

using namespace detail;

namespace {

QString directoryOf(const QString &part)
{
    const qsizetype slash = part.lastIndexOf(QLatin1Char('/'));
    return slash < 0 ? QString() : part.left(slash + 1);
}

} // namespace

QString detail::resolveTarget(const QString &ownerPart, const QString &target)
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

QString detail::relsPathOf(const QString &part)
{
    const qsizetype slash = part.lastIndexOf(QLatin1Char('/'));
    return part.left(slash + 1) + QStringLiteral("_rels/") + part.mid(slash + 1) + QStringLiteral(".rels");
}

namespace {

bool typeIs(const char *type, const char *suffix)
{
    const size_t a = std::strlen(type), b = std::strlen(suffix);
    return a >= b && std::strcmp(type + a - b, suffix) == 0;
}

} // namespace

Workbook::Impl::~Impl()
{
    if (archive)
        zip_discard(archive);
    else if (source)
        zip_source_free(source);
}

const Workbook::Impl::Entry *Workbook::Impl::find(const QString &part) const
{
    for (const Entry &e : entries)
        if (e.name.compare(part, Qt::CaseInsensitive) == 0)
            return &e;
    return nullptr;
}

void Workbook::Impl::put(const QString &part, const QByteArray &content)
{
    const Entry *entry = find(part);
    const QString name = entry ? entry->name : part;
    if (!entry && std::find(added.begin(), added.end(), name) == added.end())
        added.push_back(name);
    removed.remove(name);
    replaced.insert(name, content);
}

QByteArray Workbook::Impl::read(const QString &part) const
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
    if (qint64(st.size) > limits.maxInflatedBytes - inflatedBytes)
        fail(ErrorKind::TooLarge, QStringLiteral("%1: more than %2 bytes inflated in all").arg(part).arg(limits.maxInflatedBytes));
    inflatedBytes += qint64(st.size);
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

namespace {

// An upper bound of what parsing the text costs: its copies, a node for each markup start and
// each text between (64 bytes each, plus the worksheet's index of cells), an attribute for
// each "=" (40 bytes).
qint64 parseCost(const QByteArray &xml)
{
    // One pass over the text: this runs on every part that is parsed.
    qint64 elements = 0;
    qint64 attributes = 0;
    for (const char c : xml) {
        elements += c == '<';
        attributes += c == '=';
    }
    return 3 * qint64(xml.size()) + 144 * elements + 40 * attributes;
}

} // namespace

void Workbook::Impl::admitParse(const QString &part, const QByteArray &bytes)
{
    const QString key = part.toLower();
    if (parsedParts.contains(key))
        fail(ErrorKind::Damaged, QStringLiteral("%1 is used twice").arg(part));
    const qint64 cost = parseCost(bytes);
    if (cost > limits.maxParsedBytes - parsedBytes)
        fail(ErrorKind::TooLarge, QStringLiteral("%1: parsing would take more than %2 bytes in all")
                                      .arg(part)
                                      .arg(limits.maxParsedBytes));
    parsedBytes += cost;
    parsedParts.insert(key);
}

void Workbook::Impl::loadXml(pugi::xml_document &doc, const QString &part, const QByteArray &readBytes)
{
    const QByteArray bytes = readBytes.isNull() ? read(part) : readBytes;
    admitParse(part, bytes);
    parseXml(doc, bytes, part);
}

void Workbook::Impl::loadContentTypes()
{
    if (!contentTypesLoaded) {
        loadXml(contentTypes, QStringLiteral("[Content_Types].xml"));
        contentTypesLoaded = true;
    }
}

void Workbook::Impl::openPackage()
{
    checkZipStructure(bytes, limits);
    zip_error_t error;
    zip_error_init(&error);
    source = zip_source_buffer_create(bytes.constData(), zip_uint64_t(bytes.size()), 0, &error);
    if (!source)
        fail(ErrorKind::NotAWorkbook, QString::fromUtf8(zip_error_strerror(&error)));
    archive = zip_open_from_source(source, ZIP_RDONLY | ZIP_CHECKCONS, &error);
    if (!archive) {
        const QString why = QString::fromUtf8(zip_error_strerror(&error));
        zip_error_fini(&error);
        // The structure looked right, so the archive is damaged rather than something else.
        fail(ErrorKind::Damaged, why);
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
    std::set<QString> sheetParts;
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
        info.node = s;
        if (target.first.endsWith(QLatin1String("/worksheet")))
            info.part = target.second;
        if (!info.part.isEmpty() && !sheetParts.insert(info.part.toLower()).second)
            fail(ErrorKind::Damaged, QStringLiteral("two sheets on %1").arg(info.part));
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
    if (styles.loaded())
        return;
    if (stylesPart.isEmpty() || !has(stylesPart))
        fail(ErrorKind::Damaged, QStringLiteral("the workbook has no styles"));
    const QByteArray xml = read(stylesPart);
    admitParse(stylesPart, xml);
    styles.load(xml, stylesPart);
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
    if (styles.changed())
        replaced.insert(stylesPart, styles.serialised());
    for (SheetInfo &info : sheets) {
        if (info.sheet && info.sheet->d->dirty && !deflated.contains(info.part)) {
            info.sheet->d->updateDimension();
            replaced.insert(info.part, serialise(info.sheet->d->doc));
        }
    }
}

void Workbook::Impl::verifyCopiedPart(const Entry &entry) const
{
    zip_file_t *file = zip_fopen_index(archive, entry.index, 0);
    if (!file)
        fail(ErrorKind::Damaged, QStringLiteral("%1: %2").arg(entry.name, QString::fromUtf8(zip_strerror(archive))));
    char buffer[64 * 1024];
    zip_int64_t n = 0;
    while ((n = zip_fread(file, buffer, sizeof buffer)) > 0) {
        inflatedBytes += n;
        if (inflatedBytes > limits.maxInflatedBytes) {
            zip_fclose(file);
            fail(ErrorKind::TooLarge, QStringLiteral("%1: more than %2 bytes inflated in all").arg(entry.name).arg(limits.maxInflatedBytes));
        }
    }
    const QString error = QString::fromUtf8(zip_file_strerror(file));
    zip_fclose(file);
    if (n < 0)
        fail(ErrorKind::Damaged, QStringLiteral("%1: %2").arg(entry.name, error));
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
            const auto compressed = deflated.constFind(entry.name);
            if (compressed != deflated.cend()) {
                check(SaveStep::BuildPackage, entry.name);
                data = deflatedSource(target, *compressed);
            } else if (newContent != replaced.cend()) {
                check(SaveStep::BuildPackage, entry.name);
                // The hash keeps the bytes alive until the archive is closed.
                data = zip_source_buffer(target, newContent->constData(), zip_uint64_t(newContent->size()), 0);
            } else {
                // Copied as it is, without deflating again, once it is known to be intact.
                verifyCopiedPart(entry);
                data = zip_source_zip(target, archive, entry.index, ZIP_FL_COMPRESSED, 0, 0);
            }
            if (!data)
                abandon(QString::fromUtf8(zip_strerror(target)));
            const zip_int64_t index = zip_file_add(target, name.constData(), data, ZIP_FL_ENC_UTF_8);
            if (index < 0) {
                zip_source_free(data);
                abandon(QString::fromUtf8(zip_strerror(target)));
            }
            if (newContent != replaced.cend() || compressed != deflated.cend())
                zip_set_file_compression(target, zip_uint64_t(index), ZIP_CM_DEFLATE, 6);
        }
        for (const QString &part : added) {
            check(SaveStep::BuildPackage, part);
            const QByteArray &content = *replaced.constFind(part);
            zip_source_t *data = zip_source_buffer(target, content.constData(), zip_uint64_t(content.size()), 0);
            if (!data)
                abandon(QString::fromUtf8(zip_strerror(target)));
            const zip_int64_t index = zip_file_add(target, part.toUtf8().constData(), data, ZIP_FL_ENC_UTF_8);
            if (index < 0) {
                zip_source_free(data);
                abandon(QString::fromUtf8(zip_strerror(target)));
            }
            // Pictures are compressed already.
            const bool picture = part.startsWith(QLatin1String("xl/media/"));
            zip_set_file_compression(target, zip_uint64_t(index), picture ? ZIP_CM_STORE : ZIP_CM_DEFLATE, picture ? 0 : 6);
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

} // namespace est::workbook
