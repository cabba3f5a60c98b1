#include "src/screen/listecodificate.h"

#include "platform/controls/combobox.h"
#include "platform/controls/form.h"
#include "platform/db/runtimeerror.h"
#include "src/common/errorstyles.h"
#include "src/host/documentprintmodes.h"
#include "src/host/hostobjects.h"
#include "src/screen/controlli.h"

namespace tarvello::agenti {

namespace {

struct Voce {
    int codice;
    QString descrizione;
};

void riempi(controls::ComboBox& lista, const QList<Voce>& voci)
{
    lista.clear();
    for (const Voce& voce : voci)
        lista.addItem(voce.descrizione, voce.codice);
}

// The codes of the identifier lists: none, and the three entities.
constexpr int Nessuno = -1;
constexpr int Agente = 0;
constexpr int Cliente = 1;
constexpr int Articolo = 2;

QString cella(const QList<QStringList>& tabella, qsizetype riga, qsizetype colonna)
{
    if (riga >= tabella.size() || colonna >= tabella.at(riga).size())
        throw db::RuntimeError(db::RuntimeError::SubscriptOutOfRange,
                               QStringLiteral("Subscript out of range"));
    return tabella.at(riga).at(colonna);
}

} // namespace

QString StringaTipiEffetti()
{
    return QStringLiteral("Contanti|Ricevuta bancaria|Tratta|") +
           QStringLiteral("Tratta accettata|Cessione|Cambiale|Carta di credito|") +
           QStringLiteral("Bancomat|Contrassegno|Lettera di credito|RID|") +
           QStringLiteral("Leasing|Rimessa diretta|Bonifico bancario|") +
           QStringLiteral("C/c postale|MAV|Solo descrittivo");
}

int codiceTipoEffetto(qsizetype indice)
{
    // "Solo descrittivo" keeps the code it had before the list grew past sixteen types.
    constexpr qsizetype SoloDescrittivo = 16;
    return indice == SoloDescrittivo ? 99 : int(indice) + 1;
}

ListeCodificate::ListeCodificate(controls::Form& form, host::HostObjects& oggetti)
    : m_form(form)
    , m_oggetti(oggetti)
{}

controls::ComboBox& ListeCodificate::lista(QStringView nome) const
{
    return controlloDi<controls::ComboBox>(m_form, nome);
}

void ListeCodificate::CaricaCombo_CBO_REGPROV()
{
    riempi(lista(u"CBO_REGPROV"),
           {
               {0, QStringLiteral("No calcolo provv.")},
               {1, QStringLiteral("% dall'agente")},
               {2, QStringLiteral("% dal cliente")},
               {3, QStringLiteral("% dall'anagrafica art.")},
               {4, QStringLiteral("% dall'anagrafica art./agente")},
               {5, QStringLiteral("% da listino fisso")},
               {6, QStringLiteral("% da listino anag. su cli./for.")},
               {7, QStringLiteral("% dal listino fisso e scagl. sc./magg.")},
               {8, QStringLiteral("% da listino utilizzato")},
               {9, QStringLiteral("% da listino utilizzato: solo gest. scagl. di sc./magg.")},
               {10, QStringLiteral("% da listino utilizzato: provv. list. + scagl. di sc./magg.")},
               {11, QStringLiteral("% da tabella composta a due livelli")},
               {12, QStringLiteral("% da tabella composta a tre livelli")},
               {13, QStringLiteral("% da scaglioni di fatturato")},
               {14, QStringLiteral("% da condizioni multiple")},
               {15, QStringLiteral("% da listini parametrici")},
           });
}

void ListeCodificate::CaricaCombo_CBO_INDTIPOLISFIX()
{
    riempi(lista(u"CBO_INDTIPOLISFIX"),
           {
               {Nessuno, QString()},
               {1, QStringLiteral("Articolo")},
               {2, QStringLiteral("Articolo/Deposito")},
               {3, QStringLiteral("Articolo/Macroarea/Area/Zona")},
               {4, QStringLiteral("Articolo/Macrocategoria/Categoria/Sottocategoria")},
               {5, QStringLiteral("Articolo/Scaglioni di quantita'")},
               {6, QStringLiteral("Articolo/Campagna")},
               {7, QStringLiteral("Cliente-Fornitore")},
               {8, QStringLiteral("Cliente-Fornitore/Articolo")},
               {9, QStringLiteral("Cliente-Fornitore/Articolo/Deposito")},
               {10, QStringLiteral("Cliente-Fornitore/Destinatario/Articolo")},
               {11, QStringLiteral("Cliente-Fornitore/Scaglioni di quantita'")},
               {12, QStringLiteral("Cliente-Fornitore/Codice parlante")},
               {13, QStringLiteral("Cliente-Fornitore/Intervalli di codice parlante")},
               {14, QStringLiteral("Cliente-Fornitore/Classi di sconto")},
               {15, QStringLiteral("Macrocategoria/Categoria/Sottocategoria")},
               {16, QStringLiteral("Macrocategoria/Categoria/Sottocategoria/Codice parlante")},
               {17, QStringLiteral(
                        "Macrocategoria/Categoria/Sottocategoria/Intervalli di codice parlante")},
               {18, QStringLiteral(
                        "Macrocategoria/Categoria/Sottocategoria/Subcodice/Codice parlante")},
               {19, QStringLiteral("Classi di sconto")},
               {20, QStringLiteral("Classi di sconto/Macrocategoria/Categoria/Sottocategoria")},
               {21, QStringLiteral("Subcodice")},
               {22, QStringLiteral("Subcodice/Codice parlante")},
               {23, QStringLiteral("Codice parlante")},
               {24, QStringLiteral("Intervalli di codice parlante")},
               {25, QStringLiteral("Codice parlante/Scaglioni di quantita'")},
               {26, QStringLiteral("Listini a 99 prezzi")},
               {27, QStringLiteral("Listini con più articoli")},
               {28, QStringLiteral("Articoli/Cliente-Fornitore")},
               {29, QStringLiteral("Ultimi prezzi Articoli/Cliente-Fornitore")},
           });
}

void ListeCodificate::caricaIdentificatori(QStringView nome, const DisponibilitaEntita& disponibili)
{
    QList<Voce> voci{{Nessuno, QString()}};
    if (disponibili.agente)
        voci.append({Agente, QStringLiteral("Agente")});
    if (disponibili.cliente)
        voci.append({Cliente, QStringLiteral("Cliente")});
    if (disponibili.articolo)
        voci.append({Articolo, QStringLiteral("Articolo")});
    riempi(lista(nome), voci);
}

void ListeCodificate::CaricaCombo_CBO_IDENTIFTAB()
{
    caricaIdentificatori(u"CBO_IDENTIFTAB", {true, true, true});
}

void ListeCodificate::CaricaCombo_CBO_IDENTIFRIGA()
{
    caricaIdentificatori(u"CBO_IDENTIFRIGA", disponibilitaRighe);
}

void ListeCodificate::CaricaCombo_CBO_IDENTIFCOL()
{
    caricaIdentificatori(u"CBO_IDENTIFCOL", disponibilitaColonne);
}

void ListeCodificate::CaricaCombo_CBO_INDPRIORCLIART()
{
    riempi(lista(u"CBO_INDPRIORCLIART"),
           {
               {0, QStringLiteral("Prima regime cliente e poi articolo")},
               {1, QStringLiteral("Prima regime articolo e poi cliente")},
           });
}

void ListeCodificate::CaricaCombo_CBO_TIPOAGENTE()
{
    riempi(lista(u"CBO_TIPOAGENTE"), {
                                         {0, QStringLiteral("Agente")},
                                         {1, QStringLiteral("Capo zona")},
                                         {2, QStringLiteral("Capo area")},
                                     });
}

void ListeCodificate::CaricaCombo_CBO_INDCALCSCMAG()
{
    riempi(lista(u"CBO_INDCALCSCMAG"),
           {
               {0, QStringLiteral("Pr. ven./acq. calcolato da priorita' prezzi-Pr. doc.")},
               {1, QStringLiteral("Pr. di list. anag. art. indicato sul cli./for-Pr. doc.")},
               {2, QStringLiteral("Sconti o magg. effettivi indicati sul documento")},
           });
}

namespace {

const QList<Voce>& basiImponibili()
{
    static const QList<Voce> voci{
        {0, QStringLiteral("Imponibile provvigione")},
        {1, QStringLiteral("Imponib. provv. - Importo provv. gia' calcolato")},
        {2, QStringLiteral("Diff. pr. determinato per il calcolo dello sconto")},
        {3, QStringLiteral("Impor. provv. calcolato prima dell'adeguamento")},
    };
    return voci;
}

} // namespace

void ListeCodificate::CaricaCombo_CBO_INDBASEIMPSC()
{
    riempi(lista(u"CBO_INDBASEIMPSC"), basiImponibili());
}

void ListeCodificate::CaricaCombo_CBO_INDBASEIMPMAG()
{
    riempi(lista(u"CBO_INDBASEIMPMAG"), basiImponibili());
}

void ListeCodificate::CaricaCombo_CBO_TIPOMAND()
{
    riempi(lista(u"CBO_TIPOMAND"), {
                                       {0, QStringLiteral("Monomandatario")},
                                       {1, QStringLiteral("Plurimandatario")},
                                   });
}

void ListeCodificate::CaricaCombo_CBO_TIPORAPP()
{
    riempi(lista(u"CBO_TIPORAPP"), {
                                       {0, QStringLiteral("Generale")},
                                       {1, QStringLiteral("Procacciatore")},
                                       {2, QStringLiteral("Ispettore")},
                                   });
}

void ListeCodificate::CaricaCombo_CBO_TIPOSOC()
{
    riempi(lista(u"CBO_TIPOSOC"), {
                                      {0, QStringLiteral("Persona fisica")},
                                      {1, QStringLiteral("Soc. di capitale")},
                                      {2, QStringLiteral("Soc. di persona")},
                                  });
}

void ListeCodificate::CaricaCombo_CBO_INDPREFSTDOC()
{
    controls::ComboBox& prefStampa = lista(u"CBO_INDPREFSTDOC");
    std::unique_ptr<host::DocumentPrintModes> modi;
    QList<QStringList> tabella;
    leaveSilently({
        [&] {
            modi = m_oggetti.newDocumentPrintModes();
            if (!modi)
                throw db::RuntimeError(db::RuntimeError::ObjectRequired,
                                       QStringLiteral("Object required"));
        },
        [&] { tabella = modi->table(); },
        [&] { prefStampa.clear(); },
        [&] {
            // The row at the upper bound closes the host's table: it is not a mode.
            for (qsizetype riga = 0; riga < tabella.size() - 1; ++riga)
                prefStampa.addItem(cella(tabella, riga, 0), cella(tabella, riga, 1));
        },
    });
}

void ListeCodificate::CaricaCombo_CBO_INDSTDISTENAS()
{
    riempi(lista(u"CBO_INDSTDISTENAS"), {
                                            {0, QStringLiteral("Si stampa distinta")},
                                            {1, QStringLiteral("No stampa distinta")},
                                        });
}

void ListeCodificate::CaricaCombo_CBO_INDTIPOLIQ()
{
    riempi(lista(u"CBO_INDTIPOLIQ"), {
                                         {0, QStringLiteral("Nessuna scelta")},
                                         {1, QStringLiteral("Per importo")},
                                         {2, QStringLiteral("Per scaduto")},
                                         {3, QStringLiteral("Per pagato")},
                                     });
}

void ListeCodificate::CaricaCombo_CBO_TIPOEFF()
{
    const QStringList nomi = StringaTipiEffetti().split(u'|');
    QList<Voce> voci;
    for (qsizetype i = 0; i < nomi.size(); ++i)
        voci.append({codiceTipoEffetto(i), nomi.at(i)});
    riempi(lista(u"CBO_TIPOEFF"), voci);
}

} // namespace tarvello::agenti
