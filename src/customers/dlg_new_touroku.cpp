#include "customers/dlg_new_touroku.h"

#include "uikit/user_choice.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace est::customers {

DlgNewTouroku::DlgNewTouroku(Messages &messages, SettingLists &settings, QWidget *parent)
    : GuardedDialog(messages, parent), m_settings(settings)
{
    setObjectName(QStringLiteral("dlgNewTouroku"));
    setWindowTitle(QStringLiteral("登録地名の設定"));
    auto *layout = new QGridLayout(this);
    m_list = new QListWidget(this);
    m_list->setObjectName(QStringLiteral("lstTouroku"));
    m_list->setMinimumSize(160, 240);
    layout->addWidget(m_list, 0, 0, 3, 1);

    m_lblMode = new QLabel(this);
    m_lblMode->setObjectName(QStringLiteral("lblMode"));
    layout->addWidget(m_lblMode, 0, 1);
    m_txtTouroku = new QLineEdit(this);
    m_txtTouroku->setObjectName(QStringLiteral("txtTouroku"));
    layout->addWidget(m_txtTouroku, 1, 1);

    auto *buttons = new QVBoxLayout;
    m_cmdNew = new QPushButton(QStringLiteral("追加"), this);
    m_cmdNew->setObjectName(QStringLiteral("cmdNew"));
    m_cmdEdit = new QPushButton(QStringLiteral("修正"), this);
    m_cmdEdit->setObjectName(QStringLiteral("cmdEdit"));
    m_cmdDel = new QPushButton(QStringLiteral("削除"), this);
    m_cmdDel->setObjectName(QStringLiteral("cmdDel"));
    m_ok = new QPushButton(QStringLiteral("OK"), this);
    m_ok->setObjectName(QStringLiteral("OKButton"));
    auto *exit = new QPushButton(QStringLiteral("閉じる"), this);
    exit->setObjectName(QStringLiteral("cmdExit"));
    for (QPushButton *b : {m_cmdNew, m_cmdEdit, m_cmdDel, m_ok, exit}) {
        b->setAutoDefault(false);
        buttons->addWidget(b);
    }
    buttons->addStretch(1);
    layout->addLayout(buttons, 2, 1);

    connect(m_cmdNew, &QPushButton::clicked, this, [this] { begin(Pending::Add); });
    connect(m_cmdEdit, &QPushButton::clicked, this, [this] { begin(Pending::Edit); });
    connect(m_cmdDel, &QPushButton::clicked, this, [this] { begin(Pending::Delete); });
    connect(m_ok, &QPushButton::clicked, this, &DlgNewTouroku::carryOut);
    connect(exit, &QPushButton::clicked, this, &DlgNewTouroku::cancelByButton);
    ui::onChosenRow(m_list, this, [this](int) {
        if (m_pending == Pending::None)
            m_txtTouroku->setText(selectedOffice() ? selectedOffice()->name : QString());
        updateControls();
    });

    load();
}

void DlgNewTouroku::load()
{
    m_offices = m_settings.offices();
    m_list->clear();
    for (const RegistrationOffice &office : m_offices)
        m_list->addItem(office.name);
    m_pending = Pending::None;
    m_txtTouroku->clear();
    updateControls();
}

const RegistrationOffice *DlgNewTouroku::selectedOffice() const
{
    const int row = ui::chosenRow(m_list);
    return row >= 0 && row < m_offices.size() ? &m_offices.at(row) : nullptr;
}

void DlgNewTouroku::begin(Pending action)
{
    const RegistrationOffice *office = selectedOffice();
    if (action != Pending::Add && !office)
        return;
    m_pending = action;
    m_pendingId = office ? office->id : 0;
    m_txtTouroku->setText(action == Pending::Add ? QString() : office->name);
    updateControls();
    m_txtTouroku->setFocus();
}

void DlgNewTouroku::updateControls()
{
    const bool idle = m_pending == Pending::None;
    const bool chosen = selectedOffice() != nullptr;
    static const char *const modes[] = {"", "追加する地名を入力してOKをクリックしてください。",
                                        "修正後の地名を入力してOKをクリックしてください。",
                                        "OKをクリックすると削除します。"};
    m_lblMode->setText(QString::fromUtf8(modes[static_cast<int>(m_pending)]));
    m_txtTouroku->setReadOnly(m_pending != Pending::Add && m_pending != Pending::Edit);
    m_list->setEnabled(idle);
    m_cmdNew->setEnabled(idle);
    m_cmdEdit->setEnabled(idle && chosen);
    m_cmdDel->setEnabled(idle && chosen);
    m_ok->setEnabled(!idle);
}

void DlgNewTouroku::carryOut()
{
    const QString name = m_txtTouroku->text().trimmed();
    bool done = true;
    switch (m_pending) {
    case Pending::None:
        return;
    case Pending::Add:
    case Pending::Edit:
        if (name.isEmpty()) {
            messages().inform(QStringLiteral("地名を入力してください。"), QStringLiteral("登録地名"),
                              MessageIcon::Exclamation);
            return;
        }
        done = m_pending == Pending::Add ? m_settings.addOffice(name) : m_settings.renameOffice(m_pendingId, name);
        break;
    case Pending::Delete:
        if (messages().askYesNo(QStringLiteral("削除します。よろしいですか？"), QStringLiteral("削除"),
                                MessageIcon::Exclamation)
            != Answer::Yes) {
            m_pending = Pending::None;
            updateControls();
            return;
        }
        done = m_settings.removeOffice(m_pendingId);
        break;
    }
    if (!done)
        messages().inform(m_settings.lastError(), QStringLiteral("登録地名"), MessageIcon::Critical);
    const QString keep = m_pending == Pending::Delete ? QString() : name;
    load();
    // Leave the list on the name just added or changed.
    for (int i = m_offices.size() - 1; i >= 0 && !keep.isEmpty(); --i)
        if (m_offices.at(i).name == keep) {
            m_list->setCurrentRow(i);
            break;
        }
}

} // namespace est::customers
