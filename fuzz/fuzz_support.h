#pragma once
// What the fuzz targets share: a small saved estimate to put fuzzed parts into, and the
// application object Qt needs.

#include "common/session.h"

#include <QByteArray>
#include <cstddef>
#include <cstdint>

namespace est::fuzz {

// Creates the Qt application once.
void initialise();
// A small estimate, and its workbook saved from the default template.
const Session &smallEstimate();
const QByteArray &savedEstimate();
inline QByteArray bytesOf(const std::uint8_t *data, std::size_t size)
{
    return QByteArray(reinterpret_cast<const char *>(data), qsizetype(size));
}

} // namespace est::fuzz
