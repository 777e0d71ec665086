// libFuzzer target for the backup check: any bytes as an archive are refused or accepted
// without crashing, and an accepted archive lists only names inside the three folders.

#include "reports/backup_archive.h"

#include <QFile>
#include <QTemporaryDir>
#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, size_t size)
{
    static QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("input.zip"));
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        return 0;
    file.write(reinterpret_cast<const char *>(data), qint64(size));
    file.close();
    const est::reports::BackupCheck check = est::reports::checkBackup(path);
    for (const QString &name : check.files)
        if (name.contains(QStringLiteral("..")) || name.startsWith(QLatin1Char('/')))
            std::abort();
    return 0;
}
