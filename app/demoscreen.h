#pragma once

#include "platform/controls/connectionpool.h"
#include "platform/controls/eventargs.h"
#include "platform/db/connection.h"
#include "src/host/agentiscreen.h"
#include "src/host/navigator.h"

#include <QPointer>
#include <memory>

namespace tarvello::controls {
class Form;
class Grid;
class TreeGrid;
} // namespace tarvello::controls

namespace tarvello::frame {
class GestAnagrafica;
}

namespace tarvello::services {
class UserPrompts;
}

namespace tarvello::app {

// A demonstration screen standing in for the agents screen until it is built: it proves
// the whole stack, from the host opening the module to rows written in the database. It
// has its own connection; a record frame over the company's agents with code, registry
// link (decoded, with a lookup list), type, commission percentage (refused above 100) and
// two check boxes; a grid of the agents bound to the frame's recordset; the agents tree
// with its type pictures; a "go to agent" field decoding an agent's name; the inner
// navigator bar. It follows the host's company changes and refuses one (and its own
// closing) while the person keeps unsaved changes.
class DemoScreen final : public agenti::AgentiScreen, public host::NavigatorEvents {
public:
    static QString formName() { return QStringLiteral("FRMDEMO_AGENTI"); }

    explicit DemoScreen(services::UserPrompts& prompts);
    ~DemoScreen() override;
    DemoScreen(const DemoScreen&) = delete;
    DemoScreen& operator=(const DemoScreen&) = delete;

    void setActiveInterface(host::Cinterface* module) override { m_module = module; }
    void setActiveClass(agenti::CLSMG_AGENTI*) override {}
    void setWindowState(short state) override;
    void setTitle(const QString& title) override;
    void show(bool modal) override;

    void BeforeChangeDitta(bool& Cancel) override;
    void ChangeDitta(qint32 company) override;

    controls::Form* form() const { return m_form.get(); }

private:
    void load();
    void buildControls();
    void openFrame();
    void connectEvents();
    void connectRecord();
    void connectTree();
    void connectSearch();
    void connectRegistry();
    void decodeSearch(controls::DecodeArgs& args);
    void validateSearch(controls::CancelArgs& args);
    void decodeRegistry(controls::DecodeArgs& args);
    void validatePercentage(controls::CancelArgs& args);
    // Moves the frame's recordset to the first agent matching the criterion (the frame shows it).
    void showAgent(const QString& criterion);
    void activate();
    void unload();
    void loadTree();
    QString agentsSql() const;
    QString companyFilter() const;

    services::UserPrompts& m_prompts;     // Not owned.
    host::Cinterface* m_module = nullptr; // Not owned.
    db::Connection m_connection;
    // Where the screen's fields run their decodings: its own connection.
    controls::ConnectionPool m_connections;
    std::unique_ptr<controls::Form> m_form;
    QPointer<frame::GestAnagrafica> m_frame; // Not owned: a child of the form.
    host::Navigator* m_navigator = nullptr;  // Not owned: the host's, subscribed to while loaded.
    qint32 m_company = 0;
};

} // namespace tarvello::app
