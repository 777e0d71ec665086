#pragma once
// dlgHikazei: picks the non-taxable items of the open estimate from the master list, with
// their amounts, and hands their sum to the sheet (lblHZei) when confirmed.

#include "common/messages.h"
#include "common/session.h"
#include "sheet/non_taxable_list.h"
#include "sheet/non_taxable_store.h"
#include "uikit/guarded_dialog.h"

#include <memory>

class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QTableWidget;

namespace est::sheet {

class FrmMitumori;

class DlgHikazei : public ui::GuardedDialog
{
    Q_OBJECT
public:
    DlgHikazei(Session &session, Messages &messages, const QString &appFolder, FrmMitumori *sheet = nullptr,
               QWidget *parent = nullptr);
    ~DlgHikazei() override;

    const NonTaxableList &items() const { return m_list; }

private:
    void buildUi();
    void showRows();
    void chooseItem(int index);
    void addRow();
    void editRow();
    void deleteRow();
    void confirm();
    int selectedRow() const;
    bool reportChange(NonTaxableList::Change change);
    void clearEntry();

    Session &m_session;
    FrmMitumori *m_sheet;
    std::unique_ptr<NonTaxableStore> m_store;
    NonTaxableList m_list;
    int m_editing = -1;  // row being edited, -1 when none

    QGroupBox *m_fra1 = nullptr, *m_fra2 = nullptr;
    QComboBox *m_cboHikazei = nullptr;
    QLineEdit *m_txtKoumoku = nullptr, *m_txtHikazei = nullptr, *m_txtKingaku = nullptr;
    QLabel *m_lblNo = nullptr, *m_lblHSum = nullptr;
    QTableWidget *m_grid = nullptr;
    QPushButton *m_cmdAdd = nullptr, *m_cmdEdit = nullptr, *m_cmdDel = nullptr;
};

} // namespace est::sheet
