#include "db/database.h"
#include "sheet/company_block.h"
#include "sheet/company_store.h"
#include "storage_backend.h"
#include "temp_app_folder.h"

#include <QFile>
#include <csignal>
#include <gtest/gtest.h>
#include <sys/resource.h>

using namespace est;
using namespace est::sheet;

namespace {

QStringList sampleBlock()
{
    return {"1", "鈑金塗装", "みどり台オートボディ", "若葉県みどり台市東町2-14-3", "000-111-2222",
            "000-111-3333", "みどり台信用金庫", "東町支店", "007", "普通", "1234567", "10",
            "ﾐﾄﾞﾘﾀﾞｲｵｰﾄﾎﾞﾃﾞｲ", "1"};
}

QByteArray readAll(const QString &path)
{
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

TEST(CompanyBlock, FileHasFourteenCrLfLines)
{
    test::TempAppFolder folder;
    const QString path = companyFilePath(folder.path());
    EXPECT_EQ(path, folder.file("temp/kdata.txt"));
    ASSERT_EQ(writeCompanyBlock(path, sampleBlock()), QString());
    const QByteArray bytes = readAll(path);
    EXPECT_EQ(bytes.count("\r\n"), 14);
    EXPECT_EQ(bytes.count('\n'), 14);
    EXPECT_TRUE(bytes.startsWith("1\r\n"));
    EXPECT_TRUE(bytes.endsWith("\r\n1\r\n"));
    const CompanyFileRead read = readCompanyBlock(path);
    EXPECT_TRUE(read.exists);
    EXPECT_EQ(read.block, sampleBlock());
}

TEST(CompanyBlock, BranchSevenIsWrittenAs007)
{
    CompanyRecord r;
    r.jNo = 3;
    r.branchNo = "7";
    r.taxRate = "10";
    const QStringList block = companyBlock(r);
    ASSERT_EQ(block.size(), kCompanyItems);
    EXPECT_EQ(block.at(CompanyBranchNo), "007");
    EXPECT_EQ(block.at(CompanyRecordNo), "3");
    EXPECT_EQ(block.at(CompanyPrintAccount), "0");
    const QList<QByteArray> lines = companyFileBytes(block).split('\n');
    EXPECT_EQ(lines.at(8), "007\r");
    EXPECT_EQ(formatBranchNumber(""), "");
    EXPECT_EQ(formatBranchNumber("1234"), "1234");
    EXPECT_EQ(formatBranchNumber("A1"), "A1");
}

TEST(CompanyBlock, EmptyBlockIsFourteenEmptyLines)
{
    EXPECT_EQ(companyFileBytes(QStringList(kCompanyItems)), QByteArray("\r\n").repeated(14));
    EXPECT_EQ(parseCompanyFile(QByteArray("\r\n").repeated(14)), QStringList(kCompanyItems));
}

struct ReadCase
{
    const char *name;
    QByteArray file;
    QStringList expected;
};
class CommaReadingTest : public ::testing::TestWithParam<ReadCase> {};

TEST_P(CommaReadingTest, ReadsItemByItem)
{
    EXPECT_EQ(parseCompanyFile(GetParam().file), GetParam().expected) << GetParam().name;
}

QByteArray lines(std::initializer_list<const char *> items)
{
    QByteArray out;
    for (const char *item : items)
        out += QByteArray(item) + "\r\n";
    return out;
}

INSTANTIATE_TEST_SUITE_P(Quirks, CommaReadingTest,
    ::testing::Values(
        // A comma in the company name makes two items: every later line moves down one place
        // and the last line is never reached.
        ReadCase{"comma", lines({"1", "c", "Auto,Body", "addr", "t", "f", "b", "s", "007", "普通", "123", "10", "h", "1"}),
                 {"1", "c", "Auto", "Body", "addr", "t", "f", "b", "s", "007", "普通", "123", "10", "h"}},
        // Quotes are taken away, a comma between them stays, text after the closing quote goes.
        ReadCase{"quotes", lines({"1", "\"A, B\" tail", "x"}),
                 {"1", "A, B", "x", "", "", "", "", "", "", "", "", "", "", ""}},
        // Blanks around an unquoted value are dropped; full-width ones are kept.
        ReadCase{"blanks", lines({"  1  ", "\t東町　", "x"}),
                 {"1", "東町　", "x", "", "", "", "", "", "", "", "", "", "", ""}},
        // LF only, and a missing last line end.
        ReadCase{"lf", QByteArray("1\nA\nB"), {"1", "A", "B", "", "", "", "", "", "", "", "", "", "", ""}},
        ReadCase{"trailing comma", lines({"A,", "B"}),
                 {"A", "", "B", "", "", "", "", "", "", "", "", "", "", ""}}),
    [](const auto &info) {
        QString n = QString::fromUtf8(info.param.name);
        n.replace(' ', '_');
        return n.toStdString();
    });

TEST(CompanyBlock, MissingFileIsReported)
{
    test::TempAppFolder folder;
    const CompanyFileRead read = readCompanyBlock(companyFilePath(folder.path()));
    EXPECT_FALSE(read.exists);
    EXPECT_EQ(read.block, QStringList(kCompanyItems));
}

// A write that fails half-way (here: the file-size limit) reports and keeps the old file.
TEST(CompanyBlock, FailedWriteKeepsThePreviousFile)
{
    test::TempAppFolder folder;
    const QString path = companyFilePath(folder.path());
    ASSERT_EQ(writeCompanyBlock(path, sampleBlock()), QString());
    const QByteArray before = readAll(path);

    struct rlimit old {};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &old), 0);
    auto previousHandler = std::signal(SIGXFSZ, SIG_IGN);
    struct rlimit small = old;
    small.rlim_cur = 16;
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
    QStringList changed = sampleBlock();
    changed[CompanyName] = QStringLiteral("新しい名前の会社で長い名前");
    const QString error = writeCompanyBlock(path, changed);
    setrlimit(RLIMIT_FSIZE, &old);
    std::signal(SIGXFSZ, previousHandler);

    EXPECT_TRUE(error.contains(QStringLiteral("書き込めませんでした"))) << error.toStdString();
    EXPECT_EQ(readAll(path), before);
}

TEST(CompanyBlock, WriteIntoAFolderThatCannotExist)
{
    test::TempAppFolder folder;
    QFile blocker(folder.file("temp"));
    ASSERT_TRUE(blocker.open(QIODevice::WriteOnly)); // "temp" is a file, not a folder
    blocker.close();
    EXPECT_FALSE(writeCompanyBlock(companyFilePath(folder.path()), sampleBlock()).isEmpty());
}

// The own-company records on the application folder's file or on the server.
struct CompanyStoreOn : ::testing::TestWithParam<test::Backend>
{
    test::TempAppFolder folder;
    test::BackendScope backend{GetParam()};
    db::OpenResult opened = db::openDatabase(folder.path(), "temp\\Jisya_Jyouhou.mdb");
    CompanyStore store{opened.database};
};

TEST_P(CompanyStoreOn, SampleRecordAndEdits)
{
    CompanyStoreOn &x = *this;
    ASSERT_TRUE(x.opened.ok()) << x.opened.error.toStdString();
    QList<CompanyRecord> all = x.store.records();
    ASSERT_EQ(all.size(), 1);
    EXPECT_EQ(all.first().jNo, 1);
    EXPECT_EQ(all.first().taxRate, "10");
    EXPECT_FALSE(all.first().name.isEmpty());

    CompanyRecord r;
    r.name = QStringLiteral("O'Brien's 板金");
    r.taxRate = "8";
    r.branchNo = "7";
    r.printAccount = true;
    ASSERT_TRUE(x.store.insert(r)) << x.store.lastError().toStdString();
    EXPECT_EQ(r.jNo, 2);
    EXPECT_EQ(x.store.findByName(QStringLiteral("O'Brien's 板金")), QList<int>{2});

    all = x.store.records();
    ASSERT_EQ(all.size(), 2);
    EXPECT_EQ(all.at(1), r);
    r.address = QStringLiteral("東町1-1");
    ASSERT_TRUE(x.store.update(r));
    EXPECT_EQ(x.store.records().at(1).address, QStringLiteral("東町1-1"));
    ASSERT_TRUE(x.store.remove(1));
    all = x.store.records();
    ASSERT_EQ(all.size(), 1);
    EXPECT_EQ(all.first().jNo, 2);
    r.jNo = 99;
    EXPECT_FALSE(x.store.update(r));
}

INSTANTIATE_TEST_SUITE_P(Backends, CompanyStoreOn, ::testing::ValuesIn(test::kBothBackends),
                         [](const auto &info) { return test::backendName(info.param); });

struct CheckCase
{
    const char *taxRate;
    const char *branch;
    bool accepted;
};
class CompanyCheckTest : public ::testing::TestWithParam<CheckCase> {};

TEST_P(CompanyCheckTest, TaxRateMustBeWhole)
{
    CompanyRecord r;
    r.taxRate = QString::fromUtf8(GetParam().taxRate);
    r.branchNo = QString::fromUtf8(GetParam().branch);
    EXPECT_EQ(!checkCompanyRecord(r).has_value(), GetParam().accepted) << GetParam().taxRate;
}

INSTANTIATE_TEST_SUITE_P(Rates, CompanyCheckTest,
    ::testing::Values(CheckCase{"10", "", true}, CheckCase{" 8 ", "7", true}, CheckCase{"0", "000", true},
                      CheckCase{"8.5", "", false}, CheckCase{"", "", false}, CheckCase{"十", "", false},
                      CheckCase{"101", "", false}, CheckCase{"-1", "", false}, CheckCase{"10", "1-2", false}));

} // namespace
