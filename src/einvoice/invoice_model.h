#pragma once
// An electronic invoice as plain data: the parties, one line per amount of the estimate, the
// discount, the tax per category and the document totals, all in whole yen. It is built from
// the estimate as last saved, with the printed invoice's own figures; anything the file could
// not carry faithfully is refused with a sentence for the user.

#include "common/money.h"
#include "common/session.h"
#include "customers/electronic_address.h"
#include "print/shop_info.h"

#include <QDate>
#include <QList>
#include <QString>
#include <QStringList>
#include <optional>

namespace est::einvoice {

inline const QString kCustomizationId = QStringLiteral("urn:peppol:pint:billing-1@jp-1");
inline const QString kProfileId = QStringLiteral("urn:peppol:bis:billing");
inline const QString kInvoiceTypeCode = QStringLiteral("380");
inline const QString kCurrency = QStringLiteral("JPY");
inline const QString kCountry = QStringLiteral("JP");
// Registered invoice issuer number (適格請求書発行事業者登録番号) as an electronic address,
// and the corporate number (法人番号) as a legal identifier.
inline const QString kRegistrationNumberScheme = QStringLiteral("0221");
inline const QString kCorporateNumberScheme = QStringLiteral("0188");

// S: consumption tax at the estimate's rate; O: outside its scope (fees paid on the
// customer's behalf, the non-taxable items).
enum class TaxCategory { Standard, OutOfScope };
QString categoryCode(TaxCategory category);

struct Address
{
    QString postCode;     // digits only when it is a seven-digit postcode
    QString street;
    QString additional;
};

struct Party
{
    QString name;
    Address address;
    QString endpointScheme;   // electronic address, empty when there is none
    QString endpointId;
    QString taxId;            // the seller's registration number
    QString legalId;          // corporate number
    QString telephone;
};

struct Line
{
    QString name;
    QString description;      // the labour index, when there is one
    QString sellersItemId;    // the part number
    qint64 quantity = 1;
    QString unitCode;         // H87 (piece) or LS (lump sum)
    qint64 price = 0;         // never negative: a negative amount has a negative quantity
    Yen amount = 0;
    TaxCategory category = TaxCategory::Standard;
};

// The discount of the estimate as a document-level allowance (a negative discount is a charge).
struct DocumentAllowance
{
    bool charge = false;
    QString reasonCode;       // 95 (discount) for an allowance
    QString reason;
    qint64 amount = 0;        // never negative
};

struct TaxSubtotal
{
    TaxCategory category = TaxCategory::Standard;
    int percent = 0;          // not written for category O
    Yen taxable = 0;
    Yen tax = 0;
};

struct BankAccount
{
    QString id;
    QString name;
};

struct Invoice
{
    QString id;               // the slip number
    QDate issueDate;
    QDate periodStart;
    QDate periodEnd;
    QString note;             // the vehicle the invoice is for
    int ratePercent = 0;
    Party seller;
    Party buyer;
    std::optional<BankAccount> account;
    QList<Line> lines;
    std::optional<DocumentAllowance> allowance;
    QList<TaxSubtotal> subtotals;
    Yen taxTotal = 0;
    Yen lineTotal = 0;        // Σ line amounts
    qint64 allowanceTotal = 0;
    qint64 chargeTotal = 0;
    Yen taxExclusive = 0;
    Yen taxInclusive = 0;
    Yen prepaid = 0;
    Yen payable = 0;
};

struct BuildResult
{
    std::optional<Invoice> invoice;
    QString refusal;          // why there is no invoice
    QStringList notices;      // what the user should know about the file that was made
};

// Builds the invoice of a saved estimate. `fileName` is the workbook's name ("240105..."),
// whose date is the day the job was started; `buyer` the customer's identifiers.
BuildResult buildInvoice(const Session &saved, const QString &fileName, const print::ShopInfo &shop,
                         const customers::ElectronicAddress &buyer);

} // namespace est::einvoice
