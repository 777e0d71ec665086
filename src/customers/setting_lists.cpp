#include "customers/setting_lists.h"

#include "db/database.h"

#include <QSqlError>
#include <QSqlQuery>
#include <QVariant>

namespace est::customers {

std::unique_ptr<SettingLists> SettingLists::open(const QString &appFolder, QString *error)
{
    db::OpenResult opened = db::openDatabase(appFolder, QStringLiteral("temp\\SettingDB.mdb"));
    if (!opened.ok()) {
        if (error)
            *error = opened.error;
        return nullptr;
    }
    return std::make_unique<SettingLists>(opened.database);
}

QStringList SettingLists::column(const QString &table, const QString &field, const QString &order)
{
    QStringList values;
    if (!db::tableExists(m_db, table)) {
        m_error = QStringLiteral("設定データベースにテーブル %1 がありません。").arg(table);
        return values;
    }
    QSqlQuery q(m_db);
    q.setForwardOnly(true);
    const QString sql = QStringLiteral("SELECT %1 FROM %2 ORDER BY %3")
                            .arg(db::quoteIdentifier(field), db::quoteIdentifier(table), order);
    if (!q.exec(sql)) {
        m_error = q.lastError().text();
        return values;
    }
    while (q.next())
        values.append(q.value(0).toString());
    return values;
}

QStringList SettingLists::makers()
{
    return column(QStringLiteral("MekaName"), QStringLiteral("メーカー"), QStringLiteral("\"No\", rowid"));
}

QStringList SettingLists::paintKinds()
{
    return column(QStringLiteral("PSyurui"), QStringLiteral("塗装種類"), QStringLiteral("rowid"));
}

QStringList SettingLists::highFunctionPaints()
{
    return column(QStringLiteral("PKoukino"), QStringLiteral("高機能塗装"), QStringLiteral("rowid"));
}

QList<RegistrationOffice> SettingLists::offices()
{
    QList<RegistrationOffice> list;
    if (!db::tableExists(m_db, QStringLiteral("TourokuDB"))) {
        m_error = QStringLiteral("設定データベースにテーブル TourokuDB がありません。");
        return list;
    }
    QSqlQuery q(m_db);
    q.setForwardOnly(true);
    if (!q.exec(QStringLiteral("SELECT rowid, \"Touroku\" FROM \"TourokuDB\" ORDER BY rowid"))) {
        m_error = q.lastError().text();
        return list;
    }
    while (q.next())
        list.append({q.value(0).toLongLong(), q.value(1).toString()});
    return list;
}

bool SettingLists::changeOne(const QString &sql, const QVariantList &values)
{
    QSqlQuery q(m_db);
    if (!q.prepare(sql)) {
        m_error = q.lastError().text();
        return false;
    }
    for (int i = 0; i < values.size(); ++i)
        q.bindValue(i, values.at(i));
    if (!q.exec()) {
        m_error = QStringLiteral("登録地名を保存できませんでした。\n") + q.lastError().text();
        return false;
    }
    if (q.numRowsAffected() != 1) {
        m_error = QStringLiteral("登録地名が見つかりません。");
        return false;
    }
    return true;
}

bool SettingLists::addOffice(const QString &name)
{
    return changeOne(QStringLiteral("INSERT INTO \"TourokuDB\" (\"Touroku\") VALUES (?)"), {name});
}

bool SettingLists::renameOffice(qint64 id, const QString &name)
{
    return changeOne(QStringLiteral("UPDATE \"TourokuDB\" SET \"Touroku\" = ? WHERE rowid = ?"), {name, id});
}

bool SettingLists::removeOffice(qint64 id)
{
    return changeOne(QStringLiteral("DELETE FROM \"TourokuDB\" WHERE rowid = ?"), {id});
}

} // namespace est::customers
