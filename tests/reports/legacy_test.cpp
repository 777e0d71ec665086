// Old .xls estimates in the library, the sales report and the bulk conversion of frmExp: an
// .xls is indexed and searched like an .xlsx, counted once when its .xlsx is beside it, and a
// folder of them is converted with skips, failures and cancelling, the .xls files untouched.

#include "fixed_clock.h"
#include "library_fixture.h"
#include "reports/estimate_library.h"
#include "reports/estimate_summary.h"
#include "reports/frm_exp.h"
#include "reports/legacy_conversion.h"
#include "reports/library_refresh.h"
#include "sample_estimate.h"
#include "scripted_messages.h"
#include "workbook/estimate_files.h"
#include "workbook/estimate_layout.h"
#include "xls_samples.h"

#include <QDir>
#include <QFile>
#include <QProgressDialog>
#include <QPushButton>
#include <QRadioButton>
#include <QTemporaryDir>
#include <QTimer>
#include <gtest/gtest.h>

using namespace est;
using namespace est::reports;

namespace {

void copySample(const QString &sample, const QString &target)
{
    QDir().mkpath(QFileInfo(target).path());
    ASSERT_TRUE(QFile::copy(QDir(test::xlsSampleFolder()).filePath(sample + QStringLiteral(".xls")), target));
}

void writeBroken(const QString &target)
{
    QDir().mkpath(QFileInfo(target).path());
    QFile f(target);
    f.open(QIODevice::WriteOnly);
    f.write(test::fileBytes(QDir(test::xlsSampleFolder()).filePath(QStringLiteral("kind1.xls"))).left(5000));
}

Session sampleSession(const QString &name)
{
    for (const auto &s : test::xlsSamples())
        if (s.name == name)
            return s.session;
    return {};
}

// The estimate as the program reads it back from its own .xlsx.
QStringList savedFields(const Session &session)
{
    auto book = workbook::Workbook::fromBytes(workbook::estimateWorkbookBytes(test::templateBytes(), session));
    Session read;
    workbook::readEstimate(*book, read);
    return test::storedFields(read);
}

QStringList fieldsOf(const QString &xlsx)
{
    auto book = workbook::Workbook::open(xlsx);
    Session read;
    workbook::readEstimate(*book, read);
    return test::storedFields(read);
}

class LegacyLibrary : public ::testing::Test
{
protected:
    void SetUp() override { ASSERT_EQ(library.open(), QString()); }
    RefreshOutcome refresh()
    {
        return applyChanges(library, test::mitsumori(folder), findChanges(library, test::mitsumori(folder)));
    }
    test::TempAppFolder folder;
    EstimateLibrary library{folder.path()};
};

} // namespace

TEST_F(LegacyLibrary, IndexesAndFindsAnXlsLikeAnXlsx)
{
    copySample(QStringLiteral("texts"), QDir(test::mitsumori(folder)).filePath(QStringLiteral("古い/230105T.xls")));
    EXPECT_EQ(refresh().read, 1);
    const auto found = library.search(LibraryQuery{QStringLiteral("ヤマダタロウ")});
    ASSERT_EQ(found.size(), 1);
    EXPECT_EQ(found.first().fileName, QStringLiteral("古い/230105T.xls"));
    EXPECT_TRUE(found.first().readable) << found.first().error.toStdString();

    // The same summary as the .xlsx the program saves of the same estimate.
    const QString xlsx = QDir(test::mitsumori(folder)).filePath(QStringLiteral("別/230105T.xlsx"));
    test::saveWorkbook(folder, QStringLiteral("別/230105T.xlsx"), sampleSession(QStringLiteral("texts")));
    const EstimateSummary fromXls = readSummary(QDir(test::mitsumori(folder)).filePath(QStringLiteral("古い/230105T.xls")),
                                                QStringLiteral("x"));
    const EstimateSummary fromXlsx = readSummary(xlsx, QStringLiteral("x"));
    EXPECT_EQ(fromXls.customer, fromXlsx.customer);
    EXPECT_EQ(fromXls.day, fromXlsx.day);
    EXPECT_EQ(fromXls.documentKind, fromXlsx.documentKind);
    EXPECT_EQ(fromXls.grandTotal, fromXlsx.grandTotal);
    EXPECT_EQ(fromXls.amountDue, fromXlsx.amountDue);
}

TEST_F(LegacyLibrary, AnXlsWithItsXlsxBesideItCountsOnce)
{
    const QString mitsumori = test::mitsumori(folder);
    copySample(QStringLiteral("kind4"), QDir(mitsumori).filePath(QStringLiteral("230105請求.xls")));
    refresh();
    const auto all = [this] { return library.sales(QDate(1900, 1, 1), QDate(2100, 1, 1)); };
    ASSERT_EQ(all().size(), 1);
    EXPECT_EQ(all().first().fileName, QStringLiteral("230105請求.xls"));

    test::saveWorkbook(folder, QStringLiteral("230105請求.xlsx"), sampleSession(QStringLiteral("kind4")));
    refresh();
    ASSERT_EQ(all().size(), 1);
    EXPECT_EQ(all().first().fileName, QStringLiteral("230105請求.xlsx"));
    EXPECT_EQ(library.count(), 1);
}

struct PlaceCase
{
    ConversionPlace place;
    const char *target;   // of "2019/190105A.xls" below the chosen folder
};

class Conversion : public ::testing::TestWithParam<PlaceCase>
{
protected:
    test::TempAppFolder app;
    QTemporaryDir old;
    QString at(const QString &relative) const { return QDir(old.path()).filePath(relative); }
};

TEST_P(Conversion, ConvertsSkipsAndListsFailuresDeletingNothing)
{
    copySample(QStringLiteral("kind2"), at(QStringLiteral("2019/190105A.xls")));
    copySample(QStringLiteral("full"), at(QStringLiteral("190106B.xls")));
    writeBroken(at(QStringLiteral("2019/190107壊れ.xls")));
    const QStringList files = legacyEstimatesBelow(old.path());
    EXPECT_EQ(files, (QStringList{"190106B.xls", "2019/190105A.xls", "2019/190107壊れ.xls"}));
    const QByteArray before = test::fileBytes(at(QStringLiteral("2019/190105A.xls")));

    QList<int> steps;
    const ConversionOutcome outcome = convertLegacyEstimates(old.path(), files, GetParam().place, app.path(),
                                                             [&steps](int done, int total) {
                                                                 steps.append(done * 10 + total);
                                                                 return true;
                                                             });
    EXPECT_EQ(steps, (QList<int>{13, 23, 33}));
    EXPECT_EQ(outcome.converted, 2);
    EXPECT_EQ(outcome.skipped, 0);
    ASSERT_EQ(outcome.failures.size(), 1);
    EXPECT_EQ(outcome.failures.first().file, QStringLiteral("2019/190107壊れ.xls"));
    EXPECT_EQ(outcome.failures.first().reason, QStringLiteral("ブックの内容が壊れています。"));

    const QString target = GetParam().place == ConversionPlace::Beside
                               ? at(QString::fromUtf8(GetParam().target))
                               : QDir(workbook::estimatesFolder(app.path())).filePath(QString::fromUtf8(GetParam().target));
    EXPECT_EQ(fieldsOf(target), savedFields(sampleSession(QStringLiteral("kind2"))));
    EXPECT_EQ(test::fileBytes(at(QStringLiteral("2019/190105A.xls"))), before);

    // Again: the converted ones are skipped and keep their .xlsx as it is.
    const QByteArray converted = test::fileBytes(target);
    const ConversionOutcome again = convertLegacyEstimates(old.path(), files, GetParam().place, app.path());
    EXPECT_EQ(again.converted, 0);
    EXPECT_EQ(again.skipped, 2);
    EXPECT_EQ(again.failures.size(), 1);
    EXPECT_EQ(test::fileBytes(target), converted);
}

INSTANTIATE_TEST_SUITE_P(Places, Conversion,
                         ::testing::Values(PlaceCase{ConversionPlace::Beside, "2019/190105A.xlsx"},
                                           PlaceCase{ConversionPlace::EstimatesFolder, "2019/190105A.xlsx"}));

TEST(ConversionCancel, StopsAfterTheFileInHand)
{
    test::TempAppFolder app;
    QTemporaryDir old;
    for (const char *name : {"a.xls", "b.xls", "c.xls"})
        copySample(QStringLiteral("kind0"), QDir(old.path()).filePath(QString::fromUtf8(name)));
    const ConversionOutcome outcome = convertLegacyEstimates(old.path(), legacyEstimatesBelow(old.path()),
                                                             ConversionPlace::Beside, app.path(),
                                                             [](int done, int) { return done < 1; });
    EXPECT_TRUE(outcome.cancelled);
    EXPECT_EQ(outcome.converted, 1);
    EXPECT_EQ(QDir(old.path()).entryList({QStringLiteral("*.xlsx")}, QDir::Files), QStringList{"a.xlsx"});
}

TEST(FrmExp, ConvertsAChosenFolderWithAProgressBarAndAReport)
{
    test::TempAppFolder app;
    QTemporaryDir old;
    copySample(QStringLiteral("kind5"), QDir(old.path()).filePath(QStringLiteral("190105A.xls")));
    writeBroken(QDir(old.path()).filePath(QStringLiteral("190107壊れ.xls")));
    test::ScriptedMessages messages;
    test::FixedClock clock(QDate(2024, 1, 5));
    QList<FileQuestion> asked;
    FrmExp screen(app.path(), clock,
                  [&](QWidget *, FileQuestion question, const QString &) {
                      asked.append(question);
                      return old.path();
                  },
                  messages);
    screen.findChild<QRadioButton *>(QStringLiteral("optMitsumori"))->setChecked(true);
    // The progress bar, looked at while the files are converted.
    int maximum = 0;
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, [&] {
        if (auto *bar = screen.findChild<QProgressDialog *>(QStringLiteral("dlgConvertProgress")); bar && bar->isVisible())
            maximum = bar->maximum();
    });
    look.start(1);
    screen.findChild<QPushButton *>(QStringLiteral("cmdConvert"))->click();
    look.stop();
    EXPECT_EQ(asked, QList<FileQuestion>{FileQuestion::LegacyFolder});
    EXPECT_EQ(maximum, 2);
    EXPECT_EQ(messages.lastText(), QStringLiteral("1 件を .xlsx に変換しました。\n\n読み取れなかったファイル（1 件）：\n"
                                                  "190107壊れ.xls：ブックの内容が壊れています。"));
    EXPECT_TRUE(QFileInfo::exists(QDir(workbook::estimatesFolder(app.path())).filePath(QStringLiteral("190105A.xlsx"))));
    EXPECT_TRUE(QFileInfo::exists(QDir(old.path()).filePath(QStringLiteral("190105A.xls"))));
}
