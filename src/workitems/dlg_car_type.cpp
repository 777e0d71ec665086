#include "workitems/dlg_car_type.h"

#include "uikit/user_choice.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>

namespace est::workitems {

DlgCarType::DlgCarType(Session &session, Messages &messages, const CatalogueConnections &connections,
                       QWidget *parent)
    : GuardedDialog(messages, parent), m_session(session), m_makers(connections.makers()),
      m_types(connections.vehicleTypes())
{
    setObjectName(QStringLiteral("dlgCarType"));
    setWindowTitle(QStringLiteral("メーカー名と車両タイプの選択"));
    setModal(true);

    m_makerList = new QListWidget(this);
    m_makerList->setObjectName(QStringLiteral("dlstMeka"));
    m_typeList = new QListWidget(this);
    m_typeList->setObjectName(QStringLiteral("dlstType"));
    m_makerLabel = new QLabel(this);
    m_makerLabel->setObjectName(QStringLiteral("lblMeka"));
    m_typeLabel = new QLabel(this);
    m_typeLabel->setObjectName(QStringLiteral("lblType"));
    for (const Maker &m : m_makers)
        m_makerList->addItem(m.name);
    for (const VehicleType &t : m_types)
        m_typeList->addItem(t.type);

    auto *grid = new QGridLayout(this);
    grid->addWidget(new QLabel(QStringLiteral("メーカー"), this), 0, 0);
    grid->addWidget(new QLabel(QStringLiteral("車両タイプ"), this), 0, 1);
    grid->addWidget(m_makerList, 1, 0);
    grid->addWidget(m_typeList, 1, 1);
    grid->addWidget(m_makerLabel, 2, 0);
    grid->addWidget(m_typeLabel, 2, 1);
    auto *buttons = new QHBoxLayout;
    m_ok = new QPushButton(QStringLiteral("OK"), this);
    m_ok->setObjectName(QStringLiteral("OKButton"));
    auto *cancel = new QPushButton(QStringLiteral("キャンセル"), this);
    cancel->setObjectName(QStringLiteral("CancelButton"));
    buttons->addStretch(1);
    buttons->addWidget(m_ok);
    buttons->addWidget(cancel);
    grid->addLayout(buttons, 3, 0, 1, 2);

    // Start from the current choice, so OK alone keeps it.
    for (int i = 0; i < m_makers.size(); ++i)
        if (m_makers.at(i).dbName == session.makerDb)
            m_makerList->setCurrentRow(i);
    for (int i = 0; i < m_types.size(); ++i)
        if (m_types.at(i).tableName == session.typeTable)
            m_typeList->setCurrentRow(i);

    ui::onChosenRow(m_makerList, this, [this](int) { updateChoice(); });
    ui::onChosenRow(m_typeList, this, [this](int) { updateChoice(); });
    connect(m_ok, &QPushButton::clicked, this, &DlgCarType::confirm);
    connect(cancel, &QPushButton::clicked, this, &DlgCarType::cancelByButton);
    updateChoice();
    resize(460, 320);
}

void DlgCarType::updateChoice()
{
    const int maker = ui::chosenRow(m_makerList);
    const int type = ui::chosenRow(m_typeList);
    m_makerLabel->setText(maker >= 0 ? QStringLiteral("メーカー名は ") + m_makers.at(maker).name : QString());
    m_typeLabel->setText(type >= 0 ? QStringLiteral("車両タイプは ") + m_types.at(type).type : QString());
    m_ok->setEnabled(maker >= 0 && type >= 0);
}

void DlgCarType::confirm()
{
    const int maker = ui::chosenRow(m_makerList);
    const int type = ui::chosenRow(m_typeList);
    if (maker < 0 || type < 0)
        return;
    m_session.maker = m_makers.at(maker).name;
    m_session.makerDb = m_makers.at(maker).dbName;
    m_session.vehicleType = m_types.at(type).type;
    m_session.typeTable = m_types.at(type).tableName;
    accept();
}

} // namespace est::workitems
