#include "workbook/xls_book.h"

#include "workbook/biff_rewrite.h"
#include "workbook/biff_scan.h"
#include "workbook/cfb_stream.h"
#include "workbook/xml_part.h"

#include <QFile>
#include <QFileInfo>
#include <QTemporaryFile>

#include <freexl.h>
#include <sys/mman.h>
#include <unistd.h>

namespace est::workbook {

using namespace detail;

namespace {

// The checked and rewritten workbook as a file FreeXL can open by name: an anonymous memory
// file, so nothing can change it between the check and the reading, and nothing is left on disk.
class CheckedFile
{
public:
    explicit CheckedFile(const QByteArray &bytes)
    {
        m_fd = memfd_create("estimate-xls", MFD_CLOEXEC);
        if (m_fd >= 0 && write(m_fd, bytes.constData(), size_t(bytes.size())) == bytes.size()) {
            m_path = QStringLiteral("/proc/self/fd/%1").arg(m_fd);
            return;
        }
        if (!m_temporary.open() || m_temporary.write(bytes) != bytes.size() || !m_temporary.flush())
            fail(ErrorKind::FileUnreadable, m_temporary.errorString());
        m_path = m_temporary.fileName();
    }
    ~CheckedFile()
    {
        if (m_fd >= 0)
            close(m_fd);
    }
    QString path() const { return m_path; }

private:
    int m_fd = -1;
    QTemporaryFile m_temporary;
    QString m_path;
};

CellValue fromFreeXl(const FreeXL_CellValue &cell)
{
    switch (cell.type) {
    case FREEXL_CELL_INT: return double(cell.value.int_value);
    case FREEXL_CELL_DOUBLE: return cell.value.double_value;
    case FREEXL_CELL_TEXT:
    case FREEXL_CELL_SST_TEXT:
    case FREEXL_CELL_DATE:
    case FREEXL_CELL_DATETIME:
    case FREEXL_CELL_TIME: return QString::fromUtf8(cell.value.text_value);
    default: return std::monostate{};
    }
}

} // namespace

struct XlsBook::Impl
{
    class Sheet : public SheetCells
    {
    public:
        Sheet(Impl &book, unsigned short index) : m_book(book), m_index(index) {}
        CellValue value(int row, int column) const override
        {
            if (row < 1 || column < 1 || row > 65536 || column > 256)
                return std::monostate{};
            const quint32 key = xlsCellKey(quint32(row - 1), quint32(column - 1));
            const auto &special = m_book.scan.sheets.at(m_index).cells;
            if (const auto it = special.constFind(key); it != special.cend())
                return *it;
            return m_book.freeXlValue(m_index, row - 1, column - 1);
        }

    private:
        Impl &m_book;
        unsigned short m_index;
    };

    ~Impl()
    {
        // Also after a failed open: FreeXL leaves the handle to be closed then too.
        if (handle)
            freexl_close(handle);
    }

    CellValue freeXlValue(unsigned short sheet, int row, int column)
    {
        if (selected != sheet) {
            if (freexl_select_active_worksheet(handle, sheet) != FREEXL_OK)
                return std::monostate{};
            selected = sheet;
        }
        FreeXL_CellValue cell;
        if (freexl_get_cell_value(handle, unsigned(row), (unsigned short)column, &cell) != FREEXL_OK)
            return std::monostate{};
        return fromFreeXl(cell);
    }

    XlsScan scan;
    const void *handle = nullptr;
    int selected = -1;
    std::vector<std::unique_ptr<Sheet>> sheets;
};

XlsBook::XlsBook(std::unique_ptr<Impl> impl) : d(std::move(impl)) {}
XlsBook::~XlsBook() = default;

std::unique_ptr<XlsBook> XlsBook::open(const QString &path, const XlsLimits &limits)
{
    if (!QFileInfo(path).isFile())
        fail(ErrorKind::FileMissing, path);
    QFile file(path);
    if (file.size() > limits.maxFileBytes)
        fail(ErrorKind::TooLarge, QStringLiteral("%1: %2 bytes").arg(path).arg(file.size()));
    if (!file.open(QIODevice::ReadOnly))
        fail(ErrorKind::FileUnreadable, file.errorString());
    return fromBytes(file.read(limits.maxFileBytes + 1), limits);
}

std::unique_ptr<XlsBook> XlsBook::fromBytes(const QByteArray &bytes, const XlsLimits &limits)
{
    auto impl = std::make_unique<Impl>();
    const QByteArray stream = workbookStream(bytes, limits);
    impl->scan = scanWorkbookStream(stream, limits);
    const CheckedFile file(compoundFileWith(plainWorkbookStream(stream)));
    const int status = freexl_open(QFile::encodeName(file.path()).constData(), &impl->handle);
    if (status != FREEXL_OK)
        fail(ErrorKind::Damaged, QStringLiteral("FreeXL error %1").arg(status));
    unsigned int count = 0;
    if (freexl_get_info(impl->handle, FREEXL_BIFF_SHEET_COUNT, &count) != FREEXL_OK ||
        count != unsigned(impl->scan.sheets.size()))
        fail(ErrorKind::Damaged, QStringLiteral("sheet count"));
    for (unsigned short i = 0; i < count; ++i) {
        const char *name = nullptr;
        if (freexl_get_worksheet_name(impl->handle, i, &name) != FREEXL_OK || !name)
            fail(ErrorKind::Damaged, QStringLiteral("sheet name"));
        // FreeXL decodes the names from their code page.
        impl->scan.sheets[i].name = QString::fromUtf8(name);
        impl->sheets.push_back(std::make_unique<Impl::Sheet>(*impl, i));
    }
    return std::unique_ptr<XlsBook>(new XlsBook(std::move(impl)));
}

QStringList XlsBook::sheetNames() const
{
    QStringList names;
    for (const auto &sheet : d->scan.sheets)
        names.append(sheet.name);
    return names;
}

const SheetCells *XlsBook::cells(const QString &sheetName)
{
    for (size_t i = 0; i < d->sheets.size(); ++i)
        if (d->scan.sheets.at(qsizetype(i)).name == sheetName)
            return d->sheets[i].get();
    return nullptr;
}

bool looksLikeXls(const QByteArray &head)
{
    return head.startsWith(QByteArrayLiteral("\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1"));
}

std::unique_ptr<BookCells> openForReading(const QString &path)
{
    QFile file(path);
    if (file.open(QIODevice::ReadOnly) && looksLikeXls(file.read(8)))
        return XlsBook::open(path);
    return Workbook::open(path);
}

} // namespace est::workbook
