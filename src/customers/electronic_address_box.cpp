#include "customers/electronic_address_box.h"

#include "common/peppol_id.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QStyle>

namespace est::customers {

ElectronicAddressBox::ElectronicAddressBox(QWidget *block, QGridLayout *grid, int row) : QObject(block)
{
    m_peppol = new QLineEdit(block);
    m_peppol->setObjectName(QStringLiteral("txtPeppol"));
    m_peppol->setPlaceholderText(QStringLiteral("任意（0188:法人番号 または 0221:登録番号）"));
    m_corporate = new QLineEdit(block);
    m_corporate->setObjectName(QStringLiteral("txtHoujinNo"));
    m_corporate->setPlaceholderText(QStringLiteral("任意（13桁）"));
    grid->addWidget(new QLabel(QStringLiteral("Peppol ID"), block), row, 0);
    grid->addWidget(m_peppol, row, 1);
    grid->addWidget(new QLabel(QStringLiteral("法人番号"), block), row + 1, 0);
    grid->addWidget(m_corporate, row + 1, 1);
}

void ElectronicAddressBox::load(const QSqlDatabase &database, const QString &kno)
{
    const ElectronicAddress a = kno.isEmpty() ? ElectronicAddress() : ElectronicAddressStore(database).read(kno);
    m_peppol->setText(a.peppolId);
    m_corporate->setText(a.corporateNumber);
}

void ElectronicAddressBox::setEditable(bool editable)
{
    for (QLineEdit *edit : {m_peppol, m_corporate}) {
        if (edit->isReadOnly() != editable)
            continue;
        edit->setReadOnly(!editable);
        // The screen's read-only look follows the property only after a re-polish.
        edit->style()->unpolish(edit);
        edit->style()->polish(edit);
    }
}

std::optional<QString> ElectronicAddressBox::problem()
{
    if (auto p = checkPeppolId(m_peppol->text())) {
        m_peppol->setFocus();
        return p;
    }
    if (auto p = checkCorporateNumber(m_corporate->text())) {
        m_corporate->setFocus();
        return p;
    }
    return std::nullopt;
}

ElectronicAddress ElectronicAddressBox::value() const
{
    return {normalizePeppolId(m_peppol->text()), normalizeCorporateNumber(m_corporate->text())};
}

QString ElectronicAddressBox::store(const QSqlDatabase &database, const QString &kno)
{
    ElectronicAddressStore store(database);
    return store.write(kno, value()) ? QString() : store.lastError();
}

} // namespace est::customers
