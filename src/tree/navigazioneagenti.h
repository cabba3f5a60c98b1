#pragma once

namespace tarvello::agenti {

class FRMMG_AGENTI;

// The walk from agent to agent: the host toolbar's moves over the tree recordset, and the
// screen's inner navigator INTERNAV (pages, printouts, hand-back to a calling program, new).
class NavigazioneAgenti {
public:
    explicit NavigazioneAgenti(FRMMG_AGENTI& schermata);
    ~NavigazioneAgenti();
    NavigazioneAgenti(const NavigazioneAgenti&) = delete;
    NavigazioneAgenti& operator=(const NavigazioneAgenti&) = delete;

    // Connects the handlers of INTERNAV and of the tree; the load calls it.
    void collega();

    void PrimoAgente();
    void PrecedenteRamoAgente();
    void PreviousAgente();
    void NextAgente();
    void ProssimoRamoAgente();
    void UltimoAgente();

private:
    FRMMG_AGENTI& m_schermata; // Not owned: the screen owns this.
};

} // namespace tarvello::agenti
