#include "workbook/deflated_part.h"

#include "workbook/xml_part.h"

#include <zlib.h>

#include <algorithm>
#include <cstring>
#include <memory>

namespace est::workbook {

DeflatedPart deflatePiece(QByteArrayView text)
{
    DeflatedPart piece;
    piece.size = text.size();
    piece.crc = quint32(crc32(0, reinterpret_cast<const Bytef *>(text.data()), uInt(text.size())));
    z_stream z{};
    // The level the zip writer uses for changed parts; raw deflate, as zip entries hold it.
    if (deflateInit2(&z, 6, Z_DEFLATED, -15, 8, Z_DEFAULT_STRATEGY) != Z_OK)
        detail::fail(ErrorKind::WriteFailed, QStringLiteral("deflate"));
    // Room for the flush's empty stored block too.
    piece.data.resize(qsizetype(deflateBound(&z, uLong(text.size())) + 64));
    z.next_in = reinterpret_cast<Bytef *>(const_cast<char *>(text.data()));
    z.avail_in = uInt(text.size());
    z.next_out = reinterpret_cast<Bytef *>(piece.data.data());
    z.avail_out = uInt(piece.data.size());
    const int result = deflate(&z, Z_FULL_FLUSH);
    const bool complete = result == Z_OK && z.avail_in == 0 && z.avail_out > 0;
    piece.data.resize(piece.data.size() - qsizetype(z.avail_out));
    deflateEnd(&z);
    if (!complete)
        detail::fail(ErrorKind::WriteFailed, QStringLiteral("deflate"));
    return piece;
}

void appendPiece(DeflatedPart &to, const DeflatedPart &piece)
{
    to.crc = quint32(crc32_combine(to.crc, piece.crc, z_off_t(piece.size)));
    to.size += piece.size;
    to.data.append(piece.data);
}

DeflatedPart finishPieces(DeflatedPart pieces)
{
    // A final block of fixed codes holding only its end: the bits 1, 01, 0000000.
    pieces.data.append("\x03\x00", 2);
    return pieces;
}

namespace {

struct Reader
{
    const DeflatedPart *part;
    zip_uint64_t at = 0;
    zip_error_t error{};
};

zip_int64_t readDeflated(void *state, void *data, zip_uint64_t length, zip_source_cmd_t command)
{
    auto *reader = static_cast<Reader *>(state);
    const DeflatedPart &part = *reader->part;
    switch (command) {
    case ZIP_SOURCE_OPEN:
        reader->at = 0;
        return 0;
    case ZIP_SOURCE_READ: {
        const zip_uint64_t n = std::min(length, zip_uint64_t(part.data.size()) - reader->at);
        std::memcpy(data, part.data.constData() + reader->at, n);
        reader->at += n;
        return zip_int64_t(n);
    }
    case ZIP_SOURCE_CLOSE:
        return 0;
    case ZIP_SOURCE_STAT: {
        auto *st = static_cast<zip_stat_t *>(data);
        zip_stat_init(st);
        // Compressed already: the zip writer copies the data and takes its checksum from here.
        st->valid = ZIP_STAT_SIZE | ZIP_STAT_COMP_SIZE | ZIP_STAT_COMP_METHOD | ZIP_STAT_CRC;
        st->size = zip_uint64_t(part.size);
        st->comp_size = zip_uint64_t(part.data.size());
        st->comp_method = ZIP_CM_DEFLATE;
        st->crc = part.crc;
        return sizeof(zip_stat_t);
    }
    case ZIP_SOURCE_ERROR:
        return zip_error_to_data(&reader->error, data, length);
    case ZIP_SOURCE_FREE:
        zip_error_fini(&reader->error);
        delete reader;
        return 0;
    case ZIP_SOURCE_SUPPORTS:
        return zip_source_make_command_bitmap(ZIP_SOURCE_OPEN, ZIP_SOURCE_READ, ZIP_SOURCE_CLOSE, ZIP_SOURCE_STAT,
                                              ZIP_SOURCE_ERROR, ZIP_SOURCE_FREE, -1);
    default:
        return -1;
    }
}

} // namespace

zip_source_t *deflatedSource(zip_t *archive, const DeflatedPart &part)
{
    auto reader = std::make_unique<Reader>(Reader{&part});
    zip_error_init(&reader->error);
    zip_source_t *source = zip_source_function(archive, &readDeflated, reader.get());
    if (source)
        reader.release();
    return source;
}

} // namespace est::workbook
