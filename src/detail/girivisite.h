#pragma once

#include "platform/db/recordset.h"
#include "src/screen/controlliagenti.h"

#include <QObject>
#include <QPointer>
#include <QString>
#include <memory>

namespace tarvello::controls {
struct CellTextArgs;
struct DecodeArgs;
struct LookupArgs;
} // namespace tarvello::controls

namespace tarvello::frame {
class GestAnagrafica;
}

namespace tarvello::agenti {

class AmbienteAgenti;
class ClientiGiro;
class ControlloRigaGiro;
class OrdineGiro;
class RigheGiro;

// The page of the routes the agent visits: the list of the agent's routes (GRD_GIRI), the
// route on view (TXT_GIRO, GiroCorrente) and the customers of that route (GRD_DETTAGLIOGIRI
// over the route-detail frame FME_GestAnagrafica5).
class GiriVisite {
public:
    // The page's own controls and those of the parts it is made of (route rows, their order,
    // the customers brought in) come from `controlli`.
    GiriVisite(const ControlliAgenti& controlli, const QPointer<frame::GestAnagrafica>& agente,
               const QPointer<frame::GestAnagrafica>& dettaglio, const AmbienteAgenti& ambiente);
    ~GiriVisite();
    GiriVisite(const GiriVisite&) = delete;
    GiriVisite& operator=(const GiriVisite&) = delete;

    // Connects the route list, the route field and the route-detail frame.
    void collega();

    const QString& GiroCorrente() const { return m_giroCorrente; }
    // The route on view becomes the right-trimmed text of TXT_GIRO.
    void prendiGiroDalCampo();
    // Puts a route on view by code: TXT_GIRO shows it with its description, and it becomes
    // the route on view.
    void mostraGiro(const QString& codice);
    // The routes the agent has customers on; none before the first ImpostaElencoGiri.
    db::RecordsetPtr Grst_ElencoGiri() const { return m_elencoGiri; }

    // Before another route is put on view: customers entered on the route on view and not
    // yet saved would go with it, so the person chooses first, through the route-detail
    // frame's question, to save them with the agent, to drop them, or (false) to stay.
    bool LasciaGiroCorrente(const QString& nuovo);

    // Builds the route list of the agent on view and puts its first route on view.
    void ImpostaElencoGiri();
    // Lets the route list go.
    void TeminateElencoGiri();
    // Shows the route on view; aggiungiGiro lists it when the list lacks it.
    void Refresh_VF_MG1H(bool aggiungiGiro);
    // Reloads the customers of the route on view.
    void CaricaDettaglioGiro();
    void GRD_GIRI_Click();

    // The row check with its answer memory, the rows' fields and numbering, their order,
    // and the customers brought in from the host's customer list.
    ControlloRigaGiro& controllo() const { return *m_controllo; }
    RigheGiro& righe() const { return *m_righe; }
    OrdineGiro& ordine() const { return *m_ordine; }
    ClientiGiro& clienti() const { return *m_clienti; }

private:
    void TXT_GIRO_GotFocus();
    void TXT_GIRO_LostFocus();
    void TXT_GIRO_Decode(controls::DecodeArgs& args);
    void TXT_GIRO_Lookup(controls::LookupArgs& args);
    void FME_GestAnagrafica5_AfterAddNew(int fenm_operationresult);
    void FME_GestAnagrafica5_ChangeStatus(int fenm_status);
    void FME_GestAnagrafica5_UpdateBatchAll();
    void GRD_DETTAGLIOGIRI_CellText(controls::CellTextArgs& args);
    void aggiungiAlElenco();
    // Moves the route list to that route; false when it is not listed.
    bool posizionaElenco(const QString& giro);

    const ControlliGiriVisite m_controlli;
    // Not owned: the screen's places of the agents frame and of the route-detail frame.
    const QPointer<frame::GestAnagrafica>& m_agente;
    const QPointer<frame::GestAnagrafica>& m_dettaglio;
    const AmbienteAgenti& m_ambiente; // Not owned: the screen's.
    QString m_giroCorrente;
    db::RecordsetPtr m_elencoGiri;                  // Shared with GRD_GIRI while the grid shows it.
    std::unique_ptr<ControlloRigaGiro> m_controllo; // Owned.
    std::unique_ptr<RigheGiro> m_righe;             // Owned.
    std::unique_ptr<OrdineGiro> m_ordine;           // Owned.
    std::unique_ptr<ClientiGiro> m_clienti;         // Owned.
    // The handlers' connections end with this part.
    QObject m_contesto;
};

} // namespace tarvello::agenti
