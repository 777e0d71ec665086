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
// The parts of the sheet 写真 that fuzz_photo_sheet replaces.
inline constexpr const char *kPhotoParts[] = {"xl/worksheets/pictures1.xml", "xl/worksheets/_rels/pictures1.xml.rels",
                                              "xl/drawings/pictures1.xml", "xl/drawings/_rels/pictures1.xml.rels",
                                              "xl/media/picture1.jpeg", "xl/media/picture1.png"};
// The same estimate with two small photos on its sheet "写真".
const QByteArray &savedEstimateWithPhotos();
inline QByteArray bytesOf(const std::uint8_t *data, std::size_t size)
{
    return QByteArray(reinterpret_cast<const char *>(data), qsizetype(size));
}

} // namespace est::fuzz
