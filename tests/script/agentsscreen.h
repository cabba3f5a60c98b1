#pragma once

#include "platform/controls/connectionpool.h"
#include "platform/controls/control.h"
#include "platform/controls/form.h"
#include "platform/db/connection.h"
#include "platform/db/recordset.h"
#include "src/host/agentiscreen.h"
#include "src/host/navigator.h"

#include <memory>

namespace tarvello::controls {
class TreeGrid;
}

namespace tarvello::frame {
class GestAnagrafica;
}

namespace tarvello::host {
class ErrorLog;
}

namespace tarvello::services {
class HostContext;
class UserPrompts;
} // namespace tarvello::services

namespace tarvello::test {

// A small agents screen for the runner's tests, built the way the real one is hosted: it
// opens its own connection at load and publishes it, its agent record frame
// FME_GestAnagrafica1 sits on the form and is the module's ActiveFrame, and a modal show
// waits until the form is unloaded. Its controls cover every kind the scenario commands
// drive: the agent code (its extra menu item searches the general registry for an agent), a
// code field decoding a registry name (with a lookup list and a management key),
// a list, a check box, a numeric field refusing more than 100 with a message, a button
// asking a question, the tab strip TAB_AGENTI, a menu button, the agents tree GRD_AGENTI
// with a collapse picture, and INTERNAV, whose "Avanti" hands the agent back to a caller.
class AgentsTestScreen final : public agenti::AgentiScreen, public host::NavigatorEvents {
public:
    explicit AgentsTestScreen(services::UserPrompts& prompts);
    ~AgentsTestScreen() override;

    void setActiveInterface(host::Cinterface* module) override { m_module = module; }
    void setActiveClass(agenti::CLSMG_AGENTI* module) override { m_class = module; }
    void setWindowState(short state) override;
    void setTitle(const QString& title) override { m_form.setCaption(title); }
    void show(bool modal) override;

    void BeforeChangeDitta(bool& Cancel) override;
    void ChangeDitta(qint32 company) override;

    // Registers the module with these screens under the agents module's identifier.
    static void registerWith(services::HostContext& host);

private:
    void load();
    void createControls();
    void openAgents();
    void activated();
    void loadTree();
    void showAgent(const QString& code);
    QString agentsSql() const;

    services::UserPrompts& m_prompts;        // Not owned.
    host::Cinterface* m_module = nullptr;    // Not owned.
    agenti::CLSMG_AGENTI* m_class = nullptr; // Not owned.
    host::Navigator* m_navigator = nullptr;  // Not owned: its events reach this screen.
    // First: the recordsets, frames and form below refer to it.
    db::Connection m_connection;
    controls::ConnectionPool m_connections;
    std::unique_ptr<host::ErrorLog> m_log; // Owned.
    controls::Form m_form{QStringLiteral("FRMTEST_AGENTI")};
    frame::GestAnagrafica* m_agents = nullptr; // Owned by the form.
    controls::TreeGrid* m_tree = nullptr;      // Owned by the form.
    db::RecordsetPtr m_treeRows;
    bool m_loaded = false;
    bool m_activatedBefore = false;
};

} // namespace tarvello::test
