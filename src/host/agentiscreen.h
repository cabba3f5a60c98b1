#pragma once

#include <QString>
#include <functional>
#include <memory>

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
};

using AgentiScreenFactory = std::function<std::unique_ptr<AgentiScreen>()>;

} // namespace tarvello::agenti
