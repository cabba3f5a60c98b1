#include "src/detail/righegiro.h"

#include "platform/controls/button.h"
#include "platform/controls/eventargs.h"
#include "platform/controls/field.h"
#include "platform/controls/grid.h"
#include "platform/controls/navigator.h"
#include "platform/frame/gestanagrafica.h"
#include "src/common/errorstyles.h"
#include "src/common/richiesto.h"
#include "src/common/valuehelpers.h"
#include "src/detail/operazionidettaglio.h"
#include "src/host/lookupdecoder.h"
#include "src/screen/ambienteagenti.h"

namespace tarvello::agenti {

namespace {

const QString DefinizioneClienti = QStringLiteral("LKP_CLIENTI");
const QString DefinizioneDestinazioni = QStringLiteral("LKP_DESTINAZIONI");

} // namespace

RigheGiro::RigheGiro(const ControlliRigheGiro& controlli,
                     const QPointer<frame::GestAnagrafica>& dettaglio,
                     const AmbienteAgenti& ambiente)
    : m_controlli(controlli)
    , m_dettaglio(dettaglio)
    , m_ambiente(ambiente)
{}

std::array<controls::Field*, 7> RigheGiro::campiCliente() const
{
    return {&m_controlli.TXT_C_RAGSOC, &m_controlli.TXT_C_INDIRIZZO, &m_controlli.TXT_C_CAP,
            &m_controlli.TXT_C_CITTA,  &m_controlli.TXT_C_PR,        &m_controlli.TXT_C_PIVA,
            &m_controlli.TXT_C_PIVA};
}

void RigheGiro::collega()
{
    controls::Field& cliente = m_controlli.TXT_CLIENTE;
    QObject::connect(&cliente, &controls::Field::gotFocus, &m_contesto,
                     [this] { TXT_CLIENTE_GotFocus(); });
    QObject::connect(&cliente, &controls::Field::lostFocus, &m_contesto,
                     [this] { TXT_CLIENTE_LostFocus(); });
    QObject::connect(&cliente, &controls::Field::decodeRequested, &m_contesto,
                     [this](controls::DecodeArgs& args) { TXT_CLIENTE_Decode(args); });
    QObject::connect(&cliente, &controls::Field::lookupRequested, &m_contesto,
                     [this](controls::LookupArgs& args) { TXT_CLIENTE_Lookup(args); });
    controls::Field& destinazione = m_controlli.TXT_MG1I_CODDEST_MG22;
    QObject::connect(&destinazione, &controls::Field::decodeRequested, &m_contesto,
                     [this](controls::DecodeArgs& args) { TXT_MG1I_CODDEST_MG22_Decode(args); });
    QObject::connect(&destinazione, &controls::Field::lookupRequested, &m_contesto,
                     [this](controls::LookupArgs& args) { TXT_MG1I_CODDEST_MG22_Lookup(args); });
    QObject::connect(&m_controlli.GRIDNAV_GIRI, &controls::Navigator::afterButton, &m_contesto,
                     [this](bool riuscito, const QString& pulsante) {
                         GRIDNAV_GIRI_AfterButtonClick(riuscito, pulsante);
                     });
    QObject::connect(&m_controlli.CMD_AZZERRAGIRO, &controls::Button::clicked, &m_contesto,
                     [this] { CMD_AZZERRAGIRO_ButtonClick(); });

    frame::GestAnagrafica* dettaglio = m_dettaglio;
    if (!dettaglio)
        return;
    QObject::connect(dettaglio, &frame::GestAnagrafica::BeforeDelete, &m_contesto,
                     [this](frame::CancelArgs& args) { FME_GestAnagrafica5_BeforeDelete(args); });
    QObject::connect(dettaglio, &frame::GestAnagrafica::AfterDelete, &m_contesto,
                     [this](int esito) { FME_GestAnagrafica5_AfterDelete(esito); });
}

void RigheGiro::collegaGriglia(bool collegata)
{
    m_controlli.GRD_DETTAGLIOGIRI.setDataSource(collegata ? righeDi(m_dettaglio) : nullptr);
}

void RigheGiro::FME_GestAnagrafica5_BeforeDelete(frame::CancelArgs& /*args*/)
{
    reportWithChoice(
        m_ambiente.errori(), QStringLiteral("FME_GestAnagrafica5_BeforeDelete"),
        {
            [&] {
                const db::RecordsetPtr righe = righeDi(m_dettaglio);
                m_progressivoEliminato = qint16(
                    CDecN(richiesto(righe.get(), "Grst_GestAnagrafica5").value(u"MG1I_PROGRESSIVO"))
                        .toInt64());
            },
        });
}

// The rows after the one deleted move up one place, so that the positions stay 1, 2, 3 ...
void RigheGiro::FME_GestAnagrafica5_AfterDelete(int fenm_operationresult)
{
    frame::GestAnagrafica& dettaglio = richiesto(m_dettaglio.data(), "FME_GestAnagrafica5");
    if (fenm_operationresult != frame::OperationSucceeded ||
        dettaglio.status() != frame::FrameStatus::Browse)
        return;
    const db::RecordsetPtr righe = righeDi(m_dettaglio);
    reportWithChoice(m_ambiente.errori(), QStringLiteral("FME_GestAnagrafica5_AfterDelete"),
                     {
                         [&] { collegaGriglia(false); },
                         [&] { dettaglio.beginBulkRewrite(); },
                         [&] {
                             for (righe->moveFirst(); !righe->eof(); righe->moveNext()) {
                                 const qint64 posizione =
                                     CDecN(righe->value(u"MG1I_PROGRESSIVO")).toInt64();
                                 if (posizione > m_progressivoEliminato)
                                     righe->setValue(u"MG1I_PROGRESSIVO", posizione - 1);
                             }
                         },
                         [&] { dettaglio.endBulkRewrite(); },
                         [&] { dettaglio.confirmPendingChanges({}); },
                         [&] { collegaGriglia(true); },
                     });
}

// The two actions ignore their own errors; anything else is reported under the handler's name.
void RigheGiro::GRIDNAV_GIRI_AfterButtonClick(bool success, const QString& pulsante)
{
    reportWithChoice(m_ambiente.errori(), QStringLiteral("GRIDNAV_GIRI_AfterButtonClick"),
                     {
                         [&] { return success ? Flow::Next : Flow::Leave; },
                         [&] {
                             if (pulsante == u"Nuovo") {
                                 ignoreEachStep({[&] { m_controlli.TXT_CLIENTE.setFocus(); }});
                             } else if (pulsante == u"Conferma") {
                                 ignoreEachStep({[&] {
                                     m_controlli.GRIDNAV_GIRI.press(QStringLiteral("Nuovo"));
                                 }});
                             }
                         },
                     });
}

void RigheGiro::CMD_AZZERRAGIRO_ButtonClick()
{
    frame::GestAnagrafica* dettaglio = nullptr;
    reportWithChoice(
        m_ambiente.errori(), QStringLiteral("CMD_AZZERRAGIRO_ButtonClick"),
        {
            [&] {
                const db::RecordsetPtr righe = righeDi(m_dettaglio);
                if (!righe || righe->bof() || righe->eof())
                    return Flow::Leave;
                dettaglio = &richiesto(m_dettaglio.data(), "FME_GestAnagrafica5");
                return Flow::Next;
            },
            [&] {
                if (dettaglio->status() == frame::FrameStatus::New &&
                    !dettaglio->confirmPendingChanges({.check = true, .show = true}))
                    dettaglio->dropPendingRow({.raiseEvents = true, .show = true, .ask = true});
            },
            [&] {
                return dettaglio->status() == frame::FrameStatus::New ? Flow::Leave : Flow::Next;
            },
            [&] { collegaGriglia(false); },
            [&] { dettaglio->deleteRows({.raiseEvents = true, .show = true}); },
            [&] { collegaGriglia(true); },
            [&] { m_controlli.INTERNAV.setChangeIndicator(true); },
        });
}

void RigheGiro::TXT_CLIENTE_GotFocus()
{
    m_clienteAllIngresso = m_controlli.TXT_CLIENTE.text();
}

// A customer typed over another has no destination yet.
void RigheGiro::TXT_CLIENTE_LostFocus()
{
    reportModuleError(m_ambiente.errori(), QStringLiteral("TXT_CLIENTE_LostFocus"),
                      {
                          [&] {
                              return m_controlli.TXT_CLIENTE.text() == m_clienteAllIngresso
                                         ? Flow::Leave
                                         : Flow::Next;
                          },
                          [&] {
                              controls::Field& destinazione = m_controlli.TXT_MG1I_CODDEST_MG22;
                              destinazione.setText(QString());
                              destinazione.decode();
                          },
                      });
}

void RigheGiro::TXT_CLIENTE_Decode(controls::DecodeArgs& args)
{
    // An empty customer is no customer (a row just opened): no statement, nothing wrong.
    if (RTrimN(m_controlli.TXT_CLIENTE.text()).toString().isEmpty()) {
        for (controls::Field* campo : campiCliente())
            campo->setText(QString());
        return;
    }
    host::LookupDecoder& clienti =
        richiesto(m_ambiente.decodificatori().clienti.get(), "LKP_CLIENTI");
    clienti.prepareDecoding(DefinizioneClienti, CDecN(m_controlli.TXT_CLIENTE.text()),
                            QStringLiteral("TXT_C_RAGSOC"));
    args.sql = clienti.query();
    const QList<host::DecodeTarget> colonne = clienti.targets();
    args.targets.clear();
    const std::array<controls::Field*, 7> campi = campiCliente();
    for (qsizetype i = 0; i < qsizetype(campi.size()); ++i)
        args.targets.append({campi.at(i), colonne.value(i).column});
    args.connectionString = m_ambiente.Gstr_Connect();
}

void RigheGiro::TXT_CLIENTE_Lookup(controls::LookupArgs& args)
{
    host::LookupDecoder& clienti =
        richiesto(m_ambiente.decodificatori().clienti.get(), "LKP_CLIENTI");
    clienti.prepareLookup(DefinizioneClienti);
    args.sql = clienti.query();
    args.columns = clienti.columns();
    args.title = clienti.title();
    args.connectionString = m_ambiente.Gstr_Connect();
    m_controlli.TXT_CLIENTE.setLookupId(QStringLiteral("Lkp_Clienti"));
}

void RigheGiro::TXT_MG1I_CODDEST_MG22_Decode(controls::DecodeArgs& args)
{
    const QString cliente = m_controlli.TXT_CLIENTE.text();
    const QString codice = m_controlli.TXT_MG1I_CODDEST_MG22.text();
    controls::Field& descrizione = m_controlli.TXT_DESCRDEST;
    if (cliente.isEmpty() || codice.isEmpty()) {
        descrizione.setText(QString());
        args.cancel = true;
        return;
    }
    host::LookupDecoder& destinazioni =
        richiesto(m_ambiente.decodificatori().clienti.get(), "LKP_DESTINAZIONI");
    destinazioni.setParameter(QStringLiteral("CLIENTE"), CDecN(cliente));
    destinazioni.prepareDecoding(DefinizioneDestinazioni, codice, descrizione.name());
    args.sql = destinazioni.query();
    args.targets = {{&descrizione, destinazioni.targets().value(0).column}};
    args.connectionString = m_ambiente.Gstr_Connect();
}

void RigheGiro::TXT_MG1I_CODDEST_MG22_Lookup(controls::LookupArgs& args)
{
    const controls::Field& cliente = m_controlli.TXT_CLIENTE;
    if (cliente.text().isEmpty() || !cliente.isValid()) {
        args.cancel = true;
        return;
    }
    host::LookupDecoder& destinazioni =
        richiesto(m_ambiente.decodificatori().clienti.get(), "LKP_DESTINAZIONI");
    destinazioni.setParameter(QStringLiteral("CLIENTE"), CDecN(cliente.text()));
    destinazioni.prepareLookup(DefinizioneDestinazioni);
    args.sql = destinazioni.query();
    args.columns = destinazioni.columns();
    args.title = destinazioni.title();
    args.connectionString = m_ambiente.Gstr_Connect();
    m_controlli.TXT_MG1I_CODDEST_MG22.setLookupId(destinazioni.lookupId());
}

} // namespace tarvello::agenti
