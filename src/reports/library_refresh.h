#pragma once
// Keeping the estimate library in step with the workbooks in Mitsumori: find what was
// added, changed or deleted since the index was last brought up to date, then read the
// changed workbooks (reporting progress, cancellable), or record one workbook just saved.

#include "reports/estimate_library.h"

#include <QHash>
#include <QStringList>
#include <functional>

namespace est::reports {

struct LibraryChanges
{
    QStringList toRead;                   // new or changed workbooks, relative names
    QStringList gone;                     // indexed workbooks that no longer exist
    QHash<QString, FileStamp> onDisk;     // stamps of every workbook found
    bool empty() const { return toRead.isEmpty() && gone.isEmpty(); }
};

// Every *.xlsx below the folder (subfolders too) except the template's name.
QHash<QString, FileStamp> workbooksIn(const QString &folder);
FileStamp stampOf(const QString &path);

LibraryChanges findChanges(const EstimateLibrary &library, const QString &folder);

struct RefreshOutcome
{
    int read = 0;
    int unreadable = 0;
    int removed = 0;
    bool cancelled = false;
    QString error;
};

// Called after each workbook with (done, total); returning false cancels. What was read
// before a cancel stays in the index.
using RefreshProgress = std::function<bool(int done, int total)>;

RefreshOutcome applyChanges(EstimateLibrary &library, const QString &folder, const LibraryChanges &changes,
                            const RefreshProgress &progress = {});

// Records the estimate just saved to `path` (below `folder`) from the session that was
// written, without reading the workbook again. Returns an error text.
QString recordSaved(EstimateLibrary &library, const QString &folder, const QString &path, const Session &session);

} // namespace est::reports
