// Printing the photos: dlgPrint's 写真 and the command line's --photos / --photos-large add
// photo pages after the estimate, four to a page with "写真N" and the caption, or one large.

#include "print/dlg_print.h"
#include "print/saved_state.h"
#include "print_samples.h"
#include "sample_photos.h"
#include "scripted_messages.h"
#include "temp_app_folder.h"

#include <QCheckBox>
#include <QProcess>
#include <QRadioButton>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace est::print {
namespace {

struct PhotoRun
{
    const char *name;
    const char *option;   // empty: no photo pages
    int photoPages;
};

class PhotoPdf : public ::testing::TestWithParam<PhotoRun>
{
protected:
    void SetUp() override
    {
        if (!test::havePdfTools())
            GTEST_SKIP() << "poppler-utils not installed";
        // ESTIMATE_KEEP_PDF keeps the workbook and the PDFs, for looking at them.
        m_dir.setAutoRemove(qEnvironmentVariableIsEmpty("ESTIMATE_KEEP_PDF"));
        Session s = test::handEstimate(1);
        const QColor colours[] = {Qt::red, Qt::green, Qt::blue, Qt::yellow, Qt::cyan, Qt::magenta};
        for (int i = 0; i < 6; ++i)
            s.photos.append({test::photoBytes(i == 2 ? 90 : 160, 120, colours[i]), QStringLiteral("損傷箇所%1").arg(i + 1)});
        m_book = test::saveWorkbook(s, m_dir.path(), QStringLiteral("240105写真.xlsx"));
    }

    QString pdf(const QStringList &options)
    {
        const QString out = m_dir.filePath(QStringLiteral("out%1.pdf").arg(++m_runs));
        QString errors;
        EXPECT_EQ(test::runProgram(QStringLiteral(ESTIMATE_PROGRAM), QStringList{QStringLiteral("--pdf"), m_book, out} + options,
                                   m_app.path(), &errors),
                  0)
            << errors.toStdString();
        return out;
    }

    QTemporaryDir m_dir;
    test::TempAppFolder m_app;
    QString m_book;
    int m_runs = 0;
};

int pdfImages(const QString &pdf)
{
    QProcess p;
    p.start(QStringLiteral("pdfimages"), {QStringLiteral("-list"), pdf});
    p.waitForFinished(60000);
    // Two header lines, then one line per image.
    return int(QString::fromUtf8(p.readAllStandardOutput()).split(QLatin1Char('\n'), Qt::SkipEmptyParts).size()) - 2;
}

TEST_P(PhotoPdf, AddsThePhotoPagesAfterTheEstimate)
{
    const QString plain = pdf({});
    const int estimatePages = test::pdfPages(plain);
    ASSERT_GT(estimatePages, 0);
    EXPECT_EQ(pdfImages(plain), 0);
    const QString option = QString::fromUtf8(GetParam().option);
    if (option.isEmpty())
        return;
    const QString withPhotos = pdf({option});
    ASSERT_EQ(test::pdfPages(withPhotos), estimatePages + GetParam().photoPages);
    EXPECT_EQ(pdfImages(withPhotos), 6);
    // Photo 5 opens the second photo page with four to a page, the fifth with one.
    const int fifth = estimatePages + (GetParam().photoPages == 2 ? 2 : 5);
    const QString page = test::squeezed(test::pdfText(withPhotos, fifth));
    EXPECT_TRUE(page.contains(QStringLiteral("写真5損傷箇所5"))) << page.toStdString();
    EXPECT_FALSE(page.contains(QStringLiteral("写真4損傷箇所4")));
    EXPECT_TRUE(page.contains(QStringLiteral("写真")));
}

INSTANTIATE_TEST_SUITE_P(Runs, PhotoPdf,
                         ::testing::Values(PhotoRun{"none", "", 0}, PhotoRun{"fourToAPage", "--photos", 2},
                                           PhotoRun{"oneLarge", "--photos-large", 6}),
                         [](const auto &info) { return std::string(info.param.name); });

TEST_F(PhotoPdf, AChangedPhotoIsAnUnsavedChange)
{
    Session s = test::handEstimate(1);
    s.photos.append({test::photoBytes(40, 30, Qt::red), QStringLiteral("前")});
    const QString book = test::saveWorkbook(s, m_dir.path(), QStringLiteral("240105変更.xlsx"));
    EXPECT_EQ(compareWithWorkbook(s, book), SavedState::Same);
    s.photos[0].caption = QStringLiteral("後");
    EXPECT_EQ(compareWithWorkbook(s, book), SavedState::Changed);
    s.photos.clear();
    EXPECT_EQ(compareWithWorkbook(s, book), SavedState::Changed);
}

TEST(DlgPrintPhotos, TheFormCountsOnlyWhenPhotosAreTicked)
{
    test::ScriptedMessages messages;
    DlgPrint dialog(messages);
    auto *photo = dialog.findChild<QCheckBox *>(QStringLiteral("chkPhoto"));
    auto *large = dialog.findChild<QRadioButton *>(QStringLiteral("optPhoto1"));
    EXPECT_EQ(dialog.options().photos, PhotoPages::None);
    EXPECT_FALSE(large->isEnabled());
    photo->click();
    EXPECT_EQ(dialog.options().photos, PhotoPages::Four);
    large->click();
    EXPECT_EQ(dialog.options().photos, PhotoPages::One);
    photo->click();
    EXPECT_EQ(dialog.options().photos, PhotoPages::None);
}

} // namespace
} // namespace est::print
