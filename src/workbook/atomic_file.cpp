#include "workbook/atomic_file.h"

#include "workbook/xml_part.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>
#include <QRegularExpression>

#include <filesystem>
#include <system_error>

#ifdef Q_OS_UNIX
#include <cerrno>
#include <csignal>
#include <unistd.h>
#endif

namespace est::workbook {

using detail::fail;

namespace {

const QRegularExpression &ownPattern()
{
    static const QRegularExpression pattern(QStringLiteral("^\\..+\\.saving-(\\d+)-[0-9a-f]{8}$"));
    return pattern;
}

// QSaveFile's name: the target name, a dot and six letters.
const QRegularExpression &earlierPattern()
{
    static const QRegularExpression pattern(QStringLiteral("^\\d{6}.*\\.xlsx\\.[A-Za-z]{6}$"));
    return pattern;
}

bool processRunning(qint64 pid)
{
#ifdef Q_OS_UNIX
    if (pid == QCoreApplication::applicationPid())
        return false;   // saves run one at a time: one of ours that is still there was interrupted
    return pid > 0 && (::kill(pid_t(pid), 0) == 0 || errno == EPERM);
#else
    Q_UNUSED(pid);
    return true;
#endif
}

bool stale(const QFileInfo &file)
{
    const QRegularExpressionMatch own = ownPattern().match(file.fileName());
    if (own.hasMatch()) {
#ifdef Q_OS_UNIX
        return !processRunning(own.captured(1).toLongLong());
#else
        return file.lastModified().secsTo(QDateTime::currentDateTime()) > 600;
#endif
    }
    if (!earlierPattern().match(file.fileName()).hasMatch())
        return false;
    // A shop's own backup may look the same; only a broken workbook goes.
    try {
        Workbook::open(file.filePath());
        return false;
    } catch (const WorkbookError &) {
        return true;
    }
}

void syncToDisk(QFile &file)
{
#ifdef Q_OS_UNIX
    ::fsync(file.handle());
#else
    Q_UNUSED(file);
#endif
}

} // namespace

bool isSaveTemporaryName(const QString &fileName)
{
    return ownPattern().match(fileName).hasMatch() || earlierPattern().match(fileName).hasMatch();
}

int removeStaleSaveTemporaries(const QString &folder)
{
    int removed = 0;
    const QFileInfoList files = QDir(folder).entryInfoList(QDir::Files | QDir::Hidden | QDir::System);
    for (const QFileInfo &file : files)
        if (isSaveTemporaryName(file.fileName()) && stale(file) && QFile::remove(file.filePath()))
            ++removed;
    return removed;
}

void replaceFileAtomically(const QString &path, const QByteArray &bytes, const SaveFault &fault)
{
    auto failed = [&](SaveStep step) { return fault && fault(step, path); };
    const QFileInfo target(path);
    removeStaleSaveTemporaries(target.absolutePath());

    const QString temporary =
        target.dir().filePath(QStringLiteral(".%1.saving-%2-%3")
                                  .arg(target.fileName())
                                  .arg(QCoreApplication::applicationPid())
                                  .arg(QRandomGenerator::global()->generate(), 8, 16, QLatin1Char('0')));
    QFile file(temporary);
    if (failed(SaveStep::OpenTemporary) || !file.open(QIODevice::WriteOnly | QIODevice::NewOnly))
        fail(ErrorKind::WriteFailed, QStringLiteral("%1: %2").arg(temporary, file.errorString()));
    auto abandon = [&](const QString &why) {
        file.close();
        QFile::remove(temporary);
        fail(ErrorKind::WriteFailed, why);
    };
    if (failed(SaveStep::Write)) {
        file.write(bytes.constData(), bytes.size() / 2);
        abandon(QStringLiteral("simulated write failure"));
    }
    if (file.write(bytes) != bytes.size() || !file.flush())
        abandon(file.errorString());
    syncToDisk(file);
    file.close();
    if (failed(SaveStep::Commit)) {
        QFile::remove(temporary);
        fail(ErrorKind::WriteFailed, QStringLiteral("simulated commit failure"));
    }
    // Replaces the target in one step (rename on POSIX, MoveFileEx with replacing on Windows).
    std::error_code error;
    std::filesystem::rename(std::filesystem::path(temporary.toStdU16String()),
                           std::filesystem::path(path.toStdU16String()), error);
    if (error) {
        QFile::remove(temporary);
        fail(ErrorKind::WriteFailed, QStringLiteral("%1: %2").arg(path, QString::fromStdString(error.message())));
    }
}

} // namespace est::workbook
