#include "sheet/frm_kaisya.h"

#include "db/database.h"
#include "sheet/company_block.h"
#include "sheet/frm_mitumori.h"
#include "common/peppol_id.h"
#include "sheet/company_extras.h"
#include "uikit/named.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace est::sheet {

using ui::named;

struct FrmKaisya::Widgets
{
    QGroupBox *fra1 = nullptr;
    QLabel *lblJNo = nullptr;
    QLineEdit *txtCom = nullptr, *txtKaisya = nullptr, *txtJyusyo = nullptr, *txtTEL = nullptr,
              *txtFAX = nullptr, *txtGinko = nullptr, *txtSiten = nullptr, *txtTNo = nullptr,
              *txtKzNo = nullptr, *txtZeiritu = nullptr, *txtKzName = nullptr;
    QComboBox *cboKoza = nullptr;
    QCheckBox *chkKoza = nullptr;
    QLineEdit *txtDaihyo = nullptr;          // representative
    QLineEdit *txtTouroku = nullptr;         // invoice registration number
    QCheckBox *chkTourokuMitumori = nullptr; // print it on estimates and delivery notes too
    QLineEdit *txtPeppol = nullptr;          // electronic invoice address (optional)
    QPushButton *cmdNew = nullptr, *cmdEdit = nullptr, *cmdOK = nullptr, *cmdCancel = nullptr,
                *cmdDel = nullptr, *cmdFirst = nullptr, *cmdPrev = nullptr, *cmdNext = nullptr,
                *cmdLast = nullptr;
};

QStringList FrmKaisya::accountTypes()
{
    return {QStringLiteral("普通"), QStringLiteral("当座"), QStringLiteral("貯蓄")};
}

FrmKaisya::FrmKaisya(Session &session, Messages &messages, QString appFolder, FrmMitumori *sheet, QWidget *parent)
    : QWidget(parent, Qt::Window), m_session(session), m_messages(messages), m_appFolder(std::move(appFolder)),
      m_sheet(sheet), m_w(std::make_unique<Widgets>())
{
    setObjectName(QStringLiteral("frmKaisya"));
    setWindowTitle(QStringLiteral("自社情報"));
    buildUi();
    const db::OpenResult opened = db::openDatabase(m_appFolder, QStringLiteral("temp\\Jisya_Jyouhou.mdb"));
    if (!opened.ok()) {
        m_messages.inform(opened.error, QStringLiteral("自社情報"), MessageIcon::Critical);
    } else {
        m_store = std::make_unique<CompanyStore>(opened.database);
        m_extras = std::make_unique<CompanyExtrasStore>(opened.database);
    }
    // Start on the record the company block came from, else on the first.
    bool ok = false;
    const int current = m_session.company.value(CompanyRecordNo).toInt(&ok);
    reload(ok ? current : -1);
    setMode(Mode::Browsing);
}

FrmKaisya::~FrmKaisya() = default;

void FrmKaisya::buildUi()
{
    Widgets &w = *m_w;
    auto *layout = new QVBoxLayout(this);

    w.fra1 = named(new QGroupBox(QStringLiteral("自社情報"), this), "fra1");
    auto *form = new QFormLayout(w.fra1);
    w.lblJNo = named(new QLabel(w.fra1), "lblJNo");
    form->addRow(QStringLiteral("No"), w.lblJNo);
    struct Field
    {
        const char *caption;
        const char *name;
        QLineEdit *Widgets::*member;
    };
    const Field before[] = {
        {"コメント", "txtCom", &Widgets::txtCom},     {"会社名", "txtKaisya", &Widgets::txtKaisya},
        {"住所", "txtJyusyo", &Widgets::txtJyusyo},    {"電話番号", "txtTEL", &Widgets::txtTEL},
        {"FAX番号", "txtFAX", &Widgets::txtFAX},      {"銀行名", "txtGinko", &Widgets::txtGinko},
        {"支店名", "txtSiten", &Widgets::txtSiten},    {"店番号", "txtTNo", &Widgets::txtTNo},
    };
    for (const Field &f : before) {
        w.*(f.member) = named(new QLineEdit(w.fra1), f.name);
        form->addRow(QString::fromUtf8(f.caption), w.*(f.member));
    }
    w.cboKoza = named(new QComboBox(w.fra1), "cboKoza");
    w.cboKoza->addItems(accountTypes());
    form->addRow(QStringLiteral("口座種別"), w.cboKoza);
    const Field after[] = {
        {"口座番号", "txtKzNo", &Widgets::txtKzNo},
        {"消費税率(%)", "txtZeiritu", &Widgets::txtZeiritu},
        {"口座名義", "txtKzName", &Widgets::txtKzName},
    };
    for (const Field &f : after) {
        w.*(f.member) = named(new QLineEdit(w.fra1), f.name);
        form->addRow(QString::fromUtf8(f.caption), w.*(f.member));
    }
    w.txtTNo->setMaximumWidth(80);
    w.txtZeiritu->setMaximumWidth(80);
    w.chkKoza = named(new QCheckBox(QStringLiteral("見積書・請求書に振込口座を印刷する"), w.fra1), "chkKoza");
    form->addRow(QString(), w.chkKoza);
    w.txtDaihyo = named(new QLineEdit(w.fra1), "txtDaihyo");
    form->addRow(QStringLiteral("代表者"), w.txtDaihyo);
    w.txtTouroku = named(new QLineEdit(w.fra1), "txtTourokuNo");
    w.txtTouroku->setPlaceholderText(QStringLiteral("T＋13桁の数字"));
    w.txtTouroku->setMaximumWidth(200);
    form->addRow(QStringLiteral("登録番号(インボイス)"), w.txtTouroku);
    w.chkTourokuMitumori =
        named(new QCheckBox(QStringLiteral("見積書・納品書にも登録番号を印刷する"), w.fra1), "chkTourokuNo");
    form->addRow(QString(), w.chkTourokuMitumori);
    w.txtPeppol = named(new QLineEdit(w.fra1), "txtPeppol");
    w.txtPeppol->setPlaceholderText(QStringLiteral("任意（0188:法人番号 または 0221:登録番号）"));
    w.txtPeppol->setMaximumWidth(260);
    form->addRow(QStringLiteral("Peppol ID"), w.txtPeppol);
    layout->addWidget(w.fra1);

    auto *navigation = new QHBoxLayout;
    const std::tuple<const char *, const char *, QPushButton *Widgets::*> navButtons[] = {
        {"cmdFirst", "|◀", &Widgets::cmdFirst},
        {"cmdPrev", "◀", &Widgets::cmdPrev},
        {"cmdNext", "▶", &Widgets::cmdNext},
        {"cmdLast", "▶|", &Widgets::cmdLast},
    };
    for (const auto &[name, caption, member] : navButtons) {
        w.*member = named(new QPushButton(QString::fromUtf8(caption), this), name);
        navigation->addWidget(w.*member);
    }
    layout->addLayout(navigation);

    auto *commands = new QHBoxLayout;
    const std::tuple<const char *, const char *, QPushButton *Widgets::*> cmdButtons[] = {
        {"cmdNew", "新規", &Widgets::cmdNew},     {"cmdEdit", "修正", &Widgets::cmdEdit},
        {"cmdOK", "確定", &Widgets::cmdOK},       {"cmdCancel", "取消", &Widgets::cmdCancel},
        {"cmdDel", "削除", &Widgets::cmdDel},
    };
    for (const auto &[name, caption, member] : cmdButtons) {
        w.*member = named(new QPushButton(QString::fromUtf8(caption), this), name);
        commands->addWidget(w.*member);
    }
    layout->addLayout(commands);
    setMinimumWidth(520);

    connect(w.cmdFirst, &QPushButton::clicked, this, [this] { moveTo(0); });
    connect(w.cmdPrev, &QPushButton::clicked, this, [this] { moveTo(m_position - 1); });
    connect(w.cmdNext, &QPushButton::clicked, this, [this] { moveTo(m_position + 1); });
    connect(w.cmdLast, &QPushButton::clicked, this, [this] { moveTo(recordCount() - 1); });
    connect(w.cmdNew, &QPushButton::clicked, this, &FrmKaisya::startAdding);
    connect(w.cmdEdit, &QPushButton::clicked, this, &FrmKaisya::startEditing);
    connect(w.cmdOK, &QPushButton::clicked, this, &FrmKaisya::confirm);
    connect(w.cmdCancel, &QPushButton::clicked, this, &FrmKaisya::cancelEdit);
    connect(w.cmdDel, &QPushButton::clicked, this, &FrmKaisya::deleteRecord);
}

void FrmKaisya::reload(int keepJNo)
{
    m_records = m_store ? m_store->records() : QList<CompanyRecord>();
    m_position = m_records.isEmpty() ? -1 : 0;
    for (int i = 0; i < m_records.size(); ++i)
        if (m_records.at(i).jNo == keepJNo)
            m_position = i;
    showRecord();
}

void FrmKaisya::showRecord()
{
    Widgets &w = *m_w;
    const CompanyRecord r = m_position >= 0 ? m_records.at(m_position) : CompanyRecord();
    w.lblJNo->setText(m_position >= 0 ? QString::number(r.jNo) : QString());
    w.txtCom->setText(r.comment);
    w.txtKaisya->setText(r.name);
    w.txtJyusyo->setText(r.address);
    w.txtTEL->setText(r.tel);
    w.txtFAX->setText(r.fax);
    w.txtGinko->setText(r.bank);
    w.txtSiten->setText(r.bankBranch);
    w.txtTNo->setText(r.branchNo);
    // An account type stored by an older list stays selectable rather than turning into 普通.
    if (!r.accountType.isEmpty() && w.cboKoza->findText(r.accountType) < 0)
        w.cboKoza->addItem(r.accountType);
    w.cboKoza->setCurrentIndex(std::max(0, w.cboKoza->findText(r.accountType)));
    w.txtKzNo->setText(r.accountNo);
    w.txtZeiritu->setText(r.taxRate);
    w.txtKzName->setText(r.accountHolder);
    w.chkKoza->setChecked(r.printAccount);
    const CompanyExtras extras = m_position >= 0 && m_extras ? m_extras->read(r.jNo) : CompanyExtras();
    w.txtDaihyo->setText(extras.representative);
    w.txtTouroku->setText(extras.registrationNumber);
    w.chkTourokuMitumori->setChecked(extras.numberOnEstimates);
    w.txtPeppol->setText(extras.peppolId);
}

CompanyRecord FrmKaisya::recordFromControls() const
{
    const Widgets &w = *m_w;
    CompanyRecord r;
    r.jNo = w.lblJNo->text().toInt();
    r.comment = w.txtCom->text();
    r.name = w.txtKaisya->text();
    r.address = w.txtJyusyo->text();
    r.tel = w.txtTEL->text();
    r.fax = w.txtFAX->text();
    r.bank = w.txtGinko->text();
    r.bankBranch = w.txtSiten->text();
    r.branchNo = w.txtTNo->text().trimmed();
    r.accountType = w.cboKoza->currentText();
    r.accountNo = w.txtKzNo->text();
    r.taxRate = w.txtZeiritu->text().trimmed();
    r.accountHolder = w.txtKzName->text();
    r.printAccount = w.chkKoza->isChecked();
    return r;
}

void FrmKaisya::setMode(Mode mode)
{
    m_mode = mode;
    Widgets &w = *m_w;
    const bool browsing = mode == Mode::Browsing;
    const bool usable = bool(m_store);
    w.fra1->setEnabled(!browsing);
    w.cmdOK->setEnabled(!browsing);
    w.cmdCancel->setEnabled(!browsing);
    w.cmdNew->setEnabled(browsing && usable);
    w.cmdEdit->setEnabled(browsing && usable && m_position >= 0);
    w.cmdDel->setEnabled(browsing && usable);
    const int last = recordCount() - 1;
    w.cmdFirst->setEnabled(browsing && m_position > 0);
    w.cmdPrev->setEnabled(browsing && m_position > 0);
    w.cmdNext->setEnabled(browsing && m_position >= 0 && m_position < last);
    w.cmdLast->setEnabled(browsing && m_position >= 0 && m_position < last);
}

void FrmKaisya::moveTo(int position)
{
    if (m_mode != Mode::Browsing || position < 0 || position >= recordCount())
        return;
    m_position = position;
    showRecord();
    setMode(Mode::Browsing);
}

void FrmKaisya::startAdding()
{
    const int keep = m_position;
    m_position = -1;
    showRecord();
    m_position = keep;
    m_w->txtZeiritu->setText(m_session.company.value(CompanyTaxRate));
    setMode(Mode::Adding);
    m_w->txtCom->setFocus();
}

void FrmKaisya::startEditing()
{
    if (m_position < 0)
        return;
    setMode(Mode::Editing);
    m_w->txtCom->setFocus();
}

void FrmKaisya::confirm()
{
    if (m_mode == Mode::Browsing || !m_store)
        return;
    const QString title = QStringLiteral("自社情報");
    CompanyRecord record = recordFromControls();
    if (const auto problem = checkCompanyRecord(record)) {
        m_messages.inform(*problem, QStringLiteral("入力エラー"), MessageIcon::Exclamation);
        return;
    }
    if (const auto problem = checkRegistrationNumber(m_w->txtTouroku->text())) {
        m_messages.inform(*problem, QStringLiteral("入力エラー"), MessageIcon::Exclamation);
        m_w->txtTouroku->setFocus();
        return;
    }
    if (const auto problem = checkPeppolId(m_w->txtPeppol->text())) {
        m_messages.inform(*problem, QStringLiteral("入力エラー"), MessageIcon::Exclamation);
        m_w->txtPeppol->setFocus();
        return;
    }
    const bool stored = m_mode == Mode::Adding ? m_store->insert(record) : m_store->update(record);
    if (!stored) {
        m_messages.inform(QStringLiteral("自社情報を保存できませんでした。\n") + m_store->lastError(), title,
                          MessageIcon::Critical);
        return;
    }
    const CompanyExtras extras{normalizeRegistrationNumber(m_w->txtTouroku->text()),
                               m_w->chkTourokuMitumori->isChecked(), m_w->txtDaihyo->text().trimmed(),
                               normalizePeppolId(m_w->txtPeppol->text())};
    if (m_extras && !m_extras->write(record.jNo, extras))
        m_messages.inform(QStringLiteral("代表者・登録番号・Peppol IDを保存できませんでした。\n") + m_extras->lastError(), title,
                          MessageIcon::Critical);
    // Record, then the block in memory, the sheet and the file, so the file always matches
    // the record confirmed last.
    m_session.company = companyBlock(record);
    if (m_sheet)
        m_sheet->showCompany();
    const QString error = writeCompanyBlock(companyFilePath(m_appFolder), m_session.company);
    if (!error.isEmpty())
        m_messages.inform(error, title, MessageIcon::Critical);
    reload(record.jNo);
    setMode(Mode::Browsing);
}

void FrmKaisya::cancelEdit()
{
    showRecord();
    setMode(Mode::Browsing);
}

void FrmKaisya::deleteRecord()
{
    if (m_position < 0) {
        m_messages.inform(QStringLiteral("削除するデータがありません。"), QStringLiteral("削除"),
                          MessageIcon::Information);
        return;
    }
    if (m_messages.askYesNo(QStringLiteral("データが失われます。よろしいですか？"), QStringLiteral("削除"),
                            MessageIcon::Exclamation) != Answer::Yes)
        return;
    const int keep = m_position;
    if (!m_store->remove(m_records.at(m_position).jNo)) {
        m_messages.inform(QStringLiteral("削除できませんでした。\n") + m_store->lastError(), QStringLiteral("削除"),
                          MessageIcon::Critical);
        return;
    }
    if (m_extras)
        m_extras->remove(m_records.at(keep).jNo);
    reload(-1);
    if (!m_records.isEmpty())
        m_position = std::min(keep, recordCount() - 1);
    showRecord();
    setMode(Mode::Browsing);
}

} // namespace est::sheet
