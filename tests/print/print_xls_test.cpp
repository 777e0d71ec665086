// `estimate --pdf` on an .xls estimate prints what the same estimate prints from the .xlsx it
// was made from (the committed samples, tools/make-xls-samples): the same PDF text, page by page.

#include "print/saved_estimate.h"
#include "print/saved_state.h"
#include "print_samples.h"
#include "temp_app_folder.h"
#include "xls_samples.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QProcessEnvironment>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace est::print {
namespace {

class XlsPdf : public ::testing::TestWithParam<const char *>
{
protected:
    void SetUp() override
    {
        if (!test::havePdfTools())
            GTEST_SKIP() << "poppler-utils not installed";
        test::installShop(m_app.path(), test::sampleShop());
    }
    int run(const QString &book, const QString &pdf, QString *errors)
    {
        QProcess p;
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.insert(QStringLiteral("ESTIMATE_APP_HOME"), m_app.path());
        env.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
        p.setProcessEnvironment(env);
        p.start(QStringLiteral(ESTIMATE_PROGRAM), {QStringLiteral("--pdf"), book, pdf, QStringLiteral("--paint"),
                                                   QStringLiteral("--sub")});
        EXPECT_TRUE(p.waitForFinished(60000));
        *errors = QString::fromUtf8(p.readAllStandardError());
        return p.exitCode();
    }
    test::TempAppFolder m_app;
    QTemporaryDir m_dir;
};

TEST_P(XlsPdf, PrintsTheSameTextAsTheXlsxItWasMadeFrom)
{
    const QString name = QString::fromUtf8(GetParam());
    Session session;
    for (const auto &s : test::xlsSamples())
        if (s.name == name)
            session = s.session;
    // Both under the same base name, in folders of their own.
    QDir(m_dir.path()).mkpath(QStringLiteral("xls"));
    const QString xls = m_dir.filePath(QStringLiteral("xls/230105見積.xls"));
    ASSERT_TRUE(QFile::copy(QDir(test::xlsSampleFolder()).filePath(name + QStringLiteral(".xls")), xls));
    const QString xlsx = test::saveWorkbook(session, m_dir.path(), QStringLiteral("230105見積.xlsx"));
    QString errors;
    ASSERT_EQ(run(xls, m_dir.filePath(QStringLiteral("from-xls.pdf")), &errors), 0) << errors.toStdString();
    ASSERT_EQ(run(xlsx, m_dir.filePath(QStringLiteral("from-xlsx.pdf")), &errors), 0) << errors.toStdString();
    const int pages = test::pdfPages(m_dir.filePath(QStringLiteral("from-xlsx.pdf")));
    ASSERT_GT(pages, 0);
    EXPECT_EQ(test::pdfPages(m_dir.filePath(QStringLiteral("from-xls.pdf"))), pages);
    for (int page = 1; page <= pages; ++page)
        EXPECT_EQ(test::pdfText(m_dir.filePath(QStringLiteral("from-xls.pdf")), page),
                  test::pdfText(m_dir.filePath(QStringLiteral("from-xlsx.pdf")), page))
            << "page " << page;
}

INSTANTIATE_TEST_SUITE_P(Samples, XlsPdf,
                         ::testing::Values("full", "kind0", "kind1", "kind2", "kind3", "kind4", "kind5", "kind6",
                                           "texts", "limits", "empty"));

// Printing an estimate opened from an .xls asks to save only when it was changed: the .xls is
// compared with the sheet like a workbook of ours.
TEST(XlsSavedState, TheEstimateReadFromAnXlsIsTheSavedOne)
{
    const QString xls = QDir(test::xlsSampleFolder()).filePath(QStringLiteral("kind2.xls"));
    QString error;
    const auto saved = loadSavedEstimate(xls, &error);
    ASSERT_TRUE(saved.has_value());
    EXPECT_EQ(compareWithWorkbook(saved->session, xls), SavedState::Same);
    Session changed = saved->session;
    changed.header.customerName += QStringLiteral("様");
    EXPECT_EQ(compareWithWorkbook(changed, xls), SavedState::Changed);
}

} // namespace
} // namespace est::print
