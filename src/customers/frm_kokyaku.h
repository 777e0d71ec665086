#pragma once
// frmKokyaku: customers and their vehicles. Search by name, edit the customer block and the
// vehicle block, add and delete, and hand the chosen customer and vehicle to the estimate.

#include "common/messages.h"
#include "common/session.h"
#include "customers/customer_browser.h"

#include <QDialog>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QStringListModel;
class QTableWidget;

namespace est::customers {

class SettingLists;

class FrmKokyaku : public QDialog
{
    Q_OBJECT
public:
    // Loads the name list, the choice lists and the first customer.
    FrmKokyaku(Session &session, Messages &messages, CustomerStore &store, SettingLists &settings,
               QWidget *parent = nullptr);
    ~FrmKokyaku() override;

    const CustomerBrowser &browser() const { return m_browser; }

    // Every way of closing (キャンセル, Esc, the close box) first settles an open block.
    void done(int result) override;

Q_SIGNALS:
    // cmdSelect put a customer and vehicle into the session (arrays and header).
    void selected();

private:
    void buildUi();
    void loadNames();
    void showState();
    void showCustomer(const Customer &customer);
    void showVehicle(const Vehicle &vehicle);
    void showVehicleGrid();
    void updateControls();
    Customer customerFromBlock() const;
    Vehicle vehicleFromBlock() const;

    void search();
    void move(bool forward);
    void editCustomer();
    void editVehicle();
    void newCustomer();
    void newVehicle();
    void saveBlock();
    void cancelBlock();
    void deleteCustomer();
    void deleteVehicle();
    void refuseDeleteWithVehicles();
    bool settleOpenBlock();
    void selectForEstimate();
    void chooseRegistration();
    void vehicleRowChosen(int row);
    void reportError();

    Session &m_session;
    Messages &m_messages;
    SettingLists &m_settings;
    CustomerBrowser m_browser;
    QStringListModel *m_names = nullptr;
    struct Widgets;
    Widgets *m_w;
};

} // namespace est::customers
