#include "paint/frm_paint_widgets.h"

#include "common/number_format.h"
#include "paint/dlg_naiban.h"
#include "paint/dlg_tinpei.h"
#include "workitems/labour.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTableWidget>

namespace est::paint {

namespace {

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

void FrmPaint::connectUi()
{
    Widgets &w = *m_w;
    connect(w.HFLg1, &QTableWidget::cellClicked, this, [this](int row) { categoryClicked(row); });
    connect(w.HFlg2, &QTableWidget::cellClicked, this, [this](int row) { partClicked(row); });
    connect(w.HFlg3, &QTableWidget::cellClicked, this, [this](int row) {
        m_editor.chooseRow(row);
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
    m_editor.chooseCategory(name ? name->text() : QString());
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
    m_editor.choosePart(item->data(Qt::UserRole).toString());
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
    m_editor.setEntryKind(kind);
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
    DlgTInpei dialog(m_editor, m_editor.chosenLocation(), messages(), this);
    if (dialog.exec() != QDialog::Accepted || dialog.index().isEmpty())
        return;
    m_w->txtTInpei->setText(dialog.index());
    m_w->txtSisu->setText(m_editor.takeLowHiding(dialog.index(), dialog.addition(), dialog.partKind()));
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

EntryText FrmPaint::entryText() const
{
    return {m_w->txtBuimei->text(), m_w->cboMai->currentText(), m_w->txtSisu->text(), m_w->chkZ->isChecked()};
}

bool FrmPaint::report(EntryOutcome outcome)
{
    const auto inform = [this](const char *text, const char *title, MessageIcon icon) {
        messages().inform(QString::fromUtf8(text), QString::fromUtf8(title), icon);
    };
    switch (outcome) {
    case EntryOutcome::Done:
        showLines();
        showSums();
        return true;
    case EntryOutcome::NoIndex:
        inform("指数が入力されておりません。", "注意", MessageIcon::Exclamation);
        m_w->txtSisu->setFocus();
        return false;
    case EntryOutcome::Full:
        inform("行の上限です。\nこれ以上書き込めません。", "行の上限", MessageIcon::None);
        return false;
    case EntryOutcome::Overflow:
        inform("金額が大きすぎるため計算できません。\n指数またはレートを確認してください。", "注意", MessageIcon::Exclamation);
        return false;
    case EntryOutcome::NoLines:
        inform("削除するデータはありません．", "警告", MessageIcon::None);
        return false;
    case EntryOutcome::StillEditing:
        inform("修正中の行があります。\n「修正」で確定するか「修正取消」をクリックしてください。", "注意",
               MessageIcon::Exclamation);
        return false;
    case EntryOutcome::NoRowChosen:
    case EntryOutcome::PendingEntry:
        return false;
    }
    return false;
}

void FrmPaint::addLine()
{
    if (report(m_editor.addEntry(entryText())))
        clearEntry();
}

void FrmPaint::insertLine()
{
    if (report(m_editor.insertEntry(entryText())))
        clearEntry();
}

void FrmPaint::editLine()
{
    const bool wasEditing = m_editor.editing();
    std::optional<EntryText> load;
    const EntryOutcome outcome = m_editor.editEntry(entryText(), &load);
    if (load)
        loadEntry(*load);
    else if (outcome == EntryOutcome::NoRowChosen || !report(outcome))
        return;
    else if (wasEditing)
        clearEntry();
    updateButtons();
}

void FrmPaint::cancelEdit()
{
    m_editor.cancelEdit();
    clearEntry();
    updateButtons();
}

void FrmPaint::deleteLine()
{
    const EntryOutcome can = m_editor.canRemoveChosen();
    if (can == EntryOutcome::NoRowChosen) {
        messages().inform(QStringLiteral("削除する行をクリックしてください。"), QStringLiteral("注意"),
                          MessageIcon::Information);
        return;
    }
    if (can != EntryOutcome::Done) {
        report(can);
        return;
    }
    if (messages().askYesNo(QStringLiteral("削除します。\nデータが失われます。\nよろしいですか？"),
                            QStringLiteral("削除"), MessageIcon::Exclamation) != Answer::Yes)
        return;
    if (report(m_editor.removeChosen()))
        updateButtons();
}

void FrmPaint::confirm()
{
    const EntryOutcome can = m_editor.canConfirm(entryText());
    if (can == EntryOutcome::StillEditing) {
        report(can);
        return;
    }
    if (can == EntryOutcome::PendingEntry
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
    m_editor.resetEntry();
}

void FrmPaint::loadEntry(const EntryText &entry)
{
    m_w->txtBuimei->setText(entry.partName);
    {
        const QSignalBlocker blocker(m_w->cboMai);
        m_w->cboMai->setCurrentIndex(0);
        m_w->cboMai->setEditText(entry.panels);
    }
    m_w->chkZ->setChecked(entry.withMaterial);
    m_w->txtSisu->setText(entry.index);
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
    if (m_editor.chosenRow() >= calc.count())
        m_editor.chooseRow(-1);
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
    const bool editing = m_editor.editing();
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
        report(EntryOutcome::Overflow);
    showSums();
}

void FrmPaint::setAdditionalTotal(Yen total)
{
    if (!m_editor.calculation().setAdditionalTotal(total))
        report(EntryOutcome::Overflow);
    showSums();
}

} // namespace est::paint
