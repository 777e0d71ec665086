// frmPaint's controls and where they stand.
#include "paint/frm_paint_widgets.h"

#include "uikit/key_filter.h"
#include "uikit/named.h"
#include "workitems/numeric_keys.h"
#include "workitems/text_box.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

namespace est::paint {

using ui::named;

namespace {

QLabel *valueLabel(QWidget *parent, const char *name, int width = 80)
{
    auto *label = named(new QLabel(parent), name);
    label->setFrameShape(QFrame::Panel);
    label->setFrameShadow(QFrame::Sunken);
    label->setMinimumWidth(width);
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    return label;
}

QLineEdit *numberBox(QWidget *parent, const char *name, Messages &messages, bool point = true)
{
    auto *box = named(new QLineEdit(parent), name);
    box->setAlignment(Qt::AlignRight);
    box->setMaximumWidth(80);
    new ui::KeyFilter(box, workitems::numericKeyRule(point), messages);
    workitems::selectAllOnFocus(box);
    return box;
}

QPushButton *button(QWidget *parent, const char *name, const char *caption)
{
    return named(new QPushButton(QString::fromUtf8(caption), parent), name);
}

QTableWidget *grid(QWidget *parent, const char *name, const QStringList &headers)
{
    auto *g = named(new QTableWidget(0, int(headers.size()), parent), name);
    g->setHorizontalHeaderLabels(headers);
    g->setEditTriggers(QAbstractItemView::NoEditTriggers);
    g->setSelectionBehavior(QAbstractItemView::SelectRows);
    g->setSelectionMode(QAbstractItemView::SingleSelection);
    g->verticalHeader()->setVisible(false);
    g->verticalHeader()->setDefaultSectionSize(22);
    g->horizontalHeader()->setStretchLastSection(true);
    return g;
}

} // namespace

void FrmPaint::buildUi()
{
    Widgets &w = *m_w;
    Messages &msg = messages();
    auto *layout = new QVBoxLayout(this);

    // The vehicle and the values looked up for it.
    auto *vehicle = new QGroupBox(QStringLiteral("車両"), this);
    auto *vl = new QGridLayout(vehicle);
    int col = 0;
    auto put = [&](const char *caption, QWidget *field) {
        vl->addWidget(new QLabel(QString::fromUtf8(caption), vehicle), col / 12, col % 12);
        vl->addWidget(field, col / 12, col % 12 + 1);
        col += 2;
    };
    put("お客様", w.lbl1 = valueLabel(vehicle, "lbl1", 120));
    put("車名", w.lbl2 = valueLabel(vehicle, "lbl2", 100));
    put("カラーNo", w.lbl3 = valueLabel(vehicle, "lbl3", 60));
    put("塗装種類", w.lbl4 = valueLabel(vehicle, "lbl4", 80));
    put("高機能塗装", w.lbl5 = valueLabel(vehicle, "lbl5", 80));
    put("車両区分", w.lblSyasyu = valueLabel(vehicle, "lblSyasyu", 50));
    put("塗装レート", w.txtRato = numberBox(vehicle, "txtRato", msg, false));
    put("材料係数", w.lblKsu = valueLabel(vehicle, "lblKsu", 50));
    put("高機能基本指数", w.lblKKihonSisu = valueLabel(vehicle, "lblKKihonSisu", 50));
    put("高機能材料係数", w.lblKouZairyo = valueLabel(vehicle, "lblKouZairyo", 50));
    layout->addWidget(vehicle);

    auto *middle = new QHBoxLayout;
    auto *lists = new QVBoxLayout;
    w.HFLg1 = grid(this, "HFLg1", {QStringLiteral("コード"), QStringLiteral("区分")});
    w.HFLg1->setColumnWidth(0, 50);
    w.HFlg2 = grid(this, "HFlg2", {QStringLiteral("部品名")});
    lists->addWidget(w.HFLg1, 1);
    lists->addWidget(w.HFlg2, 1);
    auto *listBox = new QWidget(this);
    listBox->setLayout(lists);
    listBox->setFixedWidth(230);
    middle->addWidget(listBox);

    // The entry line.
    auto *entry = new QGroupBox(QStringLiteral("入力"), this);
    auto *el = new QGridLayout(entry);
    el->setVerticalSpacing(4);
    el->addWidget(new QLabel(QStringLiteral("部品名"), entry), 0, 0);
    w.txtBuimei = named(new QLineEdit(entry), "txtBuimei");
    el->addWidget(w.txtBuimei, 0, 1, 1, 6);

    el->addWidget(new QLabel(QStringLiteral("枚数"), entry), 1, 0);
    w.cboMai = named(new QComboBox(entry), "cboMai");
    w.cboMai->setEditable(true);
    w.cboMai->addItem(QString());
    for (int i = 1; i <= 10; ++i)
        w.cboMai->addItem(QString::number(i));
    new ui::KeyFilter(w.cboMai->lineEdit(), workitems::numericKeyRule(false), msg);
    el->addWidget(w.cboMai, 1, 1);
    el->addWidget(new QLabel(QStringLiteral("塗料"), entry), 1, 2);
    w.cboToryo = named(new QComboBox(entry), "cboToryo");
    el->addWidget(w.cboToryo, 1, 3);
    el->addWidget(new QLabel(QStringLiteral("基本指数"), entry), 1, 4);
    w.txtKisoSisu = numberBox(entry, "txtKisoSisu", msg);
    el->addWidget(w.txtKisoSisu, 1, 5);
    el->addWidget(w.lblKiso = valueLabel(entry, "lblKiso"), 1, 6);

    w.chk2s = named(new QCheckBox(QStringLiteral("2コートソリッド加算"), entry), "chk2s");
    el->addWidget(w.chk2s, 2, 0, 1, 2);
    w.txt2Solid = numberBox(entry, "txt2Solid", msg);
    el->addWidget(w.txt2Solid, 2, 2);
    el->addWidget(w.lbl2SolidSum = valueLabel(entry, "lbl2SolidSum"), 2, 3);
    el->addWidget(w.cmdR2 = button(entry, "cmdR2", "ルーフ"), 2, 4);
    el->addWidget(w.cmdNotR2 = button(entry, "cmdNotR2", "ルーフ以外"), 2, 5);

    w.chkT = named(new QCheckBox(QStringLiteral("低隠蔽性塗料加算"), entry), "chkT");
    el->addWidget(w.chkT, 3, 0, 1, 2);
    w.txtTInpei = numberBox(entry, "txtTInpei", msg);
    el->addWidget(w.txtTInpei, 3, 2);
    el->addWidget(w.lblTinpeiSum = valueLabel(entry, "lblTinpeiSum"), 3, 3);
    el->addWidget(w.cmdRTei = button(entry, "cmdRTei", "ルーフ"), 3, 4);
    el->addWidget(w.cmdNotRTei = button(entry, "cmdNotRTei", "ルーフ以外"), 3, 5);
    el->addWidget(w.cmdTInpei = button(entry, "cmdTInpei", "新品／修正"), 3, 6);

    el->addWidget(w.cmdKoukino = button(entry, "cmdKoukino", "割増"), 4, 0);
    el->addWidget(w.cmdNaiban = button(entry, "cmdNaiban", "内板塗装"), 4, 1);
    el->addWidget(new QLabel(QStringLiteral("指数"), entry), 4, 2);
    w.txtSisu = numberBox(entry, "txtSisu", msg);
    el->addWidget(w.txtSisu, 4, 3);
    el->addWidget(new QLabel(QStringLiteral("工賃"), entry), 4, 4);
    el->addWidget(w.lblTKei = valueLabel(entry, "lblTKei"), 4, 5);

    w.chkZ = named(new QCheckBox(QStringLiteral("材料費"), entry), "chkZ");
    el->addWidget(w.chkZ, 5, 0);
    w.txtZairyo = named(new QLineEdit(entry), "txtZairyo");
    w.txtZairyo->setReadOnly(true);
    w.txtZairyo->setAlignment(Qt::AlignRight);
    w.txtZairyo->setMaximumWidth(100);
    el->addWidget(w.txtZairyo, 5, 1);

    auto *rowButtons = new QHBoxLayout;
    rowButtons->addWidget(w.cmdAdd = button(entry, "cmdAdd", "追加"));
    rowButtons->addWidget(w.cmdInsRow = button(entry, "cmdInsRow", "挿入"));
    rowButtons->addWidget(w.cmdEdit = button(entry, "cmdEdit", "修正"));
    rowButtons->addWidget(w.cmdECancel = button(entry, "cmdECancel", "修正取消"));
    rowButtons->addWidget(w.cmdDel = button(entry, "cmdDel", "削除"));
    el->addLayout(rowButtons, 6, 0, 1, 7);
    middle->addWidget(entry, 1);
    auto *top = new QWidget(this);
    top->setLayout(middle);
    middle->setContentsMargins(0, 0, 0, 0);
    top->setMaximumHeight(290);
    layout->addWidget(top);

    w.HFlg3 = grid(this, "HFlg3", paintGridHeaders());
    const int widths[] = {36, 90, 330, 50, 50, 60, 80, 90};
    for (int c = 0; c < 8; ++c)
        w.HFlg3->setColumnWidth(c, widths[c]);
    w.HFlg3->setMinimumHeight(230);
    layout->addWidget(w.HFlg3, 1);

    auto *sums = new QHBoxLayout;
    auto sum = [&](const char *caption, QLabel *label) {
        sums->addWidget(new QLabel(QString::fromUtf8(caption), this));
        sums->addWidget(label);
    };
    sum("塗装工賃", w.lblTSum = valueLabel(this, "lblTSum"));
    sum("加算工賃", w.lblKKSisuSum = valueLabel(this, "lblKKSisuSum"));
    sum("付加指数", w.lblFukaSum = valueLabel(this, "lblFukaSum"));
    sum("バンパー", w.lblBumpaSum = valueLabel(this, "lblBumpaSum"));
    sum("材料費", w.lblZSum = valueLabel(this, "lblZSum"));
    sum("塗装計", w.lblSSum = valueLabel(this, "lblSSum", 100));
    layout->addLayout(sums);

    auto *bottom = new QHBoxLayout;
    bottom->addWidget(w.cmdBumpa = button(this, "cmdBumpa", "バンパー"));
    bottom->addWidget(w.cmdFuka = button(this, "cmdFuka", "付加指数"));
    // The bumper and additional-index screens are connected where they are built.
    w.cmdBumpa->setEnabled(false);
    w.cmdFuka->setEnabled(false);
    bottom->addStretch(1);
    bottom->addWidget(w.cmdOK = button(this, "cmdOK", "OK"));
    bottom->addWidget(w.cmdCancel = button(this, "cmdCancel", "キャンセル"));
    layout->addLayout(bottom);
    resize(1240, 700);
}

} // namespace est::paint
