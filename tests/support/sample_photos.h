#pragma once
// Photos made to order for tests: a picture of one colour with a darker band at the top (so
// that turning it shows), as JPEG or PNG bytes or as a file.

#include <QByteArray>
#include <QColor>
#include <QString>

namespace est::test {

QByteArray photoBytes(int width, int height, QColor colour, const char *format = "JPEG");
// Writes the photo to the path; with an EXIF block (orientation 1..8 and the date taken as
// "2024:01:05 10:30:00") when either is given (JPEG only).
void writePhoto(const QString &path, int width, int height, QColor colour, int orientation = 0,
                const QByteArray &dateTaken = {});

} // namespace est::test
