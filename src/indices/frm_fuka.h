#pragma once
// frmFuka: the additional-index screen. Six extra paint jobs of the vehicle, each priced from
// its table at the paint labour rate. It works on a copy of the kept additional state:
// result() is the new state after OK, and Cancel leaves the estimate as it was.

#include "common/messages.h"
#include "common/paint_state.h"
#include "indices/additional_calculation.h"
#include "indices/additional_tables.h"
#include "uikit/guarded_dialog.h"

#include <QSqlDatabase>
#include <array>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;

namespace est::indices {

struct FukaSettings
{
    std::int16_t paintRate = 0;
    workitems::Rounding rounding;
    std::array<QString, 5> labels; // lbl1 to lbl5
};

class FrmFuka : public ui::GuardedDialog
{
    Q_OBJECT
public:
    // The screen cannot price anything without a paint labour rate: false after telling the
    // user so, and the screen is then not shown.
    static bool rateIsSet(std::int16_t paintRate, Messages &messages);

    FrmFuka(QSqlDatabase partDb, FukaSettings settings, const AdditionalState &kept, Messages &messages,
            QWidget *parent = nullptr);

    // The additional state to keep, valid once the screen was closed with OK.
    const AdditionalState &result() const { return m_result; }

private:
    void showState();
    void confirm();

    AdditionalTables m_tables;
    AdditionalCalculation m_calculation;
    AdditionalState m_result;
    QComboBox *m_tone = nullptr;
    QComboBox *m_panels = nullptr;
    QComboBox *m_sash = nullptr;
    QComboBox *m_stripe = nullptr;
    QLineEdit *m_sealing = nullptr;
    QLineEdit *m_wax = nullptr;
    QCheckBox *m_booth = nullptr;
    std::array<QLabel *, kAdditionalItems> m_indices{};
    std::array<QLabel *, kAdditionalItems> m_amounts{};
    QLabel *m_total = nullptr;
};

} // namespace est::indices
