#pragma once
// What the estimate library keeps of one saved workbook: the fields a search or a sales
// report needs, with the sheet's totals worked out the way the sheet works them out.

#include "common/money.h"
#include "common/session.h"

#include <QDate>
#include <QString>

namespace est::reports {

struct EstimateSummary
{
    QString fileName;       // relative to the estimates folder ("sub/240105A.xlsx")
    bool readable = true;   // false: the workbook could not be read (error says why)
    QString error;

    QString slipNumber;
    QDate day;              // the document's date; invalid when none could be read
    int documentKind = 0;   // index into the document kinds
    QString customer;
    QString company;
    QString car;
    QString registration;
    QString chassis;
    Yen totalA = 0;
    Yen totalB = 0;
    Yen discount = 0;
    Yen tax = 0;
    Yen nonTaxable = 0;
    Yen grandTotal = 0;
    Yen amountDue = 0;

    bool operator==(const EstimateSummary &) const = default;
};

// Invoices and delivery notes are sales; estimates are not.
bool isSale(int documentKind);

// The summary of an estimate held in a session (as saved or as read back).
EstimateSummary summarize(const Session &session, const QString &fileName);

// Reads the workbook at `path` and summarises it; an unreadable workbook gives a summary
// with readable = false and the reason, never an exception.
EstimateSummary readSummary(const QString &path, const QString &fileName);

// The document date: the era date of the estimate, else the day key the slip number starts
// with, else the day key the file name starts with.
QDate documentDay(const QString &eraDate, const QString &slipNumber, const QString &fileName);

// "令和6年1月5日" (also 平成, 昭和 and 元年) as a date; invalid when it is not one.
QDate parseEraDate(const QString &text);

} // namespace est::reports
