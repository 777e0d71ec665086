#include "workitems/numeric_keys.h"

namespace est::workitems {

ui::KeyRule numericKeyRule(bool allowPoint)
{
    return [allowPoint](QChar c) {
        if (c.unicode() < 32)
            return ui::KeyVerdict::Accept;
        if ((c >= QLatin1Char('0') && c <= QLatin1Char('9')) || (c.unicode() >= 0xFF10 && c.unicode() <= 0xFF19))
            return ui::KeyVerdict::Accept;
        if (allowPoint && (c == QLatin1Char('.') || c == QChar(0xFF0E)))
            return ui::KeyVerdict::Accept;
        return ui::KeyVerdict::Drop;
    };
}

} // namespace est::workitems
