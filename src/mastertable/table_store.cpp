#include "mastertable/table_store.h"

#include "db/database.h"
#include "db/dialect.h"
#include "db/transaction_guard.h"

#include <QRegularExpression>
#include <QSqlError>
#include <QSqlQuery>
#include <QSqlRecord>

namespace est::mastertable {

namespace {

QVariant bindValue(const ColumnSpec &column, const QString &value)
{
    // An empty text is stored as '' rather than NULL: text columns are often NOT NULL.
    if (column.kind == ColumnKind::Text)
        return value.isNull() ? QStringLiteral("") : value;
    if (value.isEmpty())
        return QVariant(QMetaType(QMetaType::QString));  // NULL
    if (column.kind == ColumnKind::WholeNumber)
        return value.toLongLong();
    // An index goes in as its text: a REAL or NUMERIC column stores the same number a typed
    // literal would give, a TEXT column keeps the two decimals.
    return value;
}

QString fieldList(const TableSpec &tableSpec)
{
    QStringList fields;
    for (const ColumnSpec &c : tableSpec.columns)
        fields << db::quoteIdentifier(c.field);
    return fields.join(QStringLiteral(", "));
}

// What the database refused, in words for the user (SQLite's own text is English). The
// transaction is rolled back, so the table is as it was.
QString writeFailure(const QSqlError &error, const TableSpec &tableSpec)
{
    const QString detail = error.databaseText() + QLatin1Char(' ') + error.driverText();
    static const QRegularExpression constraint(QStringLiteral("(NOT NULL|UNIQUE) constraint failed: ([^ ,]+)"));
    const auto captionOf = [&tableSpec](const QString &qualified) {
        const QString field = qualified.section(QLatin1Char('.'), -1);
        const int column = tableSpec.columnOf(field);
        return column >= 0 ? tableSpec.columns.at(column).caption : field;
    };
    QString reason;
    if (const QRegularExpressionMatch m = constraint.match(detail); m.hasMatch())
        reason = m.captured(1) == QLatin1String("UNIQUE")
                     ? QStringLiteral("「%1」が他の行と同じです。").arg(captionOf(m.captured(2)))
                     : QStringLiteral("「%1」を空にはできません。").arg(captionOf(m.captured(2)));
    else if (detail.contains(QLatin1String("locked")) || detail.contains(QLatin1String("busy")))
        reason = QStringLiteral("ほかのプログラムがこのデータベースを使っています。少し待ってからもう一度保存してください。");
    else if (detail.contains(QLatin1String("readonly")))
        reason = QStringLiteral("データベースのファイルに書き込めません（読み取り専用）。");
    else if (detail.contains(QLatin1String("disk")) || detail.contains(QLatin1String("full")))
        reason = QStringLiteral("ディスクに空きがないか、ファイルを書き込めません。");
    else
        reason = QStringLiteral("（エラー番号 %1）").arg(error.nativeErrorCode());
    return QStringLiteral("データベースに書き込めませんでした。\n%1\n表は変更していません。").arg(reason);
}

} // namespace

TableStore::TableStore(QSqlDatabase database, TableSpec tableSpec)
    : m_database(std::move(database)), m_spec(std::move(tableSpec))
{
}

QString TableStore::checkLayout() const
{
    if (!m_database.isOpen())
        return QStringLiteral("データベースが開かれていません。");
    if (!db::tableExists(m_database, m_spec.table))
        return QStringLiteral("表 %1 がありません。").arg(m_spec.table);
    const QStringList columns = db::columnNames(m_database, m_spec.table);
    for (const ColumnSpec &c : m_spec.columns)
        if (!columns.contains(c.field))
            return QStringLiteral("表 %1 に列 %2 がありません。").arg(m_spec.table, c.field);
    return {};
}

QList<StoredRow> TableStore::load(QString *error) const
{
    QList<StoredRow> rows;
    if (QString problem = checkLayout(); !problem.isEmpty()) {
        *error = problem;
        return rows;
    }
    QSqlQuery query(m_database);
    query.setForwardOnly(true);
    if (!query.exec(QStringLiteral("SELECT rowid, %1 FROM %2 ORDER BY rowid")
                        .arg(fieldList(m_spec), db::quoteIdentifier(m_spec.table)))) {
        *error = QStringLiteral("表 %1 を読めませんでした（エラー番号 %2）。").arg(m_spec.table, query.lastError().nativeErrorCode());
        return rows;
    }
    while (query.next()) {
        StoredRow row;
        row.rowid = query.value(0).toLongLong();
        for (int i = 0; i < m_spec.columns.size(); ++i)
            row.values << displayValue(m_spec.columns.at(i), query.value(i + 1));
        rows << row;
    }
    error->clear();
    return rows;
}

QString TableStore::insertRows(const QList<QStringList> &rows) const
{
    if (rows.isEmpty())
        return {};
    QStringList marks;
    for (int i = 0; i < m_spec.columns.size(); ++i)
        marks << QStringLiteral("?");
    QSqlQuery insert(m_database);
    if (!insert.prepare(QStringLiteral("INSERT INTO %1 (%2) VALUES (%3)")
                            .arg(db::quoteIdentifier(m_spec.table), fieldList(m_spec), marks.join(QLatin1Char(',')))))
        return writeFailure(insert.lastError(), m_spec);
    for (const QStringList &values : rows) {
        for (int i = 0; i < m_spec.columns.size(); ++i)
            insert.bindValue(i, bindValue(m_spec.columns.at(i), values.value(i)));
        if (!insert.exec())
            return writeFailure(insert.lastError(), m_spec);
    }
    return {};
}

QString TableStore::apply(const TableChanges &changes) const
{
    if (QString problem = checkLayout(); !problem.isEmpty())
        return problem;
    db::TransactionGuard guard(m_database);
    if (!guard.started())
        return writeFailure(m_database.lastError(), m_spec);
    const QString table = db::quoteIdentifier(m_spec.table);

    QSqlQuery remove(m_database);
    remove.prepare(QStringLiteral("DELETE FROM %1 WHERE rowid = ?").arg(table));
    for (qint64 rowid : changes.deleted) {
        remove.bindValue(0, rowid);
        if (!remove.exec())
            return writeFailure(remove.lastError(), m_spec);
    }

    QString parkError;
    const QList<qint64> targets = movedAside(changes.updated, &parkError);
    if (!parkError.isEmpty())
        return parkError;

    QStringList assignments;
    for (const ColumnSpec &c : m_spec.columns)
        assignments << db::quoteIdentifier(c.field) + QStringLiteral(" = ?");
    QSqlQuery update(m_database);
    update.prepare(QStringLiteral("UPDATE %1 SET %2 WHERE rowid = ?").arg(table, assignments.join(QStringLiteral(", "))));
    const int n = int(m_spec.columns.size());
    for (qsizetype r = 0; r < changes.updated.size(); ++r) {
        const StoredRow &row = changes.updated.at(r);
        for (int i = 0; i < n; ++i)
            update.bindValue(i, bindValue(m_spec.columns.at(i), row.values.value(i)));
        update.bindValue(n, targets.at(r));
        if (!update.exec())
            return writeFailure(update.lastError(), m_spec);
    }

    if (QString error = insertRows(changes.inserted); !error.isEmpty())
        return error;
    if (!guard.commit())
        return writeFailure(m_database.lastError(), m_spec);
    return {};
}

QList<qint64> TableStore::movedAside(const QList<StoredRow> &updated, QString *error) const
{
    QList<qint64> rowids;
    for (const StoredRow &row : updated)
        rowids << row.rowid;
    // Two rows that exchange their keys (class 1 and class 2) would meet each other's key
    // halfway through the updates: each updated row first takes a placeholder key that no real
    // row has, then its new values.
    if (m_spec.key.isEmpty() || updated.size() < 2)
        return rowids;
    const QString table = db::quoteIdentifier(m_spec.table);
    QStringList assignments, matches;
    for (int column : m_spec.key) {
        assignments << db::quoteIdentifier(m_spec.columns.at(column).field) + QStringLiteral(" = ?");
        matches << db::quoteIdentifier(m_spec.columns.at(column).field) + QStringLiteral(" IS ?");
    }
    QSqlQuery park(m_database);
    QSqlQuery find(m_database);
    if (!park.prepare(QStringLiteral("UPDATE %1 SET %2 WHERE rowid = ?").arg(table, assignments.join(QStringLiteral(", "))))
        || !find.prepare(QStringLiteral("SELECT rowid FROM %1 WHERE %2").arg(table, matches.join(QStringLiteral(" AND "))))) {
        *error = writeFailure((park.lastError().isValid() ? park : find).lastError(), m_spec);
        return {};
    }
    for (qsizetype r = 0; r < rowids.size(); ++r) {
        QVariantList placeholder;
        for (int column : m_spec.key) {
            // Far below any class or area a shop would use, or text no one types.
            if (m_spec.columns.at(column).kind == ColumnKind::Text)
                placeholder << QStringLiteral("\x01%1").arg(r);
            else
                placeholder << -(qint64(1) << 40) - r;
        }
        for (int i = 0; i < placeholder.size(); ++i)
            park.bindValue(i, placeholder.at(i));
        park.bindValue(int(placeholder.size()), rowids.at(r));
        for (int i = 0; i < placeholder.size(); ++i)
            find.bindValue(i, placeholder.at(i));
        if (!park.exec() || !find.exec() || !find.next()) {
            *error = writeFailure((park.lastError().isValid() ? park : find).lastError(), m_spec);
            return {};
        }
        // A key that is the table's rowid moves the row with it.
        rowids[r] = find.value(0).toLongLong();
        find.finish();
    }
    return rowids;
}

QString TableStore::replaceAll(const QList<QStringList> &rows) const
{
    if (QString problem = checkLayout(); !problem.isEmpty())
        return problem;
    db::TransactionGuard guard(m_database);
    if (!guard.started())
        return writeFailure(m_database.lastError(), m_spec);
    QSqlQuery clear(m_database);
    if (!clear.exec(QStringLiteral("DELETE FROM %1").arg(db::quoteIdentifier(m_spec.table))))
        return writeFailure(clear.lastError(), m_spec);
    if (QString error = insertRows(rows); !error.isEmpty())
        return error;
    if (!guard.commit())
        return writeFailure(m_database.lastError(), m_spec);
    return {};
}

QSet<QString> TableStore::referencedValues(const Reference &reference, QString *error) const
{
    QSet<QString> values;
    if (!db::columnNames(m_database, reference.table).contains(reference.field)) {
        *error = QStringLiteral("参照先 %1 の %2 がありません。").arg(reference.table, reference.field);
        return values;
    }
    QSqlQuery query(m_database);
    query.setForwardOnly(true);
    if (!query.exec(QStringLiteral("SELECT DISTINCT %1 FROM %2")
                        .arg(db::quoteIdentifier(reference.field), db::quoteIdentifier(reference.table)))) {
        *error = QStringLiteral("参照先 %1 を読めませんでした（エラー番号 %2）。").arg(reference.table, query.lastError().nativeErrorCode());
        return values;
    }
    while (query.next())
        values.insert(query.value(0).toString());
    error->clear();
    return values;
}

} // namespace est::mastertable
