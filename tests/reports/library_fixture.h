#pragma once
// An application folder with saved estimate workbooks, for the library and report tests.

#include "common/session.h"
#include "temp_app_folder.h"

#include <QDate>
#include <QString>

namespace est::test {

// An estimate of one document kind dated `day`, with the given totals and a 10 % tax rate.
struct EstimateSpec
{
    int kind = 2;
    QDate day{2024, 1, 5};
    QString customer = QStringLiteral("山田太郎");
    QString company;
    QString car = QStringLiteral("プリウス");
    QString registration = QStringLiteral("品川 500 あ 12-34");
    QString slip = QStringLiteral("240105001");
    Yen totalA = 0;
    Yen totalB = 0;
    QString discountRate;     // whole per cent, or empty
    QString discountAmount;   // typed amount, or empty
    Yen nonTaxable = 0;
    QString advance;
    QString taxRate = QStringLiteral("10");
};

Session estimateOf(const EstimateSpec &tableSpec);

// Writes Mitsumori/<fileName> of the folder from the default template.
void saveWorkbook(const TempAppFolder &folder, const QString &fileName, const Session &session);
QString mitsumori(const TempAppFolder &folder);

} // namespace est::test
