#include "paint/dlg_naiban.h"

#include "uikit/named.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace est::paint {

DlgNaiban::DlgNaiban(const QList<InnerPanelItem> &items, const QString &vehicleClass, Messages &messages,
                     QWidget *parent)
    : GuardedDialog(messages, parent), m_items(items.mid(0, kInnerPanelItems))
{
    setObjectName(QStringLiteral("dlgNaiban"));
    setWindowTitle(QStringLiteral("内板塗装"));
    setModal(true);
    const bool light = usesLightCarIndex(vehicleClass);

    auto *layout = new QVBoxLayout(this);
    auto *grid = new QGridLayout;
    const QStringList headers = {QStringLiteral("部位"), QStringLiteral("内容"), QStringLiteral("指数"),
                                 QStringLiteral("備考")};
    for (int c = 0; c < headers.size(); ++c)
        grid->addWidget(new QLabel(headers.at(c), this), 0, c);
    for (int i = 0; i < kInnerPanelItems; ++i) {
        const bool present = i < m_items.size();
        const InnerPanelItem item = present ? m_items.at(i) : InnerPanelItem();
        const QString index = light ? item.lightIndex : item.index;
        auto name = [i](const char *base) { return QStringLiteral("%1_%2").arg(QLatin1String(base)).arg(i); };
        auto *bui = new QLabel(item.part, this);
        bui->setObjectName(name("lblBui"));
        auto *naiyo = new QLabel(item.content, this);
        naiyo->setObjectName(name("lblNaiyo"));
        auto *button = new QPushButton(index, this);
        button->setObjectName(name("cmd1"));
        button->setEnabled(present && !index.isEmpty());
        auto *memo = new QLabel(item.memo, this);
        memo->setObjectName(name("lblMemo"));
        grid->addWidget(bui, i + 1, 0);
        grid->addWidget(naiyo, i + 1, 1);
        grid->addWidget(button, i + 1, 2);
        grid->addWidget(memo, i + 1, 3);
        connect(button, &QPushButton::clicked, this, [this, item, index] {
            m_chosen = item;
            m_chosen->index = index;
            accept();
        });
    }
    grid->setColumnStretch(3, 1);
    layout->addLayout(grid);
    auto *buttons = new QHBoxLayout;
    auto *cancel = ui::named(new QPushButton(QStringLiteral("キャンセル"), this), "CancelButton");
    buttons->addStretch(1);
    buttons->addWidget(cancel);
    layout->addLayout(buttons);
    connect(cancel, &QPushButton::clicked, this, &DlgNaiban::cancelByButton);
}

QString DlgNaiban::partName() const
{
    if (!m_chosen)
        return {};
    return m_chosen->part + QStringLiteral("　") + m_chosen->content;
}

QString DlgNaiban::index() const
{
    return m_chosen ? m_chosen->index : QString();
}

} // namespace est::paint
