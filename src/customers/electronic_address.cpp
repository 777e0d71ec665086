#include "customers/electronic_address.h"

#include "db/app_folder.h"
#include "db/database.h"

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
    q.prepare(QStringLiteral("INSERT OR REPLACE INTO \"Kokyaku_Peppol\" (\"KNo\", \"PeppolID\", \"HoujinNo\") "
                             "VALUES (?, ?, ?)"));
    q.addBindValue(kno);
    q.addBindValue(address.peppolId);
    q.addBindValue(address.corporateNumber);
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
    const QString path = db::resolve(appFolder, QStringLiteral("temp\\KokyakuDB.mdb"));
    if (kno.trimmed().isEmpty() || !QFileInfo::exists(path))
        return {};
    const db::OpenResult opened = db::openExistingDatabase(path);
    return opened.ok() ? ElectronicAddressStore(opened.database).read(kno.trimmed()) : ElectronicAddress{};
}

} // namespace est::customers
