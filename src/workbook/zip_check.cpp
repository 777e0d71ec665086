#include "workbook/zip_check.h"

#include "workbook/xml_part.h"

#include <algorithm>
#include <cstring>
#include <vector>

namespace est::workbook::detail {

namespace {

constexpr qsizetype kEndRecordSize = 22;
constexpr qsizetype kMaxCommentSize = 0xFFFF;
constexpr qsizetype kDirectoryRecordSize = 46;
constexpr qsizetype kLocalHeaderSize = 30;
const char kLocalSignature[] = "PK\x03\x04";
const char kDirectorySignature[] = "PK\x01\x02";
const char kEndSignature[] = "PK\x05\x06";
const char kZip64LocatorSignature[] = "PK\x06\x07";

class Reader
{
public:
    explicit Reader(const QByteArray &bytes) : m_data(reinterpret_cast<const unsigned char *>(bytes.constData())), m_size(bytes.size()) {}
    qsizetype size() const { return m_size; }
    bool has(qsizetype at, qsizetype length) const { return at >= 0 && length >= 0 && at <= m_size - length; }
    bool signatureAt(qsizetype at, const char *signature) const
    {
        return has(at, 4) && std::memcmp(m_data + at, signature, 4) == 0;
    }
    quint32 u16(qsizetype at) const { return quint32(m_data[at]) | quint32(m_data[at + 1]) << 8; }
    quint32 u32(qsizetype at) const { return u16(at) | u16(at + 2) << 16; }

private:
    const unsigned char *m_data;
    qsizetype m_size;
};

[[noreturn]] void damaged(const char *why)
{
    fail(ErrorKind::Damaged, QStringLiteral("zip structure: %1").arg(QLatin1String(why)));
}

struct Span
{
    qint64 begin;
    qint64 end;
};

} // namespace

void checkZipStructure(const QByteArray &bytes, const Limits &limits)
{
    const Reader zip(bytes);
    if (!zip.signatureAt(0, kLocalSignature)) {
        // An empty archive is only an end record; anything else is no zip at all.
        fail(ErrorKind::NotAWorkbook, zip.signatureAt(0, kEndSignature) ? QStringLiteral("an empty zip archive")
                                                                          : QStringLiteral("not a zip archive"));
    }
    if (zip.size() < kLocalHeaderSize + kEndRecordSize)
        damaged("the file is cut short");

    // The end record: the only one in the stretch where readers look for it, and followed by
    // exactly its comment.
    const qsizetype searchFrom = std::max<qsizetype>(0, zip.size() - kEndRecordSize - kMaxCommentSize);
    const QByteArray endSignature = QByteArray::fromRawData(kEndSignature, 4);
    const qsizetype end = bytes.lastIndexOf(endSignature, zip.size() - kEndRecordSize);
    if (end < searchFrom || end <= 0)
        damaged("no end-of-directory record (the file is cut short)");
    const QByteArrayView before = QByteArrayView(bytes).sliced(searchFrom, end + 3 - searchFrom);
    if (before.indexOf(endSignature) >= 0 || bytes.indexOf(endSignature, end + 1) >= 0)
        damaged("more than one end-of-directory record");
    if (end + kEndRecordSize + qsizetype(zip.u16(end + 20)) != zip.size())
        damaged("bytes after the end-of-directory record");
    if (zip.signatureAt(end - 20, kZip64LocatorSignature))
        damaged("zip64 archives are not accepted");
    const quint32 disk = zip.u16(end + 4), directoryDisk = zip.u16(end + 6);
    const quint32 entriesHere = zip.u16(end + 8), entries = zip.u16(end + 10);
    const qint64 directorySize = zip.u32(end + 12), directoryOffset = zip.u32(end + 16);
    if (disk != 0 || directoryDisk != 0 || entriesHere != entries)
        damaged("multi-disk archives are not accepted");
    if (qint64(entries) > limits.maxEntries)
        fail(ErrorKind::TooLarge, QStringLiteral("%1 parts").arg(entries));
    if (directoryOffset + directorySize != end)
        damaged("the directory does not end where the end record begins");

    // The directory: every record inside it, each entry's data inside the file before the
    // directory, no two entries sharing bytes.
    std::vector<Span> spans;
    spans.reserve(entries);
    qint64 at = directoryOffset;
    for (quint32 i = 0; i < entries; ++i) {
        if (!zip.has(at, kDirectoryRecordSize) || at + kDirectoryRecordSize > end || !zip.signatureAt(at, kDirectorySignature))
            damaged("a directory record is missing");
        const qint64 compressed = zip.u32(at + 20);
        const qint64 nameLength = zip.u16(at + 28), extraLength = zip.u16(at + 30), commentLength = zip.u16(at + 32);
        const qint64 local = zip.u32(at + 42);
        const quint32 startDisk = zip.u16(at + 34);
        if (startDisk != 0 || nameLength == 0)
            damaged("a directory record is invalid");
        if (compressed == 0xFFFFFFFF || zip.u32(at + 24) == 0xFFFFFFFF || local == 0xFFFFFFFF)
            damaged("zip64 archives are not accepted");
        at += kDirectoryRecordSize + nameLength + extraLength + commentLength;
        if (at > end)
            damaged("a directory record runs past the directory");
        if (!zip.signatureAt(local, kLocalSignature) || local + kLocalHeaderSize > directoryOffset)
            damaged("an entry's local header is missing");
        const qint64 dataEnd = local + kLocalHeaderSize + zip.u16(local + 26) + zip.u16(local + 28) + compressed;
        if (dataEnd > directoryOffset)
            damaged("an entry's data runs past the directory");
        spans.push_back({local, dataEnd});
    }
    if (at != end)
        damaged("the directory holds more than its records");
    std::sort(spans.begin(), spans.end(), [](const Span &a, const Span &b) { return a.begin < b.begin; });
    for (size_t i = 1; i < spans.size(); ++i)
        if (spans[i].begin < spans[i - 1].end)
            damaged("two entries share their data");
}

} // namespace est::workbook::detail
