#pragma once
// The checks that look at more than one cell: a key that must be unique over all rows and
// values that must exist in another table. Shared by saving held edits and by CSV import.

#include "mastertable/table_store.h"

#include <QList>
#include <QString>

namespace est::mastertable {

// A refused cell (or row, when column is -1). `row` counts from 0 in the list checked.
struct Problem
{
    int row = 0;
    int column = -1;
    QString reason;
};

// "3行目「基礎指数」：0以上の…", with row numbers starting at `firstRowNumber`.
QString describe(const Problem &problem, const TableSpec &tableSpec, int firstRowNumber = 1);

// Rows whose key repeats an earlier row's key (the later row is reported). `rowNumbers`
// gives the number the user knows each row by (grid row or file line).
QList<Problem> duplicateKeys(const TableSpec &tableSpec, const QList<QStringList> &rows, const QList<int> &rowNumbers);

// Cells of the rows listed in `rowsToCheck` whose value is missing from the referenced table.
// Empty values are not looked up. A referenced table that cannot be read is one problem.
QList<Problem> missingReferences(const TableStore &store, const QList<QStringList> &rows,
                                 const QList<int> &rowsToCheck);

// What is wrong with `rows` as the whole new content of the table: values that other tables
// still use but the rows no longer hold, and the table's own whole-table rule. One sentence
// each; empty when the rows may be stored.
QStringList wholeTableProblems(const TableStore &store, const QList<QStringList> &rows);

} // namespace est::mastertable
