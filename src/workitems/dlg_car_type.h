#pragma once
// dlgCarType: chooses the maker and vehicle type of the parts catalogue from the register.

#include "common/session.h"
#include "uikit/guarded_dialog.h"
#include "workitems/catalogue.h"

class QLabel;
class QListWidget;
class QPushButton;

namespace est::workitems {

class DlgCarType : public ui::GuardedDialog
{
    Q_OBJECT
public:
    DlgCarType(Session &session, Messages &messages, const CatalogueConnections &connections,
               QWidget *parent = nullptr);

private:
    void updateChoice();
    void confirm();

    Session &m_session;
    QList<Maker> m_makers;
    QList<VehicleType> m_types;
    QListWidget *m_makerList;
    QListWidget *m_typeList;
    QLabel *m_makerLabel;
    QLabel *m_typeLabel;
    QPushButton *m_ok;
};

} // namespace est::workitems
