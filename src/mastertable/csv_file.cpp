#include "mastertable/csv_file.h"

#include <QStringDecoder>
#include <unicode/ucnv.h>
#include <unicode/ucnv_err.h>

#include <memory>

namespace est::mastertable {

namespace {

const QByteArray kUtf8Bom("\xEF\xBB\xBF", 3);

bool strictUtf8(const QByteArray &bytes, QString *text)
{
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    *text = decoder.decode(bytes);
    return !decoder.hasError();
}

// CP932 through ICU, stopping at the first byte sequence that is not CP932.
bool strictCp932(const QByteArray &bytes, QString *text)
{
    UErrorCode status = U_ZERO_ERROR;
    std::unique_ptr<UConverter, void (*)(UConverter *)> converter(ucnv_open("windows-31j", &status), ucnv_close);
    if (U_FAILURE(status))
        return false;
    ucnv_setToUCallBack(converter.get(), UCNV_TO_U_CALLBACK_STOP, nullptr, nullptr, nullptr, &status);
    if (U_FAILURE(status))
        return false;
    // CP932 never needs more UTF-16 units than bytes.
    std::u16string buffer(std::size_t(bytes.size()) + 1, u'\0');
    const int32_t length = ucnv_toUChars(converter.get(), buffer.data(), int32_t(buffer.size()), bytes.constData(),
                                         int32_t(bytes.size()), &status);
    if (U_FAILURE(status))
        return false;
    *text = QString::fromUtf16(buffer.data(), length);
    return true;
}

QString encodingName(CsvEncoding e)
{
    return e == CsvEncoding::ShiftJis ? QStringLiteral("Shift_JIS") : QStringLiteral("UTF-8");
}

} // namespace

DecodedCsv decodeCsv(const QByteArray &bytes, CsvEncoding chosen)
{
    DecodedCsv result;
    if (bytes.size() > kCsvMaxBytes) {
        result.error = QStringLiteral("ファイルが大きすぎます（%1MBまで）。").arg(kCsvMaxBytes / (1024 * 1024));
        return result;
    }
    if (bytes.startsWith("\xFF\xFE") || bytes.startsWith("\xFE\xFF")) {
        result.error = QStringLiteral("UTF-16 のファイルは読めません。UTF-8 か Shift_JIS で保存してください。");
        return result;
    }
    if (bytes.contains('\0')) {
        result.error = QStringLiteral("CSVファイルではありません（文字以外のデータが含まれています）。");
        return result;
    }
    const bool bom = bytes.startsWith(kUtf8Bom);
    if (bom && chosen == CsvEncoding::ShiftJis) {
        result.error = QStringLiteral("このファイルは UTF-8 で保存されています。文字コードに UTF-8 を選んでください。");
        return result;
    }
    const QByteArray body = bom ? bytes.mid(3) : bytes;
    if (chosen != CsvEncoding::ShiftJis && strictUtf8(body, &result.text)) {
        result.encoding = CsvEncoding::Utf8;
        return result;
    }
    if (chosen != CsvEncoding::Utf8 && !bom && strictCp932(body, &result.text)) {
        result.encoding = CsvEncoding::ShiftJis;
        return result;
    }
    result.text.clear();
    if (chosen == CsvEncoding::Auto)
        result.error = QStringLiteral("文字コードを判別できません。UTF-8 か Shift_JIS で保存したファイルを選んでください。");
    else
        result.error = QStringLiteral("このファイルは %1 として読めません。文字コードの選択を確かめてください。")
                           .arg(encodingName(chosen));
    return result;
}

CsvRecords parseCsv(const QString &text)
{
    CsvRecords result;
    QStringList record;
    QString field;
    bool quoted = false;        // inside a quoted field
    bool wasQuoted = false;     // the current field was quoted (its closing quote seen)
    bool fieldStarted = false;  // something of the current record has been read
    int line = 1, recordLine = 1, quoteLine = 1;

    const auto fail = [&](const QString &why) {
        result.records.clear();
        result.lines.clear();
        result.error = QStringLiteral("%1行目：%2").arg(line).arg(why);
        return result;
    };
    const auto endField = [&]() -> bool {
        if (record.size() >= kCsvMaxFields)
            return false;
        record << field;
        field.clear();
        wasQuoted = false;
        return true;
    };
    const auto endRecord = [&] {
        const bool blank = record.size() == 1 && record.first().isEmpty() && !fieldStarted;
        if (!blank) {
            result.records << record;
            result.lines << recordLine;
        }
        record.clear();
        fieldStarted = false;
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
                    wasQuoted = true;
                }
            } else {
                if (c == QLatin1Char('\n') || (c == QLatin1Char('\r') && !(i + 1 < n && text.at(i + 1) == QLatin1Char('\n'))))
                    ++line;
                field.append(c);
            }
            if (field.size() > kCsvMaxFieldLength)
                return fail(QStringLiteral("項目が長すぎます（%1文字まで）。").arg(kCsvMaxFieldLength));
            continue;
        }
        if (c == QLatin1Char(',')) {
            fieldStarted = true;
            if (!endField())
                return fail(QStringLiteral("列が多すぎます（%1列まで）。").arg(kCsvMaxFields));
            continue;
        }
        if (c == QLatin1Char('\r') || c == QLatin1Char('\n')) {
            if (c == QLatin1Char('\r') && i + 1 < n && text.at(i + 1) == QLatin1Char('\n'))
                ++i;
            if (!endField())
                return fail(QStringLiteral("列が多すぎます（%1列まで）。").arg(kCsvMaxFields));
            endRecord();
            ++line;
            recordLine = line;
            continue;
        }
        if (wasQuoted)
            return fail(QStringLiteral("引用符（\"）で閉じた項目の後に文字があります。"));
        if (c == QLatin1Char('"') && field.isEmpty()) {
            quoted = true;
            quoteLine = line;
            fieldStarted = true;
            continue;
        }
        field.append(c);
        fieldStarted = true;
        if (field.size() > kCsvMaxFieldLength)
            return fail(QStringLiteral("項目が長すぎます（%1文字まで）。").arg(kCsvMaxFieldLength));
    }
    if (quoted) {
        line = quoteLine;
        return fail(QStringLiteral("引用符（\"）が閉じていません。"));
    }
    if (fieldStarted || !field.isEmpty()) {
        if (!endField())
            return fail(QStringLiteral("列が多すぎます（%1列まで）。").arg(kCsvMaxFields));
        endRecord();
    }
    return result;
}

QByteArray writeCsv(const QList<QStringList> &records)
{
    QString out;
    for (const QStringList &record : records) {
        QStringList fields;
        for (const QString &value : record) {
            const bool quote = value.contains(QLatin1Char(',')) || value.contains(QLatin1Char('"'))
                               || value.contains(QLatin1Char('\n')) || value.contains(QLatin1Char('\r'))
                               || value != value.trimmed();
            fields << (quote ? QLatin1Char('"') + QString(value).replace(QStringLiteral("\""), QStringLiteral("\"\""))
                                   + QLatin1Char('"')
                             : value);
        }
        out += fields.join(QLatin1Char(',')) + QStringLiteral("\r\n");
    }
    return kUtf8Bom + out.toUtf8();
}

} // namespace est::mastertable
