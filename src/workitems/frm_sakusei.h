#pragma once
// frmSakusei: the work item editor. The user composes the estimate's rows, picking part
// names from the catalogue; labour comes from index × rate with the shop's rounding. The
// editor works on a copy of the rows and writes them back to the session only on OK.

#include "common/session.h"
#include "uikit/guarded_dialog.h"
#include "workitems/catalogue.h"
#include "workitems/index_hand_over.h"
#include "workitems/work_item_editor.h"

#include <functional>
#include <memory>
#include <optional>

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

    const WorkItemTable &rows() const { return m_editor.table(); }

    // The screens behind 鈑金指数 and 簡易見積, which live in subsystems built on this one;
    // each button stays off until its screen is given.
    using SimpleEstimate = std::function<std::optional<SimpleEntry>(QWidget *parent)>;
    void setSheetMetalScreen(IndexScreen screen);
    void setSimpleEstimate(SimpleEstimate run);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void buildUi();
    void fillClassifications();
    void classificationChosen(int row);
    void sectionChosen(int row);
    void partChosen(int row);

    void showInputs();
    void showRows();
    void updateButtons();
    void showAll();
    int selectedRow() const;
    void handBack();

    Session &m_session;
    std::unique_ptr<CatalogueTable> m_catalogue;
    WorkItemEditor m_editor;
    std::int16_t m_bnum = 0;
    std::int16_t m_knum = 0;
    IndexScreen m_sheetMetal;
    SimpleEstimate m_simpleEstimate;

    struct Widgets;
    std::unique_ptr<Widgets> m_w;
};

} // namespace est::workitems
