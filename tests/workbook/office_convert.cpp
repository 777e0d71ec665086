#include "office_convert.h"

#include <QDir>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>

namespace est::test {

QString soffice()
{
    return QStandardPaths::findExecutable(QStringLiteral("soffice"));
}

QStringList convertWithOffice(const QString &workbook, const QString &filter, const QString &outDir)
{
    QTemporaryDir profile;
    QProcess p;
    p.start(soffice(), {QStringLiteral("-env:UserInstallation=file://") + profile.path(), QStringLiteral("--headless"),
                        QStringLiteral("--convert-to"), filter, QStringLiteral("--outdir"), outDir, workbook});
    p.waitForFinished(180000);
    return QDir(outDir).entryList(QDir::Files);
}

} // namespace est::test
