#!/usr/bin/env python3
# An independent reader for the invoice files: parses one with xml.etree, checks the main
# rules of JP PINT (identifiers, code lists, sums, one rounding per tax rate) and prints a
# JSON report: the rules it found broken and the figures it read.
import json
import math
import re
import sys
import xml.etree.ElementTree as ET

NS = {
    'inv': 'urn:oasis:names:specification:ubl:schema:xsd:Invoice-2',
    'cac': 'urn:oasis:names:specification:ubl:schema:xsd:CommonAggregateComponents-2',
    'cbc': 'urn:oasis:names:specification:ubl:schema:xsd:CommonBasicComponents-2',
}
EAS = set('0002 0007 0009 0037 0060 0088 0096 0097 0106 0130 0135 0142 0151 0154 0158 0177 0183 0184 '
          '0188 0190 0191 0192 0193 0195 0196 0198 0199 0200 0201 0202 0204 0208 0209 0210 0211 0212 '
          '0213 0215 0216 0218 0221 0230 0235 0240 0242 0244 0245 0246 0248 9910 9913 9914 9915 9918 '
          '9919 9920 9922 9923 9924 9925 9926 9927 9928 9929 9930 9931 9932 9933 9934 9935 9936 9937 '
          '9938 9939 9940 9941 9942 9943 9944 9945 9946 9947 9948 9949 9950 9951 9952 9953 9957 9959'.split())
JP_CATEGORIES = {'AA', 'E', 'S', 'G', 'O'}
# The unit codes of UN/ECE Recommendation 20 that an invoice of this kind may use.
UNIT_CODES = {'H87', 'C62', 'EA', 'LS', 'E48', 'HUR', 'SET'}
ALLOWANCE_CODES = {'41', '42', '60', '62', '63', '64', '65', '66', '67', '68', '70', '71', '88', '95',
                   '100', '102', '103', '104', '105'}

failed = set()


def rule(ok, rule_id):
    if not ok:
        failed.add(rule_id)


def text(node, path):
    found = node.find(path, NS)
    return None if found is None else (found.text or '').strip()


def amount(node, path):
    value = text(node, path)
    return None if value is None else int(value)


def main(path):
    root = ET.parse(path).getroot()
    rule(root.tag == '{%s}Invoice' % NS['inv'], 'root')
    for element in root.iter():
        if len(element) == 0 and not (element.text or '').strip():
            failed.add('ibr-079')
        currency = element.get('currencyID')
        if currency is not None:
            rule(currency == 'JPY', 'ibr-126')
            rule(re.fullmatch(r'-?\d+', (element.text or '').strip()) is not None, 'ibr-jp-06')

    rule((text(root, 'cbc:CustomizationID') or '').startswith('urn:peppol:pint:billing-1@jp-1'), 'aligned-ibrp-001-jp')
    rule(text(root, 'cbc:ProfileID') == 'urn:peppol:bis:billing', 'aligned-ibrp-002-jp')
    rule(bool(text(root, 'cbc:ID')), 'ibr-002')
    dates = [text(root, p) for p in ('cbc:IssueDate', 'cac:InvoicePeriod/cbc:StartDate', 'cac:InvoicePeriod/cbc:EndDate')]
    for d in dates:
        rule(d is not None and re.fullmatch(r'\d{4}-\d{2}-\d{2}', d) is not None, 'ibr-073')
    rule(text(root, 'cbc:InvoiceTypeCode') == '380', 'aligned-ibrp-cl-02-jp')
    rule(text(root, 'cbc:DocumentCurrencyCode') == 'JPY', 'ibr-005')
    rule(len(root.findall('cac:InvoicePeriod', NS)) == 1, 'aligned-ibrp-052')
    rule(len(root.findall('cbc:Note', NS)) <= 1, 'ibr-sr-51')
    start, end = dates[1], dates[2]
    rule(start is None or end is None or start <= end, 'ibr-029')

    parties = {}
    for role, prefix in (('seller', 'cac:AccountingSupplierParty/cac:Party'), ('buyer', 'cac:AccountingCustomerParty/cac:Party')):
        party = root.find(prefix, NS)
        rule(party is not None, 'ibr-006' if role == 'seller' else 'ibr-007')
        if party is None:
            continue
        endpoint = party.find('cbc:EndpointID', NS)
        info = {'name': text(party, 'cac:PartyLegalEntity/cbc:RegistrationName'),
                'endpoint': None if endpoint is None else endpoint.get('schemeID') + ':' + endpoint.text,
                'tax': text(party, 'cac:PartyTaxScheme/cbc:CompanyID'),
                'legal': text(party, 'cac:PartyLegalEntity/cbc:CompanyID'),
                'street': text(party, 'cac:PostalAddress/cbc:StreetName'),
                'post': text(party, 'cac:PostalAddress/cbc:PostalZone')}
        parties[role] = info
        rule(bool(info['name']), 'ibr-006' if role == 'seller' else 'ibr-007')
        rule(party.find('cac:PostalAddress', NS) is not None, 'ibr-008' if role == 'seller' else 'ibr-010')
        rule(text(party, 'cac:PostalAddress/cac:Country/cbc:IdentificationCode') == 'JP', 'ibr-009' if role == 'seller' else 'ibr-011')
        if endpoint is None:
            failed.add('ibr-081' if role == 'seller' else 'ibr-080')
        else:
            rule(endpoint.get('schemeID') in EAS, 'ibr-cl-25')
        for scheme in party.findall('cac:PartyTaxScheme', NS):
            rule(text(scheme, 'cac:TaxScheme/cbc:ID') == 'VAT', 'aligned-ibr-jp-03')
            rule(bool(text(scheme, 'cbc:CompanyID')), 'ibr-sr-57')
    seller_tax = parties.get('seller', {}).get('tax')
    rule(seller_tax is not None, 'aligned-ibr-jp-04')
    if max(d or '' for d in dates[1:]) >= '2023-10-01':
        rule(seller_tax is not None and re.fullmatch(r'T[0-9]{13}', seller_tax) is not None, 'aligned-ibr-jp-01')

    lines = root.findall('cac:InvoiceLine', NS)
    rule(len(lines) > 0, 'ibr-016')
    line_sum = 0
    per_category = {}
    ids = set()
    for line in lines:
        line_id = text(line, 'cbc:ID')
        rule(bool(line_id) and line_id not in ids, 'ibr-021')
        ids.add(line_id)
        quantity = line.find('cbc:InvoicedQuantity', NS)
        rule(quantity is not None, 'ibr-022')
        rule(quantity is not None and quantity.get('unitCode') in UNIT_CODES, 'ibr-cl-23')
        value = amount(line, 'cbc:LineExtensionAmount')
        rule(value is not None, 'ibr-024')
        rule(bool(text(line, 'cac:Item/cbc:Name')), 'ibr-025')
        price = amount(line, 'cac:Price/cbc:PriceAmount')
        rule(price is not None, 'ibr-026')
        rule(price is None or price >= 0, 'ibr-027')
        if quantity is not None and price is not None and value is not None:
            rule(int(quantity.text) * price == value, 'line-quantity-price')
        category = text(line, 'cac:Item/cac:ClassifiedTaxCategory/cbc:ID')
        percent = text(line, 'cac:Item/cac:ClassifiedTaxCategory/cbc:Percent')
        rule(category in JP_CATEGORIES, 'aligned-ibrp-cl-01-jp')
        rule(text(line, 'cac:Item/cac:ClassifiedTaxCategory/cac:TaxScheme/cbc:ID') == 'VAT', 'aligned-ibr-jp-03')
        rule(percent is None if category == 'O' else percent is not None, 'aligned-ibrp-o-05')
        line_sum += value or 0
        key = (category, percent)
        per_category[key] = per_category.get(key, 0) + (value or 0)

    allowances = charges = 0
    for ac in root.findall('cac:AllowanceCharge', NS):
        charge = text(ac, 'cbc:ChargeIndicator')
        rule(charge in ('true', 'false'), 'ibr-082')
        value = amount(ac, 'cbc:Amount')
        rule(value is not None, 'ibr-031')
        code = text(ac, 'cbc:AllowanceChargeReasonCode')
        rule(code is not None or text(ac, 'cbc:AllowanceChargeReason') is not None, 'ibr-033')
        if charge == 'false' and code is not None:
            rule(code in ALLOWANCE_CODES, 'ibr-cl-19')
        category = text(ac, 'cac:TaxCategory/cbc:ID')
        percent = text(ac, 'cac:TaxCategory/cbc:Percent')
        rule(category is not None and (percent is not None or category == 'O'), 'aligned-ibrp-032-jp')
        key = (category, percent)
        sign = 1 if charge == 'true' else -1
        per_category[key] = per_category.get(key, 0) + sign * (value or 0)
        if charge == 'true':
            charges += value or 0
        else:
            allowances += value or 0

    total = root.find('cac:LegalMonetaryTotal', NS)
    figures = {k: amount(total, 'cbc:' + k) for k in ('LineExtensionAmount', 'TaxExclusiveAmount', 'TaxInclusiveAmount',
                                                     'AllowanceTotalAmount', 'ChargeTotalAmount', 'PrepaidAmount',
                                                     'PayableRoundingAmount', 'PayableAmount')}
    for k, rid in (('LineExtensionAmount', 'ibr-012'), ('TaxExclusiveAmount', 'ibr-013'),
                   ('TaxInclusiveAmount', 'ibr-014'), ('PayableAmount', 'ibr-015')):
        rule(figures[k] is not None, rid)
    rule(figures['LineExtensionAmount'] == line_sum, 'ibr-co-10')
    rule((figures['AllowanceTotalAmount'] or 0) == allowances, 'ibr-co-11')
    rule((figures['ChargeTotalAmount'] or 0) == charges, 'ibr-co-12')
    rule(figures['TaxExclusiveAmount'] == line_sum - allowances + charges, 'ibr-co-13')

    tax_totals = root.findall('cac:TaxTotal', NS)
    rule(len(tax_totals) == 1, 'aligned-ibrp-053-jp')
    tax_total = amount(tax_totals[0], 'cbc:TaxAmount') if tax_totals else None
    subtotals = []
    seen = set()
    for sub in (tax_totals[0].findall('cac:TaxSubtotal', NS) if tax_totals else []):
        taxable = amount(sub, 'cbc:TaxableAmount')
        tax = amount(sub, 'cbc:TaxAmount')
        category = text(sub, 'cac:TaxCategory/cbc:ID')
        percent = text(sub, 'cac:TaxCategory/cbc:Percent')
        rule(taxable is not None, 'aligned-ibrp-045')
        rule(tax is not None, 'aligned-ibrp-046')
        rule(category in JP_CATEGORIES, 'aligned-ibrp-047')
        rule(percent is not None or category == 'O', 'aligned-ibrp-048')
        if category == 'O':
            rule(percent is None and tax == 0, 'aligned-ibrp-o-09')
        elif percent is not None:
            exact = taxable * int(percent) / 100
            rule(math.floor(exact) <= tax <= math.ceil(exact), 'aligned-ibrp-051-jp')
        # One breakdown per category and rate, whose base is what the lines and the
        # document allowances of that category and rate add up to.
        rule((category, percent) not in seen, 'one-rounding-per-rate')
        seen.add((category, percent))
        rule(per_category.get((category, percent)) == taxable, 'breakdown-taxable-amount')
        subtotals.append({'category': category, 'percent': percent, 'taxable': taxable, 'tax': tax})
    rule(set(per_category) == seen, 'breakdown-for-every-category')
    o_count = sum(1 for s in subtotals if s['category'] == 'O')
    rule(o_count == (1 if any(k[0] == 'O' for k in per_category) else 0), 'aligned-ibrp-o-01')
    rule(tax_total == sum(s['tax'] for s in subtotals), 'ibr-co-14')
    rule(figures['TaxInclusiveAmount'] == (figures['TaxExclusiveAmount'] or 0) + (tax_total or 0), 'ibr-co-15')
    rule(figures['PayableAmount'] == (figures['TaxInclusiveAmount'] or 0) - (figures['PrepaidAmount'] or 0)
         + (figures['PayableRoundingAmount'] or 0), 'ibr-co-16')

    for means in root.findall('cac:PaymentMeans', NS):
        rule(text(means, 'cbc:PaymentMeansCode') is not None, 'ibr-049')
        if text(means, 'cbc:PaymentMeansCode') == '30':
            rule(text(means, 'cac:PayeeFinancialAccount/cbc:ID') is not None, 'aligned-ibrp-016')

    figures['TaxAmount'] = tax_total
    report = {'failed': sorted(failed), 'figures': figures, 'subtotals': subtotals, 'lines': len(lines),
              'id': text(root, 'cbc:ID'), 'issueDate': dates[0], 'start': start, 'end': end, 'parties': parties}
    print(json.dumps(report, ensure_ascii=False))


if __name__ == '__main__':
    main(sys.argv[1])
