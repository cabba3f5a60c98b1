#include "src/detail/clientigiro.h"

#include "platform/controls/button.h"
#include "platform/controls/field.h"
#include "platform/controls/form.h"
#include "platform/frame/gestanagrafica.h"
#include "src/common/errorreporter.h"
#include "src/common/errorstyles.h"
#include "src/common/richiesto.h"
#include "src/common/valuehelpers.h"
#include "src/detail/controllorigagiro.h"
#include "src/detail/girivisite.h"
#include "src/detail/operazionidettaglio.h"
#include "src/host/cinterface.h"
#include "src/host/errorlog.h"
#include "src/host/globalcontext.h"
#include "src/host/hostobjects.h"
#include "src/host/navigator.h"
#include "src/host/warehouseconnection.h"
#include "src/screen/ambienteagenti.h"

#include <QSet>

namespace tarvello::agenti {

namespace {

bool vuoto(const db::Recordset& righe)
{
    return righe.bof() && righe.eof();
}

QString testoCampo(const controls::Field& campo)
{
    return RTrimN(campo.text()).toString();
}

// The customers and destinations the route holds, so that each one handed to it is looked up
// once instead of walking every row of the route again.
using ClienteDestinazione = std::pair<qint64, QString>;
QSet<ClienteDestinazione> clientiNelGiro(const db::Recordset& righe)
{
    QSet<ClienteDestinazione> presenti;
    const db::RecordsetPtr copia = righe.clone();
    copia->setFilter(righe.filter());
    for (copia->moveFirst(); !copia->eof(); copia->moveNext())
        presenti.insert({CDecN(copia->value(u"MG1I_CLIFOR_CG44")).toInt64(),
                         RTrimN(NvlN(copia->value(u"MG1I_CODDEST_MG22"), QString())).toString()});
    return presenti;
}

} // namespace

ClientiGiro::ClientiGiro(const ControlliClientiGiro& controlli, GiriVisite& giri,
                         const QPointer<frame::GestAnagrafica>& agente,
                         const QPointer<frame::GestAnagrafica>& dettaglio,
                         const AmbienteAgenti& ambiente)
    : m_controlli(controlli)
    , m_giri(giri)
    , m_agente(agente)
    , m_dettaglio(dettaglio)
    , m_ambiente(ambiente)
{}

ClientiGiro::~ClientiGiro() = default;

void ClientiGiro::collega()
{
    QObject::connect(&m_controlli.TXT_GIRO, &controls::Field::managementKeyPressed, &m_contesto,
                     [this](const QString& tasto) {
                         if (tasto == u"Kgestione")
                             TXT_GIRO_Kgestione();
                     });
    QObject::connect(&m_controlli.CMD_MULTICLI, &controls::Button::clicked, &m_contesto,
                     [this] { CMD_MULTICLI_ButtonClick(); });
}

host::WarehouseConnection& ClientiGiro::nuovaConnessione()
{
    m_connectMagazzino = m_ambiente.globale().objects().newWarehouseConnection();
    host::WarehouseConnection& connessione =
        richiesto(m_connectMagazzino.get(), "Gcls_ConnectMagazzino");
    connessione.setDataTransferHandler(
        [this](const host::WarehouseTransfer& dati) { Gcls_ConnectMagazzino_DataTransfer(dati); });
    return connessione;
}

void ClientiGiro::riprendiHost()
{
    ignoreEachStep({
        [&] { m_ambiente.modulo().setIsActive(true); },
        [&] { m_ambiente.globale().setActiveModule(m_ambiente.ActiveInterface()); },
        [&] { m_ambiente.navigatore().update(); },
    });
}

bool ClientiGiro::senzaGiro() const
{
    if (!testoCampo(m_controlli.TXT_GIRO).isEmpty())
        return false;
    m_ambiente.errori().log().message(QStringLiteral("Selezionare il giro"), host::Information,
                                      m_ambiente.finestra().caption());
    return true;
}

void ClientiGiro::TXT_GIRO_Kgestione()
{
    ignoreEachStep({
        [&] {
            host::WarehouseConnection& connessione = nuovaConnessione();
            connessione.setModule(m_ambiente.ActiveInterface());
            connessione.setField(&m_controlli.TXT_GIRO);
            const QRect posizione = m_ambiente.finestra().bounds();
            connessione.setPosition(qint32(posizione.left()), qint32(posizione.top()));
            connessione.openRoutes(testoCampo(m_controlli.TXT_GIRO));
        },
        [&] { m_ambiente.modulo().setIsActive(true); },
        [&] { richiesto(m_connectMagazzino.get(), "Gcls_ConnectMagazzino").setModule(nullptr); },
        [&] { m_connectMagazzino.reset(); },
        [&] { m_ambiente.globale().setActiveModule(m_ambiente.ActiveInterface()); },
        [&] { m_ambiente.navigatore().update(); },
    });
}

void ClientiGiro::Gcls_ConnectMagazzino_DataTransfer(const host::WarehouseTransfer& dati)
{
    ignoreEachStep({
        [&] {
            if (dati.operation == host::WarehouseTransfer::Route) {
                if (!m_giri.LasciaGiroCorrente(RTrimN(dati.value).toString()))
                    return;
                m_giri.mostraGiro(dati.value.toString());
                m_giri.Refresh_VF_MG1H(false);
            } else if (dati.operation == host::WarehouseTransfer::Customers) {
                m_elencoClienti = dati.recordset;
            }
        },
    });
}

void ClientiGiro::CMD_MULTICLI_ButtonClick()
{
    reportWithChoice(m_ambiente.errori(), QStringLiteral("CMD_MULTICLI_ButtonClick"),
                     {
                         [&] { RecuperaElencoClienti(); },
                         [&] { InserisciClientiNelGiro(); },
                     });
}

void ClientiGiro::RecuperaElencoClienti()
{
    if (senzaGiro())
        return;
    ignoreEachStep({
        [&] {
            host::WarehouseConnection& connessione = nuovaConnessione();
            connessione.setModule(m_ambiente.ActiveInterface());
            connessione.openCustomerList(testoCampo(m_controlli.TXT_AGENTE));
        },
    });
    riprendiHost();
}

void ClientiGiro::InserisciClientiNelGiro()
{
    if (!m_elencoClienti || m_elencoClienti->recordCount() == 0)
        return;
    if (senzaGiro())
        return;
    frame::GestAnagrafica& dettaglio = richiesto(m_dettaglio.data(), "FME_GestAnagrafica5");
    const db::RecordsetPtr righe = righeDi(m_dettaglio);
    bool aggiunti = false;
    leaveSilently({
        [&] {
            if (dettaglio.status() == frame::FrameStatus::New)
                dettaglio.confirmPendingChanges({.check = true, .show = true});
        },
        [&] {
            const frame::GestAnagrafica::BulkRewrite blocco(dettaglio);
            db::Recordset& elenco = *m_elencoClienti;
            db::Recordset& rs = richiesto(righe.get(), "Grst_GestAnagrafica5");
            QSet<ClienteDestinazione> presenti = clientiNelGiro(rs);
            for (elenco.moveFirst(); !elenco.eof(); elenco.moveNext()) {
                const qint64 c = CDecN(elenco.value(u"CG44_CLIFOR")).toInt64();
                const QString d =
                    RTrimN(NvlN(elenco.value(u"MG22_CODDESTIN"), QString())).toString();
                if (presenti.contains({c, d}))
                    continue;
                if (!vuoto(rs) && !rs.bof() && !rs.eof() &&
                    CDecN(rs.value(u"MG1I_CLIFOR_CG44")).toInt64() == 0) {
                    rs.deleteRow();
                    presenti = clientiNelGiro(rs);
                }
                rs.addNew();
                rs.setValue(u"MG1I_DITTA_CG18", m_ambiente.Codice_Ditta());
                rs.setValue(u"MG1I_GIRO_MG1H", m_controlli.TXT_GIRO.text());
                rs.setValue(u"MG1I_IDAGENTE_MG17", MG17_IDAGENTE(m_agente));
                rs.setValue(u"MG1I_TIPOCF_CG44", 0);
                rs.setValue(u"MG1I_PROGRESSIVO", ProgressivoNuovaRiga(rs));
                rs.setValue(u"MG1I_CLIFOR_CG44", c);
                rs.setValue(u"MG1I_CODDEST_MG22", d.isEmpty() ? db::Value::null() : db::Value(d));
                rs.update();
                presenti.insert({c, d});
                aggiunti = true;
            }
        },
        // Rows added by code are not the frame's own edits: it is told, so that the agent's
        // save writes them with the batch.
        [&] {
            if (aggiunti)
                dettaglio.setChangeFlag(true);
        },
        [&] {
            if (dettaglio.status() == frame::FrameStatus::New)
                dettaglio.confirmPendingChanges({.check = true, .show = true});
        },
    });
}

} // namespace tarvello::agenti
