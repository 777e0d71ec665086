#include "print/print_options.h"

namespace est::print {

QString layoutName(Layout layout)
{
    return layout == Layout::B ? QStringLiteral("B") : QStringLiteral("A");
}

bool parseLayout(const QString &text, Layout *layout)
{
    const QString t = text.trimmed().toUpper();
    if (t == QLatin1String("A"))
        *layout = Layout::A;
    else if (t == QLatin1String("B"))
        *layout = Layout::B;
    else
        return false;
    return true;
}

} // namespace est::print
