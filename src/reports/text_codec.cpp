#include "reports/text_codec.h"

#include <unicode/ucnv.h>
#include <unicode/ucnv_err.h>

#include <memory>

namespace est::reports {

namespace {

struct ConverterCloser
{
    void operator()(UConverter *c) const { ucnv_close(c); }
};
using Converter = std::unique_ptr<UConverter, ConverterCloser>;

Converter openCp932()
{
    UErrorCode status = U_ZERO_ERROR;
    Converter c(ucnv_open("windows-31j", &status));
    if (U_FAILURE(status))
        return nullptr;
    return c;
}

} // namespace

QByteArray encodeShiftJis(const QString &text, int *unmappable)
{
    if (unmappable)
        *unmappable = 0;
    Converter c = openCp932();
    if (!c)
        return {};
    QByteArray out;
    out.reserve(text.size() * 2);
    char buffer[8];
    // Character by character, so that each one CP932 cannot hold is counted and replaced.
    for (qsizetype i = 0; i < text.size();) {
        const qsizetype n = text.at(i).isHighSurrogate() && i + 1 < text.size() ? 2 : 1;
        UErrorCode status = U_ZERO_ERROR;
        ucnv_setFromUCallBack(c.get(), UCNV_FROM_U_CALLBACK_STOP, nullptr, nullptr, nullptr, &status);
        status = U_ZERO_ERROR;
        const int32_t length = ucnv_fromUChars(c.get(), buffer, sizeof buffer,
                                               reinterpret_cast<const UChar *>(text.constData() + i), int32_t(n),
                                               &status);
        if (U_FAILURE(status) || length <= 0) {
            out.append('?');
            if (unmappable)
                ++*unmappable;
        } else {
            out.append(buffer, length);
        }
        i += n;
    }
    return out;
}

} // namespace est::reports
