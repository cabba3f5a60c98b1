#pragma once

#include "src/screen/controlliagenti.h"
#include "src/screen/postigestioni.h"

#include <QObject>
#include <QString>
#include <QStringList>
#include <memory>
#include <optional>

namespace tarvello::controls {
class Control;
struct CellTextArgs;
struct NavigatorButtonArgs;
} // namespace tarvello::controls

namespace tarvello::frame {
class GestAnagrafica;
}

namespace tarvello::agenti {

class AmbienteAgenti;
class GiriVisite;
class Maturazione;
class PagineAgenti;
class SociAgente;
class TentataVendita;

// The four details of the agent on view (partners, maturation days, van-sales data, route
// detail), each a record frame of the screen over a recordset the screen keeps open: how
// they follow the agent frame, and the answers to their frames', navigators' and grids'
// events.
class DettagliAgente {
public:
    // The controls are those of every detail page, handed on to the part of each page.
    DettagliAgente(const ControlliAgenti& controlli, const PostiGestioni& gestioni,
                   PagineAgenti& pagine, const QStringList& tipiEffetti,
                   const AmbienteAgenti& ambiente);
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
    void GRIDNAV_AfterButtonClick(bool success, const QString& pulsante, controls::Control& fuoco);
    void GRID_AGENTIMAT_CellText(controls::CellTextArgs& args);
    // Whether the partners held are fewer than TXT_NUMSOCI says; none when it is empty (no
    // limit).
    std::optional<bool> sottoLimiteSoci() const;
    // A detail's record frame; a run-time error while the screen has none.
    frame::GestAnagrafica& gestioneDi(int numero) const;
    // The agents frame; none while the screen has none.
    const frame::GestAnagrafica* agenti() const;

    const ControlliDettagli m_controlli;
    const PostiGestioni& m_gestioni; // Not owned: the screen's.
    PagineAgenti& m_pagine;          // Not owned: the screen's.
    // Not owned: the screen's payment-type names, filled at load.
    const QStringList& m_tipiEffetti;
    const AmbienteAgenti& m_ambiente;                 // Not owned: the screen's.
    std::unique_ptr<GiriVisite> m_giri;               // Owned.
    std::unique_ptr<SociAgente> m_soci;               // Owned.
    std::unique_ptr<Maturazione> m_maturazione;       // Owned.
    std::unique_ptr<TentataVendita> m_tentataVendita; // Owned.
    bool m_sociAggiungibili = false;
    // The handlers' connections end with this part.
    QObject m_contesto;
};

} // namespace tarvello::agenti
