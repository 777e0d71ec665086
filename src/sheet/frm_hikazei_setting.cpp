#include "sheet/frm_hikazei_setting.h"

#include "common/number_format.h"
#include "db/database.h"
#include "sheet/non_taxable_list.h"
#include "uikit/named.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

namespace est::sheet {

using ui::named;

namespace {
const QString kTitle = QStringLiteral("非課税項目設定");
} // namespace

FrmHikazeiSetting::FrmHikazeiSetting(Messages &messages, const QString &appFolder, QWidget *parent)
    : QWidget(parent, Qt::Window), m_messages(messages)
{
    setObjectName(QStringLiteral("frmHikazeiSetting"));
    setWindowTitle(kTitle);
    buildUi();
    const db::OpenResult opened = db::openDatabase(appFolder, QStringLiteral("Data\\Hikazei.mdb"));
    if (opened.ok())
        m_store = std::make_unique<NonTaxableStore>(opened.database);
    else
        m_messages.inform(opened.error, kTitle, MessageIcon::Critical);
    reload(1);
    setMode(Mode::Browsing);
}

FrmHikazeiSetting::~FrmHikazeiSetting() = default;

void FrmHikazeiSetting::buildUi()
{
    auto *layout = new QVBoxLayout(this);
    auto *help = new QLabel(QStringLiteral("見積書に税抜きで加える項目と標準の金額を登録します。\n"
                                           "なお、デー多数は99まで登録できます。"),
                            this);
    help->setObjectName(QStringLiteral("lblHelp"));
    layout->addWidget(help);

    m_dgh = named(new QTableWidget(this), "DGH");
    m_dgh->setColumnCount(3);
    m_dgh->setHorizontalHeaderLabels({QStringLiteral("No"), QStringLiteral("非課税項目"), QStringLiteral("金額")});
    m_dgh->verticalHeader()->setVisible(false);
    m_dgh->setColumnWidth(0, 40);
    m_dgh->setColumnWidth(1, 260);
    m_dgh->horizontalHeader()->setStretchLastSection(true);
    m_dgh->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_dgh->setSelectionMode(QAbstractItemView::SingleSelection);
    m_dgh->setEditTriggers(QAbstractItemView::NoEditTriggers);
    layout->addWidget(m_dgh, 1);

    auto *fields = new QGridLayout;
    fields->addWidget(new QLabel(QStringLiteral("No"), this), 0, 0);
    m_lblNo = named(new QLabel(this), "lblNo");
    m_lblNo->setFrameShape(QFrame::Panel);
    m_lblNo->setFrameShadow(QFrame::Sunken);
    m_lblNo->setMinimumWidth(40);
    fields->addWidget(m_lblNo, 0, 1);
    fields->addWidget(new QLabel(QStringLiteral("非課税項目"), this), 1, 0);
    m_txtH = named(new QLineEdit(this), "txtH");
    fields->addWidget(m_txtH, 1, 1);
    fields->addWidget(new QLabel(QStringLiteral("金額"), this), 2, 0);
    m_txtHzSum = named(new QLineEdit(this), "txtHzSum");
    m_txtHzSum->setAlignment(Qt::AlignRight);
    m_txtHzSum->setMaximumWidth(140);
    fields->addWidget(m_txtHzSum, 2, 1);
    layout->addLayout(fields);

    auto *buttons = new QHBoxLayout;
    const std::tuple<const char *, const char *, QPushButton *FrmHikazeiSetting::*> list[] = {
        {"cmdNew", "新規", &FrmHikazeiSetting::m_cmdNew},   {"cmdEdit", "修正", &FrmHikazeiSetting::m_cmdEdit},
        {"cmdDel", "削除", &FrmHikazeiSetting::m_cmdDel},   {"cmdOK", "確定", &FrmHikazeiSetting::m_cmdOK},
        {"cmdCancel", "取消", &FrmHikazeiSetting::m_cmdCancel}, {"cmdExit", "閉じる", &FrmHikazeiSetting::m_cmdExit},
    };
    for (const auto &[name, caption, member] : list) {
        this->*member = named(new QPushButton(QString::fromUtf8(caption), this), name);
        buttons->addWidget(this->*member);
    }
    layout->addLayout(buttons);
    resize(520, 520);

    connect(m_dgh, &QTableWidget::itemSelectionChanged, this, &FrmHikazeiSetting::showSelected);
    connect(m_cmdNew, &QPushButton::clicked, this, &FrmHikazeiSetting::startAdding);
    connect(m_cmdEdit, &QPushButton::clicked, this, &FrmHikazeiSetting::startEditing);
    connect(m_cmdDel, &QPushButton::clicked, this, &FrmHikazeiSetting::deleteEntry);
    connect(m_cmdOK, &QPushButton::clicked, this, &FrmHikazeiSetting::confirm);
    connect(m_cmdCancel, &QPushButton::clicked, this, &FrmHikazeiSetting::cancelEdit);
    connect(m_cmdExit, &QPushButton::clicked, this, &QWidget::close);
}

void FrmHikazeiSetting::reload(int selectNo)
{
    m_entries = m_store ? m_store->entries() : QList<NonTaxableEntry>();
    const QSignalBlocker blocker(m_dgh);
    m_dgh->clearSelection();
    m_dgh->setRowCount(int(m_entries.size()));
    int select = -1;
    for (int r = 0; r < m_entries.size(); ++r) {
        const NonTaxableEntry &e = m_entries.at(r);
        auto *amount = new QTableWidgetItem(formatThousands(e.amount));
        amount->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
        m_dgh->setItem(r, 0, new QTableWidgetItem(QString::number(e.no)));
        m_dgh->setItem(r, 1, new QTableWidgetItem(e.name));
        m_dgh->setItem(r, 2, amount);
        if (e.no == selectNo)
            select = r;
    }
    if (select < 0 && !m_entries.isEmpty())
        select = std::min(int(m_entries.size()) - 1, std::max(0, selectNo - 1));
    if (select >= 0)
        m_dgh->selectRow(select);
    showSelected();
}

int FrmHikazeiSetting::selectedRow() const
{
    const QList<QTableWidgetItem *> selected = m_dgh->selectedItems();
    return selected.isEmpty() ? -1 : selected.first()->row();
}

void FrmHikazeiSetting::showSelected()
{
    if (m_mode != Mode::Browsing)
        return;
    const int row = selectedRow();
    if (row < 0) {
        m_lblNo->clear();
        m_txtH->clear();
        m_txtHzSum->clear();
    } else {
        const NonTaxableEntry &e = m_entries.at(row);
        m_lblNo->setText(QString::number(e.no));
        m_txtH->setText(e.name);
        m_txtHzSum->setText(QString::number(e.amount));
    }
    setMode(Mode::Browsing);
}

void FrmHikazeiSetting::setMode(Mode mode)
{
    m_mode = mode;
    const bool browsing = mode == Mode::Browsing;
    const bool usable = bool(m_store);
    m_txtH->setEnabled(!browsing);
    m_txtHzSum->setEnabled(!browsing);
    m_dgh->setEnabled(browsing);
    m_cmdOK->setEnabled(!browsing);
    m_cmdCancel->setEnabled(!browsing);
    m_cmdNew->setEnabled(browsing && usable);
    m_cmdEdit->setEnabled(browsing && usable && selectedRow() >= 0);
    m_cmdDel->setEnabled(browsing && usable);
    m_cmdExit->setEnabled(browsing);
}

void FrmHikazeiSetting::startAdding()
{
    if (!m_store)
        return;
    // The list is full at 99 entries: the button then does nothing.
    const int count = m_store->count();
    if (count >= kMaxNonTaxableEntries)
        return;
    m_editingNo = count + 1;
    m_lblNo->setText(QString::number(m_editingNo));
    m_txtH->clear();
    m_txtHzSum->clear();
    setMode(Mode::Adding);
    m_txtH->setFocus();
}

void FrmHikazeiSetting::startEditing()
{
    const int row = selectedRow();
    if (row < 0)
        return;
    m_editing = m_entries.at(row);
    m_editingNo = m_editing.no;
    setMode(Mode::Editing);
    m_txtH->setFocus();
}

void FrmHikazeiSetting::confirm()
{
    if (m_mode == Mode::Browsing || !m_store)
        return;
    const QString title = QStringLiteral("入力エラー");
    const QString name = m_txtH->text().trimmed();
    if (name.isEmpty()) {
        m_messages.inform(QStringLiteral("非課税項目を入力してください。"), title, MessageIcon::Exclamation);
        return;
    }
    const auto amount = NonTaxableList::parseAmount(m_txtHzSum->text());
    if (!amount) {
        m_messages.inform(QStringLiteral("金額は数字（円）で入力してください。"), title, MessageIcon::Exclamation);
        m_txtHzSum->setFocus();
        return;
    }
    const bool stored = m_mode == Mode::Adding ? m_store->append(name, *amount)
                                               : m_store->update(m_editing, name, *amount);
    if (!stored) {
        m_messages.inform(QStringLiteral("登録できませんでした。\n") + m_store->lastError(), kTitle,
                          MessageIcon::Critical);
        return;
    }
    m_mode = Mode::Browsing;
    reload(m_editingNo);
}

void FrmHikazeiSetting::cancelEdit()
{
    m_mode = Mode::Browsing;
    showSelected();
}

void FrmHikazeiSetting::deleteEntry()
{
    const int row = selectedRow();
    if (row < 0 || !m_store) {
        m_messages.inform(QStringLiteral("削除するデータがありません。"), kTitle, MessageIcon::Information);
        return;
    }
    if (m_messages.askYesNo(QStringLiteral("削除します。\nこのデータは失われます。\nよろしいですか？"),
                            QStringLiteral("削除"), MessageIcon::Exclamation) != Answer::Yes)
        return;
    const int no = m_entries.at(row).no;
    if (!m_store->remove(m_entries.at(row))) {
        m_messages.inform(QStringLiteral("削除できませんでした。\n") + m_store->lastError(), kTitle,
                          MessageIcon::Critical);
        return;
    }
    reload(no);
}

} // namespace est::sheet
