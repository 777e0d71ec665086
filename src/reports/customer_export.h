#pragma once
// Customers and vehicles as one CSV file for spreadsheet programs: one line per vehicle with
// its owner's fields in front (a customer without a vehicle gets one line of its own, a vehicle
// whose customer is gone one line with empty customer fields). UTF-8 with a byte-order mark,
// or Shift_JIS for older spreadsheet programs.

#include "mastertable/csv_file.h"

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

// The records of the customer database, the header first.
QList<QStringList> customerRecords(const QSqlDatabase &kokyaku, QString *error);

// "顧客車両_20240105.csv"
QString customerExportFileName(QDate day);

// Reads temp/KokyakuDB below the application folder and writes the file at `target`.
// `encoding`: Utf8 (with a byte-order mark) or ShiftJis.
CustomerExport exportCustomers(const QString &appFolder, const QString &target, mastertable::CsvEncoding encoding);

} // namespace est::reports
