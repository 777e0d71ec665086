#pragma once
// A temporary application folder whose temp/PartDB.sqlite is made from the built-in schema
// and sample data, opened for the index tables; in the program's server run, that database on
// a fresh database of the test server instead.

#include "db/database.h"
#include "db/part_db.h"
#include "db/server_database.h"
#include "indices/index_value.h"
#include "scripted_messages.h"
#include "temp_app_folder.h"

#include <QSqlQuery>
#include <gtest/gtest.h>

namespace est::test {

class PartDbTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        auto opened = db::openDatabase(folder.path(), db::kPartDb);
        ASSERT_TRUE(opened.ok()) << opened.error.toStdString();
        database = opened.database;
    }
    void TearDown() override
    {
        database = QSqlDatabase();
        db::closeDatabase(folder.file("temp/PartDB.sqlite"));
        db::closeServerConnections();
    }
    void exec(const QString &sql)
    {
        QSqlQuery q(database);
        ASSERT_TRUE(q.exec(sql)) << sql.toStdString();
    }

    TempAppFolder folder; // on the server in the program's server run
    QSqlDatabase database;
    ScriptedMessages messages;
};

} // namespace est::test
