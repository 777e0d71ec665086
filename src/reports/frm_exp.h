#pragma once
// frmExp: data export of the settings hub. Customers and vehicles as CSV (UTF-8 with a
// byte-order mark, or Shift_JIS), a dated backup archive of all databases and estimates with
// its restore, the import of part prices from a maker's CSV price list, and the conversion of
// a folder of old .xls estimates into .xlsx (旧形式の一括変換).

#include "common/clock.h"
#include "common/messages.h"
#include "reports/file_chooser.h"
#include "uikit/guarded_dialog.h"

#include <functional>

class QRadioButton;

namespace est::reports {

class FrmExp : public ui::GuardedDialog
{
    Q_OBJECT
public:
    FrmExp(QString appFolder, const Clock &clock, FileChooser chooser, Messages &messages, QWidget *parent = nullptr);

    // Opens the price-import dialog (set by the wiring, which knows the catalogue register).
    void setPriceImport(std::function<void(QWidget *parent)> open);

    void exportCustomers();
    void backup();
    void restore();
    void convertLegacy();

private:
    QString m_appFolder;
    const Clock &m_clock;
    FileChooser m_chooser;
    std::function<void(QWidget *)> m_priceImport;
    QRadioButton *m_utf8;
    QRadioButton *m_shiftJis;
    QRadioButton *m_beside;
};

} // namespace est::reports
