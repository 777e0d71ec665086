#pragma once
// frmBumpa: the bumper screen. For the front and the rear bumper the user chooses the kind of
// work and the content, off-vehicle painting and condition additions; the screen shows each
// bumper's index sum and amount. It works on a copy of the kept bumper state: result() is the
// new state after OK, and Cancel leaves the estimate as it was.

#include "common/messages.h"
#include "common/paint_state.h"
#include "indices/bumper_calculation.h"
#include "indices/bumper_tables.h"
#include "uikit/guarded_dialog.h"

#include <QSqlDatabase>
#include <array>
#include <memory>

class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;

namespace est::indices {

class FrmBumpa : public ui::GuardedDialog
{
    Q_OBJECT
public:
    FrmBumpa(QSqlDatabase partDb, BumperSettings settings, const BumperState &kept, Messages &messages,
             QWidget *parent = nullptr);
    ~FrmBumpa() override;

    // The bumper state to keep, valid once the screen was closed with OK.
    const BumperState &result() const { return m_result; }

private:
    struct SideControls
    {
        QCheckBox *included = nullptr;
        QComboBox *work = nullptr;
        QComboBox *content = nullptr;
        std::array<QCheckBox *, 3> conditions{}; // Hyoj, Sima, Kizu
        QLineEdit *indexSum = nullptr;
        QLabel *amount = nullptr;
    };

    QGroupBox *buildSide(Side side, const QString &title, const char *prefix);
    void showState();
    void confirm();

    BumperTables m_tables;
    BumperCalculation m_calculation;
    BumperState m_result;
    std::array<SideControls, 2> m_sides;
    QCheckBox *m_offVehicle = nullptr;
    QLabel *m_offVehicleIndex = nullptr;
    QLabel *m_total = nullptr;
};

} // namespace est::indices
