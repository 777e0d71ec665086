#pragma once
// The choice lists of temp\SettingDB that the customer screens offer: makers, paint kinds,
// high-function paints, and the registration-office names (TourokuDB) with their upkeep.

#include <QList>
#include <QSqlDatabase>
#include <QString>
#include <QStringList>
#include <memory>

namespace est::customers {

// One registration-office name; `id` tells apart records that hold the same name.
struct RegistrationOffice
{
    qint64 id = 0;
    QString name;
};

class SettingLists
{
public:
    explicit SettingLists(QSqlDatabase database) : m_db(std::move(database)) {}

    // Opens (creating when missing) temp\SettingDB below the application folder; on failure
    // returns null and puts a sentence for the user into `error`.
    static std::unique_ptr<SettingLists> open(const QString &appFolder, QString *error);

    QString lastError() const { return m_error; }

    QStringList makers();             // MekaName, field "メーカー"
    QStringList paintKinds();         // PSyurui, field "塗装種類"
    QStringList highFunctionPaints(); // PKoukino, field "高機能塗装"

    // TourokuDB in table order.
    QList<RegistrationOffice> offices();
    bool addOffice(const QString &name);
    bool renameOffice(qint64 id, const QString &name);
    bool removeOffice(qint64 id);

private:
    QStringList column(const QString &table, const QString &field, const QString &order);
    bool changeOne(const QString &sql, const QVariantList &values);

    QSqlDatabase m_db;
    QString m_error;
};

} // namespace est::customers
