#include "program_fixture.h"
#include "app/app_controller.h"
#include "app/frm_setting.h"
#include "fixed_clock.h"
#include "screen_fixture.h"
#include "sheet/frm_mitumori.h"
#include "uikit/wait_dialog.h"

#include <QLabel>
#include <QTableWidget>
#include <gtest/gtest.h>

using namespace est;
using est::test::child;

namespace {

struct AppFixture : test::Program
{
    AppFixture() { start(); }
};

} // namespace

TEST(CustomersWiring, SheetButtonOpensTheCustomerScreenAndSelectFillsTheHeader)
{
    AppFixture x;
    auto *button = child<QPushButton>(x.context().sheet, "cmdKokyaku");
    ASSERT_TRUE(button->isEnabled());
    bool seen = false;
    test::whenModal({}, [&](QDialog *screen) {
        seen = true;
        EXPECT_EQ(screen->objectName(), QStringLiteral("frmKokyaku"));
        EXPECT_FALSE(x.context().wait->isVisible()); // the wait window is gone once it shows
        child<QComboBox>(screen, "cboKName")->setEditText(QStringLiteral("上野　健太"));
        child<QPushButton>(screen, "cmdKensaku")->click();
        child<QPushButton>(screen, "cmdSelect")->click();
        child<QPushButton>(screen, "cmdOK")->click();
    });
    button->click();
    EXPECT_TRUE(seen);
    EXPECT_TRUE(x.messages.shown.isEmpty()) << x.messages.lastText().toStdString();
    EXPECT_EQ(child<QLineEdit>(x.context().sheet, "txtName")->text(), QStringLiteral("上野　健太"));
    EXPECT_EQ(child<QLineEdit>(x.context().sheet, "txtKaisya")->text(), QStringLiteral("有限会社うえの運送"));
    EXPECT_EQ(child<QLineEdit>(x.context().sheet, "txtSname")->text(), QStringLiteral("エルフ"));
    EXPECT_EQ(child<QLineEdit>(x.context().sheet, "txtTouroku")->text(), QStringLiteral("横浜400た30-03"));
    EXPECT_EQ(x.session.vehicle[0], QStringLiteral("3"));
}

TEST(CustomersWiring, SettingsHubOpensOfficeNamesAndCustomerTables)
{
    AppFixture x;
    app::FrmSetting *hub = x.context().settings;
    for (const auto &[buttonName, screenName] : {std::pair{"Command2", "dlgNewTouroku"},
                                                 std::pair{"cmdKokyakuSet", "frmKokyakuSett"}}) {
        QPushButton *button = hub->button(QLatin1String(buttonName));
        ASSERT_NE(button, nullptr);
        ASSERT_TRUE(button->isEnabled()) << buttonName;
        QString opened;
        test::whenModal({}, [&](QDialog *screen) {
            opened = screen->objectName();
            child<QPushButton>(screen, "cmdExit")->click();
        });
        button->click();
        EXPECT_EQ(opened, QLatin1String(screenName));
    }
    EXPECT_TRUE(x.messages.shown.isEmpty()) << x.messages.lastText().toStdString();
}
