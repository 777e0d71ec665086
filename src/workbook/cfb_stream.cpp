#include "workbook/cfb_stream.h"

#include "workbook/xls_bytes.h"
#include "workbook/xml_part.h"

#include <QSet>
#include <QString>

#include <cstring>

namespace est::workbook::detail {

namespace {

constexpr quint32 kEndOfChain = 0xFFFFFFFE;
constexpr quint32 kUnused = 0xFFFFFFFF;
constexpr int kHeaderFatEntries = 109;
constexpr char kSignature[] = "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1";
// Streams below this size live in the mini stream, which FreeXL reads without bounds:
// a workbook stream of an estimate is far larger, so a small one is refused.
constexpr quint32 kMiniCutoff = 4096;
// The most mini allocation sectors FreeXL is allowed to read (each becomes a list node per entry).
constexpr quint32 kMaxMiniFatSectors = 64;

[[noreturn]] void damaged(const char *what)
{
    fail(ErrorKind::Damaged, QString::fromLatin1(what));
}

class CompoundFile
{
public:
    explicit CompoundFile(const QByteArray &bytes) : m_bytes(bytes) {}

    QByteArray workbook()
    {
        readHeader();
        readFat();
        checkMiniFat();
        const auto [start, size] = findWorkbookEntry();
        return readChain(start, size);
    }

private:
    const char *sector(quint32 index) const
    {
        // Sector n starts at (n + 1) * sector size, after the header's own sector.
        return m_bytes.constData() + qint64(index + 1) * m_sectorSize;
    }

    void readHeader()
    {
        const char *h = m_bytes.constData();
        if (u16(h + 28) != 0xFFFE)
            damaged("byte order");
        const quint16 shift = u16(h + 30);
        if (shift != 9 && shift != 12)
            damaged("sector size");
        m_sectorSize = 1 << shift;
        if (m_bytes.size() < 2 * qint64(m_sectorSize))
            damaged("cut off");
        // FreeXL reads whole sectors: a partial last one cannot be addressed.
        m_sectorCount = quint32(m_bytes.size() / m_sectorSize - 1);
    }

    void addFatSector(quint32 index, QSet<quint32> &seen)
    {
        if (index >= m_sectorCount || seen.contains(index))
            damaged("allocation table sector");
        seen.insert(index);
        const char *p = sector(index);
        for (int i = 0; i < m_sectorSize / 4; ++i)
            m_fat.append(u32(p + 4 * i));
        // An allocation table needs one entry per sector of the file; more only costs memory.
        if (quint32(m_fat.size()) > m_sectorCount + 2 * quint32(m_sectorSize))
            damaged("allocation table larger than the file");
    }

    void readFat()
    {
        const char *h = m_bytes.constData();
        QSet<quint32> seen;
        // FreeXL takes every listed entry of the header, used or not in between.
        for (int i = 0; i < kHeaderFatEntries; ++i) {
            const quint32 index = u32(h + 76 + 4 * i);
            if (index != kUnused)
                addFatSector(index, seen);
        }
        const quint32 difatCount = u32(h + 72);
        quint32 next = u32(h + 68);
        QSet<quint32> difatSeen;
        const int perSector = m_sectorSize / 4;
        for (quint32 block = 0; block < difatCount;) {
            if (next >= m_sectorCount || difatSeen.contains(next) || seen.contains(next))
                damaged("allocation index sector");
            difatSeen.insert(next);
            const char *p = sector(next);
            ++block;
            bool end = false;
            for (int i = 0; i < perSector; ++i) {
                const quint32 entry = u32(p + 4 * i);
                if (entry == kEndOfChain) {
                    end = true;
                    break;
                }
                if (i == perSector - 1)
                    next = entry;
                else if (entry != kUnused)
                    addFatSector(entry, seen);
            }
            if (end) {
                if (block != difatCount)
                    damaged("allocation index count");
                break;
            }
        }
        if (m_fat.isEmpty())
            damaged("no allocation table");
    }

    void checkMiniFat()
    {
        const char *h = m_bytes.constData();
        const quint32 sectors = u32(h + 64);
        if (sectors == 0)
            return;
        m_miniCutoff = u32(h + 56);
        const quint32 start = u32(h + 60);
        // FreeXL reads the mini allocation sectors one after another from the first.
        if (m_miniCutoff != kMiniCutoff || sectors > kMaxMiniFatSectors || start >= m_sectorCount ||
            start + sectors > m_sectorCount)
            damaged("mini allocation table");
    }

    std::pair<quint32, quint32> findWorkbookEntry()
    {
        const quint32 directory = u32(m_bytes.constData() + 48);
        if (directory >= m_sectorCount)
            damaged("directory sector");
        // FreeXL looks for the workbook among the entries of the first directory sector only.
        const char *p = sector(directory);
        for (int i = 0; i < m_sectorSize / 128; ++i) {
            const char *entry = p + 128 * i;
            const quint16 nameBytes = u16(entry + 64);
            if (nameBytes > 64 || nameBytes % 2 != 0)
                damaged("directory entry name");
            const QString name =
                QString::fromUtf16(reinterpret_cast<const char16_t *>(entry), nameBytes / 2).section(QChar(0), 0, 0);
            if (name == QLatin1String("Workbook") || name == QLatin1String("Book"))
                return {u32(entry + 116), u32(entry + 120)};
        }
        fail(ErrorKind::NotAWorkbook, QStringLiteral("no workbook stream"));
    }

    QByteArray readChain(quint32 start, quint32 size)
    {
        if (size <= m_miniCutoff || size <= kMiniCutoff)
            damaged("workbook stream too small");
        if (qint64(size) > m_bytes.size())
            damaged("workbook stream larger than the file");
        // The chain must hold exactly the sectors the size needs: FreeXL's reading goes wrong
        // past the stated size.
        const quint32 needed = quint32((qint64(size) + m_sectorSize - 1) / m_sectorSize);
        QByteArray stream;
        stream.reserve(qint64(needed) * m_sectorSize);
        QSet<quint32> seen;
        quint32 current = start;
        for (quint32 n = 0; n < needed; ++n) {
            if (current >= m_sectorCount || current >= quint32(m_fat.size()) || seen.contains(current))
                damaged("workbook stream chain");
            seen.insert(current);
            stream.append(sector(current), m_sectorSize);
            current = m_fat.at(current);
        }
        if (current != kEndOfChain)
            damaged("workbook stream chain length");
        stream.truncate(size);
        return stream;
    }

    const QByteArray &m_bytes;
    int m_sectorSize = 512;
    quint32 m_sectorCount = 0;
    quint32 m_miniCutoff = 0;
    QList<quint32> m_fat;
};

} // namespace

bool looksLikeCompoundFile(const QByteArray &bytes)
{
    return bytes.size() >= 512 && std::memcmp(bytes.constData(), kSignature, 8) == 0;
}

QByteArray workbookStream(const QByteArray &bytes, const XlsLimits &limits)
{
    if (bytes.size() > limits.maxFileBytes)
        fail(ErrorKind::TooLarge, QStringLiteral("%1 bytes").arg(bytes.size()));
    if (!looksLikeCompoundFile(bytes))
        fail(ErrorKind::NotAWorkbook, QStringLiteral("no compound file"));
    return CompoundFile(bytes).workbook();
}

} // namespace est::workbook::detail
