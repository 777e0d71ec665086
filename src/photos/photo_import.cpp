#include "photos/photo_import.h"

#include <QBuffer>
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
    QImageReader reader(path);
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
