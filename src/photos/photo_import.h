#pragma once
// Reading a photo file to keep it with an estimate: JPEG or PNG only, turned upright by its
// EXIF orientation, read scaled so that its long side is at most kMaxPhotoSide pixels (a
// 100-megapixel JPEG is decoded at a fraction of its size, so memory stays bounded), and
// stored as JPEG without the file's other metadata.

#include "common/session.h"

#include <QDateTime>
#include <QImage>
#include <QString>

#include <optional>

namespace est::photos {

inline const QString kUnreadablePhoto = QStringLiteral("この写真は読み込めません（JPEG または PNG を選んでください）。");

// The photo of the file, its caption the date it was taken; empty when the file is not a
// JPEG or PNG that can be read.
std::optional<EstimatePhoto> importPhoto(const QString &path);
// The date the photo was taken (EXIF DateTimeOriginal, else DateTime), else the file's time.
QDateTime photoDate(const QString &path);
// "2024/01/05 10:30".
QString dateCaption(const QDateTime &when);
// A stored photo as an image whose long side is at most maxSide (a hostile workbook may
// declare any size: it is read scaled, and what cannot be read is a null image).
QImage photoImage(const QByteArray &stored, int maxSide);

} // namespace est::photos
