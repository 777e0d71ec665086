#pragma once
// Revised estimates: revision 1 is "<name>.xlsx", revision 2 "<name>_R2.xlsx" (修正2) and so
// on, beside it; earlier revisions are never written again. The revision is also kept in
// the workbook (estimate_layout.h).

#include "common/session.h"

#include <QList>
#include <QString>
#include <QStringList>

namespace est::workbook {

struct RevisionName
{
    QString base;       // "sub/240105A" (folder part kept, no extension, no "_R2")
    int revision = 1;
};

// "240105A_R3.xlsx" -> {"240105A", 3}; "240105A.xlsx" or ".xls" -> {"240105A", 1}.
RevisionName parseRevisionName(const QString &fileName);
// {"240105A", 3} -> "240105A_R3.xlsx"; revision 1 -> "240105A.xlsx".
QString revisionFileName(const QString &base, int revision);

// The estimates of one folder with their revisions: one group per base name, the newest
// revision first; groups in the order of their base names.
struct RevisionGroup
{
    QString base;
    QStringList files;   // newest first
};
QList<RevisionGroup> groupRevisions(const QStringList &fileNames);

// The highest revision of that base among the files of the folder (1 when there is none).
int newestRevision(const QString &folder, const QString &base);

// Turns the open estimate into its next revision: the number after the newest one in the
// estimates folder (so no earlier revision is ever overwritten), the new file name beside
// the old one, and no workbook yet. Returns the new revision, 0 (nothing changed) when
// the estimate has as many revisions as a workbook can number.
int beginNextRevision(Session &session, const QString &estimatesFolder);

} // namespace est::workbook
