#include "customers/dlg_new_touroku.h"
#include "customers/dlg_touroku.h"
#include "screen_fixture.h"

#include <QLabel>
#include <QListWidget>
#include <gtest/gtest.h>

using namespace est;
using namespace est::customers;
using est::test::child;
using est::test::CustomerFixture;
using est::test::ScriptedMessages;
using est::test::typeInto;

namespace {

QStringList officeNames(SettingLists &settings)
{
    QStringList names;
    for (const RegistrationOffice &office : settings.offices())
        names.append(office.name);
    return names;
}

} // namespace

TEST(DlgTouroku, ShowsTheComposedNumberAsThePartsChange)
{
    CustomerFixture x;
    ScriptedMessages messages;
    DlgTouroku dialog(messages, *x.settings);
    dialog.show();
    auto *lbl2 = child<QLabel>(&dialog, "lbl2");
    auto *office = child<QComboBox>(&dialog, "cboT1");
    EXPECT_EQ(office->count(), x.settings->offices().size());
    EXPECT_TRUE(lbl2->text().isEmpty());
    office->setCurrentIndex(office->findText(QStringLiteral("横浜")));
    EXPECT_EQ(lbl2->text(), QStringLiteral("横浜"));
    typeInto(child<QLineEdit>(&dialog, "txtT4"), QStringLiteral("8"));
    EXPECT_EQ(lbl2->text(), QStringLiteral("横浜8")); // empty parts add nothing
    typeInto(child<QLineEdit>(&dialog, "txtT2"), QStringLiteral("330"));
    EXPECT_EQ(lbl2->text(), QStringLiteral("横浜3308"));
    child<QLineEdit>(&dialog, "txtT3")->insert(QStringLiteral("ら"));
    EXPECT_EQ(lbl2->text(), QStringLiteral("横浜330ら8"));
    EXPECT_EQ(dialog.registration(), lbl2->text());

    dialog.close(); // the close box is refused
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_EQ(messages.lastText(), QStringLiteral("中止する場合、キャンセルボタンをクリックしてください"));
    child<QPushButton>(&dialog, "CancelButton")->click();
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(dialog.result(), QDialog::Rejected);
}

TEST(DlgTouroku, AddedOfficeNameIsOfferedAtOnce)
{
    CustomerFixture x;
    ScriptedMessages messages;
    DlgTouroku dialog(messages, *x.settings);
    dialog.show();
    est::test::whenModal({}, [](QDialog *names) {
        EXPECT_EQ(names->objectName(), QStringLiteral("dlgNewTouroku"));
        child<QPushButton>(names, "cmdNew")->click();
        child<QLineEdit>(names, "txtTouroku")->insert(QStringLiteral("那覇"));
        child<QPushButton>(names, "OKButton")->click();
        child<QPushButton>(names, "cmdExit")->click();
    });
    child<QPushButton>(&dialog, "cmdTuika")->click();
    EXPECT_GE(child<QComboBox>(&dialog, "cboT1")->findText(QStringLiteral("那覇")), 0);
}

TEST(DlgNewTouroku, AddEditAndDeleteWithItsQuestion)
{
    CustomerFixture x;
    ScriptedMessages messages;
    DlgNewTouroku dialog(messages, *x.settings);
    dialog.show();
    auto *list = child<QListWidget>(&dialog, "lstTouroku");
    auto *name = child<QLineEdit>(&dialog, "txtTouroku");
    auto *ok = child<QPushButton>(&dialog, "OKButton");
    const int before = list->count();
    EXPECT_FALSE(ok->isEnabled()); // nothing chosen to do yet

    child<QPushButton>(&dialog, "cmdNew")->click();
    ok->click(); // an empty name is not added
    EXPECT_EQ(messages.lastText(), QStringLiteral("地名を入力してください。"));
    name->insert(QStringLiteral("富士山"));
    ok->click();
    EXPECT_EQ(list->count(), before + 1);
    EXPECT_EQ(officeNames(*x.settings).last(), QStringLiteral("富士山"));

    list->setCurrentRow(0);
    child<QPushButton>(&dialog, "cmdEdit")->click();
    EXPECT_EQ(name->text(), QStringLiteral("品川"));
    name->setText(QStringLiteral("品川（改）"));
    ok->click();
    EXPECT_EQ(officeNames(*x.settings).first(), QStringLiteral("品川（改）"));

    list->setCurrentRow(0);
    child<QPushButton>(&dialog, "cmdDel")->click();
    messages.clear();
    ok->click(); // unscripted: No
    ASSERT_EQ(messages.shown.size(), 1);
    EXPECT_EQ(messages.lastText(), QStringLiteral("削除します。よろしいですか？"));
    EXPECT_EQ(messages.shown.last().title, QStringLiteral("削除"));
    EXPECT_EQ(officeNames(*x.settings).first(), QStringLiteral("品川（改）"));

    list->setCurrentRow(0);
    child<QPushButton>(&dialog, "cmdDel")->click();
    messages.answer(Answer::Yes);
    ok->click();
    EXPECT_FALSE(officeNames(*x.settings).contains(QStringLiteral("品川（改）")));
    EXPECT_EQ(list->count(), before);

    child<QPushButton>(&dialog, "cmdExit")->click();
    EXPECT_FALSE(dialog.isVisible());
}
