#include "reports/library_columns.h"

#include "common/number_format.h"
#include "sheet/document_kind.h"

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
