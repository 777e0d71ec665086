#pragma once
// What is printed: a plain model of a saved estimate, with every text already in the form
// it takes on paper (amounts with separators, captions, the shop's block). The layouts only
// place these texts; they compute nothing.

#include "common/estimate_row.h"
#include "common/session.h"
#include "print/shop_info.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <optional>

namespace est::print {

// One line of a totals block: caption and amount text ("1,234").
struct AmountLine
{
    QString caption;
    QString amount;
    bool strong = false;   // the totals a reader looks for first
    bool operator==(const AmountLine &) const = default;
};

// A captioned value of the vehicle block ("車名", "プリウス").
struct Field
{
    QString caption;
    QString value;
};

// A table of the sub sheet.
struct DetailTable
{
    QString title;
    QStringList headers;
    QList<QStringList> rows;
    int firstNumberColumn = -1;   // columns from here on hold numbers (right-aligned)
};

struct PrintDocument
{
    QString title;             // the document kind ("お見積書")
    bool invoice = false;      // an invoice kind: the qualified-invoice statements apply
    QString slipNumber;        // nine digits
    QString revision;          // "修正2" on every page of a revised estimate, empty for the first
    QList<EstimatePhoto> photos;   // printed on pages of their own when asked for
    QString date;              // era date as saved
    QString customerCompany;   // with "御中" printed after it
    QString customerName;
    QString honorific;         // "御中" or "様", as saved
    QList<Field> vehicle;
    QString opening;
    QString closing;
    QString amountCaption;     // 御見積金額 / 御請求金額 / 合計金額
    QString amountDue;         // "1,234,567"
    QString memo;

    ShopInfo shop;
    bool printRegistration = false;   // the shop's registration number appears

    QList<EstimateRow> workRows;
    QList<EstimateRow> paintRows;

    QList<AmountLine> totals;         // A, B, A+B, discount ... amount due
    QList<AmountLine> taxBreakdown;   // per rate and non-taxable (qualified invoices)
    QList<AmountLine> paintTotals;    // paint labour, material, bumper, total B
    QList<AmountLine> nonTaxableItems;

    QList<DetailTable> details;       // sub sheet
};

// The document kinds that are invoices: ご請求書, 請求書, 納品/請求書.
bool isInvoiceKind(int kind);

// The figures below the rows as printed: the totals chain run once, as the sheet runs it
// when the estimate is opened. `overflowed` tells of an amount too large for whole yen.
SheetFigures printedFigures(const Session &saved, bool *overflowed = nullptr);

// What a qualified invoice states per rate, in whole yen. There is one rate per estimate
// (the shop's); the tax is computed once on that rate's total, never summed from lines.
struct TaxSummary
{
    int ratePercent = 0;
    Yen taxable = 0;      // the total after discount (A + B when there is none)
    Yen tax = 0;
    Yen nonTaxable = 0;
    bool operator==(const TaxSummary &) const = default;
};

// Read from printed figures; nothing when one of them is not a whole-yen amount.
std::optional<TaxSummary> taxSummary(const SheetFigures &printed);

// Builds the printed document from an estimate as read back from its workbook. The totals
// chain runs once, as the sheet runs it when the estimate is opened, so the printed figures
// are those the sheet shows. `honorific` is the one saved with the estimate.
PrintDocument buildPrintDocument(const Session &saved, const QString &honorific, const ShopInfo &shop);

} // namespace est::print
