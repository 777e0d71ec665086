#include "einvoice/ubl_writer.h"

#include <QXmlStreamWriter>

namespace est::einvoice {

namespace {

const QString kInvoiceNs = QStringLiteral("urn:oasis:names:specification:ubl:schema:xsd:Invoice-2");
const QString kCac = QStringLiteral("urn:oasis:names:specification:ubl:schema:xsd:CommonAggregateComponents-2");
const QString kCbc = QStringLiteral("urn:oasis:names:specification:ubl:schema:xsd:CommonBasicComponents-2");
const QString kVat = QStringLiteral("VAT");

// Elements in the order the UBL schema gives them. Empty values are left out: the format
// allows no empty element.
class Ubl
{
public:
    explicit Ubl(QByteArray *out) : m_w(out) { m_w.setAutoFormatting(true); }

    QXmlStreamWriter &writer() { return m_w; }

    void open(const QString &name) { m_w.writeStartElement(kCac, name); }
    void close() { m_w.writeEndElement(); }

    void text(const QString &name, const QString &value)
    {
        if (!value.isEmpty())
            m_w.writeTextElement(kCbc, name, value);
    }
    void withAttribute(const QString &name, const QString &value, const QString &attribute, const QString &attrValue)
    {
        if (value.isEmpty())
            return;
        m_w.writeStartElement(kCbc, name);
        if (!attrValue.isEmpty())
            m_w.writeAttribute(attribute, attrValue);
        m_w.writeCharacters(value);
        m_w.writeEndElement();
    }
    void amount(const QString &name, qint64 yen) { withAttribute(name, QString::number(yen), QStringLiteral("currencyID"), kCurrency); }
    void date(const QString &name, const QDate &day) { text(name, day.toString(Qt::ISODate)); }

    void taxScheme()
    {
        open(QStringLiteral("TaxScheme"));
        text(QStringLiteral("ID"), kVat);
        close();
    }
    void taxCategory(const QString &element, TaxCategory category, int percent)
    {
        open(element);
        text(QStringLiteral("ID"), categoryCode(category));
        // Outside the scope of the tax there is no rate at all.
        if (category == TaxCategory::Standard)
            text(QStringLiteral("Percent"), QString::number(percent));
        taxScheme();
        close();
    }

private:
    QXmlStreamWriter m_w;
};

void writeAddress(Ubl &x, const Address &a)
{
    x.open(QStringLiteral("PostalAddress"));
    x.text(QStringLiteral("StreetName"), a.street);
    x.text(QStringLiteral("AdditionalStreetName"), a.additional);
    x.text(QStringLiteral("PostalZone"), a.postCode);
    x.open(QStringLiteral("Country"));
    x.text(QStringLiteral("IdentificationCode"), kCountry);
    x.close();
    x.close();
}

void writeParty(Ubl &x, const QString &role, const Party &p)
{
    x.open(role);
    x.open(QStringLiteral("Party"));
    x.withAttribute(QStringLiteral("EndpointID"), p.endpointId, QStringLiteral("schemeID"), p.endpointScheme);
    x.open(QStringLiteral("PartyName"));
    x.text(QStringLiteral("Name"), p.name);
    x.close();
    writeAddress(x, p.address);
    if (!p.taxId.isEmpty()) {
        x.open(QStringLiteral("PartyTaxScheme"));
        x.text(QStringLiteral("CompanyID"), p.taxId);
        x.taxScheme();
        x.close();
    }
    x.open(QStringLiteral("PartyLegalEntity"));
    x.text(QStringLiteral("RegistrationName"), p.name);
    x.withAttribute(QStringLiteral("CompanyID"), p.legalId, QStringLiteral("schemeID"), kCorporateNumberScheme);
    x.close();
    if (!p.telephone.isEmpty()) {
        x.open(QStringLiteral("Contact"));
        x.text(QStringLiteral("Telephone"), p.telephone);
        x.close();
    }
    x.close();
    x.close();
}

void writeTotals(Ubl &x, const Invoice &inv)
{
    x.open(QStringLiteral("TaxTotal"));
    x.amount(QStringLiteral("TaxAmount"), inv.taxTotal);
    for (const TaxSubtotal &t : inv.subtotals) {
        x.open(QStringLiteral("TaxSubtotal"));
        x.amount(QStringLiteral("TaxableAmount"), t.taxable);
        x.amount(QStringLiteral("TaxAmount"), t.tax);
        x.taxCategory(QStringLiteral("TaxCategory"), t.category, t.percent);
        x.close();
    }
    x.close();

    x.open(QStringLiteral("LegalMonetaryTotal"));
    x.amount(QStringLiteral("LineExtensionAmount"), inv.lineTotal);
    x.amount(QStringLiteral("TaxExclusiveAmount"), inv.taxExclusive);
    x.amount(QStringLiteral("TaxInclusiveAmount"), inv.taxInclusive);
    if (inv.allowanceTotal != 0)
        x.amount(QStringLiteral("AllowanceTotalAmount"), inv.allowanceTotal);
    if (inv.chargeTotal != 0)
        x.amount(QStringLiteral("ChargeTotalAmount"), inv.chargeTotal);
    if (inv.prepaid != 0)
        x.amount(QStringLiteral("PrepaidAmount"), inv.prepaid);
    x.amount(QStringLiteral("PayableAmount"), inv.payable);
    x.close();
}

void writeLine(Ubl &x, int number, const Line &l, int percent)
{
    x.open(QStringLiteral("InvoiceLine"));
    x.text(QStringLiteral("ID"), QString::number(number));
    x.withAttribute(QStringLiteral("InvoicedQuantity"), QString::number(l.quantity), QStringLiteral("unitCode"), l.unitCode);
    x.amount(QStringLiteral("LineExtensionAmount"), l.amount);
    x.open(QStringLiteral("Item"));
    x.text(QStringLiteral("Description"), l.description);
    x.text(QStringLiteral("Name"), l.name);
    if (!l.sellersItemId.isEmpty()) {
        x.open(QStringLiteral("SellersItemIdentification"));
        x.text(QStringLiteral("ID"), l.sellersItemId);
        x.close();
    }
    x.taxCategory(QStringLiteral("ClassifiedTaxCategory"), l.category, percent);
    x.close();
    x.open(QStringLiteral("Price"));
    x.amount(QStringLiteral("PriceAmount"), l.price);
    x.close();
    x.close();
}

} // namespace

QByteArray writeUbl(const Invoice &inv)
{
    QByteArray out;
    out.reserve(1024 + inv.lines.size() * 900);
    Ubl x(&out);
    QXmlStreamWriter &w = x.writer();
    w.writeStartDocument();
    w.writeDefaultNamespace(kInvoiceNs);
    w.writeNamespace(kCac, QStringLiteral("cac"));
    w.writeNamespace(kCbc, QStringLiteral("cbc"));
    w.writeStartElement(kInvoiceNs, QStringLiteral("Invoice"));
    x.text(QStringLiteral("CustomizationID"), kCustomizationId);
    x.text(QStringLiteral("ProfileID"), kProfileId);
    x.text(QStringLiteral("ID"), inv.id);
    x.date(QStringLiteral("IssueDate"), inv.issueDate);
    x.text(QStringLiteral("InvoiceTypeCode"), kInvoiceTypeCode);
    x.text(QStringLiteral("Note"), inv.note);
    x.text(QStringLiteral("DocumentCurrencyCode"), kCurrency);
    x.open(QStringLiteral("InvoicePeriod"));
    x.date(QStringLiteral("StartDate"), inv.periodStart);
    x.date(QStringLiteral("EndDate"), inv.periodEnd);
    x.close();
    writeParty(x, QStringLiteral("AccountingSupplierParty"), inv.seller);
    writeParty(x, QStringLiteral("AccountingCustomerParty"), inv.buyer);
    if (inv.account) {
        x.open(QStringLiteral("PaymentMeans"));
        x.text(QStringLiteral("PaymentMeansCode"), QStringLiteral("30"));   // credit transfer
        x.open(QStringLiteral("PayeeFinancialAccount"));
        x.text(QStringLiteral("ID"), inv.account->id);
        x.text(QStringLiteral("Name"), inv.account->name);
        x.close();
        x.close();
    }
    if (inv.allowance) {
        const DocumentAllowance &a = *inv.allowance;
        x.open(QStringLiteral("AllowanceCharge"));
        x.text(QStringLiteral("ChargeIndicator"), a.charge ? QStringLiteral("true") : QStringLiteral("false"));
        x.text(QStringLiteral("AllowanceChargeReasonCode"), a.reasonCode);
        x.text(QStringLiteral("AllowanceChargeReason"), a.reason);
        x.amount(QStringLiteral("Amount"), a.amount);
        x.taxCategory(QStringLiteral("TaxCategory"), TaxCategory::Standard, inv.ratePercent);
        x.close();
    }
    writeTotals(x, inv);
    for (int i = 0; i < inv.lines.size(); ++i)
        writeLine(x, i + 1, inv.lines.at(i), inv.ratePercent);
    w.writeEndElement();
    w.writeEndDocument();
    return out;
}

} // namespace est::einvoice
