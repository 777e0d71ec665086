#include "reports/price_csv.h"


#include <QHash>

namespace est::reports {

namespace {

const QStringList kNumberHeaders{QStringLiteral("品番"), QStringLiteral("部品番号"), QStringLiteral("部品コード"),
                                 QStringLiteral("品番号")};
const QStringList kPriceHeaders{QStringLiteral("価格"), QStringLiteral("部品価格"), QStringLiteral("単価"),
                                QStringLiteral("定価"), QStringLiteral("金額")};

int columnNamed(const QStringList &fields, const QStringList &names)
{
    for (int i = 0; i < fields.size(); ++i)
        if (names.contains(fields.at(i).trimmed()))
            return i;
    return -1;
}

} // namespace

QString partNumberKey(const QString &text)
{
    return text.normalized(QString::NormalizationForm_KC).trimmed().toUpper();
}

std::optional<Yen> parsePrice(const QString &text)
{
    QString t = text.normalized(QString::NormalizationForm_KC).trimmed();
    t.remove(QLatin1Char(',')).remove(QLatin1Char('\\')).remove(QChar(0x00A5)).remove(QStringLiteral("円"));
    t = t.trimmed();
    if (t.isEmpty() || t.size() > 12)
        return std::nullopt;
    for (const QChar c : t)
        if (c < QLatin1Char('0') || c > QLatin1Char('9'))
            return std::nullopt;
    const qint64 value = t.toLongLong();
    if (value > std::numeric_limits<Yen>::max())
        return std::nullopt;
    return Yen(value);
}

PriceCsv readPriceCsv(const QByteArray &bytes)
{
    PriceCsv result;
    const mastertable::DecodedCsv decoded = mastertable::decodeCsv(bytes, mastertable::CsvEncoding::Auto);
    result.encoding = decoded.encoding;
    if (!decoded.error.isEmpty()) {
        result.fatal = decoded.error;
        return result;
    }
    const mastertable::CsvRecords parsed = mastertable::parseCsv(decoded.text);
    if (!parsed.error.isEmpty()) {
        result.fatal = parsed.error;
        return result;
    }

    int numberColumn = 0;
    int priceColumn = 1;
    qsizetype first = 0;
    if (!parsed.records.isEmpty()) {
        const QStringList &head = parsed.records.first();
        const int n = columnNamed(head, kNumberHeaders);
        const int p = columnNamed(head, kPriceHeaders);
        if (n >= 0 && p >= 0) {
            numberColumn = n;
            priceColumn = p;
            first = 1;
        } else if (head.size() > 1 && !parsePrice(head.at(1))) {
            first = 1;   // a header with other names: the first two columns are used
        }
    }

    QHash<QString, qsizetype> seen;   // key -> index into entries
    for (qsizetype i = first; i < parsed.records.size(); ++i) {
        const QStringList &fields = parsed.records.at(i);
        const int line = parsed.lines.at(i);
        const QString number = partNumberKey(fields.value(numberColumn));
        if (number.isEmpty()) {
            result.problems.append({line, QStringLiteral("品番がありません。")});
            continue;
        }
        if (priceColumn >= fields.size()) {
            result.problems.append({line, QStringLiteral("価格の項目がありません。")});
            continue;
        }
        const QString priceText = fields.at(priceColumn);
        const auto price = parsePrice(priceText);
        if (!price) {
            result.problems.append(
                {line, QStringLiteral("価格「%1」は円単位の金額として読めません。").arg(priceText.trimmed())});
            continue;
        }
        if (const auto known = seen.constFind(number); known != seen.cend()) {
            const PriceEntry &earlier = result.entries.at(*known);
            if (earlier.price != *price)
                result.problems.append({line, QStringLiteral("品番 %1 は %2 行目にも別の価格で書かれています。")
                                                         .arg(number)
                                                         .arg(earlier.line)});
            continue;
        }
        seen.insert(number, result.entries.size());
        result.entries.append({line, number, *price});
    }
    if (result.entries.isEmpty() && result.problems.isEmpty())
        result.fatal = QStringLiteral("価格の行がありません。");
    return result;
}

} // namespace est::reports
