#pragma once
// The simple estimate as the work item editor's 簡易見積 button starts it: with the vehicle
// classes chosen, straight to the price screen frmKani; otherwise, after asking, the work kind
// (dlgSSelect), the vehicle classes and colour (dlgCar) and then frmKani.

#include "common/messages.h"
#include "common/session.h"

#include <QString>
#include <optional>

class QWidget;

namespace est::simple {

class EasyEstimateStore;

class SimpleFlow
{
public:
    SimpleFlow(Session &session, Messages &messages, QString appFolder);

    // Runs the screens modally over `parent`; the entry the user confirmed in frmKani, or
    // empty when cancelled or when the unit prices cannot be read (reported).
    std::optional<SimpleEntry> run(QWidget *parent);

    // dlgSSelect, dlgCar and frmKani in turn; each OK stores its choice in the session.
    std::optional<SimpleEntry> chooseThenPrice(EasyEstimateStore &store, QWidget *parent);
    // dlgSSelect and dlgCar; false when either was cancelled.
    bool chooseClasses(EasyEstimateStore &store, QWidget *parent);

private:
    std::optional<SimpleEntry> price(EasyEstimateStore &store, QWidget *parent);

    Session &m_session;
    Messages &m_messages;
    QString m_appFolder;
};

} // namespace est::simple
