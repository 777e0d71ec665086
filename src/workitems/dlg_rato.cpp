#include "workitems/dlg_rato.h"

#include "common/number_format.h"
#include "workitems/numeric_keys.h"
#include "workitems/rate_settings.h"
#include "workitems/text_box.h"

#include <QButtonGroup>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace est::workitems {

namespace {

// Builds an option group: the group carries the name (opt1, opt2), its buttons name_0 .. name_2.
QGroupBox *optionGroup(QWidget *parent, const QString &title, const QString &name, const QStringList &captions,
                       QButtonGroup *group)
{
    auto *box = new QGroupBox(title, parent);
    auto *layout = new QVBoxLayout(box);
    group->setObjectName(name);
    for (int i = 0; i < captions.size(); ++i) {
        auto *button = new QRadioButton(captions.at(i), box);
        button->setObjectName(QStringLiteral("%1_%2").arg(name).arg(i));
        group->addButton(button, i);
        layout->addWidget(button);
    }
    return box;
}

} // namespace

DlgRato::DlgRato(Session &session, Messages &messages, std::function<void()> chooseCatalogue, QWidget *parent)
    : GuardedDialog(messages, parent), m_session(session), m_chooseCatalogue(std::move(chooseCatalogue))
{
    setObjectName(QStringLiteral("dlgRato"));
    setWindowTitle(QStringLiteral("レーバーレートの設定"));
    setModal(true);

    m_rate = new QLineEdit(this);
    m_rate->setObjectName(QStringLiteral("txtRato"));
    m_rate->setAlignment(Qt::AlignRight);
    new ui::KeyFilter(m_rate, numericKeyRule(false), messages);
    selectAllOnFocus(m_rate);
    if (session.labourRate != 0)
        m_rate->setText(QString::number(session.labourRate));

    m_digits = new QButtonGroup(this);
    m_mode = new QButtonGroup(this);
    auto *digitsBox = optionGroup(this, QStringLiteral("端数処理"), QStringLiteral("opt1"),
                                  {QStringLiteral("しない"), QStringLiteral("1の位"), QStringLiteral("10の位")},
                                  m_digits);
    auto *modeBox = optionGroup(this, QStringLiteral("処理方法"), QStringLiteral("opt2"),
                                {QStringLiteral("四捨五入"), QStringLiteral("切り上げ"), QStringLiteral("切り捨て")},
                                m_mode);

    auto *layout = new QVBoxLayout(this);
    auto *rateRow = new QHBoxLayout;
    rateRow->addWidget(new QLabel(QStringLiteral("レート（指数1あたり）"), this));
    rateRow->addWidget(m_rate);
    rateRow->addWidget(new QLabel(QStringLiteral("円"), this));
    layout->addLayout(rateRow);
    auto *options = new QHBoxLayout;
    options->addWidget(digitsBox);
    options->addWidget(modeBox);
    layout->addLayout(options);
    auto *buttons = new QHBoxLayout;
    auto *ok = new QPushButton(QStringLiteral("OK"), this);
    ok->setObjectName(QStringLiteral("OKButton"));
    ok->setDefault(true);
    auto *cancel = new QPushButton(QStringLiteral("キャンセル"), this);
    cancel->setObjectName(QStringLiteral("CancelButton"));
    buttons->addStretch(1);
    buttons->addWidget(ok);
    buttons->addWidget(cancel);
    layout->addLayout(buttons);

    connect(m_digits, &QButtonGroup::idClicked, this, &DlgRato::digitsChosen);
    connect(ok, &QPushButton::clicked, this, &DlgRato::confirm);
    connect(cancel, &QPushButton::clicked, this, &DlgRato::cancelByButton);

    m_digits->button(optionForDigits(session.roundDigits))->setChecked(true);
    m_mode->button(optionForMode(session.roundMode))->setChecked(true);
    digitsChosen(m_digits->checkedId());
}

void DlgRato::digitsChosen(int index)
{
    const bool enabled = modeOptionsEnabled(index);
    for (QAbstractButton *button : m_mode->buttons())
        button->setEnabled(enabled);
}

void DlgRato::confirm()
{
    switch (applyRateChoice(m_session, m_rate->text(), m_digits->checkedId(), m_mode->checkedId())) {
    case RateOutcome::Set:
        break;
    case RateOutcome::TooLarge:
        messages().inform(QStringLiteral("レートは 0 から 32,767 円までの整数で入力してください。\n"
                                         "レートは変更されません（現在 %1 円）。")
                              .arg(formatThousands(m_session.labourRate).isEmpty()
                                       ? QStringLiteral("0")
                                       : formatThousands(m_session.labourRate)),
                          QStringLiteral("レート"), MessageIcon::Exclamation);
        break;
    case RateOutcome::Empty:
        if (messages().askYesNo(QStringLiteral("レートが入力されておりません。入力しますか？"),
                                QStringLiteral("レート"), MessageIcon::Question) == Answer::Yes) {
            m_rate->setFocus();
            return;
        }
        break;
    }
    if (m_session.typeTable.isEmpty() && m_session.makerDb.isEmpty() && m_chooseCatalogue)
        m_chooseCatalogue();
    m_session.rateDialogRequested = false;
    accept();
}

} // namespace est::workitems
