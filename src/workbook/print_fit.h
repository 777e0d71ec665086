#pragma once
// Fitting the template's print sheets to one estimate when it is saved, so that a spreadsheet
// program prints it on as few pages as it needs: rows of a print sheet that show only estimate
// rows, paint rows or non-taxable items this estimate does not have are hidden; a print sheet
// without a print area gets one over its used range; the data sheets "D" and "P" are hidden,
// so printing the whole workbook prints only the print sheets (the program still reads them).
// A print sheet is found by what its formulas read, so a restyled template is fitted too.
//
// The print sheets are read once per template: which rows read which data rows, and each row's
// text shown and hidden. A save then fits them from the estimate's row counts alone and joins
// them from pieces compressed once (deflated_part.h), without parsing or compressing them again.

#include "common/session.h"
#include "workbook/deflated_part.h"
#include "workbook/workbook.h"

#include <QList>
#include <QStringView>

#include <array>
#include <unordered_map>
#include <vector>

namespace est::workbook {

// What an estimate fills of the tables of "D" and "P": rows, paint rows, non-taxable items.
using UsedRows = std::array<int, 3>;
UsedRows usedRows(const Session &session);

class PrintSheetFitter
{
public:
    // Reads the print sheets of a template (opened for this alone: its sheets are changed).
    explicit PrintSheetFitter(Workbook &templateBook);

    // Fits the print sheets of a workbook opened from the same template.
    void fit(Workbook &book, const UsedRows &used);

    // The print sheets' names.
    QStringList sheetNames() const;

private:
    struct Row
    {
        QByteArray shown;
        QByteArray hidden;
        bool fitted = false;         // a row whose formulas read data
        UsedRows hiddenUpTo{};       // hidden while every count is at most this
    };
    struct Sheet
    {
        QString name;
        QString printArea;           // to set, when the template has none
        DeflatedPart head;
        DeflatedPart tail;
        std::vector<Row> rows;
        // Per piece of kPieceRows rows: its compressed text by which of its rows are hidden.
        std::vector<std::unordered_map<quint64, DeflatedPart>> pieces;
    };
    static constexpr int kPieceRows = 32;

    DeflatedPart fitted(Sheet &sheet, const UsedRows &used);

    bool m_hasDataSheets = false;
    std::vector<Sheet> m_sheets;
};

// A reference to a cell of "D" or "P" in a formula ("D!A6", "'P'!$B$20"), not one that is
// part of a longer sheet name ("ABD!A6").
struct DataReference
{
    char sheet = 0; // 'D' or 'P'
    CellAddress cell;
};
QList<DataReference> dataReferences(QStringView formula);

} // namespace est::workbook
