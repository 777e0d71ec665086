#include "workitems/frm_buhin.h"

#include "uikit/user_choice.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

namespace est::workitems {

namespace {

const char *const kInstructions[] = {
    "１．はじめに、編集するメーカー名と車両タイプを選択して次へボタンをクリックしてください。",
    "２．次に、部品分類項目と部品区分項目が表示されますので、それぞれ編集したい項目を選択してください。",
    "３．次に新規作成の場合は、新規作成ボタンをクリックし部品名を入力してください。",
    "編集の場合は、表示された部品を選択し編集ボタンをクリックして部品名を編集してください。",
    "４．OKボタンをクリックして編集が終了しました。",
    "キャンセルの場合はキャンセルボタンをクリックしてください。",
    "＊メーカー選択からもう一度はじめる場合は、’最初に戻る’ボタンをクリックしてください。＊",
};

enum GridColumn { GNum, GBNum, GBunrui, GKNum, GKubun, GPartName, GColumnCount };

template <typename W>
W *named(W *widget, const QString &name)
{
    widget->setObjectName(name);
    return widget;
}

QLabel *valueLabel(const QString &name, QWidget *parent)
{
    auto *label = named(new QLabel(parent), name);
    label->setFrameShape(QFrame::Panel);
    label->setFrameShadow(QFrame::Sunken);
    label->setMinimumWidth(60);
    return label;
}

} // namespace

FrmBuhin::FrmBuhin(CatalogueChoice &choice, QWidget *parent) : QDialog(parent), m_choice(choice)
{
    setObjectName(QStringLiteral("frmBuhin"));
    setWindowTitle(QStringLiteral("部品データの編集"));
    setModal(true);
    buildUi();
    // Failures while opening leave the lists empty; the screen stays usable.
    m_choice.connections().openCarSet();
    fillMakerLists();
    setMode(CatalogueEditorMode::Choosing);
}

FrmBuhin::~FrmBuhin() = default;

void FrmBuhin::buildUi()
{
    auto *layout = new QVBoxLayout(this);
    int line = 1;
    for (const char *text : kInstructions) {
        auto *label = named(new QLabel(QString::fromUtf8(text), this), QStringLiteral("lblSetumei%1").arg(line++));
        layout->addWidget(label);
    }

    auto *lists = new QGridLayout;
    m_dlstCarSec = named(new QListWidget(this), QStringLiteral("dlstCarSec"));
    m_dlstCType = named(new QListWidget(this), QStringLiteral("dlstCType"));
    m_dlstBunrui = named(new QListWidget(this), QStringLiteral("dlstBunrui"));
    m_dlstKubun = named(new QListWidget(this), QStringLiteral("dlstKubun"));
    m_cmdNext = named(new QPushButton(QStringLiteral("次へ"), this), QStringLiteral("cmdNext"));
    const std::pair<const char *, QListWidget *> columns[] = {
        {"メーカー", m_dlstCarSec}, {"車両タイプ", m_dlstCType}, {"部品分類", m_dlstBunrui}, {"部品区分", m_dlstKubun}};
    int c = 0;
    for (const auto &[caption, list] : columns) {
        lists->addWidget(new QLabel(QString::fromUtf8(caption), this), 0, c);
        lists->addWidget(list, 1, c);
        ++c;
    }
    lists->addWidget(m_cmdNext, 2, 1);
    layout->addLayout(lists, 2);

    auto *labels = new QHBoxLayout;
    m_lblBNum = valueLabel(QStringLiteral("lblBNum"), this);
    m_lblBunrui = valueLabel(QStringLiteral("lblBunrui"), this);
    m_lblKNum = valueLabel(QStringLiteral("lblKNum"), this);
    m_lblKubun = valueLabel(QStringLiteral("lblKubun"), this);
    m_lblNum = valueLabel(QStringLiteral("lblNum"), this);
    m_txtBuhin = named(new QLineEdit(this), QStringLiteral("txtBuhin"));
    m_lblBunrui->setMinimumWidth(130);
    m_lblKubun->setMinimumWidth(150);
    const std::pair<const char *, QWidget *> fields[] = {
        {"分類No", m_lblBNum}, {"分類", m_lblBunrui}, {"区分No", m_lblKNum},
        {"区分", m_lblKubun},  {"No", m_lblNum},      {"部品名", m_txtBuhin}};
    for (const auto &[caption, widget] : fields) {
        labels->addWidget(new QLabel(QString::fromUtf8(caption), this));
        labels->addWidget(widget, widget == m_txtBuhin ? 4 : 1);
    }
    layout->addLayout(labels);

    m_DG1 = named(new QTableWidget(this), QStringLiteral("DG1"));
    m_DG1->setColumnCount(GColumnCount);
    m_DG1->setHorizontalHeaderLabels({QStringLiteral("Num"), QStringLiteral("BNum"), QStringLiteral("分類"),
                                      QStringLiteral("KNum"), QStringLiteral("区分"), QStringLiteral("部品名")});
    m_DG1->verticalHeader()->setVisible(false);
    m_DG1->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_DG1->setSelectionMode(QAbstractItemView::SingleSelection);
    m_DG1->setEditTriggers(QAbstractItemView::NoEditTriggers);
    const int widths[] = {60, 50, 120, 50, 140};
    for (int i = 0; i < 5; ++i)
        m_DG1->setColumnWidth(i, widths[i]);
    m_DG1->horizontalHeader()->setStretchLastSection(true);
    layout->addWidget(m_DG1, 3);

    auto *buttons = new QHBoxLayout;
    m_cmdNew = named(new QPushButton(QStringLiteral("新規作成"), this), QStringLiteral("cmdNew"));
    m_cmdEdit = named(new QPushButton(QStringLiteral("編集"), this), QStringLiteral("cmdEdit"));
    m_cmdDel = named(new QPushButton(QStringLiteral("削除"), this), QStringLiteral("cmdDel"));
    m_cmdOK = named(new QPushButton(QStringLiteral("OK"), this), QStringLiteral("cmdOK"));
    m_cmdCancel = named(new QPushButton(QStringLiteral("キャンセル"), this), QStringLiteral("cmdCancel"));
    m_cmdFarst = named(new QPushButton(QStringLiteral("最初に戻る"), this), QStringLiteral("cmdFarst"));
    auto *close = named(new QPushButton(QStringLiteral("閉じる"), this), QStringLiteral("cmdClose"));
    for (QPushButton *b : {m_cmdNew, m_cmdEdit, m_cmdDel, m_cmdOK, m_cmdCancel, m_cmdFarst, close}) {
        b->setAutoDefault(false);
        buttons->addWidget(b);
    }
    layout->addLayout(buttons);

    ui::onChosenRow(m_dlstCarSec, this, [this](int) { makerOrTypeChosen(); });
    ui::onChosenRow(m_dlstCType, this, [this](int) { makerOrTypeChosen(); });
    connect(m_cmdNext, &QPushButton::clicked, this, &FrmBuhin::next);
    ui::onChosenRow(m_dlstBunrui, this, [this](int row) { classificationChosen(row); });
    ui::onChosenRow(m_dlstKubun, this, [this](int row) { sectionChosen(row); });
    connect(m_cmdNew, &QPushButton::clicked, this, &FrmBuhin::startNew);
    connect(m_cmdEdit, &QPushButton::clicked, this, &FrmBuhin::startEdit);
    connect(m_cmdDel, &QPushButton::clicked, this, &FrmBuhin::startDelete);
    connect(m_cmdOK, &QPushButton::clicked, this, &FrmBuhin::confirm);
    connect(m_cmdCancel, &QPushButton::clicked, this, &FrmBuhin::cancel);
    connect(m_cmdFarst, &QPushButton::clicked, this, &FrmBuhin::backToStart);
    connect(close, &QPushButton::clicked, this, &FrmBuhin::close);
    resize(1000, 760);
}

void FrmBuhin::fillMakerLists()
{
    m_makers = m_choice.connections().makers();
    m_types = m_choice.connections().vehicleTypes();
    const QSignalBlocker a(m_dlstCarSec);
    const QSignalBlocker b(m_dlstCType);
    m_dlstCarSec->clear();
    m_dlstCType->clear();
    for (const Maker &m : m_makers)
        m_dlstCarSec->addItem(m.name);
    for (const VehicleType &t : m_types)
        m_dlstCType->addItem(t.type);
}

void FrmBuhin::setMode(CatalogueEditorMode mode)
{
    m_mode = mode;
    const CatalogueEditorControls c =
        controlsFor(mode, !m_makerDb.isEmpty() && !m_typeTable.isEmpty(), m_knum != 0 && m_table);
    m_dlstCarSec->setEnabled(c.makerLists);
    m_dlstCType->setEnabled(c.makerLists);
    m_cmdNext->setEnabled(c.next);
    m_dlstBunrui->setEnabled(c.treeLists);
    m_dlstKubun->setEnabled(c.treeLists);
    m_DG1->setEnabled(c.grid);
    m_DG1->setEditTriggers(c.gridEditable ? QAbstractItemView::AllEditTriggers : QAbstractItemView::NoEditTriggers);
    m_txtBuhin->setEnabled(c.partName);
    m_cmdNew->setEnabled(c.newEditDelete);
    m_cmdEdit->setEnabled(c.newEditDelete && !m_rows.isEmpty());
    m_cmdDel->setEnabled(c.newEditDelete && !m_rows.isEmpty());
    m_cmdOK->setEnabled(c.okCancel);
    m_cmdCancel->setEnabled(c.okCancel);
    m_cmdFarst->setEnabled(c.backToStart);
}

void FrmBuhin::makerOrTypeChosen()
{
    const int maker = ui::chosenRow(m_dlstCarSec);
    const int type = ui::chosenRow(m_dlstCType);
    m_makerDb = maker >= 0 ? m_makers.at(maker).dbName : QString();
    m_typeTable = type >= 0 ? m_types.at(type).tableName : QString();
    setMode(CatalogueEditorMode::Choosing);
}

void FrmBuhin::next()
{
    const int maker = ui::chosenRow(m_dlstCarSec);
    const int type = ui::chosenRow(m_dlstCType);
    if (maker < 0 || type < 0)
        return;
    // The editor's choice becomes the estimate's catalogue choice, as the register shows it.
    Session &session = m_choice.session();
    session.makerDb = m_makerDb;
    session.maker = m_makers.at(maker).name;
    session.typeTable = m_typeTable;
    session.vehicleType = m_types.at(type).type;
    if (!m_choice.openCatalogueDb(this))
        return;
    m_table = m_choice.currentTable();
    if (!m_table)
        return;
    {
        const QSignalBlocker blocker(m_dlstBunrui);
        m_dlstBunrui->clear();
        for (const Classification &c : m_table->classifications()) {
            auto *item = new QListWidgetItem(c.name, m_dlstBunrui);
            item->setData(Qt::UserRole, int(c.bnum));
        }
        m_dlstBunrui->setCurrentRow(-1);
    }
    setMode(CatalogueEditorMode::Browsing);
}

void FrmBuhin::classificationChosen(int row)
{
    {
        const QSignalBlocker blocker(m_dlstKubun);
        m_dlstKubun->clear();
    }
    m_knum = 0;
    m_rows.clear();
    showSection();
    if (row < 0 || !m_table)
        return;
    m_bnum = std::int16_t(m_dlstBunrui->item(row)->data(Qt::UserRole).toInt());
    if (m_bnum != 0) {
        const QSignalBlocker blocker(m_dlstKubun);
        for (const Section &s : m_table->sections(m_bnum)) {
            auto *item = new QListWidgetItem(s.name, m_dlstKubun);
            item->setData(Qt::UserRole, int(s.knum));
        }
        m_dlstKubun->setCurrentRow(-1);
    }
    setMode(CatalogueEditorMode::Browsing);
}

void FrmBuhin::sectionChosen(int row)
{
    if (row < 0 || !m_table)
        return;
    m_knum = std::int16_t(m_dlstKubun->item(row)->data(Qt::UserRole).toInt());
    showSection();
    setMode(CatalogueEditorMode::Browsing);
}

void FrmBuhin::showSection()
{
    m_rows = (m_table && m_knum != 0) ? m_table->sectionRows(m_bnum, m_knum) : QList<CatalogueRow>();
    const QSignalBlocker blocker(m_DG1);
    m_DG1->setRowCount(int(m_rows.size()));
    for (int r = 0; r < m_rows.size(); ++r) {
        const CatalogueRow &row = m_rows.at(r);
        const QString texts[] = {QString::number(row.num), QString::number(row.bnum), row.bunrui,
                                 QString::number(row.knum), row.kubun, row.partName};
        for (int c = 0; c < GColumnCount; ++c) {
            auto *item = new QTableWidgetItem(texts[c]);
            // Only the part name can be changed in the grid; the numbers place the part in the tree.
            if (c != GPartName)
                item->setFlags(item->flags() & ~Qt::ItemIsEditable);
            m_DG1->setItem(r, c, item);
        }
    }
    if (!m_rows.isEmpty()) {
        const CatalogueRow &first = m_rows.first();
        m_lblBNum->setText(QString::number(first.bnum));
        m_lblBunrui->setText(first.bunrui);
        m_lblKNum->setText(QString::number(first.knum));
        m_lblKubun->setText(first.kubun);
    } else if (m_knum != 0) {
        // A section whose parts were all deleted still names itself from the lists.
        m_lblBNum->setText(QString::number(m_bnum));
        m_lblBunrui->setText(m_dlstBunrui->currentItem() ? m_dlstBunrui->currentItem()->text() : QString());
        m_lblKNum->setText(QString::number(m_knum));
        m_lblKubun->setText(m_dlstKubun->currentItem() ? m_dlstKubun->currentItem()->text() : QString());
    } else {
        for (QLabel *l : {m_lblBNum, m_lblBunrui, m_lblKNum, m_lblKubun})
            l->clear();
    }
}

void FrmBuhin::startNew()
{
    if (!m_table || m_knum == 0)
        return;
    m_lblNum->setText(QString::number(m_table->nextNumber(m_bnum, m_knum)));
    m_txtBuhin->clear();
    setMode(CatalogueEditorMode::Adding);
    m_txtBuhin->setFocus();
}

void FrmBuhin::startEdit()
{
    setMode(CatalogueEditorMode::Editing);
}

void FrmBuhin::startDelete()
{
    setMode(CatalogueEditorMode::Deleting);
}

void FrmBuhin::confirm()
{
    switch (m_mode) {
    case CatalogueEditorMode::Adding:
        if (!m_txtBuhin->text().isEmpty() && m_table) {
            CatalogueRow row;
            row.num = m_lblNum->text().toInt();
            row.bnum = std::int16_t(m_lblBNum->text().toInt());
            row.bunrui = m_lblBunrui->text();
            row.knum = std::int16_t(m_lblKNum->text().toInt());
            row.kubun = m_lblKubun->text();
            row.partName = m_txtBuhin->text();
            const QString error = m_table->addPart(row);
            if (!error.isEmpty())
                messages().inform(error, QStringLiteral("部品データの保存"), MessageIcon::Critical);
        }
        m_txtBuhin->clear();
        m_lblNum->clear();
        showSection();
        break;
    case CatalogueEditorMode::Editing:
        m_DG1->setCurrentItem(nullptr); // commits a cell still being typed in
        for (int r = 0; r < m_rows.size() && m_table; ++r) {
            const QTableWidgetItem *item = m_DG1->item(r, GPartName);
            if (item && item->text() != m_rows.at(r).partName) {
                const QString error = m_table->renamePart(m_rows.at(r).rowId, item->text());
                if (!error.isEmpty())
                    messages().inform(error, QStringLiteral("部品データの保存"), MessageIcon::Critical);
            }
        }
        showSection();
        break;
    case CatalogueEditorMode::Deleting: {
        const int r = m_DG1->currentRow();
        if (r >= 0 && r < m_rows.size() && m_table
            && messages().askYesNo(QStringLiteral("データを削除します。\nよろしいですか？"), QStringLiteral("削除"),
                                   MessageIcon::Question) == Answer::Yes) {
            const QString error = m_table->deletePart(m_rows.at(r).rowId);
            if (!error.isEmpty())
                messages().inform(error, QStringLiteral("部品データの削除"), MessageIcon::Critical);
            showSection();
        }
        break;
    }
    default:
        return;
    }
    setMode(CatalogueEditorMode::Browsing);
}

void FrmBuhin::cancel()
{
    if (m_mode == CatalogueEditorMode::Adding) {
        m_txtBuhin->clear();
        m_lblNum->clear();
    }
    // Names typed into the grid but not confirmed are dropped.
    if (m_mode == CatalogueEditorMode::Editing)
        showSection();
    setMode(CatalogueEditorMode::Browsing);
}

void FrmBuhin::backToStart()
{
    m_makerDb.clear();
    m_typeTable.clear();
    m_bnum = 0;
    m_knum = 0;
    m_table.reset();
    m_rows.clear();
    {
        const QSignalBlocker a(m_dlstCarSec), b(m_dlstCType), c(m_dlstBunrui), d(m_dlstKubun);
        m_dlstCarSec->setCurrentRow(-1);
        m_dlstCType->setCurrentRow(-1);
        m_dlstBunrui->clear();
        m_dlstKubun->clear();
    }
    m_txtBuhin->clear();
    m_lblNum->clear();
    showSection();
    setMode(CatalogueEditorMode::Choosing);
}

void FrmBuhin::closeAll()
{
    m_table.reset();
    m_choice.connections().closeCatalogue();
    m_choice.connections().closeCarSet();
}

void FrmBuhin::done(int result)
{
    closeAll();
    QDialog::done(result);
}

} // namespace est::workitems
