#include "workbook/biff_scan.h"

#include "workbook/xls_bytes.h"
#include "workbook/xml_part.h"

#include <QSet>

#include <cmath>
#include <cstring>

namespace est::workbook::detail {

namespace {

enum Record : quint16 {
    Formula = 0x0006,
    Eof = 0x000A,
    DateMode = 0x0022,
    FilePass = 0x002F,
    Continue = 0x003C,
    CodePage = 0x0042,
    BoundSheet = 0x0085,
    MulRk = 0x00BD,
    Xf = 0x00E0,
    Sst = 0x00FC,
    LabelSst = 0x00FD,
    Dimension = 0x0200,
    Number = 0x0203,
    Label = 0x0204,
    BoolErr = 0x0205,
    String = 0x0207,
    Rk = 0x027E,
    Format = 0x041E,
    Bof = 0x0809,
};

constexpr int kMaxRecord = 8224;        // FreeXL's record buffer, the largest BIFF8 record
constexpr int kMaxXfRecords = 8192;     // FreeXL's table of cell formats
// FreeXL looks through its date and time formats for every number cell: a spreadsheet program
// keeps some 200 formats of all kinds, a longer list only costs time.
constexpr int kMaxDateFormats = 250;
constexpr quint32 kMaxRows = 65536;
constexpr quint32 kMaxColumns = 256;
// FreeXL turns a date-formatted number into a date by counting days one at a time;
// 31 December 9999 is the last date a spreadsheet shows.
constexpr double kLastDate = 2958465.0;

double f64(const char *p)
{
    quint64 bits = 0;
    for (int i = 7; i >= 0; --i)
        bits = bits << 8 | quint8(p[i]);
    double value;
    std::memcpy(&value, &bits, sizeof value);
    return value;
}

double rkValue(quint32 rk)
{
    double value;
    if (rk & 2) {
        value = double(qint32(rk) >> 2);
    } else {
        const quint64 bits = quint64(rk & 0xFFFFFFFC) << 32;
        std::memcpy(&value, &bits, sizeof value);
    }
    return rk & 1 ? value / 100 : value;
}

[[noreturn]] void damaged(const QString &what)
{
    fail(ErrorKind::Damaged, what);
}

QString errorCode(quint8 code)
{
    switch (code) {
    case 0x00: return QStringLiteral("#NULL!");
    case 0x07: return QStringLiteral("#DIV/0!");
    case 0x0F: return QStringLiteral("#VALUE!");
    case 0x17: return QStringLiteral("#REF!");
    case 0x1D: return QStringLiteral("#NAME?");
    case 0x24: return QStringLiteral("#NUM!");
    default: return QStringLiteral("#N/A");
    }
}

// FreeXL's reading of a format code: a date when it has year and month, or month and day;
// a time when it has hours and minutes, or minutes and seconds.
struct FormatKind
{
    bool date = false;
    bool dateOrTime = false;
};

FormatKind formatKind(const QByteArray &ascii)
{
    auto has = [&ascii](char c) { return ascii.contains(c) || ascii.contains(char(c - 'a' + 'A')); };
    const bool date = (has('y') && has('m')) || (has('m') && has('d'));
    return {date, date || (has('h') && has('m')) || (has('m') && has('s'))};
}

class Scanner
{
public:
    Scanner(const QByteArray &stream, const XlsLimits &limits) : m_data(stream), m_limits(limits) {}

    XlsScan run()
    {
        qint64 pos = 0;
        while (pos + 4 <= m_data.size()) {
            const char *head = m_data.constData() + pos;
            const quint16 type = u16(head);
            const quint16 length = u16(head + 2);
            if (type == 0 && length == 0)
                break;   // FreeXL's other end mark
            if (length > kMaxRecord || pos + 4 + length > m_data.size())
                damaged(QStringLiteral("record %1 at %2 is cut off").arg(type, 4, 16).arg(pos));
            m_record = head + 4;
            m_length = length;
            record(type, pos);
            pos += 4 + length;
        }
        // FreeXL sizes a sheet without a DIMENSION record from its cells, in a second pass
        // whose allocations are neither bounded nor always its own.
        for (int i = 0; i < m_dimensions.size(); ++i)
            if (!m_dimensions.at(i).known)
                damaged(QStringLiteral("sheet %1 has no size").arg(m_scan.sheets.at(i).name));
        return std::move(m_scan);
    }

private:
    void need(int bytes, const char *what) const
    {
        if (m_length < bytes)
            damaged(QStringLiteral("%1 record too short").arg(QLatin1String(what)));
    }

    void record(quint16 type, qint64 pos)
    {
        if (type == Continue)
            return;
        if (m_bof == Expected) {
            if (type != Bof)
                damaged(QStringLiteral("no BOF record"));
            need(4, "BOF");
            const quint16 version = u16(m_record);
            if (version != 0x0600 && version != 0x0500)
                damaged(QStringLiteral("BIFF version %1").arg(version, 4, 16));
            m_biff8 = version == 0x0600;
            m_bof = Inside;
            return;
        }
        if (m_bof == Between) {
            if (type != Bof)
                damaged(QStringLiteral("no BOF record"));
            m_bof = Inside;
            m_sheet = sheetAt(pos);
            return;
        }
        switch (type) {
        case Eof: m_bof = Between; m_sheet = -1; break;
        case FilePass: damaged(QStringLiteral("encrypted"));
        case CodePage: need(2, "CODEPAGE"); break;
        case DateMode: need(2, "DATEMODE"); break;
        case BoundSheet: boundSheet(); break;
        case Sst: sst(); break;
        case Format: format(); break;
        case Xf: xf(); break;
        case Dimension: dimension(); break;
        case Number: need(14, "NUMBER"); number(u16(m_record + 4), f64(m_record + 6)); break;
        case Rk: need(10, "RK"); number(u16(m_record + 4), rkValue(u32(m_record + 6))); break;
        case MulRk: mulRk(); break;
        case Label: label(); break;
        case LabelSst: labelSst(); break;
        case BoolErr: boolErr(); break;
        case Formula: formula(); break;
        case String: formulaString(); break;
        default: break;
        }
    }

    int sheetAt(qint64 pos) const
    {
        for (int i = 0; i < m_offsets.size(); ++i)
            if (m_offsets.at(i) == pos)
                return i;
        return -1;
    }

    // Sheet names come decoded by FreeXL; the scan only checks they lie inside their record.
    void boundSheet()
    {
        need(8, "BOUNDSHEET");
        const int chars = quint8(m_record[6]);
        QString name;
        if (m_biff8) {
            const bool wide = m_record[7] != 0;
            need(8 + chars * (wide ? 2 : 1), "BOUNDSHEET");
            name = wide ? QString::fromUtf16(reinterpret_cast<const char16_t *>(m_record + 8), chars)
                        : QString::fromLatin1(m_record + 8, chars);
        } else {
            need(7 + chars, "BOUNDSHEET");
            name = QString::fromLatin1(m_record + 7, chars);
        }
        if (m_scan.sheets.size() >= m_limits.maxSheets)
            damaged(QStringLiteral("too many sheets"));
        m_offsets.append(u32(m_record));
        m_scan.sheets.append({name, {}});
        m_dimensions.append({0, 0, false});
        m_textCells.append(QSet<quint32>());
    }

    void format()
    {
        QByteArray code;
        if (m_biff8) {
            need(5, "FORMAT");
            const int chars = u16(m_record + 2);
            const quint8 flags = quint8(m_record[4]);
            const int start = 4 + 1 + (flags & 4 ? 4 : 0) + (flags & 8 ? 2 : 0);
            const bool wide = flags & 1;
            need(start + chars * (wide ? 2 : 1), "FORMAT");
            for (int i = 0; i < chars; ++i)
                code.append(wide ? (m_record[start + 2 * i + 1] == 0 ? m_record[start + 2 * i] : '?') : m_record[start + i]);
        } else {
            // FreeXL takes the length from the first character (offset 3) and reads from there.
            need(4, "FORMAT");
            const int chars = quint8(m_record[3]);
            need(3 + chars, "FORMAT");
            code = QByteArray(m_record + 3, chars);
        }
        const FormatKind kind = formatKind(code);
        if (kind.dateOrTime && ++m_dateOrTimeFormats > kMaxDateFormats)
            damaged(QStringLiteral("too many date formats"));
        if (kind.date)
            m_dateFormats.insert(u16(m_record));
    }

    void xf()
    {
        need(4, "XF");
        if (m_xfFormats.size() >= kMaxXfRecords)
            damaged(QStringLiteral("too many cell formats"));
        m_xfFormats.append(u16(m_record + 2));
    }

    bool dateFormatted(quint16 xf) const
    {
        if (xf >= m_xfFormats.size())
            return false;
        const quint16 format = m_xfFormats.at(xf);
        return (format >= 14 && format <= 17) || format == 22 || m_dateFormats.contains(format);
    }

    void dimension()
    {
        quint32 rows = 0;
        quint32 columns = 0;
        if (m_biff8) {
            need(14, "DIMENSION");
            rows = u32(m_record + 4);
            columns = u16(m_record + 10);
        } else {
            need(10, "DIMENSION");
            rows = u16(m_record + 2);
            columns = u16(m_record + 6);
        }
        if (rows > kMaxRows || columns > kMaxColumns)
            damaged(QStringLiteral("sheet size %1 x %2").arg(rows).arg(columns));
        // Every DIMENSION record makes FreeXL allocate, the repeated ones of a sheet too.
        m_cells += qint64(rows) * columns;
        if (m_cells > m_limits.maxCells)
            damaged(QStringLiteral("too many cells"));
        if (m_sheet < 0)
            return;
        // A second one makes FreeXL drop the sheet's cells read so far without freeing them.
        if (m_dimensions.at(m_sheet).known)
            damaged(QStringLiteral("second DIMENSION record"));
        m_dimensions[m_sheet] = {rows, columns, true};
    }

    // What FreeXL does with a cell record: skips it (formulas), keeps a value, or keeps a text
    // it allocated (a LABEL record, a date).
    enum class Kept { Nothing, Value, Text };

    // A cell must lie in a sheet whose size is known: FreeXL sizes a sheet without one from
    // its cells, in arithmetic that overflows. And a record must not replace a cell whose
    // text FreeXL allocated, which it would lose without freeing.
    void cell(quint32 row, quint32 column, const char *what, Kept kept)
    {
        if (m_sheet < 0)
            damaged(QStringLiteral("%1 outside a sheet").arg(QLatin1String(what)));
        const SheetSize &d = m_dimensions.at(m_sheet);
        if (!d.known || row >= d.rows || column >= d.columns)
            damaged(QStringLiteral("%1 outside its sheet (%2, %3)").arg(QLatin1String(what)).arg(row).arg(column));
        if (kept == Kept::Nothing)
            return;
        QSet<quint32> &texts = m_textCells[m_sheet];
        const quint32 key = xlsCellKey(row, column);
        if (texts.contains(key))
            damaged(QStringLiteral("cell (%1, %2) written twice").arg(row).arg(column));
        if (kept == Kept::Text)
            texts.insert(key);
    }

    void number(quint16 xf, double value)
    {
        const bool date = dateFormatted(xf);
        cell(u16(m_record), u16(m_record + 2), "number", date ? Kept::Text : Kept::Value);
        if (date && !(std::abs(value) <= kLastDate))
            damaged(QStringLiteral("date out of range"));
    }

    void mulRk()
    {
        need(6, "MULRK");
        const quint32 row = u16(m_record);
        quint32 column = u16(m_record + 2);
        for (int off = 4; off + 6 < m_length; off += 6, ++column) {
            const bool date = dateFormatted(u16(m_record + off));
            cell(row, column, "number", date ? Kept::Text : Kept::Value);
            if (date && !(std::abs(rkValue(u32(m_record + off + 2))) <= kLastDate))
                damaged(QStringLiteral("date out of range"));
        }
    }

    void label()
    {
        need(9, "LABEL");
        cell(u16(m_record), u16(m_record + 2), "text", Kept::Text);
        const int chars = u16(m_record + 6);
        if (!m_biff8) {
            need(8 + chars, "LABEL");
            return;
        }
        const quint8 flags = quint8(m_record[8]);
        const int start = 8 + 1 + (flags & 4 ? 4 : 0) + (flags & 8 ? 2 : 0);
        need(start + chars * (flags & 1 ? 2 : 1), "LABEL");
    }

    void labelSst()
    {
        need(10, "LABELSST");
        cell(u16(m_record), u16(m_record + 2), "text", Kept::Value);
        if (u32(m_record + 6) >= m_sstCount)
            damaged(QStringLiteral("shared string index"));
    }

    void put(quint32 row, quint32 column, CellValue value)
    {
        XlsSheetScan &sheet = m_scan.sheets[m_sheet];
        if (m_kept >= m_limits.maxCells)
            damaged(QStringLiteral("too many cells"));
        ++m_kept;
        sheet.cells.insert(xlsCellKey(row, column), std::move(value));
    }

    void boolErr()
    {
        need(8, "BOOLERR");
        const quint32 row = u16(m_record);
        const quint32 column = u16(m_record + 2);
        cell(row, column, "boolean", Kept::Value);
        const quint8 value = quint8(m_record[6]);
        put(row, column, m_record[7] ? CellValue(CellErrorValue{errorCode(value)}) : CellValue(value != 0));
    }

    // FreeXL skips formulas; their last results are what a spreadsheet shows.
    void formula()
    {
        need(20, "FORMULA");
        const quint32 row = u16(m_record);
        const quint32 column = u16(m_record + 2);
        cell(row, column, "formula", Kept::Nothing);
        const char *result = m_record + 6;
        if (u16(result + 6) != 0xFFFF) {
            put(row, column, f64(result));
            return;
        }
        switch (quint8(result[0])) {
        case 0: m_stringFor = {row, column, m_sheet}; break;   // the text follows in a STRING record
        case 1: put(row, column, quint8(result[2]) != 0); break;
        case 2: put(row, column, CellErrorValue{errorCode(quint8(result[2]))}); break;
        default: put(row, column, QString()); break;
        }
    }

    void formulaString()
    {
        const StringTarget target = std::exchange(m_stringFor, StringTarget{});
        if (target.sheet < 0 || target.sheet != m_sheet || !m_biff8)
            return;
        need(3, "STRING");
        const int chars = u16(m_record);
        const bool wide = m_record[2] & 1;
        need(3 + chars * (wide ? 2 : 1), "STRING");
        put(target.row, target.column,
            wide ? QString::fromUtf16(reinterpret_cast<const char16_t *>(m_record + 3), chars)
                 : QString::fromLatin1(m_record + 3, chars));
    }

    // The strings themselves are read and rewritten for FreeXL by biff_rewrite.cpp; here
    // only their number counts.
    void sst()
    {
        if (m_sstSeen)
            damaged(QStringLiteral("second shared string table"));
        m_sstSeen = true;
        need(8, "SST");
        m_sstCount = u32(m_record + 4);
        if (m_sstCount > quint64(m_limits.maxStrings))
            damaged(QStringLiteral("%1 shared strings").arg(m_sstCount));
    }

    struct SheetSize
    {
        quint32 rows;
        quint32 columns;
        bool known;
    };
    struct StringTarget
    {
        quint32 row = 0;
        quint32 column = 0;
        int sheet = -1;
    };
    enum BofState { Expected, Inside, Between };

    const QByteArray &m_data;
    const XlsLimits &m_limits;
    const char *m_record = nullptr;
    int m_length = 0;
    BofState m_bof = Expected;
    bool m_biff8 = true;
    int m_sheet = -1;
    QList<quint32> m_offsets;
    QList<SheetSize> m_dimensions;
    QList<QSet<quint32>> m_textCells;
    QList<quint16> m_xfFormats;
    QSet<quint16> m_dateFormats;
    int m_dateOrTimeFormats = 0;
    qint64 m_cells = 0;
    qint64 m_kept = 0;
    bool m_sstSeen = false;
    quint64 m_sstCount = 0;
    StringTarget m_stringFor;
    XlsScan m_scan;
};

} // namespace

XlsScan scanWorkbookStream(const QByteArray &stream, const XlsLimits &limits)
{
    return Scanner(stream, limits).run();
}

} // namespace est::workbook::detail
