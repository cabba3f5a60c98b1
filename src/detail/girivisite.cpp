#include "src/detail/girivisite.h"

#include "platform/controls/eventargs.h"
#include "platform/controls/field.h"
#include "platform/controls/grid.h"
#include "platform/db/connection.h"
#include "platform/db/runtimeerror.h"
#include "platform/frame/gestanagrafica.h"
#include "src/common/errorstyles.h"
#include "src/common/richiesto.h"
#include "src/common/valuehelpers.h"
#include "src/data/sqldettagli.h"
#include "src/detail/clientigiro.h"
#include "src/detail/controllorigagiro.h"
#include "src/detail/operazionidettaglio.h"
#include "src/detail/ordinegiro.h"
#include "src/detail/righegiro.h"
#include "src/host/lookupdecoder.h"
#include "src/screen/ambienteagenti.h"

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

GiriVisite::GiriVisite(const ControlliAgenti& controlli,
                       const QPointer<frame::GestAnagrafica>& agente,
                       const QPointer<frame::GestAnagrafica>& dettaglio,
                       const AmbienteAgenti& ambiente)
    : m_controlli(controlli.giriVisite)
    , m_agente(agente)
    , m_dettaglio(dettaglio)
    , m_ambiente(ambiente)
    , m_controllo(std::make_unique<ControlloRigaGiro>(controlli.giriVisite.TXT_GIRO, agente,
                                                      dettaglio, ambiente))
    , m_righe(std::make_unique<RigheGiro>(controlli.righeGiro, dettaglio, ambiente))
    , m_ordine(std::make_unique<OrdineGiro>(controlli.ordineGiro, dettaglio))
    , m_clienti(
          std::make_unique<ClientiGiro>(controlli.clientiGiro, *this, agente, dettaglio, ambiente))
{}

GiriVisite::~GiriVisite() = default;

void GiriVisite::collega()
{
    controls::Field& giro = m_controlli.TXT_GIRO;
    QObject::connect(&giro, &controls::Field::gotFocus, &m_contesto,
                     [this] { TXT_GIRO_GotFocus(); });
    QObject::connect(&giro, &controls::Field::lostFocus, &m_contesto,
                     [this] { TXT_GIRO_LostFocus(); });
    QObject::connect(&giro, &controls::Field::decodeRequested, &m_contesto,
                     [this](controls::DecodeArgs& args) { TXT_GIRO_Decode(args); });
    QObject::connect(&giro, &controls::Field::lookupRequested, &m_contesto,
                     [this](controls::LookupArgs& args) { TXT_GIRO_Lookup(args); });
    QObject::connect(&m_controlli.GRD_GIRI, &controls::Grid::clicked, &m_contesto,
                     [this] { GRD_GIRI_Click(); });
    QObject::connect(&m_controlli.GRD_DETTAGLIOGIRI, &controls::Grid::cellTextRequested,
                     &m_contesto,
                     [this](controls::CellTextArgs& args) { GRD_DETTAGLIOGIRI_CellText(args); });
    m_righe->collega();
    m_ordine->collega();
    m_clienti->collega();
    m_controllo->collega();

    frame::GestAnagrafica* dettaglio = m_dettaglio;
    if (!dettaglio)
        return;
    QObject::connect(dettaglio, &frame::GestAnagrafica::AfterAddNew, &m_contesto,
                     [this](int esito) { FME_GestAnagrafica5_AfterAddNew(esito); });
    QObject::connect(dettaglio, &frame::GestAnagrafica::ChangeStatus, &m_contesto,
                     [this](int stato, int) { FME_GestAnagrafica5_ChangeStatus(stato); });
    QObject::connect(dettaglio, &frame::GestAnagrafica::UpdateBatchAll, &m_contesto,
                     [this] { FME_GestAnagrafica5_UpdateBatchAll(); });
}

void GiriVisite::prendiGiroDalCampo()
{
    m_giroCorrente = RTrimN(m_controlli.TXT_GIRO.text()).toString();
}

void GiriVisite::mostraGiro(const QString& codice)
{
    controls::Field& giro = m_controlli.TXT_GIRO;
    giro.setText(codice);
    giro.decode();
    prendiGiroDalCampo();
}

void GiriVisite::ImpostaElencoGiri()
{
    db::ResultSet giri;
    reportWithChoice(
        m_ambiente.errori(), QStringLiteral("ImpostaElencoGiri"),
        {
            [&] {
                if (m_elencoGiri && m_elencoGiri->isOpen())
                    m_elencoGiri->close();
            },
            [&] { m_elencoGiri.reset(); },
            [&] {
                giri = m_ambiente.connessione().query(
                    sql::elencoGiriAgente(m_ambiente.Codice_Ditta(), idAgenteCorrente(m_agente)));
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
            [&] { m_controlli.GRD_GIRI.setDataSource(m_elencoGiri); },
            [&] { m_controllo->AzzeraRisposte(); },
        });
}

void GiriVisite::TeminateElencoGiri()
{
    reportWithChoice(m_ambiente.errori(), QStringLiteral("TeminateElencoGiri"),
                     {
                         [&] {
                             if (m_elencoGiri && m_elencoGiri->isOpen())
                                 m_elencoGiri->close();
                         },
                         [&] {
                             controls::Grid& griglia = m_controlli.GRD_GIRI;
                             if (griglia.dataSource() == m_elencoGiri)
                                 griglia.setDataSource(nullptr);
                             m_elencoGiri.reset();
                         },
                     });
}

void GiriVisite::Refresh_VF_MG1H(bool aggiungiGiro)
{
    reportWithChoice(m_ambiente.errori(), QStringLiteral("Refresh_VF_MG1H"),
                     {
                         [&] {
                             m_controlli.GRD_DETTAGLIOGIRI.setDataSource(
                                 m_giroCorrente.isEmpty() ? nullptr : righeDi(m_dettaglio));
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
    controls::Grid& elenco = m_controlli.GRD_GIRI;
    elenco.setDataSource(nullptr);
    if (!posizionaElenco(m_giroCorrente)) {
        m_elencoGiri->addNew();
        m_elencoGiri->setValue(u"MG1H_GIRO", m_giroCorrente);
        m_elencoGiri->setValue(u"MG1H_DESCRIZIONE", m_controlli.TXT_DESCGIRO.text());
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
    frame::GestAnagrafica* dettaglio = m_dettaglio;
    return nuovo == m_giroCorrente || !dettaglio || dettaglio->confirmLettingRowsGo();
}

void GiriVisite::CaricaDettaglioGiro()
{
    const QString giro = RTrimN(m_controlli.TXT_GIRO.text()).toString();
    const qint64 agente = idAgenteCorrente(m_agente);
    frame::GestAnagrafica& dettaglio = richiesto(m_dettaglio.data(), "FME_GestAnagrafica");
    dettaglio.reopen(sql::dettaglioGiriDelGiro(m_ambiente.Codice_Ditta(), agente, giro));
    const db::RecordsetPtr righe = dettaglio.recordset();
    if (righe->recordCount() > 0)
        riscriviAgente(dettaglio, *righe, u"MG1I_IDAGENTE_MG17", agente);
}

void GiriVisite::GRD_GIRI_Click()
{
    reportWithChoice(m_ambiente.errori(), QStringLiteral("GRD_GIRI_Click"),
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
    reportWithChoice(m_ambiente.errori(), QStringLiteral("TXT_GIRO_GotFocus"),
                     {[&] { prendiGiroDalCampo(); }});
}

void GiriVisite::TXT_GIRO_LostFocus()
{
    const controls::Field& giro = m_controlli.TXT_GIRO;
    QString nuovo;
    reportWithChoice(m_ambiente.errori(), QStringLiteral("TXT_GIRO_LostFocus"),
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
    controls::Field& descrizione = m_controlli.TXT_DESCGIRO;
    const QString codice = RTrimN(m_controlli.TXT_GIRO.text()).toString();
    if (codice.isEmpty()) {
        descrizione.setText(QString());
        return;
    }
    host::LookupDecoder& giri = decodificatore(m_ambiente.decodificatori().giri.get(), "LKP_GIRI");
    giri.prepareDecoding(DefinizioneGiri, codice, descrizione.name());
    args.sql = giri.query();
    args.targets = {{&descrizione, giri.targets().value(0).column}};
    args.connectionString = m_ambiente.Gstr_Connect();
}

void GiriVisite::TXT_GIRO_Lookup(controls::LookupArgs& args)
{
    host::LookupDecoder& giri = decodificatore(m_ambiente.decodificatori().giri.get(), "LKP_GIRI");
    giri.prepareLookup(DefinizioneGiri);
    args.sql = giri.query();
    args.columns = giri.columns();
    args.title = giri.title();
    args.connectionString = m_ambiente.Gstr_Connect();
    m_controlli.TXT_GIRO.setLookupId(QStringLiteral("Lkp_Giri"));
}

void GiriVisite::FME_GestAnagrafica5_AfterAddNew(int fenm_operationresult)
{
    if (fenm_operationresult != frame::OperationSucceeded)
        return;
    const db::RecordsetPtr righe = m_dettaglio->recordset();
    ignoreEachStep({
        [&] { righe->setValue(u"MG1I_DITTA_CG18", m_ambiente.Codice_Ditta()); },
        [&] { righe->setValue(u"MG1I_IDAGENTE_MG17", MG17_IDAGENTE(m_agente)); },
        [&] { righe->setValue(u"MG1I_GIRO_MG1H", RTrimN(m_giroCorrente)); },
    });
}

void GiriVisite::FME_GestAnagrafica5_ChangeStatus(int fenm_status)
{
    reportWithChoice(m_ambiente.errori(), QStringLiteral("FME_GestAnagrafica5_ChangeStatus"),
                     {
                         [&] {
                             controls::Field& cliente = m_controlli.TXT_CLIENTE;
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
    frame::GestAnagrafica& dettaglio = *m_dettaglio;
    const db::RecordsetPtr righe = dettaglio.recordset();
    controls::Grid& griglia = m_controlli.GRD_DETTAGLIOGIRI;
    ignoreEachStep({
        [&] {
            return dettaglio.changeFlag() || dettaglio.secondChangeFlag() ? Flow::Next
                                                                          : Flow::Leave;
        },
        [&] { dettaglio.setGrid(nullptr); },
        [&] { griglia.setDataSource(nullptr); },
        [&] { dettaglio.setRecordset(nullptr); },
        [&] { scriviInBlocco(m_ambiente, *righe, QStringLiteral("il dettaglio dei giri visite")); },
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
                descrizioneDecodificata(m_ambiente, m_ambiente.decodificatori().clienti.get(),
                                        DefinizioneClienti, args.value);
            return Flow::Next;
        },
    });
}

} // namespace tarvello::agenti
