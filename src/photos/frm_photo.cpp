#include "photos/frm_photo.h"

#include "photos/photo_album.h"
#include "photos/photo_import.h"
#include "uikit/named.h"

#include <QCoreApplication>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMimeData>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

namespace est::photos {

namespace {

constexpr int kThumbnail = 160;
const QString kTitle = QStringLiteral("写真");

QStringList localFiles(const QMimeData *data)
{
    QStringList paths;
    for (const QUrl &url : data->urls())
        if (url.isLocalFile())
            paths.append(url.toLocalFile());
    return paths;
}

} // namespace

PhotoChooser dialogPhotoChooser()
{
    return [](QWidget *parent) {
        QFileDialog dialog(parent, QStringLiteral("追加する写真"), QString(),
                           QStringLiteral("写真 (*.jpg *.jpeg *.png *.JPG *.JPEG *.PNG);;すべてのファイル (*)"));
        dialog.setFileMode(QFileDialog::ExistingFiles);
        dialog.setLabelText(QFileDialog::Accept, QStringLiteral("追加"));
        dialog.setLabelText(QFileDialog::Reject, QStringLiteral("キャンセル"));
        return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles() : QStringList();
    };
}

FrmPhoto::FrmPhoto(QList<EstimatePhoto> &photos, Messages &messages, PhotoChooser chooser, QWidget *parent)
    : QDialog(parent), m_photos(photos), m_messages(messages), m_chooser(std::move(chooser))
{
    setObjectName(QStringLiteral("frmPhoto"));
    setWindowTitle(kTitle);
    setAcceptDrops(true);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(new QLabel(QStringLiteral("写真（ファイルをここへドロップしても追加できます）"), this));
    m_list = ui::named(new QListWidget(this), "lstPhotos");
    m_list->setViewMode(QListView::IconMode);
    m_list->setIconSize(QSize(kThumbnail, kThumbnail));
    m_list->setMovement(QListView::Static);
    m_list->setResizeMode(QListView::Adjust);
    m_list->setWordWrap(true);
    m_list->setMinimumSize(720, 420);
    layout->addWidget(m_list);

    auto *captionRow = new QHBoxLayout;
    captionRow->addWidget(new QLabel(QStringLiteral("説明"), this));
    m_caption = ui::named(new QLineEdit(this), "txtCaption");
    m_caption->setMaxLength(100);
    captionRow->addWidget(m_caption);
    layout->addLayout(captionRow);
    m_progress = ui::named(new QProgressBar(this), "prgAdd");
    m_progress->hide();
    layout->addWidget(m_progress);

    auto *buttons = new QHBoxLayout;
    auto *add = ui::named(new QPushButton(QStringLiteral("追加"), this), "cmdAdd");
    m_up = ui::named(new QPushButton(QStringLiteral("前へ"), this), "cmdUp");
    m_down = ui::named(new QPushButton(QStringLiteral("後へ"), this), "cmdDown");
    m_remove = ui::named(new QPushButton(QStringLiteral("削除"), this), "cmdRemove");
    auto *close = ui::named(new QPushButton(QStringLiteral("閉じる"), this), "cmdClose");
    for (QPushButton *b : {add, m_up, m_down, m_remove})
        buttons->addWidget(b);
    buttons->addStretch();
    buttons->addWidget(close);
    layout->addLayout(buttons);

    connect(add, &QPushButton::clicked, this, [this] { addFiles(m_chooser(this)); });
    connect(m_up, &QPushButton::clicked, this, [this] { move(-1); });
    connect(m_down, &QPushButton::clicked, this, [this] { move(1); });
    connect(m_remove, &QPushButton::clicked, this, &FrmPhoto::remove);
    connect(close, &QPushButton::clicked, this, &QDialog::accept);
    connect(m_list, &QListWidget::currentRowChanged, this, &FrmPhoto::showCaption);
    connect(m_caption, &QLineEdit::textEdited, this, [this](const QString &text) {
        const int row = m_list->currentRow();
        if (row < 0 || row >= m_photos.size())
            return;
        m_photos[row].caption = text;
        m_list->item(row)->setText(QStringLiteral("写真%1\n%2").arg(row + 1).arg(text));
    });
    showPhotos(m_photos.isEmpty() ? -1 : 0);
}

void FrmPhoto::showPhotos(int current)
{
    const QSignalBlocker quiet(m_list);
    m_list->clear();
    for (qsizetype i = 0; i < m_photos.size(); ++i) {
        const QImage thumbnail = photoImage(m_photos[i].image, kThumbnail);
        auto *item = new QListWidgetItem(QIcon(QPixmap::fromImage(thumbnail)),
                                         QStringLiteral("写真%1\n%2").arg(i + 1).arg(m_photos[i].caption), m_list);
        item->setSizeHint(QSize(kThumbnail + 24, kThumbnail + 48));
    }
    m_list->setCurrentRow(current);
    showCaption();
}

void FrmPhoto::showCaption()
{
    const int row = m_list->currentRow();
    const bool chosen = row >= 0 && row < m_photos.size();
    m_caption->setText(chosen ? m_photos[row].caption : QString());
    m_caption->setEnabled(chosen);
    m_up->setEnabled(chosen && row > 0);
    m_down->setEnabled(chosen && row + 1 < m_photos.size());
    m_remove->setEnabled(chosen);
}

void FrmPhoto::addFiles(const QStringList &paths)
{
    if (paths.isEmpty())
        return;
    if (m_photos.size() >= kMaxPhotos) {
        m_messages.inform(outcomeMessage(AddOutcome{0, {}, int(paths.size())}), kTitle, MessageIcon::Exclamation);
        return;
    }
    const qsizetype before = m_photos.size();
    m_progress->setRange(0, int(paths.size()));
    m_progress->setValue(0);
    m_progress->show();
    const AddOutcome outcome = addPhotos(m_photos, paths, [this](int done, int) {
        m_progress->setValue(done);
        // The bar moves while the photos are read; nothing typed meanwhile reaches the screen.
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    });
    m_progress->hide();
    showPhotos(outcome.added > 0 ? int(before) : m_list->currentRow());
    const QString message = outcomeMessage(outcome);
    if (!message.isEmpty())
        m_messages.inform(message, kTitle, MessageIcon::Exclamation);
}

void FrmPhoto::move(int by)
{
    const int row = m_list->currentRow();
    if (movePhoto(m_photos, row, row + by))
        showPhotos(row + by);
}

void FrmPhoto::remove()
{
    const int row = m_list->currentRow();
    if (row < 0 || row >= m_photos.size())
        return;
    if (m_messages.askYesNo(QStringLiteral("写真%1を削除しますか？").arg(row + 1), kTitle, MessageIcon::Question) != Answer::Yes)
        return;
    m_photos.removeAt(row);
    showPhotos(std::min(row, int(m_photos.size()) - 1));
}

void FrmPhoto::dragEnterEvent(QDragEnterEvent *event)
{
    if (!localFiles(event->mimeData()).isEmpty())
        event->acceptProposedAction();
}

void FrmPhoto::dropEvent(QDropEvent *event)
{
    const QStringList paths = localFiles(event->mimeData());
    if (paths.isEmpty())
        return;
    event->acceptProposedAction();
    addFiles(paths);
}

} // namespace est::photos
