#include "compare/comparison_report.h"

#include "common/number_format.h"
#include "print/saved_estimate.h"

#include <QFileInfo>

namespace est::compare {

namespace {

QString yenText(Yen value)
{
    return value == 0 ? QStringLiteral("0") : formatThousands(value);
}

QString signedYen(Yen value)
{
    if (value > 0)
        return QLatin1Char('+') + formatThousands(value);
    return yenText(value);
}

QStringList figureCells(const RowFigures &f)
{
    return {f.index, f.labour, f.unitPrice, f.quantity, f.amount};
}

} // namespace

ComparisonReport makeComparison(const Session &before, const QString &beforeName, const Session &after,
                                const QString &afterName, const print::ShopInfo &shop)
{
    ComparisonReport report;
    report.before = print::buildPrintDocument(before, QString(), shop);
    report.after = print::buildPrintDocument(after, QString(), shop);
    report.beforeName = beforeName;
    report.afterName = afterName;
    report.comparison = compareEstimates(before, after);
    return report;
}

std::optional<ComparisonReport> loadComparison(const QString &beforePath, const QString &afterPath,
                                               const print::ShopInfo &shop, QString *error)
{
    const auto before = print::loadSavedEstimate(beforePath, error);
    if (!before)
        return std::nullopt;
    const auto after = print::loadSavedEstimate(afterPath, error);
    if (!after)
        return std::nullopt;
    ComparisonReport report = makeComparison(before->session, QFileInfo(beforePath).fileName(), after->session,
                                             QFileInfo(afterPath).fileName(), shop);
    report.before.honorific = before->honorific;
    report.after.honorific = after->honorific;
    if (report.comparison.overflowed) {
        if (error)
            *error = QStringLiteral("合計が大きすぎるため比較できません。");
        return std::nullopt;
    }
    return report;
}

print::DetailTable rowTable(const QString &title, const QList<RowChange> &changes)
{
    print::DetailTable table{title,
                             {QStringLiteral("区分"), QStringLiteral("部位"), QStringLiteral("作業部位"),
                              QStringLiteral("部品番号"), QStringLiteral("作業"), QString(), QStringLiteral("指数"),
                              QStringLiteral("工賃"), QStringLiteral("部品単価"), QStringLiteral("個数"),
                              QStringLiteral("部品計")},
                             {},
                             6};
    for (const RowChange &c : changes) {
        const QStringList name{changeKindText(c.kind), c.section, c.part, c.partNumber, c.work};
        if (c.kind != ChangeKind::Added)
            table.rows.append(name + QStringList{QStringLiteral("前")} + figureCells(c.before));
        if (c.kind != ChangeKind::Removed)
            table.rows.append((c.kind == ChangeKind::Changed ? QStringList(5) : name) + QStringList{QStringLiteral("後")}
                              + figureCells(c.after));
    }
    return table;
}

print::DetailTable totalsTable(const QList<TotalChange> &totals)
{
    print::DetailTable table{QStringLiteral("合計の比較"),
                             {QStringLiteral("項目"), QStringLiteral("修正前"), QStringLiteral("修正後"),
                              QStringLiteral("差額")},
                             {},
                             1};
    for (const TotalChange &t : totals)
        table.rows.append({t.caption, yenText(t.before), yenText(t.after), signedYen(t.difference)});
    return table;
}

QList<print::DetailTable> comparisonTables(const EstimateComparison &comparison)
{
    return {rowTable(QStringLiteral("作業明細の変更"), comparison.workRows),
            rowTable(QStringLiteral("塗装明細の変更"), comparison.paintRows), totalsTable(comparison.totals)};
}

QString sideLine(const QString &caption, const print::PrintDocument &doc, const QString &fileName)
{
    return QStringList{caption, QStringLiteral("No. ") + doc.slipNumber, doc.date, fileName}.join(QStringLiteral("　"));
}

} // namespace est::compare
