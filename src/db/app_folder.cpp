#include "db/app_folder.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>
#include <QStringList>

namespace est::db {

QString applicationFolderFor(const QString &programFolder)
{
    const QByteArray home = qgetenv("ESTIMATE_APP_HOME");
    if (!home.isEmpty())
        return QDir::cleanPath(QString::fromLocal8Bit(home));
    if (QFileInfo::exists(joinPath(programFolder, kAppFolderMarker)))
        return programFolder;
    return QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
}

QString applicationFolder()
{
    return applicationFolderFor(QCoreApplication::applicationDirPath());
}

QString joinPath(const QString &folder, const QString &relative)
{
    if (folder.endsWith(QLatin1Char('/')) || folder.endsWith(QDir::separator()))
        return folder + relative;
    return folder + QLatin1Char('/') + relative;
}

QString mapRelativePath(const QString &relative)
{
    QString path = relative;
    path.replace(QLatin1Char('\\'), QLatin1Char('/'));
    QStringList parts = path.split(QLatin1Char('/'));
    if (!parts.isEmpty() && parts.size() > 1) {
        QString &first = parts.first();
        const QString lower = first.toLower();
        if (lower == QLatin1String("temp"))
            first = QStringLiteral("temp");
        else if (lower == QLatin1String("data"))
            first = QStringLiteral("Data");
        else if (lower == QLatin1String("mitsumori"))
            first = QStringLiteral("Mitsumori");
    }
    QString &last = parts.last();
    if (last.endsWith(QLatin1String(".mdb"), Qt::CaseInsensitive))
        last = last.left(last.size() - 4) + QStringLiteral(".sqlite");
    else if (last.endsWith(QLatin1String(".xls"), Qt::CaseInsensitive))
        last = last.left(last.size() - 4) + QStringLiteral(".xlsx");
    return parts.join(QLatin1Char('/'));
}

QString resolve(const QString &folder, const QString &relative)
{
    return joinPath(folder, mapRelativePath(relative));
}

} // namespace est::db
