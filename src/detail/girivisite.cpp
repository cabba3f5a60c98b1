#include "src/detail/girivisite.h"

#include "platform/controls/eventargs.h"
#include "platform/controls/field.h"
#include "platform/controls/grid.h"
#include "platform/db/connection.h"
#include "platform/db/runtimeerror.h"
#include "platform/frame/gestanagrafica.h"
#include "src/common/errorstyles.h"
#include "src/common/valuehelpers.h"
#include "src/data/sqldettagli.h"
#include "src/detail/clientigiro.h"
#include "src/detail/controllorigagiro.h"
#include "src/detail/operazionidettaglio.h"
#include "src/detail/ordinegiro.h"
#include "src/detail/righegiro.h"
#include "src/host/lookupdecoder.h"
#include "src/screen/frmmg_agenti.h"

namespace tarvello::agenti {

namespace {

const QString DefinizioneGiri = QStringLiteral("LKP_GIRI");
const QString DefinizioneClienti = QStringLiteral("LKP_CLIENTI");

host::LookupDecoder& decodificatore(host::LookupDecoder* oggetto, const char* nome)
{
    if (!oggetto)
        throw db::RuntimeError(db::RuntimeError::ObjectRequired, QStringLiteral("Object required"),
                               QString::fromUtf8(nome));
    return *oggetto;
}

} // namespace

GiriVisite::GiriVisite(FRMMG_AGENTI& schermata)
    : m_schermata(schermata)
    , m_controllo(std::make_unique<ControlloRigaGiro>(
          schermata.controlli().giriVisite.TXT_GIRO, schermata.postoGestione(FRMMG_AGENTI::Agenti),
          schermata.postoGestione(FRMMG_AGENTI::DettaglioGiri), schermata.ambiente()))
    , m_righe(std::make_unique<RigheGiro>(schermata.controlli().righeGiro,
                                          schermata.postoGestione(FRMMG_AGENTI::DettaglioGiri),
                                          schermata.ambiente()))
    , m_ordine(std::make_unique<OrdineGiro>(schermata.controlli().ordineGiro,
                                            schermata.postoGestione(FRMMG_AGENTI::DettaglioGiri)))
    , m_clienti(std::make_unique<ClientiGiro>(
          schermata.controlli().clientiGiro, *this, schermata.postoGestione(FRMMG_AGENTI::Agenti),
          schermata.postoGestione(FRMMG_AGENTI::DettaglioGiri), schermata.ambiente()))
{}

GiriVisite::~GiriVisite() = default;

void GiriVisite::collega()
{
    auto& giro = m_schermata.controllo<controls::Field>(u"TXT_GIRO");
    QObject::connect(&giro, &controls::Field::gotFocus, &m_schermata,
                     [this] { TXT_GIRO_GotFocus(); });
    QObject::connect(&giro, &controls::Field::lostFocus, &m_schermata,
                     [this] { TXT_GIRO_LostFocus(); });
    QObject::connect(&giro, &controls::Field::decodeRequested, &m_schermata,
                     [this](controls::DecodeArgs& args) { TXT_GIRO_Decode(args); });
    QObject::connect(&giro, &controls::Field::lookupRequested, &m_schermata,
                     [this](controls::LookupArgs& args) { TXT_GIRO_Lookup(args); });
    QObject::connect(&m_schermata.controllo<controls::Grid>(u"GRD_GIRI"), &controls::Grid::clicked,
                     &m_schermata, [this] { GRD_GIRI_Click(); });
    QObject::connect(&m_schermata.controllo<controls::Grid>(u"GRD_DETTAGLIOGIRI"),
                     &controls::Grid::cellTextRequested, &m_schermata,
                     [this](controls::CellTextArgs& args) { GRD_DETTAGLIOGIRI_CellText(args); });
    m_righe->collega();
    m_ordine->collega();
    m_clienti->collega();
    m_controllo->collega();

    frame::GestAnagrafica* dettaglio = m_schermata.FME_GestAnagrafica(FRMMG_AGENTI::DettaglioGiri);
    if (!dettaglio)
        return;
    QObject::connect(dettaglio, &frame::GestAnagrafica::AfterAddNew, &m_schermata,
                     [this](int esito) { FME_GestAnagrafica5_AfterAddNew(esito); });
    QObject::connect(dettaglio, &frame::GestAnagrafica::ChangeStatus, &m_schermata,
                     [this](int stato, int) { FME_GestAnagrafica5_ChangeStatus(stato); });
    QObject::connect(dettaglio, &frame::GestAnagrafica::UpdateBatchAll, &m_schermata,
                     [this] { FME_GestAnagrafica5_UpdateBatchAll(); });
}

void GiriVisite::prendiGiroDalCampo()
{
    m_giroCorrente = RTrimN(m_schermata.controllo<controls::Field>(u"TXT_GIRO").text()).toString();
}

void GiriVisite::mostraGiro(const QString& codice)
{
    auto& giro = m_schermata.controllo<controls::Field>(u"TXT_GIRO");
    giro.setText(codice);
    giro.decode();
    prendiGiroDalCampo();
}

void GiriVisite::ImpostaElencoGiri()
{
    db::ResultSet giri;
    reportWithChoice(
        m_schermata.errori(), QStringLiteral("ImpostaElencoGiri"),
        {
            [&] {
                if (m_elencoGiri && m_elencoGiri->isOpen())
                    m_elencoGiri->close();
            },
            [&] { m_elencoGiri.reset(); },
            [&] {
                giri = m_schermata.connessione().query(sql::elencoGiriAgente(
                    m_schermata.Codice_Ditta(),
                    idAgenteCorrente(m_schermata.postoGestione(FRMMG_AGENTI::Agenti))));
            },
            [&] {
                m_elencoGiri = db::Recordset::create();
                m_elencoGiri->appendField(QStringLiteral("MG1H_GIRO"), db::ColumnKind::Text);
                m_elencoGiri->appendField(QStringLiteral("MG1H_DESCRIZIONE"), db::ColumnKind::Text);
                m_elencoGiri->openInMemory();
            },
            [&] {
                for (const db::ValueList& riga : std::as_const(giri.rows)) {
                    m_elencoGiri->addNew();
                    m_elencoGiri->setValue(u"MG1H_GIRO", riga.value(0));
                    m_elencoGiri->setValue(u"MG1H_DESCRIZIONE", riga.value(1));
                    m_elencoGiri->update();
                }
            },
            [&] {
                if (m_elencoGiri->bof() && m_elencoGiri->eof()) {
                    mostraGiro(QString());
                } else {
                    m_elencoGiri->moveFirst();
                    mostraGiro(m_elencoGiri->value(u"MG1H_GIRO").toString());
                }
            },
            [&] { m_schermata.controllo<controls::Grid>(u"GRD_GIRI").setDataSource(m_elencoGiri); },
            [&] { m_controllo->AzzeraRisposte(); },
        });
}

void GiriVisite::TeminateElencoGiri()
{
    reportWithChoice(m_schermata.errori(), QStringLiteral("TeminateElencoGiri"),
                     {
                         [&] {
                             if (m_elencoGiri && m_elencoGiri->isOpen())
                                 m_elencoGiri->close();
                         },
                         [&] {
                             if (auto* griglia = m_schermata.find<controls::Grid>(u"GRD_GIRI");
                                 griglia && griglia->dataSource() == m_elencoGiri)
                                 griglia->setDataSource(nullptr);
                             m_elencoGiri.reset();
                         },
                     });
}

void GiriVisite::Refresh_VF_MG1H(bool aggiungiGiro)
{
    reportWithChoice(m_schermata.errori(), QStringLiteral("Refresh_VF_MG1H"),
                     {
                         [&] {
                             m_schermata.controllo<controls::Grid>(u"GRD_DETTAGLIOGIRI")
                                 .setDataSource(m_giroCorrente.isEmpty()
                                                    ? nullptr
                                                    : m_schermata.Grst_GestAnagrafica(
                                                          FRMMG_AGENTI::DettaglioGiri));
                         },
                         [&] {
                             if (aggiungiGiro && !m_giroCorrente.isEmpty() && m_elencoGiri)
                                 aggiungiAlElenco();
                         },
                         [&] { CaricaDettaglioGiro(); },
                     });
}

// A route typed in TXT_GIRO that the agent has no customers on yet is listed at once.
void GiriVisite::aggiungiAlElenco()
{
    auto& elenco = m_schermata.controllo<controls::Grid>(u"GRD_GIRI");
    elenco.setDataSource(nullptr);
    if (!posizionaElenco(m_giroCorrente)) {
        m_elencoGiri->addNew();
        m_elencoGiri->setValue(u"MG1H_GIRO", m_giroCorrente);
        m_elencoGiri->setValue(u"MG1H_DESCRIZIONE",
                               m_schermata.controllo<controls::Field>(u"TXT_DESCGIRO").text());
        m_elencoGiri->update();
    }
    elenco.setDataSource(m_elencoGiri);
}

bool GiriVisite::posizionaElenco(const QString& giro)
{
    if (m_elencoGiri->bof() && m_elencoGiri->eof())
        return false;
    m_elencoGiri->moveFirst();
    return m_elencoGiri->find(QStringLiteral("MG1H_GIRO = ") + db::quoted(giro));
}

bool GiriVisite::LasciaGiroCorrente(const QString& nuovo)
{
    frame::GestAnagrafica* dettaglio = m_schermata.FME_GestAnagrafica(FRMMG_AGENTI::DettaglioGiri);
    return nuovo == m_giroCorrente || !dettaglio || dettaglio->confirmLettingRowsGo();
}

void GiriVisite::CaricaDettaglioGiro()
{
    const QString giro =
        RTrimN(m_schermata.controllo<controls::Field>(u"TXT_GIRO").text()).toString();
    const qint64 agente = idAgenteCorrente(m_schermata.postoGestione(FRMMG_AGENTI::Agenti));
    m_schermata.gestione(FRMMG_AGENTI::DettaglioGiri)
        .reopen(sql::dettaglioGiriDelGiro(m_schermata.Codice_Ditta(), agente, giro));
    const db::RecordsetPtr righe = m_schermata.Grst_GestAnagrafica(FRMMG_AGENTI::DettaglioGiri);
    if (righe->recordCount() > 0)
        riscriviAgente(*m_schermata.FME_GestAnagrafica(FRMMG_AGENTI::DettaglioGiri), *righe,
                       u"MG1I_IDAGENTE_MG17", agente);
}

void GiriVisite::GRD_GIRI_Click()
{
    reportWithChoice(m_schermata.errori(), QStringLiteral("GRD_GIRI_Click"),
                     {
                         [&] {
                             if (!m_elencoGiri || m_elencoGiri->bof() || m_elencoGiri->eof())
                                 return Flow::Leave;
                             const QString codice =
                                 RTrimN(m_elencoGiri->value(u"MG1H_GIRO")).toString();
                             if (codice.isEmpty())
                                 return Flow::Leave;
                             if (!LasciaGiroCorrente(codice)) {
                                 posizionaElenco(m_giroCorrente);
                                 return Flow::Leave;
                             }
                             mostraGiro(codice);
                             return Flow::Next;
                         },
                         [&] { Refresh_VF_MG1H(false); },
                     });
}

void GiriVisite::TXT_GIRO_GotFocus()
{
    reportWithChoice(m_schermata.errori(), QStringLiteral("TXT_GIRO_GotFocus"),
                     {[&] { prendiGiroDalCampo(); }});
}

void GiriVisite::TXT_GIRO_LostFocus()
{
    const auto& giro = m_schermata.controllo<controls::Field>(u"TXT_GIRO");
    QString nuovo;
    reportWithChoice(m_schermata.errori(), QStringLiteral("TXT_GIRO_LostFocus"),
                     {
                         [&] {
                             nuovo = RTrimN(giro.text()).toString();
                             return nuovo == m_giroCorrente || !giro.isValid() ? Flow::Leave
                                                                               : Flow::Next;
                         },
                         [&] {
                             if (LasciaGiroCorrente(nuovo))
                                 return Flow::Next;
                             mostraGiro(m_giroCorrente);
                             return Flow::Leave;
                         },
                         [&] {
                             // Saved, the agent's details were shown again from its first route.
                             if (RTrimN(giro.text()).toString() != nuovo)
                                 mostraGiro(nuovo);
                         },
                         [&] { prendiGiroDalCampo(); },
                         [&] { Refresh_VF_MG1H(true); },
                     });
}

void GiriVisite::TXT_GIRO_Decode(controls::DecodeArgs& args)
{
    auto& descrizione = m_schermata.controllo<controls::Field>(u"TXT_DESCGIRO");
    const QString codice =
        RTrimN(m_schermata.controllo<controls::Field>(u"TXT_GIRO").text()).toString();
    if (codice.isEmpty()) {
        descrizione.setText(QString());
        return;
    }
    host::LookupDecoder& giri = decodificatore(m_schermata.decodificatoreGiri(), "LKP_GIRI");
    giri.prepareDecoding(DefinizioneGiri, codice, descrizione.name());
    args.sql = giri.query();
    args.targets = {{&descrizione, giri.targets().value(0).column}};
    args.connectionString = m_schermata.Gstr_Connect();
}

void GiriVisite::TXT_GIRO_Lookup(controls::LookupArgs& args)
{
    host::LookupDecoder& giri = decodificatore(m_schermata.decodificatoreGiri(), "LKP_GIRI");
    giri.prepareLookup(DefinizioneGiri);
    args.sql = giri.query();
    args.columns = giri.columns();
    args.title = giri.title();
    args.connectionString = m_schermata.Gstr_Connect();
    m_schermata.controllo<controls::Field>(u"TXT_GIRO").setLookupId(QStringLiteral("Lkp_Giri"));
}

void GiriVisite::FME_GestAnagrafica5_AfterAddNew(int fenm_operationresult)
{
    if (fenm_operationresult != frame::OperationSucceeded)
        return;
    const db::RecordsetPtr righe =
        m_schermata.FME_GestAnagrafica(FRMMG_AGENTI::DettaglioGiri)->recordset();
    ignoreEachStep({
        [&] { righe->setValue(u"MG1I_DITTA_CG18", m_schermata.Codice_Ditta()); },
        [&] {
            righe->setValue(u"MG1I_IDAGENTE_MG17",
                            MG17_IDAGENTE(m_schermata.postoGestione(FRMMG_AGENTI::Agenti)));
        },
        [&] { righe->setValue(u"MG1I_GIRO_MG1H", RTrimN(m_giroCorrente)); },
    });
}

void GiriVisite::FME_GestAnagrafica5_ChangeStatus(int fenm_status)
{
    reportWithChoice(m_schermata.errori(), QStringLiteral("FME_GestAnagrafica5_ChangeStatus"),
                     {
                         [&] {
                             auto& cliente = m_schermata.controllo<controls::Field>(u"TXT_CLIENTE");
                             if (frame::FrameStatus{fenm_status} == frame::FrameStatus::New)
                                 cliente.setEnabled(true);
                             else if (frame::FrameStatus{fenm_status} == frame::FrameStatus::Browse)
                                 cliente.setEnabled(false);
                         },
                     });
}

// A new row still being entered is written too: unlike the other details, it is not dropped.
void GiriVisite::FME_GestAnagrafica5_UpdateBatchAll()
{
    frame::GestAnagrafica& dettaglio = *m_schermata.FME_GestAnagrafica(FRMMG_AGENTI::DettaglioGiri);
    const db::RecordsetPtr righe = m_schermata.Grst_GestAnagrafica(FRMMG_AGENTI::DettaglioGiri);
    auto& griglia = m_schermata.controllo<controls::Grid>(u"GRD_DETTAGLIOGIRI");
    ignoreEachStep({
        [&] {
            return dettaglio.changeFlag() || dettaglio.secondChangeFlag() ? Flow::Next
                                                                          : Flow::Leave;
        },
        [&] { dettaglio.setGrid(nullptr); },
        [&] { griglia.setDataSource(nullptr); },
        [&] { dettaglio.setRecordset(nullptr); },
        [&] {
            scriviInBlocco(m_schermata.ambiente(), *righe,
                           QStringLiteral("il dettaglio dei giri visite"));
        },
        [&] { dettaglio.setRecordset(righe); },
        [&] { griglia.setDataSource(righe); },
        [&] { dettaglio.setGrid(&griglia); },
        [&] {
            if (righe->recordCount() == 0)
                dettaglio.setStatus(frame::FrameStatus::New);
        },
        [&] { dettaglio.refresh(); },
    });
}

void GiriVisite::GRD_DETTAGLIOGIRI_CellText(controls::CellTextArgs& args)
{
    if (args.field != u"MG1I_CLIFOR_CG44")
        return;
    ignoreEachStep({
        [&] {
            if (NvlN(args.text, QString()).toString().isEmpty())
                return Flow::Leave;
            args.text =
                descrizioneDecodificata(m_schermata.ambiente(), m_schermata.decodificatoreClienti(),
                                        DefinizioneClienti, args.value);
            return Flow::Next;
        },
    });
}

} // namespace tarvello::agenti
