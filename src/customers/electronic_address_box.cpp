#include "customers/electronic_address_box.h"

#include "common/peppol_id.h"

#include <QFormLayout>
#include <QLineEdit>
#include <QStyle>

namespace est::customers {

ElectronicAddressBox::ElectronicAddressBox(QWidget *parent) : QWidget(parent)
{
    auto *form = new QFormLayout(this);
    form->setContentsMargins(0, 0, 0, 0);
    m_peppol = new QLineEdit(this);
    m_peppol->setObjectName(QStringLiteral("txtPeppol"));
    m_peppol->setPlaceholderText(QStringLiteral("任意（例：0188:1234567890123）"));
    m_corporate = new QLineEdit(this);
    m_corporate->setObjectName(QStringLiteral("txtHoujinNo"));
    m_corporate->setPlaceholderText(QStringLiteral("任意（13桁）"));
    form->addRow(QStringLiteral("Peppol ID"), m_peppol);
    form->addRow(QStringLiteral("法人番号"), m_corporate);
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
