#pragma once

#include "platform/db/value.h"
#include "platform/frame/frameeventargs.h"
#include "src/screen/controlliagenti.h"
#include "src/screen/postigestioni.h"

#include <QObject>
#include <QPointer>
#include <QSet>
#include <QString>
#include <QtGlobal>
#include <memory>

namespace tarvello::controls {
class ConnectionPool;
struct CancelArgs;
struct DecodeArgs;
struct KeyArgs;
struct LookupArgs;
class DataControl;
class Field;
class Form;
} // namespace tarvello::controls

namespace tarvello::frame {
class GestAnagrafica;
struct CancelArgs;
struct RecordChangedArgs;
} // namespace tarvello::frame

namespace tarvello::host {
class ErrorLog;
class LookupDecoder;
} // namespace tarvello::host

namespace tarvello::agenti {

class AlberoAgenti;
class AmbienteAgenti;
class DettagliAgente;
class GestioniCollegate;
class Provvigioni;

// The screen's other parts the agent record drives: the tree, rebuilt after a save or a
// delete; the details, shown, refreshed and cleared with the agent; the linked managements,
// which the registry field opens; the commission page, which names the priority table. The
// last two are made after this part, so they come as their places.
struct PartiScheda {
    AlberoAgenti& albero;
    DettagliAgente& dettagli;
    const std::unique_ptr<GestioniCollegate>& collegate;
    const std::unique_ptr<Provvigioni>& provvigioni;
};

// The agent record on the screen: the answers to the agent frame's events (new, save, undo,
// delete, status, change query) and the identity and reference fields of the header and of
// the first page (code, registry name and search, supplier, type, reference agent, managers,
// typology).
class SchedaAgente {
public:
    // The window lends its lookups the screen's connection and says when it unloads; the log
    // is the screen's place of the host's message operation, filled at load.
    SchedaAgente(const ControlliIdentitaAgente& campi, const ControlliRecordAgente& record,
                 const PostiGestioni& gestioni, const PartiScheda& parti, controls::Form& finestra,
                 const std::unique_ptr<host::ErrorLog>& log, const AmbienteAgenti& ambiente);
    ~SchedaAgente();
    SchedaAgente(const SchedaAgente&) = delete;
    SchedaAgente& operator=(const SchedaAgente&) = delete;

    // Connects the handlers of the agent frame and of the fields; the load calls it once the
    // frames exist.
    void collega();

    // The agent frame's status when the last save began.
    frame::FrameStatus StatoSalvataggio() const { return m_statoSalvataggio; }
    // The reference agent was last validated to the end: the next save rebuilds the tree.
    bool AgenteRifVariato() const { return m_agenteRifVariato; }
    qint32 UltimoIdAgeRif() const { return m_ultimoIdAgeRif; }
    qint32 UltimoIdCapoArea() const { return m_ultimoIdCapoArea; }
    qint32 UltimoIdCapoZona() const { return m_ultimoIdCapoZona; }
    short TipoAgentePrecedente() const { return m_tipoAgentePrecedente; }
    // The answer to the question asked when the Enter key's search chose nothing (6 yes, 7 no).
    short RispostaNuovaAnagrafica() const { return m_rispostaNuovaAnagrafica; }

    // Some agent of the company has this one as its reference agent.
    bool Esistefiglio(qint32 id);
    // Rows of other modules' documents name this agent.
    bool AgenteUtilizzato(qint32 id);
    // The area and zone managers derived from the reference agent and the type.
    void AggiornaCapiAreaZona();
    // The reference agent typed would make the hierarchy go round in a circle.
    bool VerificaRiferimentoCircolare();
    // The general-registry search behind TXT_RAGSOANAG, in the mode set.
    void RicercaAnagrafiche();

    // The agent frame's current row, added first when a new agent has none yet.
    db::Value valoreAgente(const QString& colonna) const;
    void scriviAgente(const QString& colonna, const db::Value& valore);

private:
    void FME_GestAnagrafica1_AfterAddNew(int fenm_operationresult);
    void FME_GestAnagrafica1_AfterDelete(int fenm_operationresult);
    void FME_GestAnagrafica1_AfterUndo(int fenm_operationresult);
    void FME_GestAnagrafica1_AfterUpdate(int fenm_operationresult);
    void FME_GestAnagrafica1_BeforeDelete(frame::CancelArgs& args);
    void FME_GestAnagrafica1_BeforeUpdate(frame::CancelArgs& args);
    void FME_GestAnagrafica1_ChangeStatus(int fenm_status, int fenm_reason);
    void FME_GestAnagrafica1_IsRecordChanged(frame::RecordChangedArgs& args);

    void TXT_AGENTE_Validate();
    void TXT_RAGSOANAG_KeyDown(const controls::KeyArgs& args);
    void TXT_RAGSOANAG_Validate(controls::CancelArgs& args);
    void TXT_RAGSOANAG_LostFocus();
    void TXT_RAGSOANAG_Gestione(const QString& chiave);
    void CBO_TIPOAGENTE_Click(const db::Value& tipo);
    void CBO_TIPOAGENTE_LostFocus();
    void TXT_CAPOZONA_Validate(controls::CancelArgs& args);
    void TXT_AGERIFVIDEO1_Validate();
    void TXT_AGERIF_Validate();
    void collegaDecodifiche();
    // The decodings answered here run on the screen's own connection from its load on, before
    // any window of the host adopts the screen.
    void fornisciConnessione();
    void rilasciaConnessione();
    // The lists and decodings of the identity and reference fields.
    void collegaListe();
    void rispondiLista(controls::Field& campo, controls::LookupArgs& args,
                       host::LookupDecoder* decodificatore, const QString& definizione) const;
    // Answers a decoding through a host definition; a code that must be a number and is not
    // is refused before any statement is sent.
    void rispondiDecodifica(controls::Field& campo, controls::DecodeArgs& args,
                            host::LookupDecoder* decodificatore, const QString& definizione,
                            controls::DataControl& descrizione, bool numerico) const;
    void rispondiDecodificaRiferimento(controls::Field& campo, controls::DecodeArgs& args,
                                       bool perId) const;

    // The steps of the save, before the frame writes the row.
    void controllaSoci();
    void scriviCampiNonLegati();
    void controllaFornitore(frame::CancelArgs& args);
    void mostraCampiNonLegati();
    // Keeps a manager's last id in step with its field; empties a field holding 0.
    void seguiId(controls::Field& campo, qint32& ultimo, controls::Field* codice);

    bool BooRicercaAvanti(qint32 id, qint32 se, QSet<qint32>& visti);
    bool BooRicercaIndietro(qint32 id, qint32 se, QSet<qint32>& visti);
    // Marks both reference fields valid, or both not valid saying why.
    void segnaRiferimento(bool valido, const QString& motivo = {});

    // The record frame of that number at the moment; none before the load or after the unload.
    frame::GestAnagrafica* FME_GestAnagrafica(int numero) const;
    frame::GestAnagrafica& gestione(int numero) const;
    // The host's message operation; its answer. A run-time error while the screen has no log.
    int messaggio(const QString& testo, int stile, const QString& titolo) const;

    const ControlliIdentitaAgente m_campi;
    const ControlliRecordAgente m_record;
    const PostiGestioni& m_gestioni;              // Not owned: the screen's.
    const PartiScheda m_parti;                    // Not owned: the screen's.
    controls::Form& m_finestra;                   // Not owned: the screen.
    const std::unique_ptr<host::ErrorLog>& m_log; // Not owned: the screen's.
    const AmbienteAgenti& m_ambiente;             // Not owned: the screen's.
    frame::FrameStatus m_statoSalvataggio = frame::FrameStatus::Browse;
    bool m_agenteRifVariato = false;
    qint32 m_ultimoIdAgeRif = 0;
    qint32 m_ultimoIdCapoArea = 0;
    qint32 m_ultimoIdCapoZona = 0;
    short m_tipoAgentePrecedente = 0;
    bool m_invioSuRagSoc = false;
    short m_modoRicercaAnagrafiche = 0;
    short m_ricercaDaInvio = 0;
    short m_rispostaNuovaAnagrafica = 7;
    std::unique_ptr<controls::ConnectionPool> m_connessioni; // Owned; lent to the form.
    // The handlers' connections end with this part.
    QObject m_contesto;
};

} // namespace tarvello::agenti
