// Photos through the screens: frmPhoto from the sheet adds dropped files (refusing the one
// that is no photo by name), captions, reorders and removes them; saving and opening the
// estimate brings them back in their order.

#include "photos/frm_photo.h"
#include "program_fixture.h"
#include "sample_photos.h"
#include "sheet/frm_mitumori.h"
#include "when_modal.h"

#include <QCoreApplication>
#include <QDropEvent>
#include <QFile>
#include <QImage>
#include <QLineEdit>
#include <QListWidget>
#include <QMimeData>
#include <QPushButton>
#include <QTemporaryDir>
#include <QInputMethodEvent>
#include <QUrl>
#include <gtest/gtest.h>

namespace est {
namespace {

void drop(QWidget *target, const QStringList &paths)
{
    QMimeData data;
    QList<QUrl> urls;
    for (const QString &p : paths)
        urls.append(QUrl::fromLocalFile(p));
    data.setUrls(urls);
    QDragEnterEvent enter(QPoint(10, 10), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(target, &enter);
    ASSERT_TRUE(enter.isAccepted());
    QDropEvent event(QPointF(10, 10), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(target, &event);
}

QStringList listed(QDialog *frm)
{
    QStringList texts;
    auto *list = frm->findChild<QListWidget *>(QStringLiteral("lstPhotos"));
    for (int i = 0; i < list->count(); ++i)
        texts.append(list->item(i)->text());
    return texts;
}

TEST(PhotoFlow, AddedCaptionedReorderedSavedAndOpenedAgain)
{
    QTemporaryDir files;
    const QString red = files.filePath(QStringLiteral("red.jpg")), green = files.filePath(QStringLiteral("green.png")),
                  blue = files.filePath(QStringLiteral("blue.jpg")), heic = files.filePath(QStringLiteral("IMG_0002.HEIC"));
    test::writePhoto(red, 64, 48, Qt::red, 1, "2024:01:05 10:30:00");
    test::writePhoto(green, 64, 48, Qt::green);
    test::writePhoto(blue, 48, 64, Qt::blue, 1, "2024:01:05 10:45:00");
    QFile(heic).open(QIODevice::WriteOnly);

    test::Program p;
    p.start();
    app::AppContext &c = p.context();
    c.start->button("cmdSin")->click();
    ASSERT_TRUE(c.sheet->isVisible());

    test::whenModal(QStringLiteral("frmPhoto"), [&](QDialog *frm) {
        drop(frm, {red, heic, green, blue});
        EXPECT_EQ(p.messages.lastText(),
                  QStringLiteral("IMG_0002.HEIC\nこの写真は読み込めません（JPEG または PNG を選んでください）。"));
        ASSERT_EQ(listed(frm).size(), 3);
        EXPECT_EQ(listed(frm).first(), QStringLiteral("写真1\n2024/01/05 10:30"));

        auto *list = frm->findChild<QListWidget *>(QStringLiteral("lstPhotos"));
        auto *caption = frm->findChild<QLineEdit *>(QStringLiteral("txtCaption"));
        list->setCurrentRow(2);
        caption->selectAll();
        // Typed as Japanese is typed: the input method commits the text.
        QInputMethodEvent typed;
        typed.setCommitString(QStringLiteral("右フロント"));
        QCoreApplication::sendEvent(caption, &typed);
        frm->findChild<QPushButton *>(QStringLiteral("cmdUp"))->click();   // blue moves before green
        EXPECT_EQ(list->currentRow(), 1);
        EXPECT_EQ(listed(frm).at(1), QStringLiteral("写真2\n右フロント"));

        // Removing asks; No keeps the photo.
        list->setCurrentRow(0);
        frm->findChild<QPushButton *>(QStringLiteral("cmdRemove"))->click();
        EXPECT_EQ(listed(frm).size(), 3);
        p.messages.answer(Answer::Yes);
        frm->findChild<QPushButton *>(QStringLiteral("cmdRemove"))->click();
        EXPECT_EQ(p.messages.lastText(), QStringLiteral("写真1を削除しますか？"));
        EXPECT_EQ(listed(frm).size(), 2);
        frm->findChild<QPushButton *>(QStringLiteral("cmdClose"))->click();
    });
    p.sheetChild<QPushButton>("cmdPhoto")->click();
    ASSERT_EQ(p.session.photos.size(), 2);

    p.sheetChild<QPushButton>("cmdSave")->click();
    p.reopen(QStringLiteral("240105TEST.xlsx"));
    ASSERT_TRUE(c.sheet->isVisible());
    ASSERT_EQ(p.session.photos.size(), 2);
    EXPECT_EQ(p.session.photos[0].caption, QStringLiteral("右フロント"));
    EXPECT_EQ(QImage::fromData(p.session.photos[0].image).size(), QSize(48, 64));
    EXPECT_GT(QImage::fromData(p.session.photos[1].image).pixelColor(32, 40).green(), 200);

    test::whenModal(QStringLiteral("frmPhoto"), [](QDialog *frm) {
        ASSERT_EQ(listed(frm).size(), 2);
        EXPECT_EQ(listed(frm).first(), QStringLiteral("写真1\n右フロント"));
        frm->findChild<QPushButton *>(QStringLiteral("cmdClose"))->click();
    });
    p.sheetChild<QPushButton>("cmdPhoto")->click();
}

struct LimitCase
{
    const char *name;
    int existing;
    QString message;
};

class PhotoLimit : public ::testing::TestWithParam<LimitCase>
{
};

TEST_P(PhotoLimit, IsSaidWhenReached)
{
    QTemporaryDir files;
    const QString a = files.filePath(QStringLiteral("a.jpg")), b = files.filePath(QStringLiteral("b.jpg"));
    test::writePhoto(a, 16, 12, Qt::red);
    test::writePhoto(b, 16, 12, Qt::blue);
    QList<EstimatePhoto> photos(GetParam().existing, EstimatePhoto{test::photoBytes(8, 8, Qt::black), QString()});
    test::ScriptedMessages messages;
    photos::FrmPhoto frm(photos, messages, [](QWidget *) { return QStringList(); });
    frm.addFiles({a, b});
    EXPECT_EQ(photos.size(), std::min(GetParam().existing + 2, kMaxPhotos));
    EXPECT_EQ(messages.lastText(), GetParam().message);
    EXPECT_EQ(frm.findChild<QListWidget *>(QStringLiteral("lstPhotos"))->count(), photos.size());
}

INSTANTIATE_TEST_SUITE_P(
    Cases, PhotoLimit,
    ::testing::Values(LimitCase{"room", 10, QString()},
                      LimitCase{"oneLeft", 59, QStringLiteral("写真は1つの見積に60枚までです。1枚は追加しませんでした。")},
                      LimitCase{"full", 60, QStringLiteral("写真は1つの見積に60枚までです。2枚は追加しませんでした。")}),
    [](const auto &info) { return std::string(info.param.name); });

} // namespace
} // namespace est
