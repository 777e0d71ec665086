#pragma once
// A maker's price list as CSV: part number and price per line (UTF-8 or Shift_JIS, detected),
// optionally under a header row that names the columns. Every line that cannot be used is
// reported with its line number; the list is only applied when there is none.

#include "common/money.h"
#include "mastertable/csv_file.h"

#include <QByteArray>
#include <QList>
#include <QString>

namespace est::reports {

struct PriceEntry
{
    int line = 0;
    QString partNumber;   // as matched: trimmed, full-width letters and digits made half-width
    Yen price = 0;
};

struct PriceProblem
{
    int line = 0;
    QString message;
};

struct PriceCsv
{
    QList<PriceEntry> entries;
    QList<PriceProblem> problems;
    mastertable::CsvEncoding encoding = mastertable::CsvEncoding::Utf8;
    QString fatal;            // the file as a whole cannot be read (encoding, size, quoting)
    bool usable() const { return fatal.isEmpty() && problems.isEmpty(); }
};

inline constexpr qint64 kMaxPriceCsvBytes = mastertable::kCsvMaxBytes;

PriceCsv readPriceCsv(const QByteArray &bytes);

// The key a part number is matched by (trimmed, NFKC, upper case).
QString partNumberKey(const QString &text);

// A price as typed in a price list: "12,345", "¥12,345", "１２３４５円". Empty when it is not
// a whole number of yen from 0 to the largest amount.
std::optional<Yen> parsePrice(const QString &text);

} // namespace est::reports
