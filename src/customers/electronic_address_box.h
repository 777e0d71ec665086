#pragma once
// The customer block's electronic invoice identifiers: Peppol ID (txtPeppol) and corporate
// number (txtHoujinNo), shown, checked and stored with the customer they belong to.

#include "customers/electronic_address.h"

#include <QObject>
#include <QSqlDatabase>
#include <optional>

class QGridLayout;
class QLineEdit;
class QWidget;

namespace est::customers {

class ElectronicAddressBox : public QObject
{
    Q_OBJECT
public:
    // Two captioned rows of `grid` from `row` on, in the columns of the block's other fields.
    ElectronicAddressBox(QWidget *block, QGridLayout *grid, int row);

    // Shows what is stored for the customer (nothing for an empty number).
    void load(const QSqlDatabase &database, const QString &kno);
    void setEditable(bool editable);
    // Why the typed identifiers cannot be stored, the field concerned focused; nothing when
    // they can.
    std::optional<QString> problem();
    // The typed identifiers, tidied.
    ElectronicAddress value() const;
    // Stores them for the customer; an error sentence, empty on success.
    QString store(const QSqlDatabase &database, const QString &kno);

private:
    QLineEdit *m_peppol;
    QLineEdit *m_corporate;
};

} // namespace est::customers
