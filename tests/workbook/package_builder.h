#pragma once
// Builds small .xlsx packages part by part, for tests that need a workbook written by
// "someone else" (shared strings, prefixed elements, damaged parts).

#include <QByteArray>
#include <QList>
#include <QPair>
#include <QString>

namespace est::test {

using Parts = QList<QPair<QString, QByteArray>>;

// A zip of the parts, in order, deflated, or stored as they are (much quicker to make, for
// the fuzzers that zip a package per input).
// Deflate at libzip's default level, deflate at the level a save uses for changed parts, or stored.
enum class Compression { Deflate, DeflateAsSaved, Store };
QByteArray zipParts(const Parts &parts, Compression compression = Compression::Deflate);
// The parts of a zip, inflated, in order (no limits: for packages the test made itself).
Parts unzipParts(const QByteArray &zip);
// The raw (still compressed) data of one entry, or empty when missing.
QByteArray rawEntry(const QByteArray &zip, const QString &name);

// A minimal workbook with one sheet per (name, sheetData XML) and the given shared strings.
Parts minimalWorkbook(const QList<QPair<QString, QByteArray>> &sheets, const QByteArray &sharedStringsXml = {});

} // namespace est::test
