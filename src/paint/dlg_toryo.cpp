#include "paint/dlg_toryo.h"

#include "paint/paint_kind.h"
#include "paint/paint_session.h"
#include "uikit/named.h"

#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace est::paint {

namespace {

// A choice box whose current text is the given one, or nothing chosen when it is not listed.
void choose(QComboBox *box, const QString &text)
{
    box->setCurrentIndex(box->findText(text));
}

} // namespace

DlgToryo::DlgToryo(Session &session, Messages &messages, const QStringList &paintKinds,
                   const QStringList &highFunctions, QWidget *parent)
    : GuardedDialog(messages, parent), m_session(session)
{
    using ui::named;
    setObjectName(QStringLiteral("dlgToryo"));
    setWindowTitle(QStringLiteral("塗装種類の選択"));
    setModal(true);

    m_class = named(new QComboBox(this), "cboJidousya");
    m_class->addItems(classFullNames());
    m_colourNumber = named(new QLineEdit(this), "txtIroNo");
    m_kind = named(new QComboBox(this), "cboToryo");
    m_kind->addItems(paintKinds);
    m_highFunction = named(new QComboBox(this), "cboKoukino");
    m_highFunction->addItem(QString()); // no high-function paint
    m_highFunction->addItems(highFunctions);

    auto *layout = new QVBoxLayout(this);
    auto *form = new QFormLayout;
    form->addRow(QStringLiteral("車両区分"), m_class);
    form->addRow(QStringLiteral("カラーNo"), m_colourNumber);
    form->addRow(QStringLiteral("塗装種類"), m_kind);
    form->addRow(QStringLiteral("高機能塗装"), m_highFunction);
    layout->addLayout(form);
    auto *buttons = new QHBoxLayout;
    auto *ok = named(new QPushButton(QStringLiteral("OK"), this), "OKButton");
    ok->setDefault(true);
    auto *cancel = named(new QPushButton(QStringLiteral("キャンセル"), this), "CancelButton");
    buttons->addStretch(1);
    buttons->addWidget(ok);
    buttons->addWidget(cancel);
    layout->addLayout(buttons);

    m_classKey = paint::classKey(classFullName(session.paint.vehicleClass));
    choose(m_class, classFullName(session.paint.vehicleClass));
    m_colourNumber->setText(vehicleColourNumber(session));
    choose(m_kind, vehiclePaintKind(session));
    choose(m_highFunction, vehicleHighFunction(session));

    connect(m_class, &QComboBox::activated, this, [this] { m_classKey = paint::classKey(m_class->currentText()); });
    connect(ok, &QPushButton::clicked, this, &DlgToryo::confirm);
    connect(cancel, &QPushButton::clicked, this, &DlgToryo::cancelByButton);
}

void DlgToryo::confirm()
{
    setVehiclePaint(m_session, m_colourNumber->text(), m_kind->currentText(), m_highFunction->currentText());
    m_session.paint.vehicleClass = m_classKey;
    accept();
}

} // namespace est::paint
