#pragma once
// frmBuhin: the parts catalogue editor. Maker and vehicle type first, then a classification
// and a section, whose parts can be added, renamed and deleted.

#include "workitems/catalogue.h"
#include "workitems/catalogue_choice.h"
#include "workitems/catalogue_editor_mode.h"

#include <QDialog>
#include <memory>

class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QTableWidget;

namespace est::workitems {

class FrmBuhin : public QDialog
{
    Q_OBJECT
public:
    FrmBuhin(CatalogueChoice &choice, QWidget *parent = nullptr);
    ~FrmBuhin() override;

    CatalogueEditorMode mode() const { return m_mode; }

protected:
    // However the screen closes, its lists and both catalogue connections are closed.
    void done(int result) override;

private:
    void buildUi();
    void fillMakerLists();
    void makerOrTypeChosen();
    void next();
    void classificationChosen(int row);
    void sectionChosen(int row);
    void showSection();
    void startNew();
    void startEdit();
    void startDelete();
    void confirm();
    void cancel();
    void backToStart();
    void closeAll();
    void setMode(CatalogueEditorMode mode);
    Messages &messages() { return m_choice.messages(); }

    CatalogueChoice &m_choice;
    QList<Maker> m_makers;
    QList<VehicleType> m_types;
    std::unique_ptr<CatalogueTable> m_table;
    QList<CatalogueRow> m_rows;
    QString m_makerDb;
    QString m_typeTable;
    std::int16_t m_bnum = 0;
    std::int16_t m_knum = 0;
    CatalogueEditorMode m_mode = CatalogueEditorMode::Choosing;

    QListWidget *m_dlstCarSec, *m_dlstCType, *m_dlstBunrui, *m_dlstKubun;
    QTableWidget *m_DG1;
    QLabel *m_lblBNum, *m_lblBunrui, *m_lblKNum, *m_lblKubun, *m_lblNum;
    QLineEdit *m_txtBuhin;
    QPushButton *m_cmdNext, *m_cmdNew, *m_cmdEdit, *m_cmdDel, *m_cmdOK, *m_cmdCancel, *m_cmdFarst;
};

} // namespace est::workitems
