#include "sheet/frm_mitumori.h"

#include "common/number_format.h"
#include "sheet/discount_keys.h"
#include "sheet/document_kind.h"
#include "sheet/sheet_grid_layout.h"
#include "uikit/key_filter.h"
#include "uikit/twips.h"
#include "uikit/named.h"

#include <QCloseEvent>
#include <QComboBox>
#include <QFrame>
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

struct FrmMitumori::Widgets
{
    QComboBox *cboHdai = nullptr;
    QLabel *lblBun1 = nullptr, *lblBun2 = nullptr, *lblKBun = nullptr, *lblGKei = nullptr;
    QLabel *lblHiduke = nullptr, *lblVersion = nullptr;
    QLineEdit *txtName = nullptr, *txtKaisya = nullptr, *txtSname = nullptr, *txtSyatai = nullptr,
              *txtSnen = nullptr, *txtKm = nullptr, *txtTouroku = nullptr, *txtKata = nullptr,
              *txtRui = nullptr, *txtColer = nullptr, *txtEg = nullptr, *txtMemo = nullptr;
    // Company block.
    QLabel *lblCom = nullptr, *lblJisya = nullptr, *lblJyusyo = nullptr, *lblTEL = nullptr,
           *lblFAX = nullptr, *lblGinko = nullptr, *lblSiten = nullptr, *lblTNo = nullptr,
           *lblKoza = nullptr, *lblKzNo = nullptr, *lblKzName = nullptr;
    QTableWidget *grid = nullptr;
    // Totals.
    QLabel *lblKoutin = nullptr, *lblBuhin = nullptr, *lblSkei = nullptr, *lblPaint = nullptr,
           *lblZairyo = nullptr, *lblBumpa = nullptr, *lblPKei = nullptr, *lblGokei = nullptr,
           *lblNGo = nullptr, *lblZeiritu = nullptr, *lblSZei = nullptr, *lblZkomi = nullptr,
           *lblHZei = nullptr, *lblKei = nullptr, *lblSeikyu = nullptr;
    QLineEdit *txtNebiki1 = nullptr, *txtNebiki2 = nullptr, *txtAzukari = nullptr;
};

namespace {

QLabel *amountLabel(const char *name, QWidget *parent)
{
    auto *label = named(new QLabel(parent), name);
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    label->setFrameShape(QFrame::Panel);
    label->setFrameShadow(QFrame::Sunken);
    label->setMinimumWidth(110);
    return label;
}

QLineEdit *amountEdit(const char *name, QWidget *parent)
{
    auto *edit = named(new QLineEdit(parent), name);
    edit->setAlignment(Qt::AlignRight);
    edit->setMaximumWidth(130);
    return edit;
}

void setTextQuietly(QLineEdit *edit, const QString &text)
{
    if (edit->text() == text)
        return;
    const QSignalBlocker blocker(edit);
    edit->setText(text);
}

} // namespace

FrmMitumori::FrmMitumori(Session &session, Messages &messages, QWidget *parent)
    : QWidget(parent), m_session(session), m_messages(messages),
      m_sheet(session, messages), m_w(new Widgets)
{
    setObjectName(QStringLiteral("frmMitumori"));
    setWindowTitle(QStringLiteral("見積書作成"));
    buildUi();
    prepareGrid();
    refresh();
}

FrmMitumori::~FrmMitumori()
{
    delete m_w;
}

void FrmMitumori::buildUi()
{
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(buildHeader());

    m_w->lblBun1 = named(new QLabel(this), "lblBun1");
    auto *amountRow = new QHBoxLayout;
    amountRow->addWidget(m_w->lblBun1, 1);
    m_w->lblKBun = named(new QLabel(this), "lblKBun");
    m_w->lblGKei = amountLabel("lblGKei", this);
    QFont big = m_w->lblGKei->font();
    big.setPointSizeF(big.pointSizeF() * 1.4);
    big.setBold(true);
    m_w->lblGKei->setFont(big);
    m_w->lblKBun->setFont(big);
    m_w->lblGKei->setMinimumWidth(180);
    amountRow->addWidget(m_w->lblKBun);
    amountRow->addWidget(m_w->lblGKei);
    layout->addLayout(amountRow);

    m_w->grid = named(new QTableWidget(this), "HFlgSS");
    layout->addWidget(m_w->grid, 1);

    m_w->lblBun2 = named(new QLabel(this), "lblBun2");
    layout->addWidget(m_w->lblBun2);

    auto *bottom = new QHBoxLayout;
    auto *memoBox = new QVBoxLayout;
    memoBox->addWidget(new QLabel(QStringLiteral("備考"), this));
    m_w->txtMemo = named(new QLineEdit(this), "txtMemo");
    memoBox->addWidget(m_w->txtMemo);
    memoBox->addStretch(1);
    bottom->addLayout(memoBox, 1);
    bottom->addWidget(buildTotals());
    layout->addLayout(bottom);
    layout->addWidget(buildButtons());

    connectHeaderField(m_w->txtMemo, &EstimateHeader::memo);

    auto *rateFilter = new ui::KeyFilter(m_w->txtNebiki1, discountRateKeyRule, m_messages);
    Q_UNUSED(rateFilter);
    new ui::KeyFilter(m_w->txtNebiki2, discountAmountKeyRule, m_messages);
    new ui::KeyFilter(m_w->txtAzukari, discountAmountKeyRule, m_messages);

    auto forward = [this](QLineEdit *edit, void (EstimateSheet::*typed)(const QString &)) {
        connect(edit, &QLineEdit::textChanged, this, [this, typed](const QString &text) {
            (m_sheet.*typed)(text);
            showFigures();
        });
    };
    forward(m_w->txtNebiki1, &EstimateSheet::discountRateTyped);
    forward(m_w->txtNebiki2, &EstimateSheet::discountAmountTyped);
    forward(m_w->txtAzukari, &EstimateSheet::advanceTyped);
    // Only a change the user makes to the amount's text counts as typed; Tab, Enter and the
    // arrows leave the text as it is.
    connect(m_w->txtNebiki2, &QLineEdit::textEdited, this, [this](const QString &text) {
        m_sheet.discountAmountEdited(text);
        showFigures();
    });
    connect(m_w->txtNebiki1, &QLineEdit::editingFinished, this, [this] {
        m_sheet.discountRateLeft();
        showFigures();
    });
    // Amounts typed by hand take the sheet's "#,###" once the field is left, as they will
    // show when the estimate is opened again.
    for (QLineEdit *amount : {m_w->txtNebiki2, m_w->txtAzukari}) {
        connect(amount, &QLineEdit::editingFinished, this,
                [amount] { amount->setText(EstimateSheet::amountAsLeft(amount->text())); });
    }
    connect(m_w->cboHdai, &QComboBox::currentIndexChanged, this, &FrmMitumori::onDocumentKindChanged);
    resize(1280, 900);
}

QWidget *FrmMitumori::buildHeader()
{
    auto *box = new QWidget(this);
    auto *layout = new QHBoxLayout(box);
    layout->setContentsMargins(0, 0, 0, 0);

    auto *left = new QGridLayout;
    m_w->cboHdai = named(new QComboBox(box), "cboHdai");
    m_w->cboHdai->addItems(documentKinds());
    QFont titleFont = m_w->cboHdai->font();
    titleFont.setPointSizeF(titleFont.pointSizeF() * 1.3);
    titleFont.setBold(true);
    m_w->cboHdai->setFont(titleFont);
    left->addWidget(m_w->cboHdai, 0, 0, 1, 2);
    m_w->lblHiduke = named(new QLabel(box), "lblHiduke");
    left->addWidget(m_w->lblHiduke, 0, 2, 1, 2);

    m_w->txtKaisya = named(new QLineEdit(box), "txtKaisya");
    m_w->txtName = named(new QLineEdit(box), "txtName");
    left->addWidget(m_w->txtKaisya, 1, 0, 1, 3);
    left->addWidget(new QLabel(QStringLiteral("御中"), box), 1, 3);
    left->addWidget(m_w->txtName, 2, 0, 1, 3);

    struct Field
    {
        const char *caption;
        const char *name;
        QLineEdit *Widgets::*member;
        QString EstimateHeader::*field;
    };
    const Field fields[] = {
        {"車名", "txtSname", &Widgets::txtSname, &EstimateHeader::carName},
        {"車台番号", "txtSyatai", &Widgets::txtSyatai, &EstimateHeader::chassisNumber},
        {"初度登録", "txtSnen", &Widgets::txtSnen, &EstimateHeader::firstRegistration},
        {"走行距離", "txtKm", &Widgets::txtKm, &EstimateHeader::distance},
        {"登録番号", "txtTouroku", &Widgets::txtTouroku, &EstimateHeader::registration},
        {"型式", "txtKata", &Widgets::txtKata, &EstimateHeader::modelCode},
        {"類別", "txtRui", &Widgets::txtRui, &EstimateHeader::classCode},
        {"カラー", "txtColer", &Widgets::txtColer, &EstimateHeader::colour},
        {"エンジン", "txtEg", &Widgets::txtEg, &EstimateHeader::engine},
    };
    int i = 0;
    for (const Field &f : fields) {
        auto *edit = named(new QLineEdit(box), f.name);
        m_w->*(f.member) = edit;
        const int row = 3 + i / 2;
        const int column = (i % 2) * 2;
        left->addWidget(new QLabel(QString::fromUtf8(f.caption), box), row, column);
        left->addWidget(edit, row, column + 1);
        connectHeaderField(edit, f.field);
        ++i;
    }
    connectHeaderField(m_w->txtName, &EstimateHeader::customerName);
    connectHeaderField(m_w->txtKaisya, &EstimateHeader::customerCompany);
    layout->addLayout(left, 3);

    auto *company = new QVBoxLayout;
    company->setSpacing(1);
    const std::pair<const char *, QLabel *Widgets::*> companyLabels[] = {
        {"lblCom", &Widgets::lblCom},       {"lblJisya", &Widgets::lblJisya},
        {"lblJyusyo", &Widgets::lblJyusyo}, {"lblTEL", &Widgets::lblTEL},
        {"lblFAX", &Widgets::lblFAX},       {"lblGinko", &Widgets::lblGinko},
        {"lblSiten", &Widgets::lblSiten},   {"lblTNo", &Widgets::lblTNo},
        {"lblKoza", &Widgets::lblKoza},     {"lblKzNo", &Widgets::lblKzNo},
        {"lblKzName", &Widgets::lblKzName},
    };
    for (const auto &[name, member] : companyLabels) {
        auto *label = named(new QLabel(box), name);
        m_w->*member = label;
        company->addWidget(label);
    }
    QFont nameFont = m_w->lblJisya->font();
    nameFont.setBold(true);
    nameFont.setPointSizeF(nameFont.pointSizeF() * 1.2);
    m_w->lblJisya->setFont(nameFont);
    m_w->lblVersion = named(new QLabel(box), "lblVersion");
    company->addStretch(1);
    company->addWidget(m_w->lblVersion, 0, Qt::AlignRight);
    layout->addLayout(company, 2);
    return box;
}

QWidget *FrmMitumori::buildTotals()
{
    auto *box = new QFrame(this);
    box->setFrameShape(QFrame::StyledPanel);
    auto *grid = new QGridLayout(box);
    grid->setVerticalSpacing(2);
    auto add = [&](int row, int column, const char *caption, QWidget *widget) {
        grid->addWidget(new QLabel(QString::fromUtf8(caption), box), row, column, Qt::AlignRight);
        grid->addWidget(widget, row, column + 1);
    };
    m_w->lblKoutin = amountLabel("lblKoutin", box);
    m_w->lblBuhin = amountLabel("lblBuhin", box);
    m_w->lblSkei = amountLabel("lblSkei", box);
    m_w->lblPaint = amountLabel("lblPaint", box);
    m_w->lblZairyo = amountLabel("lblZairyo", box);
    m_w->lblBumpa = amountLabel("lblBumpa", box);
    m_w->lblPKei = amountLabel("lblPKei", box);
    add(0, 0, "工賃計", m_w->lblKoutin);
    add(1, 0, "部品計", m_w->lblBuhin);
    add(2, 0, "作業計(A)", m_w->lblSkei);
    add(3, 0, "塗装工賃計", m_w->lblPaint);
    add(4, 0, "塗装材料費", m_w->lblZairyo);
    add(5, 0, "バンパー塗装", m_w->lblBumpa);
    add(6, 0, "塗装計(B)", m_w->lblPKei);

    m_w->lblGokei = amountLabel("lblGokei", box);
    m_w->txtNebiki1 = amountEdit("txtNebiki1", box);
    m_w->txtNebiki2 = amountEdit("txtNebiki2", box);
    m_w->lblNGo = amountLabel("lblNGo", box);
    add(0, 2, "合計金額(A+B)", m_w->lblGokei);
    auto *rateRow = new QWidget(box);
    auto *rateLayout = new QHBoxLayout(rateRow);
    rateLayout->setContentsMargins(0, 0, 0, 0);
    rateLayout->addWidget(m_w->txtNebiki1);
    rateLayout->addWidget(new QLabel(QStringLiteral("%"), rateRow));
    add(1, 2, "値引率", rateRow);
    add(2, 2, "値引き金額", m_w->txtNebiki2);
    add(3, 2, "値引後金額", m_w->lblNGo);

    m_w->lblZeiritu = named(new QLabel(box), "lblZeiritu");
    m_w->lblZeiritu->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    m_w->lblSZei = amountLabel("lblSZei", box);
    m_w->lblZkomi = amountLabel("lblZkomi", box);
    m_w->lblHZei = amountLabel("lblHZei", box);
    m_w->lblKei = amountLabel("lblKei", box);
    m_w->txtAzukari = amountEdit("txtAzukari", box);
    m_w->lblSeikyu = amountLabel("lblSeikyu", box);
    auto *taxRow = new QWidget(box);
    auto *taxLayout = new QHBoxLayout(taxRow);
    taxLayout->setContentsMargins(0, 0, 0, 0);
    taxLayout->addWidget(new QLabel(QStringLiteral("消費税"), taxRow));
    taxLayout->addWidget(m_w->lblZeiritu);
    taxLayout->addWidget(new QLabel(QStringLiteral("%"), taxRow));
    grid->addWidget(taxRow, 4, 2, Qt::AlignRight);
    grid->addWidget(m_w->lblSZei, 4, 3);
    add(5, 2, "税込金額", m_w->lblZkomi);
    add(6, 2, "非課税金額", m_w->lblHZei);
    add(0, 4, "総合計金額", m_w->lblKei);
    add(1, 4, "前受金額", m_w->txtAzukari);
    add(2, 4, "請求金額", m_w->lblSeikyu);
    return box;
}

QWidget *FrmMitumori::buildButtons()
{
    auto *box = new QWidget(this);
    auto *layout = new QHBoxLayout(box);
    layout->setContentsMargins(0, 0, 0, 0);
    const std::tuple<SheetButton, const char *, const char *> buttons[] = {
        {SheetButton::WorkItems, "cmdSakusei", "作業作成"},
        {SheetButton::Paint, "cmdPaint", "塗装作成"},
        {SheetButton::Customers, "cmdKokyaku", "顧客情報"},
        {SheetButton::NonTaxable, "cmdHikazei", "非課税項目"},
        {SheetButton::SlipDate, "cmdDay", "伝票日付変更"},
        {SheetButton::Company, "cmdKaisya", "会社情報変更"},
        {SheetButton::Simple, "cmdKani", "簡易見積"},
        {SheetButton::Sales, "cmdUriage", "売上げ"},
        {SheetButton::Print, "cmdPrint", "印刷"},
        {SheetButton::Revise, "cmdRevise", "修正見積"},
        {SheetButton::Photo, "cmdPhoto", "写真"},
        {SheetButton::Compare, "cmdHikaku", "比較"},
        {SheetButton::Save, "cmdSave", "ファイルの保存"},
        {SheetButton::End, "cmdEnd", "終了"},
    };
    for (const auto &[id, name, caption] : buttons) {
        auto *button = named(new QPushButton(QString::fromUtf8(caption), box), name);
        button->setMinimumHeight(36);
        layout->addWidget(button);
        m_buttons.insert(id, button);
        const SheetButton which = id;
        if (which == SheetButton::Save) {
            connect(button, &QPushButton::clicked, this, &FrmMitumori::saveEstimate);
        } else if (which == SheetButton::End) {
            connect(button, &QPushButton::clicked, this, [this] {
                if (confirmEnd())
                    Q_EMIT quitRequested();
            });
        } else {
            // Screens that the rest of the program has not wired yet stay disabled.
            button->setEnabled(false);
            connect(button, &QPushButton::clicked, this, [this, which] { Q_EMIT openRequested(which); });
        }
    }
    return box;
}

void FrmMitumori::connectHeaderField(QLineEdit *edit, QString EstimateHeader::*field)
{
    connect(edit, &QLineEdit::textChanged, this,
            [this, field](const QString &text) { m_sheet.setHeaderField(field, text); });
}

void FrmMitumori::setButtonEnabled(SheetButton button, bool enabled)
{
    if (QPushButton *b = m_buttons.value(button))
        b->setEnabled(enabled);
}

void FrmMitumori::prepareGrid()
{
    QTableWidget *grid = m_w->grid;
    grid->setColumnCount(kGridColumns);
    grid->setRowCount(kGridInitialRows - 1); // the header row is the table's own header
    grid->setHorizontalHeaderLabels(gridHeaders());
    grid->verticalHeader()->setVisible(false);
    grid->verticalHeader()->setDefaultSectionSize(ui::twipsToPixels(kGridRowHeightTwips));
    grid->verticalHeader()->setMinimumSectionSize(ui::twipsToPixels(kGridRowHeightTwips));
    for (const ColumnWidth &w : gridColumnWidths())
        grid->setColumnWidth(w.column, ui::twipsToPixels(w.twips));
    grid->setColumnHidden(ColHidden, true);
    grid->setEditTriggers(QAbstractItemView::NoEditTriggers);
    grid->setSelectionBehavior(QAbstractItemView::SelectRows);
    clearGrid();
}

void FrmMitumori::clearGrid()
{
    QTableWidget *grid = m_w->grid;
    for (int row = 0; row < grid->rowCount(); ++row)
        for (int column = 0; column <= kGridColumns; ++column)
            if (column < grid->columnCount())
                grid->setItem(row, column, new QTableWidgetItem(QString()));
}

void FrmMitumori::refresh()
{
    showRevision();
    refreshHeader();
    showCompany();
    showSlip();
    m_w->lblVersion->setText(EstimateSheet::versionText());
    refreshRows();
}

void FrmMitumori::showRevision()
{
    const QString revision = revisionCaption(m_session.revision);
    setWindowTitle(revision.isEmpty() ? QStringLiteral("見積書作成") : QStringLiteral("見積書作成　") + revision);
}

void FrmMitumori::refreshHeader()
{
    const EstimateHeader &h = m_session.header;
    {
        const QSignalBlocker blocker(m_w->cboHdai);
        m_w->cboHdai->setCurrentIndex(h.documentKind);
    }
    onDocumentKindChanged(m_w->cboHdai->currentIndex());
    const std::pair<QLineEdit *, const QString *> fields[] = {
        {m_w->txtName, &h.customerName},     {m_w->txtKaisya, &h.customerCompany},
        {m_w->txtSname, &h.carName},         {m_w->txtSyatai, &h.chassisNumber},
        {m_w->txtSnen, &h.firstRegistration}, {m_w->txtKm, &h.distance},
        {m_w->txtTouroku, &h.registration},  {m_w->txtKata, &h.modelCode},
        {m_w->txtRui, &h.classCode},         {m_w->txtColer, &h.colour},
        {m_w->txtEg, &h.engine},             {m_w->txtMemo, &h.memo},
    };
    for (const auto &[edit, value] : fields) {
        const QString copy = *value; // setText re-enters the session through textChanged
        edit->setText(copy);
    }
}

void FrmMitumori::onDocumentKindChanged(int index)
{
    const DocumentTexts texts = m_sheet.chooseDocumentKind(index);
    m_w->lblBun1->setText(texts.opening);
    m_w->lblBun2->setText(texts.closing);
    m_w->lblKBun->setText(texts.amountCaption);
}

void FrmMitumori::showCompany()
{
    const CompanyLines lines = m_sheet.applyCompany();
    const std::pair<QLabel *, const QString *> shown[] = {
        {m_w->lblCom, &lines.title},          {m_w->lblJisya, &lines.name},
        {m_w->lblJyusyo, &lines.address},     {m_w->lblTEL, &lines.phone},
        {m_w->lblFAX, &lines.fax},            {m_w->lblGinko, &lines.bank},
        {m_w->lblSiten, &lines.branch},       {m_w->lblTNo, &lines.branchNumber},
        {m_w->lblKoza, &lines.accountKind},   {m_w->lblKzNo, &lines.accountNumber},
        {m_w->lblKzName, &lines.accountHolder},
    };
    for (const auto &[label, text] : shown)
        label->setText(*text);
    showFigures();
}

void FrmMitumori::showSlip()
{
    m_w->lblHiduke->setText(m_sheet.slipText());
}

void FrmMitumori::refreshRows()
{
    const QList<EstimateRow> rows = m_sheet.shownRows();
    QTableWidget *grid = m_w->grid;
    grid->setUpdatesEnabled(false);
    grid->setRowCount(gridRowCount(int(rows.size())) - 1);
    clearGrid();
    for (int r = 0; r < rows.size(); ++r) {
        for (int c = 0; c < kGridColumns; ++c) {
            QTableWidgetItem *item = grid->item(r, c);
            item->setText(rows.at(r).at(c));
            if (c >= ColIndex && c <= ColPartsAmount)
                item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
        }
    }
    grid->setUpdatesEnabled(true);
    refreshTotals();
}

void FrmMitumori::refreshTotals()
{
    const EditorTotals &t = m_sheet.totals();
    m_w->lblKoutin->setText(formatThousands(t.labour));
    m_w->lblBuhin->setText(formatThousands(t.parts));
    m_w->lblSkei->setText(formatThousands(t.workTotalA));
    m_w->lblPaint->setText(formatThousands(t.paintLabour));
    m_w->lblZairyo->setText(formatThousands(t.paintMaterial));
    m_w->lblBumpa->setText(formatThousands(t.bumperPaint));
    m_w->lblPKei->setText(formatThousands(t.paintTotalB));
    m_sheet.sumsChanged();
    showFigures();
}

void FrmMitumori::setNonTaxableTotal(Yen sum)
{
    m_sheet.setNonTaxableTotal(sum);
    showFigures();
}

void FrmMitumori::clearEstimate()
{
    m_sheet.clearEstimate();
    refresh();
}

void FrmMitumori::showFigures()
{
    const SheetFigures &f = m_sheet.figures();
    m_w->lblGokei->setText(f.gokei);
    setTextQuietly(m_w->txtNebiki1, f.discountRate);
    setTextQuietly(m_w->txtNebiki2, f.discountAmount);
    m_w->lblNGo->setText(f.afterDiscount);
    m_w->lblZeiritu->setText(f.taxRate);
    m_w->lblSZei->setText(f.tax);
    m_w->lblZkomi->setText(f.withTax);
    m_w->lblHZei->setText(f.nonTaxable);
    m_w->lblKei->setText(f.grandTotal);
    setTextQuietly(m_w->txtAzukari, f.advance);
    m_w->lblSeikyu->setText(f.amountDue);
    m_w->lblGKei->setText(f.amountDueCopy);
}

bool FrmMitumori::confirmEnd()
{
    return m_sheet.confirmEnd();
}

void FrmMitumori::saveEstimate()
{
    m_sheet.save();
}

void FrmMitumori::closeEvent(QCloseEvent *event)
{
    // The window's close box ends the program the same way as "終了".
    event->ignore();
    if (confirmEnd())
        Q_EMIT quitRequested();
}

} // namespace est::sheet
