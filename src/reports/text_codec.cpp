#include "reports/text_codec.h"

#include <QStringDecoder>

#include <unicode/ucnv.h>
#include <unicode/ucnv_err.h>

#include <memory>

namespace est::reports {

namespace {

const QByteArray kBom = QByteArrayLiteral("\xEF\xBB\xBF");

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

std::optional<QString> strictUtf8(const QByteArray &bytes)
{
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    QString text = decoder.decode(bytes);
    if (decoder.hasError())
        return std::nullopt;
    return text;
}

std::optional<QString> strictCp932(const QByteArray &bytes)
{
    Converter c = openCp932();
    if (!c)
        return std::nullopt;
    UErrorCode status = U_ZERO_ERROR;
    ucnv_setToUCallBack(c.get(), UCNV_TO_U_CALLBACK_STOP, nullptr, nullptr, nullptr, &status);
    std::u16string out(size_t(bytes.size()) * 2 + 16, u'\0');
    status = U_ZERO_ERROR;
    const int32_t length = ucnv_toUChars(c.get(), out.data(), int32_t(out.size()), bytes.constData(),
                                         int32_t(bytes.size()), &status);
    if (U_FAILURE(status))
        return std::nullopt;
    return QString::fromUtf16(out.data(), length);
}

} // namespace

DecodedText decodeText(const QByteArray &bytes)
{
    DecodedText result;
    if (bytes.startsWith(kBom)) {
        const auto text = strictUtf8(bytes.mid(kBom.size()));
        result.ok = text.has_value();
        result.text = text.value_or(QString());
        return result;
    }
    if (const auto text = strictUtf8(bytes)) {
        result.text = *text;
        result.ok = true;
        return result;
    }
    result.encoding = TextEncoding::ShiftJis;
    if (const auto text = strictCp932(bytes)) {
        result.text = *text;
        result.ok = true;
    }
    return result;
}

QByteArray encodeUtf8WithBom(const QString &text)
{
    return kBom + text.toUtf8();
}

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
