#include "workbook/workbook.h"

#include "workbook/atomic_file.h"
#include "workbook/package.h"
#include "workbook/worksheet_impl.h"
#include "workbook/xml_part.h"

#include <QFile>
#include <QFileInfo>

#include <string_view>

namespace est::workbook {

using namespace detail;

WorkbookError::WorkbookError(ErrorKind kind, const QString &detail)
    : std::runtime_error(detail.toStdString()), m_kind(kind), m_detail(detail)
{
}

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
        return d->worksheet(info);
    }
    return nullptr;
}

Worksheet *Workbook::Impl::worksheet(SheetInfo &info, const QByteArray &readBytes)
{
    if (!info.sheet) {
        auto impl = std::make_unique<Worksheet::Impl>();
        impl->book = this;
        impl->name = info.name;
        impl->part = info.part;
        impl->load(readBytes);
        info.sheet.reset(new Worksheet(std::move(impl)));
    }
    return info.sheet.get();
}

void Workbook::clearFormulaResults(const QStringList &exceptSheets)
{
    for (auto &info : d->sheets) {
        if (info.part.isEmpty() || exceptSheets.contains(info.name))
            continue;
        QByteArray text;
        if (!info.sheet) {
            // A cheap look at the text first: most sheets have no cached results to drop.
            text = d->read(info.part);
            if (!text.contains("</f><v"))
                continue;
        }
        d->worksheet(info, text)->clearFormulaResults();
    }
}

Workbook::Impl::SheetInfo *Workbook::Impl::sheetInfo(const QString &name)
{
    for (SheetInfo &info : sheets)
        if (info.name == name)
            return &info;
    return nullptr;
}

const Workbook::Impl::SheetInfo *Workbook::Impl::sheetInfo(const QString &name) const
{
    return const_cast<Impl *>(this)->sheetInfo(name);
}

void Workbook::setSheetHidden(const QString &name, bool hidden)
{
    Impl::SheetInfo *info = d->sheetInfo(name);
    if (!info)
        return;
    pugi::xml_node node = info->node;
    node.remove_attribute("state");
    if (hidden)
        node.append_attribute("state") = "hidden";
}

bool Workbook::sheetHidden(const QString &name) const
{
    const Impl::SheetInfo *info = d->sheetInfo(name);
    return info && std::string_view(info->node.attribute("state").value()) != "" &&
           std::string_view(info->node.attribute("state").value()) != "visible";
}

pugi::xml_node Workbook::Impl::printAreaName(int sheetIndex, bool create)
{
    pugi::xml_node root = workbookDoc.document_element();
    pugi::xml_node names = childElement(root, "definedNames");
    for (pugi::xml_node n = names.first_child(); n; n = n.next_sibling())
        if (isElement(n, "definedName") && std::string_view(n.attribute("name").value()) == "_xlnm.Print_Area" &&
            n.attribute("localSheetId") && n.attribute("localSheetId").as_int(-1) == sheetIndex)
            return n;
    if (!create)
        return {};
    const std::string prefix = prefixOf(root);
    if (!names) {
        // definedNames follows sheets (and the function groups and external references).
        pugi::xml_node after = childElement(root, "sheets");
        for (const char *name : {"functionGroups", "externalReferences"})
            if (pugi::xml_node n = childElement(root, name))
                after = n;
        names = root.insert_child_after((prefix + "definedNames").c_str(), after);
    }
    pugi::xml_node name = names.append_child((prefix + "definedName").c_str());
    name.append_attribute("name") = "_xlnm.Print_Area";
    name.append_attribute("localSheetId") = sheetIndex;
    return name;
}

namespace {
int indexOfSheet(const std::vector<Workbook::Impl::SheetInfo> &sheets, const QString &name)
{
    for (size_t i = 0; i < sheets.size(); ++i)
        if (sheets[i].name == name)
            return int(i);
    return -1;
}

QString quotedSheetName(const QString &name)
{
    QString quoted = name;
    return QLatin1Char('\'') + quoted.replace(QLatin1Char('\''), QStringLiteral("''")) + QLatin1Char('\'');
}
} // namespace

QString Workbook::printArea(const QString &sheetName) const
{
    const int index = indexOfSheet(d->sheets, sheetName);
    if (index < 0)
        return {};
    const pugi::xml_node name = d->printAreaName(index, false);
    const QString text = QString::fromUtf8(name.text().get());
    const qsizetype bang = text.lastIndexOf(QLatin1Char('!'));
    return bang < 0 ? text : text.mid(bang + 1);
}

void Workbook::setPrintArea(const QString &sheetName, const QString &range)
{
    const int index = indexOfSheet(d->sheets, sheetName);
    if (index < 0)
        return;
    pugi::xml_node name = d->printAreaName(index, true);
    name.text().set((quotedSheetName(sheetName) + QLatin1Char('!') + range).toUtf8().constData());
}

void Workbook::setDeflatedSheet(const QString &name, DeflatedPart part)
{
    const Impl::SheetInfo *info = d->sheetInfo(name);
    if (info && !info->part.isEmpty())
        d->deflated.insert(info->part, std::move(part));
}

const QByteArray &Workbook::sourceBytes() const
{
    return d->bytes;
}

QByteArray Workbook::toBytes(const SaveFault &fault)
{
    return d->build(fault);
}

void Workbook::save(const QString &path, const SaveFault &fault)
{
    replaceFileAtomically(path, toBytes(fault), fault);
}

} // namespace est::workbook
