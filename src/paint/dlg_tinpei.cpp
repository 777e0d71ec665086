#include "paint/dlg_tinpei.h"

#include "uikit/named.h"

#include <QButtonGroup>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace est::paint {

DlgTInpei::DlgTInpei(const PaintEditor &editor, const QString &location, Messages &messages, QWidget *parent)
    : GuardedDialog(messages, parent), m_editor(editor), m_location(location)
{
    using ui::named;
    setObjectName(QStringLiteral("dlgTInpei"));
    setWindowTitle(QStringLiteral("低隠蔽性塗料"));
    setModal(true);

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(new QLabel(QStringLiteral("塗装箇所：%1").arg(location.isEmpty() ? QStringLiteral("（未選択）")
                                                                                     : location),
                                 this));
    auto *box = new QGroupBox(QStringLiteral("部品"), this);
    auto *boxLayout = new QHBoxLayout(box);
    m_options = new QButtonGroup(this);
    // The captions are the kinds of the low-hiding table.
    auto *newPart = named(new QRadioButton(QStringLiteral("新品"), box), "opt1");
    auto *repaired = named(new QRadioButton(QStringLiteral("修正"), box), "opt2");
    m_options->addButton(newPart, 1);
    m_options->addButton(repaired, 2);
    boxLayout->addWidget(newPart);
    boxLayout->addWidget(repaired);
    layout->addWidget(box);
    m_shown = named(new QLabel(this), "lblSisu");
    layout->addWidget(m_shown);

    auto *buttons = new QHBoxLayout;
    auto *ok = named(new QPushButton(QStringLiteral("OK"), this), "OKButton");
    auto *cancel = named(new QPushButton(QStringLiteral("キャンセル"), this), "CancelButton");
    buttons->addStretch(1);
    buttons->addWidget(ok);
    buttons->addWidget(cancel);
    layout->addLayout(buttons);

    connect(m_options, &QButtonGroup::idClicked, this, &DlgTInpei::chosen);
    connect(ok, &QPushButton::clicked, this, &DlgTInpei::confirm);
    connect(cancel, &QPushButton::clicked, this, &DlgTInpei::cancelByButton);
}

void DlgTInpei::chosen(int option)
{
    m_partKind = m_options->button(option)->text();
    m_index = m_editor.lowHidingFor(m_location, m_partKind);
    m_shown->setText(m_index.isEmpty() ? QStringLiteral("指数が見つかりません。")
                                       : QStringLiteral("指数　%1").arg(m_index));
}

void DlgTInpei::confirm()
{
    m_addition = m_index.isEmpty() ? QString() : m_editor.lowHidingFor(m_location, QStringLiteral("加算指数"));
    accept();
}

} // namespace est::paint
