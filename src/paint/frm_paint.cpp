#include "paint/frm_paint.h"

#include "common/number_format.h"
#include "paint/dlg_naiban.h"
#include "paint/dlg_tinpei.h"
#include "uikit/key_filter.h"
#include "uikit/named.h"
#include "workitems/labour.h"
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
#include <QSignalBlocker>
#include <QTableWidget>
#include <QVBoxLayout>

namespace est::paint {

using ui::named;

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

void setRow(QTableWidget *g, int row, const QStringList &cells, int rightFrom)
{
    for (int c = 0; c < cells.size() && c < g->columnCount(); ++c) {
        auto *item = new QTableWidgetItem(cells.at(c));
        if (c >= rightFrom)
            item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
        g->setItem(row, c, item);
    }
}

} // namespace

FrmPaint::FrmPaint(Session &session, Messages &messages, const PaintMasters *masters, QWidget *parent)
    : GuardedDialog(messages, parent), m_session(session), m_editor(masters, session), m_w(new Widgets)
{
    setObjectName(QStringLiteral("frmPaint"));
    setWindowTitle(QStringLiteral("塗装作成"));
    setModal(true);
    buildUi();

    m_w->lbl1->setText(m_editor.customerName());
    m_w->lbl2->setText(m_editor.carName());
    m_w->lbl3->setText(m_editor.colourNumber());
    m_w->lbl4->setText(m_editor.paintKind());
    m_w->lbl5->setText(m_editor.highFunctionName());
    m_w->lblSyasyu->setText(m_editor.vehicleClass());
    m_w->lblKsu->setText(m_editor.coefficient());
    m_w->lblKKihonSisu->setText(m_editor.highFunctionIndex());
    m_w->lblKouZairyo->setText(m_editor.highFunctionCoefficient());
    if (m_editor.calculation().rate() != 0)
        m_w->txtRato->setText(QString::number(m_editor.calculation().rate()));

    fillCategories();
    m_w->cboToryo->addItems(m_editor.materials());
    const PaintChoices choices = choicesFrom(session.paint.lines);
    const QString material = session.paint.entered ? choices.material : m_editor.presetMaterial();
    m_w->cboToryo->setCurrentIndex(m_w->cboToryo->findText(material));
    m_w->chkZ->setChecked(choices.materialOn);
    m_w->chk2s->setChecked(choices.twoCoatSolid);
    m_w->chkT->setChecked(choices.lowHiding);
    twoCoatToggled(choices.twoCoatSolid);
    lowHidingToggled(choices.lowHiding);
    connectUi();
    showLines();
    showSums();
    updateButtons();
}

FrmPaint::~FrmPaint()
{
    delete m_w;
}

QPushButton *FrmPaint::bumperButton() const { return m_w->cmdBumpa; }
QPushButton *FrmPaint::additionalButton() const { return m_w->cmdFuka; }

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

void FrmPaint::connectUi()
{
    Widgets &w = *m_w;
    connect(w.HFLg1, &QTableWidget::cellClicked, this, [this](int row) { categoryClicked(row); });
    connect(w.HFlg2, &QTableWidget::cellClicked, this, [this](int row) { partClicked(row); });
    connect(w.HFlg3, &QTableWidget::cellClicked, this, [this](int row) {
        m_chosenRow = row;
        updateButtons();
    });
    connect(w.cboMai, &QComboBox::currentTextChanged, this, [this] { basicInputsChanged(); });
    connect(w.cboToryo, &QComboBox::currentTextChanged, this, [this] { basicInputsChanged(); });
    connect(w.txtKisoSisu, &QLineEdit::textChanged, this, &FrmPaint::basicIndexChanged);
    connect(w.txt2Solid, &QLineEdit::textChanged, this, [this](const QString &t) { showLabour(m_w->lbl2SolidSum, t); });
    connect(w.txtTInpei, &QLineEdit::textChanged, this, [this](const QString &t) { showLabour(m_w->lblTinpeiSum, t); });
    // Typed surcharge indices make the entry a surcharge line.
    connect(w.txt2Solid, &QLineEdit::textEdited, this, [this](const QString &t) { setEntryIndex(t, LineKind::TwoCoatSolid); });
    connect(w.txtTInpei, &QLineEdit::textEdited, this, [this](const QString &t) { setEntryIndex(t, LineKind::LowHiding); });
    connect(w.txtSisu, &QLineEdit::textChanged, this, [this] { entryIndexChanged(); });
    connect(w.txtSisu, &QLineEdit::editingFinished, this, &FrmPaint::indexLeft);
    connect(w.chkZ, &QCheckBox::toggled, this, [this] { entryIndexChanged(); });
    connect(w.txtRato, &QLineEdit::textChanged, this, &FrmPaint::rateChanged);
    connect(w.chk2s, &QCheckBox::toggled, this, &FrmPaint::twoCoatToggled);
    connect(w.chkT, &QCheckBox::toggled, this, &FrmPaint::lowHidingToggled);
    connect(w.cmdR2, &QPushButton::clicked, this,
            [this] { applySurcharge(m_editor.twoCoatSolid(m_w->txtBuimei->text(), true)); });
    connect(w.cmdNotR2, &QPushButton::clicked, this,
            [this] { applySurcharge(m_editor.twoCoatSolid(m_w->txtBuimei->text(), false)); });
    connect(w.cmdRTei, &QPushButton::clicked, this,
            [this] { applySurcharge(m_editor.lowHiding(m_w->txtBuimei->text(), true)); });
    connect(w.cmdNotRTei, &QPushButton::clicked, this,
            [this] { applySurcharge(m_editor.lowHiding(m_w->txtBuimei->text(), false)); });
    connect(w.cmdKoukino, &QPushButton::clicked, this,
            [this] { applySurcharge(m_editor.highFunctionSurcharge(m_w->txtBuimei->text())); });
    connect(w.cmdTInpei, &QPushButton::clicked, this, &FrmPaint::openLowHiding);
    connect(w.cmdNaiban, &QPushButton::clicked, this, &FrmPaint::openInnerPanels);
    connect(w.cmdAdd, &QPushButton::clicked, this, &FrmPaint::addLine);
    connect(w.cmdInsRow, &QPushButton::clicked, this, &FrmPaint::insertLine);
    connect(w.cmdEdit, &QPushButton::clicked, this, &FrmPaint::editLine);
    connect(w.cmdECancel, &QPushButton::clicked, this, &FrmPaint::cancelEdit);
    connect(w.cmdDel, &QPushButton::clicked, this, &FrmPaint::deleteLine);
    connect(w.cmdOK, &QPushButton::clicked, this, &FrmPaint::confirm);
    connect(w.cmdCancel, &QPushButton::clicked, this, &FrmPaint::cancelByButton);
}

void FrmPaint::fillCategories()
{
    const QList<PaintCategory> categories = m_editor.categories();
    m_w->HFLg1->setRowCount(int(categories.size()));
    for (int r = 0; r < categories.size(); ++r)
        setRow(m_w->HFLg1, r, {categories.at(r).code, categories.at(r).name}, 2);
}

void FrmPaint::categoryClicked(int row)
{
    const QTableWidgetItem *code = m_w->HFLg1->item(row, 0);
    const QTableWidgetItem *name = m_w->HFLg1->item(row, 1);
    if (!code)
        return;
    m_section = name ? name->text() : QString();
    const QList<PaintPart> parts = m_editor.parts(code->text());
    m_w->HFlg2->setRowCount(int(parts.size()));
    for (int r = 0; r < parts.size(); ++r) {
        setRow(m_w->HFlg2, r, {parts.at(r).name}, 1);
        m_w->HFlg2->item(r, 0)->setData(Qt::UserRole, parts.at(r).location);
    }
}

void FrmPaint::partClicked(int row)
{
    const QTableWidgetItem *item = m_w->HFlg2->item(row, 0);
    if (!item)
        return;
    m_w->txtBuimei->setText(item->text());
    m_location = item->data(Qt::UserRole).toString();
}

void FrmPaint::basicInputsChanged()
{
    m_w->txtKisoSisu->setText(m_editor.basicIndex(m_w->cboMai->currentText(), m_w->cboToryo->currentText()));
}

void FrmPaint::basicIndexChanged(const QString &text)
{
    showLabour(m_w->lblKiso, text);
    setEntryIndex(text, LineKind::Basic);
}

void FrmPaint::setEntryIndex(const QString &index, LineKind kind)
{
    m_kind = kind;
    if (kind != LineKind::LowHiding)
        m_partKind.clear();
    m_w->txtSisu->setText(index);
}

void FrmPaint::showLabour(QLabel *label, const QString &index)
{
    const auto labour = isBlank(index) ? std::nullopt : m_editor.calculation().labourOf(index);
    label->setText(labour ? formatThousands(*labour) : QString());
}

void FrmPaint::entryIndexChanged()
{
    const QString index = m_w->txtSisu->text();
    showLabour(m_w->lblTKei, index);
    const auto labour = isBlank(index) ? std::nullopt : m_editor.calculation().labourOf(index);
    const auto material = labour && m_w->chkZ->isChecked() ? m_editor.calculation().materialOf(*labour) : std::nullopt;
    m_w->txtZairyo->setText(material ? formatThousands(*material) : QString());
}

void FrmPaint::indexLeft()
{
    QLineEdit *box = m_w->txtSisu;
    if (isBlank(box->text()))
        return;
    if (isBlank(m_w->txtRato->text())) {
        messages().inform(QStringLiteral("レーバーレートに金額が入力されておりません。"), QStringLiteral("注意"),
                          MessageIcon::Critical);
        box->clear();
        m_w->txtRato->setFocus();
        return;
    }
    const QString formatted = workitems::reformatIndex(box->text());
    if (formatted != box->text())
        box->setText(formatted);
}

void FrmPaint::rateChanged(const QString &text)
{
    const auto rate = isBlank(text) ? std::optional<std::int16_t>(0) : workitems::parseRate(text);
    if (!rate)
        return; // a rate that does not fit keeps the one in force
    m_editor.calculation().setRate(*rate);
    showLabour(m_w->lblKiso, m_w->txtKisoSisu->text());
    showLabour(m_w->lbl2SolidSum, m_w->txt2Solid->text());
    showLabour(m_w->lblTinpeiSum, m_w->txtTInpei->text());
    entryIndexChanged();
}

void FrmPaint::twoCoatToggled(bool on)
{
    for (QWidget *w : std::initializer_list<QWidget *>{m_w->cmdR2, m_w->cmdNotR2, m_w->txt2Solid, m_w->lbl2SolidSum})
        w->setEnabled(on);
    m_w->txt2Solid->setText(on ? m_editor.twoCoatAddition() : QString());
}

void FrmPaint::lowHidingToggled(bool on)
{
    for (QWidget *w : std::initializer_list<QWidget *>{m_w->cmdRTei, m_w->cmdNotRTei, m_w->txtTInpei,
                                                       m_w->lblTinpeiSum, m_w->cmdTInpei})
        w->setEnabled(on);
    m_w->txtTInpei->setText(on ? m_editor.lowHidingAddition() : QString());
}

void FrmPaint::applySurcharge(const SurchargeEntry &entry)
{
    m_w->txtBuimei->setText(entry.partName);
    m_w->cboMai->setCurrentIndex(0);
    setEntryIndex(entry.index, entry.kind);
}

void FrmPaint::openLowHiding()
{
    DlgTInpei dialog(m_editor, m_location, messages(), this);
    if (dialog.exec() != QDialog::Accepted || dialog.index().isEmpty())
        return;
    m_w->txtTInpei->setText(dialog.index());
    const QString index = dialog.addition().isEmpty()
                              ? dialog.index()
                              : workitems::decimalSum(dialog.index(), dialog.addition()).value_or(dialog.index());
    setEntryIndex(index, LineKind::LowHiding);
    m_partKind = dialog.partKind();
}

void FrmPaint::openInnerPanels()
{
    DlgNaiban dialog(m_editor.innerPanelItems(), m_editor.vehicleClass(), messages(), this);
    if (dialog.exec() != QDialog::Accepted || !dialog.chosen())
        return;
    m_w->txtBuimei->setText(dialog.partName());
    m_w->cboMai->setCurrentIndex(0);
    setEntryIndex(dialog.index(), LineKind::Basic);
}

std::optional<PaintLine> FrmPaint::entryLine()
{
    const QString index = workitems::reformatIndex(m_w->txtSisu->text());
    if (isBlank(index)) {
        messages().inform(QStringLiteral("指数が入力されておりません。"), QStringLiteral("注意"),
                          MessageIcon::Exclamation);
        m_w->txtSisu->setFocus();
        return std::nullopt;
    }
    const QString range = m_kind == LineKind::Basic ? PaintEditor::rangeText(m_w->cboMai->currentText()) : QString();
    const auto line = m_editor.makeLine(m_kind, m_section, m_w->txtBuimei->text(), m_partKind, range, index,
                                        m_w->chkZ->isChecked());
    if (!line)
        change(PaintCalculation::Change::Overflow);
    return line;
}

bool FrmPaint::change(PaintCalculation::Change result)
{
    switch (result) {
    case PaintCalculation::Change::Done:
        showLines();
        showSums();
        return true;
    case PaintCalculation::Change::Full:
        messages().inform(QStringLiteral("行の上限です。\nこれ以上書き込めません。"), QStringLiteral("行の上限"),
                          MessageIcon::None);
        return false;
    case PaintCalculation::Change::Overflow:
        messages().inform(QStringLiteral("金額が大きすぎるため計算できません。\n指数またはレートを確認してください。"),
                          QStringLiteral("注意"), MessageIcon::Exclamation);
        return false;
    case PaintCalculation::Change::NoSuchLine:
        return false;
    }
    return false;
}

void FrmPaint::addLine()
{
    if (m_editor.calculation().full()) {
        change(PaintCalculation::Change::Full);
        return;
    }
    if (const auto line = entryLine(); line && change(m_editor.calculation().add(*line)))
        clearEntry();
}

void FrmPaint::insertLine()
{
    if (m_editor.calculation().full()) {
        change(PaintCalculation::Change::Full);
        return;
    }
    const int at = m_chosenRow >= 0 ? m_chosenRow : m_editor.calculation().count();
    if (const auto line = entryLine(); line && change(m_editor.calculation().insert(at, *line)))
        clearEntry();
}

void FrmPaint::editLine()
{
    if (m_editing >= 0) {
        if (const auto line = entryLine(); line && change(m_editor.calculation().replace(m_editing, *line))) {
            m_editing = -1;
            clearEntry();
            updateButtons();
        }
        return;
    }
    if (m_chosenRow < 0 || m_chosenRow >= m_editor.calculation().count())
        return;
    m_editing = m_chosenRow;
    loadEntry(m_editor.calculation().lines().at(m_editing));
    updateButtons();
}

void FrmPaint::cancelEdit()
{
    m_editing = -1;
    clearEntry();
    updateButtons();
}

void FrmPaint::deleteLine()
{
    if (m_editor.calculation().count() == 0) {
        messages().inform(QStringLiteral("削除するデータはありません．"), QStringLiteral("警告"), MessageIcon::None);
        return;
    }
    if (m_chosenRow < 0 || m_chosenRow >= m_editor.calculation().count()) {
        messages().inform(QStringLiteral("削除する行をクリックしてください。"), QStringLiteral("注意"),
                          MessageIcon::Information);
        return;
    }
    if (messages().askYesNo(QStringLiteral("削除します。\nデータが失われます。\nよろしいですか？"),
                            QStringLiteral("削除"), MessageIcon::Exclamation) != Answer::Yes)
        return;
    if (change(m_editor.calculation().remove(m_chosenRow))) {
        m_chosenRow = -1;
        updateButtons();
    }
}

void FrmPaint::confirm()
{
    if (m_editing >= 0) {
        messages().inform(QStringLiteral("修正中の行があります。\n「修正」で確定するか「修正取消」をクリックしてください。"),
                          QStringLiteral("注意"), MessageIcon::Exclamation);
        return;
    }
    if (!isBlank(m_w->txtSisu->text())
        && messages().askYesNo(QStringLiteral("入力中の行がまだ追加されていません。\n追加せずに終了しますか？"),
                               QStringLiteral("注意"), MessageIcon::Question) != Answer::Yes)
        return;
    PaintChoices choices;
    choices.material = m_w->cboToryo->currentText();
    choices.panels = m_w->cboMai->currentText();
    choices.twoCoatSolid = m_w->chk2s->isChecked();
    choices.lowHiding = m_w->chkT->isChecked();
    choices.materialOn = m_w->chkZ->isChecked();
    m_editor.store(choices, m_session);
    accept();
}

void FrmPaint::clearEntry()
{
    m_w->txtBuimei->clear();
    m_w->cboMai->setCurrentIndex(0);
    m_w->txtKisoSisu->clear();
    m_w->txtSisu->clear();
    m_partKind.clear();
    m_kind = LineKind::Basic;
}

void FrmPaint::loadEntry(const PaintLine &line)
{
    m_section = line.section;
    m_w->txtBuimei->setText(line.partName);
    {
        const QSignalBlocker blocker(m_w->cboMai);
        m_w->cboMai->setCurrentIndex(0);
        m_w->cboMai->setEditText(line.range.chopped(line.range.endsWith(QStringLiteral("枚")) ? 1 : 0));
    }
    m_w->chkZ->setChecked(line.withMaterial);
    setEntryIndex(line.index, line.kind);
    m_partKind = line.partKind;
}

void FrmPaint::showLines()
{
    const PaintCalculation &calc = m_editor.calculation();
    QTableWidget *g = m_w->HFlg3;
    g->setRowCount(calc.count());
    Yen running = 0;
    for (int r = 0; r < calc.count(); ++r) {
        running += calc.lines().at(r).labour; // the checked totals bound every running sum
        setRow(g, r, gridCells(calc.lines().at(r), r + 1, running), 5);
    }
    g->clearSelection();
    if (m_chosenRow >= calc.count())
        m_chosenRow = -1;
}

void FrmPaint::showSums()
{
    const PaintTotals &t = m_editor.calculation().totals();
    m_w->lblTSum->setText(formatThousands(t.basic));
    m_w->lblKKSisuSum->setText(formatThousands(t.surcharge));
    m_w->lblFukaSum->setText(formatThousands(t.additional));
    m_w->lblBumpaSum->setText(formatThousands(t.bumper));
    m_w->lblZSum->setText(formatThousands(t.material));
    m_w->lblSSum->setText(formatThousands(t.totalB));
}

void FrmPaint::updateButtons()
{
    const bool editing = m_editing >= 0;
    m_w->cmdEdit->setText(editing ? QStringLiteral("修正確定") : QStringLiteral("修正"));
    m_w->cmdECancel->setEnabled(editing);
    m_w->cmdAdd->setEnabled(!editing);
    m_w->cmdInsRow->setEnabled(!editing);
    m_w->cmdDel->setEnabled(!editing);
    m_w->cmdKoukino->setEnabled(m_editor.hasHighFunction());
}

void FrmPaint::setBumperLabour(Yen labour)
{
    if (!m_editor.calculation().setBumperLabour(labour))
        change(PaintCalculation::Change::Overflow);
    showSums();
}

void FrmPaint::setAdditionalTotal(Yen total)
{
    if (!m_editor.calculation().setAdditionalTotal(total))
        change(PaintCalculation::Change::Overflow);
    showSums();
}

} // namespace est::paint
