#include "customers/dlg_touroku.h"

#include "customers/dlg_new_touroku.h"
#include "customers/input_format.h"
#include "customers/setting_lists.h"

#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace est::customers {

DlgTouroku::DlgTouroku(Messages &messages, SettingLists &settings, QWidget *parent)
    : GuardedDialog(messages, parent), m_settings(settings)
{
    setObjectName(QStringLiteral("dlgTouroku"));
    setWindowTitle(QStringLiteral("登録番号"));
    auto *layout = new QGridLayout(this);
    const char *const captions[] = {"地名", "分類番号", "かな", "番号"};
    for (int i = 0; i < 4; ++i)
        layout->addWidget(new QLabel(QString::fromUtf8(captions[i]), this), 0, i);
    m_cboT1 = new QComboBox(this);
    m_cboT1->setObjectName(QStringLiteral("cboT1"));
    m_cboT1->setEditable(true);
    m_cboT1->setInsertPolicy(QComboBox::NoInsert);
    m_cboT1->setMinimumWidth(120);
    m_txtT2 = new QLineEdit(this);
    m_txtT2->setObjectName(QStringLiteral("txtT2"));
    m_txtT3 = new QLineEdit(this);
    m_txtT3->setObjectName(QStringLiteral("txtT3"));
    m_txtT4 = new QLineEdit(this);
    m_txtT4->setObjectName(QStringLiteral("txtT4"));
    m_txtT2->setMaximumWidth(70);
    m_txtT3->setMaximumWidth(50);
    m_txtT4->setMaximumWidth(90);
    layout->addWidget(m_cboT1, 1, 0);
    layout->addWidget(m_txtT2, 1, 1);
    layout->addWidget(m_txtT3, 1, 2);
    layout->addWidget(m_txtT4, 1, 3);
    layout->addWidget(new QLabel(QStringLiteral("登録番号"), this), 2, 0);
    m_lbl2 = new QLabel(this);
    m_lbl2->setObjectName(QStringLiteral("lbl2"));
    m_lbl2->setFrameShape(QFrame::Panel);
    m_lbl2->setFrameShadow(QFrame::Sunken);
    m_lbl2->setMinimumHeight(26);
    layout->addWidget(m_lbl2, 2, 1, 1, 3);

    auto *buttons = new QHBoxLayout;
    auto *tuika = new QPushButton(QStringLiteral("地名の追加"), this);
    tuika->setObjectName(QStringLiteral("cmdTuika"));
    auto *ok = new QPushButton(QStringLiteral("OK"), this);
    ok->setObjectName(QStringLiteral("OKButton"));
    auto *cancel = new QPushButton(QStringLiteral("キャンセル"), this);
    cancel->setObjectName(QStringLiteral("CancelButton"));
    buttons->addWidget(tuika);
    buttons->addStretch(1);
    buttons->addWidget(ok);
    buttons->addWidget(cancel);
    layout->addLayout(buttons, 3, 0, 1, 4);
    for (QPushButton *b : {tuika, ok, cancel})
        b->setAutoDefault(false);

    connect(m_cboT1, &QComboBox::currentTextChanged, this, &DlgTouroku::compose);
    for (QLineEdit *edit : {m_txtT2, m_txtT3, m_txtT4})
        connect(edit, &QLineEdit::textChanged, this, &DlgTouroku::compose);
    connect(tuika, &QPushButton::clicked, this, &DlgTouroku::addOffice);
    connect(ok, &QPushButton::clicked, this, &QDialog::accept);
    connect(cancel, &QPushButton::clicked, this, &DlgTouroku::cancelByButton);

    loadOffices();
    m_cboT1->setCurrentIndex(-1);
    m_cboT1->setEditText(QString());
    compose();
}

void DlgTouroku::loadOffices()
{
    const QString current = m_cboT1->currentText();
    m_cboT1->blockSignals(true);
    m_cboT1->clear();
    for (const RegistrationOffice &office : m_settings.offices())
        m_cboT1->addItem(office.name);
    m_cboT1->setEditText(current);
    m_cboT1->blockSignals(false);
}

void DlgTouroku::compose()
{
    m_lbl2->setText(registration());
}

QString DlgTouroku::registration() const
{
    return composeRegistration(m_cboT1->currentText(), m_txtT2->text(), m_txtT3->text(), m_txtT4->text());
}

void DlgTouroku::addOffice()
{
    DlgNewTouroku dialog(messages(), m_settings, this);
    dialog.exec();
    loadOffices();
}

} // namespace est::customers
