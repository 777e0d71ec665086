#pragma once
// The estimate's photos as the screen changes them: adding files (at most kMaxPhotos and
// kMaxPhotoBytes together, the unreadable ones refused by name), moving and removing.

#include "common/session.h"

#include <QStringList>

#include <functional>

namespace est::photos {

struct AddOutcome
{
    int added = 0;
    QStringList refused;   // file names that are not a readable JPEG or PNG
    int leftOut = 0;       // files not added because the estimate has kMaxPhotos
    int tooMuch = 0;       // files not added because the photos would pass kMaxPhotoBytes
};

// Adds the files in order after the photos there are; progress(done, total) after each file.
AddOutcome addPhotos(QList<EstimatePhoto> &photos, const QStringList &paths,
                     const std::function<void(int, int)> &progress = {});
// What the user is told: each refused file by name, then the limit when it was reached;
// empty when everything was added.
QString outcomeMessage(const AddOutcome &outcome);
// Moves the photo at from to the place to (both valid indexes); false when nothing moved.
bool movePhoto(QList<EstimatePhoto> &photos, int from, int to);

} // namespace est::photos
