#include "src/detail/controllorigagiro.h"

#include "platform/controls/field.h"
#include "platform/db/connection.h"
#include "platform/frame/gestanagrafica.h"
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
#include "src/screen/codiciagente.h"
#include "src/screen/frmmg_agenti.h"
#include "src/screen/frmmg_messaggio.h"

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

QString descrizioneDecodificata(FRMMG_AGENTI& schermata, host::LookupDecoder* oggetto,
                                const QString& definizione, const db::Value& codice)
{
    host::LookupDecoder& decodifica = richiesto(oggetto, "LookupDecoder");
    decodifica.prepareDecoding(definizione, codice, QString());
    const db::ResultSet trovato = schermata.connessione().query(decodifica.query());
    return trovato.rows.isEmpty() ? QString() : RTrimN(trovato.rows.first().value(0)).toString();
}

ControlloRigaGiro::ControlloRigaGiro(FRMMG_AGENTI& schermata)
    : m_schermata(schermata)
{}

void ControlloRigaGiro::collega()
{
    if (frame::GestAnagrafica* dettaglio =
            m_schermata.FME_GestAnagrafica(FRMMG_AGENTI::DettaglioGiri))
        QObject::connect(
            dettaglio, &frame::GestAnagrafica::BeforeUpdate, &m_schermata,
            [this](frame::CancelArgs& args) { FME_GestAnagrafica5_BeforeUpdate(args); });
}

void ControlloRigaGiro::ShowFormMsgBox(const QString& testo)
{
    reportWithChoice(m_schermata.errori(), QStringLiteral("ShowFormMsgBox"),
                     {
                         [&] {
                             m_memoria.ShowFormMsgBox(testo, [this](const QString& domanda) {
                                 FRMMG_MESSAGGIO dialogo;
                                 dialogo.setCallingForm(&m_schermata);
                                 dialogo.setTitolo(m_schermata.caption());
                                 dialogo.setMessaggio(domanda);
                                 m_schermata.globale().objects().showQuestionDialog(dialogo);
                                 return MemoriaRisposte::Esito{
                                     m_schermata.gIsInserisciClienteNelGiro(),
                                     m_schermata.gIsNonRichiederePiu()};
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
            const db::ResultSet righe =
                m_schermata.connessione().query(sql::clienteNeiGiriDellAgente(
                    m_schermata.Codice_Ditta(), cliente,
                    idAgenteCorrente(m_schermata.postoGestione(FRMMG_AGENTI::Agenti)),
                    destinazione(dest)));
            presente = !righe.rows.isEmpty();
        },
    });
    return presente;
}

QString ControlloRigaGiro::descrizioneCliente(qint64 cliente)
{
    return descrizioneDecodificata(m_schermata, m_schermata.decodificatoreClienti(),
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
        return m_schermata.globale().messages().message(numero, parametri);
    };
    const auto rifiuta = [&args] {
        args.fbol_Cancel = true;
        return Flow::Leave;
    };
    reportWithChoice(
        m_schermata.errori(), QStringLiteral("FME_GestAnagrafica5_BeforeUpdate"),
        {
            [&] {
                if (RTrimN(m_schermata.controllo<controls::Field>(u"TXT_GIRO").text())
                        .toString()
                        .isEmpty())
                    return rifiuta();
                return Flow::Next;
            },
            [&] {
                rs = m_schermata.Grst_GestAnagrafica(FRMMG_AGENTI::DettaglioGiri);
                richiesto(rs.get(), "Grst_GestAnagrafica5");
                cliente = CDecN(rs->value(u"MG1I_CLIFOR_CG44")).toInt64();
                dest = destinazione(rs->value(u"MG1I_CODDEST_MG22"));
                return cliente == 0 ? Flow::Leave : Flow::Next;
            },
            [&] {
                if (!duplicatoNelGiro(*rs, cliente, dest))
                    return Flow::Next;
                m_schermata.Gcls_Log()->message(
                    QStringLiteral("Cliente già inserito nel giro corrente!"), host::Information,
                    m_schermata.caption());
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
                        m_schermata.connessione().query(sql::clienteDellAgente(
                            m_schermata.Codice_Ditta(), cliente,
                            idAgenteCorrente(m_schermata.postoGestione(FRMMG_AGENTI::Agenti))));
                    if (!legato.rows.isEmpty())
                        return std::nullopt;
                    return catalogo(NonTraGliAgenti, {testo(cliente), descrizioneCliente(cliente)});
                });
                return accettato ? Flow::Next : rifiuta();
            },
            [&] {
                const bool accettato = domanda(3, [&]() -> std::optional<QString> {
                    const db::ResultSet altri =
                        m_schermata.connessione().query(sql::clienteDiAltriAgenti(
                            m_schermata.Codice_Ditta(), cliente,
                            idAgenteCorrente(m_schermata.postoGestione(FRMMG_AGENTI::Agenti)),
                            dest));
                    if (altri.rows.isEmpty())
                        return std::nullopt;
                    const int colonnaGiro = altri.columnIndex(u"MG1I_GIRO_MG1H");
                    const int colonnaAgente = altri.columnIndex(u"MG1I_IDAGENTE_MG17");
                    const db::ValueList& primo = altri.rows.first();
                    const QString giro = RTrimN(primo.value(colonnaGiro)).toString();
                    const db::Value idAgente = primo.value(colonnaAgente);
                    const QString agente =
                        RTrimN(CodiceAgenteDaId(m_schermata.connessione(),
                                                qint32(CDecN(idAgente).toInt64())))
                            .toString();
                    db::ValueList parametri{
                        testo(cliente),
                        descrizioneCliente(cliente),
                        giro,
                        descrizioneDecodificata(m_schermata, m_schermata.decodificatoreGiri(),
                                                QStringLiteral("LKP_GIRI"), giro),
                        agente,
                        descrizioneDecodificata(m_schermata, m_schermata.decodificatoreAgenti(),
                                                QStringLiteral("LKP_AGENTI"), agente),
                    };
                    if (dest.isEmpty())
                        return catalogo(AltroAgente, parametri);
                    parametri.prepend(dest);
                    return catalogo(AltroAgenteConDestinazione, parametri);
                });
                return accettato ? Flow::Next : rifiuta();
            },
            [&] { rs->setValue(u"MG1I_DITTA_CG18", m_schermata.Codice_Ditta()); },
            [&] {
                rs->setValue(u"MG1I_GIRO_MG1H",
                             m_schermata.controllo<controls::Field>(u"TXT_GIRO").text());
            },
            [&] {
                rs->setValue(u"MG1I_IDAGENTE_MG17",
                             idAgenteCorrente(m_schermata.postoGestione(FRMMG_AGENTI::Agenti)));
            },
            [&] { rs->setValue(u"MG1I_TIPOCF_CG44", 0); },
            [&] {
                if (CDecN(rs->value(u"MG1I_PROGRESSIVO")).toInt64() == 0)
                    rs->setValue(u"MG1I_PROGRESSIVO", ProgressivoNuovaRiga(*rs));
            },
        });
}

} // namespace tarvello::agenti
