#pragma once
// The rows of the work item editor while it is open: the estimate's rows plus, per row, the
// catalogue number of a part picked from the catalogue. The editor changes this copy and
// hands it back to the estimate only on OK.

#include "common/estimate_row.h"
#include "common/money.h"

#include <QList>
#include <QString>
#include <array>

namespace est::workitems {

enum WorkItemColumn : int {
    WiNo = 0,
    WiSection = 1,     // 部位
    WiPart = 2,        // 部品名
    WiPartNumber = 3,  // 部品番号・その他
    WiWork = 4,        // 作業
    WiIndex = 5,       // 指数
    WiLabour = 6,      // 工賃計
    WiUnitPrice = 7,   // 部品単価
    WiQuantity = 8,    // 個数
    WiPartsTotal = 9,  // 部品計
    WiDirectLabour = 10, // labour typed instead of an index
    WiCatalogueNum = 11, // Num of a part picked from the catalogue; stays in the editor
    WorkItemColumnCount = 12
};

using WorkItemRow = std::array<QString, WorkItemColumnCount>;

// The header of the editor's row grid, cells separated by "|".
extern const QString kWorkItemHeader;

struct WorkItemTotals
{
    Yen labour = 0;
    Yen parts = 0;
    Yen grand = 0;
};

class WorkItemTable
{
public:
    explicit WorkItemTable(const QList<EstimateRow> &rows = {});

    int count() const { return int(m_rows.size()); }
    bool full() const { return count() >= kMaxEstimateRows; }
    const WorkItemRow &row(int index) const { return m_rows.at(index); }
    // The number the next appended row gets (lblGNo).
    int nextNumber() const { return count() + 1; }

    enum class Change { Done, Full, TooLarge, NoSuchRow };

    // Appends a row numbered nextNumber(); refused when the estimate holds kMaxEstimateRows.
    Change append(const WorkItemRow &row);
    // Inserts an empty row before `index` and renumbers every row.
    Change insertEmpty(int index);
    // Writes a row's texts (an inserted or edited row), keeping its number.
    Change replace(int index, const WorkItemRow &row);
    // Removes a row; the rows below move up and are renumbered.
    Change remove(int index);
    // Sorts the rows on one column (stable, ascending text order) and renumbers them.
    void sortBy(int column);
    // Row i gets the number i (1-based).
    void renumber();

    // Totals of labour (column 6) and parts (column 9); a blank cell adds nothing.
    const WorkItemTotals &totals() const { return m_totals; }

    // Rows 1..n, columns 0..10, for the estimate's shared row table.
    QList<EstimateRow> toEstimateRows() const;

private:
    // False, leaving the totals as they were, when a sum leaves the 32-bit range.
    bool recompute();

    QList<WorkItemRow> m_rows;
    WorkItemTotals m_totals;
};

} // namespace est::workitems
