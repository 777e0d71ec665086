// The printing fonts through a real PDF: every kanji that has a look-alike radical, in each
// face the pages use, is found in pdftotext's text as itself, and so is the Japanese
// punctuation that shares its glyph with a Western sign.

#include "print/page_kit.h"
#include "print/print_fonts.h"
#include "print_samples.h"

#include <QPageLayout>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace est::print {
namespace {

// The ideographs that the radicals of U+2E80-U+2FDF stand for by compatibility.
QString ideographsOfRadicals()
{
    QString ideographs;
    for (char32_t radical = 0x2E80; radical <= 0x2FDF; ++radical) {
        const QString r = QString::fromUcs4(&radical, 1);
        const QString folded = r.normalized(QString::NormalizationForm_KC);
        if (folded != r && !ideographs.contains(folded))
            ideographs += folded;
    }
    return ideographs;
}

struct Face
{
    const char *name;
    bool bold;
    bool serif;
};

class PrintFont : public ::testing::TestWithParam<Face>
{
protected:
    void SetUp() override
    {
        if (!test::havePdfTools())
            GTEST_SKIP() << "poppler-utils not installed";
    }
    QTemporaryDir m_dir;
};

TEST_P(PrintFont, EveryKanjiWithALookAlikeRadicalIsItsOwnTextInThePdf)
{
    const Face face = GetParam();
    const QString ideographs = ideographsOfRadicals();
    // 214 Kangxi radicals and two of the supplement (U+2E9F 母, U+2EF3 龟) have one
    ASSERT_EQ(ideographs.toUcs4().size(), 216);
    const QString punctuation = QStringLiteral("・／〈〉｀");
    const QString printed = ideographs + punctuation;

    const QString pdf = m_dir.filePath(QStringLiteral("kanji.pdf"));
    {
        QPdfWriter writer(pdf);
        writer.setResolution(600);
        writer.setPageLayout(QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait, QMarginsF()));
        QPainter painter(&writer);
        Canvas canvas(painter);
        const QFont font = canvas.font(11, face.bold, face.serif);
        const QList<uint> codes = printed.toUcs4();
        constexpr int kPerLine = 20;
        for (int i = 0; i < codes.size(); i += kPerLine) {
            const QString line = QString::fromUcs4(reinterpret_cast<const char32_t *>(codes.data() + i),
                                                   std::min<qsizetype>(kPerLine, codes.size() - i));
            canvas.text(kMargin, kMargin + 7.0 * (i / kPerLine), kContentWidth, 6, line, font);
        }
    }
    const QString text = test::pdfText(pdf);
    EXPECT_EQ(test::radicalsIn(text), QString());
    EXPECT_EQ(test::squeezed(text), printed);
}

INSTANTIATE_TEST_SUITE_P(Faces, PrintFont,
                         ::testing::Values(Face{"Sans", false, false}, Face{"SansBold", true, false},
                                           Face{"SerifBold", true, true}),
                         [](const auto &info) { return std::string(info.param.name); });

TEST(PrintFonts, TheBuildsCopiesArePreferredToTheSystemsFonts)
{
    const PrintFonts &fonts = printFonts();
    ASSERT_FALSE(fonts.sans.isEmpty());
    ASSERT_FALSE(fonts.serif.isEmpty());
    EXPECT_EQ(fonts.sans.first(), QStringLiteral("Noto Sans CJK JP Print"));
    EXPECT_EQ(fonts.serif.first(), QStringLiteral("Noto Serif CJK JP Print"));
    EXPECT_EQ(fonts.sans.last(), QStringLiteral("Noto Sans CJK JP"));
    EXPECT_EQ(fonts.serif.last(), QStringLiteral("Noto Serif CJK JP"));
}

} // namespace
} // namespace est::print
