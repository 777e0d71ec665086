#include "simple/dlg_s_select.h"

#include "simple/dialog_buttons.h"
#include "uikit/named.h"

#include <QButtonGroup>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace est::simple {

using ui::named;

DlgSSelect::DlgSSelect(Messages &messages, EasyEstimateStore *store, std::int16_t current, QWidget *parent)
    : GuardedDialog(messages, parent)
{
    setObjectName(QStringLiteral("dlgSSelect"));
    setWindowTitle(QStringLiteral("簡易見積 － 作業区分の選択"));
    QString captions[2] = {QStringLiteral("キズ・ヘコミ修理"), QStringLiteral("パネル全面塗装")};
    if (store)
        if (const auto kinds = store->workKinds())
            for (const Choice &kind : *kinds)
                if (kind.no == kRepair || kind.no == kPanelPaint)
                    captions[kind.no - 1] = kind.name;

    auto *layout = new QVBoxLayout(this);
    auto *box = new QGroupBox(QStringLiteral("作業区分"), this);
    auto *options = new QVBoxLayout(box);
    m_optKH = named(new QRadioButton(captions[0], box), "optKH");
    m_optZP = named(new QRadioButton(captions[1], box), "optZP");
    options->addWidget(m_optKH);
    options->addWidget(m_optZP);
    m_optKH->setChecked(current == kRepair);
    m_optZP->setChecked(current == kPanelPaint);
    layout->addWidget(box);

    const DialogButtons buttons = dialogButtons(this, true);
    layout->addLayout(buttons.row);
    connect(buttons.ok, &QPushButton::clicked, this, &DlgSSelect::confirm);
    connect(buttons.cancel, &QPushButton::clicked, this, &DlgSSelect::cancelByButton);
    setMinimumWidth(300);
}

void DlgSSelect::confirm()
{
    if (!m_optKH->isChecked() && !m_optZP->isChecked()) {
        messages().inform(QStringLiteral("選択項目が選択されていません。お確かめ下さい。"),
                          QStringLiteral("お確かめ下さい。"), MessageIcon::Exclamation);
        return;
    }
    m_kind = m_optKH->isChecked() ? kRepair : kPanelPaint;
    accept();
}

} // namespace est::simple
