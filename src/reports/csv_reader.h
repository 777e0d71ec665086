#pragma once
// Comma-separated text as spreadsheet programs write it: fields in double quotes may hold
// commas, line breaks and doubled quotes; lines end in CRLF or LF. Every record keeps the
// line it started on, so that problems can be reported by line number.

#include <QList>
#include <QString>
#include <QStringList>

namespace est::reports {

struct CsvRecord
{
    int line = 0;         // 1-based line on which the record starts
    QStringList fields;
};

struct CsvParse
{
    QList<CsvRecord> records;
    int errorLine = 0;    // a quote that is never closed, or a record beyond the limits
    QString error;
    bool ok() const { return error.isEmpty(); }
};

inline constexpr int kMaxCsvFields = 256;
inline constexpr int kMaxCsvRecords = 1000000;

// Blank lines are skipped.
CsvParse parseCsv(const QString &text);

// A field quoted when it needs to be, and a record joined with commas.
QString csvField(const QString &value);
QString csvLine(const QStringList &fields);

} // namespace est::reports
