#pragma once

#include <QString>
#include <memory>
#include <optional>

namespace tarvello::controls {
struct CellTextArgs;
struct NavigatorButtonArgs;
} // namespace tarvello::controls

namespace tarvello::agenti {

class FRMMG_AGENTI;
class GiriVisite;
class Maturazione;
class SociAgente;
class TentataVendita;

// The four details of the agent on view (partners, maturation days, van-sales data, route
// detail), each a record frame of the screen over a recordset the screen keeps open: how
// they follow the agent frame, and the answers to their frames', navigators' and grids'
// events.
class DettagliAgente {
public:
    explicit DettagliAgente(FRMMG_AGENTI& schermata);
    ~DettagliAgente();
    DettagliAgente(const DettagliAgente&) = delete;
    DettagliAgente& operator=(const DettagliAgente&) = delete;

    // Connects the handlers of the detail frames, navigators and grids; the load calls it
    // once the frames exist.
    void collega();

    // Loads the four details for the agent on view.
    void ShowChild();
    // Empties the four details.
    void ClearChild();
    // Gives the rows held the current agent's id and each frame its query for that agent.
    void RefreshChild();

    // A new partner row may be added; the setter also tells the partners' navigator.
    bool SociAggiungibili() const { return m_sociAggiungibili; }
    void setSociAggiungibili(bool aggiungibili);
    // Pushes SociAggiungibili into the new-row switch of the partners' navigator, which keeps
    // "Nuovo" available to the person while no number of partners is declared.
    void mostraSociAggiungibili();
    // With a declared number of partners, a partner may be added while fewer are held;
    // without one nothing changes.
    void ricalcolaSociAggiungibili();
    // The code of the route whose detail is on view, right-trimmed; empty when none.
    const QString& GiroCorrente() const;
    GiriVisite& giri() const { return *m_giri; }
    SociAgente& soci() const { return *m_soci; }
    TentataVendita& tentataVendita() const { return *m_tentataVendita; }
    // Lets the route list go; the screen's unload calls it.
    void TeminateElencoGiri();

private:
    void FME_GestAnagrafica2_AfterDelete();
    void FME_GestAnagrafica2_AfterUndo(int fenm_operationresult);
    void FME_GestAnagrafica2_ChangeStatus(int fenm_status);
    void FME_GestAnagrafica3_ChangeStatus(int fenm_status);
    void FME_GestAnagrafica2_UpdateBatchAll();
    // The batch save of maturation days and van-sales data; only the first has a grid.
    void salvaDettaglioSenzaNuovaRiga(int gestione);
    // Keys a new row of a detail to the company and the agent.
    void chiaveNuovaRiga(int gestione, int fenm_operationresult);
    void GRIDNAV_AGENTISOCI_BeforeButtonClick(controls::NavigatorButtonArgs& args);
    void GRIDNAV_AfterButtonClick(bool success, const QString& pulsante, const QString& fuoco);
    void GRID_AGENTIMAT_CellText(controls::CellTextArgs& args);
    // Whether the partners held are fewer than TXT_NUMSOCI says; none when it is empty (no
    // limit).
    std::optional<bool> sottoLimiteSoci() const;

    FRMMG_AGENTI& m_schermata;                        // Not owned: the screen owns this.
    std::unique_ptr<GiriVisite> m_giri;               // Owned.
    std::unique_ptr<SociAgente> m_soci;               // Owned.
    std::unique_ptr<Maturazione> m_maturazione;       // Owned.
    std::unique_ptr<TentataVendita> m_tentataVendita; // Owned.
    bool m_sociAggiungibili = false;
};

} // namespace tarvello::agenti
