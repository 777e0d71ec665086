#include "customers/electronic_address.h"

#include "db/app_folder.h"
#include "db/database.h"
#include "db/dialect.h"

#include <QFileInfo>
#include <QSqlError>
#include <QSqlQuery>
#include <QVariant>

namespace est::customers {

ElectronicAddressStore::ElectronicAddressStore(QSqlDatabase database) : m_db(std::move(database)) {}

ElectronicAddress ElectronicAddressStore::read(const QString &kno) const
{
    ElectronicAddress a;
    QSqlQuery q(m_db);
    q.prepare(QStringLiteral("SELECT \"PeppolID\", \"HoujinNo\" FROM \"Kokyaku_Peppol\" WHERE \"KNo\" = ?"));
    q.addBindValue(kno);
    if (q.exec() && q.next()) {
        a.peppolId = q.value(0).toString();
        a.corporateNumber = q.value(1).toString();
    }
    return a;
}

bool ElectronicAddressStore::run(QSqlQuery &query)
{
    if (query.exec())
        return true;
    m_error = query.lastError().text();
    return false;
}

bool ElectronicAddressStore::write(const QString &kno, const ElectronicAddress &address)
{
    if (address.isEmpty())
        return remove(kno);
    QSqlQuery q(m_db);
    q.prepare(db::upsertStatement(QStringLiteral("Kokyaku_Peppol"),
                                  {QStringLiteral("KNo"), QStringLiteral("PeppolID"), QStringLiteral("HoujinNo")},
                                  {QStringLiteral("KNo")}));
    q.addBindValue(kno);
    q.addBindValue(db::nonNullText(address.peppolId));
    q.addBindValue(db::nonNullText(address.corporateNumber));
    return run(q);
}

bool ElectronicAddressStore::remove(const QString &kno)
{
    QSqlQuery q(m_db);
    q.prepare(QStringLiteral("DELETE FROM \"Kokyaku_Peppol\" WHERE \"KNo\" = ?"));
    q.addBindValue(kno);
    return run(q);
}

ElectronicAddress readElectronicAddress(const QString &appFolder, const QString &kno)
{
    if (kno.trimmed().isEmpty())
        return {};
    const db::OpenResult opened = db::openIfPresent(appFolder, QStringLiteral("temp\\KokyakuDB.mdb"));
    return opened.ok() ? ElectronicAddressStore(opened.database).read(kno.trimmed()) : ElectronicAddress{};
}

} // namespace est::customers
