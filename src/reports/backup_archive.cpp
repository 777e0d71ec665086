#include "reports/backup_archive.h"

#include "db/database.h"

#include <QDateTime>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <zip.h>

#include <memory>

namespace est::reports {

namespace {

const QString kManifest = QStringLiteral("BACKUP-INFO.txt");
const QByteArray kMagic = QByteArrayLiteral("EstimateApp backup 1");
const QStringList kFolders{QStringLiteral("temp"), QStringLiteral("Data"), QStringLiteral("Mitsumori")};
const QString kStaging = QStringLiteral(".restore");

constexpr qint64 kMaxEntryBytes = qint64(2) * 1024 * 1024 * 1024;
constexpr int kMaxEntries = 200000;

struct ZipCloser
{
    void operator()(zip_t *z) const { zip_discard(z); }
};
using Zip = std::unique_ptr<zip_t, ZipCloser>;

// Transient files, and the estimate library, which is only an index of Mitsumori and is
// built again after a restore.
bool transient(const QString &name)
{
    return name == QStringLiteral("temp/Library.sqlite") || name.endsWith(QStringLiteral("-journal")) || name.endsWith(QStringLiteral("-wal")) ||
           name.endsWith(QStringLiteral("-shm")) || name.endsWith(QStringLiteral(".new"));
}

// A name the archive may hold: relative, "/"-separated, inside one of the three folders.
bool safeName(const QString &name)
{
    if (name.isEmpty() || name.startsWith(QLatin1Char('/')) || name.contains(QLatin1Char('\\')) ||
        name.contains(QLatin1Char(':')))
        return false;
    const QStringList parts = name.split(QLatin1Char('/'));
    if (parts.size() < 2 || !kFolders.contains(parts.first()))
        return false;
    for (const QString &part : parts)
        if (part.isEmpty() || part == QStringLiteral(".") || part == QStringLiteral(".."))
            return false;
    return true;
}

QByteArray manifestOf(const QStringList &files, const QString &appFolder)
{
    QByteArray text = kMagic + '\n';
    for (const QString &f : files)
        text += QByteArray::number(QFileInfo(QDir(appFolder).filePath(f)).size()) + '\t' + f.toUtf8() + '\n';
    return text;
}

// Reads one entry whole; libzip checks its CRC when the end is reached.
bool readEntry(zip_t *z, zip_uint64_t index, qint64 size, QByteArray *out, QString *error)
{
    zip_file_t *f = zip_fopen_index(z, index, 0);
    if (!f) {
        *error = QString::fromUtf8(zip_strerror(z));
        return false;
    }
    QByteArray data(size, Qt::Uninitialized);
    qint64 got = 0;
    while (got < size) {
        const zip_int64_t n = zip_fread(f, data.data() + got, zip_uint64_t(size - got));
        if (n <= 0)
            break;
        got += n;
    }
    char extra = 0;
    const zip_int64_t more = got == size ? zip_fread(f, &extra, 1) : -1;
    *error = QString::fromUtf8(zip_file_strerror(f));
    zip_fclose(f);
    if (got != size || more != 0)
        return false;
    if (out)
        *out = std::move(data);
    return true;
}

} // namespace

QString backupFileName(QDate day)
{
    return QStringLiteral("見積バックアップ_") + day.toString(QStringLiteral("yyyyMMdd")) + QStringLiteral(".zip");
}

QStringList backupFiles(const QString &appFolder)
{
    QStringList files;
    const QDir root(appFolder);
    for (const QString &folder : kFolders) {
        QDirIterator it(root.filePath(folder), QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
        while (it.hasNext()) {
            it.next();
            const QString relative = root.relativeFilePath(it.filePath());
            if (!transient(relative) && safeName(relative))
                files.append(relative);
        }
    }
    files.sort();
    return files;
}

BackupResult writeBackup(const QString &appFolder, const QString &target)
{
    BackupResult result;
    result.path = target;
    const QStringList files = backupFiles(appFolder);
    const QString temporary = target + QStringLiteral(".new");
    QFile::remove(temporary);
    int zipError = 0;
    zip_t *z = zip_open(QFile::encodeName(temporary).constData(), ZIP_CREATE | ZIP_TRUNCATE, &zipError);
    if (!z) {
        result.error = QStringLiteral("%1 を作成できません。").arg(target);
        return result;
    }
    auto fail = [&](const QString &why) {
        zip_discard(z);
        QFile::remove(temporary);
        result.error = why;
        return result;
    };
    const QDir root(appFolder);
    const QByteArray manifest = manifestOf(files, appFolder);
    // The manifest's bytes must outlive zip_close, which reads every source.
    auto *manifestCopy = new QByteArray(manifest);
    zip_source_t *ms = zip_source_buffer(z, manifestCopy->constData(), zip_uint64_t(manifestCopy->size()), 0);
    std::unique_ptr<QByteArray> manifestOwner(manifestCopy);
    if (!ms || zip_file_add(z, kManifest.toUtf8().constData(), ms, ZIP_FL_ENC_UTF_8) < 0)
        return fail(QString::fromUtf8(zip_strerror(z)));
    for (const QString &f : files) {
        const QString path = root.filePath(f);
        zip_source_t *src = zip_source_file(z, QFile::encodeName(path).constData(), 0, -1);
        if (!src)
            return fail(QStringLiteral("%1 を読めません。").arg(f));
        const zip_int64_t index = zip_file_add(z, f.toUtf8().constData(), src, ZIP_FL_ENC_UTF_8);
        if (index < 0) {
            zip_source_free(src);
            return fail(QString::fromUtf8(zip_strerror(z)));
        }
        zip_file_set_mtime(z, zip_uint64_t(index), time_t(QFileInfo(path).lastModified().toSecsSinceEpoch()), 0);
    }
    if (zip_close(z) != 0) {
        const QString why = QString::fromUtf8(zip_strerror(z));
        return fail(QStringLiteral("%1 に書き込めません。\n").arg(target) + why);
    }
    QFile::remove(target);
    if (!QFile::rename(temporary, target)) {
        QFile::remove(temporary);
        result.error = QStringLiteral("%1 に書き込めません。").arg(target);
        return result;
    }
    result.files = int(files.size());
    return result;
}

BackupCheck checkBackup(const QString &archive)
{
    BackupCheck check;
    int zipError = 0;
    Zip z(zip_open(QFile::encodeName(archive).constData(), ZIP_RDONLY | ZIP_CHECKCONS, &zipError));
    if (!z) {
        check.error = QStringLiteral("バックアップファイル（zip）として読めません。");
        return check;
    }
    const zip_int64_t count = zip_get_num_entries(z.get(), 0);
    if (count <= 0 || count > kMaxEntries) {
        check.error = QStringLiteral("このファイルは見積プログラムのバックアップではありません。");
        return check;
    }
    const zip_int64_t manifestIndex = zip_name_locate(z.get(), kManifest.toUtf8().constData(), ZIP_FL_ENC_UTF_8);
    zip_stat_t ms;
    zip_stat_init(&ms);
    QByteArray manifest;
    QString error;
    if (manifestIndex < 0 || zip_stat_index(z.get(), zip_uint64_t(manifestIndex), 0, &ms) != 0 ||
        ms.size > 64 * 1024 * 1024 || !readEntry(z.get(), zip_uint64_t(manifestIndex), qint64(ms.size), &manifest, &error) ||
        !manifest.startsWith(kMagic + '\n')) {
        check.error = QStringLiteral("このファイルは見積プログラムのバックアップではありません。");
        return check;
    }
    QHash<QString, qint64> listed;
    const QList<QByteArray> lines = manifest.split('\n');
    for (qsizetype i = 1; i < lines.size(); ++i) {
        if (lines.at(i).isEmpty())
            continue;
        const qsizetype tab = lines.at(i).indexOf('\t');
        bool ok = false;
        const qint64 size = tab > 0 ? lines.at(i).left(tab).toLongLong(&ok) : -1;
        const QString name = QString::fromUtf8(lines.at(i).mid(tab + 1));
        if (!ok || !safeName(name)) {
            check.error = QStringLiteral("バックアップの目録が壊れています。");
            return check;
        }
        listed.insert(name, size);
    }
    for (zip_int64_t i = 0; i < count; ++i) {
        zip_stat_t st;
        zip_stat_init(&st);
        if (zip_stat_index(z.get(), zip_uint64_t(i), ZIP_FL_ENC_UTF_8, &st) != 0 || !(st.valid & ZIP_STAT_NAME) ||
            !(st.valid & ZIP_STAT_SIZE)) {
            check.error = QStringLiteral("バックアップが壊れています。");
            return check;
        }
        const QString name = QString::fromUtf8(st.name);
        if (i == manifestIndex)
            continue;
        if (!safeName(name) || !listed.contains(name) || qint64(st.size) != listed.value(name) ||
            st.size > zip_uint64_t(kMaxEntryBytes)) {
            check.error = QStringLiteral("バックアップに想定外のファイルがあります：%1").arg(name);
            return check;
        }
        if (!readEntry(z.get(), zip_uint64_t(i), qint64(st.size), nullptr, &error)) {
            check.error = QStringLiteral("バックアップが壊れています（%1）。\n%2").arg(name, error);
            return check;
        }
        check.files.append(name);
        check.bytes += qint64(st.size);
        listed.remove(name);
    }
    if (!listed.isEmpty()) {
        check.error = QStringLiteral("バックアップに足りないファイルがあります：%1").arg(listed.keys().first());
        check.files.clear();
    }
    return check;
}

QString restoreBackup(const QString &appFolder, const QString &archive, BackupCheck *checked)
{
    const BackupCheck check = checkBackup(archive);
    if (checked)
        *checked = check;
    if (!check.error.isEmpty())
        return check.error;
    int zipError = 0;
    Zip z(zip_open(QFile::encodeName(archive).constData(), ZIP_RDONLY, &zipError));
    if (!z)
        return QStringLiteral("バックアップファイル（zip）として読めません。");

    // Everything is unpacked beside the data first; only then is anything replaced.
    const QDir root(appFolder);
    QDir staging(root.filePath(kStaging));
    staging.removeRecursively();
    for (const QString &name : check.files) {
        const zip_int64_t index = zip_name_locate(z.get(), name.toUtf8().constData(), ZIP_FL_ENC_UTF_8);
        zip_stat_t st;
        zip_stat_init(&st);
        QByteArray data;
        QString error;
        if (index < 0 || zip_stat_index(z.get(), zip_uint64_t(index), 0, &st) != 0 ||
            !readEntry(z.get(), zip_uint64_t(index), qint64(st.size), &data, &error)) {
            staging.removeRecursively();
            return QStringLiteral("バックアップが壊れています（%1）。").arg(name);
        }
        const QString path = staging.filePath(name);
        QDir().mkpath(QFileInfo(path).path());
        QFile out(path);
        if (!out.open(QIODevice::WriteOnly) || out.write(data) != data.size()) {
            staging.removeRecursively();
            return QStringLiteral("%1 を書き出せません。").arg(name);
        }
        out.close();
        if (st.valid & ZIP_STAT_MTIME)
            out.setFileTime(QDateTime::fromSecsSinceEpoch(st.mtime), QFileDevice::FileModificationTime);
    }
    QStringList failed;
    for (const QString &name : check.files) {
        const QString target = root.filePath(name);
        if (target.endsWith(QStringLiteral(".sqlite")))
            db::closeDatabase(target);
        QDir().mkpath(QFileInfo(target).path());
        QFile::remove(target);
        if (!QFile::rename(staging.filePath(name), target))
            failed.append(name);
    }
    staging.removeRecursively();
    if (!failed.isEmpty())
        return QStringLiteral("次のファイルを戻せませんでした：\n") + failed.join(QLatin1Char('\n'));
    return {};
}

} // namespace est::reports
