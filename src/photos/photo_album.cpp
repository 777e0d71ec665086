#include "photos/photo_album.h"

#include "photos/photo_import.h"

#include <QFileInfo>

namespace est::photos {

AddOutcome addPhotos(QList<EstimatePhoto> &photos, const QStringList &paths, const std::function<void(int, int)> &progress)
{
    AddOutcome outcome;
    qsizetype bytes = 0;
    for (const EstimatePhoto &p : photos)
        bytes += p.image.size();
    for (qsizetype i = 0; i < paths.size(); ++i) {
        if (photos.size() >= kMaxPhotos) {
            outcome.leftOut = int(paths.size() - i);
            break;
        }
        if (std::optional<EstimatePhoto> photo = importPhoto(paths[i])) {
            if (bytes + photo->image.size() > kMaxPhotoBytes) {
                outcome.tooMuch = int(paths.size() - i);
                break;
            }
            bytes += photo->image.size();
            photos.append(std::move(*photo));
            ++outcome.added;
        } else {
            outcome.refused.append(QFileInfo(paths[i]).fileName());
        }
        if (progress)
            progress(int(i + 1), int(paths.size()));
    }
    return outcome;
}

QString outcomeMessage(const AddOutcome &outcome)
{
    QStringList lines;
    for (const QString &name : outcome.refused)
        lines.append(name + QStringLiteral("\n") + kUnreadablePhoto);
    if (outcome.leftOut > 0)
        lines.append(QStringLiteral("写真は1つの見積に%1枚までです。%2枚は追加しませんでした。").arg(kMaxPhotos).arg(outcome.leftOut));
    if (outcome.tooMuch > 0)
        lines.append(QStringLiteral("写真の合計が大きすぎます（%1 MBまで）。%2枚は追加しませんでした。")
                         .arg(kMaxPhotoBytes / (1024 * 1024))
                         .arg(outcome.tooMuch));
    return lines.join(QStringLiteral("\n\n"));
}

bool movePhoto(QList<EstimatePhoto> &photos, int from, int to)
{
    if (from == to || from < 0 || to < 0 || from >= photos.size() || to >= photos.size())
        return false;
    photos.move(from, to);
    return true;
}

} // namespace est::photos
