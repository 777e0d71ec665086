#include "reports/library_columns.h"

#include "common/number_format.h"
#include "sheet/document_kind.h"
#include "workbook/revisions.h"

#include <QHash>

namespace est::reports {

QStringList libraryHeaders()
{
    return {QStringLiteral("日付"),   QStringLiteral("伝票番号"), QStringLiteral("書類"),
            QStringLiteral("お客様"), QStringLiteral("車名"),     QStringLiteral("登録番号"),
            QStringLiteral("合計"),   QStringLiteral("ファイル")};
}

QString shownDay(const QDate &day)
{
    return day.isValid() ? day.toString(QStringLiteral("yyyy/MM/dd")) : QString();
}

QList<EstimateSummary> newestRevisions(const QList<EstimateSummary> &found)
{
    QList<EstimateSummary> kept;
    QHash<QString, qsizetype> place;   // base name -> index in kept
    QHash<QString, int> revision;
    for (const EstimateSummary &s : found) {
        const workbook::RevisionName name = workbook::parseRevisionName(s.fileName);
        const auto at = place.constFind(name.base);
        if (at == place.constEnd()) {
            place.insert(name.base, kept.size());
            revision.insert(name.base, name.revision);
            kept.append(s);
        } else if (name.revision > revision.value(name.base)) {
            revision[name.base] = name.revision;
            kept[*at] = s;
        }
    }
    return kept;
}

QString customerText(const EstimateSummary &s)
{
    return s.company.trimmed().isEmpty() ? s.customer : s.company + QStringLiteral("　") + s.customer;
}

QStringList libraryRowTexts(const EstimateSummary &s)
{
    QStringList row(LibraryColumnCount);
    row[LibDay] = shownDay(s.day);
    row[LibFile] = s.fileName;
    if (!s.readable) {
        row[LibKind] = QStringLiteral("読み取れません");
        row[LibCustomer] = s.error;
        return row;
    }
    const QStringList &kinds = sheet::documentKinds();
    row[LibSlip] = s.slipNumber;
    row[LibKind] = s.documentKind >= 0 && s.documentKind < kinds.size() ? kinds.at(s.documentKind) : QString();
    row[LibCustomer] = customerText(s);
    row[LibCar] = s.car;
    row[LibRegistration] = s.registration;
    row[LibTotal] = formatThousands(s.grandTotal);
    return row;
}

} // namespace est::reports
