#pragma once
// frmPhoto: the estimate's photos as thumbnails in order (lstPhotos), each with its caption
// (txtCaption edits the chosen one's); 追加 (cmdAdd, a file dialog choosing several) or files
// dropped on the window add photos with a progress bar (prgAdd); 前へ / 後へ (cmdUp, cmdDown)
// move the chosen one; 削除 (cmdRemove) removes it after asking; 閉じる (cmdClose).
// The photos are the session's: every change is made there at once.

#include "common/messages.h"
#include "common/session.h"

#include <QDialog>
#include <functional>

class QLineEdit;
class QListWidget;
class QProgressBar;
class QPushButton;

namespace est::photos {

// Asks for photo files: the chosen paths, empty when the user cancelled.
using PhotoChooser = std::function<QStringList(QWidget *parent)>;
// The file dialog choosing several files (photos first, any file allowed).
PhotoChooser dialogPhotoChooser();

class FrmPhoto : public QDialog
{
    Q_OBJECT
public:
    FrmPhoto(QList<EstimatePhoto> &photos, Messages &messages, PhotoChooser chooser, QWidget *parent = nullptr);

    // Adds the files (as 追加 and dropping do), then tells what was refused.
    void addFiles(const QStringList &paths);

protected:
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    void showPhotos(int current);
    void showCaption();
    void move(int by);
    void remove();

    QList<EstimatePhoto> &m_photos;
    Messages &m_messages;
    PhotoChooser m_chooser;
    QListWidget *m_list;
    QLineEdit *m_caption;
    QProgressBar *m_progress;
    QPushButton *m_up;
    QPushButton *m_down;
    QPushButton *m_remove;
};

} // namespace est::photos
