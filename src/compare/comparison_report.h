#pragma once
// The comparison of two saved estimates as the screen and the paper show it: the two
// estimates' headers (slip number, date, customer, the shop) and the changes as tables of
// texts. The printed "修正内容比較表" and frmHikaku show the same tables.

#include "compare/estimate_comparison.h"
#include "print/page_kit.h"
#include "print/print_document.h"
#include "print/print_set.h"
#include "print/shop_info.h"

#include <QList>
#include <QString>
#include <memory>
#include <optional>

namespace est::compare {

inline const QString kComparisonTitle = QStringLiteral("修正内容比較表");

struct ComparisonReport
{
    print::PrintDocument before;   // the earlier estimate as printed (header only is used)
    print::PrintDocument after;    // the later one, with the shop's block
    QString beforeName;            // workbook file names
    QString afterName;
    EstimateComparison comparison;
};

// Reads both workbooks and compares them. On failure, nothing and a sentence for the user.
std::optional<ComparisonReport> loadComparison(const QString &beforePath, const QString &afterPath,
                                               const print::ShopInfo &shop, QString *error);
// The same from estimates already read.
ComparisonReport makeComparison(const Session &before, const QString &beforeName, const Session &after,
                                const QString &afterName, const print::ShopInfo &shop);

// The changed rows (work rows or paint lines): a changed row is two lines, 前 and 後.
print::DetailTable rowTable(const QString &title, const QList<RowChange> &changes);
// Every total: old, new and the difference with its sign.
print::DetailTable totalsTable(const QList<TotalChange> &totals);
// Work rows, paint lines, totals.
QList<print::DetailTable> comparisonTables(const EstimateComparison &comparison);

// "修正前　No. 000000123　令和6年1月5日　240105A.xlsx"
QString sideLine(const QString &caption, const print::PrintDocument &doc, const QString &fileName);

// The pages on A4.
std::unique_ptr<print::Sheet> makeComparisonSheet(const ComparisonReport &report);
// Draws the report; the returned function keeps what it needs.
print::Render comparisonRender(const ComparisonReport &report);
// The PDF at `path` (temporary file, then rename); a sentence for the user, empty on success.
QString writeComparisonPdf(const ComparisonReport &report, const QString &path);

} // namespace est::compare
