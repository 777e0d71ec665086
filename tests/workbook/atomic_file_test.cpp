// Saving replaces the target in one step; a save killed half-way leaves a temporary file that
// no list of estimates shows and that the next save into the folder removes.

#include "package_builder.h"
#include "sample_estimate.h"
#include "workbook/atomic_file.h"
#include "workbook/estimate_files.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <unistd.h>

using namespace est;
using namespace est::workbook;
using est::test::templateBytes;

namespace {

void writeFile(const QString &path, const QByteArray &bytes)
{
    QFile f(path);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write(bytes);
}

QStringList allFiles(const QString &folder)
{
    return QDir(folder).entryList(QDir::Files | QDir::Hidden, QDir::Name);
}

// Saves into the folder from a child process that dies in the middle of writing.
void killedSave(const QString &target)
{
    EXPECT_EXIT(
        {
            auto book = Workbook::fromBytes(templateBytes());
            book->save(target, [](SaveStep step, const QString &) {
                if (step == SaveStep::Write)
                    _exit(9);
                return false;
            });
        },
        testing::ExitedWithCode(9), "");
}

} // namespace

TEST(SaveTemporaries, AKilledSaveLeavesNothingThatLooksLikeAnEstimateAndTheNextSaveRemovesIt)
{
    // The child is forked, so it saves into this test's folder.
    GTEST_FLAG_SET(death_test_style, "fast");
    QTemporaryDir dir;
    const QString target = dir.filePath(QStringLiteral("240105ABC.xlsx"));
    killedSave(target);
    const QStringList first = allFiles(dir.path());
    ASSERT_EQ(first.size(), 1);
    // The second killed save removed the first one's file before it started its own.
    killedSave(target);
    const QStringList left = allFiles(dir.path());
    ASSERT_EQ(left.size(), 1);
    EXPECT_NE(left, first);
    for (const QString &name : left) {
        EXPECT_TRUE(isSaveTemporaryName(name)) << qPrintable(name);
        EXPECT_FALSE(isEstimateFileName(name)) << qPrintable(name);
    }
    EXPECT_EQ(estimateFileNames(dir.path()), QStringList());

    Workbook::fromBytes(templateBytes())->save(target);
    EXPECT_EQ(allFiles(dir.path()), QStringList{QStringLiteral("240105ABC.xlsx")});
}

// Earlier versions saved through a temporary "<name>.xlsx.XXXXXX" where the system has no
// unnamed files; a broken one of those goes, a shop's readable copy under such a name stays.
TEST(SaveTemporaries, AnEarlierVersionsBrokenLeftoversGoAndEverythingElseStays)
{
    QTemporaryDir dir;
    const QByteArray workbook = templateBytes();
    writeFile(dir.filePath(QStringLiteral("240105ABC.xlsx.KmQpZr")), workbook.left(workbook.size() / 3));
    writeFile(dir.filePath(QStringLiteral("240106.xlsx.aBcDeF")), QByteArray());
    writeFile(dir.filePath(QStringLiteral("240105ABC.xlsx.backup")), workbook);   // readable: kept
    writeFile(dir.filePath(QStringLiteral("memo.xlsx.KmQpZr")), "notes");          // not an estimate name
    writeFile(dir.filePath(QStringLiteral(".x.xlsx.saving-1-0000000g")), "x");    // not the pattern
    writeFile(dir.filePath(QStringLiteral("240101A.xlsx")), workbook);

    Workbook::fromBytes(workbook)->save(dir.filePath(QStringLiteral("240107B.xlsx")));
    EXPECT_EQ(allFiles(dir.path()),
              (QStringList{QStringLiteral(".x.xlsx.saving-1-0000000g"), QStringLiteral("240101A.xlsx"),
                           QStringLiteral("240105ABC.xlsx.backup"), QStringLiteral("240107B.xlsx"),
                           QStringLiteral("memo.xlsx.KmQpZr")}));
    EXPECT_EQ(estimateFileNames(dir.path()),
              (QStringList{QStringLiteral("240101A.xlsx"), QStringLiteral("240107B.xlsx")}));
}

// A temporary file of a save that is still running in another process is left alone.
TEST(SaveTemporaries, ARunningSavesFileStays)
{
    QTemporaryDir dir;
    const QString running = dir.filePath(QStringLiteral(".240105A.xlsx.saving-1-0a1b2c3d"));   // pid 1 runs
    writeFile(running, "PK");
    EXPECT_EQ(removeStaleSaveTemporaries(dir.path()), 0);
    EXPECT_TRUE(QFile::exists(running));
}
