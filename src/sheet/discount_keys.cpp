#include "sheet/discount_keys.h"

namespace est::sheet {

namespace {

ui::KeyVerdict judge(QChar key, bool slashAllowed)
{
    if (key == QLatin1Char('\r'))
        return ui::KeyVerdict::Swallow;
    const char16_t c = key.unicode();
    if (c < 32 || c == 127)
        return ui::KeyVerdict::Accept;
    if ((c >= u'0' && c <= u'9') || c == u'-' || c == u'.')
        return ui::KeyVerdict::Accept;
    if (c == u'/' && slashAllowed)
        return ui::KeyVerdict::Accept;
    return ui::KeyVerdict::Drop;
}

} // namespace

ui::KeyVerdict discountRateKeyRule(QChar key)
{
    return judge(key, true);
}

ui::KeyVerdict discountAmountKeyRule(QChar key)
{
    return judge(key, false);
}

} // namespace est::sheet
