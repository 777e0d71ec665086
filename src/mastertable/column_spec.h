#pragma once
// What a master-table editor knows about one table: its columns with Japanese captions, the
// rule each cell must follow, the columns that together must be unique, and references into
// other tables. One TableSpec drives the grid, the held edits, the saving and the CSV files.

#include <QList>
#include <QString>
#include <QStringList>
#include <functional>
#include <optional>

namespace est::mastertable {

enum class ColumnKind {
    Text,         // any text without line breaks or tabs
    WholeNumber,  // 0 or more, fits 32 bits
    Index2,       // 0 or more, at most two decimals, shown "0.00"
};

// A value that must already exist in a column of another table of the same database.
struct Reference
{
    QString table;
    QString field;
};

struct ColumnSpec
{
    QString field;    // column name in the SQLite table
    QString caption;  // Japanese header of the grid and the CSV file
    ColumnKind kind = ColumnKind::Text;
    bool required = false;
    int maxLength = 0;         // text only; 0 = no limit
    qint64 maxValue = 0;       // whole numbers only; 0 = up to 32 bits
    QStringList choices;       // when not empty, the only values allowed
    std::optional<Reference> reference;
    QList<Reference> dependents;  // columns of other tables that hold values of this one

    static ColumnSpec text(const QString &field, const QString &caption);
    static ColumnSpec whole(const QString &field, const QString &caption);
    static ColumnSpec index(const QString &field, const QString &caption);

    ColumnSpec &mustHave() { required = true; return *this; }
    ColumnSpec &atMost(int length) { maxLength = length; return *this; }
    ColumnSpec &upTo(qint64 value) { maxValue = value; return *this; }
    ColumnSpec &oneOf(const QStringList &values) { choices = values; return *this; }
    ColumnSpec &references(const QString &table, const QString &refField)
    {
        reference = Reference{table, refField};
        return *this;
    }
    // A value still held in that column of another table may not disappear from this one.
    ColumnSpec &usedIn(const QString &table, const QString &field)
    {
        dependents << Reference{table, field};
        return *this;
    }
};

struct TableSpec
{
    QString table;    // SQLite table name
    QString caption;  // tab caption, message titles
    QList<ColumnSpec> columns;
    QList<int> key;   // columns that together must be unique (empty: no key)
    // A rule over all the rows about to be stored (every area class present ...): the reason
    // the table cannot be stored, empty when it can.
    std::function<QString(const QList<QStringList> &rows)> wholeTableCheck;

    int columnOf(const QString &field) const;
};

// The result of checking one typed cell: the value as it will be stored and shown, or the
// reason it was refused.
struct CellCheck
{
    QString value;
    QString reason;  // empty when accepted
    bool ok() const { return reason.isEmpty(); }
};

// Checks and normalises one typed text for a column: blanks around it go, full-width digits
// become ASCII, "1.5" becomes "1.50", ".5" becomes "0.50". Key, choice and reference checks
// that need the other rows are done by the table checks.
CellCheck checkCell(const ColumnSpec &column, const QString &typed);

// A value read from the database as the grid shows it (a stored 1.5 shows "1.50").
QString displayValue(const ColumnSpec &column, const QVariant &stored);

} // namespace est::mastertable
