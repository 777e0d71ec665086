#include "reports/library_refresh.h"

#include "db/transaction_guard.h"
#include "reports/sales_report.h"
#include "workbook/estimate_files.h"

#include <QDir>
#include <QDirIterator>
#include <QFileInfo>

namespace est::reports {

namespace {

// Changes are committed in batches, so a cancel or a crash keeps most of the work done.
constexpr int kBatch = 200;

} // namespace

FileStamp stampOf(const QString &path)
{
    const QFileInfo info(path);
    return {info.lastModified().toMSecsSinceEpoch(), info.size()};
}

QHash<QString, FileStamp> workbooksIn(const QString &folder)
{
    QHash<QString, FileStamp> found;
    const QDir root(folder);
    QDirIterator it(folder, {QStringLiteral("*.xlsx"), QStringLiteral("*.xls")}, QDir::Files,
                    QDirIterator::Subdirectories);
    while (it.hasNext()) {
        it.next();
        const QFileInfo info = it.fileInfo();
        // What the open dialog lists, without the template's name, which it refuses, and the
        // sales reports, which are not estimates.
        if (!workbook::isEstimateFileName(info.fileName()) || workbook::isTemplateFileName(info.fileName()) ||
            info.fileName().endsWith(kSalesReportSuffix))
            continue;
        // An .xls saved again as .xlsx beside it is that estimate's older copy: counted once.
        if (workbook::isLegacyFileName(info.fileName()) &&
            QFileInfo::exists(info.dir().filePath(workbook::xlsxNameFor(info.fileName()))))
            continue;
        found.insert(root.relativeFilePath(info.filePath()),
                     {info.lastModified().toMSecsSinceEpoch(), info.size()});
    }
    return found;
}

LibraryChanges findChanges(const EstimateLibrary &library, const QString &folder)
{
    LibraryChanges changes;
    changes.onDisk = workbooksIn(folder);
    const QHash<QString, FileStamp> indexed = library.stamps();
    for (auto it = changes.onDisk.cbegin(); it != changes.onDisk.cend(); ++it) {
        const auto known = indexed.constFind(it.key());
        if (known == indexed.cend() || *known != it.value())
            changes.toRead.append(it.key());
    }
    for (auto it = indexed.cbegin(); it != indexed.cend(); ++it)
        if (!changes.onDisk.contains(it.key()))
            changes.gone.append(it.key());
    changes.toRead.sort();
    return changes;
}

RefreshOutcome applyChanges(EstimateLibrary &library, const QString &folder, const LibraryChanges &changes,
                            const RefreshProgress &progress)
{
    RefreshOutcome outcome;
    const QDir root(folder);
    const int total = int(changes.toRead.size());
    auto guard = std::make_unique<db::TransactionGuard>(library.database());
    for (const QString &gone : changes.gone) {
        if (const QString error = library.remove(gone); !error.isEmpty()) {
            outcome.error = error;
            return outcome;
        }
        ++outcome.removed;
    }
    for (int i = 0; i < total; ++i) {
        const QString &name = changes.toRead.at(i);
        const EstimateSummary summary = readSummary(root.filePath(name), name);
        if (const QString error = library.store(summary, changes.onDisk.value(name)); !error.isEmpty()) {
            outcome.error = error;
            return outcome;
        }
        ++outcome.read;
        if (!summary.readable)
            ++outcome.unreadable;
        if ((i + 1) % kBatch == 0) {
            guard->commit();
            guard = std::make_unique<db::TransactionGuard>(library.database());
        }
        if (progress && !progress(i + 1, total)) {
            outcome.cancelled = true;
            break;
        }
    }
    guard->commit();
    return outcome;
}

QString recordSaved(EstimateLibrary &library, const QString &folder, const QString &path, const Session &session)
{
    const QString name = QDir(folder).relativeFilePath(path);
    return library.store(summarize(session, name), stampOf(path));
}

} // namespace est::reports
