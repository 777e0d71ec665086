#pragma once
// The shop's own block as printed: the fourteen company items of the application folder
// and what is kept beside them (invoice registration number, representative).

#include "sheet/company_extras.h"

#include <QString>
#include <QStringList>

namespace est::print {

struct ShopInfo
{
    QStringList block = QStringList(14);   // company block, as temp/kdata.txt holds it
    sheet::CompanyExtras extras;
    bool printAccount() const;             // the block's print-account flag
    QString item(int index) const;
};

// Reads the company file of the application folder and the extras of its record. A missing file gives an empty block; a missing database gives no number.
ShopInfo readShopInfo(const QString &appFolder);

} // namespace est::print
