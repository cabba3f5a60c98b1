#include "src/screen/schedaagente.h"

#include "platform/controls/combobox.h"
#include "platform/controls/connectionpool.h"
#include "platform/controls/field.h"
#include "platform/controls/form.h"
#include "platform/controls/gridnavigator.h"
#include "platform/controls/tabstrip.h"
#include "platform/db/connection.h"
#include "platform/db/runtimeerror.h"
#include "platform/frame/gestanagrafica.h"
#include "src/common/errorstyles.h"
#include "src/common/valuehelpers.h"
#include "src/data/sqlagenti.h"
#include "src/detail/dettagliagente.h"
#include "src/host/errorlog.h"
#include "src/host/globalcontext.h"
#include "src/host/messagecatalogue.h"
#include "src/screen/ambienteagenti.h"
#include "src/screen/codiciagente.h"
#include "src/screen/provvigioni.h"
#include "src/tree/alberoagenti.h"

namespace tarvello::agenti {

namespace {

using frame::GestAnagrafica;

constexpr int MessaggioAgenteInUso = 42157;
const QString TitoloEliminazione = QStringLiteral("Eliminazione impossibile");
const QString TitoloAttenzione = QStringLiteral("Attenzione");

// The four detail frames in the order they are saved, with the column that names their agent.
struct Dettaglio {
    int gestione;
    const char* colonnaAgente;
};
constexpr Dettaglio dettagli[] = {
    {gestioni::Soci, "MG18_IDAGENTE_MG17"},
    {gestioni::Maturazione, "MG16_IDAGENTE_MG17"},
    {gestioni::TentataVendita, "MG34_IDAGENTE_MG17"},
    {gestioni::DettaglioGiri, "MG1I_IDAGENTE_MG17"},
};

bool inSospeso(const GestAnagrafica& gestione)
{
    return gestione.changeFlag() || gestione.secondChangeFlag();
}

// Settles a detail frame's pending changes the way a save asks for: checked, shown again,
// without asking the person.
void confermaDettaglio(GestAnagrafica& gestione, frame::CancelArgs& args)
{
    if (!gestione.confirmPendingChanges({.check = true, .show = true}))
        args.fbol_Cancel = true;
}

// Gives the new agent's id to every row a detail frame holds that has no agent yet.
void assegnaAgente(GestAnagrafica& gestione, const QString& colonna, const db::Value& id)
{
    const db::RecordsetPtr righe = gestione.recordset();
    if (!righe || !righe->isOpen())
        return;
    const GestAnagrafica::BulkRewrite riscrittura(gestione);
    const db::RecordsetPtr tutte = righe->clone();
    for (tutte->moveFirst(); !tutte->eof(); tutte->moveNext()) {
        const std::optional<qint64> attuale = NumeroIntero(tutte->value(colonna));
        if (attuale && *attuale != 0)
            continue;
        tutte->setValue(colonna, id);
        tutte->update();
    }
}

db::Value nulloOppure(bool nullo, const db::Value& valore)
{
    return nullo ? db::Value::null() : valore;
}

// The three identifiers of the composite table, each with the column of the row it shows.
struct Identificatore {
    controls::ComboBox& lista;
    QString colonna;
};

std::array<Identificatore, 3> identificatori(const ControlliRecordAgente& record)
{
    return {{
        {record.CBO_IDENTIFTAB, QStringLiteral("MG17_IDENTIFTAB")},
        {record.CBO_IDENTIFRIGA, QStringLiteral("MG17_IDENTIFRIGA")},
        {record.CBO_IDENTIFCOL, QStringLiteral("MG17_IDENTIFCOL")},
    }};
}

} // namespace

SchedaAgente::SchedaAgente(const ControlliIdentitaAgente& campi,
                           const ControlliRecordAgente& record, const PostiGestioni& gestioni,
                           const PartiScheda& parti, controls::Form& finestra,
                           const std::unique_ptr<host::ErrorLog>& log,
                           const AmbienteAgenti& ambiente)
    : m_campi(campi)
    , m_record(record)
    , m_gestioni(gestioni)
    , m_parti(parti)
    , m_finestra(finestra)
    , m_log(log)
    , m_ambiente(ambiente)
{}

SchedaAgente::~SchedaAgente()
{
    rilasciaConnessione();
}

void SchedaAgente::fornisciConnessione()
{
    db::Connection* connessione = m_ambiente.Gcon_Connect();
    if (m_finestra.connectionSource() || !connessione)
        return;
    m_connessioni = std::make_unique<controls::ConnectionPool>();
    m_connessioni->add(*connessione);
    m_finestra.setConnectionSource(m_connessioni.get());
}

void SchedaAgente::rilasciaConnessione()
{
    if (m_connessioni && m_finestra.connectionSource() == m_connessioni.get())
        m_finestra.setConnectionSource(nullptr);
    m_connessioni.reset();
}

GestAnagrafica* SchedaAgente::FME_GestAnagrafica(int numero) const
{
    return m_gestioni.at(numero - 1);
}

GestAnagrafica& SchedaAgente::gestione(int numero) const
{
    GestAnagrafica* trovata = FME_GestAnagrafica(numero);
    if (!trovata)
        throw db::RuntimeError(db::RuntimeError::ObjectRequired, QStringLiteral("Object required"),
                               QStringLiteral("FME_GestAnagrafica%1").arg(numero));
    return *trovata;
}

int SchedaAgente::messaggio(const QString& testo, int stile, const QString& titolo) const
{
    if (!m_log)
        throw db::RuntimeError(db::RuntimeError::ObjectRequired, QStringLiteral("Object required"),
                               QStringLiteral("Gcls_Log"));
    return m_log->message(testo, stile, titolo);
}

db::Value SchedaAgente::valoreAgente(const QString& colonna) const
{
    return gestione(gestioni::Agenti).readColumn(colonna);
}

void SchedaAgente::scriviAgente(const QString& colonna, const db::Value& valore)
{
    GestAnagrafica& agente = gestione(gestioni::Agenti);
    db::RecordsetPtr agenti = agente.recordset();
    // A new agent keyed by nothing yet has no row: it is added now, so that code can write.
    if (agente.status() == frame::FrameStatus::New && agenti && (agenti->bof() || agenti->eof())) {
        agente.setStatus(frame::FrameStatus::New);
        agenti = agente.recordset();
    }
    if (!agenti)
        throw db::RuntimeError(db::RuntimeError::ObjectRequired, QStringLiteral("Object required"),
                               QStringLiteral("Grst_GestAnagrafica1"));
    agente.writeColumn(colonna, valore);
}

void SchedaAgente::collega()
{
    GestAnagrafica& agente = gestione(gestioni::Agenti);
    QObject* contesto = &m_contesto;
    QObject::connect(&agente, &GestAnagrafica::AfterAddNew, contesto,
                     [this](int esito) { FME_GestAnagrafica1_AfterAddNew(esito); });
    QObject::connect(&agente, &GestAnagrafica::AfterDelete, contesto,
                     [this](int esito) { FME_GestAnagrafica1_AfterDelete(esito); });
    QObject::connect(&agente, &GestAnagrafica::AfterUndo, contesto,
                     [this](int esito) { FME_GestAnagrafica1_AfterUndo(esito); });
    QObject::connect(&agente, &GestAnagrafica::AfterUpdate, contesto,
                     [this](int esito) { FME_GestAnagrafica1_AfterUpdate(esito); });
    QObject::connect(&agente, &GestAnagrafica::BeforeDelete, contesto,
                     [this](frame::CancelArgs& args) { FME_GestAnagrafica1_BeforeDelete(args); });
    QObject::connect(&agente, &GestAnagrafica::BeforeUpdate, contesto,
                     [this](frame::CancelArgs& args) { FME_GestAnagrafica1_BeforeUpdate(args); });
    QObject::connect(
        &agente, &GestAnagrafica::ChangeStatus, contesto,
        [this](int stato, int motivo) { FME_GestAnagrafica1_ChangeStatus(stato, motivo); });
    QObject::connect(
        &agente, &GestAnagrafica::IsRecordChanged, contesto,
        [this](frame::RecordChangedArgs& args) { FME_GestAnagrafica1_IsRecordChanged(args); });
    collegaDecodifiche();
    fornisciConnessione();
    // The connection goes at unload: the pool must not outlive it.
    QObject::connect(&m_finestra, &controls::Form::unloaded, contesto,
                     [this] { rilasciaConnessione(); });
}

void SchedaAgente::FME_GestAnagrafica1_AfterAddNew(int fenm_operationresult)
{
    if (fenm_operationresult != frame::OperationSucceeded)
        return;
    scriviAgente(QStringLiteral("MG17_DITTA_CG18"), m_ambiente.Codice_Ditta());
}

void SchedaAgente::FME_GestAnagrafica1_AfterDelete(int fenm_operationresult)
{
    if (fenm_operationresult != frame::OperationSucceeded)
        return;
    m_parti.albero.CaricaTabTreeview();
    m_parti.albero.CaricaAlberoAgenti();
}

void SchedaAgente::FME_GestAnagrafica1_AfterUndo(int fenm_operationresult)
{
    GestAnagrafica& soci = gestione(gestioni::Soci);
    if (fenm_operationresult == frame::OperationSucceeded) {
        soci.detach();
        if (const db::RecordsetPtr righe = soci.recordset())
            righe->requery();
        soci.refresh(QString());
    }
    m_parti.dettagli.ricalcolaSociAggiungibili();
}

void SchedaAgente::FME_GestAnagrafica1_AfterUpdate(int fenm_operationresult)
{
    if (fenm_operationresult != frame::OperationSucceeded)
        return;
    db::Value id;
    ignoreEachStep({[&] { id = valoreAgente(QStringLiteral("MG17_IDAGENTE")); }});
    for (const Dettaglio& dettaglio : dettagli) {
        ignoreEachStep({[&] {
            assegnaAgente(gestione(dettaglio.gestione),
                          QString::fromLatin1(dettaglio.colonnaAgente), id);
        }});
    }
    for (const Dettaglio& dettaglio : dettagli)
        ignoreEachStep({[&] { gestione(dettaglio.gestione).updateBatch(); }});
    ignoreEachStep({[&] {
        if (m_statoSalvataggio == frame::FrameStatus::New || m_agenteRifVariato)
            m_parti.albero.AggiornaAlberoAgente();
    }});
}

bool SchedaAgente::Esistefiglio(qint32 id)
{
    bool esiste = false;
    ignoreEachStep({[&] {
        const db::RecordsetPtr figli =
            m_ambiente.connessione().execute(sql::figliAgente(m_ambiente.Codice_Ditta(), id));
        esiste = figli->recordCount() > 0;
        figli->close();
    }});
    return esiste;
}

bool SchedaAgente::AgenteUtilizzato(qint32 id)
{
    bool utilizzato = false;
    for (const QString& conteggio : sql::contaDocumentiAgente(m_ambiente.Codice_Ditta(), id)) {
        ignoreEachStep({[&] {
            const db::RecordsetPtr contatore = m_ambiente.connessione().execute(conteggio);
            if (CDecN(contatore->value(u"CONTATORE")).toDecimal() > db::Decimal(0))
                utilizzato = true;
            contatore->close();
        }});
    }
    return utilizzato;
}

void SchedaAgente::FME_GestAnagrafica1_BeforeDelete(frame::CancelArgs& args)
{
    try {
        const qint32 id = valoreAgente(QStringLiteral("MG17_IDAGENTE")).toInt();
        if (Esistefiglio(id)) {
            messaggio(QStringLiteral("L'agente è di riferimento per altri agenti"),
                      host::Exclamation, TitoloEliminazione);
            args.fbol_Cancel = true;
            return;
        }
        if (AgenteUtilizzato(id)) {
            messaggio(m_ambiente.globale().messages().message(MessaggioAgenteInUso, {}),
                      host::Exclamation, TitoloEliminazione);
            args.fbol_Cancel = true;
            return;
        }
        db::Connection& connessione = m_ambiente.connessione();
        db::TransactionGuard transazione(connessione);
        for (const QString& eliminazione :
             sql::eliminaDipendentiAgente(m_ambiente.Codice_Ditta(), id))
            connessione.executeNonQuery(eliminazione);
        transazione.commit();
    } catch (const db::RuntimeError& errore) {
        // The guard has rolled the transaction back by now: the agent keeps its dependants.
        args.fbol_Cancel = true;
        messaggio(QStringLiteral("Transazione abortita") + u'\r' + QStringLiteral("Errore n. ") +
                      QString::number(errore.number()) + u'\r' + QStringLiteral("Descrizione: ") +
                      errore.description(),
                  0, QString());
    }
}

void SchedaAgente::FME_GestAnagrafica1_BeforeUpdate(frame::CancelArgs& args)
{
    m_statoSalvataggio = gestione(gestioni::Agenti).status();

    const QString ragioneSociale = RTrimN(m_campi.TXT_RAGSOANAG.text()).toString();
    if (m_ambiente.connessione()
            .execute(sql::anagraficaDaRagioneSociale(ragioneSociale))
            ->recordCount() < 1) {
        m_campi.TXT_RAGSOANAG.setValid(false);
        args.fbol_Cancel = true;
    }

    GestAnagrafica& soci = gestione(gestioni::Soci);
    if (inSospeso(soci) && !args.fbol_Cancel) {
        if (CDecN(m_record.TXT_CODSOCIO.text()) != db::Value(0) && inSospeso(soci)) {
            confermaDettaglio(soci, args);
            if (args.fbol_Cancel)
                return;
        }
        controllaSoci();
    }

    for (const int numero : {gestioni::Maturazione, gestioni::TentataVendita}) {
        GestAnagrafica& dettaglio = gestione(numero);
        if (dettaglio.secondChangeFlag() && !args.fbol_Cancel)
            confermaDettaglio(dettaglio, args);
    }

    scriviCampiNonLegati();
    controllaFornitore(args);

    GestAnagrafica& giri = gestione(gestioni::DettaglioGiri);
    if (inSospeso(giri) && !args.fbol_Cancel)
        confermaDettaglio(giri, args);
}

void SchedaAgente::controllaSoci()
{
    GestAnagrafica& soci = gestione(gestioni::Soci);
    const db::RecordsetPtr righe = soci.recordset();
    soci.detach();
    db::Decimal totale(0);
    if (righe && righe->recordCount() > 0) {
        for (righe->moveFirst(); !righe->eof(); righe->moveNext())
            totale += CDecN(righe->value(u"MG18_PERQUOTA")).toDecimal();
    }
    soci.refresh(QString());
    if (totale > db::Decimal(100))
        messaggio(QStringLiteral("Il totale delle % quote supera il 100% !!!"), host::Exclamation,
                  TitoloAttenzione);
}

void SchedaAgente::scriviCampiNonLegati()
{
    const QString listino = m_record.CBO_INDTIPOLISFIX.text();
    scriviAgente(
        QStringLiteral("MG17_INDTIPOLISFIX"),
        nulloOppure(CNegUno(listino) == db::Value(-1) && listino == u"-1", CDecN(listino)));
    const db::Value numeroListino = RTrimN(m_record.TXT_NUMLISTFIX.text());
    scriviAgente(QStringLiteral("MG17_NUMLISFIX"),
                 numeroListino.toString().isEmpty() ? db::Value::null() : CDecN(numeroListino));
    for (const Identificatore& i : identificatori(m_record)) {
        const QString identificatore = i.lista.text();
        scriviAgente(i.colonna,
                     nulloOppure(CNegUno(identificatore) == db::Value(-1), CDecN(identificatore)));
    }
}

void SchedaAgente::controllaFornitore(frame::CancelArgs& args)
{
    const db::Value fornitore = valoreAgente(QStringLiteral("MG17_CLIFOR_CG44"));
    if (RTrimN(fornitore).toString().isEmpty()) {
        scriviAgente(QStringLiteral("MG17_TIPOCF_CG44"), db::Value::null());
        return;
    }
    if (!m_campi.TXT_FOR.isValid())
        return;
    scriviAgente(QStringLiteral("MG17_TIPOCF_CG44"), 1);
    const db::Value dellAnagrafica =
        CodiceFornitore(m_ambiente.connessione(), m_ambiente.errori(), m_ambiente.Codice_Ditta(),
                        valoreAgente(QStringLiteral("MG17_ANAGEN_CG16")));
    if (fornitore == dellAnagrafica)
        return;
    // Page 0 moves the focus as a click on it does; the supplier's field takes it after.
    if (m_record.TAB_AGENTI.currentPage() != 0)
        m_record.TAB_AGENTI.selectPage(0);
    m_campi.TXT_FOR.setFocus();
    const int risposta =
        m_log
            ? m_log->message(QStringLiteral("Il fornitore selezionato non corrisponde a quello "
                                            "dell'anagrafica agente.") +
                                 QStringLiteral("\r\n") + QStringLiteral("Si desidera proseguire?"),
                             host::YesNo | host::Question | host::DefaultButton2, TitoloAttenzione)
            : host::No;
    if (risposta == host::No) {
        args.fbol_Cancel = true;
        scriviAgente(QStringLiteral("MG17_TIPOCF_CG44"), db::Value::null());
    }
}

void SchedaAgente::FME_GestAnagrafica1_ChangeStatus(int fenm_status, int fenm_reason)
{
    GestAnagrafica& agente = gestione(gestioni::Agenti);
    const auto impostaDettagli = [&](bool aperti) {
        for (const Dettaglio& dettaglio : dettagli)
            gestione(dettaglio.gestione).setLocked(!aperti);
        m_record.GRIDNAV_AGENTISOCI.setEnabled(aperti);
        m_record.GRIDNAV_AGENTIMAT.setEnabled(aperti);
        m_record.CMD_GESTCOLL.setEnabled(aperti);
    };
    const frame::FrameStatus stato{fenm_status};
    if (stato == frame::FrameStatus::Browse) {
        DecodificaCodice(m_ambiente.connessione(),
                         CDecN(valoreAgente(QStringLiteral("MG17_ANAGEN_CG16"))),
                         m_ambiente.finestra());
        impostaDettagli(true);
        if (fenm_reason != frame::StatusReason::Refreshed)
            m_parti.dettagli.ShowChild();
        mostraCampiNonLegati();
        agente.setSecondChangeFlag(false);
        agente.refreshState();
        m_record.CBO_REGPROV.setFocus();
    } else if (stato == frame::FrameStatus::Search || stato == frame::FrameStatus::New) {
        m_parti.dettagli.ClearChild();
        m_campi.TXT_RAGSOANAG.setText(QString());
        // An empty screen: the reference code follows the empty id, as for an agent shown.
        seguiId(m_campi.TXT_AGERIF, m_ultimoIdAgeRif, &m_campi.TXT_AGERIFVIDEO1);
        impostaDettagli(false);
    }
    const bool modificabili = agente.status() != frame::FrameStatus::Browse;
    m_campi.TXT_AGENTE.setEnabled(modificabili);
    m_campi.TXT_RAGSOANAG.setEnabled(modificabili);
}

void SchedaAgente::mostraCampiNonLegati()
{
    const db::Value listino = valoreAgente(QStringLiteral("MG17_INDTIPOLISFIX"));
    m_record.CBO_INDTIPOLISFIX.setText(
        RTrimN(listino).toString().isEmpty() ? QStringLiteral("-1") : CDecN(listino).toString());
    m_record.TXT_NUMLISTFIX.setText(
        RTrimN(valoreAgente(QStringLiteral("MG17_NUMLISFIX"))).toString());
    for (const Identificatore& i : identificatori(m_record)) {
        const db::Value identificatore = valoreAgente(i.colonna);
        i.lista.setText(RTrimN(identificatore).toString().isEmpty()
                            ? QStringLiteral("-1")
                            : CNegUno(identificatore).toString());
    }
    // An id beyond what the screen carries names no table it can show: the field stays empty.
    QString priorita;
    ignoreEachStep({[&] {
        priorita = m_parti.provvigioni->Get_LP09_CODICE(
            Provvigioni::idPriorita(valoreAgente(QStringLiteral("MG17_ID_LP09"))));
    }});
    m_record.TXT_TABPRIORITA.setText(priorita);
    // Not bound to a column, the two fields are not decoded by the frame: their descriptions
    // follow the row from here.
    m_record.TXT_NUMLISTFIX.decode();
    m_record.TXT_TABPRIORITA.decode();
}

void SchedaAgente::seguiId(controls::Field& id, qint32& ultimo, controls::Field* codice)
{
    const std::optional<qint64> valore = NumeroIntero(id.text());
    if (!valore)
        return;
    if (*valore == 0) {
        if (codice)
            codice->setText(QString());
        else
            id.setText(QString());
        ultimo = 0;
        return;
    }
    if (*valore == ultimo)
        return;
    if (codice)
        codice->setText(CodiceAgenteDaId(m_ambiente.connessione(), qint32(*valore)));
    ultimo = qint32(*valore);
}

void SchedaAgente::FME_GestAnagrafica1_IsRecordChanged(frame::RecordChangedArgs& args)
{
    if (gestione(gestioni::Agenti).status() != frame::FrameStatus::Browse)
        return;
    for (const Dettaglio& dettaglio : dettagli) {
        if (inSospeso(gestione(dettaglio.gestione)))
            args.fbol_isRecordChanged = true;
    }
    seguiId(m_campi.TXT_AGERIF, m_ultimoIdAgeRif, &m_campi.TXT_AGERIFVIDEO1);
    seguiId(m_campi.TXT_CAPOAREA, m_ultimoIdCapoArea, nullptr);
    seguiId(m_campi.TXT_CAPOZONA, m_ultimoIdCapoZona, nullptr);
}

} // namespace tarvello::agenti
