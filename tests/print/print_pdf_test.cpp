// Printing through real files: an estimate saved to a workbook, read back, rendered to PDF,
// and the PDF read by the poppler tools (pdftotext, pdfinfo, pdffonts).

#include "package_builder.h"
#include "print/pdf_command.h"
#include "print/print_document.h"
#include "print/print_set.h"
#include "print/saved_estimate.h"
#include "print_samples.h"
#include "temp_app_folder.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QProcessEnvironment>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTextStream>
#include <gtest/gtest.h>

namespace est::print {
namespace {


class PdfTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        if (!test::havePdfTools())
            GTEST_SKIP() << "poppler-utils not installed";
    }

    // Saves, reads back and renders; returns the PDF path.
    QString render(const Session &session, const PrintOptions &options, const print::ShopInfo &shop,
                   int *expectedPages = nullptr)
    {
        const QString book = test::saveWorkbook(session, m_dir.path(), QStringLiteral("240105TEST.xlsx"));
        QString error;
        const auto saved = loadSavedEstimate(book, &error);
        EXPECT_TRUE(saved.has_value()) << error.toStdString();
        if (!saved)
            return QString();
        m_doc = buildPrintDocument(saved->session, saved->honorific, shop);
        // ESTIMATE_KEEP_PDF names a folder where the PDFs stay, for looking at them.
        const QString keep = qEnvironmentVariable("ESTIMATE_KEEP_PDF");
        const QString name = QStringLiteral("%1-%2.pdf")
                                 .arg(QString::fromUtf8(::testing::UnitTest::GetInstance()->current_test_info()->name())
                                          .replace(QLatin1Char('/'), QLatin1Char('_')))
                                 .arg(++m_count);
        const QString pdf = keep.isEmpty() ? m_dir.filePath(name) : QDir(keep).filePath(name);
        EXPECT_EQ(writePdf(m_doc, options, pdf), QString());
        EXPECT_EQ(test::radicalsIn(test::pdfText(pdf)), QString()) << "kanji given as radicals";
        if (expectedPages)
            *expectedPages = PrintSet(m_doc, options).pageCount();
        return pdf;
    }

    QTemporaryDir m_dir;
    PrintDocument m_doc;
    int m_count = 0;
};

struct Case
{
    int kind;
    Layout layout;
    const char *title;
    const char *caption;
    bool invoice;
};

class PrintedKinds : public PdfTest, public ::testing::WithParamInterface<Case> {};

TEST_P(PrintedKinds, PdfShowsTitleCustomerAmountsAndTotals)
{
    const Case k = GetParam();
    int pages = 0;
    const QString pdf = render(test::handEstimate(k.kind), PrintOptions{k.layout, false, false, false},
                               test::sampleShop(), &pages);
    EXPECT_EQ(test::pdfPages(pdf), 1);
    EXPECT_EQ(pages, 1);
    const QString text = test::squeezed(test::pdfText(pdf));
    for (const char *expected : {"株式会社さくら運輸", "御中", "山田太郎", "様", "プリウス", "ZVW30-1234567",
                                 "みどり台300さ12-34", "令和6年1月5日", "000000123", "有限会社みどり台オートボディ",
                                 "TEL000-111-2222", "代表取締役緑川健一", "みどり台信用金庫", "下記の通り", "ご査収のほど",
                                 "フロントバンパー", "52119-47908", "8,400", "32,500", "45,356",
                                 // totals worked out by hand (see the model test)
                                 "202,356", "-10,118", "192,238", "19,224", "211,462", "17,000", "228,462",
                                 "-30,000", "¥198,462-", "消費税（10%）", "1/1"})
        EXPECT_TRUE(text.contains(test::squeezed(QString::fromUtf8(expected)))) << expected;
    EXPECT_TRUE(text.contains(test::squeezed(QString::fromUtf8(k.title)))) << k.title;
    EXPECT_TRUE(text.contains(test::squeezed(QString::fromUtf8(k.caption)))) << k.caption;
    EXPECT_EQ(text.contains(QStringLiteral("T1234567890123")), k.invoice);
    EXPECT_EQ(text.contains(QStringLiteral("10%対象")), k.invoice);
    EXPECT_FALSE(text.contains(QStringLiteral("控")));
}

INSTANTIATE_TEST_SUITE_P(
    KindsAndLayouts, PrintedKinds,
    ::testing::Values(Case{0, Layout::A, "概算見積書", "御見積金額", false}, Case{0, Layout::B, "概算見積書", "御見積金額", false},
                      Case{1, Layout::A, "お見積書", "御見積金額", false}, Case{1, Layout::B, "お見積書", "御見積金額", false},
                      Case{2, Layout::A, "見積書", "御見積金額", false}, Case{2, Layout::B, "見積書", "御見積金額", false},
                      Case{3, Layout::A, "ご請求書", "御請求金額", true}, Case{3, Layout::B, "ご請求書", "御請求金額", true},
                      Case{4, Layout::A, "請求書", "御請求金額", true}, Case{4, Layout::B, "請求書", "御請求金額", true},
                      Case{5, Layout::A, "納品書", "合計金額", false}, Case{5, Layout::B, "納品書", "合計金額", false},
                      Case{6, Layout::A, "納品/請求書", "御請求金額", true},
                      Case{6, Layout::B, "納品/請求書", "御請求金額", true}));

class PrintedSets : public PdfTest, public ::testing::WithParamInterface<Layout> {};

TEST_P(PrintedSets, PaintSubSheetAndShopCopy)
{
    int pages = 0;
    const QString pdf = render(test::handEstimate(3), PrintOptions{GetParam(), true, true, true}, test::sampleShop(), &pages);
    // Main document, paint sheet, sub sheet; then the same three marked as the shop's copy.
    EXPECT_EQ(pages, 6);
    EXPECT_EQ(test::pdfPages(pdf), 6);
    const QString paint = test::squeezed(test::pdfText(pdf, 2));
    EXPECT_TRUE(paint.contains(QStringLiteral("塗装明細")));
    EXPECT_TRUE(paint.contains(QStringLiteral("21,000")));
    EXPECT_TRUE(paint.contains(QStringLiteral("30,400")));   // paint material
    EXPECT_TRUE(paint.contains(QStringLiteral("78,900")));   // total B
    EXPECT_TRUE(paint.contains(QStringLiteral("2/3")));
    const QString sub = test::squeezed(test::pdfText(pdf, 3));
    EXPECT_TRUE(sub.contains(QStringLiteral("指数明細")));
    EXPECT_TRUE(sub.contains(QStringLiteral("付加指数")));
    EXPECT_TRUE(sub.contains(QStringLiteral("バンパー塗装")));
    for (int page = 1; page <= 6; ++page)
        EXPECT_EQ(test::pdfText(pdf, page).contains(QStringLiteral("控")), page > 3) << page;
    EXPECT_TRUE(test::squeezed(test::pdfText(pdf, 4)).contains(QStringLiteral("¥198,462-")));
}

TEST_P(PrintedSets, FullEstimateBreaksPagesWithoutCuttingRows)
{
    int pages = 0;
    const Layout layout = GetParam();
    const QString pdf = render(test::fullPrintEstimate(), PrintOptions{layout, false, true, true}, test::sampleShop(), &pages);
    // Worked out from the page geometry: layout A holds 29 rows on the first page and 41 on
    // the others, and the totals need a page of their own (11 pages); layout B holds 32 and
    // 50, and the closing notes fit under the last rows (9 pages). The paint sheet holds 39 +
    // 41 rows (2 pages) and the sub sheet takes one page.
    const int mainPages = layout == Layout::A ? 11 : 9;
    EXPECT_EQ(pages, mainPages + 3);
    ASSERT_EQ(test::pdfPages(pdf), pages);
    QMap<int, int> seen;
    for (int page = 1; page <= pages; ++page) {
        const QString text = test::pdfText(pdf, page);
        EXPECT_TRUE(test::squeezed(text).contains(QStringLiteral("%1/%2").arg(page).arg(pages))) << page;
        if (page <= mainPages - (layout == Layout::A ? 1 : 0)) {
            EXPECT_TRUE(test::squeezed(text).contains(QStringLiteral("作業部位部品番号"))) << "header on page " << page;
        }
        static const QRegularExpression rowLine(QStringLiteral("作業部位 (\\d+) リヤ.*脱着"));
        for (const QString &line : text.split(QLatin1Char('\n'))) {
            const auto m = rowLine.match(line);
            if (m.hasMatch())
                ++seen[m.captured(1).toInt()];
        }
    }
    ASSERT_EQ(seen.size(), kMaxEstimateRows);
    for (auto it = seen.cbegin(); it != seen.cend(); ++it)
        EXPECT_EQ(it.value(), 1) << "row " << it.key();
    // Layout A closes with the totals, layout B opens with them.
    EXPECT_TRUE(test::squeezed(test::pdfText(pdf, layout == Layout::A ? mainPages : 1)).contains(QStringLiteral("総合計金額")));
    EXPECT_TRUE(test::squeezed(test::pdfText(pdf, mainPages)).contains(QStringLiteral("ご査収のほど")));
}

INSTANTIATE_TEST_SUITE_P(Layouts, PrintedSets, ::testing::Values(Layout::A, Layout::B));

TEST_F(PdfTest, JapaneseFontsAreEmbedded)
{
    const QString pdf = render(test::handEstimate(1), PrintOptions{}, test::sampleShop());
    const QStringList lines = test::pdfFonts(pdf).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    ASSERT_GT(lines.size(), 2);
    int noto = 0;
    for (int i = 2; i < lines.size(); ++i) {
        EXPECT_TRUE(lines.at(i).contains(QStringLiteral(" yes "))) << lines.at(i).toStdString();
        if (lines.at(i).contains(QStringLiteral("Noto")))
            ++noto;
    }
    EXPECT_GT(noto, 0);
}

TEST_F(PdfTest, RegistrationNumberOnEstimatesOnlyWhenTheShopAsks)
{
    const QString plain = render(test::handEstimate(2), PrintOptions{}, test::sampleShop(false));
    EXPECT_FALSE(test::pdfText(plain).contains(QStringLiteral("T1234567890123")));
    const QString asked = render(test::handEstimate(2), PrintOptions{}, test::sampleShop(true));
    EXPECT_TRUE(test::pdfText(asked).contains(QStringLiteral("T1234567890123")));
}

TEST_F(PdfTest, AFailedWriteLeavesNoFile)
{
    const QString book = test::saveWorkbook(test::handEstimate(1), m_dir.path(), QStringLiteral("a.xlsx"));
    const auto saved = loadSavedEstimate(book, nullptr);
    ASSERT_TRUE(saved);
    const PrintDocument doc = buildPrintDocument(saved->session, saved->honorific, test::sampleShop());
    // The folder of the target is a file: nothing can be created there.
    const QString blocker = m_dir.filePath(QStringLiteral("blocker"));
    QFile(blocker).open(QIODevice::WriteOnly);
    const QString error = writePdf(doc, PrintOptions{}, blocker + QStringLiteral("/out.pdf"));
    EXPECT_TRUE(error.contains(QStringLiteral("out.pdf"))) << error.toStdString();
    // An existing PDF is kept whole when a new one cannot be completed.
    const QString target = m_dir.filePath(QStringLiteral("keep.pdf"));
    QFile f(target);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write("old");
    f.close();
    EXPECT_EQ(writePdf(doc, PrintOptions{}, target), QString());
    EXPECT_EQ(QDir(m_dir.path()).entryList({QStringLiteral("*.pdf*")}, QDir::Files), QStringList{"keep.pdf"});
}

// The command line, as scripts use it: the real program, its exit status and its errors.
class PdfCommand : public PdfTest
{
protected:
    int run(const QStringList &args, QString *errors = nullptr)
    {
        return test::runProgram(QStringLiteral(ESTIMATE_PROGRAM), QStringList{QStringLiteral("--pdf")} + args, m_app.path(),
                                errors);
    }
    test::TempAppFolder m_app;
};

TEST_F(PdfCommand, RendersASavedWorkbookWithTheApplicationFoldersShop)
{
    test::installShop(m_app.path(), test::sampleShop());
    const QString book = test::saveWorkbook(test::handEstimate(6), m_dir.path(), QStringLiteral("240105INV.xlsx"));
    const QString pdf = m_dir.filePath(QStringLiteral("inv.pdf"));
    QString errors;
    EXPECT_EQ(run({book, pdf, QStringLiteral("--layout"), QStringLiteral("b"), QStringLiteral("--copy"),
                   QStringLiteral("--paint")},
                  &errors),
              0)
        << errors.toStdString();
    EXPECT_EQ(test::pdfPages(pdf), 4);
    EXPECT_EQ(test::radicalsIn(test::pdfText(pdf)), QString());
    const QString text = test::squeezed(test::pdfText(pdf));
    EXPECT_TRUE(text.contains(QStringLiteral("納品/請求書")));
    EXPECT_TRUE(text.contains(QStringLiteral("登録番号T1234567890123")));
    EXPECT_TRUE(text.contains(QStringLiteral("¥198,462-")));
}

struct BadRun
{
    const char *what;
    int status;
    const char *reason;
};

class PdfCommandFailures : public PdfCommand, public ::testing::WithParamInterface<BadRun> {};

TEST_P(PdfCommandFailures, ExitWithAReason)
{
    const BadRun b = GetParam();
    const QString out = m_dir.filePath(QStringLiteral("out.pdf"));
    QStringList args;
    const QString what = QString::fromUtf8(b.what);
    if (what == QLatin1String("missing")) {
        args = {m_dir.filePath(QStringLiteral("nothing.xlsx")), out};
    } else if (what == QLatin1String("garbage")) {
        const QString book = m_dir.filePath(QStringLiteral("garbage.xlsx"));
        QFile f(book);
        f.open(QIODevice::WriteOnly);
        f.write("this is not a workbook");
        f.close();
        args = {book, out};
    } else if (what == QLatin1String("no sheet P")) {
        const QString book = m_dir.filePath(QStringLiteral("nop.xlsx"));
        QFile f(book);
        f.open(QIODevice::WriteOnly);
        f.write(test::zipParts(test::minimalWorkbook({{QStringLiteral("D"), QByteArray()}})));
        f.close();
        args = {book, out};
    } else if (what == QLatin1String("unwritable")) {
        const QString book = test::saveWorkbook(test::handEstimate(1), m_dir.path(), QStringLiteral("ok.xlsx"));
        args = {book, m_dir.filePath(QStringLiteral("no/such/folder/out.pdf"))};
    } else if (what == QLatin1String("bad layout")) {
        args = {QStringLiteral("a.xlsx"), out, QStringLiteral("--layout"), QStringLiteral("C")};
    } else {
        args = {QStringLiteral("only-one.xlsx")};
    }
    QString errors;
    EXPECT_EQ(run(args, &errors), b.status);
    EXPECT_TRUE(errors.contains(QString::fromUtf8(b.reason))) << errors.toStdString();
    EXPECT_FALSE(QFile::exists(out));
}

INSTANTIATE_TEST_SUITE_P(
    Cases, PdfCommandFailures,
    ::testing::Values(BadRun{"missing", PdfUnreadable, "ファイルが見つかりません"},
                      BadRun{"garbage", PdfUnreadable, "ブックではありません"},
                      BadRun{"no sheet P", PdfUnreadable, "シート「D」「P」"},
                      BadRun{"unwritable", PdfWriteFailed, "PDFファイル"},
                      BadRun{"bad layout", PdfUsage, "A か B"},
                      BadRun{"one path", PdfUsage, "2つのパス"}));

} // namespace
} // namespace est::print
