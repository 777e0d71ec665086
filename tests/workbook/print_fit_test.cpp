// Fitting the default template's print sheets to an estimate's row counts: the rows beyond what
// the estimate fills are hidden and no other, whatever the counts of the saves before (the
// fitter keeps compressed pieces of the sheets between saves), read back from the saved bytes.

#include "sample_estimate.h"
#include "workbook/estimate_layout.h"
#include "workbook/print_fit.h"
#include "workbook/workbook.h"

#include <gtest/gtest.h>

#include <map>

using namespace est;
using namespace est::workbook;

namespace {

struct Counts
{
    int rows;
    int paint;
    int nonTaxable;
};

class PrintFit : public testing::TestWithParam<Counts>
{
protected:
    static void SetUpTestSuite()
    {
        s_template = Workbook::fromBytes(test::templateBytes());
        s_fitter = new PrintSheetFitter(*s_template);
    }
    static void TearDownTestSuite()
    {
        delete s_fitter;
        s_template.reset();
    }

    // The estimate with the counts, saved through the shared fitter and opened again.
    std::unique_ptr<Workbook> saved(const Counts &c)
    {
        Session s = test::fullEstimate(7);
        s.rows.resize(c.rows);
        s.paint.rows.resize(c.paint);
        s.nonTaxable.names.resize(c.nonTaxable);
        s.nonTaxable.amounts.resize(c.nonTaxable);
        auto book = Workbook::fromBytes(test::templateBytes());
        writeEstimate(*book, s);
        s_fitter->fit(*book, usedRows(s));
        return Workbook::fromBytes(book->toBytes());
    }

    static inline std::unique_ptr<Workbook> s_template;
    static inline PrintSheetFitter *s_fitter = nullptr;
};

TEST_P(PrintFit, HandPickedRowsOfTheMainAndPaintSheets)
{
    const Counts c = GetParam();
    auto book = saved(c);
    Worksheet *main = book->sheet(QStringLiteral("PrintMainA"));
    Worksheet *paint = book->sheet(QStringLiteral("PaintA"));
    ASSERT_TRUE(main && paint);
    // Row 16 + k shows estimate row k + 1 (D row 6 + k); row 6 + k of PaintA paint row k + 1.
    EXPECT_EQ(main->rowHidden(16), c.rows == 0);
    if (c.rows > 0)
        EXPECT_FALSE(main->rowHidden(16 + c.rows - 1));
    if (c.rows < kMaxEstimateRows)
        EXPECT_TRUE(main->rowHidden(16 + c.rows));
    // PaintA has room for 73 paint rows.
    if (c.paint > 0)
        EXPECT_FALSE(paint->rowHidden(6 + c.paint - 1));
    if (c.paint < 73)
        EXPECT_TRUE(paint->rowHidden(6 + c.paint));
    // Row 412 reads D!C2 as well as the first non-taxable item: always shown. Row 430 shows the
    // 19th non-taxable item only.
    EXPECT_FALSE(main->rowHidden(412));
    EXPECT_EQ(main->rowHidden(430), c.nonTaxable <= 18);
    // The data sheets are hidden, the print sheets shown.
    EXPECT_TRUE(book->sheetHidden(QStringLiteral("D")));
    EXPECT_TRUE(book->sheetHidden(QStringLiteral("P")));
    EXPECT_FALSE(book->sheetHidden(QStringLiteral("PrintMainA")));
}

TEST_P(PrintFit, EveryRowReadingOnlyUnfilledDataIsHiddenAndNoOther)
{
    const Counts c = GetParam();
    auto book = saved(c);
    const int used[] = {c.rows, c.paint, c.nonTaxable};
    int checked = 0;
    for (const QString &name : s_fitter->sheetNames()) {
        Worksheet *sheet = book->sheet(name);
        ASSERT_TRUE(sheet);
        struct Reads
        {
            bool any = false;
            bool allBeyond = true;   // every data cell it reads is beyond what the estimate fills
        };
        std::map<int, Reads> rows;
        for (const auto &[row, formula] : sheet->formulas()) {
            Reads &reads = rows[row];
            for (const DataReference &r : dataReferences(formula)) {
                const bool onD = r.sheet == 'D';
                const bool items = onD && r.cell.column >= 12 && r.cell.column <= 14 && r.cell.row >= kFirstNonTaxableRowOnD;
                const int first = items ? kFirstNonTaxableRowOnD : onD ? kFirstEstimateRowOnD : kFirstPaintRowOnP;
                const bool inTable = items || (r.cell.column <= 11 && r.cell.row >= first);
                reads.any = true;
                reads.allBeyond = reads.allBeyond && inTable && r.cell.row - first >= used[items ? 2 : onD ? 0 : 1];
            }
        }
        for (const auto &[row, reads] : rows) {
            EXPECT_EQ(sheet->rowHidden(row), reads.any && reads.allBeyond) << name.toStdString() << " row " << row;
            ++checked;
        }
    }
    EXPECT_GT(checked, 2 * kMaxEstimateRows);
}

// Up and down, so that pieces compressed for other counts are taken again.
INSTANTIATE_TEST_SUITE_P(Counts, PrintFit,
                         testing::Values(Counts{394, 73, 99}, Counts{3, 2, 2}, Counts{0, 0, 0}, Counts{31, 32, 33},
                                         Counts{32, 1, 19}, Counts{3, 2, 2}, Counts{393, 72, 18}, Counts{394, 73, 99}));

} // namespace
