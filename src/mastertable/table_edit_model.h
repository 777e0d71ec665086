#pragma once
// Held edits over one master table: the grid's model. Typed cells are checked at once (a
// refused edit is reported with its row and column and the reason, and the cell keeps its
// value); rows can be added and deleted; nothing reaches the database until save(), which
// checks the keys and references and writes everything in one transaction.

#include "mastertable/table_checks.h"
#include "mastertable/table_store.h"

#include <QAbstractTableModel>

namespace est::mastertable {

struct SaveOutcome
{
    bool saved = false;
    int row = -1;      // the cell to show when refused (-1: none)
    int column = -1;
    QString message;   // why it was refused, for the user
};

class TableEditModel : public QAbstractTableModel
{
    Q_OBJECT
public:
    explicit TableEditModel(TableStore store, QObject *parent = nullptr);

    const TableSpec &tableSpec() const { return m_store.tableSpec(); }
    const TableStore &store() const { return m_store; }

    // Reads the table again, dropping every held edit. False (and loadError() set) when the
    // table cannot be read.
    bool reload();
    QString loadError() const { return m_loadError; }

    bool isDirty() const { return m_dirty; }
    QString text(int row, int column) const;

    // Appends an empty row; returns its index.
    int appendRow();
    // Removes the rows from the held table (deleted from the database on save).
    void removeHeldRows(QList<int> rows);
    // Held edits that a save would write: not only rows added and left blank, which a save
    // drops anyway.
    bool hasChangesToSave() const;

    SaveOutcome save();

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    // Refused text: returns false, emits refused() and keeps the old value.
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;

Q_SIGNALS:
    void refused(int row, int column, const QString &typed, const QString &message);
    void dirtyChanged(bool dirty);

private:
    struct HeldRow
    {
        qint64 rowid = 0;  // 0: added since the last save
        QStringList values;
        bool changed = false;
        bool blank() const;
    };
    void setDirty(bool dirty);
    std::optional<Problem> firstProblem(const QList<int> &kept, int *count) const;

    TableStore m_store;
    QList<HeldRow> m_rows;
    QList<qint64> m_deleted;
    QString m_loadError;
    bool m_dirty = false;
};

} // namespace est::mastertable
