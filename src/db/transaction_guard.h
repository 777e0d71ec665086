#pragma once
// Rolls a transaction back unless commit() was called: every multi-row change goes
// through one, so a failure half-way leaves the tables as they were.

#include <QSqlDatabase>

namespace est::db {

class TransactionGuard
{
public:
    explicit TransactionGuard(QSqlDatabase database)
        : m_database(std::move(database)), m_active(m_database.transaction())
    {
    }
    ~TransactionGuard()
    {
        if (m_active)
            m_database.rollback();
    }
    TransactionGuard(const TransactionGuard &) = delete;
    TransactionGuard &operator=(const TransactionGuard &) = delete;

    bool started() const { return m_active; }
    bool commit()
    {
        if (!m_active)
            return false;
        m_active = false;
        return m_database.commit();
    }

private:
    QSqlDatabase m_database;
    bool m_active;
};

} // namespace est::db
