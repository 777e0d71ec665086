#include "reports/csv_reader.h"

namespace est::reports {

CsvParse parseCsv(const QString &text)
{
    CsvParse result;
    CsvRecord record;
    QString field;
    bool quoted = false;      // inside a quoted field
    bool fieldStarted = false;
    int line = 1;
    record.line = 1;

    auto endField = [&] {
        record.fields.append(field);
        field.clear();
        fieldStarted = false;
    };
    auto endRecord = [&] {
        endField();
        const bool blank = record.fields.size() == 1 && record.fields.first().trimmed().isEmpty();
        if (!blank)
            result.records.append(record);
        record = CsvRecord();
    };

    const qsizetype n = text.size();
    for (qsizetype i = 0; i < n; ++i) {
        const QChar c = text.at(i);
        if (quoted) {
            if (c == QLatin1Char('"')) {
                if (i + 1 < n && text.at(i + 1) == QLatin1Char('"')) {
                    field.append(c);
                    ++i;
                } else {
                    quoted = false;
                }
            } else {
                if (c == QLatin1Char('\n'))
                    ++line;
                field.append(c);
            }
            continue;
        }
        if (c == QLatin1Char('"') && !fieldStarted && field.isEmpty()) {
            quoted = true;
            fieldStarted = true;
        } else if (c == QLatin1Char(',')) {
            endField();
            if (record.fields.size() > kMaxCsvFields) {
                result.error = QStringLiteral("項目が多すぎます。");
                result.errorLine = record.line;
                return result;
            }
        } else if (c == QLatin1Char('\r') || c == QLatin1Char('\n')) {
            if (c == QLatin1Char('\r') && i + 1 < n && text.at(i + 1) == QLatin1Char('\n'))
                ++i;
            endRecord();
            ++line;
            record.line = line;
            if (result.records.size() > kMaxCsvRecords) {
                result.error = QStringLiteral("行が多すぎます。");
                result.errorLine = line;
                return result;
            }
        } else {
            field.append(c);
            fieldStarted = true;
        }
    }
    if (quoted) {
        result.error = QStringLiteral("「\"」で始まった項目が閉じられていません。");
        result.errorLine = record.line;
        return result;
    }
    if (!field.isEmpty() || !record.fields.isEmpty())
        endRecord();
    return result;
}

QString csvField(const QString &value)
{
    static const QString special = QStringLiteral(",\"\r\n");
    bool needs = false;
    for (const QChar c : value)
        needs = needs || special.contains(c);
    if (!needs)
        return value;
    QString quoted = value;
    quoted.replace(QLatin1Char('"'), QStringLiteral("\"\""));
    return QLatin1Char('"') + quoted + QLatin1Char('"');
}

QString csvLine(const QStringList &fields)
{
    QStringList out;
    out.reserve(fields.size());
    for (const QString &f : fields)
        out.append(csvField(f));
    return out.join(QLatin1Char(','));
}

} // namespace est::reports
