#pragma once
// Fitting the template's print sheets to one estimate when it is saved, so that a spreadsheet
// program prints it on as few pages as it needs: rows of a print sheet that show only estimate
// rows, paint rows or non-taxable items this estimate does not have are hidden; a print sheet
// without a print area gets one over its used range; the data sheets "D" and "P" are hidden,
// so printing the whole workbook prints only the print sheets (the program still reads them).
// A print sheet is found by what its formulas read, so a restyled template is fitted too.

#include "common/session.h"
#include "workbook/workbook.h"

namespace est::workbook {

void fitPrintSheets(Workbook &book, const Session &session);

} // namespace est::workbook
