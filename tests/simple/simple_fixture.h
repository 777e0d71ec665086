#pragma once
// A temporary application folder with the simple estimate's file made from the sample data
// (or its database on the test run's server).

#include "simple/easy_estimate_store.h"
#include "storage_backend.h"
#include "temp_app_folder.h"

#include <QSqlQuery>
#include <QStringList>
#include <gtest/gtest.h>
#include <memory>

namespace est::test {

struct SimpleFixture
{
    explicit SimpleFixture(Backend on = Backend::Sqlite) : backend(on)
    {
        QString error;
        store = simple::EasyEstimateStore::open(folder.path(), &error);
        EXPECT_TRUE(store) << error.toStdString();
    }

    // Runs statements on the file, failing the test on an error.
    void exec(const QString &sql, const QVariantList &values = {})
    {
        QSqlQuery query(store->database());
        ASSERT_TRUE(query.prepare(sql)) << sql.toStdString();
        for (const QVariant &value : values)
            query.addBindValue(value);
        ASSERT_TRUE(query.exec()) << sql.toStdString();
    }

    TempAppFolder folder;
    BackendScope backend;
    std::unique_ptr<simple::EasyEstimateStore> store;
};

inline QStringList names(const std::optional<QList<simple::Choice>> &choices)
{
    QStringList result;
    if (choices)
        for (const simple::Choice &choice : *choices)
            result.append(choice.name);
    return result;
}

} // namespace est::test
