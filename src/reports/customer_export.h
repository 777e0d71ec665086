#pragma once
// Customers and vehicles as one CSV file for spreadsheet programs: one line per vehicle with
// its owner's fields in front (a customer without a vehicle gets one line of its own, a vehicle
// whose customer is gone one line with empty customer fields). UTF-8 with a byte-order mark,
// or Shift_JIS for older spreadsheet programs.

#include "reports/text_codec.h"

#include <QDate>
#include <QSqlDatabase>
#include <QString>
#include <QStringList>

namespace est::reports {

struct CustomerExport
{
    QString error;
    int lines = 0;          // data lines written (without the header)
    int unmappable = 0;     // characters Shift_JIS could not hold, written as "?"
};

// The header captions, in column order.
QStringList customerExportHeaders();

// The CSV text of the customer database (header first, CRLF line ends).
QString customerCsv(const QSqlDatabase &kokyaku, int *lines, QString *error);

// "顧客車両_20240105.csv"
QString customerExportFileName(QDate day);

// Reads temp/KokyakuDB below the application folder and writes the file at `target`.
CustomerExport exportCustomers(const QString &appFolder, const QString &target, TextEncoding encoding);

} // namespace est::reports
