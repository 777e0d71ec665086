#include "reports/library_progress.h"

#include <QApplication>
#include <QProgressDialog>

namespace est::reports {

RefreshOutcome refreshWithProgress(EstimateLibrary &library, const QString &folder, QWidget *parent)
{
    const LibraryChanges changes = findChanges(library, folder);
    if (changes.empty())
        return {};
    if (changes.toRead.size() < kProgressFrom)
        return applyChanges(library, folder, changes);

    QProgressDialog progress(QStringLiteral("見積ファイルの一覧を更新しています…"), QStringLiteral("中止"), 0,
                             int(changes.toRead.size()), parent);
    progress.setObjectName(QStringLiteral("dlgLibraryProgress"));
    progress.setWindowTitle(QStringLiteral("見積ファイルの一覧"));
    progress.setWindowModality(Qt::WindowModal);
    progress.setMinimumDuration(0);
    progress.setValue(0);
    return applyChanges(library, folder, changes, [&progress](int done, int) {
        progress.setValue(done);
        QApplication::processEvents();
        return !progress.wasCanceled();
    });
}

} // namespace est::reports
