#include "indices/frm_fuka.h"

#include "common/number_format.h"
#include "indices/count_box.h"
#include "uikit/dialog_buttons.h"
#include "uikit/named.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace est::indices {

using ui::named;

namespace {

QLabel *sunken(QLabel *label, int width)
{
    label->setFrameShape(QFrame::Panel);
    label->setFrameShadow(QFrame::Sunken);
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    label->setMinimumWidth(width);
    return label;
}

// A list whose first entry is empty: nothing is chosen until the user chooses.
QComboBox *choiceList(QWidget *parent, const char *name, const QStringList &items)
{
    auto *box = named(new QComboBox(parent), name);
    box->addItem(QString());
    box->addItems(items);
    box->setMinimumWidth(130);
    return box;
}

void showText(QComboBox *box, const QString &text)
{
    const QSignalBlocker quiet(box);
    int index = box->findText(text);
    if (index < 0) {
        box->addItem(text); // kept text no longer in the table: still shown as kept
        index = box->count() - 1;
    }
    box->setCurrentIndex(index);
}

void showText(QLineEdit *box, const QString &text)
{
    if (box->text() == text)
        return;
    const QSignalBlocker quiet(box);
    box->setText(text);
}

} // namespace

bool FrmFuka::rateIsSet(std::int16_t paintRate, Messages &messages)
{
    if (paintRate != 0)
        return true;
    messages.inform(QStringLiteral("塗装指数が設定されていません。"), QStringLiteral("塗装指数"), MessageIcon::Critical);
    return false;
}

FrmFuka::FrmFuka(QSqlDatabase partDb, FukaSettings settings, const AdditionalState &kept, Messages &messages,
                 QWidget *parent)
    : GuardedDialog(messages, parent), m_tables(std::move(partDb)),
      m_calculation(m_tables, settings.paintRate, settings.rounding, messages), m_result(kept)
{
    setObjectName(QStringLiteral("frmFuka"));
    setWindowTitle(QStringLiteral("付加指数"));
    setModal(true);

    auto *layout = new QVBoxLayout(this);
    auto *vehicle = new QGridLayout;
    const char *labelNames[] = {"lbl1", "lbl2", "lbl3", "lbl4", "lbl5"};
    const QString captions[] = {QStringLiteral("お客様"), QStringLiteral("車名"), QStringLiteral("カラーNo."),
                                QStringLiteral("塗装種類"), QStringLiteral("高機能塗装")};
    for (int i = 0; i < 5; ++i) {
        vehicle->addWidget(new QLabel(captions[i], this), i / 3, (i % 3) * 2);
        auto *label = named(new QLabel(settings.labels[size_t(i)], this), labelNames[i]);
        label->setMinimumWidth(140);
        vehicle->addWidget(label, i / 3, (i % 3) * 2 + 1);
    }
    vehicle->addWidget(new QLabel(QStringLiteral("塗装レート"), this), 1, 4);
    vehicle->addWidget(named(new QLabel(formatThousands(settings.paintRate), this), "lblRato"), 1, 5);
    layout->addLayout(vehicle);

    m_tone = choiceList(this, "cboTone", m_tables.toneKinds());
    m_panels = choiceList(this, "cboMai", {"1", "2", "3", "4", "5", "6"});
    m_panels->setMinimumWidth(60);
    m_sash = choiceList(this, "cboSasyu", m_tables.doorCounts(DoorTable::Sash));
    m_stripe = choiceList(this, "cboSutoraip", m_tables.doorCounts(DoorTable::Stripe));
    m_sealing = named(new QLineEdit(this), "txtSeelMai");
    m_wax = named(new QLineEdit(this), "txtWaxMai");
    m_booth = named(new QCheckBox(AdditionalCalculation::boothCaption(), this), "chkBooth");
    for (QLineEdit *box : {m_sealing, m_wax}) {
        box->setAlignment(Qt::AlignRight);
        box->setFixedWidth(70);
    }

    const char *indexNames[] = {"lblToneNum", "lblSaSi", "lblSuSi", "lblSeelSi", "lblWaxSi", "lblBSisu"};
    const char *amountNames[] = {"lblTonesum", "lblSasyuSum", "lblSutoraipSum", "lblSeelSum", "lblWaxSum", "lblBSum"};
    auto *grid = new QGridLayout;
    grid->addWidget(new QLabel(QStringLiteral("項目"), this), 0, 0);
    grid->addWidget(new QLabel(QStringLiteral("内容"), this), 0, 1, 1, 2);
    grid->addWidget(new QLabel(QStringLiteral("指数"), this), 0, 3);
    grid->addWidget(new QLabel(QStringLiteral("金額（円）"), this), 0, 4);
    const AdditionalItems empty = AdditionalCalculation::emptyItems();
    QWidget *choices[kAdditionalItems][2] = {{m_tone, m_panels}, {m_sash, new QLabel(QStringLiteral("ドア"), this)},
                                             {m_stripe, new QLabel(QStringLiteral("ドア"), this)},
                                             {m_sealing, new QLabel(QStringLiteral("本"), this)},
                                             {m_wax, new QLabel(QStringLiteral("箇所"), this)},
                                             {m_booth, nullptr}};
    for (int i = 0; i < kAdditionalItems; ++i) {
        if (i != int(AdditionalItem::Booth))
            grid->addWidget(new QLabel(empty[size_t(i)][0], this), i + 1, 0);
        grid->addWidget(choices[i][0], i + 1, i == int(AdditionalItem::Booth) ? 0 : 1,
                        1, i == int(AdditionalItem::Booth) ? 2 : 1);
        if (choices[i][1])
            grid->addWidget(choices[i][1], i + 1, 2);
        m_indices[size_t(i)] = sunken(named(new QLabel(this), indexNames[i]), 70);
        m_amounts[size_t(i)] = sunken(named(new QLabel(this), amountNames[i]), 100);
        grid->addWidget(m_indices[size_t(i)], i + 1, 3);
        grid->addWidget(m_amounts[size_t(i)], i + 1, 4);
    }
    m_total = sunken(named(new QLabel(this), "lblGoukei"), 100);
    grid->addWidget(new QLabel(QStringLiteral("付加指数合計"), this), kAdditionalItems + 1, 3);
    grid->addWidget(m_total, kAdditionalItems + 1, 4);
    layout->addLayout(grid);

    const ui::DialogButtons buttons = ui::dialogButtons(this);
    QPushButton *ok = buttons.ok;
    QPushButton *cancel = buttons.cancel;
    layout->addLayout(buttons.row);

    if (kept.entered)
        m_calculation.restore(kept.items);
    showState();

    const auto changed = [this](auto apply) {
        return [this, apply](auto &&...args) {
            apply(args...);
            showState();
        };
    };
    connect(m_tone, &QComboBox::currentTextChanged, this, changed([this](const QString &t) { m_calculation.setToneKind(t); }));
    connect(m_panels, &QComboBox::currentTextChanged, this,
            changed([this](const QString &t) { m_calculation.setTonePanels(t); }));
    connect(m_sash, &QComboBox::currentTextChanged, this,
            changed([this](const QString &t) { m_calculation.setDoors(DoorTable::Sash, t); }));
    connect(m_stripe, &QComboBox::currentTextChanged, this,
            changed([this](const QString &t) { m_calculation.setDoors(DoorTable::Stripe, t); }));
    makeCountBox(m_sealing, messages, changed([this](const QString &t) { m_calculation.setUnits(UnitTable::Sealing, t); }));
    makeCountBox(m_wax, messages, changed([this](const QString &t) { m_calculation.setUnits(UnitTable::Wax, t); }));
    connect(m_booth, &QCheckBox::toggled, this, changed([this](bool on) { m_calculation.setBooth(on); }));
    connect(ok, &QPushButton::clicked, this, &FrmFuka::confirm);
    connect(cancel, &QPushButton::clicked, this, &FrmFuka::cancelByButton);
}

void FrmFuka::showState()
{
    const AdditionalItems &items = m_calculation.items();
    showText(m_tone, items[0][1]);
    showText(m_panels, items[0][2]);
    showText(m_sash, items[1][1]);
    showText(m_stripe, items[2][1]);
    showText(m_sealing, items[3][1]);
    showText(m_wax, items[4][1]);
    {
        const QSignalBlocker quiet(m_booth);
        m_booth->setChecked(items[5][1].trimmed() == QStringLiteral("1"));
    }
    for (int i = 0; i < kAdditionalItems; ++i) {
        m_indices[size_t(i)]->setText(m_calculation.index(AdditionalItem(i)));
        m_amounts[size_t(i)]->setText(m_calculation.amount(AdditionalItem(i)));
    }
    m_total->setText(formatThousands(m_calculation.total().value_or(0)));
}

void FrmFuka::confirm()
{
    const auto state = m_calculation.confirmed();
    if (!state) {
        messages().inform(QStringLiteral("付加指数の合計が大きすぎます。金額を確かめてください。"),
                          QStringLiteral("付加指数"), MessageIcon::Exclamation);
        return;
    }
    m_result = *state;
    accept();
}

} // namespace est::indices
