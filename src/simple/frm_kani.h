#pragma once
// frmKani: the simple estimate's price screen. The four classification numbers, a drawing of
// the car whose panels are clicked to list their unit prices, and the chosen row's part name,
// work content, labour and material cost, handed to the work item editor on OK.

#include "common/simple_state.h"
#include "simple/price_form.h"
#include "uikit/guarded_dialog.h"

#include <functional>
#include <optional>

class QLabel;
class QLineEdit;
class QPushButton;
class QTableWidget;

namespace est::simple {

class CarDrawing;

class FrmKani : public ui::GuardedDialog
{
    Q_OBJECT
public:
    // `store` may be null: the grid then stays empty.
    FrmKani(Messages &messages, EasyEstimateStore *store, const SimpleEstimateState &state, QWidget *parent = nullptr);

    // Offers 区分の変更: `rechoose` asks for new classes, empty when the user cancelled.
    void setRechoose(std::function<std::optional<SimpleEstimateState>()> rechoose);

    // What OK hands on; empty before OK.
    const std::optional<SimpleEntry> &entry() const { return m_entry; }

private:
    void showClassification();
    void changeClasses();
    void panelClicked(int num);
    void showRows();
    void clearChosenRow();
    void rowChosen();
    void confirm();

    EasyEstimateStore *m_store;
    PriceForm m_form;
    std::function<std::optional<SimpleEstimateState>()> m_rechoose;
    QPushButton *m_cmdKubun;
    std::optional<SimpleEntry> m_entry;
    CarDrawing *m_drawing;
    QTableWidget *m_grid;
    QLabel *m_lbl[5];
    QLabel *m_names[4];
    QLabel *m_lblNo, *m_panelName;
    QLineEdit *m_txtSBui, *m_txtSNaiyo, *m_txtKotin, *m_txtZairyo;
};

} // namespace est::simple
