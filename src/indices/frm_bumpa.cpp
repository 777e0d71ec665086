#include "indices/frm_bumpa.h"

#include "common/number_format.h"
#include "indices/index_value.h"
#include "uikit/dialog_buttons.h"
#include "uikit/named.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace est::indices {

using ui::named;

namespace {

QLabel *sunken(QLabel *label)
{
    label->setFrameShape(QFrame::Panel);
    label->setFrameShadow(QFrame::Sunken);
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    label->setMinimumWidth(90);
    return label;
}

// Shows a kept choice; a text no longer in the list is still shown as it was kept.
void showChoice(QComboBox *box, const QString &text)
{
    const QSignalBlocker quiet(box);
    int index = box->findText(text);
    if (index < 0 && !text.isEmpty()) {
        box->addItem(text);
        index = box->count() - 1;
    }
    box->setCurrentIndex(index);
}

} // namespace

FrmBumpa::FrmBumpa(QSqlDatabase partDb, BumperSettings settings, const BumperState &kept, Messages &messages,
                   QWidget *parent)
    : GuardedDialog(messages, parent), m_tables(std::move(partDb)),
      m_calculation(m_tables, std::move(settings), messages), m_result(kept)
{
    setObjectName(QStringLiteral("frmBumpa"));
    setWindowTitle(QStringLiteral("バンパー指数"));
    setModal(true);

    auto *layout = new QVBoxLayout(this);
    auto *vehicle = new QHBoxLayout;
    vehicle->addWidget(new QLabel(QStringLiteral("車種"), this));
    vehicle->addWidget(
        named(new QLabel(BumperCalculation::vehicleClassName(m_calculation.settings().vehicleClass), this), "lblJidousya"));
    vehicle->addSpacing(24);
    vehicle->addWidget(new QLabel(QStringLiteral("塗装種類"), this));
    vehicle->addWidget(named(new QLabel(m_calculation.settings().colourKind, this), "lbl1"));
    vehicle->addSpacing(24);
    vehicle->addWidget(new QLabel(QStringLiteral("塗装レート %1 円")
                                      .arg(formatThousands(m_calculation.settings().paintRate)), this));
    vehicle->addStretch(1);
    layout->addLayout(vehicle);

    auto *sides = new QHBoxLayout;
    sides->addWidget(buildSide(Side::Front, QStringLiteral("フロントバンパー"), "Fr"));
    sides->addWidget(buildSide(Side::Rear, QStringLiteral("リヤバンパー"), "Rr"));
    layout->addLayout(sides);

    auto *shared = new QHBoxLayout;
    m_offVehicle = named(new QCheckBox(QStringLiteral("単体塗装（車体から外して塗装）"), this), "chkTantai");
    m_offVehicleIndex = sunken(named(new QLabel(this), "lblTantai"));
    m_total = sunken(named(new QLabel(this), "lblSum"));
    shared->addWidget(m_offVehicle);
    shared->addWidget(new QLabel(QStringLiteral("指数"), this));
    shared->addWidget(m_offVehicleIndex);
    shared->addStretch(1);
    shared->addWidget(new QLabel(QStringLiteral("バンパー合計"), this));
    shared->addWidget(m_total);
    shared->addWidget(new QLabel(QStringLiteral("円"), this));
    layout->addLayout(shared);

    const ui::DialogButtons buttons = ui::dialogButtons(this);
    QPushButton *ok = buttons.ok;
    QPushButton *cancel = buttons.cancel;
    layout->addLayout(buttons.row);

    if (kept.entered)
        m_calculation.restore(kept.lines);
    showState();

    connect(m_offVehicle, &QCheckBox::toggled, this, [this](bool on) {
        m_calculation.setOffVehicle(on);
        showState();
    });
    connect(ok, &QPushButton::clicked, this, &FrmBumpa::confirm);
    connect(cancel, &QPushButton::clicked, this, &FrmBumpa::cancelByButton);
}

FrmBumpa::~FrmBumpa() = default;

QGroupBox *FrmBumpa::buildSide(Side side, const QString &title, const char *prefix)
{
    const QString p = QLatin1String(prefix);
    SideControls &c = m_sides[size_t(side)];
    auto *box = new QGroupBox(title, this);
    auto *grid = new QGridLayout(box);
    c.included = new QCheckBox(QStringLiteral("このバンパーを見積る"), box);
    c.included->setObjectName(QStringLiteral("chk") + p);
    c.work = new QComboBox(box);
    c.work->setObjectName(QStringLiteral("cbo%1Sagyo").arg(p));
    c.work->addItems(BumperCalculation::workKinds());
    c.content = new QComboBox(box);
    c.content->setObjectName(QStringLiteral("cbo%1Nai").arg(p));
    c.content->addItems(BumperCalculation::contents());
    c.content->setMinimumWidth(150);
    const char *conditionNames[] = {"Hyoj", "Sima", "Kizu"};
    const QString conditionCaptions[] = {QStringLiteral("センサー・灯火類付"), QStringLiteral("モール・縞付"),
                                         QStringLiteral("傷多数")};
    for (int i = 0; i < 3; ++i) {
        c.conditions[size_t(i)] = new QCheckBox(conditionCaptions[i], box);
        c.conditions[size_t(i)]->setObjectName(QStringLiteral("chk%1%2").arg(p, QLatin1String(conditionNames[i])));
    }
    c.indexSum = new QLineEdit(box);
    c.indexSum->setObjectName(QStringLiteral("txt%1Sisu").arg(p));
    c.indexSum->setReadOnly(true);
    c.indexSum->setAlignment(Qt::AlignRight);
    c.amount = sunken(new QLabel(box));
    c.amount->setObjectName(QStringLiteral("lbl%1Sum").arg(p));

    grid->addWidget(c.included, 0, 0, 1, 2);
    grid->addWidget(new QLabel(QStringLiteral("作業"), box), 1, 0);
    grid->addWidget(c.work, 1, 1);
    grid->addWidget(new QLabel(QStringLiteral("内容"), box), 2, 0);
    grid->addWidget(c.content, 2, 1);
    auto *conditions = new QGroupBox(QStringLiteral("条件加算"), box);
    auto *conditionLayout = new QVBoxLayout(conditions);
    for (QCheckBox *check : c.conditions)
        conditionLayout->addWidget(check);
    grid->addWidget(conditions, 3, 0, 1, 2);
    grid->addWidget(new QLabel(QStringLiteral("指数合計"), box), 4, 0);
    grid->addWidget(c.indexSum, 4, 1);
    grid->addWidget(new QLabel(QStringLiteral("金額（円）"), box), 5, 0);
    grid->addWidget(c.amount, 5, 1);

    connect(c.included, &QCheckBox::toggled, this, [this, side](bool on) {
        m_calculation.setIncluded(side, on);
        showState();
    });
    connect(c.work, &QComboBox::currentIndexChanged, this, [this, side, &c] {
        m_calculation.setWorkKind(side, c.work->currentText());
        showState();
    });
    connect(c.content, &QComboBox::currentIndexChanged, this, [this, side, &c] {
        m_calculation.setContent(side, c.content->currentText());
        showState();
    });
    const Condition conditionOf[] = {Condition::Hyoj, Condition::Sima, Condition::Kizu};
    for (int i = 0; i < 3; ++i)
        connect(c.conditions[size_t(i)], &QCheckBox::toggled, this, [this, side, i, conditionOf](bool on) {
            m_calculation.setCondition(side, conditionOf[i], on);
            showState();
        });
    return box;
}

void FrmBumpa::showState()
{
    for (Side side : {Side::Front, Side::Rear}) {
        const BumperSide &s = m_calculation.side(side);
        SideControls &c = m_sides[size_t(side)];
        {
            const QSignalBlocker a(c.included);
            c.included->setChecked(s.included);
        }
        showChoice(c.work, s.workKind);
        showChoice(c.content, s.content);
        for (int i = 0; i < 3; ++i) {
            const QSignalBlocker quiet(c.conditions[size_t(i)]);
            c.conditions[size_t(i)]->setChecked(s.conditions[size_t(i)]);
        }
        c.indexSum->setText(s.indexSum);
        c.amount->setText(s.amount ? formatThousands(*s.amount) : QString());
    }
    {
        const QSignalBlocker quiet(m_offVehicle);
        m_offVehicle->setChecked(m_calculation.offVehicle());
    }
    m_offVehicleIndex->setText(shownIndex(m_calculation.offVehicleIndex()));
    m_total->setText(formatThousands(m_calculation.total()));
}

void FrmBumpa::confirm()
{
    m_result = m_calculation.confirmed();
    accept();
}

} // namespace est::indices
