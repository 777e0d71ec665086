#pragma once

#include "common/clock.h"

namespace est::test {

// A clock whose "today" the test sets.
class FixedClock final : public Clock
{
public:
    explicit FixedClock(QDate day = QDate(2024, 1, 5)) : m_day(day) {}
    QDate today() const override { return m_day; }
    void set(QDate day) { m_day = day; }

private:
    QDate m_day;
};

} // namespace est::test
