#pragma once
// The seven document kinds of the sheet and the three texts that follow each.

#include <QString>
#include <QStringList>

namespace est::sheet {

struct DocumentTexts
{
    QString opening;       // lblBun1
    QString closing;       // lblBun2
    QString amountCaption; // lblKBun
};

// "概算見積書", "お見積書", "見積書", "ご請求書", "請求書", "納品書", "納品/請求書" in list order.
const QStringList &documentKinds();

// Texts for a list index; an index outside the list gives the estimate texts.
DocumentTexts documentTexts(int kind);

} // namespace est::sheet
