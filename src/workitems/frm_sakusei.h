#pragma once
// frmSakusei: the work item editor. The user composes the estimate's rows, picking part
// names from the catalogue; labour comes from index × rate with the shop's rounding. The
// editor works on a copy of the rows and writes them back to the session only on OK.

#include "common/session.h"
#include "uikit/guarded_dialog.h"
#include "workitems/catalogue.h"
#include "workitems/labour.h"
#include "workitems/work_item_table.h"

#include <memory>

class QComboBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QTableWidget;

namespace est::workitems {

class FrmSakusei : public ui::GuardedDialog
{
    Q_OBJECT
public:
    // `catalogue` is the chosen vehicle type's table, or null when none could be opened (the
    // catalogue lists then stay empty and rows are typed by hand).
    FrmSakusei(Session &session, Messages &messages, std::unique_ptr<CatalogueTable> catalogue,
               QWidget *parent = nullptr);
    ~FrmSakusei() override;

    const WorkItemTable &rows() const { return m_table; }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void buildUi();
    void fillClassifications();
    void classificationChosen(int row);
    void sectionChosen(int row);
    void partChosen(int row);

    void rateChanged(const QString &text);
    void indexChanged(const QString &text);
    void indexLeft();
    void directLabourChanged(const QString &text);
    void partInputsChanged();
    void recomputeLabour();

    void addRow();
    void insertRow();
    void editRow();
    void confirmEdit();
    void cancelEdit();
    void deleteRow();
    void sortRows();
    void handBack();

    WorkItemRow inputs() const;
    void loadInputs(const WorkItemRow &row);
    void clearInputs();
    void showRows();
    void showTotals();
    void updateButtons();
    int selectedRow() const;
    void reportRowLimit();
    void reportTooLarge();

    Session &m_session;
    std::unique_ptr<CatalogueTable> m_catalogue;
    WorkItemTable m_table;
    std::int16_t m_rate;
    Rounding m_rounding;
    std::int16_t m_bnum = 0;
    std::int16_t m_knum = 0;
    bool m_inserting = false;
    int m_insertAt = -1;
    int m_editing = -1;
    bool m_addRefused = false; // the row limit was reported; cmdAdd stays off until a row goes
    bool m_quiet = false; // set while the screen itself writes into the inputs

    struct Widgets;
    std::unique_ptr<Widgets> m_w;
};

} // namespace est::workitems
