#include "mastertable/table_checks.h"

#include <QHash>
#include <QMap>

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

} // namespace est::mastertable
