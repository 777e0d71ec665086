#include "workbook/workbook.h"

#include "workbook/atomic_file.h"
#include "workbook/package.h"
#include "workbook/worksheet_impl.h"
#include "workbook/xml_part.h"

#include <QFile>
#include <QFileInfo>

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

QByteArray Workbook::toBytes(const SaveFault &fault)
{
    return d->build(fault);
}

void Workbook::save(const QString &path, const SaveFault &fault)
{
    replaceFileAtomically(path, toBytes(fault), fault);
}

} // namespace est::workbook
