#pragma once
// The flat list of maker names (table MekaName of temp\SettingDB) that the customer and
// vehicle records offer; edited by frmNewMeka.

#include <QList>
#include <QSqlDatabase>
#include <QString>

namespace est::workitems {

struct MakerName
{
    qint64 rowId = 0;
    qint64 no = 0;   // No
    QString name;    // メーカー
};

class MakerNameList
{
public:
    explicit MakerNameList(QSqlDatabase database) : m_db(std::move(database)) {}

    // Opens temp\SettingDB (made from the built-in lists when missing). Error text or empty.
    static QString open(const QString &appFolder, QSqlDatabase *database);

    QList<MakerName> all() const; // in the order of No
    // The last row's No + 1; 1 for an empty list.
    qint64 nextNumber() const;
    // Each returns an error text, empty on success.
    QString add(qint64 no, const QString &name);
    QString rename(qint64 rowId, const QString &name);
    QString remove(qint64 rowId);

private:
    QSqlDatabase m_db;
};

} // namespace est::workitems
