#include "einvoice/invoice_lines.h"

#include "common/number_format.h"

#include <numeric>

namespace est::einvoice {

namespace {

const QString kPiece = QStringLiteral("H87");
const QString kLumpSum = QStringLiteral("LS");

QString joined(const QStringList &parts)
{
    QStringList out;
    for (const QString &p : parts)
        if (!p.trimmed().isEmpty())
            out.append(p.trimmed());
    return out.join(QLatin1Char(' '));
}

// A line of `amount` at quantity × price; the price is never negative, so a negative amount
// turns the quantity round.
Line line(QString name, Yen amount, qint64 quantity, qint64 price, const QString &unit)
{
    Line l;
    l.name = std::move(name);
    l.amount = amount;
    l.quantity = price < 0 ? -quantity : quantity;
    l.price = price < 0 ? -price : price;
    l.unitCode = unit;
    return l;
}

Line lumpSum(QString name, Yen amount)
{
    return line(std::move(name), amount, 1, amount, kLumpSum);
}

class Reader
{
public:
    // The amount of a cell: blank is none (0); text that is not an amount is refused.
    bool amount(const QString &text, const QString &what, int rowNumber, Yen &out)
    {
        out = 0;
        if (isBlank(text))
            return true;
        if (const auto v = parseDisplayedYen(text)) {
            out = *v;
            return true;
        }
        refusal = QStringLiteral("%1 %2行目の「%3」を金額として読めないため、電子インボイスを作成できません。")
                      .arg(what)
                      .arg(rowNumber)
                      .arg(text.trimmed());
        return false;
    }
    QString refusal;
};

// Parts: quantity × unit price when they give the amount, else the amount as one piece.
Line partsLine(const EstimateRow &row, const QString &name, Yen amount)
{
    bool quantityOk = false;
    const qint64 quantity = asciiNumberText(row[ColQuantity]).toLongLong(&quantityOk);
    const auto price = parseDisplayedYen(row[ColUnitPrice]);
    Line l = quantityOk && quantity > 0 && quantity <= 1000000 && price && qint64(*price) * quantity == amount
                 ? line(name, amount, quantity, *price, kPiece)
                 : line(name, amount, 1, amount, kPiece);
    l.sellersItemId = row[ColPartNumber].trimmed();
    return l;
}

qint64 sum(const QList<Line> &lines)
{
    return std::accumulate(lines.begin(), lines.end(), qint64(0), [](qint64 s, const Line &l) { return s + l.amount; });
}

QString mismatch(const QString &what, qint64 lines, Yen printed)
{
    return QStringLiteral("%1の明細の合計（%2円）が印刷される%1（%3円）と一致しないため、電子インボイスを作成できません。\n"
                          "見積書を開いて明細を確かめ、保存し直してください。")
        .arg(what, formatThousands(lines), formatThousands(printed));
}

} // namespace

LinesResult invoiceLines(const Session &s)
{
    LinesResult r;
    Reader read;
    const auto refuse = [&r, &read] {
        r.refusal = read.refusal;
        return r;
    };

    for (int i = 0; i < s.rows.size(); ++i) {
        const EstimateRow &row = s.rows.at(i);
        Yen labour = 0, parts = 0;
        if (!read.amount(row[ColLabour], QStringLiteral("作業明細"), i + 1, labour)
            || !read.amount(row[ColPartsAmount], QStringLiteral("作業明細"), i + 1, parts))
            return refuse();
        QString base = joined({row[ColSection], row[ColPart], row[ColWork]});
        if (base.isEmpty())
            base = QStringLiteral("作業 %1行目").arg(i + 1);
        if (labour != 0) {
            Line l = lumpSum(base + QStringLiteral("（工賃）"), labour);
            if (!isBlank(row[ColIndex]))
                l.description = QStringLiteral("指数 ") + row[ColIndex].trimmed();
            r.work.append(l);
        }
        if (parts != 0) {
            const QString name = joined({row[ColSection], row[ColPart]});
            r.work.append(partsLine(row, (name.isEmpty() ? base : name) + QStringLiteral("（部品）"), parts));
        }
    }
    if (sum(r.work) != s.totals.workTotalA) {
        r.refusal = mismatch(QStringLiteral("作業計（Ａ）"), sum(r.work), s.totals.workTotalA);
        return r;
    }

    qint64 paintRows = 0;
    for (int i = 0; i < s.paint.rows.size(); ++i) {
        const EstimateRow &row = s.paint.rows.at(i);
        Yen labour = 0;
        if (!read.amount(row[ColLabour], QStringLiteral("塗装明細"), i + 1, labour))
            return refuse();
        if (labour == 0)
            continue;
        QString name = joined({row[ColSection], row[ColPart], row[ColPartNumber], row[ColWork]});
        Line l = lumpSum((name.isEmpty() ? QStringLiteral("塗装 %1行目").arg(i + 1) : name) + QStringLiteral("（塗装工賃）"),
                         labour);
        if (!isBlank(row[ColIndex]))
            l.description = QStringLiteral("指数 ") + row[ColIndex].trimmed();
        r.paint.append(l);
        paintRows += labour;
    }
    // The paint labour holds the additional-index jobs beside the rows; material and the
    // bumper are sums of their own.
    const qint64 additional = qint64(s.totals.paintLabour) - paintRows;
    if (additional != 0)
        r.paint.append(lumpSum(QStringLiteral("付加作業（塗装工賃）"), Yen(additional)));
    if (s.totals.paintMaterial != 0)
        r.paint.append(lumpSum(QStringLiteral("塗装材料費"), s.totals.paintMaterial));
    if (s.totals.bumperPaint != 0)
        r.paint.append(lumpSum(QStringLiteral("バンパー塗装"), s.totals.bumperPaint));
    if (sum(r.paint) != s.totals.paintTotalB) {
        r.refusal = mismatch(QStringLiteral("塗装計（Ｂ）"), sum(r.paint), s.totals.paintTotalB);
        return r;
    }

    const NonTaxableItems &items = s.nonTaxable;
    for (int i = 0; i < items.names.size(); ++i) {
        const Yen amount = i < items.amounts.size() ? items.amounts.at(i) : 0;
        if (amount == 0)
            continue;
        const QString name = items.names.at(i).trimmed();
        Line l = lumpSum(name.isEmpty() ? QStringLiteral("非課税項目 %1").arg(i + 1) : name, amount);
        l.category = TaxCategory::OutOfScope;
        r.nonTaxable.append(l);
    }
    if (sum(r.nonTaxable) != items.sum)
        r.refusal = mismatch(QStringLiteral("非課税金額"), sum(r.nonTaxable), items.sum);
    return r;
}

} // namespace est::einvoice
