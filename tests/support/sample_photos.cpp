#include "sample_photos.h"

#include <QBuffer>
#include <QFile>
#include <QImage>
#include <QPainter>

namespace est::test {

QByteArray photoBytes(int width, int height, QColor colour, const char *format)
{
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(colour);
    QPainter(&image).fillRect(0, 0, width, std::max(1, height / 4), colour.darker(300));
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, format, 90);
    return bytes;
}

namespace {

void put16(QByteArray &b, int v)
{
    b.append(char(v >> 8)).append(char(v & 0xFF));
}

void put32(QByteArray &b, quint32 v)
{
    put16(b, int(v >> 16));
    put16(b, int(v & 0xFFFF));
}

// A big-endian TIFF block: IFD0 with the orientation and a pointer to the EXIF IFD that holds
// DateTimeOriginal.
QByteArray exifBlock(int orientation, const QByteArray &dateTaken)
{
    const QByteArray date = dateTaken.left(19).leftJustified(19, ' ') + '\0';
    QByteArray t = "MM";
    put16(t, 42);
    put32(t, 8);
    // IFD0 at 8: two entries.
    put16(t, 2);
    put16(t, 0x0112), put16(t, 3), put32(t, 1), put16(t, orientation > 0 ? orientation : 1), put16(t, 0);
    const quint32 exifIfd = 8 + 2 + 2 * 12 + 4;
    put16(t, 0x8769), put16(t, 4), put32(t, 1), put32(t, exifIfd);
    put32(t, 0);
    // EXIF IFD: one entry, the date after it.
    put16(t, 1);
    put16(t, 0x9003), put16(t, 2), put32(t, 20), put32(t, exifIfd + 2 + 12 + 4);
    put32(t, 0);
    t += date;
    return "Exif" + QByteArray(2, '\0') + t;
}

} // namespace

void writePhoto(const QString &path, int width, int height, QColor colour, int orientation, const QByteArray &dateTaken)
{
    const bool png = path.endsWith(QLatin1String(".png"), Qt::CaseInsensitive);
    QByteArray bytes = photoBytes(width, height, colour, png ? "PNG" : "JPEG");
    if (!png && (orientation > 0 || !dateTaken.isEmpty())) {
        const QByteArray exif = exifBlock(orientation, dateTaken);
        QByteArray segment("\xFF\xE1", 2);
        put16(segment, int(exif.size()) + 2);
        bytes.insert(2, segment + exif);
    }
    QFile f(path);
    if (f.open(QIODevice::WriteOnly))
        f.write(bytes);
}

} // namespace est::test
