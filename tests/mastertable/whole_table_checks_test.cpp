// The checks over a table's whole new content: a value that another table still uses may not
// disappear (deleted or renumbered), and a table's own rule over all its rows; both on saving
// held edits and on importing a CSV file, which then change nothing.

#include "mastertable/csv_transfer.h"
#include "mastertable/table_checks.h"
#include "mastertable/table_edit_model.h"
#include "scratch_database.h"

#include <gtest/gtest.h>

using namespace est;
using namespace est::mastertable;

namespace {

// The categories that parts refer to, kept while a part uses them; at most three categories.
TableSpec categorySpec()
{
    TableSpec layout{QStringLiteral("TKubunDB"),
                   QStringLiteral("区分"),
                   {ColumnSpec::text(QStringLiteral("KCode"), QStringLiteral("区分コード"))
                        .mustHave()
                        .usedIn(QStringLiteral("PaintDB"), QStringLiteral("KCode")),
                    ColumnSpec::text(QStringLiteral("Namae"), QStringLiteral("区分名"))},
                   {0}};
    layout.wholeTableCheck = [](const QList<QStringList> &rows) {
        return rows.size() > 3 ? QStringLiteral("区分は3つまでです。") : QString();
    };
    return layout;
}

struct ContentCase
{
    const char *name;
    QList<QStringList> rows;  // the new content of TKubunDB
    QStringList problems;
};

class WholeTableProblems : public ::testing::TestWithParam<ContentCase> {};

} // namespace

TEST_P(WholeTableProblems, NamesEveryValueStillUsedAndTheTablesOwnRule)
{
    test::ScratchDatabase scratch;  // parts use categories A and B
    EXPECT_EQ(wholeTableProblems(TableStore(scratch.database(), categorySpec()), GetParam().rows), GetParam().problems);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, WholeTableProblems,
    ::testing::Values(
        ContentCase{"Unchanged", {{"A", "フロント"}, {"B", "リヤ"}}, {}},
        ContentCase{"UnusedAdded", {{"A", "フロント"}, {"B", "リヤ"}, {"C", "ルーフ"}}, {}},
        ContentCase{"UsedDeleted", {{"A", "フロント"}}, {"区分コード「B」は PaintDB で使われているため、消せません。先にそちらを変えてください。"}},
        ContentCase{"BothRenamed", {{"a", "フロント"}, {"b", "リヤ"}},
                    {"区分コード「A」「B」は PaintDB で使われているため、消せません。先にそちらを変えてください。"}},
        ContentCase{"TooMany", {{"A", ""}, {"B", ""}, {"C", ""}, {"D", ""}}, {"区分は3つまでです。"}}),
    [](const auto &info) { return std::string(info.param.name); });

TEST(WholeTableChecks, SavingHeldEditsIsRefusedAndChangesNothing)
{
    test::ScratchDatabase scratch;
    const QStringList before = scratch.dump(QStringLiteral("TKubunDB"));
    TableEditModel model(TableStore(scratch.database(), categorySpec()));
    model.removeHeldRows({1});
    const SaveOutcome outcome = model.save();
    EXPECT_FALSE(outcome.saved);
    EXPECT_EQ(outcome.message, QStringLiteral("区分コード「B」は PaintDB で使われているため、消せません。先にそちらを変えてください。\n保存していません。"));
    EXPECT_TRUE(model.isDirty());
    EXPECT_EQ(scratch.dump(QStringLiteral("TKubunDB")), before);
    // Once no part uses B, it can go.
    ASSERT_TRUE(scratch.run("UPDATE PaintDB SET KCode = 'A'"));
    EXPECT_TRUE(model.save().saved);
    EXPECT_EQ(scratch.dump(QStringLiteral("TKubunDB")), QStringList{"A|フロント"});
}

TEST(WholeTableChecks, AnImportThatDropsAUsedValueChangesNothing)
{
    test::ScratchDatabase scratch;
    const QStringList before = scratch.dump(QStringLiteral("TKubunDB"));
    const TableStore store(scratch.database(), categorySpec());
    const ImportReport report = importCsv(store, "区分コード,区分名\r\nA,フロント\r\nC,ルーフ\r\n", CsvEncoding::Auto);
    EXPECT_FALSE(report.applied);
    EXPECT_EQ(report.summary(), QStringLiteral("区分コード「B」は PaintDB で使われているため、消せません。先にそちらを変えてください。\n表は変更していません。"));
    EXPECT_EQ(scratch.dump(QStringLiteral("TKubunDB")), before);
}
