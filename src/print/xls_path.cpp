#include "print/xls_path.h"

#include "db/app_folder.h"
#include "sheet/company_block.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

namespace est::print {

QString xlsPathFile(const QString &appFolder)
{
    return db::resolve(appFolder, QStringLiteral("temp\\xlsPath.txt"));
}

QString readXlsPath(const QString &appFolder)
{
    QFile file(xlsPathFile(appFolder));
    if (!file.open(QIODevice::ReadOnly))
        return QString();
    // The file is read as input fields, like the company file: the first one is the path.
    return sheet::parseCompanyFile(file.readAll()).value(0);
}

QString writeXlsPath(const QString &appFolder, const QString &program)
{
    const QString path = xlsPathFile(appFolder);
    QDir().mkpath(QFileInfo(path).absolutePath());
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return file.errorString();
    QString quoted = program;
    quoted.remove(QLatin1Char('"'));   // a quote would end the field early
    file.write((QLatin1Char('"') + quoted + QStringLiteral("\"\r\n")).toUtf8());
    if (!file.commit())
        return file.errorString();
    return QString();
}

bool isWorkbookFileName(const QString &name)
{
    return name.endsWith(QLatin1String("xls"), Qt::CaseInsensitive)
           || name.endsWith(QLatin1String("xlsx"), Qt::CaseInsensitive);
}

} // namespace est::print
