#pragma once

namespace tarvello::agenti {

class FRMMG_AGENTI;

// The agent record on the screen: the answers to the agent frame's events (new, save, undo,
// delete, status, change query) and the identity and reference fields of the header and of
// the first page (code, registry name and search, supplier, type, reference agent, managers,
// typology).
class SchedaAgente {
public:
    explicit SchedaAgente(FRMMG_AGENTI& schermata);
    ~SchedaAgente();
    SchedaAgente(const SchedaAgente&) = delete;
    SchedaAgente& operator=(const SchedaAgente&) = delete;

    // Connects the handlers of the agent frame and of the fields; the load calls it once the
    // frames exist.
    void collega();

private:
    FRMMG_AGENTI& m_schermata; // Not owned: the screen owns this.
};

} // namespace tarvello::agenti
