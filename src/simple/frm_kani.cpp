#include "simple/frm_kani.h"

#include "common/number_format.h"
#include "simple/car_drawing.h"
#include "simple/dialog_buttons.h"
#include "simple/panels.h"
#include "uikit/named.h"

#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

namespace est::simple {

using ui::named;

namespace {

QLabel *valueLabel(QWidget *parent, const char *name)
{
    auto *label = named(new QLabel(parent), name);
    label->setFrameShape(QFrame::Panel);
    label->setFrameShadow(QFrame::Sunken);
    label->setMinimumWidth(36);
    label->setAlignment(Qt::AlignCenter);
    return label;
}

QString nameOf(const std::optional<QList<Choice>> &choices, int no)
{
    if (choices)
        for (const Choice &choice : *choices)
            if (choice.no == no)
                return choice.name;
    return {};
}

} // namespace

FrmKani::FrmKani(Messages &messages, EasyEstimateStore *store, const SimpleEstimateState &state, QWidget *parent)
    : GuardedDialog(messages, parent), m_store(store), m_form(store, state)
{
    setObjectName(QStringLiteral("frmKani"));
    setWindowTitle(QStringLiteral("簡易見積"));
    auto *layout = new QVBoxLayout(this);

    auto *classes = new QHBoxLayout;
    const char *captions[] = {"作業区分", "車両区分Ａ", "車両区分Ｂ", "色区分"};
    const char *labelNames[] = {"lbl1", "lbl2", "lbl3", "lbl4", "lbl5"};
    for (int i = 0; i < 5; ++i)
        m_lbl[i] = valueLabel(this, labelNames[i]);
    for (int i = 0; i < 4; ++i) {
        classes->addWidget(new QLabel(QString::fromUtf8(captions[i]), this));
        classes->addWidget(m_lbl[i]);
        m_names[i] = new QLabel(this);
        classes->addWidget(m_names[i]);
        classes->addSpacing(12);
    }
    classes->addStretch(1);
    m_cmdKubun = named(new QPushButton(QStringLiteral("区分の変更..."), this), "cmdKubun");
    m_cmdKubun->setAutoDefault(false);
    m_cmdKubun->hide();
    classes->addWidget(m_cmdKubun);
    layout->addLayout(classes);

    auto *middle = new QHBoxLayout;
    auto *drawingBox = new QGroupBox(QStringLiteral("作業する部位をクリックしてください"), this);
    auto *drawingLayout = new QVBoxLayout(drawingBox);
    m_drawing = new CarDrawing(drawingBox);
    drawingLayout->addWidget(m_drawing);
    middle->addWidget(drawingBox);

    auto *right = new QVBoxLayout;
    auto *panelLine = new QHBoxLayout;
    panelLine->addWidget(new QLabel(QStringLiteral("部位番号"), this));
    panelLine->addWidget(m_lbl[4]);
    m_panelName = named(new QLabel(this), "lblPanelName");
    panelLine->addWidget(m_panelName, 1);
    right->addLayout(panelLine);
    m_grid = named(new QTableWidget(0, 5, this), "DataGrid1");
    m_grid->setHorizontalHeaderLabels({QStringLiteral("No"), QStringLiteral("作業部位"), QStringLiteral("作業内容"),
                                       QStringLiteral("材料/部品代"), QStringLiteral("工賃")});
    m_grid->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_grid->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_grid->setSelectionMode(QAbstractItemView::SingleSelection);
    m_grid->verticalHeader()->hide();
    m_grid->setMinimumWidth(560);
    m_grid->horizontalHeader()->setSectionResizeMode(2, QHeaderView::Stretch);
    m_grid->setColumnWidth(0, 44);
    m_grid->setColumnWidth(1, 110);
    m_grid->setColumnWidth(3, 84);
    m_grid->setColumnWidth(4, 72);
    right->addWidget(m_grid, 1);
    middle->addLayout(right, 1);
    layout->addLayout(middle, 1);

    auto *chosen = new QGroupBox(QStringLiteral("選択した単価"), this);
    auto *form = new QGridLayout(chosen);
    m_lblNo = valueLabel(chosen, "lblNo");
    m_txtSBui = named(new QLineEdit(chosen), "txtSBui");
    m_txtSNaiyo = named(new QLineEdit(chosen), "txtSNaiyo");
    m_txtKotin = named(new QLineEdit(chosen), "txtKotin");
    m_txtZairyo = named(new QLineEdit(chosen), "txtZairyo");
    m_txtKotin->setAlignment(Qt::AlignRight);
    m_txtZairyo->setAlignment(Qt::AlignRight);
    form->addWidget(new QLabel(QStringLiteral("No"), chosen), 0, 0);
    form->addWidget(m_lblNo, 1, 0);
    form->addWidget(new QLabel(QStringLiteral("部品名（作業部位）"), chosen), 0, 1);
    form->addWidget(m_txtSBui, 1, 1);
    form->addWidget(new QLabel(QStringLiteral("作業内容"), chosen), 0, 2);
    form->addWidget(m_txtSNaiyo, 1, 2);
    form->addWidget(new QLabel(QStringLiteral("工賃"), chosen), 0, 3);
    form->addWidget(m_txtKotin, 1, 3);
    form->addWidget(new QLabel(QStringLiteral("材料/部品代"), chosen), 0, 4);
    form->addWidget(m_txtZairyo, 1, 4);
    form->setColumnStretch(1, 2);
    form->setColumnStretch(2, 3);
    form->setColumnStretch(3, 1);
    form->setColumnStretch(4, 1);
    layout->addWidget(chosen);

    const DialogButtons buttons = dialogButtons(this);
    layout->addLayout(buttons.row);

    connect(m_drawing, &CarDrawing::panelClicked, this, &FrmKani::panelClicked);
    connect(m_grid, &QTableWidget::itemSelectionChanged, this, &FrmKani::rowChosen);
    connect(m_cmdKubun, &QPushButton::clicked, this, &FrmKani::changeClasses);
    connect(buttons.ok, &QPushButton::clicked, this, &FrmKani::confirm);
    connect(buttons.cancel, &QPushButton::clicked, this, &FrmKani::cancelByButton);

    showClassification();
    m_form.open();
    showRows();
}

void FrmKani::setRechoose(std::function<std::optional<SimpleEstimateState>()> rechoose)
{
    m_rechoose = std::move(rechoose);
    m_cmdKubun->setVisible(bool(m_rechoose));
}

// New classes start the screen afresh: no panel chosen, the grid as on opening.
void FrmKani::changeClasses()
{
    const auto state = m_rechoose ? m_rechoose() : std::nullopt;
    if (!state)
        return;
    m_form = PriceForm(m_store, *state);
    m_drawing->setChosen(0);
    m_lbl[4]->clear();
    m_panelName->clear();
    clearChosenRow();
    showClassification();
    m_form.open();
    showRows();
}

void FrmKani::showClassification()
{
    EasyEstimateStore *store = m_store;
    const Classification &c = m_form.classification();
    const int numbers[] = {c.workKind, c.classA, c.classB, c.colour};
    for (int i = 0; i < 4; ++i)
        m_lbl[i]->setText(QString::number(numbers[i]));
    if (!store)
        return;
    m_names[0]->setText(nameOf(store->workKinds(), c.workKind));
    m_names[1]->setText(nameOf(store->allClassesA(), c.classA));
    m_names[2]->setText(nameOf(store->allClassesB(), c.classB));
    m_names[3]->setText(nameOf(store->allColours(), c.colour));
}

void FrmKani::panelClicked(int num)
{
    m_lbl[4]->setText(QString::number(num));
    const Panel *panel = panelByNum(num);
    m_panelName->setText(panel ? panel->caption : QString());
    m_drawing->setChosen(num);
    if (m_form.choosePanel(num)) {
        // The row chosen before belongs to the other panel: OK must not hand it on.
        clearChosenRow();
        showRows();
    }
}

void FrmKani::clearChosenRow()
{
    for (QLineEdit *edit : {m_txtSBui, m_txtSNaiyo, m_txtKotin, m_txtZairyo})
        edit->clear();
    m_lblNo->clear();
}

void FrmKani::showRows()
{
    const QList<UnitPriceRow> &rows = m_form.rows();
    m_grid->clearSelection();
    m_grid->setRowCount(int(rows.size()));
    for (int r = 0; r < rows.size(); ++r) {
        const UnitPriceRow &row = rows.at(r);
        const QString cells[] = {QString::number(row.no), row.part, row.content, formatThousands(row.material),
                                 formatThousands(row.labour)};
        for (int c = 0; c < 5; ++c) {
            auto *item = new QTableWidgetItem(cells[c]);
            if (c == 0 || c >= 3)
                item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
            m_grid->setItem(r, c, item);
        }
    }
}

void FrmKani::rowChosen()
{
    const QList<QTableWidgetItem *> selected = m_grid->selectedItems();
    if (selected.isEmpty())
        return;
    const auto row = m_form.row(selected.first()->row());
    if (!row)
        return;
    m_lblNo->setText(QString::number(row->no));
    m_txtSBui->setText(row->part);
    m_txtSNaiyo->setText(row->content);
    m_txtZairyo->setText(QString::number(row->material));
    m_txtKotin->setText(QString::number(row->labour));
}

void FrmKani::confirm()
{
    QString error;
    m_entry = PriceForm::entry(m_txtSBui->text(), m_txtSNaiyo->text(), m_txtKotin->text(), m_txtZairyo->text(),
                               &error);
    if (!m_entry) {
        messages().inform(error, QStringLiteral("簡易見積"), MessageIcon::Exclamation);
        return;
    }
    accept();
}

} // namespace est::simple
