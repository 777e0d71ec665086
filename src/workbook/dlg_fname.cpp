#include "workbook/dlg_fname.h"

#include "workbook/estimate_files.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpressionValidator>
#include <QVBoxLayout>

namespace est::workbook {

DlgFname::DlgFname(const Clock &clock, Messages &messages, QWidget *parent)
    : ui::GuardedDialog(messages, parent), m_clock(clock)
{
    setObjectName(QStringLiteral("dlgFname"));
    setEscapeCancels(true);
    setWindowTitle(QStringLiteral("ファイル名の入力"));
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(new QLabel(QStringLiteral("見積ファイルの名前を入力してください。"), this));
    m_text = new QLineEdit(this);
    m_text->setObjectName(QStringLiteral("txtFname"));
    // The name becomes a file in the estimates folder: no folder separators or reserved characters.
    m_text->setValidator(new QRegularExpressionValidator(QRegularExpression(QStringLiteral("[^/\\\\:*?\"<>|]*")), m_text));
    layout->addWidget(m_text);
    layout->addWidget(new QLabel(QStringLiteral("保存するファイル名"), this));
    m_name = new QLabel(this);
    m_name->setObjectName(QStringLiteral("lblFname"));
    m_name->setFrameShape(QFrame::Panel);
    m_name->setFrameShadow(QFrame::Sunken);
    layout->addWidget(m_name);

    auto *buttons = new QDialogButtonBox(this);
    QPushButton *ok = buttons->addButton(QStringLiteral("OK"), QDialogButtonBox::AcceptRole);
    ok->setObjectName(QStringLiteral("cmdOK"));
    ok->setDefault(true);
    QPushButton *cancel = buttons->addButton(QStringLiteral("キャンセル"), QDialogButtonBox::RejectRole);
    cancel->setObjectName(QStringLiteral("cmdCancel"));
    layout->addWidget(buttons);
    connect(ok, &QPushButton::clicked, this, &QDialog::accept);
    connect(cancel, &QPushButton::clicked, this, &DlgFname::cancelByButton);
    connect(m_text, &QLineEdit::textChanged, this, &DlgFname::updateName);
    updateName();
    resize(380, sizeHint().height());
}

QString DlgFname::typedText() const
{
    return m_text->text();
}

void DlgFname::setTypedText(const QString &text)
{
    m_text->setText(text);
    m_text->selectAll();
}

QString DlgFname::fileName() const
{
    return m_name->text();
}

void DlgFname::updateName()
{
    m_name->setText(estimateFileName(m_clock.today(), m_text->text()));
}

} // namespace est::workbook
