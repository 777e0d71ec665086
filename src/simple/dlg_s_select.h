#pragma once
// dlgSSelect: the simple estimate's work kind, optKH (1, キズ・ヘコミ修理) or optZP (2, パネル全面塗装).

#include "simple/easy_estimate_store.h"
#include "uikit/guarded_dialog.h"

#include <cstdint>

class QRadioButton;

namespace est::simple {

class DlgSSelect : public ui::GuardedDialog
{
    Q_OBJECT
public:
    // The work kind numbers of the two options.
    static constexpr std::int16_t kRepair = 1;  // optKH
    static constexpr std::int16_t kPanelPaint = 2; // optZP

    // `current` is the work kind in force; its option starts checked. The captions come from
    // M_TSKubun when `store` has them.
    DlgSSelect(Messages &messages, EasyEstimateStore *store, std::int16_t current, QWidget *parent = nullptr);

    // The work kind chosen (after OK).
    std::int16_t workKind() const { return m_kind; }

private:
    void confirm();

    QRadioButton *m_optKH, *m_optZP;
    std::int16_t m_kind = 0;
};

} // namespace est::simple
