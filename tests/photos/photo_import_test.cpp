// Reading photo files: upright, at most 1,600 pixels on the long side, only JPEG and PNG,
// captioned with the date taken; adding to an estimate's photos up to the limit.

#include "photos/photo_album.h"
#include "photos/photo_import.h"
#include "sample_photos.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QTemporaryDir>
#include <functional>
#include <gtest/gtest.h>

namespace est::photos {
namespace {

QString fileIn(const QTemporaryDir &dir, const char *name)
{
    return QDir(dir.path()).filePath(QString::fromUtf8(name));
}

void writeBytes(const QString &path, const QByteArray &bytes)
{
    QFile f(path);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write(bytes);
}

struct ImportCase
{
    const char *name;
    const char *file;
    std::function<void(const QString &)> make;
    QSize stored;   // empty: refused
};

class ImportPhoto : public ::testing::TestWithParam<ImportCase>
{
};

TEST_P(ImportPhoto, StoresItUprightAndShrunkOrRefusesIt)
{
    QTemporaryDir dir;
    const QString path = fileIn(dir, GetParam().file);
    GetParam().make(path);
    const std::optional<EstimatePhoto> photo = importPhoto(path);
    if (GetParam().stored.isEmpty()) {
        EXPECT_FALSE(photo);
        return;
    }
    ASSERT_TRUE(photo);
    EXPECT_TRUE(photo->image.startsWith("\xFF\xD8\xFF"));
    EXPECT_EQ(QImage::fromData(photo->image).size(), GetParam().stored);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, ImportPhoto,
    ::testing::Values(
        ImportCase{"smallJpeg", "a.jpg", [](const QString &p) { test::writePhoto(p, 64, 48, Qt::red); }, QSize(64, 48)},
        ImportCase{"png", "b.png", [](const QString &p) { test::writePhoto(p, 30, 40, Qt::green); }, QSize(30, 40)},
        ImportCase{"pngNamedJpg", "c.jpg",
                   [](const QString &p) { writeBytes(p, test::photoBytes(20, 10, Qt::blue, "PNG")); }, QSize(20, 10)},
        ImportCase{"large", "d.jpg", [](const QString &p) { test::writePhoto(p, 3200, 2400, Qt::gray); }, QSize(1600, 1200)},
        // 2000 x 3000 shrinks to 1066 x 1600, then turns a quarter to 1600 x 1066.
        ImportCase{"largeTurned", "e.jpg", [](const QString &p) { test::writePhoto(p, 2000, 3000, Qt::gray, 6); },
                   QSize(1600, 1066)},
        ImportCase{"exactlyTheLimit", "f.jpg", [](const QString &p) { test::writePhoto(p, 1600, 900, Qt::gray); },
                   QSize(1600, 900)},
        ImportCase{"heic", "IMG_0001.HEIC",
                   [](const QString &p) { writeBytes(p, QByteArray("\0\0\0\x18" "ftypheic\0\0\0\0mif1heic", 24)); }, QSize()},
        ImportCase{"pdf", "見積.pdf", [](const QString &p) { writeBytes(p, "%PDF-1.4\n%\xE2\xE3\xCF\xD3\n"); }, QSize()},
        ImportCase{"damagedJpeg", "g.jpg",
                   [](const QString &p) {
                       QByteArray b = test::photoBytes(64, 48, Qt::red);
                       writeBytes(p, b.left(4) + QByteArray(b.size() - 4, '\x55'));
                   },
                   QSize()},
        ImportCase{"cutJpeg", "k.jpg",
                   [](const QString &p) {
                       const QByteArray b = test::photoBytes(640, 480, Qt::red);
                       writeBytes(p, b.left(b.size() / 2));
                   },
                   QSize()},
        ImportCase{"empty", "h.jpg", [](const QString &p) { writeBytes(p, QByteArray()); }, QSize()},
        ImportCase{"missing", "nothing.jpg", [](const QString &) {}, QSize()}),
    [](const auto &info) { return std::string(info.param.name); });

TEST(ImportPhotoTurning, TheTopOfAPhotoTakenSidewaysEndsOnTheRight)
{
    QTemporaryDir dir;
    const QString path = fileIn(dir, "turned.jpg");
    test::writePhoto(path, 64, 48, QColor(250, 250, 250), 6);   // the dark band along its top
    const QImage image = QImage::fromData(importPhoto(path)->image);
    ASSERT_EQ(image.size(), QSize(48, 64));
    EXPECT_LT(qGray(image.pixel(44, 32)), 128);
    EXPECT_GT(qGray(image.pixel(4, 32)), 200);
}

TEST(PhotoCaption, IsTheDateTakenElseTheFileTime)
{
    QTemporaryDir dir;
    const QString taken = fileIn(dir, "taken.jpg");
    test::writePhoto(taken, 32, 24, Qt::red, 1, "2024:01:05 10:30:00");
    EXPECT_EQ(importPhoto(taken)->caption, QStringLiteral("2024/01/05 10:30"));

    const QString plain = fileIn(dir, "plain.png");
    test::writePhoto(plain, 32, 24, Qt::red);
    QFile f(plain);
    ASSERT_TRUE(f.open(QIODevice::ReadWrite));
    ASSERT_TRUE(f.setFileTime(QDateTime(QDate(2023, 12, 24), QTime(9, 15)), QFileDevice::FileModificationTime));
    f.close();
    EXPECT_EQ(importPhoto(plain)->caption, QStringLiteral("2023/12/24 09:15"));
}

TEST(PhotoAlbum, AddsUpToTheLimitAndNamesWhatItRefuses)
{
    QTemporaryDir dir;
    const QString a = fileIn(dir, "a.jpg"), b = fileIn(dir, "b.HEIC"), c = fileIn(dir, "c.png"), d = fileIn(dir, "d.jpg");
    test::writePhoto(a, 16, 12, Qt::red);
    writeBytes(b, "\0\0\0\x18" "ftypheic");
    test::writePhoto(c, 16, 12, Qt::green);
    test::writePhoto(d, 16, 12, Qt::blue);
    QList<EstimatePhoto> photos(kMaxPhotos - 2, EstimatePhoto{test::photoBytes(8, 8, Qt::black), QString()});
    QList<std::pair<int, int>> steps;
    const AddOutcome outcome = addPhotos(photos, {a, b, c, d}, [&steps](int done, int total) { steps.append({done, total}); });
    EXPECT_EQ(outcome.added, 2);
    EXPECT_EQ(outcome.refused, QStringList{QStringLiteral("b.HEIC")});
    EXPECT_EQ(outcome.leftOut, 1);
    EXPECT_EQ(photos.size(), kMaxPhotos);
    EXPECT_EQ(QImage::fromData(photos.last().image).pixelColor(8, 10).green() > 200, true);
    EXPECT_EQ(steps, (QList<std::pair<int, int>>{{1, 4}, {2, 4}, {3, 4}}));
    EXPECT_EQ(outcomeMessage(outcome),
              QStringLiteral("b.HEIC\nこの写真は読み込めません（JPEG または PNG を選んでください）。\n\n"
                             "写真は1つの見積に60枚までです。1枚は追加しませんでした。"));
    EXPECT_EQ(outcomeMessage(AddOutcome{3, {}, 0}), QString());
}

TEST(PhotoAlbum, StopsWhereThePhotosWouldPassTheirTotalSize)
{
    QTemporaryDir dir;
    const QString a = fileIn(dir, "a.jpg"), b = fileIn(dir, "b.jpg");
    test::writePhoto(a, 16, 12, Qt::red);
    test::writePhoto(b, 16, 12, Qt::blue);
    // What is there leaves room for less than one more photo.
    QList<EstimatePhoto> photos{{QByteArray(kMaxPhotoBytes - 100, 'x'), QString()}};
    const AddOutcome outcome = addPhotos(photos, {a, b});
    EXPECT_EQ(outcome.added, 0);
    EXPECT_EQ(outcome.tooMuch, 2);
    EXPECT_EQ(photos.size(), 1);
    EXPECT_EQ(outcomeMessage(outcome), QStringLiteral("写真の合計が大きすぎます（40 MBまで）。2枚は追加しませんでした。"));
}

TEST(PhotoAlbum, MovesWithinTheList)
{
    QList<EstimatePhoto> photos{{{}, "1"}, {{}, "2"}, {{}, "3"}};
    EXPECT_TRUE(movePhoto(photos, 2, 0));
    EXPECT_FALSE(movePhoto(photos, 1, 1));
    EXPECT_FALSE(movePhoto(photos, 0, 3));
    QStringList order;
    for (const EstimatePhoto &p : photos)
        order.append(p.caption);
    EXPECT_EQ(order, (QStringList{"3", "1", "2"}));
}

TEST(StoredPhoto, IsReadScaledWhateverSizeItDeclares)
{
    EXPECT_EQ(photoImage(test::photoBytes(400, 300, Qt::red), 100).size(), QSize(100, 75));
    EXPECT_EQ(photoImage(test::photoBytes(40, 30, Qt::red, "PNG"), 100).size(), QSize(40, 30));
    EXPECT_TRUE(photoImage("%PDF-1.4", 100).isNull());
    // A PNG header declaring 60000 x 60000 pixels with no data behind it.
    QByteArray png = test::photoBytes(4, 4, Qt::red, "PNG");
    png[16] = 0, png[17] = 0, png[18] = char(0xEA), png[19] = 0x60;
    png[20] = 0, png[21] = 0, png[22] = char(0xEA), png[23] = 0x60;
    EXPECT_TRUE(photoImage(png, 100).isNull());
}

} // namespace
} // namespace est::photos
