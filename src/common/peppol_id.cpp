#include "common/peppol_id.h"

#include <QStringList>
#include <algorithm>
#include <array>

namespace est {

namespace {

// The electronic address schemes (EAS) the network accepts.
constexpr std::array kSchemes = {
    "0002", "0007", "0009", "0037", "0060", "0088", "0096", "0097", "0106", "0130", "0135", "0142",
    "0151", "0154", "0158", "0177", "0183", "0184", "0188", "0190", "0191", "0192", "0193", "0195",
    "0196", "0198", "0199", "0200", "0201", "0202", "0204", "0208", "0209", "0210", "0211", "0212",
    "0213", "0215", "0216", "0218", "0221", "0230", "0235", "0240", "0242", "0244", "0245", "0246",
    "0248", "9910", "9913", "9914", "9915", "9918", "9919", "9920", "9922", "9923", "9924", "9925",
    "9926", "9927", "9928", "9929", "9930", "9931", "9932", "9933", "9934", "9935", "9936", "9937",
    "9938", "9939", "9940", "9941", "9942", "9943", "9944", "9945", "9946", "9947", "9948", "9949",
    "9950", "9951", "9952", "9953", "9957", "9959"
};

QChar halfWidth(QChar c)
{
    return c.unicode() >= 0xFF01 && c.unicode() <= 0xFF5E ? QChar(c.unicode() - 0xFEE0) : c;
}

bool allDigits(const QString &text)
{
    return std::all_of(text.begin(), text.end(), [](QChar c) { return c >= QLatin1Char('0') && c <= QLatin1Char('9'); });
}

} // namespace

QString normalizePeppolId(const QString &text)
{
    QString out;
    for (QChar c : text)
        if (!c.isSpace())
            out += halfWidth(c);
    return out;
}

bool isElectronicAddressScheme(const QString &scheme)
{
    return std::any_of(kSchemes.begin(), kSchemes.end(),
                       [&scheme](const char *code) { return scheme == QLatin1String(code); });
}

std::optional<PeppolId> parsePeppolId(const QString &text)
{
    const qsizetype colon = text.indexOf(QLatin1Char(':'));
    if (colon < 0)
        return std::nullopt;
    PeppolId id{text.left(colon), text.mid(colon + 1)};
    // The address is printable ASCII without blanks; a second colon belongs to it.
    const bool plain = std::all_of(id.value.begin(), id.value.end(),
                                   [](QChar c) { return c.unicode() > 0x20 && c.unicode() < 0x7F; });
    if (!isElectronicAddressScheme(id.scheme) || id.value.isEmpty() || !plain || id.value.size() > 128)
        return std::nullopt;
    // The two Japanese schemes have a fixed form: the corporate number, and the registration
    // number of a qualified invoice issuer ("T" and thirteen digits).
    if (id.scheme == QLatin1String("0188") && !isCorporateNumber(id.value))
        return std::nullopt;
    if (id.scheme == QLatin1String("0221")
        && (id.value.size() != 14 || id.value.at(0) != QLatin1Char('T') || !allDigits(id.value.mid(1))))
        return std::nullopt;
    return id;
}

std::optional<QString> checkPeppolId(const QString &text)
{
    const QString id = normalizePeppolId(text);
    if (id.isEmpty() || parsePeppolId(id))
        return std::nullopt;
    return QStringLiteral("Peppol IDは「スキーム番号:ID」の形で入力してください。\n"
                          "（例：0188:法人番号13桁、0221:T＋13桁の登録番号）");
}

QString normalizeCorporateNumber(const QString &text)
{
    QString out;
    for (QChar c : text) {
        c = halfWidth(c);
        if (!c.isSpace() && c != QLatin1Char('-'))
            out += c;
    }
    return out;
}

bool isCorporateNumber(const QString &text)
{
    if (text.size() != 13 || !allDigits(text))
        return false;
    // The check digit: 9 - (sum of the other twelve digits, weighted 1 and 2 alternately
    // from the last, modulo 9).
    int sum = 0;
    for (int n = 1; n <= 12; ++n)
        sum += text.at(13 - n).digitValue() * (n % 2 == 1 ? 1 : 2);
    return text.at(0).digitValue() == 9 - sum % 9;
}

std::optional<QString> checkCorporateNumber(const QString &text)
{
    const QString number = normalizeCorporateNumber(text);
    if (number.isEmpty() || isCorporateNumber(number))
        return std::nullopt;
    return QStringLiteral("法人番号は13桁の数字で入力してください。\n"
                          "（先頭の検査用数字が合わない番号は登録できません）");
}

} // namespace est
