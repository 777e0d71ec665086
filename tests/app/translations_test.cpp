// Qt's own dialogs speak Japanese once the application is set up, and a message without a
// title of its own carries the program's name.

#include "app/application_setup.h"
#include "uikit/message_box_messages.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <gtest/gtest.h>

TEST(QtTranslations, MessageBoxButtonsReadJapanese)
{
    ASSERT_TRUE(est::app::installQtTranslations(*qApp));
    QMessageBox box(QMessageBox::Question, QStringLiteral("見積書作成"), QStringLiteral("保存しますか？"),
                    QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
    EXPECT_TRUE(box.button(QMessageBox::Yes)->text().startsWith(QStringLiteral("はい")))
        << box.button(QMessageBox::Yes)->text().toStdString();
    EXPECT_TRUE(box.button(QMessageBox::No)->text().startsWith(QStringLiteral("いいえ")))
        << box.button(QMessageBox::No)->text().toStdString();
    EXPECT_TRUE(box.button(QMessageBox::Cancel)->text().startsWith(QStringLiteral("キャンセル")))
        << box.button(QMessageBox::Cancel)->text().toStdString();
}

TEST(MessageBoxMessages, AnEmptyTitleIsTheProgramsName)
{
    est::ui::MessageBoxMessages messages;
    QString title;
    QTimer answer;
    answer.setInterval(5);
    QObject::connect(&answer, &QTimer::timeout, [&] {
        if (auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget())) {
            title = box->windowTitle();
            box->button(QMessageBox::Ok)->click();
        }
    });
    answer.start();
    messages.inform(QStringLiteral("登録している自動車が2台以上あります。車両を削除してください。"), QString(),
                    est::MessageIcon::None);
    EXPECT_EQ(title, QStringLiteral("見積書作成"));
}
