#include "workitems/work_item_table.h"

#include "common/number_format.h"

#include <algorithm>

namespace est::workitems {

const QString kWorkItemHeader =
    QStringLiteral("No|部位|部品名|部品番号・その他|作業|指数|工賃計|部品単価|個数|部品計||");

WorkItemTable::WorkItemTable(const QList<EstimateRow> &rows)
{
    m_rows.reserve(std::max<qsizetype>(rows.size(), kMaxEstimateRows));
    for (const EstimateRow &source : rows) {
        WorkItemRow row;
        std::copy(source.begin(), source.end(), row.begin());
        m_rows.append(row);
    }
    recompute();
}

WorkItemTable::Change WorkItemTable::append(const WorkItemRow &row)
{
    if (full())
        return Change::Full;
    WorkItemRow copy = row;
    copy[WiNo] = QString::number(nextNumber());
    m_rows.append(copy);
    if (!recompute()) {
        m_rows.removeLast();
        return Change::TooLarge;
    }
    return Change::Done;
}

WorkItemTable::Change WorkItemTable::insertEmpty(int index)
{
    if (full())
        return Change::Full;
    if (index < 0 || index > count())
        return Change::NoSuchRow;
    m_rows.insert(index, WorkItemRow());
    renumber();
    return Change::Done;
}

WorkItemTable::Change WorkItemTable::replace(int index, const WorkItemRow &row)
{
    if (index < 0 || index >= count())
        return Change::NoSuchRow;
    const WorkItemRow before = m_rows.at(index);
    WorkItemRow copy = row;
    copy[WiNo] = before[WiNo];
    m_rows[index] = copy;
    if (!recompute()) {
        m_rows[index] = before;
        return Change::TooLarge;
    }
    return Change::Done;
}

WorkItemTable::Change WorkItemTable::remove(int index)
{
    if (index < 0 || index >= count())
        return Change::NoSuchRow;
    m_rows.removeAt(index);
    renumber();
    recompute();
    return Change::Done;
}

void WorkItemTable::sortBy(int column)
{
    if (column < 0 || column >= WorkItemColumnCount)
        return;
    std::stable_sort(m_rows.begin(), m_rows.end(), [column](const WorkItemRow &a, const WorkItemRow &b) {
        return a[column] < b[column];
    });
    renumber();
}

void WorkItemTable::renumber()
{
    for (int i = 0; i < count(); ++i)
        m_rows[i][WiNo] = QString::number(i + 1);
}

bool WorkItemTable::recompute()
{
    std::int64_t labour = 0;
    std::int64_t parts = 0;
    for (const WorkItemRow &row : m_rows) {
        if (!isBlank(row[WiLabour]))
            labour += parseDisplayedYen(row[WiLabour]).value_or(0);
        if (!isBlank(row[WiPartsTotal]))
            parts += parseDisplayedYen(row[WiPartsTotal]).value_or(0);
    }
    const auto l = toYen(labour);
    const auto p = toYen(parts);
    const auto g = toYen(labour + parts);
    if (!l || !p || !g)
        return false;
    m_totals = {*l, *p, *g};
    return true;
}

QList<EstimateRow> WorkItemTable::toEstimateRows() const
{
    QList<EstimateRow> rows;
    rows.reserve(m_rows.size());
    for (const WorkItemRow &source : m_rows) {
        EstimateRow row;
        std::copy_n(source.begin(), EstimateColumnCount, row.begin());
        rows.append(row);
    }
    return rows;
}

} // namespace est::workitems
