// Escape in the small dialogs is their cancel button: it closes them without the close-box
// notice and without changing anything.

#include "fixed_clock.h"
#include "scripted_messages.h"
#include "sheet/dlg_day.h"
#include "sheet/dlg_hikazei.h"
#include "sheet/slip_ledger.h"
#include "temp_app_folder.h"
#include "workbook/dlg_fname.h"
#include "workbook/dlg_open.h"

#include <QTest>
#include <functional>
#include <gtest/gtest.h>
#include <memory>

using namespace est;

namespace {

struct DialogWorld
{
    test::TempAppFolder folder;
    sheet::SlipLedger ledger{sheet::openSlipLedgerDatabase(folder.path()).database};
    Session session;
    test::ScriptedMessages messages;
    test::FixedClock clock{QDate(2024, 1, 5)};
};

struct EscapeCase
{
    const char *name;
    std::function<std::unique_ptr<QDialog>(DialogWorld &)> make;
};

void PrintTo(const EscapeCase &c, std::ostream *os)
{
    *os << c.name;
}

class EscapeIsCancel : public ::testing::TestWithParam<EscapeCase>
{
};

TEST_P(EscapeIsCancel, ClosesWithoutTheCloseBoxNotice)
{
    DialogWorld world;
    world.session.denpyoNo = "004";
    world.session.denpyoDDay = "240105";
    std::unique_ptr<QDialog> dialog = GetParam().make(world);
    dialog->show();
    ASSERT_TRUE(dialog->isVisible());
    QTest::keyClick(dialog.get(), Qt::Key_Escape);
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_EQ(dialog->result(), QDialog::Rejected);
    EXPECT_TRUE(world.messages.shown.isEmpty()) << world.messages.lastText().toStdString();
    EXPECT_EQ(world.session.denpyoNo, "004");
    EXPECT_TRUE(world.session.slipNumber.isEmpty());
}

INSTANTIATE_TEST_SUITE_P(
    Dialogs, EscapeIsCancel,
    ::testing::Values(
        EscapeCase{"dlgFname",
                   [](DialogWorld &w) { return std::make_unique<workbook::DlgFname>(w.clock, w.messages); }},
        EscapeCase{"dlgOpen",
                   [](DialogWorld &w) {
                       return std::make_unique<workbook::DlgOpen>(
                           w.folder.path(), [](const QString &) { return true; }, w.messages);
                   }},
        EscapeCase{"dlgDay",
                   [](DialogWorld &w) {
                       auto d = std::make_unique<sheet::DlgDay>(w.session, w.messages, w.clock, w.ledger);
                       d->prepare();
                       return d;
                   }},
        EscapeCase{"dlgHikazei",
                   [](DialogWorld &w) {
                       return std::make_unique<sheet::DlgHikazei>(w.session, w.messages, w.folder.path());
                   }}),
    [](const ::testing::TestParamInfo<EscapeCase> &info) { return std::string(info.param.name); });

} // namespace
