#include "app/frm_setting.h"
#include "app/wiring.h"
#include "customers/customer_store.h"
#include "customers/dlg_new_touroku.h"
#include "customers/frm_kokyaku.h"
#include "customers/frm_kokyaku_sett.h"
#include "customers/setting_lists.h"
#include "sheet/frm_mitumori.h"
#include "uikit/wait_dialog.h"

#include <memory>

namespace est::app {

namespace {

void reportOpenFailure(AppContext &context, const QString &error)
{
    context.messages.inform(error, QStringLiteral("データベース"), MessageIcon::Critical);
}

// frmKokyaku from the sheet's 顧客情報 button, loaded behind dlgWait.
void openCustomers(AppContext &context)
{
    std::unique_ptr<customers::CustomerStore> store;
    std::unique_ptr<customers::SettingLists> settings;
    std::unique_ptr<customers::FrmKokyaku> screen;
    QString error;
    {
        ui::WaitScope wait(context.wait);
        store = customers::CustomerStore::open(context.appFolder, &error);
        if (store)
            settings = customers::SettingLists::open(context.appFolder, &error);
        if (store && settings) {
            screen = std::make_unique<customers::FrmKokyaku>(context.session, context.messages, *store,
                                                             *settings, context.sheet);
            QObject::connect(screen.get(), &customers::FrmKokyaku::selected, context.sheet,
                             [&context] { context.sheet->refreshHeader(); });
        }
    }
    if (!screen) {
        reportOpenFailure(context, error);
        return;
    }
    screen->exec();
}

void openOfficeNames(AppContext &context)
{
    QString error;
    std::unique_ptr<customers::SettingLists> settings = customers::SettingLists::open(context.appFolder, &error);
    if (!settings) {
        reportOpenFailure(context, error);
        return;
    }
    customers::DlgNewTouroku dialog(context.messages, *settings, context.settings);
    dialog.exec();
}

void openCustomerTables(AppContext &context)
{
    QString error;
    std::unique_ptr<customers::CustomerStore> store = customers::CustomerStore::open(context.appFolder, &error);
    if (!store) {
        reportOpenFailure(context, error);
        return;
    }
    customers::FrmKokyakuSett screen(context.messages, store->database(), context.settings);
    screen.exec();
}

} // namespace

void wireCustomers(AppContext &context)
{
    context.sheet->setButtonEnabled(sheet::SheetButton::Customers, true);
    QObject::connect(context.sheet, &sheet::FrmMitumori::openRequested, context.sheet,
                     [&context](sheet::SheetButton button) {
                         if (button == sheet::SheetButton::Customers)
                             openCustomers(context);
                     });
    context.settings->setScreen(QStringLiteral("Command2"), [&context] { openOfficeNames(context); });
    context.settings->setScreen(QStringLiteral("cmdKokyakuSet"), [&context] { openCustomerTables(context); });
}

} // namespace est::app
