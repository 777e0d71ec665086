#include "scripted_messages.h"
#include "sheet/company_block.h"
#include "sheet/frm_kaisya.h"
#include "sheet/frm_mitumori.h"
#include "temp_app_folder.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <gtest/gtest.h>

using namespace est;
using est::sheet::FrmKaisya;

namespace {

struct KaisyaFixture
{
    test::TempAppFolder folder;
    Session session;
    test::ScriptedMessages messages;
    sheet::FrmMitumori frm{session, messages};
    std::unique_ptr<FrmKaisya> form = std::make_unique<FrmKaisya>(session, messages, folder.path(), &frm);

    template <typename T> T *find(const char *name) const
    {
        T *w = form->findChild<T *>(QLatin1String(name));
        EXPECT_NE(w, nullptr) << name;
        return w;
    }
    void click(const char *name) { find<QPushButton>(name)->click(); }
    void set(const char *name, const QString &text) { find<QLineEdit>(name)->setText(text); }
    bool enabled(const char *name) const
    {
        QWidget *w = form->findChild<QWidget *>(QLatin1String(name));
        return w && w->isEnabled();
    }
    QString sheetLabel(const char *name) const { return frm.findChild<QLabel *>(QLatin1String(name))->text(); }
    QByteArray kdata() const
    {
        QFile f(folder.file("temp/kdata.txt"));
        return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
    }
};

using Enabled = std::map<std::string, bool>;
void expectEnabled(const KaisyaFixture &x, const Enabled &expected, const char *when)
{
    for (const auto &[name, on] : expected)
        EXPECT_EQ(x.enabled(name.c_str()), on) << name << " " << when;
}

TEST(FrmKaisya, BrowsingAddingAndConfirming)
{
    KaisyaFixture x;
    ASSERT_EQ(x.form->recordCount(), 1);
    EXPECT_EQ(x.find<QLabel>("lblJNo")->text(), "1");
    EXPECT_FALSE(x.find<QLineEdit>("txtKaisya")->text().isEmpty());
    expectEnabled(x, {{"fra1", false}, {"cmdOK", false}, {"cmdCancel", false}, {"cmdNew", true},
                      {"cmdEdit", true}, {"cmdDel", true}, {"cmdFirst", false}, {"cmdPrev", false},
                      {"cmdNext", false}, {"cmdLast", false}},
                  "browsing one record");

    x.click("cmdNew");
    EXPECT_EQ(x.form->mode(), FrmKaisya::Mode::Adding);
    expectEnabled(x, {{"fra1", true}, {"cmdOK", true}, {"cmdCancel", true}, {"cmdNew", false},
                      {"cmdEdit", false}, {"cmdDel", false}, {"cmdFirst", false}, {"cmdNext", false}},
                  "adding");
    x.set("txtCom", QStringLiteral("鈑金・塗装"));
    x.set("txtKaisya", QStringLiteral("Smith, Jones 板金"));
    x.set("txtJyusyo", QStringLiteral("若葉県みどり台市1-2-3"));
    x.set("txtTEL", "000-222-3333");
    x.set("txtFAX", "000-222-4444");
    x.set("txtGinko", QStringLiteral("若葉銀行"));
    x.set("txtSiten", QStringLiteral("本店"));
    x.set("txtTNo", "7");
    x.find<QComboBox>("cboKoza")->setCurrentIndex(1);
    x.set("txtKzNo", "7654321");
    x.set("txtKzName", QStringLiteral("ｽﾐｽ"));
    x.find<QCheckBox>("chkKoza")->setChecked(true);

    // A rate with a fraction is refused; the form stays in adding.
    x.set("txtZeiritu", "8.5");
    x.click("cmdOK");
    ASSERT_EQ(x.messages.shown.size(), 1);
    EXPECT_TRUE(x.messages.lastText().contains(QStringLiteral("整数")));
    EXPECT_EQ(x.form->mode(), FrmKaisya::Mode::Adding);
    EXPECT_TRUE(x.kdata().isEmpty());

    x.set("txtZeiritu", "8");
    x.click("cmdOK");
    EXPECT_EQ(x.messages.shown.size(), 1);
    EXPECT_EQ(x.form->mode(), FrmKaisya::Mode::Browsing);
    EXPECT_EQ(x.form->recordCount(), 2);
    EXPECT_EQ(x.form->position(), 1);
    EXPECT_EQ(x.find<QLabel>("lblJNo")->text(), "2");
    expectEnabled(x, {{"fra1", false}, {"cmdFirst", true}, {"cmdPrev", true}, {"cmdNext", false},
                      {"cmdLast", false}},
                  "on the last of two");

    // The block, the sheet and the file all follow the confirmed record.
    const QStringList expected = {"2", QStringLiteral("鈑金・塗装"), QStringLiteral("Smith, Jones 板金"),
                                  QStringLiteral("若葉県みどり台市1-2-3"), "000-222-3333", "000-222-4444",
                                  QStringLiteral("若葉銀行"), QStringLiteral("本店"), "007", QStringLiteral("当座"),
                                  "7654321", "8", QStringLiteral("ｽﾐｽ"), "1"};
    EXPECT_EQ(x.session.company, expected);
    EXPECT_EQ(x.sheetLabel("lblTEL"), "TEL 000-222-3333");
    EXPECT_EQ(x.sheetLabel("lblFAX"), "FAX 000-222-4444");
    EXPECT_EQ(x.sheetLabel("lblTNo"), "007");
    EXPECT_EQ(x.sheetLabel("lblZeiritu"), "8");
    EXPECT_EQ(x.sheetLabel("lblJisya"), QStringLiteral("Smith, Jones 板金"));
    EXPECT_EQ(x.kdata(), sheet::companyFileBytes(expected));

    // Read back, the comma splits the name and pushes the rest down one line.
    const QStringList reread = sheet::readCompanyBlock(x.folder.file("temp/kdata.txt")).block;
    EXPECT_EQ(reread.at(2), "Smith");
    EXPECT_EQ(reread.at(3), QStringLiteral("Jones 板金"));
    EXPECT_EQ(reread.at(9), "007");
    EXPECT_EQ(reread.at(12), "8");

    x.click("cmdFirst");
    EXPECT_EQ(x.find<QLabel>("lblJNo")->text(), "1");
    expectEnabled(x, {{"cmdFirst", false}, {"cmdPrev", false}, {"cmdNext", true}, {"cmdLast", true}}, "first");
    x.click("cmdLast");
    EXPECT_EQ(x.find<QLabel>("lblJNo")->text(), "2");
}

TEST(FrmKaisya, EditAndCancel)
{
    KaisyaFixture x;
    const QString name = x.find<QLineEdit>("txtKaisya")->text();
    x.click("cmdEdit");
    EXPECT_EQ(x.form->mode(), FrmKaisya::Mode::Editing);
    EXPECT_TRUE(x.enabled("fra1"));
    x.set("txtKaisya", QStringLiteral("変更しない名前"));
    x.click("cmdCancel");
    EXPECT_EQ(x.form->mode(), FrmKaisya::Mode::Browsing);
    EXPECT_EQ(x.find<QLineEdit>("txtKaisya")->text(), name);
    EXPECT_TRUE(x.kdata().isEmpty());

    x.click("cmdEdit");
    x.set("txtKaisya", QStringLiteral("O'Hara モータース"));
    x.click("cmdOK");
    EXPECT_EQ(x.session.company.at(2), QStringLiteral("O'Hara モータース"));
    EXPECT_EQ(x.session.company.at(0), "1");
    EXPECT_EQ(x.sheetLabel("lblZeiritu"), "10");
    // Reopened, the form shows the stored record.
    x.form = std::make_unique<FrmKaisya>(x.session, x.messages, x.folder.path(), &x.frm);
    EXPECT_EQ(x.find<QLineEdit>("txtKaisya")->text(), QStringLiteral("O'Hara モータース"));
}

TEST(FrmKaisya, DeleteAsksFirst)
{
    KaisyaFixture x;
    x.messages.answer(Answer::No);
    x.click("cmdDel");
    ASSERT_EQ(x.messages.shown.size(), 1);
    EXPECT_EQ(x.messages.lastText(), QStringLiteral("データが失われます。よろしいですか？"));
    EXPECT_EQ(x.messages.shown.last().title, QStringLiteral("削除"));
    EXPECT_EQ(x.messages.shown.last().kind, test::ShownMessage::Kind::YesNo);
    EXPECT_EQ(x.form->recordCount(), 1);

    x.messages.answer(Answer::Yes);
    x.click("cmdDel");
    EXPECT_EQ(x.form->recordCount(), 0);
    EXPECT_TRUE(x.find<QLabel>("lblJNo")->text().isEmpty());
    EXPECT_FALSE(x.enabled("cmdEdit"));

    x.click("cmdDel");
    EXPECT_EQ(x.messages.lastText(), QStringLiteral("削除するデータがありません。"));
    EXPECT_EQ(x.messages.shown.last().kind, test::ShownMessage::Kind::Inform);
}

} // namespace
