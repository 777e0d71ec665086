#include "workbook/biff_rewrite.h"

#include "workbook/workbook.h"
#include "workbook/xls_bytes.h"
#include "workbook/xml_part.h"

#include <QHash>
#include <QList>
#include <QString>

namespace est::workbook::detail {

namespace {

constexpr quint16 kContinue = 0x003C;
constexpr quint16 kBoundSheet = 0x0085;
constexpr quint16 kSst = 0x00FC;
constexpr quint16 kExtSst = 0x00FF;   // an index into the table, wrong once it is rewritten; FreeXL ignores it
constexpr int kMaxRecord = 8224;

void put16(QByteArray &out, quint32 v)
{
    out.append(char(v & 0xFF)).append(char(v >> 8 & 0xFF));
}

void put32(QByteArray &out, quint32 v)
{
    put16(out, v & 0xFFFF);
    put16(out, v >> 16);
}

void set32(QByteArray &out, qsizetype at, quint32 v)
{
    for (int i = 0; i < 4; ++i)
        out[at + i] = char(v >> (8 * i) & 0xFF);
}

[[noreturn]] void damaged(const char *what)
{
    fail(ErrorKind::Damaged, QString::fromLatin1(what));
}

struct Record
{
    quint16 type;
    qsizetype offset;   // of the header
    int length;
    const char *body;
};

QList<Record> recordsOf(const QByteArray &stream)
{
    QList<Record> records;
    qsizetype pos = 0;
    while (pos + 4 <= stream.size()) {
        const char *head = stream.constData() + pos;
        const quint16 type = u16(head);
        const int length = u16(head + 2);
        if (type == 0 && length == 0)
            break;
        if (length > kMaxRecord || pos + 4 + length > stream.size())
            damaged("record cut off");
        records.append({type, pos, length, head + 4});
        pos += 4 + length;
    }
    return records;
}

// The table's text, read across the SST record and its CONTINUE records: a string's
// characters may go on in the next record (which then begins with the string's flags again),
// its formatting runs and phonetic data too (without flags).
class StringTable
{
public:
    explicit StringTable(QList<QByteArrayView> segments) : m_segments(std::move(segments)) {}

    QList<QString> read(quint32 count)
    {
        QList<QString> strings;
        strings.reserve(count);
        for (quint32 i = 0; i < count; ++i)
            strings.append(readString());
        return strings;
    }

private:
    qsizetype left() const { return m_segments.at(m_segment).size() - m_at; }
    const char *here() const { return m_segments.at(m_segment).data() + m_at; }

    void nextSegment()
    {
        if (++m_segment >= m_segments.size())
            damaged("shared strings cut off");
        m_at = 0;
    }

    const char *take(qsizetype bytes)
    {
        if (left() < bytes)
            damaged("shared string header cut off");
        const char *p = here();
        m_at += bytes;
        return p;
    }

    QString readString()
    {
        if (left() == 0)
            nextSegment();
        const quint16 chars = u16(take(2));
        const quint8 flags = quint8(*take(1));
        const qint64 runs = flags & 8 ? u16(take(2)) : 0;
        const qint64 phonetic = flags & 4 ? u32(take(4)) : 0;
        bool wide = flags & 1;
        QString text;
        text.reserve(chars);
        for (qsizetype remaining = chars; remaining > 0;) {
            if (left() == 0) {
                nextSegment();
                wide = quint8(*take(1)) & 1;
            }
            const qsizetype fit = std::min<qsizetype>(remaining, left() / (wide ? 2 : 1));
            if (fit == 0)
                damaged("shared string cut off");
            const char *p = take(fit * (wide ? 2 : 1));
            for (qsizetype i = 0; i < fit; ++i)
                text.append(QChar(wide ? u16(p + 2 * i) : quint8(p[i])));
            remaining -= fit;
        }
        for (qint64 skip = runs * 4 + phonetic; skip > 0;) {
            if (left() == 0)
                nextSegment();
            const qint64 step = std::min<qint64>(skip, left());
            m_at += step;
            skip -= step;
        }
        return text;
    }

    QList<QByteArrayView> m_segments;
    int m_segment = 0;
    qsizetype m_at = 0;
};

// FreeXL hands texts to iconv, which refuses half a surrogate pair: such a character becomes
// the replacement character instead of failing the whole workbook.
QString wellFormed(QString text)
{
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text.at(i);
        if (c.isHighSurrogate() && i + 1 < text.size() && text.at(i + 1).isLowSurrogate())
            ++i;
        else if (c.isSurrogate())
            text[i] = QChar::ReplacementCharacter;
    }
    return text;
}

// One string as FreeXL reads it best: no runs, no phonetic data, in one record. No estimate
// cell comes near the length of a record; a longer text is cut there.
QByteArray plainString(QString text)
{
    text = wellFormed(text);
    bool latin = true;
    for (const QChar c : text)
        latin = latin && c.unicode() < 0x100;
    const qsizetype maxChars = (kMaxRecord - 3) / (latin ? 1 : 2);
    if (text.size() > maxChars)
        text.truncate(text.at(maxChars - 1).isHighSurrogate() ? maxChars - 1 : maxChars);
    QByteArray out;
    put16(out, quint32(text.size()));
    out.append(char(latin ? 0 : 1));
    for (const QChar c : text) {
        if (latin)
            out.append(char(c.unicode()));
        else
            put16(out, c.unicode());
    }
    return out;
}

void appendRecord(QByteArray &out, quint16 type, const QByteArray &body)
{
    put16(out, type);
    put16(out, quint32(body.size()));
    out.append(body);
}

void appendPlainTable(QByteArray &out, quint32 total, const QList<QString> &strings)
{
    QByteArray body;
    put32(body, total);
    put32(body, quint32(strings.size()));
    quint16 type = kSst;
    for (const QString &s : strings) {
        const QByteArray piece = plainString(s);
        if (body.size() + piece.size() > kMaxRecord) {
            appendRecord(out, type, body);
            type = kContinue;
            body.clear();
        }
        body.append(piece);
    }
    appendRecord(out, type, body);
}

} // namespace

QByteArray plainWorkbookStream(const QByteArray &stream)
{
    const QList<Record> records = recordsOf(stream);
    QByteArray out;
    out.reserve(stream.size() + 4096);
    QHash<qsizetype, quint32> moved;   // old record offset -> new
    QList<qsizetype> sheetRecords;     // BOUNDSHEET bodies in the new stream
    for (qsizetype i = 0; i < records.size(); ++i) {
        const Record &r = records.at(i);
        moved.insert(r.offset, quint32(out.size()));
        if (r.type == kExtSst)
            continue;
        if (r.type != kSst) {
            if (r.type == kBoundSheet && r.length >= 4)
                sheetRecords.append(out.size() + 4);
            out.append(stream.constData() + r.offset, 4 + r.length);
            continue;
        }
        if (r.length < 8)
            damaged("SST record too short");
        QList<QByteArrayView> segments{QByteArrayView(r.body + 8, r.length - 8)};
        while (i + 1 < records.size() && records.at(i + 1).type == kContinue) {
            ++i;
            moved.insert(records.at(i).offset, quint32(out.size()));
            segments.append(QByteArrayView(records.at(i).body, records.at(i).length));
        }
        appendPlainTable(out, u32(r.body), StringTable(std::move(segments)).read(u32(r.body + 4)));
    }
    for (const qsizetype at : sheetRecords)
        set32(out, at, moved.value(u32(out.constData() + at), 0xFFFFFFFF));
    return out;
}

QByteArray compoundFileWith(const QByteArray &workbookStream)
{
    constexpr int kSector = 512;
    constexpr quint32 kFree = 0xFFFFFFFF, kEnd = 0xFFFFFFFE, kFatSector = 0xFFFFFFFD;
    const quint32 streamSectors = quint32((workbookStream.size() + kSector - 1) / kSector);
    quint32 fatSectors = 1;
    while (fatSectors * (kSector / 4) < streamSectors + 1 + fatSectors)
        ++fatSectors;
    if (fatSectors > 109)
        fail(ErrorKind::TooLarge, QStringLiteral("workbook stream of %1 bytes").arg(workbookStream.size()));
    const quint32 directory = streamSectors;
    const quint32 firstFat = streamSectors + 1;

    QByteArray out;
    out.append("\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1", 8).append(16, '\0');
    put16(out, 0x3E);      // minor version
    put16(out, 3);         // major version: 512-byte sectors
    put16(out, 0xFFFE);    // little-endian
    put16(out, 9);         // sector shift
    put16(out, 6);         // mini sector shift
    out.append(6, '\0');
    put32(out, 0);         // directory sectors (none counted in version 3)
    put32(out, fatSectors);
    put32(out, directory);
    put32(out, 0);
    put32(out, 4096);      // mini stream cutoff
    put32(out, kEnd);      // no mini allocation table
    put32(out, 0);
    put32(out, kEnd);      // no further allocation index
    put32(out, 0);
    for (quint32 i = 0; i < 109; ++i)
        put32(out, i < fatSectors ? firstFat + i : kFree);

    out.append(workbookStream);
    out.append(int(qint64(streamSectors) * kSector - workbookStream.size()), '\0');

    QByteArray entries(4 * 128, '\0');
    auto entry = [&entries](int index, const QString &name, quint8 type, quint32 child, quint32 start, quint32 size) {
        const qsizetype at = qsizetype(index) * 128;
        for (qsizetype i = 0; i < name.size(); ++i) {
            entries[at + 2 * i] = char(name.at(i).unicode() & 0xFF);
            entries[at + 2 * i + 1] = char(name.at(i).unicode() >> 8);
        }
        entries[at + 64] = char((name.size() + 1) * 2);
        entries[at + 66] = char(type);
        entries[at + 67] = 1;   // black
        set32(entries, at + 68, kFree);
        set32(entries, at + 72, kFree);
        set32(entries, at + 76, child);
        set32(entries, at + 116, start);
        set32(entries, at + 120, size);
    };
    entry(0, QStringLiteral("Root Entry"), 5, 1, kEnd, 0);
    entry(1, QStringLiteral("Workbook"), 2, kFree, 0, quint32(workbookStream.size()));
    for (int i = 2; i < 4; ++i) {
        set32(entries, i * 128 + 68, kFree);
        set32(entries, i * 128 + 72, kFree);
        set32(entries, i * 128 + 76, kFree);
    }
    out.append(entries);

    QByteArray fat;
    for (quint32 s = 0; s < fatSectors * (kSector / 4); ++s) {
        if (s < streamSectors)
            put32(fat, s + 1 == streamSectors ? kEnd : s + 1);
        else if (s == directory)
            put32(fat, kEnd);
        else if (s >= firstFat && s < firstFat + fatSectors)
            put32(fat, kFatSector);
        else
            put32(fat, kFree);
    }
    out.append(fat);
    return out;
}

} // namespace est::workbook::detail
