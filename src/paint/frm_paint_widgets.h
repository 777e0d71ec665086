#pragma once
// The controls of frmPaint, shared by its layout and its behaviour.

#include "paint/frm_paint.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QTableWidget;

namespace est::paint {

struct FrmPaint::Widgets
{
    QLabel *lbl1, *lbl2, *lbl3, *lbl4, *lbl5, *lblSyasyu, *lblKsu, *lblKKihonSisu, *lblKouZairyo;
    QLineEdit *txtRato;
    QTableWidget *HFLg1, *HFlg2, *HFlg3;
    QLineEdit *txtBuimei, *txtKisoSisu, *txt2Solid, *txtTInpei, *txtSisu, *txtZairyo;
    QComboBox *cboMai, *cboToryo;
    QLabel *lblKiso, *lbl2SolidSum, *lblTinpeiSum, *lblTKei;
    QCheckBox *chk2s, *chkT, *chkZ;
    QPushButton *cmdR2, *cmdNotR2, *cmdRTei, *cmdNotRTei, *cmdTInpei, *cmdKoukino, *cmdNaiban;
    QPushButton *cmdAdd, *cmdInsRow, *cmdEdit, *cmdECancel, *cmdDel, *cmdBumpa, *cmdFuka, *cmdOK, *cmdCancel;
    QLabel *lblTSum, *lblKKSisuSum, *lblFukaSum, *lblBumpaSum, *lblZSum, *lblSSum;
};

} // namespace est::paint
