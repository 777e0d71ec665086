#pragma once
// Gives a new widget the objectName by which the rest of the program and the tests find it.

#include <QLatin1String>

namespace est::ui {

template <typename W>
W *named(W *widget, const char *name)
{
    widget->setObjectName(QLatin1String(name));
    return widget;
}

} // namespace est::ui
