#include "customers/frm_kokyaku.h"

#include "customers/dlg_touroku.h"
#include "customers/electronic_address_box.h"
#include "customers/hand_over.h"
#include "customers/input_format.h"
#include "customers/setting_lists.h"

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
#include <QStringListModel>
#include <QStyle>
#include <QTableWidget>
#include <QVBoxLayout>

namespace est::customers {

struct FrmKokyaku::Widgets
{
    QComboBox *cboKName = nullptr;
    QLabel *lbl1 = nullptr;
    QTableWidget *DG1 = nullptr;
    // One editor per field, in table order; KKubun is the check box, the lists are combos.
    QWidget *customer[kCustomerFieldCount] = {};
    QWidget *vehicle[kVehicleFieldCount] = {};
    QCheckBox *chkKKubun = nullptr;
    ElectronicAddressBox *addresses = nullptr;   // Peppol ID and corporate number
    QComboBox *cboMeka = nullptr, *cboIroSyurui = nullptr, *cboKoukinou = nullptr;
    QPushButton *cmdKensaku = nullptr, *cmdNew = nullptr, *cmdSNew = nullptr, *cmdEditJ = nullptr,
                *cmdOkJ = nullptr, *cmdCancelJ = nullptr, *cmdEditS = nullptr, *cmdOkS = nullptr,
                *cmdCancelS = nullptr, *cmdDel = nullptr, *cmdSDel = nullptr, *cmdSelect = nullptr,
                *cmdPrev = nullptr, *cmdNext = nullptr, *cmdOK = nullptr, *cmdCancel = nullptr,
                *cmdTouroku = nullptr;
};

namespace {

template <typename W>
W *named(W *widget, const QString &name)
{
    widget->setObjectName(name);
    return widget;
}

QString textOf(const QWidget *w)
{
    if (auto *edit = qobject_cast<const QLineEdit *>(w))
        return edit->text();
    if (auto *combo = qobject_cast<const QComboBox *>(w))
        return combo->currentText();
    if (auto *check = qobject_cast<const QCheckBox *>(w))
        return check->isChecked() ? QStringLiteral("1") : QStringLiteral("0");
    return {};
}

void setTextOf(QWidget *w, const QString &text)
{
    if (auto *edit = qobject_cast<QLineEdit *>(w)) {
        edit->setText(text);
        edit->setCursorPosition(0);
    } else if (auto *combo = qobject_cast<QComboBox *>(w)) {
        combo->setCurrentText(text);
    } else if (auto *check = qobject_cast<QCheckBox *>(w)) {
        check->setChecked(text.trimmed().toInt() != 0);
    }
}

void setEditable(QWidget *w, bool editable)
{
    if (auto *edit = qobject_cast<QLineEdit *>(w)) {
        if (edit->isReadOnly() == editable) {
            edit->setReadOnly(!editable);
            // The style sheet's read-only look follows the property only after a re-polish.
            edit->style()->unpolish(edit);
            edit->style()->polish(edit);
        }
    } else
        w->setEnabled(editable);
}

// Captions beside the block editors.
QString captionFor(const QStringList &captions, int i)
{
    return captions.at(i);
}

} // namespace

FrmKokyaku::FrmKokyaku(Session &session, Messages &messages, CustomerStore &store, SettingLists &settings,
                       QWidget *parent)
    : QDialog(parent), m_session(session), m_messages(messages), m_settings(settings), m_browser(store),
      m_w(new Widgets)
{
    setObjectName(QStringLiteral("frmKokyaku"));
    setWindowTitle(QStringLiteral("顧客情報"));
    // A closed block looks closed: its boxes take the window's colour.
    setStyleSheet(QStringLiteral("QLineEdit[readOnly=\"true\"] { background: palette(window); }"));
    buildUi();
    m_w->cboMeka->addItems(m_settings.makers());
    m_w->cboIroSyurui->addItems(m_settings.paintKinds());
    m_w->cboKoukinou->addItems(m_settings.highFunctionPaints());
    loadNames();
    m_browser.loadFirst();
    showState();
}

FrmKokyaku::~FrmKokyaku()
{
    delete m_w;
}

void FrmKokyaku::buildUi()
{
    auto *root = new QVBoxLayout(this);

    // Search row.
    auto *searchRow = new QHBoxLayout;
    searchRow->addWidget(new QLabel(QStringLiteral("氏名"), this));
    m_w->cboKName = named(new QComboBox(this), QStringLiteral("cboKName"));
    m_w->cboKName->setEditable(true);
    m_w->cboKName->setInsertPolicy(QComboBox::NoInsert);
    m_w->cboKName->setMinimumWidth(220);
    m_names = new QStringListModel(this);
    m_w->cboKName->setModel(m_names);
    searchRow->addWidget(m_w->cboKName);
    m_w->cmdKensaku = named(new QPushButton(QStringLiteral("検索"), this), QStringLiteral("cmdKensaku"));
    searchRow->addWidget(m_w->cmdKensaku);
    m_w->lbl1 = named(new QLabel(this), QStringLiteral("lbl1"));
    searchRow->addWidget(m_w->lbl1, 1);
    root->addLayout(searchRow);

    auto *blocks = new QHBoxLayout;
    root->addLayout(blocks, 1);

    // Customer block.
    static const char *const customerNames[kCustomerFieldCount] = {
        "txtKNo",      "txtNamae",    "txtPost",     "txtJyusyo1",   "txtJyusyo2",   "txtTEL",
        "txtFAX",      "txtCell",     "txtKaisyaN",  "txtKPost",     "txtKaisyaJ1",  "txtKaisyaJ2",
        "txtKaisyaTEL", "txtKaisyaFAX", "txtKaisyaCell", "chkKKubun", "txtMemo",
    };
    auto *customerBox = named(new QGroupBox(QStringLiteral("顧客"), this), QStringLiteral("fraKokyaku"));
    auto *cGrid = new QGridLayout(customerBox);
    for (int i = 0; i < kCustomerFieldCount; ++i) {
        const QString name = QLatin1String(customerNames[i]);
        QWidget *editor;
        if (i == static_cast<int>(CustomerField::KKubun)) {
            m_w->chkKKubun = named(new QCheckBox(QStringLiteral("法人の顧客"), customerBox), name);
            editor = m_w->chkKKubun;
        } else {
            editor = named(new QLineEdit(customerBox), name);
        }
        m_w->customer[i] = editor;
        cGrid->addWidget(new QLabel(captionFor(customerCaptions(), i), customerBox), i, 0);
        cGrid->addWidget(editor, i, 1);
    }
    auto *cButtons = new QHBoxLayout;
    m_w->cmdEditJ = named(new QPushButton(QStringLiteral("編集"), customerBox), QStringLiteral("cmdEditJ"));
    m_w->cmdOkJ = named(new QPushButton(QStringLiteral("保存"), customerBox), QStringLiteral("cmdOkJ"));
    m_w->cmdCancelJ = named(new QPushButton(QStringLiteral("取消"), customerBox), QStringLiteral("cmdCancelJ"));
    for (QPushButton *b : {m_w->cmdEditJ, m_w->cmdOkJ, m_w->cmdCancelJ})
        cButtons->addWidget(b);
    m_w->addresses = new ElectronicAddressBox(customerBox, cGrid, kCustomerFieldCount);
    cGrid->addLayout(cButtons, kCustomerFieldCount + 2, 0, 1, 2);
    cGrid->setRowStretch(kCustomerFieldCount + 3, 1);
    blocks->addWidget(customerBox, 2);

    // Vehicle block: the customer's vehicles, then the chosen one's fields.
    static const char *const vehicleNames[kVehicleFieldCount] = {
        "txtSNo",      "txtSKNo",    "txtNyuDay",  "cboMeka",     "txtSyamei",   "txtKatasiki",
        "txtSyataiNo", "txtTouroku", "txtSyonendo", "txtKataSitei", "txtRuibetu", "txtEg",
        "txtSyajyu",   "txtSoukou",  "txtYuko",    "txtIroNo",    "cboIroSyurui", "cboKoukinou",
        "txtBikou",
    };
    auto *vehicleBox = named(new QGroupBox(QStringLiteral("車輌"), this), QStringLiteral("fraSyaryou"));
    auto *vLayout = new QVBoxLayout(vehicleBox);
    m_w->DG1 = named(new QTableWidget(vehicleBox), QStringLiteral("DG1"));
    m_w->DG1->setColumnCount(kVehicleFieldCount);
    m_w->DG1->setHorizontalHeaderLabels(vehicleCaptions());
    m_w->DG1->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_w->DG1->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_w->DG1->setSelectionMode(QAbstractItemView::SingleSelection);
    m_w->DG1->verticalHeader()->setVisible(false);
    m_w->DG1->setMinimumHeight(110);
    vLayout->addWidget(m_w->DG1);
    auto *vGrid = new QGridLayout;
    vLayout->addLayout(vGrid);
    for (int i = 0; i < kVehicleFieldCount; ++i) {
        const QString name = QLatin1String(vehicleNames[i]);
        QWidget *editor;
        const auto field = static_cast<VehicleField>(i);
        if (field == VehicleField::Meka || field == VehicleField::IroSyurui || field == VehicleField::Koukinou) {
            auto *combo = named(new QComboBox(vehicleBox), name);
            // Editable, so a value that is no longer in the list still shows as stored.
            combo->setEditable(true);
            combo->setInsertPolicy(QComboBox::NoInsert);
            editor = combo;
            if (field == VehicleField::Meka)
                m_w->cboMeka = combo;
            else if (field == VehicleField::IroSyurui)
                m_w->cboIroSyurui = combo;
            else
                m_w->cboKoukinou = combo;
        } else {
            editor = named(new QLineEdit(vehicleBox), name);
        }
        m_w->vehicle[i] = editor;
        const int row = i % 10, col = (i / 10) * 2;
        vGrid->addWidget(new QLabel(captionFor(vehicleCaptions(), i), vehicleBox), row, col);
        if (field == VehicleField::Touroku) {
            auto *line = new QHBoxLayout;
            line->addWidget(editor, 1);
            m_w->cmdTouroku = named(new QPushButton(QStringLiteral("…"), vehicleBox), QStringLiteral("cmdTouroku"));
            m_w->cmdTouroku->setToolTip(QStringLiteral("登録番号の入力"));
            m_w->cmdTouroku->setMaximumWidth(32);
            line->addWidget(m_w->cmdTouroku);
            vGrid->addLayout(line, row, col + 1);
        } else {
            vGrid->addWidget(editor, row, col + 1);
        }
    }
    auto *vButtons = new QHBoxLayout;
    m_w->cmdEditS = named(new QPushButton(QStringLiteral("編集"), vehicleBox), QStringLiteral("cmdEditS"));
    m_w->cmdOkS = named(new QPushButton(QStringLiteral("保存"), vehicleBox), QStringLiteral("cmdOkS"));
    m_w->cmdCancelS = named(new QPushButton(QStringLiteral("取消"), vehicleBox), QStringLiteral("cmdCancelS"));
    m_w->cmdSNew = named(new QPushButton(QStringLiteral("車輌追加"), vehicleBox), QStringLiteral("cmdSNew"));
    m_w->cmdSDel = named(new QPushButton(QStringLiteral("車輌削除"), vehicleBox), QStringLiteral("cmdSDel"));
    for (QPushButton *b : {m_w->cmdEditS, m_w->cmdOkS, m_w->cmdCancelS, m_w->cmdSNew, m_w->cmdSDel})
        vButtons->addWidget(b);
    vLayout->addLayout(vButtons);
    blocks->addWidget(vehicleBox, 3);

    // Commands for the whole screen.
    auto *bottom = new QHBoxLayout;
    m_w->cmdNew = named(new QPushButton(QStringLiteral("新規顧客"), this), QStringLiteral("cmdNew"));
    m_w->cmdDel = named(new QPushButton(QStringLiteral("顧客削除"), this), QStringLiteral("cmdDel"));
    m_w->cmdPrev = named(new QPushButton(QStringLiteral("前へ"), this), QStringLiteral("cmdPrev"));
    m_w->cmdNext = named(new QPushButton(QStringLiteral("次へ"), this), QStringLiteral("cmdNext"));
    m_w->cmdSelect = named(new QPushButton(QStringLiteral("見積書へ"), this), QStringLiteral("cmdSelect"));
    m_w->cmdOK = named(new QPushButton(QStringLiteral("OK"), this), QStringLiteral("cmdOK"));
    m_w->cmdCancel = named(new QPushButton(QStringLiteral("キャンセル"), this), QStringLiteral("cmdCancel"));
    for (QPushButton *b : {m_w->cmdNew, m_w->cmdDel, m_w->cmdPrev, m_w->cmdNext})
        bottom->addWidget(b);
    bottom->addStretch(1);
    for (QPushButton *b : {m_w->cmdSelect, m_w->cmdOK, m_w->cmdCancel})
        bottom->addWidget(b);
    root->addLayout(bottom);
    for (QPushButton *b : findChildren<QPushButton *>())
        b->setAutoDefault(false);

    connect(m_w->cmdKensaku, &QPushButton::clicked, this, &FrmKokyaku::search);
    connect(m_w->cmdPrev, &QPushButton::clicked, this, [this] { move(false); });
    connect(m_w->cmdNext, &QPushButton::clicked, this, [this] { move(true); });
    connect(m_w->cmdEditJ, &QPushButton::clicked, this, &FrmKokyaku::editCustomer);
    connect(m_w->cmdEditS, &QPushButton::clicked, this, &FrmKokyaku::editVehicle);
    connect(m_w->cmdOkJ, &QPushButton::clicked, this, &FrmKokyaku::saveBlock);
    connect(m_w->cmdOkS, &QPushButton::clicked, this, &FrmKokyaku::saveBlock);
    connect(m_w->cmdCancelJ, &QPushButton::clicked, this, &FrmKokyaku::cancelBlock);
    connect(m_w->cmdCancelS, &QPushButton::clicked, this, &FrmKokyaku::cancelBlock);
    connect(m_w->cmdNew, &QPushButton::clicked, this, &FrmKokyaku::newCustomer);
    connect(m_w->cmdSNew, &QPushButton::clicked, this, &FrmKokyaku::newVehicle);
    connect(m_w->cmdDel, &QPushButton::clicked, this, &FrmKokyaku::deleteCustomer);
    connect(m_w->cmdSDel, &QPushButton::clicked, this, &FrmKokyaku::deleteVehicle);
    connect(m_w->cmdSelect, &QPushButton::clicked, this, &FrmKokyaku::selectForEstimate);
    connect(m_w->cmdTouroku, &QPushButton::clicked, this, &FrmKokyaku::chooseRegistration);
    connect(m_w->cmdOK, &QPushButton::clicked, this, &QDialog::accept);
    connect(m_w->cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(m_w->DG1, &QTableWidget::currentCellChanged, this,
            [this](int row, int, int previous, int) {
                if (row != previous)
                    vehicleRowChosen(row);
            });

    // Masks applied when the box is left.
    const std::pair<QWidget *, QString> masks[] = {
        {m_w->customer[static_cast<int>(CustomerField::KaisyaPost)], QStringLiteral("000-0000")},
        {m_w->vehicle[static_cast<int>(VehicleField::KataSitei)], QStringLiteral("00000")},
        {m_w->vehicle[static_cast<int>(VehicleField::Ruibetu)], QStringLiteral("0000")},
    };
    for (const auto &[widget, mask] : masks) {
        auto *edit = qobject_cast<QLineEdit *>(widget);
        connect(edit, &QLineEdit::editingFinished, this, [edit, mask = mask] {
            if (!edit->isReadOnly())
                edit->setText(formatDigits(edit->text(), mask));
        });
    }
    resize(1180, 640);
}

void FrmKokyaku::loadNames()
{
    const QSignalBlocker blocker(m_w->cboKName);
    m_names->setStringList(m_browser.store().customerNames());
    m_w->cboKName->setCurrentIndex(-1);
    m_w->cboKName->setEditText(QString());
}

void FrmKokyaku::showState()
{
    if (m_browser.hasCustomer()) {
        showCustomer(m_browser.customer());
        m_w->lbl1->setText(m_browser.countText());
    } else {
        showCustomer(Customer());
        m_w->lbl1->clear();
    }
    showVehicleGrid();
    const Vehicle *vehicle = m_browser.vehicle();
    showVehicle(vehicle ? *vehicle : Vehicle());
    updateControls();
}

void FrmKokyaku::showCustomer(const Customer &customer)
{
    for (int i = 0; i < kCustomerFieldCount; ++i)
        setTextOf(m_w->customer[i], customer.values[i]);
    m_w->addresses->load(m_browser.store().database(), customer[CustomerField::KNo]);
}

void FrmKokyaku::showVehicle(const Vehicle &vehicle)
{
    for (int i = 0; i < kVehicleFieldCount; ++i)
        setTextOf(m_w->vehicle[i], vehicle.values[i]);
}

void FrmKokyaku::showVehicleGrid()
{
    const QSignalBlocker blocker(m_w->DG1);
    const QList<Vehicle> &vehicles = m_browser.vehicles();
    m_w->DG1->clearContents();
    m_w->DG1->setRowCount(vehicles.size());
    for (int r = 0; r < vehicles.size(); ++r)
        for (int c = 0; c < kVehicleFieldCount; ++c)
            m_w->DG1->setItem(r, c, new QTableWidgetItem(vehicles.at(r).values[c]));
    if (m_browser.vehicleIndex() >= 0)
        m_w->DG1->setCurrentCell(m_browser.vehicleIndex(), 0);
}

void FrmKokyaku::updateControls()
{
    const bool browsing = !m_browser.editing();
    const bool customerOpen = m_browser.customerBlockOpen();
    const bool vehicleOpen = m_browser.vehicleBlockOpen();
    const bool hasCustomer = m_browser.hasCustomer();
    const bool hasVehicle = m_browser.vehicle() != nullptr;

    for (int i = 0; i < kCustomerFieldCount; ++i)
        setEditable(m_w->customer[i], customerOpen && i != static_cast<int>(CustomerField::KNo));
    m_w->addresses->setEditable(customerOpen);
    for (int i = 0; i < kVehicleFieldCount; ++i)
        setEditable(m_w->vehicle[i], vehicleOpen && i != static_cast<int>(VehicleField::SNo)
                                         && i != static_cast<int>(VehicleField::KNo));
    m_w->cmdTouroku->setEnabled(vehicleOpen);

    m_w->cmdEditJ->setEnabled(browsing && hasCustomer);
    m_w->cmdOkJ->setEnabled(customerOpen);
    m_w->cmdCancelJ->setEnabled(customerOpen);
    m_w->cmdEditS->setEnabled(browsing && hasVehicle);
    m_w->cmdOkS->setEnabled(vehicleOpen);
    m_w->cmdCancelS->setEnabled(vehicleOpen);

    m_w->cboKName->setEnabled(browsing);
    m_w->cmdKensaku->setEnabled(browsing);
    m_w->DG1->setEnabled(browsing);
    m_w->cmdNew->setEnabled(browsing);
    m_w->cmdSNew->setEnabled(browsing && hasCustomer);
    m_w->cmdDel->setEnabled(browsing && hasCustomer);
    m_w->cmdSDel->setEnabled(browsing && hasVehicle);
    m_w->cmdPrev->setEnabled(browsing && hasCustomer);
    m_w->cmdNext->setEnabled(browsing && hasCustomer);
    m_w->cmdSelect->setEnabled(browsing && hasCustomer);
    m_w->cmdOK->setEnabled(browsing);
}

Customer FrmKokyaku::customerFromBlock() const
{
    Customer c;
    for (int i = 0; i < kCustomerFieldCount; ++i)
        c.values[i] = textOf(m_w->customer[i]);
    return c;
}

Vehicle FrmKokyaku::vehicleFromBlock() const
{
    Vehicle v;
    for (int i = 0; i < kVehicleFieldCount; ++i)
        v.values[i] = textOf(m_w->vehicle[i]);
    return v;
}

void FrmKokyaku::reportError()
{
    m_messages.inform(m_browser.lastError(), QStringLiteral("顧客情報"), MessageIcon::Critical);
}

void FrmKokyaku::search()
{
    const QString name = m_w->cboKName->currentText();
    switch (m_browser.search(name.trimmed().isEmpty() ? QString() : name)) {
    case SearchOutcome::Found:
        showState();
        break;
    case SearchOutcome::NoNameChosen:
        // OK and Cancel both just close the notice.
        m_messages.askOkCancel(QStringLiteral("検索する名前が選択されてません。"), QStringLiteral("検索エラー"),
                               MessageIcon::Critical);
        break;
    case SearchOutcome::NotFound:
        m_messages.inform(QStringLiteral("「%1」という名前の顧客は登録されていません。").arg(name),
                          QStringLiteral("検索エラー"), MessageIcon::Exclamation);
        break;
    case SearchOutcome::Failed:
        reportError();
        break;
    }
}

void FrmKokyaku::move(bool forward)
{
    if (forward ? m_browser.next() : m_browser.previous())
        showState();
}

void FrmKokyaku::editCustomer()
{
    if (m_browser.beginEditCustomer())
        updateControls();
}

void FrmKokyaku::editVehicle()
{
    if (m_browser.beginEditVehicle())
        updateControls();
}

void FrmKokyaku::newCustomer()
{
    if (!m_browser.beginNewCustomer()) {
        reportError();
        return;
    }
    showCustomer(m_browser.draftCustomer());
    m_w->addresses->load({}, QString());   // a reused number brings nothing of the customer it had
    showVehicle(m_browser.draftVehicle());
    {
        const QSignalBlocker blocker(m_w->DG1);
        m_w->DG1->setRowCount(0);
    }
    m_w->lbl1->clear();
    updateControls();
    m_w->customer[static_cast<int>(CustomerField::Namae)]->setFocus();
}

void FrmKokyaku::newVehicle()
{
    if (!m_browser.beginNewVehicle()) {
        reportError();
        return;
    }
    showVehicle(m_browser.draftVehicle());
    updateControls();
    m_w->vehicle[static_cast<int>(VehicleField::NyuDay)]->setFocus();
}

void FrmKokyaku::saveBlock()
{
    const bool namesChange = m_browser.customerBlockOpen();
    if (const auto problem = namesChange ? m_w->addresses->problem() : std::nullopt) {
        m_messages.inform(*problem, QStringLiteral("入力エラー"), MessageIcon::Exclamation);
        return;
    }
    if (!m_browser.save(customerFromBlock(), vehicleFromBlock())) {
        reportError();
        return;
    }
    const QString kno = m_browser.customer()[CustomerField::KNo];
    if (const QString error = namesChange ? m_w->addresses->store(m_browser.store().database(), kno) : QString();
        !error.isEmpty())
        m_messages.inform(QStringLiteral("Peppol ID・法人番号を保存できませんでした。\n") + error,
                          QStringLiteral("顧客情報"), MessageIcon::Critical);
    if (namesChange)
        loadNames();
    showState();
}

void FrmKokyaku::cancelBlock()
{
    m_browser.cancel();
    showState();
}

bool FrmKokyaku::settleOpenBlock()
{
    if (!m_browser.editing())
        return true;
    switch (m_messages.askYesNoCancel(QStringLiteral("編集中のデータがあります。保存しますか？"),
                                      QStringLiteral("顧客情報"), MessageIcon::Question)) {
    case Answer::Yes:
        saveBlock();
        return !m_browser.editing(); // a refused save keeps the screen open
    case Answer::No:
        cancelBlock();
        return true;
    default:
        return false;
    }
}

void FrmKokyaku::done(int result)
{
    if (settleOpenBlock())
        QDialog::done(result);
}

void FrmKokyaku::deleteCustomer()
{
    if (!m_browser.hasCustomer())
        return;
    if (m_browser.vehicles().size() >= 2) {
        refuseDeleteWithVehicles();
        return;
    }
    if (m_messages.askYesNo(QStringLiteral("削除します。\nこのデータは失われます。\nよろしいですか？"),
                            QStringLiteral("削除します"), MessageIcon::Exclamation)
        != Answer::Yes)
        return;
    const QString kno = m_browser.customer()[CustomerField::KNo];
    switch (m_browser.deleteCustomer()) {
    case DeleteOutcome::Deleted:
        ElectronicAddressStore(m_browser.store().database()).remove(kno);
        loadNames();
        showState();
        break;
    case DeleteOutcome::TooManyVehicles:
        // Another vehicle arrived since the screen last looked.
        refuseDeleteWithVehicles();
        break;
    case DeleteOutcome::Failed:
        reportError();
        break;
    }
}

void FrmKokyaku::refuseDeleteWithVehicles()
{
    m_messages.inform(QStringLiteral("登録している自動車が2台以上あります。車両を削除してください。"), QString(),
                      MessageIcon::None);
}

void FrmKokyaku::deleteVehicle()
{
    if (!m_browser.vehicle())
        return;
    if (m_messages.askYesNo(QStringLiteral("車両データを削除します。よろしいですか？"), QStringLiteral("削除"),
                            MessageIcon::Exclamation)
        != Answer::Yes)
        return;
    if (!m_browser.deleteVehicle())
        reportError();
    showState();
}

void FrmKokyaku::selectForEstimate()
{
    if (!m_browser.hasCustomer())
        return;
    handOverToSession(m_browser.customer(), m_browser.vehicle(), m_session);
    Q_EMIT selected();
}

void FrmKokyaku::chooseRegistration()
{
    DlgTouroku dialog(m_messages, m_settings, this);
    if (dialog.exec() == QDialog::Accepted)
        setTextOf(m_w->vehicle[static_cast<int>(VehicleField::Touroku)], dialog.registration());
}

void FrmKokyaku::vehicleRowChosen(int row)
{
    if (m_browser.editing() || row < 0)
        return;
    m_browser.selectVehicle(row);
    if (const Vehicle *vehicle = m_browser.vehicle())
        showVehicle(*vehicle);
    updateControls();
}

} // namespace est::customers
