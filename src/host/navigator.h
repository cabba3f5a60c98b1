#pragma once

#include "src/host/eventsource.h"

#include <QString>
#include <QtGlobal>

class QObject;

namespace tarvello::host {

class Cinterface;

// The host's export to an office document, offered to the active module before it runs.
class ExportToOffice {
public:
    virtual ~ExportToOffice() = default;
    virtual void setTitoloMaster(const QString& title) = 0;
};

// The host's layout object model: a module registers the objects whose layout the user may
// customise. The model may hand back a replacement for the object registered.
class LayoutObjectModel {
public:
    virtual ~LayoutObjectModel() = default;
    virtual void registerObject(QObject*& object, const QString& title) = 0;
};

// The host's script object model: a module registers the objects scripts may reach.
class ScriptObjectModel {
public:
    virtual ~ScriptObjectModel() = default;
    virtual void registerObject(const QString& name, QObject*& object, int kind,
                                const QString& caption) = 0;
};

// The navigator's script object, told when a module's screen opens and closes.
class NavigatorScript {
public:
    virtual ~NavigatorScript() = default;
    virtual void formEvent(const QString& formName, int kind, bool opening,
                           const QString& objectName) = 0;
    virtual void key(const QString& key) = 0;
};

// The events of the host navigator. Every subscribed module gets each event, active or not;
// by-reference arguments carry what the previous subscribers set.
class NavigatorEvents {
public:
    virtual void BeforeExportToOffice(ExportToOffice& /*Pcls_ExpToOffice*/) {}
    virtual void BeforeChangeDitta(bool& /*Cancel*/) {}
    virtual void ChangeDitta(qint32 /*company*/) {}
    virtual void InitializeLayoutObjectModel(LayoutObjectModel& /*ClsLayout*/) {}
    virtual void InitializeScriptObjectModel(ScriptObjectModel& /*ClsScript*/) {}
    // A cancel flag set True tells the host that the module did the button's work itself.
    virtual void ButtonPressed(bool& /*cancel*/, qint32 /*ButtonPress*/) {}

protected:
    ~NavigatorEvents() = default;
};

// The host's toolbar (ActiveNavigator), shared by all open modules.
class Navigator {
public:
    virtual ~Navigator() = default;

    virtual void registerModule(Cinterface* module) = 0;
    // The status of the active record frame: 0 browsing, 1 search, 2 new row.
    virtual void setFrameStatus(short status) = 0;
    virtual void refresh() = 0;
    // Brings the toolbar in line with the active module; called after a screen opens and
    // after another module returns.
    virtual void update() = 0;

    // None when the host runs no scripts.
    virtual NavigatorScript* scriptObject() const = 0;
    virtual void setScriptObject(NavigatorScript* script) = 0;
    virtual QObject* secondObject() const = 0;
    virtual void setSecondObject(QObject* object) = 0;

    virtual EventSource<NavigatorEvents>& events() = 0;
};

} // namespace tarvello::host
