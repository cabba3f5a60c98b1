#pragma once

#include "platform/services/frameactions.h"
#include "platform/services/objectmodels.h"
#include "src/host/globalcontext.h"
#include "src/host/navigator.h"

#include <QList>
#include <QPointer>

namespace tarvello::services {

class HostContext;

// The host's toolbar, shared by every open module. A press reaches every subscribed module
// first (ButtonPressed); when none of them takes it over, the toolbar acts on the record
// frame of the active module itself. The frame buttons follow the frame's status, as the
// active module last reported it and refreshed.
class HostNavigator final : public host::Navigator {
public:
    // The buttons by the numbers modules see in ButtonPressed.
    enum Button : qint32 {
        New = 1,
        Save = 2,
        Undo = 3,
        Delete = 4,
        Search = 5,
        First = 11,
        PreviousBranch = 12,
        Previous = 13,
        Next = 15,
        NextBranch = 16,
        Last = 17,
        Multimedia = 25,
    };

    enum class Press {
        Disabled,  // the button was not enabled: nothing happened
        Refused,   // the field with the focus would not let go of its value, or a module's
                   // handler failed and the person abandoned the press: nothing happened
        TakenOver, // a module set the cancel flag: it did the button's work itself
        Done,      // the toolbar did its own work, if it has any for the button
    };

    explicit HostNavigator(HostContext& context);
    HostNavigator(const HostNavigator&) = delete;
    HostNavigator& operator=(const HostNavigator&) = delete;

    void registerModule(host::Cinterface* module) override;
    void setFrameStatus(short status) override { m_status = status; }
    void refresh() override { m_shownStatus = m_status; }
    void update() override;
    host::NavigatorScript* scriptObject() const override { return m_script; }
    void setScriptObject(host::NavigatorScript* script) override { m_script = script; }
    QObject* secondObject() const override { return m_secondObject; }
    void setSecondObject(QObject* object) override { m_secondObject = object; }
    host::EventSource<host::NavigatorEvents>& events() override { return m_events; }

    Press press(qint32 button);
    // The host changes company: refused when a module cancels its BeforeChangeDitta;
    // otherwise the context takes the company and every module hears ChangeDitta.
    bool changeCompany(const host::Company& company);
    // The title the modules give an export to an office document.
    QString exportToOffice();
    void initializeLayoutObjectModel(ObjectModel& layout);
    void initializeScriptObjectModel(ObjectModel& script);

    bool isEnabled(qint32 button) const;
    // The frame status the buttons show.
    short shownStatus() const { return m_shownStatus; }
    bool isRegistered(const host::Cinterface* module) const { return m_modules.contains(module); }
    // The log of the script object the toolbar starts with.
    const ScriptLog& scriptLog() const { return m_scriptLog; }

private:
    FrameActions* activeFrame() const;
    // Raises an event to every module. A run-time error that one module's handler lets escape
    // is reported as that module's (through its screen) and the others still hear the event;
    // true when the person chose to abandon what the event was for.
    template <class... Params, class... Args>
    bool raiseToModules(const char* event, void (host::NavigatorEvents::*handler)(Params...),
                        Args&&... args);
    // The active screen's field with the focus lets go of its value, as leaving it would.
    bool focusLetsGo(qint32 button) const;
    void act(qint32 button);

    HostContext& m_context; // Not owned.
    host::EventSource<host::NavigatorEvents> m_events;
    QList<const host::Cinterface*> m_modules; // Not owned: only compared.
    short m_status = 0;
    short m_shownStatus = 0;
    ScriptLog m_scriptLog;
    host::NavigatorScript* m_script = &m_scriptLog; // Not owned.
    QPointer<QObject> m_secondObject;               // Not owned.
};

} // namespace tarvello::services
