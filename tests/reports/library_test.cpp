// The estimate library: summaries worked out like the sheet, the index kept in step with the
// workbooks, and searches by fragments of Japanese text.

#include "db/database.h"
#include "library_fixture.h"
#include "reports/estimate_library.h"
#include "reports/library_columns.h"
#include "reports/library_refresh.h"
#include "reports/search_text.h"

#include <QDir>
#include <QFile>
#include <gtest/gtest.h>

using namespace est;
using namespace est::reports;
using est::test::EstimateSpec;

namespace {

struct FoldCase
{
    const char16_t *text;
    const char16_t *folded;
};

class FoldForSearch : public ::testing::TestWithParam<FoldCase> {};

TEST_P(FoldForSearch, FoldsWidthCaseBlanksAndHyphens)
{
    EXPECT_EQ(foldForSearch(QString::fromUtf16(GetParam().text)), QString::fromUtf16(GetParam().folded));
}

INSTANTIATE_TEST_SUITE_P(Texts, FoldForSearch,
                         ::testing::Values(FoldCase{u"ＡＢＣ１２３", u"abc123"}, FoldCase{u"ﾔﾏﾀﾞ ﾀﾛｳ", u"ヤマダタロウ"},
                                           FoldCase{u"品川 500 あ 12-34", u"品川500あ1234"},
                                           FoldCase{u"　山田　太郎　", u"山田太郎"}, FoldCase{u"Prius", u"prius"},
                                           FoldCase{u"O'Brien", u"o'brien"}));

struct EraCase
{
    const char16_t *text;
    QDate day;
};

class EraDates : public ::testing::TestWithParam<EraCase> {};

TEST_P(EraDates, ReadBack)
{
    EXPECT_EQ(parseEraDate(QString::fromUtf16(GetParam().text)), GetParam().day);
}

INSTANTIATE_TEST_SUITE_P(Texts, EraDates,
                         ::testing::Values(EraCase{u"令和6年1月5日", QDate(2024, 1, 5)},
                                           EraCase{u"令和元年5月1日", QDate(2019, 5, 1)},
                                           EraCase{u"平成31年4月30日", QDate(2019, 4, 30)},
                                           EraCase{u"昭和64年1月7日", QDate(1989, 1, 7)},
                                           EraCase{u"令和６年１２月３１日", QDate(2024, 12, 31)},
                                           EraCase{u"令和6年2月30日", QDate()}, EraCase{u"2024/1/5", QDate()},
                                           EraCase{u"", QDate()}));

TEST(DocumentDay, FallsBackToSlipThenFileName)
{
    EXPECT_EQ(documentDay(QStringLiteral("令和6年3月1日"), QStringLiteral("240105001"), QStringLiteral("230101A.xlsx")),
              QDate(2024, 3, 1));
    EXPECT_EQ(documentDay(QString(), QStringLiteral("240105001"), QStringLiteral("230101A.xlsx")), QDate(2024, 1, 5));
    EXPECT_EQ(documentDay(QString(), QString(), QStringLiteral("sub/230101A.xlsx")), QDate(2023, 1, 1));
    EXPECT_FALSE(documentDay(QString(), QString(), QStringLiteral("見積.xlsx")).isValid());
}

// Totals worked out by hand: A + B, discount, tax (half to even), non-taxable, advance.
struct TotalsCase
{
    Yen a, b;
    const char *rate;
    const char *amount;
    Yen nonTaxable;
    const char *advance;
    Yen discount, tax, grand, due;
};

class SummaryTotals : public ::testing::TestWithParam<TotalsCase> {};

TEST_P(SummaryTotals, FollowTheSheetsChain)
{
    const TotalsCase &c = GetParam();
    EstimateSpec tableSpec;
    tableSpec.totalA = c.a;
    tableSpec.totalB = c.b;
    tableSpec.discountRate = QString::fromUtf8(c.rate);
    tableSpec.discountAmount = QString::fromUtf8(c.amount);
    tableSpec.nonTaxable = c.nonTaxable;
    tableSpec.advance = QString::fromUtf8(c.advance);
    const EstimateSummary s = summarize(test::estimateOf(tableSpec), QStringLiteral("240105A.xlsx"));
    EXPECT_EQ(s.totalA, c.a);
    EXPECT_EQ(s.totalB, c.b);
    EXPECT_EQ(s.discount, c.discount);
    EXPECT_EQ(s.tax, c.tax);
    EXPECT_EQ(s.nonTaxable, c.nonTaxable);
    EXPECT_EQ(s.grandTotal, c.grand);
    EXPECT_EQ(s.amountDue, c.due);
    EXPECT_EQ(s.day, QDate(2024, 1, 5));
}

INSTANTIATE_TEST_SUITE_P(
    Cases, SummaryTotals,
    ::testing::Values(
        // 150,000 - 10 % = 135,000; tax 13,500; + 3,000 non-taxable; - 10,000 advance.
        TotalsCase{100000, 50000, "10", "", 3000, "10,000", 15000, 13500, 151500, 141500},
        // 1,125 x 10 % = 112.5 -> 112 (half to even).
        TotalsCase{1125, 0, "", "", 0, "", 0, 112, 1237, 1237},
        // A discount typed by hand: 20,000 - 1,500 = 18,500; tax 1,850.
        TotalsCase{20000, 0, "", "1,500", 500, "", 1500, 1850, 20850, 20850}));

class Library : public ::testing::Test
{
protected:
    void SetUp() override { ASSERT_EQ(library.open(), QString()); }

    void save(const QString &name, const EstimateSpec &tableSpec) { test::saveWorkbook(folder, name, test::estimateOf(tableSpec)); }
    RefreshOutcome refresh(const RefreshProgress &progress = {})
    {
        return applyChanges(library, test::mitsumori(folder), findChanges(library, test::mitsumori(folder)), progress);
    }
    QStringList found(const LibraryQuery &query) const
    {
        QStringList names;
        for (const EstimateSummary &s : library.search(query))
            names << s.fileName;
        return names;
    }
    QStringList found(const QString &text) const { return found(LibraryQuery{text}); }

    test::TempAppFolder folder;
    EstimateLibrary library{folder.path()};
};

TEST_F(Library, FindsASavedEstimateByFragmentsOfCustomerAndRegistration)
{
    EstimateSpec yamada;
    yamada.customer = QStringLiteral("ヤマダ自動車　山田太郎");
    save(QStringLiteral("240105A.xlsx"), yamada);
    EstimateSpec suzuki;
    suzuki.customer = QStringLiteral("鈴木花子");
    suzuki.registration = QStringLiteral("練馬 300 さ 56-78");
    suzuki.car = QStringLiteral("フィット");
    suzuki.slip = QStringLiteral("240106002");
    save(QStringLiteral("240106B.xlsx"), suzuki);
    EXPECT_EQ(refresh().read, 2);

    const QStringList onlyYamada{QStringLiteral("240105A.xlsx")};
    EXPECT_EQ(found(QStringLiteral("太郎")), onlyYamada);
    EXPECT_EQ(found(QStringLiteral("ﾔﾏﾀﾞ")), onlyYamada);          // half-width katakana
    EXPECT_EQ(found(QStringLiteral("１２３４")), onlyYamada);      // full-width digits, no hyphen
    EXPECT_EQ(found(QStringLiteral("12-34")), onlyYamada);
    EXPECT_EQ(found(QStringLiteral("ﾌｨｯﾄ")), QStringList{QStringLiteral("240106B.xlsx")});
    EXPECT_EQ(found(QStringLiteral("06002")), QStringList{QStringLiteral("240106B.xlsx")});
    EXPECT_EQ(found(QString()), (QStringList{QStringLiteral("240106B.xlsx"), QStringLiteral("240105A.xlsx")}));
    EXPECT_TRUE(found(QStringLiteral("佐藤")).isEmpty());
}

TEST_F(Library, DateRangeAndKindNarrowTheResultsNewestFirst)
{
    const QDate days[] = {QDate(2024, 1, 5), QDate(2024, 2, 10), QDate(2024, 3, 15), QDate(2023, 12, 31)};
    const int kinds[] = {2, 4, 5, 4};
    for (int i = 0; i < 4; ++i) {
        EstimateSpec tableSpec;
        tableSpec.day = days[i];
        tableSpec.kind = kinds[i];
        save(QStringLiteral("doc%1.xlsx").arg(i), tableSpec);
    }
    refresh();
    EXPECT_EQ(found(LibraryQuery{}), (QStringList{"doc2.xlsx", "doc1.xlsx", "doc0.xlsx", "doc3.xlsx"}));
    LibraryQuery january{QString(), QDate(2024, 1, 1), QDate(2024, 2, 10)};
    EXPECT_EQ(found(january), (QStringList{"doc1.xlsx", "doc0.xlsx"}));
    LibraryQuery invoices;
    invoices.kind = 4;
    EXPECT_EQ(found(invoices), (QStringList{"doc1.xlsx", "doc3.xlsx"}));
}

TEST_F(Library, DeletedChangedAndBrokenWorkbooksAreNoticed)
{
    save(QStringLiteral("240105A.xlsx"), EstimateSpec{});
    save(QStringLiteral("sub/240105B.xlsx"), EstimateSpec{});
    refresh();
    EXPECT_EQ(library.count(), 2);

    ASSERT_TRUE(QFile::remove(QDir(test::mitsumori(folder)).filePath(QStringLiteral("240105A.xlsx"))));
    QFile broken(QDir(test::mitsumori(folder)).filePath(QStringLiteral("壊れた.xlsx")));
    ASSERT_TRUE(broken.open(QIODevice::WriteOnly));
    broken.write("PK\x03\x04 this is not a workbook");
    broken.close();
    EstimateSpec changed;
    changed.customer = QStringLiteral("佐藤一郎");
    save(QStringLiteral("sub/240105B.xlsx"), changed);

    const RefreshOutcome outcome = refresh();
    EXPECT_EQ(outcome.removed, 1);
    EXPECT_EQ(outcome.read, 2);
    EXPECT_EQ(outcome.unreadable, 1);
    EXPECT_EQ(found(QStringLiteral("佐藤")), QStringList{QStringLiteral("sub/240105B.xlsx")});

    const QList<EstimateSummary> all = library.search({});
    ASSERT_EQ(all.size(), 2);
    const auto bad = std::find_if(all.begin(), all.end(), [](const EstimateSummary &s) { return !s.readable; });
    ASSERT_NE(bad, all.end());
    EXPECT_EQ(bad->fileName, QStringLiteral("壊れた.xlsx"));
    EXPECT_FALSE(bad->error.isEmpty());
    // Listed whatever kind is asked for, and found by its name.
    LibraryQuery invoices;
    invoices.kind = 4;
    EXPECT_EQ(library.search(invoices).size(), 1);
    EXPECT_EQ(found(QStringLiteral("壊れ")), QStringList{QStringLiteral("壊れた.xlsx")});
    // Nothing left to do afterwards.
    EXPECT_TRUE(findChanges(library, test::mitsumori(folder)).empty());
}

TEST_F(Library, ASavedEstimateIsRecordedAsReadingItBackWouldRecordIt)
{
    EstimateSpec tableSpec;
    tableSpec.kind = 4;
    tableSpec.totalA = 123456;
    tableSpec.totalB = 7890;
    tableSpec.discountRate = QStringLiteral("5");
    tableSpec.nonTaxable = 2500;
    const Session session = test::estimateOf(tableSpec);
    save(QStringLiteral("240105A.xlsx"), tableSpec);
    const QString path = QDir(test::mitsumori(folder)).filePath(QStringLiteral("240105A.xlsx"));
    ASSERT_EQ(recordSaved(library, test::mitsumori(folder), path, session), QString());
    EXPECT_TRUE(findChanges(library, test::mitsumori(folder)).empty());
    const QList<EstimateSummary> recorded = library.search({});
    ASSERT_EQ(recorded.size(), 1);
    EXPECT_EQ(recorded.first(), readSummary(path, QStringLiteral("240105A.xlsx")));
}

TEST_F(Library, CancellingKeepsWhatWasReadAndTheRestFollowsLater)
{
    for (int i = 0; i < 5; ++i)
        save(QStringLiteral("%1.xlsx").arg(i), EstimateSpec{});
    QList<int> seen;
    const RefreshOutcome first = refresh([&seen](int done, int total) {
        seen << done;
        EXPECT_EQ(total, 5);
        return done < 2;
    });
    EXPECT_TRUE(first.cancelled);
    EXPECT_EQ(seen, (QList<int>{1, 2}));
    EXPECT_EQ(library.count(), 2);
    EXPECT_EQ(refresh().read, 3);
    EXPECT_EQ(library.count(), 5);
}

TEST_F(Library, ABrokenOrMissingIndexIsMadeAgain)
{
    save(QStringLiteral("240105A.xlsx"), EstimateSpec{});
    refresh();
    const QString path = library.path();
    library = EstimateLibrary(folder.path());
    db::closeDatabase(path);
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write("not a database at all, just text");
    file.close();
    ASSERT_EQ(library.open(), QString());
    EXPECT_EQ(library.count(), 0);
    EXPECT_EQ(refresh().read, 1);
    EXPECT_EQ(found(QStringLiteral("山田")).size(), 1);
}

} // namespace

namespace est::reports {
namespace {

TEST(LibraryResults, ShowEachEstimateOnceUnderItsNewestRevisionFound)
{
    const auto summary = [](const char *file) {
        EstimateSummary s;
        s.fileName = QString::fromUtf8(file);
        return s;
    };
    const QList<EstimateSummary> found{summary("240110B.xlsx"), summary("240105A_R2.xlsx"), summary("240105A.xlsx"),
                                       summary("sub/240105A_R3.xlsx"), summary("240105A_R3.xlsx"),
                                       summary("240105AB.xlsx")};
    QStringList shown;
    for (const EstimateSummary &s : newestRevisions(found))
        shown.append(s.fileName);
    EXPECT_EQ(shown, (QStringList{"240110B.xlsx", "240105A_R3.xlsx", "sub/240105A_R3.xlsx", "240105AB.xlsx"}));
}

} // namespace
} // namespace est::reports
