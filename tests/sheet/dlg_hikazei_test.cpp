#include "db/database.h"
#include "scripted_messages.h"
#include "sheet/dlg_hikazei.h"
#include "sheet/frm_hikazei_setting.h"
#include "sheet/frm_mitumori.h"
#include "temp_app_folder.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSqlQuery>
#include <QTableWidget>
#include <gtest/gtest.h>

using namespace est;
using est::sheet::DlgHikazei;

namespace {

struct HikazeiFixture
{
    test::TempAppFolder folder;
    Session session;
    test::ScriptedMessages messages;
    sheet::FrmMitumori frm{session, messages};
    std::unique_ptr<DlgHikazei> dialog;

    HikazeiFixture()
    {
        session.company[11] = "10";
        session.totals.workTotalA = 80000;
        session.totals.paintTotalB = 20000;
        frm.refresh();
        frm.findChild<QLineEdit *>("txtAzukari")->setText("5000");
        open();
    }
    void open() { dialog = std::make_unique<DlgHikazei>(session, messages, folder.path(), &frm); }
    template <typename T> T *find(const char *name) const
    {
        T *w = dialog->findChild<T *>(QLatin1String(name));
        EXPECT_NE(w, nullptr) << name;
        return w;
    }
    void choose(const QString &item)
    {
        auto *combo = find<QComboBox>("cboHikazei");
        const int index = combo->findText(item);
        ASSERT_GE(index, 0) << item.toStdString();
        combo->setCurrentIndex(index);
        Q_EMIT combo->activated(index);
    }
    void add(const QString &name, const QString &amount)
    {
        find<QLineEdit>("txtKoumoku")->setText(name);
        find<QLineEdit>("txtKingaku")->setText(amount);
        find<QPushButton>("cmdAdd")->click();
    }
    QString label(const char *name) const { return find<QLabel>(name)->text(); }
    QString sheetLabel(const char *name) const { return frm.findChild<QLabel *>(QLatin1String(name))->text(); }
    QTableWidget *grid() const { return find<QTableWidget>("HFLg1"); }
};

TEST(DlgHikazei, SumReachesTheSheetTotals)
{
    HikazeiFixture x;
    EXPECT_EQ(x.sheetLabel("lblZkomi"), "110,000");
    EXPECT_EQ(x.label("lblNo"), "1");

    x.choose(QStringLiteral("重量税"));
    EXPECT_EQ(x.find<QLineEdit>("txtKoumoku")->text(), QStringLiteral("重量税 "));
    EXPECT_EQ(x.find<QLineEdit>("txtKingaku")->text(), "16400");
    x.find<QPushButton>("cmdAdd")->click();
    x.choose(QStringLiteral("印紙代"));
    x.find<QPushButton>("cmdAdd")->click();
    EXPECT_EQ(x.grid()->rowCount(), 2);
    EXPECT_EQ(x.grid()->item(1, 0)->text(), "2");
    EXPECT_EQ(x.grid()->item(1, 2)->text(), "1,800");
    EXPECT_EQ(x.label("lblHSum"), "18,200");
    EXPECT_EQ(x.label("lblNo"), "3");

    // Not a number: refused, the sum stays.
    x.add(QStringLiteral("手数料"), QStringLiteral("三千円"));
    EXPECT_EQ(x.messages.shown.size(), 1);
    EXPECT_EQ(x.grid()->rowCount(), 2);
    EXPECT_EQ(x.label("lblHSum"), "18,200");

    x.find<QPushButton>("cmdOK")->click();
    EXPECT_EQ(x.dialog->result(), QDialog::Accepted);
    EXPECT_EQ(x.sheetLabel("lblHZei"), "18,200");
    // grand total = taxed total + non-taxable; amount due = grand total - advance
    EXPECT_EQ(x.sheetLabel("lblKei"), "128,200");
    EXPECT_EQ(x.sheetLabel("lblSeikyu"), "123,200");
    EXPECT_EQ(x.sheetLabel("lblGKei"), "123,200");
    EXPECT_TRUE(x.session.nonTaxable.present);
    EXPECT_EQ(x.session.nonTaxable.count, 2);
    EXPECT_EQ(x.session.nonTaxable.sum, 18200);
    EXPECT_EQ(x.session.nonTaxable.names.at(1), QStringLiteral("印紙代 "));

    // Opened again, the items come back.
    x.open();
    EXPECT_EQ(x.grid()->rowCount(), 2);
    EXPECT_EQ(x.label("lblHSum"), "18,200");
    EXPECT_EQ(x.label("lblNo"), "3");
}

TEST(DlgHikazei, DeleteTheMiddleRowRenumbers)
{
    HikazeiFixture x;
    x.add("A", "1000");
    x.add("O'Neil fee", "2000");
    x.add("C", "4000");
    x.find<QPushButton>("cmdDel")->click();
    EXPECT_EQ(x.messages.lastText(), QStringLiteral("削除するデータはありません．"));
    EXPECT_EQ(x.messages.shown.last().title, QStringLiteral("警告"));

    x.grid()->selectRow(1);
    EXPECT_EQ(x.find<QLineEdit>("txtHikazei")->text(), "O'Neil fee");
    x.messages.answer(Answer::No);
    x.find<QPushButton>("cmdDel")->click();
    EXPECT_EQ(x.messages.lastText(), QStringLiteral("2行目を削除します。"));
    EXPECT_EQ(x.messages.shown.last().title, QStringLiteral("行の削除確認"));
    EXPECT_EQ(x.grid()->rowCount(), 3);

    x.grid()->selectRow(1);
    x.messages.answer(Answer::Yes);
    x.find<QPushButton>("cmdDel")->click();
    ASSERT_EQ(x.grid()->rowCount(), 2);
    EXPECT_EQ(x.grid()->item(0, 0)->text(), "1");
    EXPECT_EQ(x.grid()->item(1, 0)->text(), "2");
    EXPECT_EQ(x.grid()->item(1, 1)->text(), "C");
    EXPECT_EQ(x.label("lblHSum"), "5,000");
}

TEST(DlgHikazei, EditInPlaceAndCancel)
{
    HikazeiFixture x;
    x.add("A", "1000");
    x.add("B", "2000");
    x.grid()->selectRow(0);
    x.find<QPushButton>("cmdEdit")->click();
    EXPECT_EQ(x.find<QLineEdit>("txtKingaku")->text(), "1000");
    EXPECT_FALSE(x.find<QPushButton>("cmdAdd")->isEnabled());
    x.find<QLineEdit>("txtKingaku")->setText("1,500");
    x.find<QPushButton>("cmdEdit")->click();
    EXPECT_EQ(x.grid()->item(0, 2)->text(), "1,500");
    EXPECT_EQ(x.label("lblHSum"), "3,500");
    EXPECT_TRUE(x.find<QPushButton>("cmdAdd")->isEnabled());

    x.find<QPushButton>("cmdCancel")->click();
    EXPECT_EQ(x.dialog->result(), QDialog::Rejected);
    EXPECT_FALSE(x.session.nonTaxable.present);
    EXPECT_TRUE(x.sheetLabel("lblHZei").isEmpty());
}

TEST(DlgHikazei, NoRowsGivesAnEmptyNonTaxableTotal)
{
    HikazeiFixture x;
    x.find<QPushButton>("cmdOK")->click();
    EXPECT_TRUE(x.sheetLabel("lblHZei").isEmpty());
    EXPECT_EQ(x.sheetLabel("lblKei"), x.sheetLabel("lblZkomi"));
    EXPECT_TRUE(x.session.nonTaxable.present);
    EXPECT_EQ(x.session.nonTaxable.count, 0);
}

struct SettingFixture
{
    test::TempAppFolder folder;
    test::ScriptedMessages messages;
    std::unique_ptr<sheet::FrmHikazeiSetting> form =
        std::make_unique<sheet::FrmHikazeiSetting>(messages, folder.path());
    template <typename T> T *find(const char *name) const
    {
        T *w = form->findChild<T *>(QLatin1String(name));
        EXPECT_NE(w, nullptr) << name;
        return w;
    }
    void click(const char *name) { find<QPushButton>(name)->click(); }
    QTableWidget *grid() const { return find<QTableWidget>("DGH"); }
};

TEST(FrmHikazeiSetting, AddEditDeleteAndTheLimit)
{
    SettingFixture x;
    const int start = x.grid()->rowCount();
    ASSERT_GE(start, 4);
    EXPECT_TRUE(x.find<QLabel>("lblHelp")->text().contains(QStringLiteral("なお、デー多数は99まで登録できます。")));
    EXPECT_FALSE(x.find<QLineEdit>("txtH")->isEnabled());

    x.click("cmdNew");
    EXPECT_EQ(x.form->mode(), sheet::FrmHikazeiSetting::Mode::Adding);
    EXPECT_EQ(x.find<QLabel>("lblNo")->text(), QString::number(start + 1));
    x.find<QLineEdit>("txtH")->setText("Owner's fee");
    x.find<QLineEdit>("txtHzSum")->setText("abc");
    x.click("cmdOK");
    EXPECT_EQ(x.messages.shown.size(), 1);
    EXPECT_EQ(x.form->mode(), sheet::FrmHikazeiSetting::Mode::Adding);
    x.find<QLineEdit>("txtHzSum")->setText("1,200");
    x.click("cmdOK");
    ASSERT_EQ(x.grid()->rowCount(), start + 1);
    EXPECT_EQ(x.grid()->item(start, 1)->text(), "Owner's fee");
    EXPECT_EQ(x.grid()->item(start, 2)->text(), "1,200");

    // Deleting the first entry asks, then numbers the rest 1..n.
    x.grid()->selectRow(0);
    x.messages.answer(Answer::No);
    x.click("cmdDel");
    EXPECT_EQ(x.messages.lastText(), QStringLiteral("削除します。\nこのデータは失われます。\nよろしいですか？"));
    EXPECT_EQ(x.grid()->rowCount(), start + 1);
    x.messages.answer(Answer::Yes);
    x.click("cmdDel");
    ASSERT_EQ(x.grid()->rowCount(), start);
    for (int r = 0; r < start; ++r)
        EXPECT_EQ(x.grid()->item(r, 0)->text(), QString::number(r + 1));

    // Fill up to 99: the new-entry button then does nothing.
    while (x.grid()->rowCount() < 99) {
        x.click("cmdNew");
        x.find<QLineEdit>("txtH")->setText(QStringLiteral("項目%1").arg(x.grid()->rowCount() + 1));
        x.find<QLineEdit>("txtHzSum")->setText("100");
        x.click("cmdOK");
    }
    x.click("cmdNew");
    EXPECT_EQ(x.form->mode(), sheet::FrmHikazeiSetting::Mode::Browsing);
    EXPECT_EQ(x.grid()->rowCount(), 99);

    // Editing the selected entry; the list in the dialog offers it.
    x.grid()->selectRow(98);
    x.click("cmdEdit");
    x.find<QLineEdit>("txtH")->setText(QStringLiteral("最後の項目"));
    x.click("cmdOK");
    EXPECT_EQ(x.grid()->item(98, 1)->text(), QStringLiteral("最後の項目"));
    Session session;
    DlgHikazei dialog(session, x.messages, x.folder.path());
    EXPECT_GE(dialog.findChild<QComboBox *>("cboHikazei")->findText(QStringLiteral("最後の項目")), 0);
    EXPECT_GE(dialog.findChild<QComboBox *>("cboHikazei")->findText("Owner's fee"), 0);
}

// A list whose numbering has a gap (edited outside this screen): the next new entry shares
// the last number, and editing or deleting one of the two must leave the other alone.
TEST(FrmHikazeiSetting, EntriesSharingANumberAreEditedOneByOne)
{
    test::TempAppFolder folder;
    test::ScriptedMessages messages;
    {
        db::OpenResult opened = db::openDatabase(folder.path(), "Data\\Hikazei.mdb");
        ASSERT_TRUE(opened.ok());
        QSqlQuery q(opened.database);
        ASSERT_TRUE(q.exec("DELETE FROM \"HikazeiDB\" WHERE \"No\" = 2"));
    }
    sheet::FrmHikazeiSetting form(messages, folder.path());
    auto *grid = form.findChild<QTableWidget *>("DGH");
    auto click = [&form](const char *name) { form.findChild<QPushButton *>(name)->click(); };
    ASSERT_EQ(grid->rowCount(), 5); // numbers 1, 3, 4, 5, 6

    click("cmdNew");
    EXPECT_EQ(form.findChild<QLabel *>("lblNo")->text(), "6");
    form.findChild<QLineEdit *>("txtH")->setText(QStringLiteral("納車費用"));
    form.findChild<QLineEdit *>("txtHzSum")->setText("3000");
    click("cmdOK");
    ASSERT_EQ(grid->rowCount(), 6);
    EXPECT_EQ(grid->item(4, 0)->text(), "6");
    EXPECT_EQ(grid->item(4, 1)->text(), QStringLiteral("車庫証明手数料"));
    EXPECT_EQ(grid->item(5, 0)->text(), "6");

    grid->selectRow(5);
    click("cmdEdit");
    form.findChild<QLineEdit *>("txtH")->setText(QStringLiteral("納車費用（県外）"));
    click("cmdOK");
    ASSERT_EQ(grid->rowCount(), 6);
    EXPECT_EQ(grid->item(4, 1)->text(), QStringLiteral("車庫証明手数料"));
    EXPECT_EQ(grid->item(4, 2)->text(), "2,700");
    EXPECT_EQ(grid->item(5, 1)->text(), QStringLiteral("納車費用（県外）"));

    grid->selectRow(5);
    messages.answer(Answer::Yes);
    click("cmdDel");
    ASSERT_EQ(grid->rowCount(), 5);
    EXPECT_EQ(grid->item(4, 0)->text(), "6");
    EXPECT_EQ(grid->item(4, 1)->text(), QStringLiteral("車庫証明手数料"));
    EXPECT_EQ(grid->item(4, 2)->text(), "2,700");
}

} // namespace
