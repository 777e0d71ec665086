#pragma once
// A temporary application folder with the customer and settings databases, and helpers to
// fill the customer tables with exactly the records a test needs.

#include "customers/customer_store.h"
#include "customers/setting_lists.h"
#include "storage_backend.h"
#include "temp_app_folder.h"

#include <QSqlQuery>
#include <QStringList>
#include <gtest/gtest.h>
#include <memory>
#include <ostream>

// Readable QString values in failure messages.
inline void PrintTo(const QString &text, std::ostream *os)
{
    *os << '"' << text.toStdString() << '"';
}

namespace est::test {

struct CustomerFixture
{
    TempAppFolder folder; // first member: goes last, after the connections' users
    BackendScope backend;
    std::unique_ptr<customers::CustomerStore> store;
    std::unique_ptr<customers::SettingLists> settings;

    explicit CustomerFixture(Backend on = Backend::Sqlite) : backend(on)
    {
        QString error;
        store = customers::CustomerStore::open(folder.path(), &error);
        EXPECT_TRUE(store) << error.toStdString();
        settings = customers::SettingLists::open(folder.path(), &error);
        EXPECT_TRUE(settings) << error.toStdString();
    }

    void exec(const QString &sql) const
    {
        QSqlQuery q(store->database());
        EXPECT_TRUE(q.exec(sql)) << sql.toStdString();
    }

    // Empties both tables.
    void clear() const
    {
        exec(QStringLiteral("DELETE FROM \"Kokyaku_Syaryou\""));
        exec(QStringLiteral("DELETE FROM \"Kokyaku_Jyouhou\""));
    }

    void addCustomer(const QString &kno, const QString &name) const
    {
        QSqlQuery q(store->database());
        q.prepare(QStringLiteral("INSERT INTO \"Kokyaku_Jyouhou\" (\"KNo\", \"Namae\") VALUES (?, ?)"));
        q.addBindValue(kno);
        q.addBindValue(name);
        EXPECT_TRUE(q.exec());
    }

    void addVehicle(const QString &sno, const QString &kno, const QString &carName = QString()) const
    {
        QSqlQuery q(store->database());
        q.prepare(QStringLiteral("INSERT INTO \"Kokyaku_Syaryou\" (\"SNo\", \"KNo\", \"Syamei\") VALUES (?, ?, ?)"));
        q.addBindValue(sno);
        q.addBindValue(kno);
        q.addBindValue(carName);
        EXPECT_TRUE(q.exec());
    }

    int count(const QString &sql, const QVariant &value = {}) const
    {
        QSqlQuery q(store->database());
        q.prepare(sql);
        if (value.isValid())
            q.addBindValue(value);
        if (!q.exec() || !q.next())
            return -1;
        return q.value(0).toInt();
    }
    int customers() const { return count(QStringLiteral("SELECT COUNT(*) FROM \"Kokyaku_Jyouhou\"")); }
    int vehicles() const { return count(QStringLiteral("SELECT COUNT(*) FROM \"Kokyaku_Syaryou\"")); }
    bool hasCustomer(const QString &kno) const
    {
        return count(QStringLiteral("SELECT COUNT(*) FROM \"Kokyaku_Jyouhou\" WHERE \"KNo\" = ?"), kno) == 1;
    }
    bool hasVehicle(const QString &sno) const
    {
        return count(QStringLiteral("SELECT COUNT(*) FROM \"Kokyaku_Syaryou\" WHERE \"SNo\" = ?"), sno) == 1;
    }
    // Every insert into the table fails with `message`, as a full disk would make it fail.
    void refuseInserts(const QString &table, const QString &message) const
    {
        if (backend.backend() == Backend::Sqlite) {
            exec(QStringLiteral("CREATE TRIGGER refuse BEFORE INSERT ON \"%1\" BEGIN SELECT RAISE(ABORT, '%2'); END")
                     .arg(table, message));
            return;
        }
        exec(QStringLiteral("CREATE FUNCTION refuse() RETURNS trigger LANGUAGE plpgsql AS "
                            "$$ BEGIN RAISE EXCEPTION '%1'; END $$").arg(message));
        exec(QStringLiteral("CREATE TRIGGER refuse BEFORE INSERT ON \"%1\" FOR EACH ROW EXECUTE FUNCTION refuse()")
                 .arg(table));
    }
};

} // namespace est::test
