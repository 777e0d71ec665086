#pragma once
// CSV files of master tables: decoding the bytes (UTF-8, with or without BOM, or Shift_JIS as
// Windows writes it, CP932), splitting them into records, and writing a table as UTF-8 with a
// BOM so that spreadsheet programs read the Japanese text correctly. The reader takes files
// from outside: every limit is checked and a broken file gives a message, never a crash.

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

namespace est::mastertable {

enum class CsvEncoding { Auto, Utf8, ShiftJis };

// Files above this size are refused before anything is decoded.
constexpr qsizetype kCsvMaxBytes = 32 * 1024 * 1024;
constexpr int kCsvMaxFields = 512;
constexpr int kCsvMaxFieldLength = 4096;

struct DecodedCsv
{
    QString text;
    CsvEncoding encoding = CsvEncoding::Auto;  // the one used
    QString error;                             // empty when decoded
};

// Decodes with the chosen encoding, or detects it (a UTF-8 BOM or valid UTF-8, else CP932).
DecodedCsv decodeCsv(const QByteArray &bytes, CsvEncoding chosen);

struct CsvRecords
{
    QList<QStringList> records;
    QList<int> lines;  // the line of the file where each record starts (1-based)
    QString error;     // empty when the whole text was read
};

// Splits the text: fields separated by commas, records by CRLF, LF or CR, fields in double
// quotes may hold commas, line breaks and doubled quotes. Blank lines are skipped.
CsvRecords parseCsv(const QString &text);

// The records as UTF-8 with a BOM, CRLF line ends, fields quoted where needed.
QByteArray writeCsv(const QList<QStringList> &records);

} // namespace est::mastertable
