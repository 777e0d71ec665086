#include "reports/legacy_conversion.h"

#include "common/session.h"
#include "workbook/estimate_files.h"
#include "workbook/estimate_layout.h"
#include "workbook/xls_book.h"

#include <QDir>
#include <QDirIterator>
#include <QFileInfo>

namespace est::reports {

QStringList legacyEstimatesBelow(const QString &folder)
{
    QStringList found;
    const QDir root(folder);
    QDirIterator it(folder, {QStringLiteral("*.xls")}, QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        it.next();
        const QString name = it.fileInfo().fileName();
        if (workbook::isLegacyFileName(name) && workbook::isEstimateFileName(name) && !workbook::isTemplateFileName(name))
            found.append(root.relativeFilePath(it.filePath()));
    }
    found.sort();
    return found;
}

QString conversionTarget(const QString &folder, const QString &relative, ConversionPlace place,
                         const QString &appFolder)
{
    const QString base = place == ConversionPlace::Beside ? folder : workbook::estimatesFolder(appFolder);
    return QDir(base).filePath(workbook::xlsxNameFor(relative));
}

namespace {

// Empty when converted, else why not.
QString convertOne(const QString &source, const QString &target, const QString &appFolder)
{
    try {
        auto book = workbook::openForReading(source);
        Session session;
        workbook::readEstimate(*book, session);
        if (!QDir().mkpath(QFileInfo(target).path()))
            throw workbook::WorkbookError(workbook::ErrorKind::WriteFailed, target);
        workbook::writeEstimateWorkbook(workbook::templatePath(appFolder), session, target);
        return QString();
    } catch (const workbook::WorkbookError &e) {
        return workbook::describeError(e);
    } catch (const std::exception &e) {
        return QString::fromUtf8(e.what());
    }
}

} // namespace

ConversionOutcome convertLegacyEstimates(const QString &folder, const QStringList &files, ConversionPlace place,
                                         const QString &appFolder, const ConversionProgress &progress)
{
    ConversionOutcome outcome;
    QString templateError;
    if (!workbook::ensureTemplate(appFolder, &templateError)) {
        for (const QString &file : files)
            outcome.failures.append({file, templateError});
        return outcome;
    }
    const int total = int(files.size());
    for (int i = 0; i < total; ++i) {
        const QString &file = files.at(i);
        const QString target = conversionTarget(folder, file, place, appFolder);
        if (QFileInfo::exists(target)) {
            ++outcome.skipped;
        } else if (const QString reason = convertOne(QDir(folder).filePath(file), target, appFolder); reason.isEmpty()) {
            ++outcome.converted;
        } else {
            outcome.failures.append({file, reason});
        }
        if (progress && !progress(i + 1, total) && i + 1 < total) {
            outcome.cancelled = true;
            break;
        }
    }
    return outcome;
}

} // namespace est::reports
