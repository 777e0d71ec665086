#pragma once
// Finding a screen's controls by objectName.

#include <QObject>
#include <gtest/gtest.h>

namespace est::test {

template <typename T>
T *child(const QObject *parent, const char *name)
{
    T *found = parent->findChild<T *>(QLatin1String(name));
    EXPECT_NE(found, nullptr) << name;
    return found;
}

} // namespace est::test
