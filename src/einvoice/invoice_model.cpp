#include "einvoice/invoice_model.h"

#include "common/number_format.h"
#include "common/peppol_id.h"
#include "einvoice/invoice_lines.h"
#include "print/print_document.h"
#include "reports/estimate_summary.h"
#include "sheet/company_block.h"
#include "sheet/company_extras.h"
#include "sheet/era_date.h"

#include <QRegularExpression>

namespace est::einvoice {

namespace {

// Positions in the customer hand-over array.
enum CustomerIndex { KNo = 0, Jyusyo1 = 3, Jyusyo2 = 4, KaisyaJ1 = 9, KaisyaJ2 = 10, KaisyaPost = 16, Post = 17 };

QString at(const QStringList &list, int i)
{
    return i >= 0 && i < list.size() ? list.at(i).trimmed() : QString();
}

QString postCode(const QString &text)
{
    QString digits;
    for (QChar c : text.normalized(QString::NormalizationForm_KC))
        if (c.isDigit())
            digits += c;
    return digits.size() == 7 ? digits : text.trimmed();
}

// The shop's one-line address, which may start with its postcode ("〒000-0000 若葉県...").
Address shopAddress(const QString &line)
{
    static const QRegularExpression leadingPostcode(
        QStringLiteral("^\\s*〒?\\s*([0-9０-９]{3}[-－ー‐]?[0-9０-９]{4})\\s*(.*)$"));
    Address a;
    const auto m = leadingPostcode.match(line);
    if (m.hasMatch()) {
        a.postCode = postCode(m.captured(1));
        a.street = m.captured(2).trimmed();
    } else {
        a.street = line.trimmed();
    }
    return a;
}

QString refusedBecause(const QString &why)
{
    return why + QStringLiteral("ため、電子インボイスを作成できません。");
}

struct SellerResult
{
    Party party;
    QString refusal;
};

SellerResult seller(const print::ShopInfo &shop)
{
    SellerResult r;
    Party &p = r.party;
    p.name = shop.item(sheet::CompanyName).trimmed();
    p.address = shopAddress(shop.item(sheet::CompanyAddress));
    p.telephone = shop.item(sheet::CompanyTel).trimmed();
    p.taxId = shop.extras.registrationNumber.trimmed();
    if (p.name.isEmpty()) {
        r.refusal = refusedBecause(QStringLiteral("自社情報に会社名がない")) + QStringLiteral("\n会社情報変更で会社名を入力してください。");
    } else if (!sheet::isRegistrationNumber(p.taxId)) {
        r.refusal = refusedBecause(QStringLiteral("自社情報に登録番号（T＋13桁の数字）がない"))
                    + QStringLiteral("\n会社情報変更で適格請求書発行事業者の登録番号を入力してください。");
    } else if (!shop.extras.peppolId.trimmed().isEmpty()) {
        const auto id = parsePeppolId(normalizePeppolId(shop.extras.peppolId));
        if (!id)
            r.refusal = refusedBecause(QStringLiteral("自社情報のPeppol ID「%1」が正しくない").arg(shop.extras.peppolId))
                        + QStringLiteral("\n会社情報変更でPeppol IDを直すか、空にしてください。");
        else
            p.endpointScheme = id->scheme, p.endpointId = id->value;
    } else {
        // Without a Peppol ID the shop is reached under its registration number.
        p.endpointScheme = kRegistrationNumberScheme;
        p.endpointId = p.taxId;
    }
    return r;
}

Party buyer(const Session &s, const customers::ElectronicAddress &ids, QStringList &notices)
{
    Party p;
    const QString company = s.header.customerCompany.trimmed();
    p.name = company.isEmpty() ? s.header.customerName.trimmed() : company;
    const QStringList &c = s.customer;
    const bool companyAddress = !company.isEmpty() && !at(c, KaisyaJ1).isEmpty();
    p.address.postCode = postCode(at(c, companyAddress ? KaisyaPost : Post));
    p.address.street = at(c, companyAddress ? KaisyaJ1 : Jyusyo1);
    p.address.additional = at(c, companyAddress ? KaisyaJ2 : Jyusyo2);
    if (const auto id = parsePeppolId(normalizePeppolId(ids.peppolId))) {
        p.endpointScheme = id->scheme;
        p.endpointId = id->value;
    } else {
        notices.append(QStringLiteral("顧客「%1」にPeppol IDが登録されていないため、宛先（電子アドレス）のない"
                                      "電子インボイスになりました。\nPeppolネットワークで送るには、顧客情報にPeppol IDを"
                                      "登録してから保存し直してください。")
                           .arg(p.name));
    }
    const QString corporate = normalizeCorporateNumber(ids.corporateNumber);
    if (isCorporateNumber(corporate))
        p.legalId = corporate;
    return p;
}

QString vehicleNote(const EstimateHeader &h)
{
    QStringList parts;
    const auto add = [&parts](const QString &caption, const QString &value) {
        if (!value.trimmed().isEmpty())
            parts.append(caption + QStringLiteral("：") + value.trimmed());
    };
    add(QStringLiteral("車名"), h.carName);
    add(QStringLiteral("登録番号"), h.registration);
    add(QStringLiteral("車台番号"), h.chassisNumber);
    return parts.join(QStringLiteral("　"));
}

std::optional<Yen> figure(const QString &text)
{
    return isBlank(text) ? std::optional<Yen>(0) : parseDisplayedYen(text);
}

std::optional<Yen> checkedSum(std::initializer_list<qint64> values)
{
    qint64 total = 0;
    for (qint64 v : values)
        total += v;
    return toYen(total);
}

} // namespace

QString categoryCode(TaxCategory category)
{
    return category == TaxCategory::Standard ? QStringLiteral("S") : QStringLiteral("O");
}

BuildResult buildInvoice(const Session &s, const QString &fileName, const print::ShopInfo &shop,
                         const customers::ElectronicAddress &buyerIds)
{
    BuildResult r;
    const auto refuse = [&r](const QString &why) {
        r.refusal = why;
        r.notices.clear();
        return r;
    };
    const int kind = s.header.documentKind;
    if (!print::isInvoiceKind(kind))
        return refuse(QStringLiteral("この帳票は請求書ではないため、電子インボイスを作成できません。\n"
                                     "帳票の種類を「ご請求書」「請求書」「納品/請求書」のいずれかにして保存してください。"));
    Invoice inv;
    inv.id = s.slipNumber.trimmed();
    if (inv.id.isEmpty())
        return refuse(refusedBecause(QStringLiteral("伝票番号がない")));
    inv.issueDate = reports::documentDay(s.estimateDate, s.slipNumber, fileName);
    if (!inv.issueDate.isValid())
        return refuse(refusedBecause(QStringLiteral("伝票日付「%1」を日付として読めない").arg(s.estimateDate)));
    // The period of the repair: from the day the estimate was started (its file name) to the
    // invoice's date.
    const auto started = sheet::parseDayKey(fileName.left(6));
    inv.periodStart = started && *started <= inv.issueDate ? *started : inv.issueDate;
    inv.periodEnd = inv.issueDate;
    inv.note = vehicleNote(s.header);

    SellerResult shopParty = seller(shop);
    if (!shopParty.refusal.isEmpty())
        return refuse(shopParty.refusal);
    inv.seller = shopParty.party;
    const QString accountNo = shop.item(sheet::CompanyAccountNo).trimmed();
    if (shop.printAccount() && !accountNo.isEmpty())
        inv.account = BankAccount{accountNo, shop.item(sheet::CompanyAccountHolder).trimmed()};
    inv.buyer = buyer(s, buyerIds, r.notices);
    if (inv.buyer.name.isEmpty())
        return refuse(refusedBecause(QStringLiteral("顧客名（会社名または氏名）がない")));

    // The printed invoice's figures, computed once by the code that prints them.
    bool overflowed = false;
    const SheetFigures f = print::printedFigures(s, &overflowed);
    const auto tax = print::taxSummary(f);
    const auto discount = figure(f.discountAmount);
    const auto grandTotal = figure(f.grandTotal);
    const auto amountDue = figure(f.amountDue);
    const Yen advance = figure(f.advance).value_or(0);   // the sheet counts a non-number as none
    if (overflowed || !tax || !discount || !grandTotal || !amountDue)
        return refuse(refusedBecause(QStringLiteral("合計金額が大きすぎるか読めない")));
    if (tax->ratePercent <= 0 || tax->ratePercent >= 100)
        return refuse(refusedBecause(QStringLiteral("消費税率（%1%）が正しくない").arg(f.taxRate.trimmed()))
                      + QStringLiteral("\n会社情報変更で消費税率を確かめてください。"));
    inv.ratePercent = tax->ratePercent;

    const LinesResult lines = invoiceLines(s);
    if (!lines.refusal.isEmpty())
        return refuse(lines.refusal);
    inv.lines = lines.work + lines.paint + lines.nonTaxable;
    if (inv.lines.isEmpty())
        return refuse(refusedBecause(QStringLiteral("金額のある明細がない")));

    const auto taxableLines = checkedSum({s.totals.workTotalA, s.totals.paintTotalB});
    const auto lineTotal = checkedSum({s.totals.workTotalA, s.totals.paintTotalB, tax->nonTaxable});
    const auto taxExclusive = checkedSum({tax->taxable, tax->nonTaxable});
    const auto taxInclusive = checkedSum({tax->taxable, tax->tax, tax->nonTaxable});
    const auto payable = checkedSum({taxInclusive.value_or(0), -qint64(advance)});
    // Each figure of the file is the printed one; should they not add up as the format
    // demands, no file is better than a file that disagrees with the paper.
    if (!taxableLines || !lineTotal || !taxExclusive || !taxInclusive || !payable
        || qint64(*taxableLines) - *discount != tax->taxable || *taxInclusive != *grandTotal || *payable != *amountDue
        || s.nonTaxable.sum != tax->nonTaxable)
        return refuse(refusedBecause(QStringLiteral("明細と合計金額が合わない"))
                      + QStringLiteral("\n見積書を開いて保存し直してから、もう一度お試しください。"));

    if (*discount != 0) {
        DocumentAllowance a;
        a.charge = *discount < 0;
        a.reasonCode = a.charge ? QString() : QStringLiteral("95");
        a.reason = a.charge ? QStringLiteral("値引きの調整") : QStringLiteral("値引き");
        a.amount = a.charge ? -qint64(*discount) : qint64(*discount);
        inv.allowance = a;
        (a.charge ? inv.chargeTotal : inv.allowanceTotal) = a.amount;
    }
    inv.subtotals.append({TaxCategory::Standard, tax->ratePercent, tax->taxable, tax->tax});
    if (!lines.nonTaxable.isEmpty())
        inv.subtotals.append({TaxCategory::OutOfScope, 0, tax->nonTaxable, 0});
    inv.taxTotal = tax->tax;
    inv.lineTotal = *lineTotal;
    inv.taxExclusive = *taxExclusive;
    inv.taxInclusive = *taxInclusive;
    inv.prepaid = advance;
    inv.payable = *payable;
    r.invoice = inv;
    return r;
}

} // namespace est::einvoice
