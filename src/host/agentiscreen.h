#pragma once

#include <QString>
#include <QtGlobal>
#include <functional>
#include <memory>

class QObject;

namespace tarvello::host {
class Cinterface;
}

namespace tarvello::agenti {

class CLSMG_AGENTI;

// What CLSMG_AGENTI needs of its screen, FRMMG_AGENTI.
class AgentiScreen {
public:
    virtual ~AgentiScreen() = default;

    virtual void setActiveInterface(host::Cinterface* module) = 0;
    virtual void setActiveClass(CLSMG_AGENTI* module) = 0;
    // The first use of the screen's window: the screen loads here (its start-up runs).
    virtual void setWindowState(short state) = 0;
    virtual void setTitle(const QString& title) = 0;
    // Modal: returns once the screen has closed. Modeless: returns at once, the screen open.
    virtual void show(bool modal) = 0;

    // The host toolbar's moves, which walk the agents tree; a screen without one ignores them.
    virtual void PrimoAgente() {}
    virtual void PrecedenteRamoAgente() {}
    virtual void PreviousAgente() {}
    virtual void NextAgente() {}
    virtual void ProssimoRamoAgente() {}
    virtual void UltimoAgente() {}

    // The host is about to change company: the agent record frame settles its pending
    // changes, asking the person; false keeps the company (the person kept them).
    virtual bool ConfermaCambioDitta() { return true; }
    // The host changed company: the screen takes its code and shows the agent with the code
    // on view in that company, or no agent.
    virtual void CambiaDitta(qint32 /*ditta*/) {}
    // A message to the person through the screen's error log.
    virtual void MessaggioUtente(const QString& /*testo*/, int /*stile*/, const QString& /*titolo*/)
    {}
    // What the host's layout and script models may reach: the screen itself (empty name) or
    // one of its controls; none when there is no such object.
    virtual QObject* oggettoSchermata(const QString& /*nome*/) { return nullptr; }
};

using AgentiScreenFactory = std::function<std::unique_ptr<AgentiScreen>()>;

} // namespace tarvello::agenti
