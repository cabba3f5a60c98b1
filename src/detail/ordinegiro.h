#pragma once

namespace tarvello::agenti {

class FRMMG_AGENTI;

// Moves the selected customer of the route on view one place up or down: the selected row
// and its neighbour exchange every value but their position, so positions never collide,
// and the selection follows the customer. Nothing is written until the agent is saved.
class OrdineGiro {
public:
    explicit OrdineGiro(FRMMG_AGENTI& schermata);
    OrdineGiro(const OrdineGiro&) = delete;
    OrdineGiro& operator=(const OrdineGiro&) = delete;

    void collega();

    void CMD_UP_ButtonClick();
    void CMD_DOWN_ButtonClick();

private:
    enum class Verso { Su, Giu };
    void sposta(Verso verso);

    FRMMG_AGENTI& m_schermata; // Not owned: the screen owns this.
};

} // namespace tarvello::agenti
