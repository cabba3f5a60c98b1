#include "src/detail/dettagliagente.h"

#include "platform/controls/combobox.h"
#include "platform/controls/eventargs.h"
#include "platform/controls/field.h"
#include "platform/controls/form.h"
#include "platform/controls/grid.h"
#include "platform/controls/gridnavigator.h"
#include "platform/frame/gestanagrafica.h"
#include "src/common/errorreporter.h"
#include "src/common/errorstyles.h"
#include "src/common/richiesto.h"
#include "src/common/valuehelpers.h"
#include "src/data/sqlagenti.h"
#include "src/data/sqldettagli.h"
#include "src/detail/girivisite.h"
#include "src/detail/maturazione.h"
#include "src/detail/operazionidettaglio.h"
#include "src/detail/sociagente.h"
#include "src/detail/tentatavendita.h"
#include "src/host/errorlog.h"
#include "src/host/globalcontext.h"
#include "src/host/hostobjects.h"
#include "src/host/messagecatalogue.h"
#include "src/screen/ambienteagenti.h"
#include "src/screen/pagineagenti.h"

#include <array>

namespace tarvello::agenti {

namespace {

using controls::NavigatorKey::New;

// The payment type that only describes; its name is the last of the list.
constexpr int SoloDescrittivo = 99;
constexpr int TipiNumerati = 16;

// One detail kept in a table of its own, keyed to the company and the agent.
struct Dettaglio {
    int gestione;
    const char* prefisso;
    QString (*perAgente)(qint32, qint64);
    QString (*vuoto)();
    QString cosa;

    QString colonna(const char* suffisso) const
    {
        return QString::fromUtf8(prefisso) + QString::fromUtf8(suffisso);
    }
};

const std::array<Dettaglio, 4>& dettagli()
{
    static const std::array<Dettaglio, 4> elenco{{
        {gestioni::Soci, "MG18", &sql::sociAgente, &sql::sociVuoto,
         QStringLiteral("i soci dell'agente")},
        {gestioni::Maturazione, "MG16", &sql::maturazioneAgente, &sql::maturazioneVuoto,
         QStringLiteral("i giorni di maturazione dell'agente")},
        {gestioni::TentataVendita, "MG34", &sql::tentataVenditaAgente, &sql::tentataVenditaVuoto,
         QStringLiteral("i dati per la tentata vendita dell'agente")},
        {gestioni::DettaglioGiri, "MG1I", &sql::dettaglioGiriAgente, &sql::dettaglioGiriVuoto,
         QStringLiteral("il dettaglio dei giri visite")},
    }};
    return elenco;
}

const Dettaglio& dettaglio(int gestione)
{
    return dettagli().at(gestione - gestioni::Soci);
}

} // namespace

DettagliAgente::DettagliAgente(const ControlliAgenti& controlli, const PostiGestioni& gestioni,
                               PagineAgenti& pagine, const QStringList& tipiEffetti,
                               const AmbienteAgenti& ambiente)
    : m_controlli(controlli.dettagli)
    , m_gestioni(gestioni)
    , m_pagine(pagine)
    , m_tipiEffetti(tipiEffetti)
    , m_ambiente(ambiente)
    , m_giri(std::make_unique<GiriVisite>(controlli, gestioni.at(gestioni::Agenti - 1),
                                          gestioni.at(gestioni::DettaglioGiri - 1), ambiente))
    , m_soci(std::make_unique<SociAgente>(controlli.soci, gestioni.at(gestioni::Soci - 1), *this,
                                          ambiente.errori()))
    , m_maturazione(std::make_unique<Maturazione>(controlli.maturazione,
                                                  gestioni.at(gestioni::Maturazione - 1)))
    , m_tentataVendita(std::make_unique<TentataVendita>(controlli.tentataVendita, ambiente))
{}

DettagliAgente::~DettagliAgente() = default;

frame::GestAnagrafica& DettagliAgente::gestioneDi(int numero) const
{
    return richiesto(m_gestioni.at(numero - 1).data(), "FME_GestAnagrafica");
}

const frame::GestAnagrafica* DettagliAgente::agenti() const
{
    return m_gestioni.at(gestioni::Agenti - 1).data();
}

const QString& DettagliAgente::GiroCorrente() const
{
    return m_giri->GiroCorrente();
}

void DettagliAgente::TeminateElencoGiri()
{
    m_giri->TeminateElencoGiri();
}

void DettagliAgente::collega()
{
    using frame::GestAnagrafica;
    QObject* contesto = &m_contesto;
    for (int numero : {gestioni::Soci, gestioni::Maturazione, gestioni::TentataVendita}) {
        GestAnagrafica* gestione = m_gestioni.at(numero - 1);
        if (!gestione)
            return;
        QObject::connect(gestione, &GestAnagrafica::AfterAddNew, contesto,
                         [this, numero](int esito) { chiaveNuovaRiga(numero, esito); });
    }
    GestAnagrafica* soci = m_gestioni.at(gestioni::Soci - 1);
    QObject::connect(soci, &GestAnagrafica::AfterDelete, contesto,
                     [this](int) { FME_GestAnagrafica2_AfterDelete(); });
    QObject::connect(soci, &GestAnagrafica::AfterUndo, contesto,
                     [this](int esito) { FME_GestAnagrafica2_AfterUndo(esito); });
    QObject::connect(soci, &GestAnagrafica::ChangeStatus, contesto,
                     [this](int stato, int) { FME_GestAnagrafica2_ChangeStatus(stato); });
    QObject::connect(soci, &GestAnagrafica::UpdateBatchAll, contesto,
                     [this] { FME_GestAnagrafica2_UpdateBatchAll(); });

    GestAnagrafica* maturazione = m_gestioni.at(gestioni::Maturazione - 1);
    QObject::connect(maturazione, &GestAnagrafica::ChangeStatus, contesto,
                     [this](int stato, int) { FME_GestAnagrafica3_ChangeStatus(stato); });
    QObject::connect(maturazione, &GestAnagrafica::UpdateBatchAll, contesto,
                     [this] { salvaDettaglioSenzaNuovaRiga(gestioni::Maturazione); });
    QObject::connect(m_gestioni.at(gestioni::TentataVendita - 1), &GestAnagrafica::UpdateBatchAll,
                     contesto, [this] { salvaDettaglioSenzaNuovaRiga(gestioni::TentataVendita); });

    controls::GridNavigator& navigatoreSoci = m_controlli.GRIDNAV_AGENTISOCI;
    QObject::connect(&navigatoreSoci, &controls::Navigator::beforeButton, contesto,
                     [this](controls::NavigatorButtonArgs& args) {
                         GRIDNAV_AGENTISOCI_BeforeButtonClick(args);
                     });
    QObject::connect(&navigatoreSoci, &controls::Navigator::afterButton, contesto,
                     [this](bool riuscito, const QString& pulsante) {
                         GRIDNAV_AfterButtonClick(riuscito, pulsante, m_controlli.TXT_CODSOCIO);
                     });
    QObject::connect(&m_controlli.GRIDNAV_AGENTIMAT, &controls::Navigator::afterButton, contesto,
                     [this](bool riuscito, const QString& pulsante) {
                         GRIDNAV_AfterButtonClick(riuscito, pulsante, m_controlli.CBO_TIPOEFF);
                     });
    QObject::connect(&m_controlli.GRID_AGENTIMAT, &controls::Grid::cellTextRequested, contesto,
                     [this](controls::CellTextArgs& args) { GRID_AGENTIMAT_CellText(args); });
    m_giri->collega();
    m_soci->collega(m_ambiente.globale().objects());
    QObject::connect(&m_ambiente.finestra(), &controls::Form::unloaded, contesto,
                     [this] { m_soci->rilascia(); });
    m_maturazione->collega();
    m_tentataVendita->collega();
}

void DettagliAgente::ShowChild()
{
    const qint32 ditta = m_ambiente.Codice_Ditta();
    const qint64 agente = idAgenteCorrente(agenti());
    for (const Dettaglio& d : dettagli())
        gestioneDi(d.gestione).reopen(d.perAgente(ditta, agente));
    m_giri->ImpostaElencoGiri();
    m_giri->Refresh_VF_MG1H(false);
}

void DettagliAgente::ClearChild()
{
    for (const Dettaglio& d : dettagli())
        gestioneDi(d.gestione).reopen(d.vuoto());
    m_giri->mostraGiro(QString());
    m_giri->Refresh_VF_MG1H(false);
    m_giri->TeminateElencoGiri();
}

void DettagliAgente::RefreshChild()
{
    controls::Grid& grigliaSoci = m_controlli.GRID_AGENTISOCI;
    controls::Grid& grigliaMaturazione = m_controlli.GRID_AGENTIMAT;
    const qint32 ditta = m_ambiente.Codice_Ditta();
    const qint64 agente = idAgenteCorrente(agenti());
    // Gives a detail its query for the agent and moves the rows it holds to the agent.
    const auto rechiave = [&](int numero, const QString& sql) {
        frame::GestAnagrafica& gestione = gestioneDi(numero);
        const db::RecordsetPtr righe = gestione.recordset();
        gestione.setSql(sql);
        if (righe->recordCount() > 0)
            riscriviAgente(gestione, *righe, dettaglio(numero).colonna("_IDAGENTE_MG17"), agente);
        return righe;
    };

    grigliaSoci.setDataSource(nullptr);
    grigliaMaturazione.setDataSource(nullptr);
    for (int numero : {gestioni::Soci, gestioni::Maturazione, gestioni::TentataVendita})
        rechiave(numero, dettaglio(numero).perAgente(ditta, agente));
    grigliaSoci.setDataSource(gestioneDi(gestioni::Soci).recordset());
    grigliaMaturazione.setDataSource(gestioneDi(gestioni::Maturazione).recordset());

    const QString giro = RTrimN(m_controlli.TXT_GIRO.text()).toString();
    m_controlli.GRD_DETTAGLIOGIRI.setDataSource(
        rechiave(gestioni::DettaglioGiri, sql::dettaglioGiriDelGiro(ditta, agente, giro)));
}

void DettagliAgente::setSociAggiungibili(bool aggiungibili)
{
    m_sociAggiungibili = aggiungibili;
    mostraSociAggiungibili();
}

void DettagliAgente::mostraSociAggiungibili()
{
    // Without a declared number nothing bounds the partners: "Nuovo" stays available whatever
    // SociAggiungibili held before.
    m_controlli.GRIDNAV_AGENTISOCI.setNewRowAllowed(m_sociAggiungibili || !sottoLimiteSoci());
}

void DettagliAgente::chiaveNuovaRiga(int numero, int fenm_operationresult)
{
    if (fenm_operationresult != frame::OperationSucceeded)
        return;
    const Dettaglio& d = dettaglio(numero);
    const db::RecordsetPtr righe = gestioneDi(numero).recordset();
    righe->setValue(d.colonna("_DITTA_CG18"), m_ambiente.Codice_Ditta());
    righe->setValue(d.colonna("_IDAGENTE_MG17"), MG17_IDAGENTE(agenti()));
}

std::optional<bool> DettagliAgente::sottoLimiteSoci() const
{
    const db::Value testo = RTrimN(m_controlli.TXT_NUMSOCI.text());
    if (testo.toString().isEmpty())
        return std::nullopt;
    const frame::GestAnagrafica* gestioneSoci = m_gestioni.at(gestioni::Soci - 1);
    const db::RecordsetPtr soci = gestioneSoci ? gestioneSoci->recordset() : nullptr;
    const qint64 righe = soci ? soci->recordCount() : 0;
    return db::Decimal(righe) < CDecN(testo).toDecimal();
}

void DettagliAgente::ricalcolaSociAggiungibili()
{
    if (const std::optional<bool> sotto = sottoLimiteSoci())
        setSociAggiungibili(*sotto);
}

void DettagliAgente::FME_GestAnagrafica2_AfterDelete()
{
    ricalcolaSociAggiungibili();
}

void DettagliAgente::FME_GestAnagrafica2_AfterUndo(int fenm_operationresult)
{
    if (fenm_operationresult != frame::OperationSucceeded)
        return;
    frame::GestAnagrafica& soci = gestioneDi(gestioni::Soci);
    const db::RecordsetPtr righe = soci.recordset();
    if (righe->bof() || righe->eof() || righe->recordCount() != 1 ||
        soci.status() != frame::FrameStatus::New)
        return;
    soci.detach();
    ignoreEachStep({
        [&] { righe->requery(); },
        [&] { soci.refresh(); },
        [&] {
            controls::Field& codice = m_controlli.TXT_CODSOCIO;
            if (codice.isEnabled())
                codice.setFocus();
        },
    });
}

void DettagliAgente::FME_GestAnagrafica2_ChangeStatus(int fenm_status)
{
    controls::Field& codice = m_controlli.TXT_CODSOCIO;
    const frame::FrameStatus stato{fenm_status};
    if (stato == frame::FrameStatus::Browse)
        codice.setEnabled(false);
    else if (stato == frame::FrameStatus::Search || stato == frame::FrameStatus::New)
        codice.setEnabled(true);
    mostraSociAggiungibili();
}

void DettagliAgente::FME_GestAnagrafica3_ChangeStatus(int fenm_status)
{
    controls::ComboBox& tipo = m_controlli.CBO_TIPOEFF;
    const frame::FrameStatus stato{fenm_status};
    if (stato == frame::FrameStatus::Search || stato == frame::FrameStatus::New) {
        tipo.setEnabled(true);
        tipo.setFocus();
    } else if (stato == frame::FrameStatus::Browse) {
        tipo.setEnabled(false);
    }
}

void DettagliAgente::salvaDettaglioSenzaNuovaRiga(int numero)
{
    frame::GestAnagrafica& gestione = gestioneDi(numero);
    const db::RecordsetPtr righe = gestione.recordset();
    controls::Grid* griglia =
        numero == gestioni::Maturazione ? &m_controlli.GRID_AGENTIMAT : nullptr;
    if (!gestione.changeFlag())
        return;
    // A new row still open is not saved with the others; never written, it simply goes.
    if (gestione.status() == frame::FrameStatus::New && !righe->bof() && !righe->eof() &&
        righe->status() == db::RowStatus::New)
        righe->deleteRow();
    if (griglia) {
        gestione.setGrid(nullptr);
        griglia->setDataSource(nullptr);
    }
    gestione.setRecordset(nullptr);
    ignoreEachStep({
        [&] { scriviInBlocco(m_ambiente, *righe, dettaglio(numero).cosa); },
        [&] { gestione.setRecordset(righe); },
        [&] {
            if (!griglia)
                return;
            griglia->setDataSource(righe);
            gestione.setGrid(griglia);
        },
        [&] {
            if (righe->recordCount() == 0)
                gestione.setStatus(frame::FrameStatus::New);
        },
        [&] { gestione.refresh(); },
    });
}

void DettagliAgente::FME_GestAnagrafica2_UpdateBatchAll()
{
    frame::GestAnagrafica& soci = gestioneDi(gestioni::Soci);
    const db::RecordsetPtr righe = soci.recordset();
    if (!soci.changeFlag() && !soci.secondChangeFlag())
        return;
    if (soci.status() == frame::FrameStatus::Browse) {
        ignoreEachStep({
            [&] { scriviInBlocco(m_ambiente, *righe, dettaglio(gestioni::Soci).cosa); },
            [&] { soci.setFollowRowMoves(false); },
            [&] { righe->moveFirst(); },
            [&] { soci.setFollowRowMoves(true); },
        });
    } else if (righe->recordCount() == 1) {
        // The only row is the one being entered: it is dropped, and the partners the query
        // still finds in the database go with it.
        righe->requery();
        if (righe->recordCount() > 0) {
            soci.setFollowRowMoves(false);
            for (righe->moveFirst(); !righe->eof(); righe->moveNext())
                righe->deleteRow();
            righe->updateBatch();
            // The frame's undo asks before dropping edits; those edits went with the requery,
            // so the frame is told it holds none while it lets its row go.
            soci.notifyChange(false);
            soci.dropPendingRow({.raiseEvents = true, .show = true, .ask = true});
            soci.notifyChange(true);
            soci.setFollowRowMoves(true);
            // The frame may still be showing a row that went: it shows what is left.
            soci.refresh();
        }
    }
    soci.setSecondChangeFlag(false);
    // Rows the database refused are still to be written: the next save tries them again.
    soci.setChangeFlag(righe->pendingCount() > 0);
}

void DettagliAgente::GRIDNAV_AGENTISOCI_BeforeButtonClick(controls::NavigatorButtonArgs& args)
{
    if (args.key != New || !sottoLimiteSoci())
        return;
    gestioneDi(gestioni::Soci).confirmPendingChanges({.check = true, .show = true});
    if (sottoLimiteSoci().value_or(true)) {
        setSociAggiungibili(true);
        return;
    }
    if (m_ambiente.errori().hasLog())
        m_ambiente.errori().log().message(
            QStringLiteral("Impossibile aggiungere un nuovo socio.") + QStringLiteral("\r\n") +
                QStringLiteral("Il numero dei soci è superiore al valore del campo "
                               "Numero di soci in Dati generali !!!"),
            host::Exclamation, QStringLiteral("Attenzione"));
    m_pagine.SelezionaTab(0);
    m_pagine.SelezionaTab(1);
    args.cancel = true;
    setSociAggiungibili(false);
}

void DettagliAgente::GRIDNAV_AfterButtonClick(bool success, const QString& pulsante,
                                              controls::Control& fuoco)
{
    if (success && pulsante == New)
        fuoco.setFocus();
}

void DettagliAgente::GRID_AGENTIMAT_CellText(controls::CellTextArgs& args)
{
    if (args.field != u"MG16_TIPOEFF")
        return;
    ignoreEachStep({
        [&] {
            const qint64 codice = CDecN(args.text).toInt64();
            const QStringList& nomi = m_tipiEffetti;
            QString nome;
            if (codice >= 1 && codice <= TipiNumerati)
                nome = nomi.value(codice - 1);
            else if (codice == SoloDescrittivo)
                nome = nomi.value(TipiNumerati);
            args.text = m_ambiente.globale().messages().text(nome);
        },
    });
}

} // namespace tarvello::agenti
