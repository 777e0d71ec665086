#pragma once
// Reads an invoice file back with an independent reader (tests/einvoice/pint_check.py on
// Python's xml.etree, and xmllint for well-formedness), and sets up the application folder
// an invoice is made in.

#include "customers/electronic_address.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QString>
#include <QStringList>

namespace est::test {

struct InvoiceReport
{
    bool read = false;        // the reader ran and gave a report
    QStringList failed;       // rule identifiers the file breaks
    QJsonObject figures;      // LegalMonetaryTotal and TaxAmount, by element name
    QJsonArray subtotals() const;
    QJsonObject all;
};

InvoiceReport checkInvoice(const QString &xmlPath);
// xmllint --noout: true when the file is well-formed XML.
bool wellFormed(const QString &xmlPath);

// Stores a customer's electronic address in the application folder's customer database.
void installCustomerAddress(const QString &appFolder, const QString &kno, const customers::ElectronicAddress &address);

} // namespace est::test
