#pragma once

#include "src/screen/controlliagenti.h"

#include <QObject>
#include <QPointer>

namespace tarvello::frame {
class GestAnagrafica;
}

namespace tarvello::agenti {

// Moves the selected customer of the route on view one place up or down: the selected row
// and its neighbour exchange every value but their position, so positions never collide,
// and the selection follows the customer. Nothing is written until the agent is saved.
class OrdineGiro {
public:
    OrdineGiro(const ControlliOrdineGiro& controlli,
               const QPointer<frame::GestAnagrafica>& dettaglio);
    OrdineGiro(const OrdineGiro&) = delete;
    OrdineGiro& operator=(const OrdineGiro&) = delete;

    void collega();

    void CMD_UP_ButtonClick();
    void CMD_DOWN_ButtonClick();

private:
    enum class Verso { Su, Giu };
    void sposta(Verso verso);

    const ControlliOrdineGiro m_controlli;
    // Not owned: the screen's place of the route-detail frame.
    const QPointer<frame::GestAnagrafica>& m_dettaglio;
    // The buttons' connections end with this part.
    QObject m_contesto;
};

} // namespace tarvello::agenti
