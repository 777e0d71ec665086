#pragma once
// What changed between two saved estimates (an earlier and a later one, usually two
// revisions of one job): rows added, removed and changed, for the work rows and the paint
// lines, and the old and new value of every total. A row is the same row in both when its
// section, part, part number and kind of work are the same; a repeated row is matched with
// its namesake in the same order.

#include "common/estimate_row.h"
#include "common/money.h"
#include "common/session.h"

#include <QList>
#include <QString>

namespace est::compare {

enum class ChangeKind { Added, Removed, Changed };

// The figures of a row as shown: index "0.00", amounts "#,###", quantity as typed.
struct RowFigures
{
    QString index;
    QString labour;
    QString unitPrice;
    QString quantity;
    QString amount;
    bool operator==(const RowFigures &) const = default;
};

struct RowChange
{
    ChangeKind kind = ChangeKind::Changed;
    QString section;
    QString part;
    QString partNumber;
    QString work;
    RowFigures before;   // empty for an added row
    RowFigures after;    // empty for a removed row
    bool operator==(const RowChange &) const = default;
};

// One total, old and new, whole yen.
struct TotalChange
{
    QString caption;
    Yen before = 0;
    Yen after = 0;
    Yen difference = 0;   // after - before
    bool operator==(const TotalChange &) const = default;
};

struct EstimateComparison
{
    QList<RowChange> workRows;
    QList<RowChange> paintRows;
    QList<TotalChange> totals;   // A, B, discount, tax, non-taxable, advance, amount due
    int unchangedWorkRows = 0;
    int unchangedPaintRows = 0;
    bool overflowed = false;     // a total or a difference does not fit in whole yen

    bool identical() const { return workRows.isEmpty() && paintRows.isEmpty() && !anyTotalChanged(); }
    bool anyTotalChanged() const;
};

// The figures of a row as the comparison shows them.
RowFigures rowFigures(const EstimateRow &row);

// Rows in the later estimate's order (changed and added), then the removed ones in the
// earlier estimate's order. Blank rows are not rows.
QList<RowChange> compareRows(const QList<EstimateRow> &before, const QList<EstimateRow> &after, int *unchanged = nullptr);

// The totals as the sheet shows them when each estimate is opened.
QList<TotalChange> compareTotals(const Session &before, const Session &after, bool *overflowed = nullptr);

EstimateComparison compareEstimates(const Session &before, const Session &after);

// "追加", "削除", "変更".
QString changeKindText(ChangeKind kind);

} // namespace est::compare
