#include "workitems/frm_sakusei.h"

#include "common/number_format.h"
#include "uikit/key_filter.h"
#include "workitems/numeric_keys.h"
#include "workitems/text_box.h"
#include "uikit/named.h"

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
    QStringLiteral("取替"), QStringLiteral("脱着"), QStringLiteral("修理"), QStringLiteral("板金"),
    QStringLiteral("調整"), QStringLiteral("点検"), QStringLiteral("分解"), QStringLiteral("組付"),
};

// Rows are sorted on the location, so that the rows of one part of the car come together.
constexpr int kSortColumn = WiSection;

} // namespace

FrmSakusei::FrmSakusei(Session &session, Messages &messages, std::unique_ptr<CatalogueTable> catalogue,
                       QWidget *parent)
    : GuardedDialog(messages, parent), m_session(session), m_catalogue(std::move(catalogue)),
      m_table(session.rows), m_rate(session.labourRate), m_rounding{session.roundDigits, session.roundMode},
      m_w(new Widgets)
{
    setObjectName(QStringLiteral("frmSakusei"));
    setWindowTitle(QStringLiteral("作業作成 - ") + session.maker + QStringLiteral("/") + session.vehicleType);
    setModal(true);
    buildUi();
    if (m_rate != 0) {
        m_quiet = true;
        m_w->txtRato->setText(formatThousands(m_rate));
        m_quiet = false;
    }
    fillClassifications();
    showRows();
    clearInputs();
    updateButtons();
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
    w.cmdBankin = button("cmdBankin", "板金指数");
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

    // The simple estimate and the sheet-metal index open from here once they exist.
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

    connect(w.dlstB, &QListWidget::currentRowChanged, this, &FrmSakusei::classificationChosen);
    connect(w.dlstK, &QListWidget::currentRowChanged, this, &FrmSakusei::sectionChosen);
    connect(w.HFlg4, &QTableWidget::currentCellChanged, this, [this](int row) { partChosen(row); });
    connect(w.HFlg4, &QTableWidget::cellClicked, this, [this](int row) { partChosen(row); });
    connect(w.txtRato, &QLineEdit::textChanged, this, &FrmSakusei::rateChanged);
    connect(w.txtSisu, &QLineEdit::textChanged, this, &FrmSakusei::indexChanged);
    connect(w.txtKoutin, &QLineEdit::textChanged, this, &FrmSakusei::directLabourChanged);
    connect(w.txtBTan, &QLineEdit::textChanged, this, &FrmSakusei::partInputsChanged);
    connect(w.txtBKo, &QLineEdit::textChanged, this, &FrmSakusei::partInputsChanged);
    connect(w.cmdAdd, &QPushButton::clicked, this, &FrmSakusei::addRow);
    connect(w.cmdInsRow, &QPushButton::clicked, this, &FrmSakusei::insertRow);
    connect(w.cmdEdit, &QPushButton::clicked, this, &FrmSakusei::editRow);
    connect(w.cmdEOK, &QPushButton::clicked, this, &FrmSakusei::confirmEdit);
    connect(w.cmdECancel, &QPushButton::clicked, this, &FrmSakusei::cancelEdit);
    connect(w.cmdDel, &QPushButton::clicked, this, &FrmSakusei::deleteRow);
    connect(w.cmdSort, &QPushButton::clicked, this, &FrmSakusei::sortRows);
    connect(w.cmdOK, &QPushButton::clicked, this, &FrmSakusei::handBack);
    connect(w.cmdCancel, &QPushButton::clicked, this, &FrmSakusei::cancelByButton);
    resize(1200, 820);
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
    m_w->txtBuhin->setText(m_w->HFlg4->item(row, 1)->text());
    m_w->lblNum->setText(m_w->HFlg4->item(row, 0)->text());
}

// ---- one work item -----------------------------------------------------------------------

namespace {

// Writes a text the screen itself computed, without running the field's change handler.
void setQuietly(QLineEdit *edit, const QString &text)
{
    if (edit->text() == text)
        return;
    const QSignalBlocker blocker(edit);
    edit->setText(text);
}

} // namespace

void FrmSakusei::rateChanged(const QString &text)
{
    if (m_quiet)
        return;
    const QString digits = filterNumericText(text, false);
    if (isBlank(digits)) {
        m_rate = 0;
        return;
    }
    if (const auto rate = parseRate(digits)) {
        m_rate = *rate;
        if (digits != text)
            setQuietly(m_w->txtRato, digits);
        return;
    }
    messages().inform(QStringLiteral("レートは 0 から 32,767 円までの整数で入力してください。"),
                      QStringLiteral("レート"), MessageIcon::Exclamation);
    setQuietly(m_w->txtRato, m_rate != 0 ? QString::number(m_rate) : QString());
}

void FrmSakusei::indexChanged(const QString &text)
{
    if (m_quiet)
        return;
    const QString filtered = filterNumericText(text, true);
    if (filtered != text)
        setQuietly(m_w->txtSisu, filtered);
    if (isBlank(m_w->txtRato->text()))
        return;
    if (isBlank(filtered)) {
        m_w->lblKKei->clear();
        return;
    }
    setQuietly(m_w->txtKoutin, QString());
    recomputeLabour();
}

void FrmSakusei::recomputeLabour()
{
    const QString index = m_w->txtSisu->text();
    if (isBlank(index) || isBlank(m_w->txtRato->text()))
        return;
    const auto amount = labourFromIndex(index, m_rate, m_rounding, messages());
    m_w->lblKKei->setText(amount ? QString::number(*amount) : QString());
}

bool FrmSakusei::eventFilter(QObject *watched, QEvent *event)
{
    // Switching to another window or opening a popup does not leave the field.
    if (watched == m_w->txtSisu && event->type() == QEvent::FocusOut) {
        const Qt::FocusReason reason = static_cast<QFocusEvent *>(event)->reason();
        if (reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason)
            indexLeft();
    }
    return GuardedDialog::eventFilter(watched, event);
}

void FrmSakusei::indexLeft()
{
    QLineEdit *index = m_w->txtSisu;
    // A reformatted text is a change of the index like any other: the labour follows the two
    // decimals the row shows, so 1.257 at 1,000 yen becomes 1.26 and 1,260 yen.
    const QString shown = isBlank(index->text()) ? index->text() : reformatIndex(index->text());
    if (shown != index->text()) {
        {
            const QSignalBlocker blocker(index);
            index->setText(shown);
        }
        recomputeLabour();
    }
    // Leaving the field without a rate is reported even when no index was typed: the rate is
    // what the index is for, so the user is sent to it.
    if (isBlank(m_w->txtRato->text())) {
        if (!isBlank(index->text())) {
            setQuietly(index, QString());
            // A labour typed directly stays; one left from an index goes with it.
            if (isBlank(m_w->txtKoutin->text()))
                m_w->lblKKei->clear();
        }
        messages().inform(QStringLiteral("レーバーレートに金額が入力されておりません。"), QStringLiteral("注意"),
                          MessageIcon::Critical);
        m_w->txtRato->setFocus();
    }
}

void FrmSakusei::directLabourChanged(const QString &text)
{
    if (m_quiet)
        return;
    const QString digits = filterNumericText(text, false);
    if (digits != text)
        setQuietly(m_w->txtKoutin, digits);
    setQuietly(m_w->txtSisu, QString());
    m_w->lblKKei->setText(digits);
}

void FrmSakusei::partInputsChanged()
{
    if (m_quiet)
        return;
    for (QLineEdit *edit : {m_w->txtBTan, m_w->txtBKo}) {
        const QString filtered = filterNumericText(edit->text(), true);
        if (filtered != edit->text())
            setQuietly(edit, filtered);
    }
    const auto total = partTotal(m_w->txtBTan->text(), m_w->txtBKo->text());
    m_w->lblBKei->setText(total ? QString::number(*total) : QString());
}

WorkItemRow FrmSakusei::inputs() const
{
    const Widgets &w = *m_w;
    WorkItemRow row;
    row[WiNo] = w.lblGNo->text();
    row[WiSection] = w.cboBui->currentText();
    row[WiPart] = w.txtBuhin->text();
    row[WiPartNumber] = w.txtBuhinT->text();
    row[WiWork] = w.cboSagyo->currentText();
    row[WiIndex] = isBlank(w.txtSisu->text()) ? QString() : reformatIndex(w.txtSisu->text());
    row[WiLabour] = w.lblKKei->text();
    row[WiUnitPrice] = w.txtBTan->text();
    row[WiQuantity] = w.txtBKo->text();
    row[WiPartsTotal] = w.lblBKei->text();
    row[WiDirectLabour] = w.txtKoutin->text();
    row[WiCatalogueNum] = w.lblNum->text();
    return row;
}

void FrmSakusei::loadInputs(const WorkItemRow &row)
{
    Widgets &w = *m_w;
    m_quiet = true;
    w.lblGNo->setText(row[WiNo]);
    w.cboBui->setCurrentText(row[WiSection]);
    w.txtBuhin->setText(row[WiPart]);
    w.txtBuhinT->setText(row[WiPartNumber]);
    w.cboSagyo->setCurrentText(row[WiWork]);
    w.txtSisu->setText(row[WiIndex]);
    w.lblKKei->setText(row[WiLabour]);
    w.txtBTan->setText(row[WiUnitPrice]);
    w.txtBKo->setText(row[WiQuantity]);
    w.lblBKei->setText(row[WiPartsTotal]);
    w.txtKoutin->setText(row[WiDirectLabour]);
    w.lblNum->setText(row[WiCatalogueNum]);
    m_quiet = false;
}

void FrmSakusei::clearInputs()
{
    WorkItemRow empty;
    empty[WiNo] = QString::number(m_inserting ? m_insertAt + 1 : m_table.nextNumber());
    loadInputs(empty);
}

// ---- rows ----------------------------------------------------------------------------

int FrmSakusei::selectedRow() const
{
    const int row = m_w->HFLg1->currentRow();
    return row >= 0 && row < m_table.count() ? row : -1;
}

void FrmSakusei::reportRowLimit()
{
    messages().inform(QStringLiteral("行の上限です。\nこれ以上書き込めません。"), QStringLiteral("警告"),
                      MessageIcon::Critical);
}

void FrmSakusei::reportTooLarge()
{
    messages().inform(QStringLiteral("金額が大きすぎるため計算できません。\n"
                                     "合計が 2,147,483,647 円までになるように入力してください。"),
                      QStringLiteral("金額の確認"), MessageIcon::Exclamation);
}

void FrmSakusei::addRow()
{
    if (m_editing >= 0)
        return;
    if (m_inserting) {
        if (m_table.replace(m_insertAt, inputs()) == WorkItemTable::Change::TooLarge) {
            reportTooLarge();
            return;
        }
        m_inserting = false;
        m_insertAt = -1;
    } else {
        if (m_table.full()) {
            reportRowLimit();
            m_addRefused = true;
            m_w->cmdAdd->setEnabled(false);
            clearInputs();
            return;
        }
        if (m_table.append(inputs()) == WorkItemTable::Change::TooLarge) {
            reportTooLarge();
            return;
        }
    }
    clearInputs();
    showRows();
    updateButtons();
}

void FrmSakusei::insertRow()
{
    if (m_inserting || m_editing >= 0)
        return;
    const int row = selectedRow();
    if (row < 0)
        return;
    if (m_table.insertEmpty(row) == WorkItemTable::Change::Full) {
        reportRowLimit();
        return;
    }
    m_inserting = true;
    m_insertAt = row;
    showRows();
    clearInputs();
    updateButtons();
}

void FrmSakusei::editRow()
{
    if (m_inserting || m_editing >= 0)
        return;
    const int row = selectedRow();
    if (row < 0)
        return;
    m_editing = row;
    loadInputs(m_table.row(row));
    updateButtons();
}

void FrmSakusei::confirmEdit()
{
    if (m_editing < 0)
        return;
    // The edited row's labour and part total follow its inputs as they are now.
    if (!isBlank(m_w->txtSisu->text()))
        recomputeLabour();
    partInputsChanged();
    if (m_table.replace(m_editing, inputs()) == WorkItemTable::Change::TooLarge) {
        reportTooLarge();
        return;
    }
    m_editing = -1;
    clearInputs();
    showRows();
    updateButtons();
}

void FrmSakusei::cancelEdit()
{
    m_editing = -1;
    clearInputs();
    updateButtons();
}

void FrmSakusei::deleteRow()
{
    if (m_editing >= 0 || m_inserting)
        return;
    const int row = selectedRow();
    if (row < 0) {
        messages().inform(QStringLiteral("削除するデータはありません．"), QStringLiteral("警告"),
                          MessageIcon::Exclamation);
        return;
    }
    if (messages().askYesNo(QStringLiteral("削除します。\nこのデータは失われます。\nよろしいですか？"),
                            QStringLiteral("削除"), MessageIcon::Question) != Answer::Yes)
        return;
    m_table.remove(row);
    m_addRefused = false;
    clearInputs();
    showRows();
    updateButtons();
}

void FrmSakusei::sortRows()
{
    if (m_editing >= 0 || m_inserting)
        return;
    m_table.sortBy(kSortColumn);
    showRows();
}

void FrmSakusei::showRows()
{
    QTableWidget *grid = m_w->HFLg1;
    grid->setUpdatesEnabled(false);
    grid->setRowCount(m_table.count());
    for (int r = 0; r < m_table.count(); ++r) {
        const WorkItemRow &row = m_table.row(r);
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
    showTotals();
}

void FrmSakusei::showTotals()
{
    const WorkItemTotals &t = m_table.totals();
    m_w->lblKSum->setText(formatThousands(t.labour));
    m_w->lblBSum->setText(formatThousands(t.parts));
    m_w->lblSSum->setText(formatThousands(t.grand));
}

void FrmSakusei::updateButtons()
{
    Widgets &w = *m_w;
    const bool editing = m_editing >= 0;
    const bool browsing = !editing && !m_inserting;
    w.HFLg1->setEnabled(browsing);
    w.cmdAdd->setEnabled(!editing && !m_addRefused);
    w.cmdInsRow->setEnabled(browsing && m_table.count() > 0 && !m_table.full());
    w.cmdEdit->setEnabled(browsing && m_table.count() > 0);
    w.cmdDel->setEnabled(browsing);
    w.cmdSort->setEnabled(browsing && m_table.count() > 1);
    w.cmdEOK->setEnabled(editing);
    w.cmdECancel->setEnabled(editing);
}

void FrmSakusei::handBack()
{
    // An inserted row that was never filled is not part of the estimate.
    if (m_inserting) {
        m_table.remove(m_insertAt);
        m_inserting = false;
    }
    m_session.rows = m_table.toEstimateRows();
    m_session.totals.labour = m_table.totals().labour;
    m_session.totals.parts = m_table.totals().parts;
    m_session.totals.workTotalA = m_table.totals().grand;
    m_session.labourRate = m_rate;
    accept();
}

} // namespace est::workitems
