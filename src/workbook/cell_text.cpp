#include "workbook/cell_text.h"

#include "workbook/xml_part.h"

namespace est::workbook::detail {

namespace {

// A literal "_x" that would look like an escape is escaped itself.
bool looksLikeEscape(const QString &s, qsizetype i)
{
    if (i + 7 > s.size())
        return false;
    if (s.at(i) != QLatin1Char('_') || s.at(i + 1) != QLatin1Char('x') || s.at(i + 6) != QLatin1Char('_'))
        return false;
    for (qsizetype k = i + 2; k < i + 6; ++k) {
        const QChar c = s.at(k);
        // ASCII hexadecimal digits only: a full-width or other script's digit is text.
        if (!((c >= QLatin1Char('0') && c <= QLatin1Char('9')) || (c >= QLatin1Char('a') && c <= QLatin1Char('f')) ||
              (c >= QLatin1Char('A') && c <= QLatin1Char('F'))))
            return false;
    }
    return true;
}

} // namespace

QString escapeCellText(const QString &text)
{
    QString out;
    out.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text.at(i);
        const ushort u = c.unicode();
        const bool forbidden = (u < 0x20 && u != '\t' && u != '\n') || u == 0xFFFE || u == 0xFFFF;
        if (forbidden || looksLikeEscape(text, i))
            out += QLatin1String("_x") + QString::number(u, 16).rightJustified(4, QLatin1Char('0')).toUpper() +
                   QLatin1Char('_');
        else
            out += c;
    }
    return out;
}

QString unescapeCellText(const QString &text)
{
    if (!text.contains(QLatin1String("_x")))
        return text;
    QString out;
    out.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (looksLikeEscape(text, i)) {
            out += QChar(ushort(text.mid(i + 2, 4).toUShort(nullptr, 16)));
            i += 6;
        } else {
            out += text.at(i);
        }
    }
    return out;
}

bool needsPreserve(const QString &text)
{
    if (text.isEmpty())
        return false;
    auto ws = [](QChar c) { return c == QLatin1Char(' ') || c == QLatin1Char('\t') || c == QLatin1Char('\n'); };
    return ws(text.front()) || ws(text.back()) || text.contains(QLatin1String("  "));
}

QString stringItemText(const pugi::xml_node &item)
{
    QString text;
    for (pugi::xml_node n = item.first_child(); n; n = n.next_sibling()) {
        if (isElement(n, "t"))
            text += QString::fromUtf8(n.text().get());
        else if (isElement(n, "r"))
            text += QString::fromUtf8(childElement(n, "t").text().get());
    }
    return unescapeCellText(text);
}

} // namespace est::workbook::detail
