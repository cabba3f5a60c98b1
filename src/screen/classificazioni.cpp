#include "src/screen/classificazioni.h"

#include "platform/controls/eventargs.h"
#include "platform/controls/field.h"
#include "src/common/errorstyles.h"
#include "src/common/richiesto.h"
#include "src/common/valuehelpers.h"
#include "src/host/globalcontext.h"
#include "src/host/lookupdecoder.h"
#include "src/host/managementlauncher.h"
#include "src/screen/frmmg_agenti.h"
#include "src/screen/rispostedecodificatore.h"

#include <memory>

namespace tarvello::agenti {

namespace {

using controls::Field;

// A parameter of the management and the field whose code it passes.
struct ParametroGestione {
    const char* nome;
    const char* campo;
};

// What each table of the management (its "CalledRamo", the index here) is opened with, the
// highest level first. The management hands back the same codes, the table's own at element 0.
const QList<QList<ParametroGestione>>& parametriRami()
{
    static const QList<QList<ParametroGestione>> rami{
        {{"Pvar_MACROAREE_MACROAREA", "TXT_MACROAREA"}},
        {{"Pvar_AREE_MACROAREA", "TXT_MACROAREA"}, {"Pvar_AREE_AREA", "TXT_AREA"}},
        {{"Pvar_ZONE_MACROAREA", "TXT_MACROAREA"},
         {"Pvar_ZONE_AREA", "TXT_AREA"},
         {"Pvar_ZONE_ZONA", "TXT_ZONA"}},
        {{"Pvar_MACROCATEGORIE_MACROCATEGORIA", "TXT_MACROCAT"}},
        {{"Pvar_CATEGORIE_MACROCATEGORIA", "TXT_MACROCAT"},
         {"Pvar_CATEGORIE_CATEGORIA", "TXT_CATEGORIA"}},
        {{"Pvar_SOTTOCATEGORIE_MACROCATEGORIA", "TXT_MACROCAT"},
         {"Pvar_SOTTOCATEGORIE_CATEGORIA", "TXT_CATEGORIA"},
         {"Pvar_SOTTOCATEGORIE_SOTTOCATEGORIA", "TXT_SOTTOCAT"}},
        {{"Pvar_RAGGRUPPAMENTI1", "TXT_RAGGR1"}},
        {{"Pvar_RAGGRUPPAMENTI2", "TXT_RAGGR2"}},
        {{"Pvar_RAGGRUPPAMENTI3", "TXT_RAGGR3"}},
    };
    return rami;
}

Classificazioni::Campo campo(const char* nome, const char* definizione,
                             QList<Classificazioni::Genitore> genitori, const char* descrizione,
                             int gruppo, int ramo)
{
    return {QString::fromLatin1(nome),
            QString::fromLatin1(definizione),
            std::move(genitori),
            QString::fromLatin1(descrizione),
            gruppo,
            ramo};
}

Classificazioni::Genitore genitore(const char* parametro, const char* campo)
{
    return {QString::fromLatin1(parametro), QString::fromLatin1(campo)};
}

// Element `indice` of what the management handed back, as the code to show.
QString codiceRestituito(const db::Value& codici, qsizetype indice)
{
    const db::ValueList& elementi = codici.toArray();
    if (indice < 0 || indice >= elementi.size())
        throw db::RuntimeError(db::RuntimeError::SubscriptOutOfRange,
                               QStringLiteral("Subscript out of range"));
    return NvlN(elementi.at(indice), QString()).toString();
}

} // namespace

Classificazioni::Classificazioni(FRMMG_AGENTI& schermata)
    : m_schermata(schermata)
{}

const QList<Classificazioni::Campo>& Classificazioni::campi()
{
    static const QList<Campo> nove{
        campo("TXT_MACROAREA", "LKP_MACROAREEAGE", {}, "TXT_DESMACROAREA", 0, 0),
        campo("TXT_AREA", "LKP_AREEAGE", {genitore("MACROAREA", "TXT_MACROAREA")}, "TXT_DESAREA", 0,
              1),
        campo("TXT_ZONA", "LKP_ZONEAGE",
              {genitore("MACROAREA", "TXT_MACROAREA"), genitore("AREA", "TXT_AREA")}, "TXT_DESZONA",
              0, 2),
        campo("TXT_MACROCAT", "LKP_MACROCATEGORIEAGE", {}, "TXT_DESMACROCAT", 1, 0),
        campo("TXT_CATEGORIA", "LKP_CATEGORIEAGE", {genitore("MACROCAT", "TXT_MACROCAT")},
              "TXT_DESCATEGORIA", 1, 1),
        campo("TXT_SOTTOCAT", "LKP_SOTTOCATEGORIEAGE",
              {genitore("MACROCAT", "TXT_MACROCAT"), genitore("CAT", "TXT_CATEGORIA")},
              "TXT_DESSOTTOCAT", 1, 2),
        campo("TXT_RAGGR1", "LKP_RAGGR1AGE", {}, "TXT_DESRAGGR1", 2, 0),
        campo("TXT_RAGGR2", "LKP_RAGGR2AGE", {}, "TXT_DESRAGGR2", 2, 1),
        campo("TXT_RAGGR3", "LKP_RAGGR3AGE", {}, "TXT_DESRAGGR3", 2, 2),
    };
    return nove;
}

void Classificazioni::collega()
{
    QObject* contesto = &m_schermata;
    for (const Campo& c : campi()) {
        Field& f = m_schermata.controllo<Field>(c.nome);
        QObject::connect(&f, &Field::decodeRequested, contesto,
                         [this, &c](controls::DecodeArgs& args) { decodifica(c, args); });
        QObject::connect(&f, &Field::lookupRequested, contesto,
                         [this, &c, &f](controls::LookupArgs& args) { avviaLista(c, f, args); });
        QObject::connect(&f, &Field::managementKeyPressed, contesto,
                         [this, &c](const QString& chiave) { tastoGestione(c, chiave); });
    }
}

QString Classificazioni::testo(const QString& campo) const
{
    return m_schermata.controllo<Field>(campo).text();
}

void Classificazioni::decodifica(const Campo& campo, controls::DecodeArgs& args) const
{
    if (NvlN(testo(campo.nome), QString()).toString().isEmpty())
        return;
    ignoreEachStep({[&] {
        args.cancel = false;
        host::LookupDecoder& d =
            decodificatoreRichiesto(m_schermata.decodificatoreClassificazioni());
        for (const Genitore& g : campo.genitori)
            d.setParameter(g.parametro, RTrimN(testo(g.campo)));
        d.prepareDecoding(campo.definizione, RTrimN(testo(campo.nome)), campo.descrizione);
        rispostaDecodifica(m_schermata, d, args, m_schermata.Gstr_Connect());
    }});
}

void Classificazioni::avviaLista(const Campo& campo, Field& campoLista,
                                 controls::LookupArgs& args) const
{
    host::LookupDecoder& d = decodificatoreRichiesto(m_schermata.decodificatoreClassificazioni());
    // An empty parent goes to the list as two quotes, so that it filters on no code at all.
    for (const Genitore& g : campo.genitori)
        d.setParameter(g.parametro, NvlN(testo(g.campo), QStringLiteral("''")));
    d.prepareLookup(campo.definizione, 0);
    rispostaLista(d, args, m_schermata.Gstr_Connect());
    campoLista.setLookupId(d.lookupId());
}

void Classificazioni::tastoGestione(const Campo& campo, const QString& chiave)
{
    if (chiave != u"Kgestione")
        return;
    ignoreEachStep({[&] {
        m_rami[campo.gruppo] = campo.ramo;
        switch (campo.gruppo) {
        case 0:
            InvocaGestioneAreeZone();
            break;
        case 1:
            InvocaGestioneCategorie();
            break;
        default:
            InvocaGestioneRaggruppamenti();
            break;
        }
    }});
}

void Classificazioni::InvocaGestioneAreeZone()
{
    invocaGestione(0, QStringLiteral("InvocaGestioneAreeZone"));
}

void Classificazioni::InvocaGestioneCategorie()
{
    invocaGestione(1, {});
}

void Classificazioni::InvocaGestioneRaggruppamenti()
{
    invocaGestione(2, {});
}

void Classificazioni::invocaGestione(int gruppo, const QString& procedura)
{
    const int ramo = gruppo * 3 + m_rami[gruppo];
    const QList<ParametroGestione> parametri = ramo >= 0 && ramo < parametriRami().size()
                                                   ? parametriRami().at(ramo)
                                                   : QList<ParametroGestione>{};
    std::unique_ptr<host::ManagementLauncher> gestione;
    QString parametriTesto;
    db::Value codici;

    // The codes come back from the highest level down: the field at position i takes the
    // element counted from the end. Each is decoded as it is written, as a typed code is when
    // the person leaves it, so that a child is decoded within the parents just written.
    const auto scriviCodice = [&](qsizetype i) {
        return [&, i] {
            if (i >= parametri.size())
                return;
            Field& f = m_schermata.controllo<Field>(QString::fromLatin1(parametri.at(i).campo));
            const qsizetype elemento = parametri.size() - 1 - i;
            QString codice;
            if (!procedura.isEmpty())
                codice = codiceRestituito(codici, elemento);
            else
                // With errors ignored, a code the management did not hand back is written empty.
                ignoreEachStep({[&] { codice = codiceRestituito(codici, elemento); }});
            f.setText(codice);
            f.decode();
        };
    };
    const auto esegui = [&](auto stile) {
        stile({
            [&] { gestione = m_schermata.globale().newManagementLauncher(); },
            [&] {
                host::ManagementLauncher& g = richiesto(gestione.get(), "ManagementLauncher");
                parametriTesto.clear();
                for (const ParametroGestione& p : parametri)
                    parametriTesto =
                        g.addParameter(parametriTesto, QString::fromLatin1(p.nome),
                                       NvlN(testo(QString::fromLatin1(p.campo)), QString()));
                parametriTesto = g.addParameter(parametriTesto, QStringLiteral("CalledRamo"),
                                                QString::number(ramo));
            },
            [&] {
                codici = richiesto(gestione.get(), "ManagementLauncher")
                             .runProgram(GestioneTabelle, parametriTesto, true);
            },
            scriviCodice(0),
            scriviCodice(1),
            scriviCodice(2),
            [&] { gestione.reset(); },
        });
    };
    if (procedura.isEmpty())
        esegui([](Steps passi) { ignoreEachStep(passi); });
    else
        esegui([&](Steps passi) { reportWithChoice(m_schermata.errori(), procedura, passi); });
}

} // namespace tarvello::agenti
