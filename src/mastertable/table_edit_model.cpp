#include "mastertable/table_edit_model.h"

#include <algorithm>

namespace est::mastertable {

bool TableEditModel::HeldRow::blank() const
{
    return std::all_of(values.cbegin(), values.cend(), [](const QString &v) { return v.isEmpty(); });
}

TableEditModel::TableEditModel(TableStore store, QObject *parent)
    : QAbstractTableModel(parent), m_store(std::move(store))
{
    reload();
}

bool TableEditModel::reload()
{
    beginResetModel();
    m_rows.clear();
    m_deleted.clear();
    for (const StoredRow &stored : m_store.load(&m_loadError))
        m_rows << HeldRow{stored.rowid, stored.values, false};
    endResetModel();
    setDirty(false);
    return m_loadError.isEmpty();
}

void TableEditModel::setDirty(bool dirty)
{
    if (m_dirty == dirty)
        return;
    m_dirty = dirty;
    Q_EMIT dirtyChanged(dirty);
}

QString TableEditModel::text(int row, int column) const
{
    return m_rows.value(row).values.value(column);
}

int TableEditModel::appendRow()
{
    const int row = int(m_rows.size());
    beginInsertRows({}, row, row);
    HeldRow added;
    for (int i = 0; i < tableSpec().columns.size(); ++i)
        added.values << QString();
    added.changed = true;
    m_rows << added;
    endInsertRows();
    setDirty(true);
    return row;
}

void TableEditModel::removeHeldRows(QList<int> rows)
{
    std::sort(rows.begin(), rows.end(), std::greater<int>());
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    rows.erase(std::remove_if(rows.begin(), rows.end(), [this](int row) { return row < 0 || row >= m_rows.size(); }),
               rows.end());
    // Runs of neighbouring rows go in one step each, so that deleting a whole large table
    // does not move the rest of the list once per row.
    for (qsizetype i = 0; i < rows.size();) {
        const int last = rows.at(i);
        int first = last;
        while (++i < rows.size() && rows.at(i) == first - 1)
            first = rows.at(i);
        beginRemoveRows({}, first, last);
        for (int row = first; row <= last; ++row)
            if (m_rows.at(row).rowid != 0)
                m_deleted << m_rows.at(row).rowid;
        m_rows.remove(first, last - first + 1);
        endRemoveRows();
    }
    if (!rows.isEmpty())
        setDirty(true);
}

bool TableEditModel::hasChangesToSave() const
{
    if (!m_dirty)
        return false;
    if (!m_deleted.isEmpty())
        return true;
    for (const HeldRow &row : m_rows)
        if (row.changed && !(row.rowid == 0 && row.blank()))
            return true;
    return false;
}

std::optional<Problem> TableEditModel::firstProblem(const QList<int> &kept, int *count) const
{
    // Checks run over the rows that will be stored; `kept` maps them back to grid rows.
    QList<QStringList> rows;
    QList<int> changed, numbers;
    for (int i = 0; i < kept.size(); ++i) {
        rows << m_rows.at(kept.at(i)).values;
        numbers << kept.at(i) + 1;
        if (m_rows.at(kept.at(i)).changed)
            changed << i;
    }
    QList<Problem> problems;
    for (int i : changed)
        for (int c = 0; c < tableSpec().columns.size(); ++c) {
            const CellCheck check = checkCell(tableSpec().columns.at(c), rows.at(i).at(c));
            if (!check.ok())
                problems << Problem{i, c, check.reason};
        }
    problems << duplicateKeys(tableSpec(), rows, numbers);
    QList<int> checkable;
    for (int i : changed)
        if (std::none_of(problems.cbegin(), problems.cend(), [i](const Problem &p) { return p.row == i; }))
            checkable << i;
    problems << missingReferences(m_store, rows, checkable);
    *count = int(problems.size());
    if (problems.isEmpty())
        return std::nullopt;
    Problem first = problems.first();
    first.row = kept.value(first.row);
    return first;
}

SaveOutcome TableEditModel::save()
{
    SaveOutcome outcome;
    if (!m_loadError.isEmpty()) {
        outcome.message = m_loadError;
        return outcome;
    }
    QList<int> kept;
    for (int r = 0; r < m_rows.size(); ++r)
        if (!(m_rows.at(r).rowid == 0 && m_rows.at(r).blank()))
            kept << r;
    int count = 0;
    if (const std::optional<Problem> problem = firstProblem(kept, &count)) {
        outcome.row = problem->row;
        outcome.column = problem->column;
        outcome.message = describe(*problem, tableSpec());
        if (count > 1)
            outcome.message += QStringLiteral("\n（ほかに%1件の問題があります）").arg(count - 1);
        outcome.message += QStringLiteral("\n保存していません。");
        return outcome;
    }
    QList<QStringList> newContent;
    for (int r : kept)
        newContent << m_rows.at(r).values;
    if (const QStringList problems = wholeTableProblems(m_store, newContent); !problems.isEmpty()) {
        outcome.message = problems.join(QLatin1Char('\n')) + QStringLiteral("\n保存していません。");
        return outcome;
    }
    TableChanges changes;
    changes.deleted = m_deleted;
    for (int r : kept) {
        const HeldRow &row = m_rows.at(r);
        if (row.rowid == 0)
            changes.inserted << row.values;
        else if (row.changed)
            changes.updated << StoredRow{row.rowid, row.values};
    }
    outcome.message = m_store.apply(changes);
    if (!outcome.message.isEmpty())
        return outcome;
    outcome.saved = true;
    reload();
    return outcome;
}

int TableEditModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_rows.size());
}

int TableEditModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(tableSpec().columns.size());
}

QVariant TableEditModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.row() >= m_rows.size())
        return {};
    if (role == Qt::DisplayRole || role == Qt::EditRole)
        return text(index.row(), index.column());
    if (role == Qt::TextAlignmentRole && tableSpec().columns.at(index.column()).kind != ColumnKind::Text)
        return QVariant::fromValue(Qt::AlignRight | Qt::AlignVCenter);
    return {};
}

QVariant TableEditModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role != Qt::DisplayRole)
        return {};
    if (orientation == Qt::Horizontal)
        return tableSpec().columns.value(section).caption;
    if (section < 0 || section >= m_rows.size())
        return {};
    // A changed row carries a mark until it is saved or undone.
    return m_rows.at(section).changed ? QStringLiteral("＊%1").arg(section + 1) : QString::number(section + 1);
}

Qt::ItemFlags TableEditModel::flags(const QModelIndex &index) const
{
    if (!index.isValid())
        return Qt::NoItemFlags;
    return Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsEditable;
}

bool TableEditModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (!index.isValid() || role != Qt::EditRole || index.row() >= m_rows.size())
        return false;
    const QString typed = value.toString();
    const CellCheck check = checkCell(tableSpec().columns.at(index.column()), typed);
    if (!check.ok()) {
        Q_EMIT refused(index.row(), index.column(), typed,
                       describe(Problem{index.row(), index.column(), check.reason}, tableSpec()));
        return false;
    }
    HeldRow &row = m_rows[index.row()];
    if (row.values.at(index.column()) == check.value)
        return true;
    row.values[index.column()] = check.value;
    row.changed = true;
    Q_EMIT dataChanged(index, index);
    Q_EMIT headerDataChanged(Qt::Vertical, index.row(), index.row());
    setDirty(true);
    return true;
}

} // namespace est::mastertable
