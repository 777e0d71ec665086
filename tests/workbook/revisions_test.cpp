// Revised estimates: file names, the grouping of an estimate's revisions, the next revision
// in a folder, and the revision cell of a saved workbook.

#include "sample_estimate.h"
#include "workbook/estimate_layout.h"
#include "workbook/revisions.h"
#include "workbook/workbook.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace est::workbook {
namespace {

struct NameCase
{
    const char *file;
    const char *base;
    int revision;
};

class RevisionNames : public ::testing::TestWithParam<NameCase>
{
};

TEST_P(RevisionNames, ReadTheBaseAndTheRevision)
{
    const RevisionName r = parseRevisionName(QString::fromUtf8(GetParam().file));
    EXPECT_EQ(r.base, QString::fromUtf8(GetParam().base));
    EXPECT_EQ(r.revision, GetParam().revision);
    // Revisions are written as .xlsx; an .xls revision reads but is not a name we make.
    const QString file = QString::fromUtf8(GetParam().file);
    if (r.revision > 1 && file.endsWith(QLatin1String(".xlsx"))) {
        EXPECT_EQ(revisionFileName(r.base, r.revision), file);
    }
}

INSTANTIATE_TEST_SUITE_P(Cases, RevisionNames,
                         ::testing::Values(NameCase{"240105A.xlsx", "240105A", 1},
                                           NameCase{"240105A_R2.xlsx", "240105A", 2},
                                           NameCase{"240105山田様_R12.xlsx", "240105山田様", 12},
                                           NameCase{"sub/240105A_R3.xlsx", "sub/240105A", 3},
                                           NameCase{"240105A_R1.xlsx", "240105A_R1", 1},
                                           NameCase{"240105_R2.xls", "240105", 2},
                                           NameCase{"_R2.xlsx", "_R2", 1},
                                           NameCase{"240105A_R2000.xlsx", "240105A_R2000", 1}));

TEST(RevisionGroups, OneGroupPerEstimateNewestFirst)
{
    const QList<RevisionGroup> groups = groupRevisions(
        {"240105A.xlsx", "240105A_R10.xlsx", "240105A_R2.xlsx", "240105B.xls", "240105B.xlsx", "240106C_R2.xlsx"});
    ASSERT_EQ(groups.size(), 3);
    EXPECT_EQ(groups.at(0).files, (QStringList{"240105A_R10.xlsx", "240105A_R2.xlsx", "240105A.xlsx"}));
    EXPECT_EQ(groups.at(1).files, (QStringList{"240105B.xlsx", "240105B.xls"}));
    EXPECT_EQ(groups.at(2).files, QStringList{"240106C_R2.xlsx"});
    EXPECT_EQ(revisionCaption(10), QStringLiteral("修正10"));
    EXPECT_EQ(revisionCaption(1), QString());
}

TEST(NextRevision, FollowsTheNewestInTheFolderSoNoRevisionIsOverwritten)
{
    QTemporaryDir dir;
    for (const char *name : {"240105A.xlsx", "240105A_R2.xlsx", "240105A_R3.xlsx", "240105AB_R7.xlsx"}) {
        QFile f(QDir(dir.path()).filePath(QString::fromUtf8(name)));
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    }
    Session s;
    s.fileName = QStringLiteral("240105A.xlsx");   // the first revision opened again
    s.workbookPath = QDir(dir.path()).filePath(s.fileName);
    EXPECT_EQ(beginNextRevision(s, dir.path()), 4);
    EXPECT_EQ(s.revision, 4);
    EXPECT_EQ(s.fileName, QStringLiteral("240105A_R4.xlsx"));
    EXPECT_TRUE(s.workbookPath.isEmpty());

    Session other;
    other.fileName = QStringLiteral("240105Z.xlsx");
    EXPECT_EQ(beginNextRevision(other, dir.path()), 2);
    EXPECT_EQ(other.fileName, QStringLiteral("240105Z_R2.xlsx"));

    Session last;
    last.fileName = QStringLiteral("240105A_R999.xlsx");
    last.revision = kMaxRevision;
    EXPECT_EQ(beginNextRevision(last, dir.path()), 0);
    EXPECT_EQ(last.fileName, QStringLiteral("240105A_R999.xlsx"));
}

TEST(RevisionCell, IsSavedAndReadBackAndAbsentMeansTheFirst)
{
    Session s = test::fullEstimate();
    s.revision = 3;
    auto book = Workbook::fromBytes(test::templateBytes());
    writeEstimate(*book, s);
    const QByteArray bytes = book->toBytes();
    Session read;
    auto again = Workbook::fromBytes(bytes);
    readEstimate(*again, read);
    EXPECT_EQ(read.revision, 3);
    EXPECT_EQ(test::storedFields(read), test::storedFields(s));
    EXPECT_EQ(cellInt16(again->cells(QStringLiteral("D"))->value(1, 21)), std::optional<std::int16_t>(3));

    // An emptied cell (or a workbook of an earlier version) is the first revision.
    again->sheet(QStringLiteral("D"))->setText(1, 21, QString());
    Session first;
    first.revision = 5;
    readEstimate(*again, first);
    EXPECT_EQ(first.revision, 1);

    // A first estimate saved over a revised workbook leaves the cell without a number.
    writeEstimate(*again, first);
    EXPECT_EQ(cellInt16(again->cells(QStringLiteral("D"))->value(1, 21)), std::nullopt);
    auto fresh = Workbook::fromBytes(test::templateBytes());
    writeEstimate(*fresh, test::fullEstimate());
    EXPECT_TRUE(std::holds_alternative<std::monostate>(fresh->cells(QStringLiteral("D"))->value(1, 21)));
}

} // namespace
} // namespace est::workbook
