#include "workbook/photo_sheet.h"

#include <algorithm>

namespace est::workbook {

namespace {

// The box a photo is shown in on the sheet, in pixels.
constexpr int kShownWidth = 480;
constexpr int kShownHeight = 360;

int bigEndian16(const QByteArray &b, qsizetype at)
{
    return (int(quint8(b[at])) << 8) | int(quint8(b[at + 1]));
}

} // namespace

QList<EstimatePhoto> readPhotosOf(BookCells &book)
{
    auto *xlsx = dynamic_cast<Workbook *>(&book);
    return xlsx ? readPhotos(*xlsx) : QList<EstimatePhoto>();
}

QSize declaredImageSize(const QByteArray &image)
{
    if (image.startsWith("\x89PNG\r\n\x1A\n") && image.size() >= 24)
        return QSize(bigEndian16(image, 18), bigEndian16(image, 22));
    if (!image.startsWith("\xFF\xD8"))
        return QSize();
    // The JPEG markers up to the frame header (SOF0..SOF15 but DHT, JPG and DAC).
    qsizetype at = 2;
    while (at + 9 < image.size()) {
        if (quint8(image[at]) != 0xFF)
            return QSize();
        const int marker = quint8(image[at + 1]);
        if (marker == 0xFF) {
            ++at;
            continue;
        }
        const int length = bigEndian16(image, at + 2);
        if (marker >= 0xC0 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 && marker != 0xCC)
            return QSize(bigEndian16(image, at + 7), bigEndian16(image, at + 5));
        if (length < 2)
            return QSize();
        at += 2 + length;
    }
    return QSize();
}

void writePhotos(Workbook &book, const QList<EstimatePhoto> &photos)
{
    if (photos.isEmpty())
        return;
    std::vector<SheetPicture> pictures;
    for (qsizetype i = 0; i < photos.size(); ++i) {
        SheetPicture p;
        p.image = photos[i].image;
        p.row = int(i) * kRowsPerPhoto + 2;
        p.column = 2;
        QSize shown = declaredImageSize(p.image);
        if (shown.isEmpty())
            shown = QSize(kShownWidth, kShownHeight);
        shown.scale(kShownWidth, kShownHeight, Qt::KeepAspectRatio);
        p.widthPx = std::max(shown.width(), 1);
        p.heightPx = std::max(shown.height(), 1);
        p.name = QStringLiteral("写真%1").arg(i + 1);
        pictures.push_back(std::move(p));
    }
    Worksheet *sheet = book.setPictureSheet(kPhotoSheet, pictures);
    for (qsizetype i = 0; i < photos.size(); ++i) {
        const int row = int(i) * kRowsPerPhoto + 1;
        sheet->setText(row, 1, QStringLiteral("写真%1").arg(i + 1));
        sheet->setText(row, 2, photos[i].caption.left(kMaxCaption));
    }
}

QList<EstimatePhoto> readPhotos(Workbook &book)
{
    std::vector<SheetPicture> pictures = book.sheetPictures(kPhotoSheet, kMaxPhotos);
    std::stable_sort(pictures.begin(), pictures.end(), [](const SheetPicture &a, const SheetPicture &b) {
        return a.row != b.row ? a.row < b.row : a.column < b.column;
    });
    QList<EstimatePhoto> photos;
    if (pictures.empty())
        return photos;
    const SheetCells *cells = book.sheet(kPhotoSheet);
    for (SheetPicture &p : pictures) {
        EstimatePhoto photo;
        photo.image = std::move(p.image);
        if (cells && p.row > 1)
            photo.caption = cellText(cells->value(p.row - 1, p.column)).left(kMaxCaption);
        photos.append(std::move(photo));
    }
    return photos;
}

} // namespace est::workbook
