#include "print/shop_info.h"

#include "db/app_folder.h"
#include "db/database.h"
#include "sheet/company_block.h"

#include <QFileInfo>

namespace est::print {

QString ShopInfo::item(int index) const
{
    return index >= 0 && index < block.size() ? block.at(index) : QString();
}

bool ShopInfo::printAccount() const
{
    const QString flag = item(sheet::CompanyPrintAccount).trimmed();
    return flag == QLatin1String("1") || flag.compare(QLatin1String("True"), Qt::CaseInsensitive) == 0
        || flag == QLatin1String("-1");
}

ShopInfo readShopInfo(const QString &appFolder)
{
    ShopInfo shop;
    const sheet::CompanyFileRead file = sheet::readCompanyBlock(sheet::companyFilePath(appFolder));
    if (file.exists && file.error.isEmpty())
        shop.block = file.block;
    // Only an existing company database is read: printing never creates one.
    bool recordOk = false;
    const int jNo = shop.item(sheet::CompanyRecordNo).toInt(&recordOk);
    if (recordOk) {
        db::OpenResult opened = db::openIfPresent(appFolder, QStringLiteral("temp\\Jisya_Jyouhou.mdb"));
        if (opened.ok())
            shop.extras = sheet::CompanyExtrasStore(opened.database).read(jNo);
    }
    return shop;
}

} // namespace est::print
