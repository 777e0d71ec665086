#pragma once
// Where an estimate lives in its workbook: every value of the session's estimate goes to a
// fixed cell of sheet "D" (header, company, customer, vehicle, rows, non-taxable items) or
// sheet "P" (bumper, additional index, paint), with a fixed type, and is read back from the
// same cell. The cell-by-cell table is in estimate_layout.cpp.

#include "common/session.h"
#include "workbook/workbook.h"

namespace est::workbook {

// The first worksheet row of each table on the data sheets: the rows on "D" (columns A to K),
// the non-taxable items on "D" (columns L to N), the paint rows on "P" (columns A to K).
inline constexpr int kFirstEstimateRowOnD = 6;
inline constexpr int kFirstNonTaxableRowOnD = 10;
inline constexpr int kFirstPaintRowOnP = 18;

// Upper bounds a workbook must respect to be read (anything beyond is refused).
inline constexpr int kMaxNonTaxableItems = 999;
inline constexpr int kMaxPaintRows = kMaxEstimateRows;
// Revisions of one estimate (D!U1; a workbook without it is the first).
inline constexpr std::int16_t kMaxRevision = 999;

// Writes the estimate into sheets "D" and "P" of a workbook made from the template.
// Throws WorkbookError (NotAnEstimate) when the template lacks one of the two sheets.
void writeEstimate(Workbook &book, const Session &session);

// Reads an estimate back into the session, from a workbook of either format. The session changes only when the whole read
// succeeds; a single cell that does not convert leaves its value as it was. Throws
// WorkbookError when the sheets are missing or a count is out of range.
void readEstimate(BookCells &book, Session &session);

// The reformatting applied when reading: "0.00", "#,###", "00000" and the nine-digit slip
// number ("000000000"). Texts that are not numbers stay as they are; empty stays empty.
QString reformatFixed2(const QString &text);
QString reformatThousands(const QString &text);
QString reformatDigits(const QString &text, int digits);

} // namespace est::workbook
