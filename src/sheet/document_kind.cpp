#include "sheet/document_kind.h"

namespace est::sheet {

const QStringList &documentKinds()
{
    static const QStringList kinds = {
        QStringLiteral("概算見積書"), QStringLiteral("お見積書"), QStringLiteral("見積書"),
        QStringLiteral("ご請求書"),   QStringLiteral("請求書"),   QStringLiteral("納品書"),
        QStringLiteral("納品/請求書"),
    };
    return kinds;
}

DocumentTexts documentTexts(int kind)
{
    const QString closing = QStringLiteral("ご査収のほどよろしくお願いいたします。");
    switch (kind) {
    case 3:
    case 4:
    case 6:
        return {QStringLiteral("下記の通り御請求いたします。"), closing, QStringLiteral("御請求金額")};
    case 5:
        return {QStringLiteral("下記の通り納品いたします。"), closing, QStringLiteral("合計金額")};
    default:
        return {QStringLiteral("下記の通りお見積もりいたします。"), closing, QStringLiteral("御見積金額")};
    }
}

} // namespace est::sheet
