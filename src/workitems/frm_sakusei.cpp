#include "workitems/frm_sakusei.h"

#include "common/number_format.h"
#include "uikit/key_filter.h"
#include "workitems/numeric_keys.h"
#include "workitems/text_box.h"
#include "uikit/named.h"
#include "uikit/user_choice.h"

#include <QComboBox>
#include <QFocusEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

namespace est::workitems {

using ui::named;

struct FrmSakusei::Widgets
{
    QLineEdit *txtRato = nullptr;
    QListWidget *dlstB = nullptr, *dlstK = nullptr;
    QTableWidget *HFlg4 = nullptr, *HFLg1 = nullptr;
    QLabel *lblGNo = nullptr, *lblKKei = nullptr, *lblBKei = nullptr, *lblNum = nullptr;
    QComboBox *cboBui = nullptr, *cboSagyo = nullptr;
    QLineEdit *txtBuhin = nullptr, *txtBuhinT = nullptr, *txtSisu = nullptr, *txtKoutin = nullptr,
              *txtBTan = nullptr, *txtBKo = nullptr;
    QLabel *lblKSum = nullptr, *lblBSum = nullptr, *lblSSum = nullptr;
    QPushButton *cmdAdd = nullptr, *cmdInsRow = nullptr, *cmdEdit = nullptr, *cmdEOK = nullptr,
                *cmdECancel = nullptr, *cmdDel = nullptr, *cmdSort = nullptr, *cmdEasy = nullptr,
                *cmdBankin = nullptr, *cmdOK = nullptr, *cmdCancel = nullptr;
};

namespace {

QLabel *valueLabel(const char *name, QWidget *parent)
{
    auto *label = named(new QLabel(parent), name);
    label->setFrameShape(QFrame::Panel);
    label->setFrameShadow(QFrame::Sunken);
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    label->setMinimumWidth(80);
    return label;
}

// Locations and kinds of work offered in the lists; any other text may be typed.
const QStringList kLocations = {
    QStringLiteral("フロント"), QStringLiteral("リヤ"), QStringLiteral("右側"), QStringLiteral("左側"),
    QStringLiteral("ルーフ"), QStringLiteral("エンジン"), QStringLiteral("足廻り"), QStringLiteral("室内"),
    QStringLiteral("その他"),
};
const QStringList kWorkKinds = {
    QStringLiteral("取替"), QStringLiteral("脱着"), QStringLiteral("修理"), QStringLiteral("鈑金"),
    QStringLiteral("調整"), QStringLiteral("点検"), QStringLiteral("分解"), QStringLiteral("組付"),
};

} // namespace

FrmSakusei::FrmSakusei(Session &session, Messages &messages, std::unique_ptr<CatalogueTable> catalogue,
                       QWidget *parent)
    : GuardedDialog(messages, parent), m_session(session), m_catalogue(std::move(catalogue)),
      m_editor(session, messages), m_w(new Widgets)
{
    setObjectName(QStringLiteral("frmSakusei"));
    setWindowTitle(QStringLiteral("作業作成 - ") + session.maker + QStringLiteral("/") + session.vehicleType);
    setModal(true);
    buildUi();
    fillClassifications();
    showAll();
}

FrmSakusei::~FrmSakusei() = default;

void FrmSakusei::buildUi()
{
    Widgets &w = *m_w;
    auto *layout = new QVBoxLayout(this);

    // Catalogue: classification, section, parts.
    auto *catalogue = new QHBoxLayout;
    auto *rateBox = new QVBoxLayout;
    rateBox->addWidget(new QLabel(QStringLiteral("レート"), this));
    w.txtRato = named(new QLineEdit(this), "txtRato");
    w.txtRato->setAlignment(Qt::AlignRight);
    w.txtRato->setMaximumWidth(100);
    rateBox->addWidget(w.txtRato);
    rateBox->addStretch(1);
    catalogue->addLayout(rateBox);
    auto listBox = [this](const QString &caption, QWidget *list) {
        auto *box = new QVBoxLayout;
        box->addWidget(new QLabel(caption, this));
        box->addWidget(list);
        return box;
    };
    w.dlstB = named(new QListWidget(this), "dlstB");
    w.dlstK = named(new QListWidget(this), "dlstK");
    w.HFlg4 = named(new QTableWidget(this), "HFlg4");
    w.HFlg4->setColumnCount(2);
    w.HFlg4->setHorizontalHeaderLabels(QStringLiteral("No|部品名").split(QLatin1Char('|')));
    w.HFlg4->verticalHeader()->setVisible(false);
    w.HFlg4->setEditTriggers(QAbstractItemView::NoEditTriggers);
    w.HFlg4->setSelectionBehavior(QAbstractItemView::SelectRows);
    w.HFlg4->setSelectionMode(QAbstractItemView::SingleSelection);
    w.HFlg4->setColumnWidth(0, 50);
    w.HFlg4->horizontalHeader()->setStretchLastSection(true);
    catalogue->addLayout(listBox(QStringLiteral("部品分類"), w.dlstB), 2);
    catalogue->addLayout(listBox(QStringLiteral("部品区分"), w.dlstK), 2);
    catalogue->addLayout(listBox(QStringLiteral("部品"), w.HFlg4), 3);
    layout->addLayout(catalogue, 2);

    // One work item.
    auto *input = new QGroupBox(QStringLiteral("作業項目"), this);
    auto *grid = new QGridLayout(input);
    w.lblGNo = valueLabel("lblGNo", input);
    w.lblGNo->setMinimumWidth(40);
    w.cboBui = named(new QComboBox(input), "cboBui");
    w.cboBui->setEditable(true);
    w.cboBui->addItems(kLocations);
    w.txtBuhin = named(new QLineEdit(input), "txtBuhin");
    w.txtBuhinT = named(new QLineEdit(input), "txtBuhinT");
    w.cboSagyo = named(new QComboBox(input), "cboSagyo");
    w.cboSagyo->setEditable(true);
    w.cboSagyo->addItems(kWorkKinds);
    w.txtSisu = named(new QLineEdit(input), "txtSisu");
    w.txtKoutin = named(new QLineEdit(input), "txtKoutin");
    w.lblKKei = valueLabel("lblKKei", input);
    w.txtBTan = named(new QLineEdit(input), "txtBTan");
    w.txtBKo = named(new QLineEdit(input), "txtBKo");
    w.lblBKei = valueLabel("lblBKei", input);
    w.lblNum = valueLabel("lblNum", input);
    for (QLineEdit *e : {w.txtSisu, w.txtKoutin, w.txtBTan, w.txtBKo}) {
        e->setAlignment(Qt::AlignRight);
        e->setMaximumWidth(90);
    }
    for (QLabel *l : {w.lblKKei, w.lblBKei, w.lblNum})
        l->setMaximumWidth(90);
    w.txtBKo->setMaximumWidth(50);
    w.cboBui->setMinimumWidth(110);
    w.cboSagyo->setMinimumWidth(80);
    w.txtBuhin->setMinimumWidth(240);
    w.txtBuhinT->setMinimumWidth(150);
    const std::pair<const char *, QWidget *> cells[] = {
        {"No", w.lblGNo},      {"部位", w.cboBui},        {"部品名", w.txtBuhin},  {"部品番号・その他", w.txtBuhinT},
        {"作業", w.cboSagyo},  {"指数", w.txtSisu},        {"工賃", w.txtKoutin},  {"工賃計", w.lblKKei},
        {"部品単価", w.txtBTan}, {"個数", w.txtBKo},        {"部品計", w.lblBKei},  {"部品No", w.lblNum},
    };
    int column = 0;
    for (const auto &[caption, widget] : cells) {
        grid->addWidget(new QLabel(QString::fromUtf8(caption), input), 0, column);
        grid->addWidget(widget, 1, column);
        ++column;
    }
    grid->setColumnStretch(2, 3);
    grid->setColumnStretch(3, 2);
    grid->setColumnStretch(int(std::size(cells)), 1);
    layout->addWidget(input);

    auto *rowButtons = new QHBoxLayout;
    auto button = [this, rowButtons](const char *name, const char *caption) {
        auto *b = named(new QPushButton(QString::fromUtf8(caption), this), name);
        b->setAutoDefault(false);
        rowButtons->addWidget(b);
        return b;
    };
    w.cmdAdd = button("cmdAdd", "追加");
    w.cmdInsRow = button("cmdInsRow", "行挿入");
    w.cmdEdit = button("cmdEdit", "修正");
    w.cmdEOK = button("cmdEOK", "修正確定");
    w.cmdECancel = button("cmdECancel", "修正取消");
    w.cmdDel = button("cmdDel", "削除");
    w.cmdSort = button("cmdSort", "並べ替え");
    rowButtons->addStretch(1);
    w.cmdEasy = button("cmdEasy", "簡易見積");
    w.cmdBankin = button("cmdBankin", "鈑金指数");
    layout->addLayout(rowButtons);

    w.HFLg1 = named(new QTableWidget(this), "HFLg1");
    w.HFLg1->setColumnCount(WorkItemColumnCount);
    w.HFLg1->setHorizontalHeaderLabels(kWorkItemHeader.split(QLatin1Char('|')).mid(0, WorkItemColumnCount));
    w.HFLg1->verticalHeader()->setVisible(false);
    w.HFLg1->setEditTriggers(QAbstractItemView::NoEditTriggers);
    w.HFLg1->setSelectionBehavior(QAbstractItemView::SelectRows);
    w.HFLg1->setSelectionMode(QAbstractItemView::SingleSelection);
    const int widths[] = {40, 90, 220, 160, 70, 60, 80, 80, 50, 80};
    for (int c = 0; c < 10; ++c)
        w.HFLg1->setColumnWidth(c, widths[c]);
    w.HFLg1->setColumnHidden(WiDirectLabour, true);
    w.HFLg1->setColumnHidden(WiCatalogueNum, true);
    layout->addWidget(w.HFLg1, 5);

    auto *bottom = new QHBoxLayout;
    w.lblKSum = valueLabel("lblKSum", this);
    w.lblBSum = valueLabel("lblBSum", this);
    w.lblSSum = valueLabel("lblSSum", this);
    bottom->addWidget(new QLabel(QStringLiteral("工賃合計"), this));
    bottom->addWidget(w.lblKSum);
    bottom->addWidget(new QLabel(QStringLiteral("部品合計"), this));
    bottom->addWidget(w.lblBSum);
    bottom->addWidget(new QLabel(QStringLiteral("合計"), this));
    bottom->addWidget(w.lblSSum);
    bottom->addStretch(1);
    w.cmdOK = named(new QPushButton(QStringLiteral("OK"), this), "cmdOK");
    w.cmdCancel = named(new QPushButton(QStringLiteral("キャンセル"), this), "cmdCancel");
    w.cmdOK->setAutoDefault(false);
    w.cmdCancel->setAutoDefault(false);
    bottom->addWidget(w.cmdOK);
    bottom->addWidget(w.cmdCancel);
    layout->addLayout(bottom);

    w.cmdEasy->setEnabled(false);
    w.cmdBankin->setEnabled(false);

    new ui::KeyFilter(w.txtRato, numericKeyRule(false), messages());
    new ui::KeyFilter(w.txtSisu, numericKeyRule(true), messages());
    new ui::KeyFilter(w.txtKoutin, numericKeyRule(false), messages());
    new ui::KeyFilter(w.txtBTan, numericKeyRule(true), messages());
    new ui::KeyFilter(w.txtBKo, numericKeyRule(true), messages());
    w.txtSisu->installEventFilter(this);
    for (QLineEdit *e : {w.txtRato, w.txtSisu, w.txtKoutin, w.txtBTan, w.txtBKo})
        selectAllOnFocus(e);

    ui::onChosenRow(w.dlstB, this, [this](int row) { classificationChosen(row); });
    ui::onChosenRow(w.dlstK, this, [this](int row) { sectionChosen(row); });
    ui::onChosenRow(w.HFlg4, this, [this](int row) { partChosen(row); });
    connect(w.HFlg4, &QTableWidget::cellClicked, this, [this](int row) { partChosen(row); });
    // Each text the user changes goes to the editor, which may reformat it or compute from it.
    auto forward = [this](QLineEdit *edit, void (WorkItemEditor::*typed)(const QString &)) {
        connect(edit, &QLineEdit::textChanged, this, [this, typed](const QString &text) {
            (m_editor.*typed)(text);
            showInputs();
        });
    };
    forward(w.txtRato, &WorkItemEditor::rateTyped);
    forward(w.txtSisu, &WorkItemEditor::indexTyped);
    forward(w.txtKoutin, &WorkItemEditor::directLabourTyped);
    forward(w.txtBTan, &WorkItemEditor::unitPriceTyped);
    forward(w.txtBKo, &WorkItemEditor::quantityTyped);
    connect(w.txtBuhin, &QLineEdit::textChanged, this, [this](const QString &t) { m_editor.setText(WiPart, t); });
    connect(w.txtBuhinT, &QLineEdit::textChanged, this,
            [this](const QString &t) { m_editor.setText(WiPartNumber, t); });
    connect(w.cboBui, &QComboBox::currentTextChanged, this,
            [this](const QString &t) { m_editor.setText(WiSection, t); });
    connect(w.cboSagyo, &QComboBox::currentTextChanged, this,
            [this](const QString &t) { m_editor.setText(WiWork, t); });
    auto command = [this](QPushButton *button, auto run) {
        connect(button, &QPushButton::clicked, this, [this, run] {
            run();
            showAll();
        });
    };
    command(w.cmdAdd, [this] { m_editor.add(); });
    command(w.cmdInsRow, [this] { m_editor.insertBefore(selectedRow()); });
    command(w.cmdEdit, [this] { m_editor.edit(selectedRow()); });
    command(w.cmdEOK, [this] { m_editor.confirmEdit(); });
    command(w.cmdECancel, [this] { m_editor.cancelEdit(); });
    command(w.cmdDel, [this] { m_editor.remove(selectedRow()); });
    command(w.cmdSort, [this] { m_editor.sort(); });
    connect(w.cmdBankin, &QPushButton::clicked, this, [this] {
        if (const auto chosen = m_sheetMetal(this)) {
            m_editor.takeIndex(*chosen);
            showInputs();
        }
    });
    connect(w.cmdEasy, &QPushButton::clicked, this, [this] {
        if (const auto entry = m_simpleEstimate(this)) {
            m_editor.takeSimpleEntry(*entry);
            showInputs();
        }
    });
    connect(w.cmdOK, &QPushButton::clicked, this, &FrmSakusei::handBack);
    connect(w.cmdCancel, &QPushButton::clicked, this, &FrmSakusei::cancelByButton);
    resize(1200, 820);
}

void FrmSakusei::setSheetMetalScreen(IndexScreen screen)
{
    m_sheetMetal = std::move(screen);
    m_w->cmdBankin->setEnabled(bool(m_sheetMetal));
}

void FrmSakusei::setSimpleEstimate(SimpleEstimate run)
{
    m_simpleEstimate = std::move(run);
    m_w->cmdEasy->setEnabled(bool(m_simpleEstimate));
}

// ---- catalogue --------------------------------------------------------------------------

void FrmSakusei::fillClassifications()
{
    m_w->dlstB->clear();
    if (!m_catalogue)
        return;
    const QSignalBlocker blocker(m_w->dlstB);
    for (const Classification &c : m_catalogue->classifications()) {
        auto *item = new QListWidgetItem(c.name, m_w->dlstB);
        item->setData(Qt::UserRole, int(c.bnum));
    }
    m_w->dlstB->setCurrentRow(-1);
}

void FrmSakusei::classificationChosen(int row)
{
    m_w->dlstK->clear();
    m_w->HFlg4->setRowCount(0);
    if (!m_catalogue || row < 0)
        return;
    m_bnum = std::int16_t(m_w->dlstB->item(row)->data(Qt::UserRole).toInt());
    const QSignalBlocker blocker(m_w->dlstK);
    for (const Section &s : m_catalogue->sections(m_bnum)) {
        auto *item = new QListWidgetItem(s.name, m_w->dlstK);
        item->setData(Qt::UserRole, int(s.knum));
    }
    m_w->dlstK->setCurrentRow(-1);
}

void FrmSakusei::sectionChosen(int row)
{
    QTableWidget *grid = m_w->HFlg4;
    grid->setRowCount(0);
    if (!m_catalogue || row < 0)
        return;
    m_knum = std::int16_t(m_w->dlstK->item(row)->data(Qt::UserRole).toInt());
    const QList<CataloguePart> parts = m_catalogue->parts(m_bnum, m_knum);
    const QSignalBlocker blocker(grid);
    grid->setRowCount(int(parts.size()));
    for (int r = 0; r < parts.size(); ++r) {
        grid->setItem(r, 0, new QTableWidgetItem(QString::number(parts.at(r).num)));
        grid->setItem(r, 1, new QTableWidgetItem(parts.at(r).name));
    }
    grid->setCurrentCell(-1, -1);
}

void FrmSakusei::partChosen(int row)
{
    if (row < 0 || row >= m_w->HFlg4->rowCount() || !m_w->HFlg4->item(row, 1))
        return;
    m_editor.setText(WiPart, m_w->HFlg4->item(row, 1)->text());
    m_editor.setText(WiCatalogueNum, m_w->HFlg4->item(row, 0)->text());
    showInputs();
}

// ---- one work item -----------------------------------------------------------------------

namespace {

// Writes a text the editor computed, without running the field's change handler.
void setQuietly(QLineEdit *edit, const QString &text)
{
    if (edit->text() == text)
        return;
    const QSignalBlocker blocker(edit);
    edit->setText(text);
}

void setQuietly(QComboBox *box, const QString &text)
{
    if (box->currentText() == text)
        return;
    const QSignalBlocker blocker(box);
    box->setCurrentText(text);
}

} // namespace

bool FrmSakusei::eventFilter(QObject *watched, QEvent *event)
{
    // Switching to another window or opening a popup does not leave the field.
    if (watched == m_w->txtSisu && event->type() == QEvent::FocusOut) {
        const Qt::FocusReason reason = static_cast<QFocusEvent *>(event)->reason();
        if (reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason) {
            const bool toRate = m_editor.indexLeft();
            showInputs();
            if (toRate)
                m_w->txtRato->setFocus();
        }
    }
    return GuardedDialog::eventFilter(watched, event);
}

void FrmSakusei::showInputs()
{
    Widgets &w = *m_w;
    const WorkItemRow &row = m_editor.inputs();
    setQuietly(w.txtRato, m_editor.rateText());
    w.lblGNo->setText(row[WiNo]);
    setQuietly(w.cboBui, row[WiSection]);
    setQuietly(w.txtBuhin, row[WiPart]);
    setQuietly(w.txtBuhinT, row[WiPartNumber]);
    setQuietly(w.cboSagyo, row[WiWork]);
    setQuietly(w.txtSisu, row[WiIndex]);
    w.lblKKei->setText(row[WiLabour]);
    setQuietly(w.txtBTan, row[WiUnitPrice]);
    setQuietly(w.txtBKo, row[WiQuantity]);
    w.lblBKei->setText(row[WiPartsTotal]);
    setQuietly(w.txtKoutin, row[WiDirectLabour]);
    w.lblNum->setText(row[WiCatalogueNum]);
}

// ---- rows ----------------------------------------------------------------------------

int FrmSakusei::selectedRow() const
{
    const int row = ui::chosenRow(m_w->HFLg1);
    return row >= 0 && row < m_editor.table().count() ? row : -1;
}

void FrmSakusei::showAll()
{
    showInputs();
    showRows();
    updateButtons();
}

void FrmSakusei::showRows()
{
    const WorkItemTable &table = m_editor.table();
    QTableWidget *grid = m_w->HFLg1;
    grid->setUpdatesEnabled(false);
    grid->setRowCount(table.count());
    for (int r = 0; r < table.count(); ++r) {
        const WorkItemRow &row = table.row(r);
        for (int c = 0; c < WorkItemColumnCount; ++c) {
            QTableWidgetItem *item = grid->item(r, c);
            if (!item) {
                item = new QTableWidgetItem;
                if (c >= WiIndex && c <= WiPartsTotal)
                    item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
                grid->setItem(r, c, item);
            }
            item->setText(row[c]);
        }
    }
    grid->setUpdatesEnabled(true);
    const WorkItemTotals &t = table.totals();
    m_w->lblKSum->setText(formatThousands(t.labour));
    m_w->lblBSum->setText(formatThousands(t.parts));
    m_w->lblSSum->setText(formatThousands(t.grand));
}

void FrmSakusei::updateButtons()
{
    Widgets &w = *m_w;
    const WorkItemButtons b = m_editor.buttons();
    w.HFLg1->setEnabled(b.grid);
    w.cmdAdd->setEnabled(b.add);
    w.cmdInsRow->setEnabled(b.insert);
    w.cmdEdit->setEnabled(b.edit);
    w.cmdDel->setEnabled(b.remove);
    w.cmdSort->setEnabled(b.sort);
    w.cmdEOK->setEnabled(b.confirmEdit);
    w.cmdECancel->setEnabled(b.cancelEdit);
}

void FrmSakusei::handBack()
{
    if (!m_editor.settlePending()) {
        showAll();
        return;
    }
    m_editor.handBack(m_session);
    accept();
}

} // namespace est::workitems
