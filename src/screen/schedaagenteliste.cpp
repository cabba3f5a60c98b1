#include "platform/controls/field.h"
#include "platform/controls/form.h"
#include "src/common/errorstyles.h"
#include "src/common/valuehelpers.h"
#include "src/data/sqlagenti.h"
#include "src/host/globalcontext.h"
#include "src/host/hostobjects.h"
#include "src/host/lookupdecoder.h"
#include "src/host/typologymanagement.h"
#include "src/screen/ambienteagenti.h"
#include "src/screen/codiciagente.h"
#include "src/screen/rispostedecodificatore.h"
#include "src/screen/schedaagente.h"

namespace tarvello::agenti {

namespace {

using controls::Field;

const QString ElencoAgenti = QStringLiteral("LKP_AGENTI");
const QString AgentiPerId = QStringLiteral("LKP_AGENTIBYID");
const QString ElencoFornitori = QStringLiteral("LKP_FORNITORI");
const QString ElencoTipologie = QStringLiteral("LKP_TIPOLOGIEAGE");

host::LookupDecoder& richiesto(host::LookupDecoder* decodificatore)
{
    if (!decodificatore)
        throw db::RuntimeError(db::RuntimeError::ObjectRequired, QStringLiteral("Object required"),
                               QStringLiteral("LookupDecoder"));
    return *decodificatore;
}

// A decoding that does not run: no description. An empty code is valid; a code that cannot
// be looked up is not.
void senzaDecodifica(Field& campo, controls::DecodeArgs& args, controls::DataControl& descrizione,
                     bool valido)
{
    args.cancel = true;
    campo.setValid(valido);
    descrizione.setValue(db::Value::null());
}

} // namespace

void SchedaAgente::rispondiLista(Field& campo, controls::LookupArgs& args,
                                 host::LookupDecoder* decodificatore,
                                 const QString& definizione) const
{
    host::LookupDecoder& d = richiesto(decodificatore);
    d.prepareLookup(definizione, 0);
    rispostaLista(d, args, m_ambiente.Gstr_Connect());
    campo.setLookupId(d.lookupId());
}

void SchedaAgente::rispondiDecodifica(Field& campo, controls::DecodeArgs& args,
                                      host::LookupDecoder* decodificatore,
                                      const QString& definizione,
                                      controls::DataControl& descrizione, bool numerico) const
{
    const db::Value codice = RTrimN(campo.text());
    if (codice.toString().isEmpty()) {
        senzaDecodifica(campo, args, descrizione, true);
        return;
    }
    const std::optional<qint64> numero = NumeroIntero(codice);
    if (numerico && !numero) {
        senzaDecodifica(campo, args, descrizione, false);
        return;
    }
    host::LookupDecoder& d = richiesto(decodificatore);
    d.prepareDecoding(definizione, numerico ? db::Value(*numero) : codice, descrizione.name());
    rispostaDecodifica(m_ambiente.finestra(), d, args, m_ambiente.Gstr_Connect());
}

void SchedaAgente::rispondiDecodificaRiferimento(Field& campo, controls::DecodeArgs& args,
                                                 bool perId) const
{
    controls::DataControl& descrizione = m_campi.TXT_DESCAGERIF;
    const QString codice = perId ? campo.text().trimmed() : campo.text();
    if (RTrimN(codice).toString().isEmpty()) {
        senzaDecodifica(campo, args, descrizione, true);
        return;
    }
    const qint32 ditta = m_ambiente.Codice_Ditta();
    if (perId) {
        // An id of 0 is stored for an agent without a reference agent, as Null is.
        const std::optional<qint64> id = NumeroIntero(codice);
        if (!id || *id == 0) {
            senzaDecodifica(campo, args, descrizione, id.has_value());
            return;
        }
        args.sql = sql::ragioneSocialeAgenteDaId(ditta, *id);
    } else {
        args.sql = sql::ragioneSocialeAgenteDaCodice(ditta, codice);
    }
    args.targets = {{&descrizione, QStringLiteral("CG16_RAGSOANAG")}};
    args.connectionString = m_ambiente.Gstr_Connect();
}

void SchedaAgente::collegaListe()
{
    QObject* contesto = &m_contesto;
    using Decodificatore = std::unique_ptr<host::LookupDecoder> DecodificatoriAgenti::*;
    // The decoder is read at each event: the load makes it and the unload lets it go.
    const auto decodificatoreDi = [this](Decodificatore quale) {
        return (m_ambiente.decodificatori().*quale).get();
    };
    const auto lista = [=, this](Field& f, Decodificatore decodificatore,
                                 const QString& definizione) {
        QObject::connect(
            &f, &Field::lookupRequested, contesto, [=, this, &f](controls::LookupArgs& args) {
                ignoreEachStep({[&] {
                    rispondiLista(f, args, decodificatoreDi(decodificatore), definizione);
                }});
            });
    };
    const auto decodifica = [=, this](Field& f, Decodificatore decodificatore,
                                      const QString& definizione,
                                      controls::DataControl& descrizione, bool numerico) {
        QObject::connect(&f, &Field::decodeRequested, contesto,
                         [=, this, &f, &descrizione](controls::DecodeArgs& args) {
                             ignoreEachStep({[&] {
                                 rispondiDecodifica(f, args, decodificatoreDi(decodificatore),
                                                    definizione, descrizione, numerico);
                             }});
                         });
    };
    const Decodificatore agenti = &DecodificatoriAgenti::agenti;
    const Decodificatore fornitori = &DecodificatoriAgenti::fornitori;

    lista(m_campi.TXT_AGENTE, agenti, ElencoAgenti);
    lista(m_campi.TXT_AGERIFVIDEO1, agenti, ElencoAgenti);
    // The field holds an id: its list starts with the agents' ids.
    lista(m_campi.TXT_AGERIF, agenti, AgentiPerId);
    lista(m_campi.TXT_CAPOAREA, agenti, ElencoAgenti);
    lista(m_campi.TXT_CAPOZONA, agenti, ElencoAgenti);
    lista(m_campi.TXT_FOR, fornitori, ElencoFornitori);
    lista(m_campi.TXT_TIPOLOGIAAGENTE, agenti, ElencoTipologie);

    decodifica(m_campi.TXT_CAPOAREA, agenti, AgentiPerId, m_campi.TXT_DESCCAPOAREA, true);
    decodifica(m_campi.TXT_CAPOZONA, agenti, AgentiPerId, m_campi.TXT_DESCCAPOZONA, true);
    decodifica(m_campi.TXT_FOR, fornitori, ElencoFornitori, m_campi.TXT_RAGSOANAGFOR, true);
    decodifica(m_campi.TXT_TIPOLOGIAAGENTE, agenti, ElencoTipologie, m_campi.TXT_DESCTIPOLOGIA,
               true);

    Field& tipologia = m_campi.TXT_TIPOLOGIAAGENTE;
    QObject::connect(&tipologia, &Field::managementKeyPressed, contesto,
                     [this, &tipologia](const QString& chiave) {
                         if (chiave != u"Kgestione")
                             return;
                         host::GlobalContext& globale = m_ambiente.globale();
                         const std::unique_ptr<host::TypologyManagement> gestione =
                             globale.objects().newTypologyManagement();
                         if (gestione)
                             gestione->show(globale, tipologia,
                                            RTrimN(tipologia.text()).toString().trimmed());
                     });

    for (const bool perId : {false, true}) {
        Field& f = perId ? m_campi.TXT_AGERIF : m_campi.TXT_AGERIFVIDEO1;
        QObject::connect(&f, &Field::decodeRequested, contesto,
                         [this, &f, perId](controls::DecodeArgs& args) {
                             rispondiDecodificaRiferimento(f, args, perId);
                         });
    }
}

} // namespace tarvello::agenti
