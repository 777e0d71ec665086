#include "compare/estimate_comparison.h"

#include "common/number_format.h"
#include "print/print_document.h"

#include <QHash>
#include <algorithm>
#include <optional>

namespace est::compare {

namespace {

QString indexText(const QString &text)
{
    const auto value = parseDisplayedNumber(text);
    return value ? formatFixed2(*value) : text.trimmed();
}

QString amountText(const QString &text)
{
    const auto value = parseDisplayedYen(text);
    return value ? formatThousands(*value) : text.trimmed();
}

QString quantityText(const QString &text)
{
    const auto value = parseDisplayedNumber(text);
    return value ? QString::number(*value, 'g', 15) : text.trimmed();
}

bool blankRow(const EstimateRow &row)
{
    return std::all_of(row.begin(), row.end(), [](const QString &t) { return t.trimmed().isEmpty(); });
}

QString rowKey(const EstimateRow &row)
{
    return QStringList{row[ColSection].trimmed(), row[ColPart].trimmed(), row[ColPartNumber].trimmed(),
                       row[ColWork].trimmed()}
        .join(QChar(0x1f));
}

RowChange change(ChangeKind kind, const EstimateRow &row)
{
    RowChange c;
    c.kind = kind;
    c.section = row[ColSection].trimmed();
    c.part = row[ColPart].trimmed();
    c.partNumber = row[ColPartNumber].trimmed();
    c.work = row[ColWork].trimmed();
    return c;
}

// A figure of the sheet as whole yen: an empty text is no amount, 0.
std::optional<Yen> figureYen(const QString &text)
{
    return isBlank(text) ? std::optional<Yen>(0) : parseDisplayedYen(text);
}

} // namespace

bool EstimateComparison::anyTotalChanged() const
{
    return std::any_of(totals.begin(), totals.end(), [](const TotalChange &t) { return t.before != t.after; });
}

RowFigures rowFigures(const EstimateRow &row)
{
    return RowFigures{indexText(row[ColIndex]), amountText(row[ColLabour]), amountText(row[ColUnitPrice]),
                      quantityText(row[ColQuantity]), amountText(row[ColPartsAmount])};
}

QList<RowChange> compareRows(const QList<EstimateRow> &before, const QList<EstimateRow> &after, int *unchanged)
{
    // The earlier rows of each key, in order; a later row takes the first one not yet taken.
    QHash<QString, QList<qsizetype>> earlier;
    for (qsizetype i = 0; i < before.size(); ++i)
        if (!blankRow(before.at(i)))
            earlier[rowKey(before.at(i))].append(i);
    QList<bool> matched(before.size(), false);

    QList<RowChange> changes;
    int same = 0;
    for (const EstimateRow &row : after) {
        if (blankRow(row))
            continue;
        QList<qsizetype> &candidates = earlier[rowKey(row)];
        if (candidates.isEmpty()) {
            RowChange c = change(ChangeKind::Added, row);
            c.after = rowFigures(row);
            changes.append(c);
            continue;
        }
        const qsizetype old = candidates.takeFirst();
        matched[old] = true;
        RowChange c = change(ChangeKind::Changed, row);
        c.before = rowFigures(before.at(old));
        c.after = rowFigures(row);
        if (c.before == c.after)
            ++same;
        else
            changes.append(c);
    }
    for (qsizetype i = 0; i < before.size(); ++i) {
        if (matched.at(i) || blankRow(before.at(i)))
            continue;
        RowChange c = change(ChangeKind::Removed, before.at(i));
        c.before = rowFigures(before.at(i));
        changes.append(c);
    }
    if (unchanged)
        *unchanged = same;
    return changes;
}

QList<TotalChange> compareTotals(const Session &before, const Session &after, bool *overflowed)
{
    bool over = false;
    bool chainOver = false;
    const SheetFigures fb = print::printedFigures(before, &chainOver);
    over = over || chainOver;
    const SheetFigures fa = print::printedFigures(after, &chainOver);
    over = over || chainOver;

    const auto total = [&over](const QString &caption, std::optional<Yen> b, std::optional<Yen> a) {
        const auto diff = (a && b) ? subtractYen(*a, *b) : std::nullopt;
        if (!a || !b || !diff)
            over = true;
        return TotalChange{caption, b.value_or(0), a.value_or(0), diff.value_or(0)};
    };
    QList<TotalChange> totals;
    totals.append(total(QStringLiteral("作業計（Ａ）"), before.totals.workTotalA, after.totals.workTotalA));
    totals.append(total(QStringLiteral("塗装計（Ｂ）"), before.totals.paintTotalB, after.totals.paintTotalB));
    totals.append(total(QStringLiteral("値引き金額"), figureYen(fb.discountAmount), figureYen(fa.discountAmount)));
    totals.append(total(QStringLiteral("消費税"), figureYen(fb.tax), figureYen(fa.tax)));
    totals.append(total(QStringLiteral("非課税金額"), figureYen(fb.nonTaxable), figureYen(fa.nonTaxable)));
    totals.append(total(QStringLiteral("前受金額"), figureYen(fb.advance), figureYen(fa.advance)));
    totals.append(total(QStringLiteral("請求金額"), figureYen(fb.amountDue), figureYen(fa.amountDue)));
    if (overflowed)
        *overflowed = over;
    return totals;
}

EstimateComparison compareEstimates(const Session &before, const Session &after)
{
    EstimateComparison c;
    c.workRows = compareRows(before.rows, after.rows, &c.unchangedWorkRows);
    c.paintRows = compareRows(before.paint.rows, after.paint.rows, &c.unchangedPaintRows);
    c.totals = compareTotals(before, after, &c.overflowed);
    return c;
}

QString changeKindText(ChangeKind kind)
{
    switch (kind) {
    case ChangeKind::Added:
        return QStringLiteral("追加");
    case ChangeKind::Removed:
        return QStringLiteral("削除");
    case ChangeKind::Changed:
        break;
    }
    return QStringLiteral("変更");
}

} // namespace est::compare
