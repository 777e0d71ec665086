#pragma once
// dlgRato: the labour rate (yen per index point) and the shop's rounding of labour amounts.

#include "common/session.h"
#include "uikit/guarded_dialog.h"

#include <functional>

class QButtonGroup;
class QLineEdit;

namespace est::workitems {

class DlgRato : public ui::GuardedDialog
{
    Q_OBJECT
public:
    // `chooseCatalogue` opens dlgCarType; it runs when no catalogue has been chosen yet.
    DlgRato(Session &session, Messages &messages, std::function<void()> chooseCatalogue,
            QWidget *parent = nullptr);

private:
    void digitsChosen(int index);
    void confirm();

    Session &m_session;
    std::function<void()> m_chooseCatalogue;
    QLineEdit *m_rate;
    QButtonGroup *m_digits;
    QButtonGroup *m_mode;
};

} // namespace est::workitems
