#include "photos/photo_import.h"

#include <QBuffer>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <QImageWriter>
#include <QPainter>

#include <libexif/exif-data.h>

#include <memory>

namespace est::photos {

namespace {

constexpr int kJpegQuality = 85;
// Decoding memory a photo may take (the scaled read of a JPEG stays far below it).
constexpr int kAllocationLimitMb = 256;

// Reads the image scaled to fit maxSide, upright; null when it is not a JPEG or PNG.
QImage readScaled(QImageReader &reader, int maxSide)
{
    reader.setDecideFormatFromContent(true);
    reader.setAutoTransform(true);
    reader.setAllocationLimit(kAllocationLimitMb);
    const QByteArray format = reader.format();
    if (format != "jpeg" && format != "png")
        return QImage();
    const QSize size = reader.size();
    if (size.isEmpty())
        return QImage();
    if (std::max(size.width(), size.height()) > maxSide)
        reader.setScaledSize(size.scaled(maxSide, maxSide, Qt::KeepAspectRatio).expandedTo(QSize(1, 1)));
    QImage image = reader.read();
    if (image.isNull())
        return QImage();
    if (image.hasAlphaChannel()) {
        // Transparent parts of a PNG show on white, as on paper.
        QImage flat(image.size(), QImage::Format_RGB32);
        flat.fill(Qt::white);
        QPainter(&flat).drawImage(0, 0, image);
        return flat;
    }
    return image;
}

int bigEndian16(const QByteArray &b, int at)
{
    return (int(quint8(b[at])) << 8) | int(quint8(b[at + 1]));
}

// A JPEG cut short (copied off a phone halfway) still decodes, grey below the cut: it is
// whole only with an end-of-image marker after the start of its scan. Inside the scan every
// 0xFF byte is followed by 0 or a restart marker, so the end marker cannot be mistaken.
bool jpegIsWhole(QFile &file)
{
    qint64 at = 2;
    qint64 scan = -1;
    for (int segments = 0; segments < 4096 && scan < 0; ++segments) {
        if (!file.seek(at))
            return false;
        const QByteArray head = file.read(4);
        if (head.size() < 2 || quint8(head[0]) != 0xFF)
            return false;
        const int marker = quint8(head[1]);
        if (marker == 0xDA)
            scan = at;
        else if (marker == 0xFF)
            at += 1;
        else if (marker == 0x01 || (marker >= 0xD0 && marker <= 0xD7))
            at += 2;
        else if (head.size() == 4)
            at += 2 + bigEndian16(head, 2);
        else
            return false;
    }
    if (scan < 0 || !file.seek(scan + 2))
        return false;
    char previous = 0;
    while (!file.atEnd()) {
        const QByteArray chunk = file.read(1 << 20);
        if (chunk.isEmpty())
            return false;
        if ((previous == '\xFF' && chunk[0] == '\xD9') || chunk.contains("\xFF\xD9"))
            return true;
        previous = chunk.back();
    }
    return false;
}

QString exifText(ExifData *data, ExifIfd ifd, ExifTag tag)
{
    ExifEntry *entry = exif_content_get_entry(data->ifd[ifd], tag);
    if (!entry)
        return QString();
    char value[64] = {};
    exif_entry_get_value(entry, value, sizeof value);
    return QString::fromLatin1(value).trimmed();
}

} // namespace

QDateTime photoDate(const QString &path)
{
    const std::unique_ptr<ExifData, decltype(&exif_data_unref)> data(exif_data_new_from_file(path.toLocal8Bit().constData()),
                                                                      &exif_data_unref);
    if (data) {
        for (const auto &[ifd, tag] : {std::pair{EXIF_IFD_EXIF, EXIF_TAG_DATE_TIME_ORIGINAL}, std::pair{EXIF_IFD_0, EXIF_TAG_DATE_TIME}}) {
            const QDateTime when = QDateTime::fromString(exifText(data.get(), ifd, tag), QStringLiteral("yyyy:MM:dd HH:mm:ss"));
            if (when.isValid())
                return when;
        }
    }
    return QFileInfo(path).lastModified();
}

QString dateCaption(const QDateTime &when)
{
    return when.isValid() ? when.toString(QStringLiteral("yyyy/MM/dd HH:mm")) : QString();
}

std::optional<EstimatePhoto> importPhoto(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    if (file.peek(2) == "\xFF\xD8" && !jpegIsWhole(file))
        return std::nullopt;
    file.seek(0);
    QImageReader reader(&file);
    const QImage image = readScaled(reader, kMaxPhotoSide);
    if (image.isNull())
        return std::nullopt;
    EstimatePhoto photo;
    QBuffer buffer(&photo.image);
    buffer.open(QIODevice::WriteOnly);
    QImageWriter writer(&buffer, "jpeg");
    writer.setQuality(kJpegQuality);
    if (!writer.write(image))
        return std::nullopt;
    photo.caption = dateCaption(photoDate(path));
    return photo;
}

QImage photoImage(const QByteArray &stored, int maxSide)
{
    QBuffer buffer;
    buffer.setData(stored);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer);
    return readScaled(reader, maxSide);
}

} // namespace est::photos
