#pragma once
// The catalogue the estimate works with: the shared register and catalogue connections and
// the maker / vehicle-type choice kept in the session. OpenCatalogueDb lives here because it
// may have to ask the user for a maker first.

#include "common/messages.h"
#include "common/session.h"
#include "workitems/catalogue.h"

#include <QString>
#include <memory>

class QWidget;

namespace est::workitems {

class CatalogueChoice
{
public:
    CatalogueChoice(Session &session, Messages &messages, QString appFolder);

    CatalogueConnections &connections() { return m_connections; }
    Session &session() { return m_session; }
    Messages &messages() { return m_messages; }

    // OpenCarSetDb: the register; an error is told to the user. True when open.
    bool openCarSetDb();

    // OpenCatalogueDb: opens the chosen maker's catalogue. With no maker chosen it says so and
    // lets the user choose maker and vehicle type in dlgCarType over `parent`, then opens that
    // choice. A missing catalogue file is reported; true when a catalogue is open.
    bool openCatalogueDb(QWidget *parent);

    // dlgCarType, modal over `parent`: true when the user confirmed a choice.
    bool chooseCarType(QWidget *parent);

    // The chosen vehicle type's table of the open catalogue; a missing one is reported and
    // gives nothing, so the lists stay empty.
    std::unique_ptr<CatalogueTable> currentTable();

private:
    Session &m_session;
    Messages &m_messages;
    CatalogueConnections m_connections;
};

} // namespace est::workitems
