#pragma once
// dlgCar: vehicle class A, vehicle class B and colour class of the simple estimate. Each list
// is narrowed by the choice before it, so only combinations with a unit price are offered.

#include "common/simple_state.h"
#include "simple/easy_estimate_store.h"
#include "uikit/guarded_dialog.h"

class QListWidget;

namespace est::simple {

class DlgCar : public ui::GuardedDialog
{
    Q_OBJECT
public:
    // Lists the classes for `state.workKind`; the classes of `state` start chosen when offered.
    DlgCar(Messages &messages, EasyEstimateStore &store, const SimpleEstimateState &state, QWidget *parent = nullptr);

    // The work kind with the three classes chosen (after OK).
    const SimpleEstimateState &state() const { return m_state; }

private:
    void classAChosen();
    void classBChosen();
    void confirm();

    EasyEstimateStore &m_store;
    SimpleEstimateState m_state;
    QListWidget *m_dlstSKA, *m_dlstSKB, *m_dlstColor;
};

} // namespace est::simple
