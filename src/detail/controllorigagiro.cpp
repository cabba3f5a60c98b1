#include "src/detail/controllorigagiro.h"

#include "platform/controls/field.h"
#include "platform/controls/form.h"
#include "platform/db/connection.h"
#include "platform/frame/gestanagrafica.h"
#include "src/common/errorreporter.h"
#include "src/common/errorstyles.h"
#include "src/common/richiesto.h"
#include "src/common/valuehelpers.h"
#include "src/data/sqldettagli.h"
#include "src/detail/operazionidettaglio.h"
#include "src/host/errorlog.h"
#include "src/host/globalcontext.h"
#include "src/host/hostobjects.h"
#include "src/host/lookupdecoder.h"
#include "src/host/messagecatalogue.h"
#include "src/screen/ambienteagenti.h"
#include "src/screen/codiciagente.h"

namespace tarvello::agenti {

namespace {

enum Messaggio {
    AltroAgente = 71472,
    AltroAgenteConDestinazione = 71473,
    AltroGiroConDestinazione = 71474,
    AltroGiro = 71475,
    NonTraGliAgenti = 71476,
};

QString testo(qint64 numero)
{
    return QString::number(numero);
}

QString destinazione(const db::Value& valore)
{
    return RTrimN(NvlN(valore, QString())).toString();
}

} // namespace

qint16 ProgressivoNuovaRiga(const db::Recordset& righe)
{
    const qsizetype righeMostrate = righe.recordCount();
    return qint16(righeMostrate <= 0 ? 1 : righeMostrate);
}

QString descrizioneDecodificata(const AmbienteAgenti& ambiente, host::LookupDecoder* oggetto,
                                const QString& definizione, const db::Value& codice)
{
    host::LookupDecoder& decodifica = richiesto(oggetto, "LookupDecoder");
    decodifica.prepareDecoding(definizione, codice, QString());
    const db::ResultSet trovato = ambiente.connessione().query(decodifica.query());
    return trovato.rows.isEmpty() ? QString() : RTrimN(trovato.rows.first().value(0)).toString();
}

ControlloRigaGiro::ControlloRigaGiro(const controls::Field& giro,
                                     const QPointer<frame::GestAnagrafica>& agente,
                                     const QPointer<frame::GestAnagrafica>& dettaglio,
                                     const AmbienteAgenti& ambiente)
    : m_giro(giro)
    , m_agente(agente)
    , m_dettaglio(dettaglio)
    , m_ambiente(ambiente)
{}

void ControlloRigaGiro::collega()
{
    if (frame::GestAnagrafica* dettaglio = m_dettaglio)
        QObject::connect(
            dettaglio, &frame::GestAnagrafica::BeforeUpdate, &m_contesto,
            [this](frame::CancelArgs& args) { FME_GestAnagrafica5_BeforeUpdate(args); });
}

void ControlloRigaGiro::ShowFormMsgBox(const QString& testo)
{
    reportWithChoice(m_ambiente.errori(), QStringLiteral("ShowFormMsgBox"),
                     {
                         [&] {
                             m_memoria.ShowFormMsgBox(testo, [this](const QString& domanda) {
                                 FRMMG_MESSAGGIO dialogo;
                                 dialogo.setCallingForm(&m_risposta);
                                 dialogo.setTitolo(m_ambiente.finestra().caption());
                                 dialogo.setMessaggio(domanda);
                                 m_ambiente.globale().objects().showQuestionDialog(dialogo);
                                 return MemoriaRisposte::Esito{
                                     m_risposta.gIsInserisciClienteNelGiro,
                                     m_risposta.gIsNonRichiederePiu};
                             });
                         },
                     });
}

bool ControlloRigaGiro::ClienteGiaPresente(qint64 cliente, const QString& /*giro*/,
                                           const db::Value& dest)
{
    bool presente = false;
    ignoreEachStep({
        [&] {
            const db::ResultSet righe = m_ambiente.connessione().query(
                sql::clienteNeiGiriDellAgente(m_ambiente.Codice_Ditta(), cliente,
                                              idAgenteCorrente(m_agente), destinazione(dest)));
            presente = !righe.rows.isEmpty();
        },
    });
    return presente;
}

QString ControlloRigaGiro::descrizioneCliente(qint64 cliente)
{
    return descrizioneDecodificata(m_ambiente, m_ambiente.decodificatori().clienti.get(),
                                   QStringLiteral("LKP_CLIENTI"), cliente);
}

bool ControlloRigaGiro::duplicatoNelGiro(const db::Recordset& righe, qint64 cliente,
                                         const QString& dest) const
{
    const db::RecordsetPtr copia = righe.clone();
    copia->setFilter(righe.filter());
    const db::Recordset::Bookmark questa = righe.bookmark();
    for (copia->moveFirst(); !copia->eof(); copia->moveNext()) {
        if (CDecN(copia->value(u"MG1I_CLIFOR_CG44")).toInt64() == cliente &&
            destinazione(copia->value(u"MG1I_CODDEST_MG22")) == dest && copia->bookmark() != questa)
            return true;
    }
    return false;
}

bool ControlloRigaGiro::domanda(short voce,
                                const std::function<std::optional<QString>()>& situazione)
{
    if (m_memoria.ricordatoSi(voce))
        return true;
    const std::optional<QString> testoDomanda = situazione();
    if (!testoDomanda)
        return true;
    m_memoria.DomandaCorrente = voce;
    ShowFormMsgBox(*testoDomanda);
    return m_memoria.voce(voce).Risposta;
}

void ControlloRigaGiro::FME_GestAnagrafica5_BeforeUpdate(frame::CancelArgs& args)
{
    db::RecordsetPtr rs;
    qint64 cliente = 0;
    QString dest;
    QString descrizione;
    const auto catalogo = [this](int numero, const db::ValueList& parametri) {
        return m_ambiente.globale().messages().message(numero, parametri);
    };
    const auto rifiuta = [&args] {
        args.fbol_Cancel = true;
        return Flow::Leave;
    };
    reportWithChoice(
        m_ambiente.errori(), QStringLiteral("FME_GestAnagrafica5_BeforeUpdate"),
        {
            [&] {
                if (RTrimN(m_giro.text()).toString().isEmpty())
                    return rifiuta();
                return Flow::Next;
            },
            [&] {
                rs = righeDi(m_dettaglio);
                richiesto(rs.get(), "Grst_GestAnagrafica5");
                cliente = CDecN(rs->value(u"MG1I_CLIFOR_CG44")).toInt64();
                dest = destinazione(rs->value(u"MG1I_CODDEST_MG22"));
                return cliente == 0 ? Flow::Leave : Flow::Next;
            },
            [&] {
                if (!duplicatoNelGiro(*rs, cliente, dest))
                    return Flow::Next;
                m_ambiente.errori().log().message(
                    QStringLiteral("Cliente già inserito nel giro corrente!"), host::Information,
                    m_ambiente.finestra().caption());
                return rifiuta();
            },
            [&] {
                const bool accettato = domanda(1, [&]() -> std::optional<QString> {
                    const db::RecordsetPtr tutte = rs->clone();
                    tutte->setFilter(QString());
                    tutte->setSort(QStringLiteral("MG1I_CLIFOR_CG44, MG1I_GIRO_MG1H"));
                    if (tutte->recordCount() < 1)
                        return std::nullopt;
                    tutte->moveFirst();
                    if (!ClienteGiaPresente(
                            cliente, RTrimN(tutte->value(u"MG1I_GIRO_MG1H")).toString(), dest))
                        return std::nullopt;
                    descrizione = descrizioneCliente(cliente);
                    return dest.isEmpty() ? catalogo(AltroGiro, {testo(cliente), descrizione})
                                          : catalogo(AltroGiroConDestinazione,
                                                     {dest, testo(cliente), descrizione});
                });
                return accettato ? Flow::Next : rifiuta();
            },
            [&] {
                const bool accettato = domanda(2, [&]() -> std::optional<QString> {
                    const db::ResultSet legato =
                        m_ambiente.connessione().query(sql::clienteDellAgente(
                            m_ambiente.Codice_Ditta(), cliente, idAgenteCorrente(m_agente)));
                    if (!legato.rows.isEmpty())
                        return std::nullopt;
                    return catalogo(NonTraGliAgenti, {testo(cliente), descrizioneCliente(cliente)});
                });
                return accettato ? Flow::Next : rifiuta();
            },
            [&] {
                const bool accettato = domanda(3, [&]() -> std::optional<QString> {
                    const db::ResultSet altri =
                        m_ambiente.connessione().query(sql::clienteDiAltriAgenti(
                            m_ambiente.Codice_Ditta(), cliente, idAgenteCorrente(m_agente), dest));
                    if (altri.rows.isEmpty())
                        return std::nullopt;
                    const int colonnaGiro = altri.columnIndex(u"MG1I_GIRO_MG1H");
                    const int colonnaAgente = altri.columnIndex(u"MG1I_IDAGENTE_MG17");
                    const db::ValueList& primo = altri.rows.first();
                    const QString giro = RTrimN(primo.value(colonnaGiro)).toString();
                    const db::Value idAgente = primo.value(colonnaAgente);
                    const QString agente =
                        RTrimN(CodiceAgenteDaId(m_ambiente.connessione(),
                                                qint32(CDecN(idAgente).toInt64())))
                            .toString();
                    db::ValueList parametri{
                        testo(cliente),
                        descrizioneCliente(cliente),
                        giro,
                        descrizioneDecodificata(m_ambiente, m_ambiente.decodificatori().giri.get(),
                                                QStringLiteral("LKP_GIRI"), giro),
                        agente,
                        descrizioneDecodificata(m_ambiente,
                                                m_ambiente.decodificatori().agenti.get(),
                                                QStringLiteral("LKP_AGENTI"), agente),
                    };
                    if (dest.isEmpty())
                        return catalogo(AltroAgente, parametri);
                    parametri.prepend(dest);
                    return catalogo(AltroAgenteConDestinazione, parametri);
                });
                return accettato ? Flow::Next : rifiuta();
            },
            [&] { rs->setValue(u"MG1I_DITTA_CG18", m_ambiente.Codice_Ditta()); },
            [&] { rs->setValue(u"MG1I_GIRO_MG1H", m_giro.text()); },
            [&] { rs->setValue(u"MG1I_IDAGENTE_MG17", idAgenteCorrente(m_agente)); },
            [&] { rs->setValue(u"MG1I_TIPOCF_CG44", 0); },
            [&] {
                if (CDecN(rs->value(u"MG1I_PROGRESSIVO")).toInt64() == 0)
                    rs->setValue(u"MG1I_PROGRESSIVO", ProgressivoNuovaRiga(*rs));
            },
        });
}

} // namespace tarvello::agenti
