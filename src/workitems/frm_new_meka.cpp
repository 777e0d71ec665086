#include "workitems/frm_new_meka.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

namespace est::workitems {

FrmNewMeka::FrmNewMeka(const QString &appFolder, Messages &messages, QWidget *parent)
    : QDialog(parent), m_messages(messages)
{
    setObjectName(QStringLiteral("frmNewMeka"));
    setWindowTitle(QStringLiteral("メーカー名の登録"));
    setModal(true);

    m_DGM = new QTableWidget(this);
    m_DGM->setObjectName(QStringLiteral("DGM"));
    m_DGM->setColumnCount(2);
    m_DGM->setHorizontalHeaderLabels({QStringLiteral("No"), QStringLiteral("メーカー")});
    m_DGM->verticalHeader()->setVisible(false);
    m_DGM->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_DGM->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_DGM->setSelectionMode(QAbstractItemView::SingleSelection);
    m_DGM->setColumnWidth(0, 60);
    m_DGM->horizontalHeader()->setStretchLastSection(true);

    m_lblNo = new QLabel(this);
    m_lblNo->setObjectName(QStringLiteral("lblNo"));
    m_lblNo->setFrameShape(QFrame::Panel);
    m_lblNo->setFrameShadow(QFrame::Sunken);
    m_lblNo->setMinimumWidth(50);
    m_txtM = new QLineEdit(this);
    m_txtM->setObjectName(QStringLiteral("txtM"));

    auto button = [this](const char *name, const char *caption) {
        auto *b = new QPushButton(QString::fromUtf8(caption), this);
        b->setObjectName(QLatin1String(name));
        b->setAutoDefault(false);
        return b;
    };
    m_cmdNew = button("cmdNew", "新規");
    m_cmdEdit = button("cmdEdit", "編集");
    m_cmdOK = button("cmdOK", "OK");
    m_cmdCancel = button("cmdCancel", "キャンセル");
    m_cmdDel = button("cmdDel", "削除");
    auto *close = button("cmdClose", "閉じる");

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_DGM, 1);
    auto *fields = new QHBoxLayout;
    fields->addWidget(new QLabel(QStringLiteral("No"), this));
    fields->addWidget(m_lblNo);
    fields->addWidget(new QLabel(QStringLiteral("メーカー"), this));
    fields->addWidget(m_txtM, 1);
    layout->addLayout(fields);
    auto *buttons = new QHBoxLayout;
    for (QPushButton *b : {m_cmdNew, m_cmdEdit, m_cmdOK, m_cmdCancel, m_cmdDel, close})
        buttons->addWidget(b);
    layout->addLayout(buttons);

    connect(m_cmdNew, &QPushButton::clicked, this, &FrmNewMeka::startNew);
    connect(m_cmdEdit, &QPushButton::clicked, this, &FrmNewMeka::startEdit);
    connect(m_cmdOK, &QPushButton::clicked, this, &FrmNewMeka::confirm);
    connect(m_cmdCancel, &QPushButton::clicked, this, &FrmNewMeka::cancel);
    connect(m_cmdDel, &QPushButton::clicked, this, &FrmNewMeka::deleteRow);
    connect(close, &QPushButton::clicked, this, &QDialog::accept);

    QSqlDatabase database;
    const QString error = MakerNameList::open(appFolder, &database);
    if (error.isEmpty())
        m_list.emplace(database);
    else
        m_messages.inform(error, QStringLiteral("メーカー名の登録"), MessageIcon::Critical);
    showList();
    setMode(Mode::Browsing);
    resize(420, 520);
}

void FrmNewMeka::showList()
{
    m_rows = m_list ? m_list->all() : QList<MakerName>();
    m_DGM->setRowCount(int(m_rows.size()));
    for (int r = 0; r < m_rows.size(); ++r) {
        m_DGM->setItem(r, 0, new QTableWidgetItem(QString::number(m_rows.at(r).no)));
        m_DGM->setItem(r, 1, new QTableWidgetItem(m_rows.at(r).name));
    }
}

int FrmNewMeka::currentRow() const
{
    const int r = m_DGM->currentRow();
    return r >= 0 && r < m_rows.size() ? r : -1;
}

void FrmNewMeka::setMode(Mode mode)
{
    m_mode = mode;
    const bool browsing = mode == Mode::Browsing;
    const bool open = m_list.has_value();
    m_DGM->setEnabled(browsing);
    m_txtM->setEnabled(!browsing);
    m_cmdNew->setEnabled(browsing && open);
    m_cmdEdit->setEnabled(browsing && open && !m_rows.isEmpty());
    m_cmdDel->setEnabled(browsing && open && !m_rows.isEmpty());
    m_cmdOK->setEnabled(!browsing);
    m_cmdCancel->setEnabled(!browsing);
}

void FrmNewMeka::startNew()
{
    if (!m_list)
        return;
    m_lblNo->setText(QString::number(m_list->nextNumber()));
    m_txtM->clear();
    setMode(Mode::Adding);
    m_txtM->setFocus();
}

void FrmNewMeka::startEdit()
{
    m_editRow = currentRow();
    if (m_editRow < 0)
        return;
    m_lblNo->setText(QString::number(m_rows.at(m_editRow).no));
    m_txtM->setText(m_rows.at(m_editRow).name);
    setMode(Mode::Editing);
    m_txtM->setFocus();
}

void FrmNewMeka::confirm()
{
    QString error;
    const QString name = m_txtM->text().trimmed();
    // An empty maker name is not stored.
    if (m_list && !name.isEmpty()) {
        if (m_mode == Mode::Adding)
            error = m_list->add(m_lblNo->text().toLongLong(), name);
        else if (m_mode == Mode::Editing && m_editRow >= 0)
            error = m_list->rename(m_rows.at(m_editRow).rowId, name);
    }
    if (!error.isEmpty())
        m_messages.inform(error, QStringLiteral("メーカー名の登録"), MessageIcon::Critical);
    cancel();
    showList();
    setMode(Mode::Browsing);
}

void FrmNewMeka::cancel()
{
    m_lblNo->clear();
    m_txtM->clear();
    m_editRow = -1;
    setMode(Mode::Browsing);
}

void FrmNewMeka::deleteRow()
{
    const int r = currentRow();
    if (!m_list || r < 0)
        return;
    if (m_messages.askYesNo(QStringLiteral("削除します。\nこのデータは失われます。\nよろしいですか？"),
                            QStringLiteral("削除"), MessageIcon::Question) != Answer::Yes)
        return;
    const QString error = m_list->remove(m_rows.at(r).rowId);
    if (!error.isEmpty())
        m_messages.inform(error, QStringLiteral("メーカー名の登録"), MessageIcon::Critical);
    showList();
    setMode(Mode::Browsing);
}

} // namespace est::workitems
