#include "sheet/dlg_hikazei.h"

#include "common/number_format.h"
#include "db/database.h"
#include "sheet/frm_mitumori.h"
#include "uikit/named.h"

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

namespace est::sheet {

using ui::named;

DlgHikazei::DlgHikazei(Session &session, Messages &messages, const QString &appFolder, FrmMitumori *sheet,
                       QWidget *parent)
    : GuardedDialog(messages, parent), m_session(session), m_sheet(sheet),
      m_list(NonTaxableList::fromSession(session.nonTaxable))
{
    setObjectName(QStringLiteral("dlgHikazei"));
    setEscapeCancels(true);
    setWindowTitle(QStringLiteral("非課税項目"));
    buildUi();
    const db::OpenResult opened = db::openDatabase(appFolder, QStringLiteral("Data\\Hikazei.mdb"));
    if (opened.ok()) {
        m_store = std::make_unique<NonTaxableStore>(opened.database);
        for (const NonTaxableEntry &entry : m_store->entries())
            m_cboHikazei->addItem(entry.name);
    } else {
        // The items can still be typed by hand.
        messages.inform(opened.error, QStringLiteral("非課税項目"), MessageIcon::Exclamation);
    }
    m_cboHikazei->setCurrentIndex(-1);
    showRows();
}

DlgHikazei::~DlgHikazei() = default;

void DlgHikazei::buildUi()
{
    auto *layout = new QVBoxLayout(this);

    m_fra1 = named(new QGroupBox(QStringLiteral("項目の入力"), this), "fra1");
    auto *entry = new QGridLayout(m_fra1);
    entry->addWidget(new QLabel(QStringLiteral("No"), m_fra1), 0, 0);
    m_lblNo = named(new QLabel(m_fra1), "lblNo");
    m_lblNo->setFrameShape(QFrame::Panel);
    m_lblNo->setFrameShadow(QFrame::Sunken);
    m_lblNo->setMinimumWidth(40);
    entry->addWidget(m_lblNo, 0, 1);
    entry->addWidget(new QLabel(QStringLiteral("項目一覧"), m_fra1), 0, 2);
    m_cboHikazei = named(new QComboBox(m_fra1), "cboHikazei");
    m_cboHikazei->setMinimumWidth(200);
    entry->addWidget(m_cboHikazei, 0, 3);
    entry->addWidget(new QLabel(QStringLiteral("非課税項目"), m_fra1), 1, 0);
    m_txtKoumoku = named(new QLineEdit(m_fra1), "txtKoumoku");
    entry->addWidget(m_txtKoumoku, 1, 1, 1, 3);
    entry->addWidget(new QLabel(QStringLiteral("金額"), m_fra1), 2, 0);
    m_txtKingaku = named(new QLineEdit(m_fra1), "txtKingaku");
    m_txtKingaku->setAlignment(Qt::AlignRight);
    m_txtKingaku->setMaximumWidth(140);
    entry->addWidget(m_txtKingaku, 2, 1, 1, 2);
    m_cmdAdd = named(new QPushButton(QStringLiteral("追加"), m_fra1), "cmdAdd");
    m_cmdAdd->setAutoDefault(false);
    entry->addWidget(m_cmdAdd, 2, 3, Qt::AlignRight);
    layout->addWidget(m_fra1);

    m_fra2 = named(new QGroupBox(QStringLiteral("選択した項目"), this), "fra2");
    auto *rows = new QVBoxLayout(m_fra2);
    m_grid = named(new QTableWidget(m_fra2), "HFLg1");
    m_grid->setColumnCount(3);
    m_grid->setHorizontalHeaderLabels({QStringLiteral("No"), QStringLiteral("非課税項目"), QStringLiteral("金額")});
    m_grid->verticalHeader()->setVisible(false);
    m_grid->setColumnWidth(0, 40);
    m_grid->setColumnWidth(1, 260);
    m_grid->horizontalHeader()->setStretchLastSection(true);
    m_grid->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_grid->setSelectionMode(QAbstractItemView::SingleSelection);
    m_grid->setEditTriggers(QAbstractItemView::NoEditTriggers);
    rows->addWidget(m_grid);
    auto *selected = new QHBoxLayout;
    m_txtHikazei = named(new QLineEdit(m_fra2), "txtHikazei");
    m_txtHikazei->setReadOnly(true);
    selected->addWidget(m_txtHikazei, 1);
    m_cmdEdit = named(new QPushButton(QStringLiteral("修正"), m_fra2), "cmdEdit");
    m_cmdDel = named(new QPushButton(QStringLiteral("削除"), m_fra2), "cmdDel");
    m_cmdEdit->setAutoDefault(false);
    m_cmdDel->setAutoDefault(false);
    selected->addWidget(m_cmdEdit);
    selected->addWidget(m_cmdDel);
    rows->addLayout(selected);
    layout->addWidget(m_fra2);

    auto *bottom = new QHBoxLayout;
    bottom->addWidget(new QLabel(QStringLiteral("非課税合計"), this));
    m_lblHSum = named(new QLabel(this), "lblHSum");
    m_lblHSum->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    m_lblHSum->setFrameShape(QFrame::Panel);
    m_lblHSum->setFrameShadow(QFrame::Sunken);
    m_lblHSum->setMinimumWidth(120);
    bottom->addWidget(m_lblHSum);
    bottom->addStretch(1);
    auto *ok = named(new QPushButton(QStringLiteral("OK"), this), "cmdOK");
    auto *cancel = named(new QPushButton(QStringLiteral("キャンセル"), this), "cmdCancel");
    ok->setAutoDefault(false);
    cancel->setAutoDefault(false);
    bottom->addWidget(ok);
    bottom->addWidget(cancel);
    layout->addLayout(bottom);
    resize(520, 460);

    connect(m_cboHikazei, &QComboBox::activated, this, &DlgHikazei::chooseItem);
    connect(m_cmdAdd, &QPushButton::clicked, this, &DlgHikazei::addRow);
    connect(m_cmdEdit, &QPushButton::clicked, this, &DlgHikazei::editRow);
    connect(m_cmdDel, &QPushButton::clicked, this, &DlgHikazei::deleteRow);
    connect(ok, &QPushButton::clicked, this, &DlgHikazei::confirm);
    connect(cancel, &QPushButton::clicked, this, [this] { cancelByButton(); });
    connect(m_grid, &QTableWidget::itemSelectionChanged, this, [this] {
        const int row = selectedRow();
        m_txtHikazei->setText(row >= 0 ? m_list.rows().at(row).name : QString());
    });
}

void DlgHikazei::showRows()
{
    m_grid->clearSelection();
    m_grid->setRowCount(m_list.size());
    for (int r = 0; r < m_list.size(); ++r) {
        const NonTaxableRow &row = m_list.rows().at(r);
        auto *amount = new QTableWidgetItem(formatThousands(row.amount));
        amount->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
        m_grid->setItem(r, 0, new QTableWidgetItem(QString::number(r + 1)));
        m_grid->setItem(r, 1, new QTableWidgetItem(row.name));
        m_grid->setItem(r, 2, amount);
    }
    m_lblHSum->setText(formatThousands(m_list.sum().value_or(0)));
    m_lblNo->setText(QString::number(m_editing >= 0 ? m_editing + 1 : m_list.nextNumber()));
    m_txtHikazei->clear();
}

int DlgHikazei::selectedRow() const
{
    const QList<QTableWidgetItem *> selected = m_grid->selectedItems();
    return selected.isEmpty() ? -1 : selected.first()->row();
}

void DlgHikazei::chooseItem(int index)
{
    if (index < 0)
        return;
    const QString name = m_cboHikazei->itemText(index);
    m_txtKoumoku->setText(NonTaxableList::joinName(m_txtKoumoku->text(), name));
    if (m_store) {
        if (const auto entry = m_store->find(name))
            m_txtKingaku->setText(QString::number(entry->amount));
    }
}

bool DlgHikazei::reportChange(NonTaxableList::Change change)
{
    const QString title = QStringLiteral("入力エラー");
    switch (change) {
    case NonTaxableList::Change::Done:
        return true;
    case NonTaxableList::Change::BadAmount:
        messages().inform(QStringLiteral("金額は数字（円）で入力してください。"), title, MessageIcon::Exclamation);
        m_txtKingaku->setFocus();
        m_txtKingaku->selectAll();
        return false;
    case NonTaxableList::Change::SumTooLarge:
        messages().inform(QStringLiteral("金額が大きすぎるため合計できません。"), title, MessageIcon::Exclamation);
        return false;
    case NonTaxableList::Change::NoSuchRow:
        return false;
    }
    return false;
}

void DlgHikazei::clearEntry()
{
    m_txtKoumoku->clear();
    m_txtKingaku->clear();
    m_cboHikazei->setCurrentIndex(-1);
}

void DlgHikazei::addRow()
{
    if (m_txtKoumoku->text().trimmed().isEmpty()) {
        messages().inform(QStringLiteral("非課税項目を入力してください。"), QStringLiteral("入力エラー"),
                          MessageIcon::Exclamation);
        return;
    }
    if (!reportChange(m_list.append(m_txtKoumoku->text(), m_txtKingaku->text())))
        return;
    clearEntry();
    showRows();
}

void DlgHikazei::editRow()
{
    if (m_editing < 0) {
        // First press: the selected row goes into the fields.
        const int row = selectedRow();
        if (row < 0)
            return;
        m_editing = row;
        m_txtKoumoku->setText(m_list.rows().at(row).name);
        m_txtKingaku->setText(QString::number(m_list.rows().at(row).amount));
        m_lblNo->setText(QString::number(row + 1));
        m_cmdEdit->setText(QStringLiteral("更新"));
        m_cmdAdd->setEnabled(false);
        m_cmdDel->setEnabled(false);
        m_grid->setEnabled(false);
        return;
    }
    // Second press: the fields go back into that row.
    if (!reportChange(m_list.replace(m_editing, m_txtKoumoku->text(), m_txtKingaku->text())))
        return;
    m_editing = -1;
    m_cmdEdit->setText(QStringLiteral("修正"));
    m_cmdAdd->setEnabled(true);
    m_cmdDel->setEnabled(true);
    m_grid->setEnabled(true);
    clearEntry();
    showRows();
}

void DlgHikazei::deleteRow()
{
    const int row = selectedRow();
    if (row < 0) {
        messages().inform(QStringLiteral("削除するデータはありません．"), QStringLiteral("警告"),
                          MessageIcon::Critical);
        return;
    }
    if (messages().askYesNo(QString::number(row + 1) + QStringLiteral("行目を削除します。"),
                            QStringLiteral("行の削除確認"), MessageIcon::Question) != Answer::Yes)
        return;
    m_list.remove(row);
    showRows();
}

void DlgHikazei::confirm()
{
    if (m_editing >= 0 && !reportChange(m_list.replace(m_editing, m_txtKoumoku->text(), m_txtKingaku->text())))
        return;
    m_list.toSession(m_session.nonTaxable);
    if (m_sheet)
        m_sheet->setNonTaxableTotal(m_session.nonTaxable.sum);
    accept();
}

} // namespace est::sheet
