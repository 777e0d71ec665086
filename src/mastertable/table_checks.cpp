#include "mastertable/table_checks.h"

#include <QHash>
#include <QMap>
#include <QSet>

#include <algorithm>

namespace est::mastertable {

QString describe(const Problem &problem, const TableSpec &tableSpec, int firstRowNumber)
{
    QString where = QStringLiteral("%1行目").arg(problem.row + firstRowNumber);
    if (problem.column >= 0 && problem.column < tableSpec.columns.size())
        where += QStringLiteral("「%1」").arg(tableSpec.columns.at(problem.column).caption);
    return where + QStringLiteral("：") + problem.reason;
}

QList<Problem> duplicateKeys(const TableSpec &tableSpec, const QList<QStringList> &rows, const QList<int> &rowNumbers)
{
    QList<Problem> problems;
    if (tableSpec.key.isEmpty())
        return problems;
    QStringList captions;
    for (int c : tableSpec.key)
        captions << tableSpec.columns.at(c).caption;
    QHash<QStringList, int> firstRow;
    for (int r = 0; r < rows.size(); ++r) {
        QStringList key;
        for (int c : tableSpec.key)
            key << rows.at(r).value(c);
        const auto found = firstRow.constFind(key);
        if (found == firstRow.cend()) {
            firstRow.insert(key, r);
            continue;
        }
        const QString what = captions.size() == 1 ? QStringLiteral("「%1」").arg(captions.first())
                                                  : QStringLiteral("「%1」の組み合わせ").arg(captions.join(QStringLiteral("・")));
        problems << Problem{r, tableSpec.key.first(),
                            QStringLiteral("%1が%2行目と同じです。").arg(what).arg(rowNumbers.value(found.value()))};
    }
    return problems;
}

QList<Problem> missingReferences(const TableStore &store, const QList<QStringList> &rows,
                                 const QList<int> &rowsToCheck)
{
    QList<Problem> problems;
    const TableSpec &tableSpec = store.tableSpec();
    for (int c = 0; c < tableSpec.columns.size(); ++c) {
        const ColumnSpec &column = tableSpec.columns.at(c);
        if (!column.reference)
            continue;
        QString error;
        const QSet<QString> present = store.referencedValues(*column.reference, &error);
        if (!error.isEmpty()) {
            problems << Problem{rowsToCheck.value(0), c, error};
            continue;
        }
        for (int r : rowsToCheck) {
            const QString value = rows.value(r).value(c);
            if (!value.isEmpty() && !present.contains(value))
                problems << Problem{r, c, QStringLiteral("「%1」は %2 にありません。先にそちらへ登録してください。")
                                              .arg(value, column.reference->table)};
        }
    }
    return problems;
}

QStringList wholeTableProblems(const TableStore &store, const QList<QStringList> &rows)
{
    QStringList problems;
    const TableSpec &tableSpec = store.tableSpec();
    for (int c = 0; c < tableSpec.columns.size(); ++c) {
        const ColumnSpec &column = tableSpec.columns.at(c);
        QSet<QString> kept;
        for (const QStringList &row : rows)
            kept.insert(row.value(c));
        for (const Reference &dependent : column.dependents) {
            QString error;
            QStringList gone = store.referencedValues(dependent, &error).subtract(kept).values();
            if (!error.isEmpty()) {
                problems << error;
                continue;
            }
            std::sort(gone.begin(), gone.end(), [](const QString &a, const QString &b) {
                return a.size() != b.size() ? a.size() < b.size() : a < b;  // 2 before 10
            });
            if (gone.isEmpty())
                continue;
            QString values;
            for (const QString &value : gone.mid(0, 10))
                values += QStringLiteral("「%1」").arg(value);
            if (gone.size() > 10)
                values += QStringLiteral("ほか%1件").arg(gone.size() - 10);
            problems << QStringLiteral("%1%2は %3 で使われているため、消せません。先にそちらを変えてください。")
                            .arg(column.caption, values, dependent.table);
        }
    }
    if (tableSpec.wholeTableCheck)
        if (const QString problem = tableSpec.wholeTableCheck(rows); !problem.isEmpty())
            problems << problem;
    return problems;
}

} // namespace est::mastertable
