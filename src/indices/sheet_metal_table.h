#pragma once
// The sheet-metal index table bankinsisu: per area class ("1" to "40", compared as text) the
// indices of grades A, B and C. Read by the sheet-metal screen; its setting dialog edits it on
// the table editor.

#include <QList>
#include <QSqlDatabase>
#include <QString>
#include <array>
#include <optional>

namespace est::indices {

struct SheetMetalRow
{
    QString area;
    std::array<QString, 3> grades; // A, B, C as decimal texts

    bool operator==(const SheetMetalRow &) const = default;
};

class SheetMetalTable
{
public:
    explicit SheetMetalTable(QSqlDatabase database);

    // The A, B and C indices of an area class; empty when it has no row (or no table).
    std::optional<std::array<QString, 3>> grades(int areaClass) const;

    // Every row, in area-class order; empty when the table cannot be read.
    QList<SheetMetalRow> rows() const;

private:
    QSqlDatabase m_database;
};

// What is wrong with a table the user edited, as a sentence for the user; empty when the area
// classes are 1 to 40, each once, and every index is a number not below 0. The setting dialog
// stores a table only when this is empty.
QString checkRows(const QList<SheetMetalRow> &rows);

} // namespace est::indices
