#pragma once
// Where "today" comes from, so that tests can fix the date.

#include <QDate>
#include <QDateTime>

namespace est {

class Clock
{
public:
    virtual ~Clock() = default;
    virtual QDate today() const = 0;
};

class SystemClock final : public Clock
{
public:
    QDate today() const override { return QDate::currentDate(); }
};

} // namespace est
