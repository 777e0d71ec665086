// The estimate's photos in its workbook: sheet "写真" round-trips the photos in order with
// their captions, leaves every other part as it was, is bounded against hostile workbooks,
// and LibreOffice shows its pictures.

#include "hostile_workbooks.h"
#include "office_convert.h"
#include "package_builder.h"
#include "sample_estimate.h"
#include "sample_photos.h"
#include "scripted_messages.h"
#include "temp_app_folder.h"
#include "workbook/estimate_files.h"
#include "workbook/estimate_layout.h"
#include "workbook/photo_sheet.h"

#include <QDir>
#include <QTemporaryDir>
#include <functional>
#include <gtest/gtest.h>

namespace est::workbook {
namespace {

QList<EstimatePhoto> threePhotos()
{
    return {{test::photoBytes(64, 48, Qt::red), QStringLiteral("2024/01/05 10:30　右フロントフェンダー")},
            {test::photoBytes(30, 40, Qt::green, "PNG"), QString()},
            {test::photoBytes(48, 64, Qt::blue), QStringLiteral("リヤバンパー <傷> & 凹み")}};
}

QByteArray partOf(const test::Parts &parts, const QString &name)
{
    for (const auto &p : parts)
        if (p.first == name)
            return p.second;
    return QByteArray();
}

TEST(PhotoSheet, PhotosRoundTripInOrderWithTheirCaptions)
{
    Session s = test::fullEstimate();
    s.photos = threePhotos();
    auto book = Workbook::fromBytes(estimateWorkbookBytes(test::templateBytes(), s));
    Session read;
    readEstimate(*book, read);
    EXPECT_EQ(test::storedFields(read), test::storedFields(s));
    EXPECT_EQ(book->sheetNames().last(), QStringLiteral("写真"));
    const QList<EstimatePhoto> photos = readPhotos(*book);
    EXPECT_EQ(photos, s.photos);

    // What a spreadsheet program shows: the number and caption above each picture.
    const SheetCells *cells = book->cells(QStringLiteral("写真"));
    EXPECT_EQ(cellText(cells->value(1, 1)), QStringLiteral("写真1"));
    EXPECT_EQ(cellText(cells->value(1, 2)), s.photos[0].caption);
    EXPECT_EQ(cellText(cells->value(1 + kRowsPerPhoto, 1)), QStringLiteral("写真2"));
    EXPECT_EQ(cellText(cells->value(1 + 2 * kRowsPerPhoto, 2)), s.photos[2].caption);

    // Reordered and saved again from the template: the new order comes back.
    std::reverse(s.photos.begin(), s.photos.end());
    auto again = Workbook::fromBytes(estimateWorkbookBytes(test::templateBytes(), s));
    EXPECT_EQ(readPhotos(*again), s.photos);
}

TEST(PhotoSheet, EveryOtherPartStaysAsItWas)
{
    Session s = test::fullEstimate();
    const test::Parts plain = test::unzipParts(estimateWorkbookBytes(test::templateBytes(), s));
    s.photos = threePhotos();
    const test::Parts withPhotos = test::unzipParts(estimateWorkbookBytes(test::templateBytes(), s));
    const QStringList listing = {QStringLiteral("[Content_Types].xml"), QStringLiteral("xl/workbook.xml"),
                                 QStringLiteral("xl/_rels/workbook.xml.rels")};
    int compared = 0;
    for (const auto &[name, bytes] : plain) {
        if (listing.contains(name))
            continue;
        EXPECT_EQ(partOf(withPhotos, name), bytes) << name.toStdString();
        ++compared;
    }
    EXPECT_GT(compared, 4);
    // Three pictures stored, plus the sheet, its drawing and their relationships.
    EXPECT_EQ(withPhotos.size(), plain.size() + 3 + 4);

    // Without photos the workbook has no sheet 写真.
    auto book = Workbook::fromBytes(test::zipParts(plain));
    EXPECT_FALSE(book->sheetNames().contains(QStringLiteral("写真")));
    EXPECT_TRUE(readPhotos(*book).isEmpty());
}

struct SizeCase
{
    const char *name;
    QByteArray bytes;
    QSize size;
};

class DeclaredSize : public ::testing::TestWithParam<SizeCase>
{
};

TEST_P(DeclaredSize, IsReadFromTheHeader)
{
    EXPECT_EQ(declaredImageSize(GetParam().bytes), GetParam().size);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, DeclaredSize,
    ::testing::Values(SizeCase{"jpeg", test::photoBytes(64, 48, Qt::red), QSize(64, 48)},
                      SizeCase{"png", test::photoBytes(30, 40, Qt::red, "PNG"), QSize(30, 40)},
                      SizeCase{"pdf", QByteArray("%PDF-1.4\n"), QSize()},
                      SizeCase{"cutJpeg", test::photoBytes(64, 48, Qt::red).left(20), QSize()},
                      SizeCase{"badMarker", QByteArray("\xFF\xD8\x00\x00\x00\x00\x00\x00\x00\x00\x00\x00", 12), QSize()}),
    [](const auto &info) { return std::string(info.param.name); });

// A workbook with photos, changed part by part the way a hostile file would be.
struct HostileCase
{
    const char *name;
    std::function<void(test::Parts &)> change;
    ErrorKind kind;
};

class HostilePhotoSheet : public ::testing::TestWithParam<HostileCase>
{
};

TEST_P(HostilePhotoSheet, IsRefusedWithItsReason)
{
    Session s = test::fullEstimate();
    s.photos = threePhotos();
    test::Parts parts = test::unzipParts(estimateWorkbookBytes(test::templateBytes(), s));
    GetParam().change(parts);
    auto book = Workbook::fromBytes(test::zipParts(parts));
    try {
        readPhotos(*book);
        FAIL() << "read";
    } catch (const WorkbookError &e) {
        EXPECT_EQ(e.kind(), GetParam().kind) << e.detail().toStdString();
    }
}

void replacePart(test::Parts &parts, const QString &name, const QByteArray &bytes)
{
    for (auto &p : parts)
        if (p.first == name)
            p.second = bytes;
}

QByteArray drawingWith(const test::Parts &parts, int anchors)
{
    QByteArray drawing = partOf(parts, QStringLiteral("xl/drawings/pictures1.xml"));
    const qsizetype from = drawing.indexOf("<xdr:oneCellAnchor>");
    const qsizetype to = drawing.indexOf("</xdr:oneCellAnchor>") + qsizetype(strlen("</xdr:oneCellAnchor>"));
    const QByteArray anchor = drawing.mid(from, to - from);
    return drawing.left(from) + anchor.repeated(anchors) + drawing.mid(drawing.lastIndexOf("</xdr:wsDr>"));
}

INSTANTIATE_TEST_SUITE_P(
    Cases, HostilePhotoSheet,
    ::testing::Values(
        HostileCase{"aPdfAsPicture",
                    [](test::Parts &p) { replacePart(p, QStringLiteral("xl/media/picture1.jpeg"), "%PDF-1.4\n"); },
                    ErrorKind::Damaged},
        HostileCase{"aMissingPicture",
                    [](test::Parts &p) {
                        p.removeIf([](const auto &part) { return part.first == QStringLiteral("xl/media/picture1.png"); });
                    },
                    ErrorKind::Damaged},
        HostileCase{"aPictureOutsideTheSheet",
                    [](test::Parts &p) {
                        QByteArray d = partOf(p, QStringLiteral("xl/drawings/pictures1.xml"));
                        replacePart(p, QStringLiteral("xl/drawings/pictures1.xml"),
                                    d.replace("<xdr:row>1</xdr:row>", "<xdr:row>99999999</xdr:row>"));
                    },
                    ErrorKind::Damaged},
        HostileCase{"moreThanSixtyPictures",
                    [](test::Parts &p) {
                        replacePart(p, QStringLiteral("xl/drawings/pictures1.xml"), drawingWith(p, kMaxPhotos + 1));
                    },
                    ErrorKind::TooLarge},
        HostileCase{"aBrokenDrawing",
                    [](test::Parts &p) { replacePart(p, QStringLiteral("xl/drawings/pictures1.xml"), "<xdr:wsDr"); },
                    ErrorKind::Damaged}),
    [](const auto &info) { return std::string(info.param.name); });

TEST(PhotoSheet, SixtyOfOnePictureAreRead)
{
    Session s = test::fullEstimate();
    s.photos = threePhotos();
    test::Parts parts = test::unzipParts(estimateWorkbookBytes(test::templateBytes(), s));
    replacePart(parts, QStringLiteral("xl/drawings/pictures1.xml"), drawingWith(parts, kMaxPhotos));
    auto book = Workbook::fromBytes(test::zipParts(parts));
    const QList<EstimatePhoto> photos = readPhotos(*book);
    ASSERT_EQ(photos.size(), kMaxPhotos);
    EXPECT_EQ(photos.last().image, s.photos[0].image);
}

TEST(PhotoSheet, SixtyPhotosFillingThePackageToItsLimitAreRead)
{
    const QByteArray bytes = test::photoSheetAtTheLimitsWorkbook();
    EXPECT_GT(bytes.size(), Limits{}.maxFileBytes - 1024 * 1024);
    auto book = Workbook::fromBytes(bytes);
    Session s;
    readEstimate(*book, s);
    const QList<EstimatePhoto> photos = readPhotos(*book);
    ASSERT_EQ(photos.size(), kMaxPhotos);
    EXPECT_TRUE(photos.last().image.endsWith('h'));   // the 60th picture, 'a' + 59 % 26
}

TEST(PhotoSheet, LibreOfficeShowsThePictures)
{
    if (test::soffice().isEmpty())
        GTEST_SKIP() << "LibreOffice is not installed";
    test::TempAppFolder folder;
    test::ScriptedMessages messages;
    Session s = test::fullEstimate();
    s.photos = threePhotos();
    s.fileName = QStringLiteral("240105写真.xlsx");
    s.editExisting = true;
    ASSERT_TRUE(saveEstimateWorkbook(s, messages, folder.path())) << messages.lastText().toStdString();
    QTemporaryDir out;
    const QStringList files = test::convertWithOffice(QDir(estimatesFolder(folder.path())).filePath(s.fileName),
                                                      QStringLiteral("ods"), out.path());
    ASSERT_EQ(files.size(), 1);
    QFile ods(QDir(out.path()).filePath(files.first()));
    ASSERT_TRUE(ods.open(QIODevice::ReadOnly));
    const test::Parts parts = test::unzipParts(ods.readAll());
    const QString content = QString::fromUtf8(partOf(parts, QStringLiteral("content.xml")));
    const qsizetype sheet = content.indexOf(QStringLiteral("table:name=\"写真\""));
    ASSERT_GE(sheet, 0);
    EXPECT_EQ(content.mid(sheet).count(QStringLiteral("<draw:image ")), 3);
    int pictures = 0;
    for (const auto &p : parts)
        pictures += p.first.startsWith(QLatin1String("Pictures/"));
    EXPECT_EQ(pictures, 3);
    EXPECT_TRUE(content.mid(sheet).contains(QStringLiteral("右フロントフェンダー")));
}

} // namespace
} // namespace est::workbook
