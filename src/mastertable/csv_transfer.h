#pragma once
// Export of a master table to a CSV file and import back: the first record holds the column
// captions (or field names), then one record per row. An import checks every row like the
// grid checks a typed cell, plus the key and the references, and replaces the table in one
// transaction only when no row is refused.

#include "mastertable/csv_file.h"
#include "mastertable/table_store.h"

namespace est::mastertable {

struct ImportReport
{
    bool applied = false;
    int rowCount = 0;          // rows written when applied
    QString error;             // the file as a whole was refused
    QStringList refusedRows;   // one line per refused cell or row: "5行目「2枚」：…"

    // The text to show the user.
    QString summary() const;
};

ImportReport importCsv(const TableStore &store, const QByteArray &bytes, CsvEncoding encoding);

// The table as CSV bytes (UTF-8 with BOM); empty and `error` set when it cannot be read.
QByteArray exportCsv(const TableStore &store, QString *error);

} // namespace est::mastertable
