#pragma once
// Rolls a transaction back unless commit() was called: every multi-row change goes
// through one, so a failure half-way leaves the tables as they were.

#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QString>

namespace est::db {

class TransactionGuard
{
public:
    explicit TransactionGuard(QSqlDatabase database)
        : m_database(std::move(database)), m_active(m_database.transaction())
    {
    }
    // A transaction that takes the write lock at once. Two processes that each read a row and
    // then write it would otherwise both hold SQLite's read lock and the second one would give
    // up with "database is locked" instead of waiting its turn.
    // Waits up to four busy timeouts of the connection for the lock.
    static TransactionGuard forWriting(QSqlDatabase database)
    {
        if (database.driverName() != QLatin1String("QSQLITE"))
            return TransactionGuard(std::move(database));
        QSqlQuery begin(database);
        bool begun = false;
        for (int attempt = 0; attempt < 4 && !begun; ++attempt)
            begun = begin.exec(QStringLiteral("BEGIN IMMEDIATE"));
        return TransactionGuard(std::move(database), begun, begun ? QString() : begin.lastError().text());
    }
    ~TransactionGuard()
    {
        if (m_active)
            m_database.rollback();
    }
    TransactionGuard(const TransactionGuard &) = delete;
    TransactionGuard &operator=(const TransactionGuard &) = delete;

    bool started() const { return m_active; }
    // Why the transaction could not be started, when it was not.
    QString error() const { return m_error.isEmpty() ? m_database.lastError().text() : m_error; }
    bool commit()
    {
        if (!m_active)
            return false;
        m_active = false;
        return m_database.commit();
    }

private:
    TransactionGuard(QSqlDatabase database, bool begun, QString error)
        : m_database(std::move(database)), m_active(begun), m_error(std::move(error))
    {
    }

    QSqlDatabase m_database;
    bool m_active;
    QString m_error;
};

} // namespace est::db
