#include "src/screen/layoutagenti.h"

#include "platform/controls/archivelinkfield.h"
#include "platform/controls/button.h"
#include "platform/controls/checkbox.h"
#include "platform/controls/combobox.h"
#include "platform/controls/field.h"
#include "platform/controls/form.h"
#include "platform/controls/gridnavigator.h"
#include "platform/controls/label.h"
#include "platform/controls/menubutton.h"
#include "platform/controls/navigatorbar.h"
#include "platform/controls/panel.h"
#include "platform/controls/picture.h"
#include "platform/controls/tabstrip.h"
#include "platform/controls/treegrid.h"

namespace tarvello::agenti {

namespace {

using controls::Field;
using Kind = controls::Field::Kind;

// Creates the controls of one form with the settings every control of a kind shares.
class Costruttore {
public:
    explicit Costruttore(controls::Form& form)
        : m_form(form)
    {}

    Field* campo(const QString& nome, const QString& caption, Kind tipo, const QString& colonna,
                 int lunghezza = 0) const
    {
        auto* campo = m_form.add<Field>(nome, tipo);
        campo->setCaption(caption);
        campo->setDataField(colonna);
        campo->setMaxLength(lunghezza);
        return campo;
    }
    Field* testo(const QString& nome, const QString& caption, const QString& colonna = {},
                 int lunghezza = 0) const
    {
        return campo(nome, caption, Kind::Text, colonna, lunghezza);
    }
    // A code the person types in upper case and that is looked up and decoded.
    Field* codice(const QString& nome, const QString& caption, const QString& colonna = {},
                  int lunghezza = 0) const
    {
        Field* codice = campo(nome, caption, Kind::Code, colonna, lunghezza);
        codice->setUpperCase(true);
        return codice;
    }
    Field* numero(const QString& nome, const QString& caption, const QString& colonna,
                  int lunghezza) const
    {
        return campo(nome, caption, Kind::Numeric, colonna, lunghezza);
    }
    Field* data(const QString& nome, const QString& caption, const QString& colonna) const
    {
        return campo(nome, caption, Kind::Date, colonna);
    }
    // The description a code decodes into: shown, never typed into, bound to no column.
    Field* descrizione(const QString& nome, const QString& caption, int lunghezza = 0) const
    {
        Field* descrizione = testo(nome, caption, {}, lunghezza);
        descrizione->setEnabled(false);
        descrizione->setTabStop(false);
        return descrizione;
    }
    controls::ComboBox* lista(const QString& nome, const QString& caption, const QString& colonna,
                              int codicePredefinito) const
    {
        auto* lista = m_form.add<controls::ComboBox>(nome);
        lista->setCaption(caption);
        lista->setDataField(colonna);
        lista->setValue(codicePredefinito);
        return lista;
    }
    controls::CheckBox* casella(const QString& nome, const QString& caption,
                                const QString& colonna = {}) const
    {
        auto* casella = m_form.add<controls::CheckBox>(nome);
        casella->setCaption(caption);
        casella->setDataField(colonna);
        return casella;
    }
    controls::Label* etichetta(const QString& nome, const QString& caption) const
    {
        auto* etichetta = m_form.add<controls::Label>(nome);
        etichetta->setCaption(caption);
        return etichetta;
    }
    controls::Panel* gruppo(const QString& nome, const QString& caption) const
    {
        auto* gruppo = m_form.add<controls::Panel>(nome);
        gruppo->setCaption(caption);
        return gruppo;
    }
    controls::Button* pulsante(const QString& nome, const QString& caption,
                               const QString& suggerimento = {}) const
    {
        auto* pulsante = m_form.add<controls::Button>(nome);
        pulsante->setCaption(caption);
        pulsante->setToolTip(suggerimento);
        return pulsante;
    }
    controls::Picture* figura(const QString& nome, const QString& immagine,
                              const QString& suggerimento = {}) const
    {
        auto* figura = m_form.add<controls::Picture>(nome);
        figura->setImageKey(immagine);
        figura->setToolTip(suggerimento);
        return figura;
    }
    controls::GridNavigator* navigatoreGriglia(const QString& nome,
                                               const QStringList& pulsantiNascosti) const
    {
        auto* navigatore = m_form.add<controls::GridNavigator>(nome);
        for (const QString& chiave : pulsantiNascosti)
            navigatore->setButtonVisible(chiave, false);
        return navigatore;
    }
    template <class T>
    T* controllo(const QString& nome, const QString& caption) const
    {
        T* controllo = m_form.add<T>(nome);
        controllo->setCaption(caption);
        return controllo;
    }

private:
    controls::Form& m_form;
};

template <class T>
T* obbligatorio(T* controllo)
{
    controllo->setRequired(true);
    return controllo;
}

Field* conGestione(Field* campo, const QString& caption)
{
    campo->setManagementKey(true);
    campo->setManagementCaption(caption);
    return campo;
}

Field* disabilitato(Field* campo)
{
    campo->setEnabled(false);
    return campo;
}

void creaTestata(const Costruttore& c)
{
    c.gruppo(QStringLiteral("FRA_TESTATA"), {});
    c.etichetta(QStringLiteral("TITLEBAR"), QStringLiteral("Anagrafica agenti"));
    c.etichetta(QStringLiteral("LBL_AGENTE"), QStringLiteral("Codice agente"));
    obbligatorio(c.codice(QStringLiteral("TXT_AGENTE"), QStringLiteral("Codice agente"),
                          QStringLiteral("MG17_AGENTE"), 20));
    conGestione(c.codice(QStringLiteral("TXT_RAGSOANAG"),
                         QStringLiteral("Ragione sociale dell'agente"), {}, 60),
                QStringLiteral("Gestione"));
    auto* archivio = c.controllo<controls::ArchiveLinkField>(QStringLiteral("TXT_ARCHELESOS1"),
                                                             QStringLiteral("Archiviazione"));
    archivio->setDataField(QStringLiteral("MG17_GUID"));
    archivio->setUpperCase(true);
    c.controllo<controls::MenuButton>(QStringLiteral("CMD_GESTCOLL"),
                                      QStringLiteral("&Gestioni collegate"));
}

void creaAlbero(const Costruttore& c)
{
    c.etichetta(QStringLiteral("LBL_CLASSIFICAZIONE"), QStringLiteral("Classificazione Agenti"));
    c.figura(QStringLiteral("IMG_ESPANDI"), QStringLiteral("espandi"), QStringLiteral("Espandi"));
    c.figura(QStringLiteral("IMG_COMPRIMI"), QStringLiteral("comprimi"),
             QStringLiteral("Comprimi"));
    c.controllo<controls::TreeGrid>(QStringLiteral("GRD_AGENTI"), QStringLiteral("Agenti"));
}

void creaSchede(const Costruttore& c)
{
    auto* schede = c.controllo<controls::TabStrip>(QStringLiteral("TAB_AGENTI"), {});
    schede->setTabStop(false);
    for (const char* pagina : {"Dati &generali", "Agenti &soci", "Giorni di &maturazione",
                               "Dati per la &tentata vendita", "G&iri visite", "Classificazioni"})
        schede->addPage(QString::fromUtf8(pagina));
}

void creaRegime(const Costruttore& c)
{
    c.gruppo(QStringLiteral("FRA_PROVVIGIONI"), QStringLiteral("Regime provvigioni"));
    obbligatorio(c.lista(QStringLiteral("CBO_REGPROV"), QStringLiteral("Regime provvigioni"),
                         QStringLiteral("MG17_REGIMEPROV"), 0));
    obbligatorio(c.numero(QStringLiteral("TXT_PERPROV"),
                          QStringLiteral("Percentuale di provvigione"),
                          QStringLiteral("MG17_PERPROV"), 6));
    c.casella(QStringLiteral("CHK_PROVCLIE"), QStringLiteral("Reg. provv. del cliente"),
              QStringLiteral("MG17_FLGREGIMECL"));
    c.casella(QStringLiteral("CHK_PROVART"), QStringLiteral("Reg. provv. dell'articolo"),
              QStringLiteral("MG17_FLGREGIMEART"));
    obbligatorio(c.lista(QStringLiteral("CBO_INDPRIORCLIART"),
                         QStringLiteral("Priorità regimi clienti e articoli"),
                         QStringLiteral("MG17_INDPRIORCLIART"), 0));
    c.testo(QStringLiteral("TXT_CODTABPROV"), QStringLiteral("Codice tabella provvigioni"),
            QStringLiteral("MG17_CODTABPROV"), 2);
    c.testo(QStringLiteral("TXT_RCPROV"),
            QStringLiteral("Riga o colonna tabella provvigioni per elementi a matrice"),
            QStringLiteral("MG17_RIGACOLPROV"), 2);
}

void creaListini(const Costruttore& c)
{
    c.gruppo(QStringLiteral("FRA_LISTINI"), QStringLiteral("Listini e tabelle a più livelli"));
    // The settings below follow the regime chosen; the regime "No calcolo provv." leaves
    // them all disabled. Their columns are written by the screen itself, not bound.
    c.lista(QStringLiteral("CBO_INDTIPOLISFIX"), QStringLiteral("Tipo di listino fisso"), {}, 0)
        ->setEnabled(false);
    disabilitato(c.numero(QStringLiteral("TXT_NUMLISTFIX"),
                          QStringLiteral("Numero di listino fisso"), {}, 3));
    c.descrizione(QStringLiteral("TXT_DESLISTFIX"), QStringLiteral("Descrizione listino fisso"),
                  40);
    for (const auto& [nome, caption] :
         {std::pair{"CBO_IDENTIFTAB", "Identificatore tabella in caso di regime provvigioni a 2 o "
                                      "3 livelli"},
          std::pair{"CBO_IDENTIFRIGA",
                    "Identificatore riga in caso di regime provvigioni a 2 o 3 livelli"},
          std::pair{"CBO_IDENTIFCOL",
                    "Identificatore colonna in caso di regime provvigioni a 2 o 3 livelli"}})
        c.lista(QString::fromUtf8(nome), QString::fromUtf8(caption), {}, -1)->setEnabled(false);
    disabilitato(c.codice(QStringLiteral("TXT_TABPRIORITA"),
                          QStringLiteral("Tabella priorità per listini parametrici")));
    c.descrizione(QStringLiteral("TXT_TABPRIORITA_DESCR"),
                  QStringLiteral("Descrizione tabella priorità"), 40);
}

void creaScontiMaggiorazioni(const Costruttore& c)
{
    c.gruppo(QStringLiteral("FRA_SCONTI"), QStringLiteral("Sconti e maggiorazioni"));
    c.casella(QStringLiteral("CHK_FLGADEGUAMSCMAG"),
              QStringLiteral("Adeguamento provvigioni per sconti/maggiorazioni"),
              QStringLiteral("MG17_FLGADEGUAMSCMAG"));
    // Enabled by the adjustment check box.
    disabilitato(conGestione(c.codice(QStringLiteral("TXT_CODPROVSC"),
                                      QStringLiteral("Codice tabella provvigioni su sconti"),
                                      QStringLiteral("MG17_CODPROVSC_PA10"), 20),
                             QStringLiteral("Gest. tab. provv. ")));
    c.descrizione(QStringLiteral("TXT_DESPROVSC"),
                  QStringLiteral("Descrizione tabella provvigioni su sconti"), 40);
    c.lista(QStringLiteral("CBO_INDCALCSCMAG"),
            QStringLiteral("Modalità di calcolo dello sconto e maggiorazione"),
            QStringLiteral("MG17_INDCALCSCMAG"), 0)
        ->setEnabled(false);
    c.lista(QStringLiteral("CBO_INDBASEIMPSC"),
            QStringLiteral("Base imponibile per il calcolo delle provvigioni su sconti"),
            QStringLiteral("MG17_INDBASEIMPSC"), 0)
        ->setEnabled(false);
    c.lista(QStringLiteral("CBO_INDBASEIMPMAG"),
            QStringLiteral("Base imponibile per il calcolo delle provvigioni su maggiorazioni"),
            QStringLiteral("MG17_INDBASEIMPMAG"), 0)
        ->setEnabled(false);
    c.casella(QStringLiteral("CHK_ADEGDELTA"), QStringLiteral("Adeguamento al delta della riga"),
              QStringLiteral("MG17_FLGADEGDELTA"));
}

void creaAgente(const Costruttore& c)
{
    c.gruppo(QStringLiteral("FRA_AGENTE"), QStringLiteral("Agente"));
    obbligatorio(c.lista(QStringLiteral("CBO_TIPOAGENTE"), QStringLiteral("Tipo agente"),
                         QStringLiteral("MG17_INDTIPOAGE"), 0));
    for (int tipo = 0; tipo < 3; ++tipo) {
        const QString codice = QString::number(tipo);
        c.figura(QStringLiteral("PIC_INDTIPOAGENTE") + codice, codice)->setVisible(tipo == 0);
    }
    conGestione(c.numero(QStringLiteral("TXT_TIPOLOGIAAGENTE"),
                         QStringLiteral("codice tipologia agente"),
                         QStringLiteral("MG17_TIPOAGENTE_MG1P"), 2),
                QStringLiteral("Gestione"));
    c.descrizione(QStringLiteral("TXT_DESCTIPOLOGIA"),
                  QStringLiteral("Descrizione tipologia agente"));
    c.codice(QStringLiteral("TXT_FOR"), QStringLiteral("Codice fornitore"),
             QStringLiteral("MG17_CLIFOR_CG44"), 6);
    c.descrizione(QStringLiteral("TXT_RAGSOANAGFOR"), QStringLiteral("Ragione sociale fornitore"));
    c.codice(QStringLiteral("TXT_AGERIFVIDEO1"), QStringLiteral("Agente di riferimento"), {}, 20);
    // The reference agent's id: narrow, beside the code the person works with.
    c.codice(QStringLiteral("TXT_AGERIF"), QStringLiteral("Agente di riferimento"),
             QStringLiteral("MG17_IDAGERIF_MG17"))
        ->setTabStop(false);
    c.descrizione(QStringLiteral("TXT_DESCAGERIF"),
                  QStringLiteral("Ragione sociale agente di riferimento"));
    // Managers follow the reference agent: they are never typed into.
    disabilitato(c.codice(QStringLiteral("TXT_CAPOAREA"), QStringLiteral("Capo area dell'agente"),
                          QStringLiteral("MG17_IDCAPOAREA_MG17"), 20));
    c.descrizione(QStringLiteral("TXT_DESCCAPOAREA"), QStringLiteral("Ragione sociale capo area"));
    disabilitato(c.codice(QStringLiteral("TXT_CAPOZONA"), QStringLiteral("Capo zona dell'agente"),
                          QStringLiteral("MG17_IDCAPOZONA_MG17"), 20));
    c.descrizione(QStringLiteral("TXT_DESCCAPOZONA"), QStringLiteral("Ragione sociale capo zona"));
}

void creaMandato(const Costruttore& c)
{
    c.gruppo(QStringLiteral("FRA_MANDATO"), QStringLiteral("Rapporto e mandato"));
    c.lista(QStringLiteral("CBO_TIPOMAND"), QStringLiteral("Tipo di mandato"),
            QStringLiteral("MG17_TIPOMAND"), 0);
    c.lista(QStringLiteral("CBO_TIPORAPP"), QStringLiteral("Tipo rapporto"),
            QStringLiteral("MG17_TIPORAPPOR"), 1);
    c.lista(QStringLiteral("CBO_TIPOSOC"), QStringLiteral("Tipo di società"),
            QStringLiteral("MG17_TIPOSOC"), 0);
    c.numero(QStringLiteral("TXT_NUMSOCI"),
             QStringLiteral("Numero di soci per agenti identificati come società di persona"),
             QStringLiteral("MG17_NUMSOCI"), 2);
    c.data(QStringLiteral("DAT_INRAPP"), QStringLiteral("Data inizio rapporto"),
           QStringLiteral("MG17_DATAINRAPP"));
    c.data(QStringLiteral("DAT_INMAN"), QStringLiteral("Data inizio mandato"),
           QStringLiteral("MG17_DATAINMAN"));
    c.data(QStringLiteral("DAT_FINEMAN"), QStringLiteral("Data fine mandato"),
           QStringLiteral("MG17_DATAFINEMAN"));
}

void creaEnasarco(const Costruttore& c)
{
    c.gruppo(QStringLiteral("FRA_ENASARCO"), QStringLiteral("ENASARCO"));
    c.testo(QStringLiteral("TXT_MATRENASARCO"), QStringLiteral("Matricola ENASARCO"),
            QStringLiteral("MG17_MATRENASARCO"), 16);
    c.data(QStringLiteral("DAT_ISCR"), QStringLiteral("Data iscrizione ENASARCO"),
           QStringLiteral("MG17_DATAISCR"));
    c.data(QStringLiteral("DAT_CANC"), QStringLiteral("Data cancellazione ENASARCO"),
           QStringLiteral("MG17_DATACANC"));
    c.lista(QStringLiteral("CBO_INDSTDISTENAS"),
            QStringLiteral("Indicatore stampa distinta ENASARCO"),
            QStringLiteral("MG17_INDSTDISTENAS"), 0);
}

void creaFatturazione(const Costruttore& c)
{
    c.gruppo(QStringLiteral("FRA_FATTURAZIONE"), QStringLiteral("Liquidazione e documenti"));
    c.numero(QStringLiteral("TXT_IMPMINFATT"), QStringLiteral("Importo minimo fatturabile"),
             QStringLiteral("MG17_IMPMINFATT"), 11)
        ->setDisplayFormat(QStringLiteral("#,0.00"));
    c.lista(QStringLiteral("CBO_INDTIPOLIQ"),
            QStringLiteral("Modalità preferenziale di liquidazione"),
            QStringLiteral("MG17_INDTIPOLIQ"), 0);
    // The last field of the page: Tab and Enter move on to the next page from here.
    c.lista(QStringLiteral("CBO_INDPREFSTDOC"), QStringLiteral("Stampa pref. documenti"),
            QStringLiteral("MG17_INDPREFSTDOC"), 0);
}

void creaSoci(const Costruttore& c)
{
    c.controllo<controls::Grid>(QStringLiteral("GRID_AGENTISOCI"), QStringLiteral("Agenti soci"));
    using namespace controls::NavigatorKey;
    c.navigatoreGriglia(QStringLiteral("GRIDNAV_AGENTISOCI"),
                        {First, Previous, Next, Last, Open, Confirm, Cancel, Back});
    obbligatorio(c.numero(QStringLiteral("TXT_CODSOCIO"), QStringLiteral("Codice socio"),
                          QStringLiteral("MG18_CODSOCIO"), 2));
    obbligatorio(c.testo(QStringLiteral("TXT_NOMECOGN"), QStringLiteral("Cognome e nome socio"),
                         QStringLiteral("MG18_NOMECOGN"), 30));
    c.testo(QStringLiteral("TXT_MATRSOCIO"), QStringLiteral("Matricola socio"),
            QStringLiteral("MG18_MATRSOCIO"), 16);
    c.testo(QStringLiteral("TXT_CODFISOCIO"), QStringLiteral("Codice fiscale socio"),
            QStringLiteral("MG18_CODFISOCIO"), 16);
    obbligatorio(c.numero(QStringLiteral("TXT_PERQUOTA"),
                          QStringLiteral("Percentuale quota di possesso"),
                          QStringLiteral("MG18_PERQUOTA"), 5));
    c.data(QStringLiteral("TXT_DATAINRAPP"), QStringLiteral("Data di inizio rapporto"),
           QStringLiteral("MG18_DATAINRAPP"));
    c.data(QStringLiteral("TXT_DATACESS"), QStringLiteral("Data di cessazione rapporto"),
           QStringLiteral("MG18_DATACESS"));
    // Shown while the declared number of partners is missing.
    c.etichetta(QStringLiteral("LBL_MANCANUMSOCI"),
                QStringLiteral("*Attenzione manca il numero dei soci nel folder Dati generali"))
        ->setVisible(false);
}

void creaMaturazione(const Costruttore& c)
{
    c.controllo<controls::Grid>(QStringLiteral("GRID_AGENTIMAT"),
                                QStringLiteral("Giorni di maturazione"));
    using namespace controls::NavigatorKey;
    c.navigatoreGriglia(QStringLiteral("GRIDNAV_AGENTIMAT"),
                        {First, Previous, Next, Last, Open, Back});
    obbligatorio(c.lista(QStringLiteral("CBO_TIPOEFF"), QStringLiteral("Tipo effetto"),
                         QStringLiteral("MG16_TIPOEFF"), 0));
    c.numero(QStringLiteral("TXT_GGMAT"),
             QStringLiteral("Giorni di maturazione provvigioni per il tipo di effetto in gestione"),
             QStringLiteral("MG16_GGMATUR"), 3);
}

void creaTentataVendita(const Costruttore& c)
{
    c.testo(QStringLiteral("TXT_TVTARGA"), QStringLiteral("Targa automezzo"),
            QStringLiteral("MG34_TVTARGA"));
    c.testo(QStringLiteral("TXT_TVTARA"), QStringLiteral("Tara automezzo"),
            QStringLiteral("MG34_TVTARA"));
    conGestione(c.codice(QStringLiteral("TXT_TVDEP"),
                         QStringLiteral("Deposito associato all'agente"),
                         QStringLiteral("MG34_TVDEP_MG58"), 2),
                QStringLiteral("Depositi"));
    c.etichetta(QStringLiteral("TXT_DESCDEP"), {});
    conGestione(c.codice(QStringLiteral("TXT_TVSEZ"),
                         QStringLiteral("Sezionale associato all'agente"),
                         QStringLiteral("MG34_TVSEZ_CG68"), 2),
                QStringLiteral("Sezionali"));
    c.etichetta(QStringLiteral("TXT_DESCSEZ"), {});
    c.casella(QStringLiteral("CHK_TVINDXH"), QStringLiteral("Gestione schede XH"),
              QStringLiteral("MG34_TVINDXH"));
}

void creaGiri(const Costruttore& c)
{
    c.controllo<controls::Grid>(QStringLiteral("GRD_GIRI"), QStringLiteral("Giri"));
    using namespace controls::NavigatorKey;
    conGestione(c.codice(QStringLiteral("TXT_GIRO"), QStringLiteral("Giro selezionato"), {}, 3),
                QStringLiteral("Giri"));
    c.descrizione(QStringLiteral("TXT_DESCGIRO"), QStringLiteral("Descrizione giro"));
    c.controllo<controls::Grid>(QStringLiteral("GRD_DETTAGLIOGIRI"),
                                QStringLiteral("Dettaglio giro"));
    c.navigatoreGriglia(QStringLiteral("GRIDNAV_GIRI"),
                        {First, Previous, Next, Last, Open, Back, Forward});
    c.pulsante(QStringLiteral("CMD_UP"), {}, QStringLiteral("Sposta il cliente in su"));
    c.pulsante(QStringLiteral("CMD_DOWN"), {}, QStringLiteral("Sposta il cliente in giù"));
    c.codice(QStringLiteral("TXT_CLIENTE"), QStringLiteral("Codice cliente"),
             QStringLiteral("MG1I_CLIFOR_CG44"), 6);
    for (const auto& [nome, caption] :
         {std::pair{"TXT_C_RAGSOC", "Ragione sociale cliente"},
          std::pair{"TXT_C_INDIRIZZO", "Indirizzo cliente"}, std::pair{"TXT_C_CAP", "CAP"},
          std::pair{"TXT_C_CITTA", "Località"}, std::pair{"TXT_C_PR", "Provincia"},
          std::pair{"TXT_C_PIVA", "Partita IVA"}})
        c.descrizione(QString::fromUtf8(nome), QString::fromUtf8(caption));
    c.codice(QStringLiteral("TXT_MG1I_CODDEST_MG22"), QStringLiteral("Codice destinatario"),
             QStringLiteral("MG1I_CODDEST_MG22"), 4);
    c.descrizione(QStringLiteral("TXT_DESCRDEST"), QStringLiteral("Descrizione destinatario"));
    c.testo(QStringLiteral("TXT_NOTE"), QStringLiteral("Note"), QStringLiteral("MG1I_NOTE"), 400)
        ->setMultiLine(true);
    c.pulsante(QStringLiteral("CMD_AZZERRAGIRO"), QStringLiteral("E&limina dettaglio giro"));
    c.pulsante(QStringLiteral("CMD_MULTICLI"), QStringLiteral("Recupera elenco &clienti"));

    // The question panel: the screen asks through the dialog, so it stays hidden.
    c.gruppo(QStringLiteral("FRAME_MESSAGGIO"), {});
}

void creaClassificazioni(const Costruttore& c)
{
    c.gruppo(QStringLiteral("FRA_CLASSIFICAZIONI"), QStringLiteral("Classificazioni"));
    struct Classificazione {
        const char* codice;
        const char* caption;
        const char* colonna;
        const char* descrizione;
        const char* captionDescrizione;
    };
    for (const Classificazione& voce : {
             Classificazione{"TXT_MACROAREA", "Codice Macroarea", "MG17_MACROAREA_MGL1",
                             "TXT_DESMACROAREA", "Descrizione Macroarea Agenti"},
             Classificazione{"TXT_AREA", "Codice Area", "MG17_AREA_MGL2", "TXT_DESAREA",
                             "Descrizione Area Agenti"},
             Classificazione{"TXT_ZONA", "Codice Zona", "MG17_ZONA_MGL3", "TXT_DESZONA",
                             "Descrizione Zona Agenti"},
             Classificazione{"TXT_MACROCAT", "Codice Macrocategoria", "MG17_MACROCAT_MGL4",
                             "TXT_DESMACROCAT", "Descrizione Macrocategoria Agenti"},
             Classificazione{"TXT_CATEGORIA", "Codice Categoria", "MG17_CATEG_MGL5",
                             "TXT_DESCATEGORIA", "Descrizione Categoria Agenti"},
             Classificazione{"TXT_SOTTOCAT", "Codice Sottocategoria", "MG17_SOTTOCAT_MGL6",
                             "TXT_DESSOTTOCAT", "Descrizione Sottocategoria Agenti"},
             Classificazione{"TXT_RAGGR1", "Raggruppamento 1", "MG17_RAGGR1_MGL7", "TXT_DESRAGGR1",
                             "Descrizione Raggruppamento 1 Agenti"},
             Classificazione{"TXT_RAGGR2", "Raggruppamento 2", "MG17_RAGGR2_MGL8", "TXT_DESRAGGR2",
                             "Descrizione Raggruppamento 2 Agenti"},
             Classificazione{"TXT_RAGGR3", "Raggruppamento 3", "MG17_RAGGR3_MGL9", "TXT_DESRAGGR3",
                             "Descrizione Raggruppamento 3 Agenti"},
         }) {
        conGestione(c.codice(QString::fromUtf8(voce.codice), QString::fromUtf8(voce.caption),
                             QString::fromUtf8(voce.colonna), 3),
                    QStringLiteral("Gestione"));
        c.descrizione(QString::fromUtf8(voce.descrizione),
                      QString::fromUtf8(voce.captionDescrizione), 30);
    }
}

void creaNavigatoreInterno(const Costruttore& c)
{
    auto* navigatore = c.controllo<controls::NavigatorBar>(QStringLiteral("INTERNAV"), {});
    // The toolbar of the host moves between agents: the bar only pages and starts agents.
    using namespace controls::NavigatorKey;
    for (const QString& chiave : {First, Previous, Next, Last})
        navigatore->setButtonVisible(chiave, false);
}

} // namespace

void creaControlliAgenti(controls::Form& form)
{
    const Costruttore c(form);
    creaTestata(c);
    creaAlbero(c);
    creaSchede(c);
    creaRegime(c);
    creaListini(c);
    creaScontiMaggiorazioni(c);
    creaAgente(c);
    creaMandato(c);
    creaEnasarco(c);
    creaFatturazione(c);
    creaSoci(c);
    creaMaturazione(c);
    creaTentataVendita(c);
    creaGiri(c);
    creaControlliDomanda(form);
    creaClassificazioni(c);
    creaNavigatoreInterno(c);
}

void creaControlliDomanda(controls::Form& form)
{
    const Costruttore c(form);
    c.etichetta(QStringLiteral("LBL_MESSAGGIO"),
                QStringLiteral("Testo del messaggio di informazione"));
    c.pulsante(QStringLiteral("CMD_SI"), QStringLiteral("&Si"));
    c.pulsante(QStringLiteral("CMD_NO"), QStringLiteral("&No"));
    c.pulsante(QStringLiteral("CMD_SEMPRE"), QStringLiteral("S&i, sempre"));
    c.pulsante(QStringLiteral("CMD_MAI"), QStringLiteral("N&o, sempre"));
}

} // namespace tarvello::agenti
