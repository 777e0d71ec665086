#include "fixed_clock.h"
#include "scripted_messages.h"
#include "sheet/dlg_day.h"
#include "sheet/era_date.h"
#include "sheet/frm_mitumori.h"
#include "temp_app_folder.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSqlDatabase>
#include <QTest>
#include <gtest/gtest.h>

using namespace est;
using est::sheet::DlgDay;

namespace {

// The ledger starts with `counter` numbers issued for `day`, confirmed that day.
struct DayFixture
{
    test::TempAppFolder folder;
    db::OpenResult opened = sheet::openSlipLedgerDatabase(folder.path());
    sheet::SlipLedger ledger{opened.database};
    Session session;
    test::ScriptedMessages messages;
    test::FixedClock clock{QDate(2024, 1, 5)};
    sheet::FrmMitumori frm{session, messages};
    std::unique_ptr<DlgDay> dialog;

    DayFixture(int counter, const char *day)
    {
        const QDate d = *sheet::parseDayKey(QString::fromLatin1(day));
        EXPECT_TRUE(ledger.raise(d, counter, d)) << ledger.lastError().toStdString();
    }
    int lastOf(QDate day) { return ledger.state(day)->lastOfDay; }
    bool open()
    {
        dialog = std::make_unique<DlgDay>(session, messages, clock, ledger, &frm);
        const bool ok = dialog->prepare();
        dialog->show();
        return ok;
    }
    template <typename T> T *find(const char *name) const
    {
        T *w = dialog->findChild<T *>(QLatin1String(name));
        EXPECT_NE(w, nullptr) << name;
        return w;
    }
    QString label(const char *name) const { return find<QLabel>(name)->text(); }
    QString sheetLabel(const char *name) const
    {
        return frm.findChild<QLabel *>(QLatin1String(name))->text();
    }
};

TEST(DlgDay, ProposesAndConfirms)
{
    DayFixture x(5, "240105");
    ASSERT_TRUE(x.open());
    EXPECT_EQ(x.label("lblKyou"), QStringLiteral("令和6年1月5日"));
    EXPECT_EQ(x.label("lblDNo"), QStringLiteral("新規伝票番号は 240105006 です。"));
    EXPECT_FALSE(x.find<QLineEdit>("txtHiduke")->isEnabled());
    EXPECT_FALSE(x.find<QPushButton>("cmdOk2")->isEnabled());
    x.find<QPushButton>("OKButton")->click();
    EXPECT_EQ(x.dialog->result(), QDialog::Accepted);
    EXPECT_EQ(x.session.denpyoNo, "006");
    EXPECT_EQ(x.session.slipNumber, "240105006");
    EXPECT_EQ(x.sheetLabel("lblHiduke"), QStringLiteral("令和6年1月5日 / 240105006"));
    EXPECT_EQ(x.lastOf(QDate(2024, 1, 5)), 6);
    EXPECT_TRUE(x.messages.shown.isEmpty());
}

TEST(DlgDay, CancelChangesNothing)
{
    DayFixture x(17, "240104");
    ASSERT_TRUE(x.open());
    EXPECT_EQ(x.label("lblDNo"), QStringLiteral("新規伝票番号は 240105001 です。"));
    x.find<QPushButton>("CancelButton")->click();
    EXPECT_EQ(x.dialog->result(), QDialog::Rejected);
    EXPECT_FALSE(x.dialog->isVisible());
    EXPECT_TRUE(x.session.slipNumber.isEmpty());
    EXPECT_EQ(x.lastOf(QDate(2024, 1, 4)), 17);
    EXPECT_EQ(x.lastOf(QDate(2024, 1, 5)), 0);
}

TEST(DlgDay, StoredDateInTheFutureIsRefused)
{
    DayFixture x(3, "240106");
    DlgDay dialog(x.session, x.messages, x.clock, x.ledger, &x.frm);
    EXPECT_EQ(dialog.run(), QDialog::Rejected); // returns without showing
    ASSERT_EQ(x.messages.shown.size(), 1);
    EXPECT_EQ(x.messages.lastText(), QStringLiteral("日付が違います。正しい日付を入力してください。"));
    EXPECT_EQ(x.messages.shown.last().title, QStringLiteral("警告"));
    EXPECT_EQ(x.messages.shown.last().icon, MessageIcon::Critical);
    EXPECT_TRUE(x.session.slipNumber.isEmpty());
    EXPECT_EQ(x.lastOf(QDate(2024, 1, 6)), 3);
}

TEST(DlgDay, TypedDate)
{
    DayFixture x(4, "240103");
    ASSERT_TRUE(x.open());
    auto *typed = x.find<QLineEdit>("txtHiduke");
    x.find<QCheckBox>("Ck1")->setChecked(true);
    EXPECT_TRUE(typed->isEnabled());
    EXPECT_EQ(typed->text(), "2024/01/05");

    typed->setText(QStringLiteral("きのう"));
    x.find<QPushButton>("cmdOk2")->click();
    ASSERT_EQ(x.messages.shown.size(), 1);
    EXPECT_EQ(x.messages.lastText(), QStringLiteral("1999/01/01 のように\n入力してください。"));

    // The same day as the last slip continues its counter; Enter applies without confirming.
    typed->setText("2024/1/3");
    QTest::keyClick(typed, Qt::Key_Return);
    EXPECT_TRUE(x.dialog->isVisible());
    EXPECT_TRUE(x.session.slipNumber.isEmpty());
    EXPECT_EQ(x.label("lblKyou"), QStringLiteral("令和6年1月3日"));
    EXPECT_EQ(x.label("lblDNo"), QStringLiteral("新規伝票番号は 240103005 です。"));

    // A day before the last slip is refused and OK cannot issue anything.
    typed->setText("2024/1/2");
    x.find<QPushButton>("cmdOk2")->click();
    EXPECT_EQ(x.messages.lastText(), QStringLiteral("日付が違います。正しい日付を入力してください。"));
    EXPECT_TRUE(x.label("lblDNo").isEmpty());
    EXPECT_FALSE(x.find<QPushButton>("OKButton")->isEnabled());

    // Unticking goes back to today.
    x.find<QCheckBox>("Ck1")->setChecked(false);
    EXPECT_EQ(x.label("lblDNo"), QStringLiteral("新規伝票番号は 240105001 です。"));

    // A typed date that was not applied yet is applied by OK.
    x.find<QCheckBox>("Ck1")->setChecked(true);
    typed->setText("2024/01/08");
    x.find<QPushButton>("OKButton")->click();
    EXPECT_EQ(x.session.estimateDate, QStringLiteral("令和6年1月8日"));
    EXPECT_EQ(x.session.slipNumber, "240108001");
    // The day a slip was last confirmed on is today, not the typed one.
    EXPECT_EQ(x.ledger.state(QDate(2024, 1, 5))->lastConfirmed, QDate(2024, 1, 5));
}

TEST(DlgDay, NewTypedDateAfterARefusedOneCanBeConfirmed)
{
    DayFixture x(2, "240104");
    ASSERT_TRUE(x.open());
    auto *typed = x.find<QLineEdit>("txtHiduke");
    auto *ok = x.find<QPushButton>("OKButton");
    x.find<QCheckBox>("Ck1")->setChecked(true);
    typed->setText("2024/1/3");
    x.find<QPushButton>("cmdOk2")->click();
    EXPECT_EQ(x.messages.lastText(), QStringLiteral("日付が違います。正しい日付を入力してください。"));
    EXPECT_FALSE(ok->isEnabled());

    // Typing a later date and pressing OK issues the number of that date: counter + 1 on the
    // day of the last slip.
    typed->selectAll();
    QTest::keyClicks(typed, "2024/1/4");
    EXPECT_TRUE(ok->isEnabled());
    ok->click();
    EXPECT_EQ(x.dialog->result(), QDialog::Accepted);
    EXPECT_EQ(x.session.slipNumber, "240104003");
    EXPECT_EQ(x.session.estimateDate, QStringLiteral("令和6年1月4日"));
    EXPECT_EQ(x.lastOf(QDate(2024, 1, 4)), 3);
}

TEST(DlgDay, TypedFutureDateDoesNotBlockTheNextEstimate)
{
    DayFixture x(2, "240105");
    ASSERT_TRUE(x.open());
    x.find<QCheckBox>("Ck1")->setChecked(true);
    x.find<QLineEdit>("txtHiduke")->setText("2024/3/1");
    x.find<QPushButton>("OKButton")->click();
    EXPECT_EQ(x.session.slipNumber, "240301001");

    // The next new estimate of today gets the next number of today, without the wrong-date
    // warning and without handing out 240105002 a second time.
    x.messages.clear();
    ASSERT_TRUE(x.open());
    EXPECT_TRUE(x.messages.shown.isEmpty()) << x.messages.lastText().toStdString();
    EXPECT_EQ(x.label("lblDNo"), QStringLiteral("新規伝票番号は 240105003 です。"));
}

TEST(DlgDay, ANumberTakenByAnotherSeatMeanwhileGivesTheNextAndSaysSo)
{
    DayFixture x(2, "240105");
    ASSERT_TRUE(x.open());
    EXPECT_EQ(x.label("lblDNo"), QStringLiteral("新規伝票番号は 240105003 です。"));
    x.ledger.issue(QDate(2024, 1, 5), QDate(2024, 1, 5)); // another seat
    x.find<QPushButton>("OKButton")->click();
    EXPECT_EQ(x.dialog->result(), QDialog::Accepted);
    EXPECT_EQ(x.session.slipNumber, "240105004");
    EXPECT_EQ(x.sheetLabel("lblHiduke"), QStringLiteral("令和6年1月5日 / 240105004"));
    ASSERT_EQ(x.messages.shown.size(), 1);
    EXPECT_EQ(x.messages.lastText(), QStringLiteral("伝票番号 240105003 はほかの席で使われました。\n伝票番号は 240105004 です。"));
}

TEST(DlgDay, ALedgerThatCannotBeReadIssuesNothing)
{
    DayFixture x(0, "240105");
    QSqlDatabase none = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("dlg-day-none"));
    none.setDatabaseName(QStringLiteral(":memory:"));
    ASSERT_TRUE(none.open());
    {
        sheet::SlipLedger broken(none);
        DlgDay dialog(x.session, x.messages, x.clock, broken, &x.frm);
        EXPECT_FALSE(dialog.prepare());
        EXPECT_TRUE(x.messages.lastText().startsWith(QStringLiteral("伝票番号の記録を読めません。\n")));
        EXPECT_FALSE(dialog.findChild<QPushButton *>(QStringLiteral("OKButton"))->isEnabled());
    }
    none.close();
    none = QSqlDatabase();
    QSqlDatabase::removeDatabase(QStringLiteral("dlg-day-none"));
}

} // namespace
