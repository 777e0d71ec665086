#include "reports/search_text.h"

namespace est::reports {

QString foldForSearch(const QString &text)
{
    // NFKC turns full-width ASCII into ASCII and half-width katakana into full-width.
    const QString folded = text.normalized(QString::NormalizationForm_KC).toCaseFolded();
    QString out;
    out.reserve(folded.size());
    for (const QChar c : folded) {
        if (c.isSpace() || c == QLatin1Char('-') || c == QChar(0x2010) || c == QChar(0x2212) || c == QChar(0x2013))
            continue;
        out.append(c);
    }
    return out;
}

} // namespace est::reports
