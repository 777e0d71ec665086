#pragma once
// The estimate's photos in its workbook: sheet "写真", one photo after another, each with
// "写真N" and its caption in the row above it and the picture drawn below, so that any
// spreadsheet program shows them. Sheets "D" and "P" do not change.

#include "common/session.h"
#include "workbook/workbook.h"

#include <QSize>

namespace est::workbook {

inline const QString kPhotoSheet = QStringLiteral("写真");
inline constexpr int kRowsPerPhoto = 20;
inline constexpr qsizetype kMaxCaption = 100;

// Writes the sheet; an estimate without photos gets none.
void writePhotos(Workbook &book, const QList<EstimatePhoto> &photos);
// The photos of the sheet in the order shown (top to bottom); none without the sheet.
// Bounded like the rest of the workbook: at most kMaxPhotos pictures (TooLarge beyond),
// each JPEG or PNG (Damaged otherwise), captions cut at kMaxCaption characters.
QList<EstimatePhoto> readPhotos(Workbook &book);
// The photos of an estimate's workbook of either format (an .xls has none).
QList<EstimatePhoto> readPhotosOf(BookCells &book);
// The pixel size a JPEG or PNG declares in its header; empty when it declares none.
QSize declaredImageSize(const QByteArray &image);

} // namespace est::workbook
