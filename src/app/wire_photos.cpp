// Photos of the damage: frmPhoto from the sheet's "写真", on the open estimate's photos.

#include "app/wiring.h"
#include "photos/frm_photo.h"
#include "sheet/frm_mitumori.h"

namespace est::app {

void wirePhotos(AppContext &context)
{
    sheet::FrmMitumori *frm = context.sheet;
    frm->setButtonEnabled(sheet::SheetButton::Photo, true);
    QObject::connect(frm, &sheet::FrmMitumori::openRequested, frm, [&context](sheet::SheetButton b) {
        if (b != sheet::SheetButton::Photo)
            return;
        photos::FrmPhoto photos(context.session.photos, context.messages, photos::dialogPhotoChooser(), context.sheet);
        photos.exec();
    });
}

} // namespace est::app
