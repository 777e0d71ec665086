#pragma once
// Reading and writing one master table described by a TableSpec. Only the tableSpec's columns are
// read and written; rows are kept in table order (rowid), which the screens that read the
// first rows of a table rely on. Every change runs in one transaction.

#include "mastertable/column_spec.h"

#include <QSet>
#include <QSqlDatabase>
#include <QStringList>

namespace est::mastertable {

struct StoredRow
{
    qint64 rowid = 0;
    QStringList values;  // one display text per tableSpec column
};

struct TableChanges
{
    QList<qint64> deleted;
    QList<StoredRow> updated;
    QList<QStringList> inserted;
};

class TableStore
{
public:
    TableStore(QSqlDatabase database, TableSpec tableSpec);

    const TableSpec &tableSpec() const { return m_spec; }
    QSqlDatabase database() const { return m_database; }

    // Empty when the table and every tableSpec column exist; else a sentence for the user.
    QString checkLayout() const;

    // The rows in table order; empty list and `error` set when the table cannot be read.
    QList<StoredRow> load(QString *error) const;

    // Deletes, updates and inserts in one transaction. Empty on success, else the reason
    // (and the table is as it was).
    QString apply(const TableChanges &changes) const;

    // Replaces every row of the table by `rows` in one transaction.
    QString replaceAll(const QList<QStringList> &rows) const;

    // The values present in a referenced column; `error` set when that table cannot be read.
    QSet<QString> referencedValues(const Reference &reference, QString *error) const;

private:
    QString insertRows(const QList<QStringList> &rows) const;
    // Inside apply's transaction: the rowids under which the updated rows are then written;
    // `error` is set when that fails.
    QList<qint64> movedAside(const QList<StoredRow> &updated, QString *error) const;

    QSqlDatabase m_database;
    TableSpec m_spec;
};

} // namespace est::mastertable
