#pragma once
// frmMitumori: the estimate sheet, the program's main window. It shows the open estimate
// from the session, forwards what the user types to the session and the chain of totals,
// and asks the rest of the program (through its signals) to open the editors.

#include "common/messages.h"
#include "common/session.h"
#include "sheet/estimate_sheet.h"

#include <QHash>
#include <QWidget>

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QTableWidget;

namespace est::sheet {

class EstimateStore;

// The sheet's buttons; objectNames in brackets.
enum class SheetButton {
    WorkItems,   // 作業作成 [cmdSakusei]
    Paint,       // 塗装作成 [cmdPaint]
    Customers,   // 顧客情報 [cmdKokyaku]
    NonTaxable,  // 非課税項目 [cmdHikazei]
    SlipDate,    // 伝票日付変更 [cmdDay]
    Company,     // 会社情報変更 [cmdKaisya]
    Simple,      // 簡易見積 [cmdKani]
    Sales,       // 売上げ [cmdUriage]
    Print,       // 印刷 [cmdPrint]
    Compare,     // 比較 [cmdHikaku]
    Revise,      // 修正見積 [cmdRevise]
    Photo,       // 写真 [cmdPhoto]
    Save,        // ファイルの保存 [cmdSave]
    End,         // 終了 [cmdEnd]
};

class FrmMitumori : public QWidget
{
    Q_OBJECT
public:
    FrmMitumori(Session &session, Messages &messages, QWidget *parent = nullptr);
    ~FrmMitumori() override;

    // Who saves the estimate; without one, saving reports that it cannot save.
    void setStore(EstimateStore *store) { m_sheet.setStore(store); }

    // Shows everything from the session again: header, grid, totals and the chain.
    void refresh();
    // Rebuilds the grid from the shared row table and recomputes the totals.
    void refreshRows();
    // Shows the editors' totals and runs the chain from A + B.
    void refreshTotals();
    // Shows the header fields from the session.
    void refreshHeader();
    // Shows the company block and tax rate from the session's company array.
    void showCompany();
    // The caption: "見積書作成　修正2" for a revised estimate.
    void showRevision();
    // Shows "estimate date / slip number".
    void showSlip();
    // Puts the non-taxable total into lblHZei and runs the chain from there.
    void setNonTaxableTotal(Yen sum);
    // Clears the sheet for a new estimate (header, rows, totals, figures).
    void clearEstimate();

    void setButtonEnabled(SheetButton button, bool enabled);

    // The end command as the "終了" button runs it; true when the program may end.
    bool confirmEnd();
    // The save command as "ファイルの保存" runs it.
    void saveEstimate();

Q_SIGNALS:
    void openRequested(est::sheet::SheetButton button);
    void quitRequested();

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    void buildUi();
    QWidget *buildHeader();
    QWidget *buildTotals();
    QWidget *buildButtons();
    void connectHeaderField(QLineEdit *edit, QString EstimateHeader::*field);
    void prepareGrid();
    void clearGrid();
    void showFigures();
    void onDocumentKindChanged(int index);

    Session &m_session;
    Messages &m_messages;
    EstimateSheet m_sheet;
    struct Widgets;
    Widgets *m_w;
    QHash<SheetButton, QPushButton *> m_buttons;
    bool m_showing = false;
};

} // namespace est::sheet
