#pragma once
// Fitting the template's print sheets to one estimate when it is saved, so that a spreadsheet
// program prints it on as few pages as it needs: rows of a print sheet that show only estimate
// rows, paint rows or non-taxable items this estimate does not have are hidden; a print sheet
// without a print area gets one over its used range; the data sheets "D" and "P" are hidden,
// so printing the whole workbook prints only the print sheets (the program still reads them).
// A print sheet is found by what its formulas read, so a restyled template is fitted too.

#include "common/session.h"
#include "workbook/workbook.h"

#include <QList>
#include <QStringView>

namespace est::workbook {

void fitPrintSheets(Workbook &book, const Session &session);

// A reference to a cell of "D" or "P" in a formula ("D!A6", "'P'!$B$20"), not one that is
// part of a longer sheet name ("ABD!A6").
struct DataReference
{
    char sheet = 0; // 'D' or 'P'
    CellAddress cell;
};
QList<DataReference> dataReferences(QStringView formula);

} // namespace est::workbook
