#include "platform/controls/field.h"
#include "platform/controls/form.h"
#include "src/common/errorstyles.h"
#include "src/common/valuehelpers.h"
#include "src/data/sqlagenti.h"
#include "src/host/globalcontext.h"
#include "src/host/hostobjects.h"
#include "src/host/lookupdecoder.h"
#include "src/host/typologymanagement.h"
#include "src/screen/codiciagente.h"
#include "src/screen/frmmg_agenti.h"
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
void senzaDecodifica(Field& campo, controls::DecodeArgs& args, controls::DataControl* descrizione,
                     bool valido)
{
    args.cancel = true;
    campo.setValid(valido);
    if (descrizione)
        descrizione->setValue(db::Value::null());
}

} // namespace

void SchedaAgente::rispondiLista(Field& campo, controls::LookupArgs& args,
                                 host::LookupDecoder* decodificatore,
                                 const QString& definizione) const
{
    host::LookupDecoder& d = richiesto(decodificatore);
    d.prepareLookup(definizione, 0);
    args.sql = d.query();
    args.columns = d.columns();
    args.title = d.title();
    args.connectionString = m_schermata.Gstr_Connect();
    campo.setLookupId(d.lookupId());
}

void SchedaAgente::rispondiDecodifica(Field& campo, controls::DecodeArgs& args,
                                      host::LookupDecoder* decodificatore,
                                      const QString& definizione, const QString& descrizione,
                                      bool numerico) const
{
    auto* bersaglio = m_schermata.find<controls::DataControl>(descrizione);
    const db::Value codice = RTrimN(campo.text());
    if (codice.toString().isEmpty()) {
        senzaDecodifica(campo, args, bersaglio, true);
        return;
    }
    const std::optional<qint64> numero = NumeroIntero(codice);
    if (numerico && !numero) {
        senzaDecodifica(campo, args, bersaglio, false);
        return;
    }
    host::LookupDecoder& d = richiesto(decodificatore);
    d.prepareDecoding(definizione, numerico ? db::Value(*numero) : codice, descrizione);
    args.sql = d.query();
    args.targets.clear();
    for (const host::DecodeTarget& destinazione : d.targets())
        args.targets.append(
            {m_schermata.find<controls::DataControl>(destinazione.control), destinazione.column});
    args.connectionString = m_schermata.Gstr_Connect();
}

void SchedaAgente::rispondiDecodificaRiferimento(Field& campo, controls::DecodeArgs& args,
                                                 bool perId) const
{
    auto* descrizione = m_schermata.find<controls::DataControl>(u"TXT_DESCAGERIF");
    const QString codice = perId ? campo.text().trimmed() : campo.text();
    if (RTrimN(codice).toString().isEmpty()) {
        senzaDecodifica(campo, args, descrizione, true);
        return;
    }
    const qint32 ditta = m_schermata.Codice_Ditta();
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
    args.targets = {{descrizione, QStringLiteral("CG16_RAGSOANAG")}};
    args.connectionString = m_schermata.Gstr_Connect();
}

void SchedaAgente::collegaListe()
{
    QObject* contesto = &m_schermata;
    const auto lista = [this, contesto](QStringView nome, auto decodificatore,
                                        const QString& definizione) {
        Field& f = campo(nome);
        QObject::connect(&f, &Field::lookupRequested, contesto,
                         [this, &f, decodificatore, definizione](controls::LookupArgs& args) {
                             ignoreEachStep({[&] {
                                 rispondiLista(f, args, (m_schermata.*decodificatore)(),
                                               definizione);
                             }});
                         });
    };
    const auto decodifica = [this, contesto](QStringView nome, auto decodificatore,
                                             const QString& definizione, const QString& descrizione,
                                             bool numerico) {
        Field& f = campo(nome);
        QObject::connect(&f, &Field::decodeRequested, contesto,
                         [=, this, &f](controls::DecodeArgs& args) {
                             ignoreEachStep({[&] {
                                 rispondiDecodifica(f, args, (m_schermata.*decodificatore)(),
                                                    definizione, descrizione, numerico);
                             }});
                         });
    };
    const auto agenti = &FRMMG_AGENTI::decodificatoreAgenti;
    const auto fornitori = &FRMMG_AGENTI::decodificatoreFornitori;

    lista(u"TXT_AGENTE", agenti, ElencoAgenti);
    lista(u"TXT_AGERIFVIDEO1", agenti, ElencoAgenti);
    // The field holds an id: its list starts with the agents' ids.
    lista(u"TXT_AGERIF", agenti, AgentiPerId);
    lista(u"TXT_CAPOAREA", agenti, ElencoAgenti);
    lista(u"TXT_CAPOZONA", agenti, ElencoAgenti);
    lista(u"TXT_FOR", fornitori, ElencoFornitori);
    lista(u"TXT_TIPOLOGIAAGENTE", agenti, ElencoTipologie);

    decodifica(u"TXT_CAPOAREA", agenti, AgentiPerId, QStringLiteral("TXT_DESCCAPOAREA"), true);
    decodifica(u"TXT_CAPOZONA", agenti, AgentiPerId, QStringLiteral("TXT_DESCCAPOZONA"), true);
    decodifica(u"TXT_FOR", fornitori, ElencoFornitori, QStringLiteral("TXT_RAGSOANAGFOR"), true);
    decodifica(u"TXT_TIPOLOGIAAGENTE", agenti, ElencoTipologie, QStringLiteral("TXT_DESCTIPOLOGIA"),
               true);

    Field& tipologia = campo(u"TXT_TIPOLOGIAAGENTE");
    QObject::connect(&tipologia, &Field::managementKeyPressed, contesto,
                     [this, &tipologia](const QString& chiave) {
                         if (chiave != u"Kgestione")
                             return;
                         host::GlobalContext& globale = m_schermata.globale();
                         const std::unique_ptr<host::TypologyManagement> gestione =
                             globale.objects().newTypologyManagement();
                         if (gestione)
                             gestione->show(globale, tipologia,
                                            RTrimN(tipologia.text()).toString().trimmed());
                     });

    for (const bool perId : {false, true}) {
        Field& f = campo(perId ? u"TXT_AGERIF" : u"TXT_AGERIFVIDEO1");
        QObject::connect(&f, &Field::decodeRequested, contesto,
                         [this, &f, perId](controls::DecodeArgs& args) {
                             rispondiDecodificaRiferimento(f, args, perId);
                         });
    }
}

} // namespace tarvello::agenti
