#include "sheet/company_block.h"

#include "common/number_format.h"
#include "db/app_folder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

namespace est::sheet {

QString companyFilePath(const QString &appFolder)
{
    return db::resolve(appFolder, QStringLiteral("temp\\kdata.txt"));
}

QByteArray companyFileBytes(const QStringList &block)
{
    QByteArray bytes;
    for (int i = 0; i < kCompanyItems; ++i) {
        const QString item = i < block.size() ? block.at(i) : QString();
        // A line break inside a value would shift every later line.
        QString line = item;
        line.replace(QLatin1Char('\r'), QLatin1Char(' ')).replace(QLatin1Char('\n'), QLatin1Char(' '));
        bytes += line.toUtf8();
        bytes += "\r\n";
    }
    return bytes;
}

namespace {

bool isLineEnd(QChar c) { return c == QLatin1Char('\r') || c == QLatin1Char('\n'); }
bool isBlank(QChar c) { return c == QLatin1Char(' ') || c == QLatin1Char('\t'); }

// Consumes one line end (CR LF, CR or LF) at `pos`.
void skipLineEnd(const QString &text, qsizetype &pos)
{
    if (pos < text.size() && text.at(pos) == QLatin1Char('\r'))
        ++pos;
    if (pos < text.size() && text.at(pos) == QLatin1Char('\n'))
        ++pos;
}

// One comma-delimited input field starting at `pos`; moves `pos` past its delimiter.
QString readField(const QString &text, qsizetype &pos)
{
    while (pos < text.size() && isBlank(text.at(pos)))
        ++pos;
    QString value;
    if (pos < text.size() && text.at(pos) == QLatin1Char('"')) {
        ++pos;
        while (pos < text.size() && text.at(pos) != QLatin1Char('"'))
            value += text.at(pos++);
        if (pos < text.size())
            ++pos; // closing quote
        // Anything after the closing quote up to the delimiter is dropped.
        while (pos < text.size() && text.at(pos) != QLatin1Char(',') && !isLineEnd(text.at(pos)))
            ++pos;
    } else {
        while (pos < text.size() && text.at(pos) != QLatin1Char(',') && !isLineEnd(text.at(pos)))
            value += text.at(pos++);
        while (!value.isEmpty() && isBlank(value.back()))
            value.chop(1);
    }
    if (pos < text.size()) {
        if (text.at(pos) == QLatin1Char(','))
            ++pos;
        else
            skipLineEnd(text, pos);
    }
    return value;
}

} // namespace

QStringList parseCompanyFile(const QByteArray &bytes)
{
    QString text = QString::fromUtf8(bytes);
    if (text.startsWith(QChar(0xFEFF)))
        text.remove(0, 1);
    QStringList block(kCompanyItems);
    qsizetype pos = 0;
    for (int i = 0; i < kCompanyItems && pos < text.size(); ++i)
        block[i] = readField(text, pos);
    return block;
}

CompanyFileRead readCompanyBlock(const QString &path)
{
    CompanyFileRead result;
    QFile file(path);
    if (!file.exists())
        return result;
    result.exists = true;
    if (!file.open(QIODevice::ReadOnly)) {
        result.error = QStringLiteral("%1 を読み込めませんでした。").arg(QDir::toNativeSeparators(path));
        return result;
    }
    result.block = parseCompanyFile(file.readAll());
    return result;
}

QString writeCompanyBlock(const QString &path, const QStringList &block)
{
    const QString failed = QStringLiteral("%1 に書き込めませんでした。").arg(QDir::toNativeSeparators(path));
    if (!QDir().mkpath(QFileInfo(path).absolutePath()))
        return failed;
    QSaveFile file(path);
    // Unbuffered, so a short write is seen here and not lost in a later flush.
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        return failed + QStringLiteral("\n") + file.errorString();
    const QByteArray bytes = companyFileBytes(block);
    if (file.write(bytes) != bytes.size()) {
        const QString reason = file.errorString();
        file.cancelWriting();
        return failed + QStringLiteral("\n") + reason;
    }
    if (!file.commit())
        return failed + QStringLiteral("\n") + file.errorString();
    return {};
}

QString formatBranchNumber(const QString &text)
{
    const QString trimmed = text.trimmed();
    if (trimmed.isEmpty())
        return {};
    bool ok = false;
    const long long value = trimmed.toLongLong(&ok);
    return ok ? formatThreeDigits(value) : text;
}

} // namespace est::sheet
