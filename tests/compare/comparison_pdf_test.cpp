// The printed 修正内容比較表 through real files: two estimates saved as workbooks, compared by
// `estimate --compare`, and the PDF read back with pdftotext (no folding of the text).

#include "comparison_samples.h"
#include "print_samples.h"
#include "temp_app_folder.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace est::compare {
namespace {

class CompareCommand : public ::testing::Test
{
protected:
    void SetUp() override
    {
        if (!test::havePdfTools())
            GTEST_SKIP() << "poppler-utils not installed";
        test::installShop(m_app.path(), test::sampleShop());
        m_before = test::saveWorkbook(test::earlierEstimate(), m_dir.path(), QStringLiteral("240105A.xlsx"));
        m_after = test::saveWorkbook(test::laterEstimate(), m_dir.path(), QStringLiteral("240112A_R2.xlsx"));
    }

    int run(const QStringList &args, QString *errors = nullptr)
    {
        return test::runProgram(QStringLiteral(ESTIMATE_PROGRAM), QStringList{QStringLiteral("--compare")} + args,
                                m_app.path(), errors);
    }

    QTemporaryDir m_dir;
    test::TempAppFolder m_app;
    QString m_before;
    QString m_after;
};

TEST_F(CompareCommand, PrintsTheChangesAndTotalsWorkedOutByHand)
{
    const QString pdf = m_dir.filePath(QStringLiteral("compare.pdf"));
    QString errors;
    ASSERT_EQ(run({m_before, m_after, pdf}, &errors), 0) << errors.toStdString();
    EXPECT_EQ(test::pdfPages(pdf), 1);
    // ESTIMATE_KEEP_PDF names a folder where the PDF stays, for looking at it.
    if (const QString keep = qEnvironmentVariable("ESTIMATE_KEEP_PDF"); !keep.isEmpty())
        QFile::copy(pdf, QDir(keep).filePath(QStringLiteral("compare.pdf")));
    const QString text = test::pdfText(pdf);
    EXPECT_EQ(test::radicalsIn(text), QString());
    const QString flat = test::squeezed(text);
    const QStringList lines{
        "修正内容比較表",
        test::sampleShop().item(1),
        "修正前No.000000123令和6年1月5日240105A.xlsx",
        "修正後No.000000131令和6年1月12日240112A_R2.xlsx",
        "変更前部フロントバンパー52119-47908取替前1.208,40032,500132,500",
        "後1.208,40034,000134,000",
        "追加前部ラジエータグリル53111-47010取替後0.503,50012,800112,800",
        "削除前部ヘッドランプ（右）81130-47480取替前0.805,60045,356145,356",
        "変更右側フロントフェンダー（右）塗装前3.0021,000",
        "後3.5024,500",
        "作業計（Ａ）123,45690,300-33,156",
        "塗装計（Ｂ）78,90082,400+3,500",
        "値引き金額10,1185,000-5,118",
        "消費税19,22416,770-2,454",
        "非課税金額17,00017,0000",
        "前受金額30,00050,000+20,000",
        "請求金額198,462151,470-46,992",
    };
    for (const QString &line : lines)
        EXPECT_TRUE(flat.contains(test::squeezed(line))) << line.toStdString() << "\n" << text.toStdString();
}

TEST_F(CompareCommand, SaysWhenNothingChanged)
{
    const QString pdf = m_dir.filePath(QStringLiteral("same.pdf"));
    ASSERT_EQ(run({m_after, m_after, pdf}), 0);
    const QString text = test::pdfText(pdf);
    EXPECT_EQ(text.count(QStringLiteral("（変更なし）")), 2) << text.toStdString();
    EXPECT_TRUE(test::squeezed(text).contains(QStringLiteral("請求金額151,470151,4700")));
}

TEST_F(CompareCommand, EveryPrintedPageOfARevisionShowsIt)
{
    Session revised = test::fullPrintEstimate();
    revised.revision = 2;
    const QString book = test::saveWorkbook(revised, m_dir.path(), QStringLiteral("240112B_R2.xlsx"));
    const QString pdf = m_dir.filePath(QStringLiteral("revised.pdf"));
    ASSERT_EQ(test::runProgram(QStringLiteral(ESTIMATE_PROGRAM), {QStringLiteral("--pdf"), book, pdf}, m_app.path()), 0);
    const int pages = test::pdfPages(pdf);
    ASSERT_GT(pages, 1);
    for (int page = 1; page <= pages; ++page)
        EXPECT_TRUE(test::pdfText(pdf, page).contains(QStringLiteral("修正2"))) << page;
    // The first revision carries no mark.
    const QString plain = m_dir.filePath(QStringLiteral("first.pdf"));
    ASSERT_EQ(test::runProgram(QStringLiteral(ESTIMATE_PROGRAM), {QStringLiteral("--pdf"), m_before, plain}, m_app.path()), 0);
    EXPECT_FALSE(test::pdfText(plain).contains(QStringLiteral("修正")));
}

struct Failure
{
    const char *name;
    int status;
    const char *message;   // part of what standard error says
};

class CompareFailures : public CompareCommand, public ::testing::WithParamInterface<Failure>
{
protected:
    QStringList arguments(const QString &which)
    {
        const QString pdf = m_dir.filePath(QStringLiteral("out.pdf"));
        if (which == QLatin1String("two paths"))
            return {m_before, pdf};
        if (which == QLatin1String("missing workbook"))
            return {m_dir.filePath(QStringLiteral("nothing.xlsx")), m_after, pdf};
        if (which == QLatin1String("broken workbook")) {
            QFile broken(m_dir.filePath(QStringLiteral("broken.xlsx")));
            broken.open(QIODevice::WriteOnly);
            broken.write("PK\x03\x04 not a workbook");
            broken.close();
            return {m_before, broken.fileName(), pdf};
        }
        return {m_before, m_after, m_dir.filePath(QStringLiteral("no/such/folder/out.pdf"))};
    }
};

TEST_P(CompareFailures, ExitWithTheStatusAndAReason)
{
    QString errors;
    EXPECT_EQ(run(arguments(QString::fromUtf8(GetParam().name)), &errors), GetParam().status);
    EXPECT_TRUE(errors.contains(QString::fromUtf8(GetParam().message))) << errors.toStdString();
    EXPECT_FALSE(QFile::exists(m_dir.filePath(QStringLiteral("out.pdf"))));
}

INSTANTIATE_TEST_SUITE_P(Cases, CompareFailures,
                         ::testing::Values(Failure{"two paths", 1, "3つのパス"},
                                           Failure{"missing workbook", 2, "nothing.xlsx"},
                                           Failure{"broken workbook", 2, "broken.xlsx"},
                                           Failure{"unwritable", 3, "out.pdf"}),
                         [](const ::testing::TestParamInfo<Failure> &info) {
                             QString name = QString::fromUtf8(info.param.name);
                             return name.replace(QLatin1Char(' '), QLatin1Char('_')).toStdString();
                         });

} // namespace
} // namespace est::compare
