#include "workbook/revisions.h"

#include "workbook/estimate_files.h"
#include "workbook/estimate_layout.h"

#include <QDir>
#include <QFileInfo>
#include <QMap>
#include <QRegularExpression>
#include <algorithm>

namespace est::workbook {

RevisionName parseRevisionName(const QString &fileName)
{
    static const QRegularExpression pattern(QStringLiteral("^(.*)_R([0-9]{1,3})\\.xlsx?$"),
                                            QRegularExpression::CaseInsensitiveOption);
    const QRegularExpressionMatch m = pattern.match(fileName);
    if (m.hasMatch() && m.captured(2).toInt() >= 2 && !m.captured(1).isEmpty())
        return {m.captured(1), m.captured(2).toInt()};
    const qsizetype dot = fileName.lastIndexOf(QLatin1Char('.'));
    const qsizetype slash = fileName.lastIndexOf(QLatin1Char('/'));
    return {dot > slash ? fileName.left(dot) : fileName, 1};
}

QString revisionFileName(const QString &base, int revision)
{
    return revision > 1 ? QStringLiteral("%1_R%2.xlsx").arg(base).arg(revision) : base + QStringLiteral(".xlsx");
}

QList<RevisionGroup> groupRevisions(const QStringList &fileNames)
{
    QMap<QString, QList<std::pair<int, QString>>> byBase;
    for (const QString &name : fileNames) {
        const RevisionName r = parseRevisionName(name);
        byBase[r.base].append({r.revision, name});
    }
    QList<RevisionGroup> groups;
    for (auto it = byBase.begin(); it != byBase.end(); ++it) {
        auto files = it.value();
        // Newest first; of one revision in both formats, the .xlsx first.
        std::stable_sort(files.begin(), files.end(), [](const auto &a, const auto &b) {
            if (a.first != b.first)
                return a.first > b.first;
            return a.second.endsWith(QLatin1String(".xlsx"), Qt::CaseInsensitive)
                   && !b.second.endsWith(QLatin1String(".xlsx"), Qt::CaseInsensitive);
        });
        RevisionGroup group{it.key(), {}};
        for (const auto &f : files)
            group.files.append(f.second);
        groups.append(group);
    }
    return groups;
}

int newestRevision(const QString &folder, const QString &base)
{
    const QString name = QFileInfo(base).fileName();
    const QString dir = QFileInfo(QDir(folder).filePath(base)).path();
    int newest = 1;
    for (const QString &file : estimateFileNames(dir)) {
        const RevisionName r = parseRevisionName(file);
        if (r.base == name)
            newest = std::max(newest, r.revision);
    }
    return newest;
}

int beginNextRevision(Session &session, const QString &estimatesFolder)
{
    const RevisionName current = parseRevisionName(session.fileName);
    const int next = std::max<int>(newestRevision(estimatesFolder, current.base), session.revision) + 1;
    if (next > kMaxRevision)
        return 0;
    session.revision = std::int16_t(next);
    session.fileName = revisionFileName(current.base, next);
    session.workbookPath.clear();
    return next;
}

} // namespace est::workbook
