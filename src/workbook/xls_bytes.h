#pragma once
// Internal to the .xls reader: the little-endian numbers of a compound file and its records.

#include <QtGlobal>

namespace est::workbook::detail {

inline quint16 u16(const char *p)
{
    return quint16(quint8(p[0]) | quint8(p[1]) << 8);
}

inline quint32 u32(const char *p)
{
    return quint32(u16(p)) | quint32(u16(p + 2)) << 16;
}

} // namespace est::workbook::detail
