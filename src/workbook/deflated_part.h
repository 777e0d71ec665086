#pragma once
// Internal to the workbook engine: a part's text compressed in pieces that each stand on their
// own (every piece ends on a full flush), so pieces compressed once can be joined into a part
// without compressing it again, and handed to the zip as they are.

#include <QByteArray>
#include <QByteArrayView>

#include <zip.h>

namespace est::workbook {

struct DeflatedPart
{
    QByteArray data;   // raw deflate data
    quint32 crc = 0;   // CRC-32 of the text
    qint64 size = 0;   // length of the text
};

// The text compressed on its own, ending on a full flush (not a final block).
DeflatedPart deflatePiece(QByteArrayView text);
// Appends a piece to the pieces before it.
void appendPiece(DeflatedPart &to, const DeflatedPart &piece);
// The pieces closed with an empty final block: a complete deflate stream.
DeflatedPart finishPieces(DeflatedPart pieces);

// A zip source giving the compressed data as it is (the zip writes it without inflating and
// deflating again); the part must outlive the archive's closing.
zip_source_t *deflatedSource(zip_t *archive, const DeflatedPart &part);

} // namespace est::workbook
