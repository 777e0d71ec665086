#include "print/print_document.h"

#include "common/number_format.h"
#include "sheet/company_block.h"
#include "sheet/document_kind.h"
#include "sheet/totals_chain.h"

#include <algorithm>

namespace est::print {

namespace {

bool blankRow(const EstimateRow &row)
{
    return std::all_of(row.begin(), row.end(), [](const QString &t) { return t.trimmed().isEmpty(); });
}

QList<EstimateRow> printedRows(const QList<EstimateRow> &rows)
{
    QList<EstimateRow> out;
    out.reserve(rows.size());
    for (const EstimateRow &row : rows)
        if (!blankRow(row))
            out.append(row);
    return out;
}

QString yen(Yen value)
{
    return value == 0 ? QStringLiteral("0") : formatThousands(value);
}

// A figure of the sheet ("#,###", empty = none) as printed: empty shows as "0".
QString figure(const QString &text)
{
    return isBlank(text) ? QStringLiteral("0") : text;
}

// A subtracted amount is printed with its minus; a negative one (a charge typed as a discount)
// is added, so it shows with a plus rather than as "--500".
QString subtracted(const QString &amount)
{
    const QString a = amount.trimmed();
    return a.startsWith(QLatin1Char('-')) ? QLatin1Char('+') + a.mid(1) : QLatin1Char('-') + a;
}

QString percent(const QString &rate)
{
    const QString r = rate.trimmed();
    return r.isEmpty() ? QStringLiteral("0%") : r + QLatin1Char('%');
}

QList<Field> vehicleFields(const EstimateHeader &h)
{
    QString distance = h.distance.trimmed();
    if (!distance.isEmpty() && parseDisplayedNumber(distance))
        distance += QStringLiteral(" km");
    return {
        {QStringLiteral("車　　名"), h.carName},
        {QStringLiteral("登録番号"), h.registration},
        {QStringLiteral("車台番号"), h.chassisNumber},
        {QStringLiteral("型　　式"), h.modelCode},
        {QStringLiteral("車 体 色"), h.colour},
        {QStringLiteral("初度登録"), h.firstRegistration},
        {QStringLiteral("走行距離"), distance},
        {QStringLiteral("類別区分"), h.classCode},
    };
}

QList<AmountLine> totalsLines(const Session &s, const SheetFigures &f, const QString &caption)
{
    QList<AmountLine> lines;
    lines.append({QStringLiteral("作業計（Ａ）"), yen(s.totals.workTotalA)});
    lines.append({QStringLiteral("塗装計（Ｂ）"), yen(s.totals.paintTotalB)});
    lines.append({QStringLiteral("合計金額（Ａ＋Ｂ）"), figure(f.gokei), true});
    if (!isBlank(f.discountAmount)) {
        const QString rate = f.discountRate.trimmed();
        lines.append({rate.isEmpty() || rate == QLatin1String("0")
                          ? QStringLiteral("値引き")
                          : QStringLiteral("値引き（%1%）").arg(rate),
                      subtracted(f.discountAmount)});
        lines.append({QStringLiteral("値引後金額"), figure(f.afterDiscount)});
    }
    lines.append({QStringLiteral("消費税（%1）").arg(percent(f.taxRate)), figure(f.tax)});
    lines.append({QStringLiteral("税込金額"), figure(f.withTax)});
    if (!isBlank(f.nonTaxable))
        lines.append({QStringLiteral("非課税金額"), f.nonTaxable});
    lines.append({QStringLiteral("総合計金額"), figure(f.grandTotal), true});
    if (!isBlank(f.advance))
        lines.append({QStringLiteral("前受金額"), subtracted(f.advance)});
    lines.append({caption, figure(f.amountDue), true});
    return lines;
}

// Qualified invoices state the taxable total and its tax per rate, and the non-taxable
// items apart.
QList<AmountLine> taxBreakdown(const SheetFigures &f)
{
    const TaxSummary t = taxSummary(f).value_or(TaxSummary{});
    QList<AmountLine> lines;
    lines.append({QStringLiteral("%1対象（税抜）").arg(percent(f.taxRate)), yen(t.taxable)});
    lines.append({QStringLiteral("%1対象 消費税").arg(percent(f.taxRate)), yen(t.tax)});
    lines.append({QStringLiteral("非課税（対象外）"), yen(t.nonTaxable)});
    return lines;
}

QList<AmountLine> paintLines(const EditorTotals &t)
{
    return {
        {QStringLiteral("塗装工賃計"), yen(t.paintLabour)},
        {QStringLiteral("塗装材料費"), yen(t.paintMaterial)},
        {QStringLiteral("バンパー塗装"), yen(t.bumperPaint)},
        {QStringLiteral("塗装計（Ｂ）"), yen(t.paintTotalB), true},
    };
}

QStringList nonEmpty(const QStringList &list)
{
    QStringList out;
    for (const QString &t : list)
        if (!t.trimmed().isEmpty())
            out.append(t.trimmed());
    return out;
}

QList<DetailTable> detailTables(const Session &s)
{
    QList<DetailTable> tables;
    const PaintState &p = s.paint;
    DetailTable paint{QStringLiteral("塗装指数"), {QStringLiteral("項目"), QStringLiteral("内容")}, {}};
    paint.rows.append({QStringLiteral("車両区分"), p.vehicleClass});
    paint.rows.append({QStringLiteral("材料係数"), p.materialCoefficient});
    paint.rows.append({QStringLiteral("基礎加算指数"), QString::number(p.baseAdditionIndex)});
    paint.rows.append({QStringLiteral("高機能基本指数"), p.highFunctionBaseIndex});
    paint.rows.append({QStringLiteral("高機能材料指数"), p.highFunctionMaterialIndex});
    const QStringList lines = nonEmpty(p.lines);
    if (!lines.isEmpty())
        paint.rows.append({QStringLiteral("塗装条件"), lines.join(QStringLiteral("　"))});
    paint.rows.append({QStringLiteral("塗装工賃計"), yen(s.totals.paintLabour)});
    paint.rows.append({QStringLiteral("塗装材料費"), yen(s.totals.paintMaterial)});
    tables.append(paint);

    DetailTable bumper{QStringLiteral("バンパー塗装指数"), {QStringLiteral("項目"), QStringLiteral("内容")}, {}};
    bumper.rows.append({QStringLiteral("入力"), s.bumper.entered ? QStringLiteral("あり") : QStringLiteral("なし")});
    bumper.rows.append({QStringLiteral("明細数"), QString::number(s.bumper.lineCount)});
    const QStringList bumperLines = nonEmpty(s.bumper.lines);
    for (int i = 0; i < bumperLines.size(); ++i)
        bumper.rows.append({QStringLiteral("明細 %1").arg(i + 1), bumperLines.at(i)});
    bumper.rows.append({QStringLiteral("バンパー塗装"), yen(s.totals.bumperPaint)});
    tables.append(bumper);

    // Label, choice, index, amount; the two-tone item (the first) has a second choice
    // before its index.
    DetailTable extra{QStringLiteral("付加指数"),
                      {QStringLiteral("項目"), QStringLiteral("内容"), QStringLiteral("指数"), QStringLiteral("金額")},
                      {},
                      2};
    for (size_t i = 0; i < s.additional.items.size(); ++i) {
        const auto &item = s.additional.items[i];
        const bool twoTone = i == 0;
        const QString choice = twoTone ? QStringList{item[1], item[2]}.join(QStringLiteral("　")).trimmed() : item[1];
        const QStringList row{item[0], choice, item[twoTone ? 3 : 2], item[twoTone ? 4 : 3]};
        if (!nonEmpty(row).isEmpty())
            extra.rows.append(row);
    }
    if (extra.rows.isEmpty())
        extra.rows.append({QStringLiteral("（なし）"), QString(), QString(), QString()});
    tables.append(extra);
    return tables;
}

} // namespace

bool isInvoiceKind(int kind)
{
    return kind == 3 || kind == 4 || kind == 6;
}

SheetFigures printedFigures(const Session &saved, bool *overflowed)
{
    SheetFigures f = saved.figures;
    sheet::TotalsChain chain(f, saved.totals);
    chain.setTaxRate(f.taxRate);
    chain.setNonTaxable(saved.nonTaxable.sum != 0 ? formatThousands(saved.nonTaxable.sum) : f.nonTaxable);
    chain.sumsChanged();
    chain.setAdvance(f.advance);
    if (overflowed)
        *overflowed = chain.overflowed();
    return f;
}

std::optional<TaxSummary> taxSummary(const SheetFigures &f)
{
    // An empty figure is no amount: 0, as the paper shows it.
    const auto amount = [](const QString &text) -> std::optional<Yen> {
        return isBlank(text) ? std::optional<Yen>(0) : parseDisplayedYen(text);
    };
    const auto rate = amount(f.taxRate);
    const auto base = amount(isBlank(f.afterDiscount) ? f.gokei : f.afterDiscount);
    const auto tax = amount(f.tax);
    const auto nonTaxable = amount(f.nonTaxable);
    if (!rate || !base || !tax || !nonTaxable)
        return std::nullopt;
    return TaxSummary{*rate, *base, *tax, *nonTaxable};
}

PrintDocument buildPrintDocument(const Session &saved, const QString &honorific, const ShopInfo &shop)
{
    const EstimateHeader &h = saved.header;
    const SheetFigures f = printedFigures(saved);

    PrintDocument doc;
    const QStringList &kinds = sheet::documentKinds();
    const int kind = std::clamp(h.documentKind, 0, int(kinds.size()) - 1);
    doc.title = kinds.at(kind);
    doc.invoice = isInvoiceKind(kind);
    const sheet::DocumentTexts texts = sheet::documentTexts(kind);
    doc.opening = texts.opening;
    doc.closing = texts.closing;
    doc.amountCaption = texts.amountCaption;
    doc.slipNumber = saved.slipNumber;
    doc.revision = revisionCaption(saved.revision);
    doc.photos = saved.photos;
    doc.date = saved.estimateDate;
    doc.customerCompany = h.customerCompany.trimmed();
    doc.customerName = h.customerName.trimmed();
    doc.honorific = honorific;
    doc.vehicle = vehicleFields(h);
    doc.memo = h.memo;
    doc.amountDue = figure(f.amountDue);

    doc.shop = shop;
    doc.printRegistration = !shop.extras.registrationNumber.isEmpty()
                            && (doc.invoice || shop.extras.numberOnEstimates);

    doc.workRows = printedRows(saved.rows);
    doc.paintRows = printedRows(saved.paint.rows);
    doc.totals = totalsLines(saved, f, doc.amountCaption);
    if (doc.invoice)
        doc.taxBreakdown = taxBreakdown(f);
    doc.paintTotals = paintLines(saved.totals);
    for (int i = 0; i < saved.nonTaxable.names.size(); ++i)
        doc.nonTaxableItems.append(
            {saved.nonTaxable.names.at(i),
             i < saved.nonTaxable.amounts.size() ? yen(saved.nonTaxable.amounts.at(i)) : QStringLiteral("0")});
    doc.details = detailTables(saved);
    return doc;
}

} // namespace est::print
