#include "src/screen/classificazioni.h"

#include "platform/controls/eventargs.h"
#include "platform/controls/field.h"
#include "src/common/errorstyles.h"
#include "src/common/richiesto.h"
#include "src/common/valuehelpers.h"
#include "src/host/globalcontext.h"
#include "src/host/lookupdecoder.h"
#include "src/host/managementlauncher.h"
#include "src/screen/ambienteagenti.h"
#include "src/screen/rispostedecodificatore.h"

#include <memory>

namespace tarvello::agenti {

namespace {

using controls::Field;

using Posto = Classificazioni::Posto;

// A parameter of the management and the field whose code it passes.
struct ParametroGestione {
    const char* nome;
    Posto campo;
};

// What each table of the management (its "CalledRamo", the index here) is opened with, the
// highest level first. The management hands back the same codes, the table's own at element 0.
const QList<QList<ParametroGestione>>& parametriRami()
{
    static const QList<QList<ParametroGestione>> rami{
        {{"Pvar_MACROAREE_MACROAREA", Posto::MacroArea}},
        {{"Pvar_AREE_MACROAREA", Posto::MacroArea}, {"Pvar_AREE_AREA", Posto::Area}},
        {{"Pvar_ZONE_MACROAREA", Posto::MacroArea},
         {"Pvar_ZONE_AREA", Posto::Area},
         {"Pvar_ZONE_ZONA", Posto::Zona}},
        {{"Pvar_MACROCATEGORIE_MACROCATEGORIA", Posto::MacroCategoria}},
        {{"Pvar_CATEGORIE_MACROCATEGORIA", Posto::MacroCategoria},
         {"Pvar_CATEGORIE_CATEGORIA", Posto::Categoria}},
        {{"Pvar_SOTTOCATEGORIE_MACROCATEGORIA", Posto::MacroCategoria},
         {"Pvar_SOTTOCATEGORIE_CATEGORIA", Posto::Categoria},
         {"Pvar_SOTTOCATEGORIE_SOTTOCATEGORIA", Posto::SottoCategoria}},
        {{"Pvar_RAGGRUPPAMENTI1", Posto::Raggruppamento1}},
        {{"Pvar_RAGGRUPPAMENTI2", Posto::Raggruppamento2}},
        {{"Pvar_RAGGRUPPAMENTI3", Posto::Raggruppamento3}},
    };
    return rami;
}

Classificazioni::Campo voce(Posto posto, const char* definizione,
                            QList<Classificazioni::Genitore> genitori, const char* descrizione,
                            int gruppo, int ramo)
{
    return {posto,
            QString::fromLatin1(definizione),
            std::move(genitori),
            QString::fromLatin1(descrizione),
            gruppo,
            ramo};
}

Classificazioni::Genitore genitore(const char* parametro, Posto campo)
{
    return {QString::fromLatin1(parametro), campo};
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

Classificazioni::Classificazioni(const ControlliClassificazioni& controlli,
                                 const AmbienteAgenti& ambiente)
    : m_campi{&controlli.TXT_MACROAREA, &controlli.TXT_AREA,      &controlli.TXT_ZONA,
              &controlli.TXT_MACROCAT,  &controlli.TXT_CATEGORIA, &controlli.TXT_SOTTOCAT,
              &controlli.TXT_RAGGR1,    &controlli.TXT_RAGGR2,    &controlli.TXT_RAGGR3}
    , m_ambiente(ambiente)
{}

const QList<Classificazioni::Campo>& Classificazioni::campi()
{
    static const QList<Campo> nove{
        voce(Posto::MacroArea, "LKP_MACROAREEAGE", {}, "TXT_DESMACROAREA", 0, 0),
        voce(Posto::Area, "LKP_AREEAGE", {genitore("MACROAREA", Posto::MacroArea)}, "TXT_DESAREA",
             0, 1),
        voce(Posto::Zona, "LKP_ZONEAGE",
             {genitore("MACROAREA", Posto::MacroArea), genitore("AREA", Posto::Area)},
             "TXT_DESZONA", 0, 2),
        voce(Posto::MacroCategoria, "LKP_MACROCATEGORIEAGE", {}, "TXT_DESMACROCAT", 1, 0),
        voce(Posto::Categoria, "LKP_CATEGORIEAGE", {genitore("MACROCAT", Posto::MacroCategoria)},
             "TXT_DESCATEGORIA", 1, 1),
        voce(Posto::SottoCategoria, "LKP_SOTTOCATEGORIEAGE",
             {genitore("MACROCAT", Posto::MacroCategoria), genitore("CAT", Posto::Categoria)},
             "TXT_DESSOTTOCAT", 1, 2),
        voce(Posto::Raggruppamento1, "LKP_RAGGR1AGE", {}, "TXT_DESRAGGR1", 2, 0),
        voce(Posto::Raggruppamento2, "LKP_RAGGR2AGE", {}, "TXT_DESRAGGR2", 2, 1),
        voce(Posto::Raggruppamento3, "LKP_RAGGR3AGE", {}, "TXT_DESRAGGR3", 2, 2),
    };
    return nove;
}

void Classificazioni::collega()
{
    QObject* contesto = &m_contesto;
    for (const Campo& c : campi()) {
        Field& f = campo(c.posto);
        QObject::connect(&f, &Field::decodeRequested, contesto,
                         [this, &c](controls::DecodeArgs& args) { decodifica(c, args); });
        QObject::connect(&f, &Field::lookupRequested, contesto,
                         [this, &c, &f](controls::LookupArgs& args) { avviaLista(c, f, args); });
        QObject::connect(&f, &Field::managementKeyPressed, contesto,
                         [this, &c](const QString& chiave) { tastoGestione(c, chiave); });
    }
}

host::LookupDecoder& Classificazioni::decodificatore() const
{
    return decodificatoreRichiesto(m_ambiente.decodificatori().classificazioni.get());
}

QString Classificazioni::testo(Posto posto) const
{
    return campo(posto).text();
}

void Classificazioni::decodifica(const Campo& campo, controls::DecodeArgs& args) const
{
    if (NvlN(testo(campo.posto), QString()).toString().isEmpty())
        return;
    ignoreEachStep({[&] {
        args.cancel = false;
        host::LookupDecoder& d = decodificatore();
        for (const Genitore& g : campo.genitori)
            d.setParameter(g.parametro, RTrimN(testo(g.campo)));
        d.prepareDecoding(campo.definizione, RTrimN(testo(campo.posto)), campo.descrizione);
        rispostaDecodifica(m_ambiente.finestra(), d, args, m_ambiente.Gstr_Connect());
    }});
}

void Classificazioni::avviaLista(const Campo& campo, Field& campoLista,
                                 controls::LookupArgs& args) const
{
    host::LookupDecoder& d = decodificatore();
    // An empty parent goes to the list as two quotes, so that it filters on no code at all.
    for (const Genitore& g : campo.genitori)
        d.setParameter(g.parametro, NvlN(testo(g.campo), QStringLiteral("''")));
    d.prepareLookup(campo.definizione, 0);
    rispostaLista(d, args, m_ambiente.Gstr_Connect());
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
            Field& f = campo(parametri.at(i).campo);
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
            [&] { gestione = m_ambiente.globale().newManagementLauncher(); },
            [&] {
                host::ManagementLauncher& g = richiesto(gestione.get(), "ManagementLauncher");
                parametriTesto.clear();
                for (const ParametroGestione& p : parametri)
                    parametriTesto = g.addParameter(parametriTesto, QString::fromLatin1(p.nome),
                                                    NvlN(testo(p.campo), QString()));
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
        esegui([&](Steps passi) { reportWithChoice(m_ambiente.errori(), procedura, passi); });
}

} // namespace tarvello::agenti
