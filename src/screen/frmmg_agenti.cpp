#include "src/screen/frmmg_agenti.h"

#include "platform/controls/archivelinkfield.h"
#include "platform/controls/combobox.h"
#include "platform/controls/field.h"
#include "platform/controls/grid.h"
#include "platform/controls/gridnavigator.h"
#include "platform/controls/menubutton.h"
#include "platform/controls/navigatorbar.h"
#include "platform/controls/panel.h"
#include "platform/controls/tabstrip.h"
#include "platform/db/connection.h"
#include "platform/db/runtimeerror.h"
#include "platform/frame/gestanagrafica.h"
#include "src/common/errorstyles.h"
#include "src/common/richiesto.h"
#include "src/common/valuehelpers.h"
#include "src/data/sqlagenti.h"
#include "src/detail/dettagliagente.h"
#include "src/detail/grigliedettaglio.h"
#include "src/host/errorlog.h"
#include "src/host/globalcontext.h"
#include "src/host/hostobjects.h"
#include "src/host/lookupdecoder.h"
#include "src/host/menuentry.h"
#include "src/host/navigator.h"
#include "src/linked/gestionicollegate.h"
#include "src/screen/classificazioni.h"
#include "src/screen/clsmg_agenti.h"
#include "src/screen/codiciagente.h"
#include "src/screen/layoutagenti.h"
#include "src/screen/listecodificate.h"
#include "src/screen/provvigioni.h"
#include "src/screen/schedaagente.h"
#include "src/tree/alberoagenti.h"
#include "src/tree/navigazioneagenti.h"

#include <QEventLoop>

namespace tarvello::agenti {

namespace {

constexpr long ObjectWasUnloaded = 364;

// The size the screen was designed at, in twips; a modal screen opens at it.
constexpr int LarghezzaProgetto = 14865;
constexpr int AltezzaProgetto = 9195;

// The module's application object: what the host learns of it, and the text its error
// reports are shown under.
host::ApplicationInfo applicazione()
{
    return {QStringLiteral("Anagrafica agenti"), ErrorReporter::moduleName()};
}

// The setting of the archive-link field that names the kind of archive entry: agents.
constexpr int ArchivioAgenti = 9;

const QString EventoApertura = QStringLiteral("tsOpen");
const QString EventoChiusura = QStringLiteral("tsClose");

controls::Form::WindowState statoFinestra(short stato)
{
    switch (stato) {
    case 1:
        return controls::Form::WindowState::Minimized;
    case 2:
        return controls::Form::WindowState::Maximized;
    default:
        return controls::Form::WindowState::Normal;
    }
}

// Lays the screen out and reaches the controls its parts are built with.
ControlliAgenti disponiControlli(FRMMG_AGENTI& schermata)
{
    creaControlliAgenti(schermata);
    return controlliAgenti(schermata);
}

} // namespace

FRMMG_AGENTI::FRMMG_AGENTI(QObject* parent)
    : controls::Form(QStringLiteral("FRMMG_AGENTI"), parent)
    , m_ambiente(*this, m_activeInterface, m_activeClass, m_ditta, m_stringaConnessione,
                 m_connessione, m_oggetti, m_errori)
    , m_controlli(disponiControlli(*this))
    , m_pagine(m_controlli.navigazione.TAB_AGENTI)
    , m_dettagli(std::make_unique<DettagliAgente>(m_controlli, m_gestioni, m_pagine, m_tipiEffetti,
                                                  m_ambiente))
    , m_albero(std::make_unique<AlberoAgenti>(m_controlli.albero, postoGestione(Agenti),
                                              *m_dettagli, m_ambiente))
    , m_scheda(std::make_unique<SchedaAgente>(
          m_controlli.identita, m_controlli.recordAgente, m_gestioni,
          PartiScheda{*m_albero, *m_dettagli, m_collegate, m_provvigioni}, *this, m_log,
          m_ambiente))
    , m_navigazione(std::make_unique<NavigazioneAgenti>(
          m_controlli.navigazione, postoGestione(Agenti), *m_albero, m_pagine, m_ambiente))
    , m_collegate(std::make_unique<GestioniCollegate>(m_controlli.collegate, postoGestione(Agenti),
                                                      *m_scheda, m_ambiente))
    , m_classificazioni(std::make_unique<Classificazioni>(m_controlli.classificazioni, m_ambiente))
    , m_provvigioni(std::make_unique<Provvigioni>(m_controlli.provvigioni, postoGestione(Agenti),
                                                  m_liste, m_ambiente))
{
    m_collegate->collega();
    // Connected before the load shows its first agent: the commission regime's rules run for
    // every value the list takes from the start.
    m_classificazioni->collega();
    m_provvigioni->collega();
    m_errori.setApplicationText(applicazione().title);
    m_errori.setScreenTitle([this] { return caption(); });
    connect(this, &Form::loaded, this, &FRMMG_AGENTI::Form_Load);
    connect(this, &Form::activated, this, &FRMMG_AGENTI::Form_Activate);
    connect(this, &Form::queryClose, this, &FRMMG_AGENTI::Form_QueryUnload);
    connect(this, &Form::unloaded, this, &FRMMG_AGENTI::Form_Unload);
    connect(&m_controlli.navigazione.TAB_AGENTI, &controls::TabStrip::currentPageChanged, this,
            [this](int pagina) { TAB_AGENTI_Click(pagina); });
}

FRMMG_AGENTI::~FRMMG_AGENTI() = default;

AgentiScreenFactory FRMMG_AGENTI::fabbrica()
{
    return [] { return std::make_unique<FRMMG_AGENTI>(); };
}

void FRMMG_AGENTI::setWindowState(short state)
{
    load();
    Form::setWindowState(statoFinestra(state));
}

void FRMMG_AGENTI::show(bool modal)
{
    if (m_scaricata)
        throw db::RuntimeError(ObjectWasUnloaded, QStringLiteral("Object was unloaded"));
    Form::show(modal);
    if (!modal || !isLoaded())
        return;
    QEventLoop attesa;
    connect(this, &Form::unloaded, &attesa, &QEventLoop::quit);
    attesa.exec();
}

void FRMMG_AGENTI::PrimoAgente()
{
    m_navigazione->PrimoAgente();
}

void FRMMG_AGENTI::PrecedenteRamoAgente()
{
    m_navigazione->PrecedenteRamoAgente();
}

void FRMMG_AGENTI::PreviousAgente()
{
    m_navigazione->PreviousAgente();
}

void FRMMG_AGENTI::NextAgente()
{
    m_navigazione->NextAgente();
}

void FRMMG_AGENTI::ProssimoRamoAgente()
{
    m_navigazione->ProssimoRamoAgente();
}

void FRMMG_AGENTI::UltimoAgente()
{
    m_navigazione->UltimoAgente();
}

frame::GestAnagrafica* FRMMG_AGENTI::FME_GestAnagrafica(int numero) const
{
    return numero >= Agenti && numero <= DettaglioGiri ? m_gestioni.at(numero - 1).data() : nullptr;
}

frame::GestAnagrafica& FRMMG_AGENTI::gestione(int numero) const
{
    return richiesto(FME_GestAnagrafica(numero), "FME_GestAnagrafica");
}

db::RecordsetPtr FRMMG_AGENTI::Grst_GestAnagrafica(int numero) const
{
    const frame::GestAnagrafica* gestione = FME_GestAnagrafica(numero);
    return gestione ? gestione->recordset() : nullptr;
}

QString FRMMG_AGENTI::Gstr_GestAnagrafica(int numero) const
{
    const frame::GestAnagrafica* gestione = FME_GestAnagrafica(numero);
    return gestione ? gestione->sql() : QString();
}

// The record frames are part of the screen as it is designed: they exist from its load, and
// the load binds them one by one.
void FRMMG_AGENTI::creaGestioni()
{
    host::HostObjects& oggetti = m_ambiente.globale().objects();
    for (int numero = Agenti; numero <= DettaglioGiri; ++numero) {
        QPointer<frame::GestAnagrafica>& gestione = m_gestioni.at(numero - 1);
        if (gestione)
            continue;
        gestione = oggetti.newRecordFrame(this);
        richiesto(gestione.data(), "FME_GestAnagrafica")
            .setObjectName(QStringLiteral("FME_GestAnagrafica") + QString::number(numero));
    }
}

void FRMMG_AGENTI::apriGestione(int numero, const QString& sql, const QString& navigatore,
                                const QString& griglia)
{
    gestione(numero).initialise(
        nullptr, m_ambiente.connessione(), db::Recordset::open(m_ambiente.connessione(), sql), sql,
        {}, navigatore.isEmpty() ? nullptr : &controllo<controls::Navigator>(navigatore),
        griglia.isEmpty() ? nullptr : &controllo<controls::Grid>(griglia));
}

void FRMMG_AGENTI::registraCampi(int numero, const QStringList& campi)
{
    for (const QString& campo : campi)
        gestione(numero).registerField(&controllo<controls::DataControl>(campo));
}

std::unique_ptr<host::LookupDecoder> FRMMG_AGENTI::nuovoDecodificatore() const
{
    std::unique_ptr<host::LookupDecoder> decodificatore =
        m_ambiente.globale().objects().newLookupDecoder();
    richiesto(decodificatore.get(), "LookupDecoder").bind(m_activeInterface);
    return decodificatore;
}

void FRMMG_AGENTI::Form_Load()
{
    const QStringList campiAgente{
        QStringLiteral("TXT_AGENTE"),
        QStringLiteral("TXT_RAGSOANAG"),
        QStringLiteral("CBO_REGPROV"),
        QStringLiteral("CHK_PROVCLIE"),
        QStringLiteral("CHK_PROVART"),
        QStringLiteral("CBO_INDPRIORCLIART"),
        QStringLiteral("TXT_PERPROV"),
        QStringLiteral("TXT_CODTABPROV"),
        QStringLiteral("TXT_RCPROV"),
        QStringLiteral("CBO_TIPOAGENTE"),
        QStringLiteral("TXT_CAPOAREA"),
        QStringLiteral("TXT_CAPOZONA"),
        QStringLiteral("TXT_CODPROVSC"),
        QStringLiteral("CHK_FLGADEGUAMSCMAG"),
        QStringLiteral("CBO_INDCALCSCMAG"),
        QStringLiteral("CBO_INDBASEIMPSC"),
        QStringLiteral("CBO_INDBASEIMPMAG"),
        QStringLiteral("CHK_ADEGDELTA"),
        QStringLiteral("DAT_INRAPP"),
        QStringLiteral("DAT_INMAN"),
        QStringLiteral("DAT_FINEMAN"),
        QStringLiteral("TXT_MATRENASARCO"),
        QStringLiteral("CBO_INDSTDISTENAS"),
        QStringLiteral("DAT_ISCR"),
        QStringLiteral("DAT_CANC"),
        QStringLiteral("CBO_TIPOMAND"),
        QStringLiteral("CBO_TIPORAPP"),
        QStringLiteral("CBO_TIPOSOC"),
        QStringLiteral("CBO_INDPREFSTDOC"),
        QStringLiteral("CBO_INDTIPOLIQ"),
        QStringLiteral("TXT_NUMSOCI"),
        QStringLiteral("TXT_FOR"),
        QStringLiteral("TXT_TIPOLOGIAAGENTE"),
        QStringLiteral("TXT_AGERIF"),
        QStringLiteral("TXT_IMPMINFATT"),
        QStringLiteral("TXT_MACROAREA"),
        QStringLiteral("TXT_AREA"),
        QStringLiteral("TXT_ZONA"),
        QStringLiteral("TXT_MACROCAT"),
        QStringLiteral("TXT_CATEGORIA"),
        QStringLiteral("TXT_SOTTOCAT"),
        QStringLiteral("TXT_RAGGR1"),
        QStringLiteral("TXT_RAGGR2"),
        QStringLiteral("TXT_RAGGR3"),
    };
    const auto gruppoDettaglio = [this](int numero, const QString& sql, const QString& navigatore,
                                        const QString& griglia, const QStringList& campi,
                                        const QString& chiave) {
        apriGestione(numero, sql, navigatore, griglia);
        registraCampi(numero, campi);
        if (!chiave.isEmpty())
            gestione(numero).setKeyField(&controllo<controls::DataControl>(chiave));
        gestione(numero).setWriteMode(frame::GestAnagrafica::WriteMode::Pending);
    };

    const Outcome esito = reportModuleError(
        m_errori, QStringLiteral("FRMMG_FME_GestAnagrafica1.Form_Load"),
        {
            [&] {
                if (m_ambiente.modulo().WindowModal())
                    setBounds(QRect(m_ambiente.modulo().Left().toInt(),
                                    m_ambiente.modulo().Top().toInt(), LarghezzaProgetto,
                                    AltezzaProgetto));
            },
            [&] { m_stringaConnessione = m_ambiente.globale().connectionString(); },
            [&] {
                if (m_connessione)
                    return Flow::Next;
                m_log = m_ambiente.globale().objects().newErrorLog();
                richiesto(m_log.get(), "Gcls_Log").bind(m_activeInterface);
                m_errori.setLog(m_log.get());
                return Flow::Next;
            },
            [&] {
                if (m_connessione)
                    return;
                auto connessione = std::make_unique<db::Connection>();
                connessione->open(m_stringaConnessione);
                m_connessione = std::move(connessione);
                m_errori.setConnection(m_connessione.get());
            },
            [&] { creaGestioni(); },
            [&] { m_ambiente.modulo().setConnection(m_connessione.get()); },
            [&] { m_ambiente.modulo().setActiveFrame(FME_GestAnagrafica(Agenti)); },
            [&] { m_ambiente.navigatore().registerModule(m_activeInterface); },
            [&] {
                m_oggetti.classificazioni = nuovoDecodificatore();
                m_oggetti.agenti = nuovoDecodificatore();
                m_oggetti.fornitori = nuovoDecodificatore();
                m_oggetti.clienti = nuovoDecodificatore();
                m_oggetti.giri = nuovoDecodificatore();
                m_oggetti.listini = nuovoDecodificatore();
            },
            [&] {
                if (!m_oggetti.priorita)
                    m_oggetti.priorita = nuovoDecodificatore();
            },
            [&] {
                m_liste = std::make_unique<ListeCodificate>(*this, m_ambiente.globale().objects());
            },
            [&] { m_liste->CaricaCombo_CBO_REGPROV(); },
            [&] { m_liste->CaricaCombo_CBO_INDTIPOLISFIX(); },
            [&] { m_liste->CaricaCombo_CBO_IDENTIFCOL(); },
            [&] { m_liste->CaricaCombo_CBO_IDENTIFRIGA(); },
            [&] { m_liste->CaricaCombo_CBO_IDENTIFTAB(); },
            [&] { m_liste->CaricaCombo_CBO_INDBASEIMPMAG(); },
            [&] { m_liste->CaricaCombo_CBO_INDBASEIMPSC(); },
            [&] { m_liste->CaricaCombo_CBO_INDCALCSCMAG(); },
            [&] { m_liste->CaricaCombo_CBO_INDPRIORCLIART(); },
            [&] { m_liste->CaricaCombo_CBO_TIPOAGENTE(); },
            [&] { m_liste->CaricaCombo_CBO_TIPOEFF(); },
            [&] { m_liste->CaricaCombo_CBO_INDSTDISTENAS(); },
            [&] { m_liste->CaricaCombo_CBO_TIPOMAND(); },
            [&] { m_liste->CaricaCombo_CBO_TIPORAPP(); },
            [&] { m_liste->CaricaCombo_CBO_TIPOSOC(); },
            [&] { m_liste->CaricaCombo_CBO_INDPREFSTDOC(); },
            [&] { m_liste->CaricaCombo_CBO_INDTIPOLIQ(); },
            [&] {
                apriGestione(Agenti, sql::agentiDitta(m_ambiente.globale().company().code),
                             QStringLiteral("INTERNAV"), {});
                gestione(Agenti).setDescription(QStringLiteral("la gestione anagrafica agenti"));
            },
            [&] {
                controllo<controls::ArchiveLinkField>(u"TXT_ARCHELESOS1")
                    .setArchiveKind(ArchivioAgenti);
                registraCampi(Agenti, campiAgente + QStringList{QStringLiteral("TXT_ARCHELESOS1")});
            },
            [&] { gestione(Agenti).setKeyField(&controllo<controls::DataControl>(u"TXT_AGENTE")); },
            [&] { gestione(Agenti).setWriteMode(frame::GestAnagrafica::WriteMode::AtOnce); },
            [&] {
                gruppoDettaglio(Soci, sql::sociVuoto(), QStringLiteral("GRIDNAV_AGENTISOCI"),
                                QStringLiteral("GRID_AGENTISOCI"),
                                {QStringLiteral("TXT_CODSOCIO"), QStringLiteral("TXT_NOMECOGN"),
                                 QStringLiteral("TXT_MATRSOCIO"), QStringLiteral("TXT_CODFISOCIO"),
                                 QStringLiteral("TXT_PERQUOTA"), QStringLiteral("TXT_DATAINRAPP"),
                                 QStringLiteral("TXT_DATACESS")},
                                QStringLiteral("TXT_CODSOCIO"));
            },
            [&] {
                gruppoDettaglio(Maturazione, sql::maturazioneVuoto(),
                                QStringLiteral("GRIDNAV_AGENTIMAT"),
                                QStringLiteral("GRID_AGENTIMAT"),
                                {QStringLiteral("CBO_TIPOEFF"), QStringLiteral("TXT_GGMAT")},
                                QStringLiteral("CBO_TIPOEFF"));
            },
            [&] {
                gruppoDettaglio(TentataVendita, sql::tentataVenditaVuoto(), {}, {},
                                {QStringLiteral("TXT_TVTARGA"), QStringLiteral("TXT_TVTARA"),
                                 QStringLiteral("TXT_TVDEP"), QStringLiteral("TXT_TVSEZ"),
                                 QStringLiteral("CHK_TVINDXH")},
                                {});
            },
            [&] { m_ditta = m_ambiente.globale().company().code; },
            [&] { m_tipiEffetti = StringaTipiEffetti().split(u'|'); },
            [&] {
                const ControlliDettagli& dettagli = m_controlli.dettagli;
                dettagli.GRIDNAV_AGENTISOCI.setGrid(&dettagli.GRID_AGENTISOCI);
                dettagli.GRIDNAV_AGENTIMAT.setGrid(&dettagli.GRID_AGENTIMAT);
            },
            [&] { m_oggetti.destinatari = nuovoDecodificatore(); },
            [&] {
                for (int numero : {Soci, Maturazione, TentataVendita})
                    gestione(Agenti).addDetailFrame(&gestione(numero));
            },
            [&] {
                apriGestione(DettaglioGiri,
                             sql::dettaglioGiriDitta(m_ambiente.globale().company().code),
                             QStringLiteral("GRIDNAV_GIRI"), QStringLiteral("GRD_DETTAGLIOGIRI"));
                registraCampi(DettaglioGiri, {QStringLiteral("TXT_CLIENTE"),
                                              QStringLiteral("TXT_MG1I_CODDEST_MG22"),
                                              QStringLiteral("TXT_NOTE")});
            },
            [&] { gestione(DettaglioGiri).setStatus(frame::FrameStatus::New); },
            [&] {
                gestione(DettaglioGiri).setWriteMode(frame::GestAnagrafica::WriteMode::Pending);
            },
            [&] { gestione(Agenti).addDetailFrame(&gestione(DettaglioGiri)); },
            [&] {
                m_controlli.collegate.TXT_RAGSOANAG.addMenuItem(
                    QStringLiteral("1"), QStringLiteral("Solo anagrafiche generali"), true);
            },
            [&] {
                controls::MenuButton& gestioniCollegate = m_controlli.collegate.CMD_GESTCOLL;
                gestioniCollegate.clearItems();
                gestioniCollegate.addItem(QStringLiteral("key_anagrafica"),
                                          QStringLiteral("Varia dati anagrafici"));
                if (m_ambiente.globale().company().divisionalData)
                    gestioniCollegate.addItem(QStringLiteral("Key_DatiDivisionali"),
                                              QStringLiteral("Dati divisionali"));
            },
            [&] { m_dettagli->collega(); },
            [&] { m_scheda->collega(); },
            [&] { m_navigazione->collega(); },
            // The agent frame showed its first row before the answers to its events were
            // connected: shown again, the row gets its name, details and unbound fields.
            [&] { gestione(Agenti).refresh(); },
        });
    if (esito == Outcome::Abandoned)
        unload();
}

void FRMMG_AGENTI::posizionaSuAgenteRichiesto()
{
    controls::NavigatorBar& internav = m_controlli.navigazione.INTERNAV;
    frame::GestAnagrafica& agenti = gestione(Agenti);
    QString codice;
    reportWithChoice(
        m_errori, QStringLiteral("Form_Activate"),
        {
            [&] { internav.setCalledMode(true); },
            [&] {
                internav.relabelButton(controls::NavigatorKey::Print, QStringLiteral("Esporta"),
                                       QStringLiteral("Esporta"));
            },
            [&] { agenti.setStatus(frame::FrameStatus::New); },
            [&] {
                CLSMG_AGENTI& chiamante = richiesto(m_activeClass, "ActiveClass");
                codice = chiamante.CalledById() ? CodiceAgenteDaId(m_ambiente.connessione(),
                                                                   chiamante.IDAGENTE().toInt())
                                                : chiamante.CodiceAgente().toString();
            },
            [&] {
                controls::Field& campoAgente = m_controlli.navigazione.TXT_AGENTE;
                campoAgente.setText(codice);
                richiesto(Grst_GestAnagrafica(Agenti).get(), "Grst_GestAnagrafica1")
                    .setValue(campoAgente.dataField(), codice);
            },
            [&] { agenti.search(true, true); },
            [&] {
                const QString richiesto = RTrimN(codice).toString();
                if (agenti.status() == frame::FrameStatus::Browse && !richiesto.isEmpty())
                    m_albero->posizionaSuAgente(codice);
            },
        });
}

void FRMMG_AGENTI::Form_Activate()
{
    const bool chiamato = m_activeInterface && m_activeInterface->IsCalled();
    reportWithChoice(m_errori, QStringLiteral("Form_Activate"),
                     {
                         [&] { m_ambiente.modulo().setActiveFrame(FME_GestAnagrafica(Agenti)); },
                         [&] { AggiornaNavigatore(); },
                         [&] {
                             if (m_giaCaricata)
                                 return Flow::Leave;
                             m_giaCaricata = true;
                             return Flow::Next;
                         },
                         [&] { m_albero->INIT_GRD_AGENTI(); },
                         [&] { m_albero->CaricaTabTreeview(); },
                         [&] { m_albero->CaricaAlberoAgenti(); },
                         [&] {
                             if (chiamato)
                                 posizionaSuAgenteRichiesto();
                             else
                                 controllo<controls::NavigatorBar>(u"INTERNAV")
                                     .relabelButton(controls::NavigatorKey::Print,
                                                    controls::NavigatorKey::Confirm,
                                                    controls::NavigatorKey::Confirm);
                         },
                         [&] {
                             const qint32 modo = m_ambiente.modulo().ProgramMode();
                             if (modo >= int(frame::FrameStatus::Browse) &&
                                 modo <= int(frame::FrameStatus::New))
                                 gestione(Agenti).setStatus(frame::FrameStatus{modo});
                         },
                         [&] {
                             auto& pannello = controllo<controls::Panel>(u"FRAME_MESSAGGIO");
                             pannello.setVisible(false);
                             pannello.setEnabled(false);
                         },
                         [&] { INIT_GRD_DETTAGLIOGIRI(*this); },
                         [&] { INIT_GRD_GIRI(*this); },
                         [&] { INIT_GRID_AGENTIMAT(*this); },
                         [&] { INIT_GRID_AGENTISOCI(*this); },
                         [&] {
                             auto& agente = controllo<controls::Field>(u"TXT_AGENTE");
                             if (agente.isEnabled())
                                 agente.setFocus();
                             else
                                 controllo<controls::Control>(u"CBO_REGPROV").setFocus();
                         },
                         [&] { ExecuteFormEvent(EventoApertura); },
                         [&] { m_ambiente.globale().registerApplication(applicazione()); },
                     });
}

void FRMMG_AGENTI::AggiornaNavigatore()
{
    ignoreEachStep({
        [&] { m_ambiente.globale().setActiveModule(m_activeInterface); },
        [&] {
            QObject* attivo = m_ambiente.modulo().ActiveFrame();
            if (!attivo)
                return;
            auto* gestione = qobject_cast<frame::GestAnagrafica*>(attivo);
            if (!gestione)
                throw db::RuntimeError(db::RuntimeError::TypeMismatch,
                                       QStringLiteral("Type mismatch"));
            m_ambiente.navigatore().setFrameStatus(gestione->frameStatus());
        },
        [&] { m_ambiente.navigatore().refresh(); },
    });
}

void FRMMG_AGENTI::ExecuteFormEvent(const db::Value& evento)
{
    const QString nome = evento.toString();
    const bool apertura = nome == EventoApertura;
    if (!apertura && nome != EventoChiusura)
        return;
    reportWithChoice(m_errori, QStringLiteral("ExecuteFormEvent"),
                     {
                         [&] {
                             if (apertura)
                                 m_ambiente.navigatore().update();
                         },
                         [&] {
                             if (host::NavigatorScript* script =
                                     m_ambiente.navigatore().scriptObject())
                                 script->formEvent(objectName(), 0, apertura, objectName());
                         },
                     });
}

void FRMMG_AGENTI::SelezionaTab(short pagina)
{
    m_pagine.SelezionaTab(pagina);
}

void FRMMG_AGENTI::TAB_AGENTI_Click(int pagina)
{
    if (m_pagine.CambioTabDaCodice() && pagina >= Pagina::Soci && pagina <= Pagina::Giri)
        return;
    QString destinazione;
    switch (pagina) {
    case Pagina::DatiGenerali:
        destinazione = QStringLiteral("CBO_REGPROV");
        break;
    case Pagina::Soci: {
        const db::RecordsetPtr soci = Grst_GestAnagrafica(Soci);
        const bool conSoci = soci && soci->recordCount() > 0 &&
                             CDecN(m_controlli.dettagli.TXT_CODSOCIO.text()) != db::Value(0);
        destinazione = conSoci ? QStringLiteral("GRID_AGENTISOCI") : QStringLiteral("TXT_CODSOCIO");
        break;
    }
    case Pagina::Maturazione: {
        const db::RecordsetPtr maturazione = Grst_GestAnagrafica(Maturazione);
        const bool vuota = !maturazione || maturazione->recordCount() == 0;
        destinazione = vuota ? QStringLiteral("CBO_TIPOEFF") : QStringLiteral("GRID_AGENTIMAT");
        break;
    }
    case Pagina::TentataVendita:
        destinazione = QStringLiteral("TXT_TVTARGA");
        break;
    case Pagina::Giri:
        destinazione = QStringLiteral("TXT_GIRO");
        break;
    default:
        return;
    }
    controllo<controls::Control>(destinazione).setFocus();
}

void FRMMG_AGENTI::Form_QueryUnload(controls::CloseArgs& args)
{
    ignoreEachStep({
        [&] { AggiornaNavigatore(); },
        [&] { return args.cancel ? Flow::Leave : Flow::Next; },
        [&] { ExecuteFormEvent(EventoChiusura); },
        [&] {
            if (!gestione(Agenti).confirmPendingChanges({.check = true, .ask = true}))
                args.cancel = true;
        },
    });
}

void FRMMG_AGENTI::rilasciaGestioni()
{
    for (QPointer<frame::GestAnagrafica>& gestione : m_gestioni) {
        if (!gestione)
            continue;
        gestione->terminate();
        // A frame may be the one whose event brought the screen down: it goes once the event
        // is over.
        gestione->deleteLater();
        gestione.clear();
    }
}

void FRMMG_AGENTI::Form_Unload()
{
    m_scaricata = true;
    ignoreEachStep({
        [&] {
            const QString chiave =
                richiesto(m_ambiente.modulo().ClsVoceMenu(), "ClsVoceMenu").key();
            richiesto(m_ambiente.navigatore().scriptObject(), "ScriptObject").key(chiave);
        },
        [&] { m_ambiente.navigatore().setSecondObject(nullptr); },
        [&] { m_ambiente.navigatore().setScriptObject(nullptr); },
        [&] { m_ambiente.globale().deregisterModule(m_activeInterface); },
        [&] { rilasciaGestioni(); },
        [&] { m_dettagli->TeminateElencoGiri(); },
        [&] { m_oggetti.priorita.reset(); },
        [&] { m_albero->rilascia(); },
        [&] {
            for (const char* nome : {"GRIDNAV_AGENTISOCI", "GRIDNAV_AGENTIMAT", "GRIDNAV_GIRI"})
                controllo<controls::GridNavigator>(QString::fromUtf8(nome)).setGrid(nullptr);
            m_controlli.navigazione.INTERNAV.setTarget(nullptr);
        },
        [&] { m_ambiente.globale().deregisterModule(m_activeInterface); },
        [&] { m_ambiente.globale().setActiveModule(nullptr); },
        [&] { m_ambiente.globale().setSecondModule(nullptr); },
        [&] { richiesto(m_log.get(), "Gcls_Log").end(); },
        [&] {
            m_errori.setLog(nullptr);
            m_log.reset();
        },
        [&] { m_ambiente.connessione().close(); },
        [&] {
            m_errori.setConnection(nullptr);
            m_connessione.reset();
        },
        [&] { m_oggetti = {}; },
        [&] { m_ambiente.modulo().setActiveDll(nullptr); },
        [&] {
            m_activeClass = nullptr;
            m_activeInterface = nullptr;
        },
    });
}

} // namespace tarvello::agenti
