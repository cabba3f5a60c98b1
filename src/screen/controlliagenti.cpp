#include "src/screen/controlliagenti.h"

#include "platform/controls/button.h"
#include "platform/controls/checkbox.h"
#include "platform/controls/combobox.h"
#include "platform/controls/field.h"
#include "platform/controls/grid.h"
#include "platform/controls/gridnavigator.h"
#include "platform/controls/menubutton.h"
#include "platform/controls/navigator.h"
#include "platform/controls/navigatorbar.h"
#include "platform/controls/picture.h"
#include "platform/controls/tabstrip.h"
#include "platform/controls/treegrid.h"
#include "src/screen/controlli.h"

namespace tarvello::agenti {

ControlliAgenti controlliAgenti(const controls::Form& schermata)
{
    using namespace controls;
    return {
        .soci =
            {
                .TXT_NUMSOCI = controlloDi<Field>(schermata, u"TXT_NUMSOCI"),
                .LBL_MANCANUMSOCI = controlloDi<Control>(schermata, u"LBL_MANCANUMSOCI"),
                .TXT_CODSOCIO = controlloDi<Field>(schermata, u"TXT_CODSOCIO"),
                .TXT_CODFISOCIO = controlloDi<Field>(schermata, u"TXT_CODFISOCIO"),
                .TXT_DATACESS = controlloDi<Field>(schermata, u"TXT_DATACESS"),
                .GRIDNAV_AGENTISOCI = controlloDi<GridNavigator>(schermata, u"GRIDNAV_AGENTISOCI"),
            },
        .maturazione =
            {
                .CBO_TIPOEFF = controlloDi<ComboBox>(schermata, u"CBO_TIPOEFF"),
                .TXT_GGMAT = controlloDi<Field>(schermata, u"TXT_GGMAT"),
                .GRIDNAV_AGENTIMAT = controlloDi<GridNavigator>(schermata, u"GRIDNAV_AGENTIMAT"),
            },
        .ordineGiro =
            {
                .CMD_UP = controlloDi<Button>(schermata, u"CMD_UP"),
                .CMD_DOWN = controlloDi<Button>(schermata, u"CMD_DOWN"),
                .GRD_DETTAGLIOGIRI = controlloDi<Grid>(schermata, u"GRD_DETTAGLIOGIRI"),
                .INTERNAV = controlloDi<Navigator>(schermata, u"INTERNAV"),
            },
        .giriVisite =
            {
                .GRD_GIRI = controlloDi<Grid>(schermata, u"GRD_GIRI"),
                .TXT_GIRO = controlloDi<Field>(schermata, u"TXT_GIRO"),
                .TXT_DESCGIRO = controlloDi<Field>(schermata, u"TXT_DESCGIRO"),
                .GRD_DETTAGLIOGIRI = controlloDi<Grid>(schermata, u"GRD_DETTAGLIOGIRI"),
                .TXT_CLIENTE = controlloDi<Field>(schermata, u"TXT_CLIENTE"),
            },
        .righeGiro =
            {
                .TXT_CLIENTE = controlloDi<Field>(schermata, u"TXT_CLIENTE"),
                .TXT_C_RAGSOC = controlloDi<Field>(schermata, u"TXT_C_RAGSOC"),
                .TXT_C_INDIRIZZO = controlloDi<Field>(schermata, u"TXT_C_INDIRIZZO"),
                .TXT_C_CAP = controlloDi<Field>(schermata, u"TXT_C_CAP"),
                .TXT_C_CITTA = controlloDi<Field>(schermata, u"TXT_C_CITTA"),
                .TXT_C_PR = controlloDi<Field>(schermata, u"TXT_C_PR"),
                .TXT_C_PIVA = controlloDi<Field>(schermata, u"TXT_C_PIVA"),
                .TXT_MG1I_CODDEST_MG22 = controlloDi<Field>(schermata, u"TXT_MG1I_CODDEST_MG22"),
                .TXT_DESCRDEST = controlloDi<Field>(schermata, u"TXT_DESCRDEST"),
                .GRIDNAV_GIRI = controlloDi<Navigator>(schermata, u"GRIDNAV_GIRI"),
                .CMD_AZZERRAGIRO = controlloDi<Button>(schermata, u"CMD_AZZERRAGIRO"),
                .GRD_DETTAGLIOGIRI = controlloDi<Grid>(schermata, u"GRD_DETTAGLIOGIRI"),
                .INTERNAV = controlloDi<Navigator>(schermata, u"INTERNAV"),
            },
        .clientiGiro =
            {
                .TXT_GIRO = controlloDi<Field>(schermata, u"TXT_GIRO"),
                .TXT_AGENTE = controlloDi<Field>(schermata, u"TXT_AGENTE"),
                .CMD_MULTICLI = controlloDi<Button>(schermata, u"CMD_MULTICLI"),
            },
        .dettagli =
            {
                .GRIDNAV_AGENTISOCI = controlloDi<GridNavigator>(schermata, u"GRIDNAV_AGENTISOCI"),
                .GRID_AGENTISOCI = controlloDi<Grid>(schermata, u"GRID_AGENTISOCI"),
                .TXT_NUMSOCI = controlloDi<Field>(schermata, u"TXT_NUMSOCI"),
                .TXT_CODSOCIO = controlloDi<Field>(schermata, u"TXT_CODSOCIO"),
                .GRIDNAV_AGENTIMAT = controlloDi<GridNavigator>(schermata, u"GRIDNAV_AGENTIMAT"),
                .GRID_AGENTIMAT = controlloDi<Grid>(schermata, u"GRID_AGENTIMAT"),
                .CBO_TIPOEFF = controlloDi<ComboBox>(schermata, u"CBO_TIPOEFF"),
                .TXT_GIRO = controlloDi<Field>(schermata, u"TXT_GIRO"),
                .GRD_DETTAGLIOGIRI = controlloDi<Grid>(schermata, u"GRD_DETTAGLIOGIRI"),
            },
        .tentataVendita =
            {
                .CHK_TVINDXH = controlloDi<CheckBox>(schermata, u"CHK_TVINDXH"),
                .TXT_TVDEP = controlloDi<Field>(schermata, u"TXT_TVDEP"),
                .TXT_DESCDEP = controlloDi<DataControl>(schermata, u"TXT_DESCDEP"),
                .TXT_TVSEZ = controlloDi<Field>(schermata, u"TXT_TVSEZ"),
                .TXT_DESCSEZ = controlloDi<DataControl>(schermata, u"TXT_DESCSEZ"),
                .INTERNAV = controlloDi<Navigator>(schermata, u"INTERNAV"),
            },
        .provvigioni =
            {
                .CBO_REGPROV = controlloDi<ComboBox>(schermata, u"CBO_REGPROV"),
                .CBO_INDTIPOLISFIX = controlloDi<ComboBox>(schermata, u"CBO_INDTIPOLISFIX"),
                .TXT_NUMLISTFIX = controlloDi<Field>(schermata, u"TXT_NUMLISTFIX"),
                .TXT_DESLISTFIX = controlloDi<DataControl>(schermata, u"TXT_DESLISTFIX"),
                .CBO_IDENTIFTAB = controlloDi<ComboBox>(schermata, u"CBO_IDENTIFTAB"),
                .CBO_IDENTIFRIGA = controlloDi<ComboBox>(schermata, u"CBO_IDENTIFRIGA"),
                .CBO_IDENTIFCOL = controlloDi<ComboBox>(schermata, u"CBO_IDENTIFCOL"),
                .CHK_FLGADEGUAMSCMAG = controlloDi<CheckBox>(schermata, u"CHK_FLGADEGUAMSCMAG"),
                .TXT_CODPROVSC = controlloDi<Field>(schermata, u"TXT_CODPROVSC"),
                .TXT_DESPROVSC = controlloDi<DataControl>(schermata, u"TXT_DESPROVSC"),
                .CBO_INDCALCSCMAG = controlloDi<ComboBox>(schermata, u"CBO_INDCALCSCMAG"),
                .CBO_INDBASEIMPSC = controlloDi<ComboBox>(schermata, u"CBO_INDBASEIMPSC"),
                .CBO_INDBASEIMPMAG = controlloDi<ComboBox>(schermata, u"CBO_INDBASEIMPMAG"),
                .TXT_TABPRIORITA = controlloDi<Field>(schermata, u"TXT_TABPRIORITA"),
                .TXT_TABPRIORITA_DESCR =
                    controlloDi<DataControl>(schermata, u"TXT_TABPRIORITA_DESCR"),
                .TXT_IMPMINFATT = controlloDi<Field>(schermata, u"TXT_IMPMINFATT"),
                .CBO_INDPREFSTDOC = controlloDi<ComboBox>(schermata, u"CBO_INDPREFSTDOC"),
                .INTERNAV = controlloDi<Navigator>(schermata, u"INTERNAV"),
            },
        .albero =
            {
                .GRD_AGENTI = controlloDi<TreeGrid>(schermata, u"GRD_AGENTI"),
                .TXT_AGENTE = controlloDi<Field>(schermata, u"TXT_AGENTE"),
                .GRIDNAV_AGENTISOCI = controlloDi<GridNavigator>(schermata, u"GRIDNAV_AGENTISOCI"),
                .GRIDNAV_AGENTIMAT = controlloDi<GridNavigator>(schermata, u"GRIDNAV_AGENTIMAT"),
            },
        .navigazione =
            {
                .GRD_AGENTI = controlloDi<TreeGrid>(schermata, u"GRD_AGENTI"),
                .IMG_ESPANDI = controlloDi<Picture>(schermata, u"IMG_ESPANDI"),
                .IMG_COMPRIMI = controlloDi<Picture>(schermata, u"IMG_COMPRIMI"),
                .INTERNAV = controlloDi<NavigatorBar>(schermata, u"INTERNAV"),
                .TAB_AGENTI = controlloDi<TabStrip>(schermata, u"TAB_AGENTI"),
                .TXT_AGENTE = controlloDi<Field>(schermata, u"TXT_AGENTE"),
            },
        .collegate =
            {
                .CMD_GESTCOLL = controlloDi<MenuButton>(schermata, u"CMD_GESTCOLL"),
                .TXT_AGENTE = controlloDi<Field>(schermata, u"TXT_AGENTE"),
                .TXT_RAGSOANAG = controlloDi<Field>(schermata, u"TXT_RAGSOANAG"),
                .CBO_REGPROV = controlloDi<Control>(schermata, u"CBO_REGPROV"),
            },
        .classificazioni =
            {
                .TXT_MACROAREA = controlloDi<Field>(schermata, u"TXT_MACROAREA"),
                .TXT_AREA = controlloDi<Field>(schermata, u"TXT_AREA"),
                .TXT_ZONA = controlloDi<Field>(schermata, u"TXT_ZONA"),
                .TXT_MACROCAT = controlloDi<Field>(schermata, u"TXT_MACROCAT"),
                .TXT_CATEGORIA = controlloDi<Field>(schermata, u"TXT_CATEGORIA"),
                .TXT_SOTTOCAT = controlloDi<Field>(schermata, u"TXT_SOTTOCAT"),
                .TXT_RAGGR1 = controlloDi<Field>(schermata, u"TXT_RAGGR1"),
                .TXT_RAGGR2 = controlloDi<Field>(schermata, u"TXT_RAGGR2"),
                .TXT_RAGGR3 = controlloDi<Field>(schermata, u"TXT_RAGGR3"),
            },
        .identita =
            {
                .TXT_AGENTE = controlloDi<Field>(schermata, u"TXT_AGENTE"),
                .TXT_RAGSOANAG = controlloDi<Field>(schermata, u"TXT_RAGSOANAG"),
                .TXT_FOR = controlloDi<Field>(schermata, u"TXT_FOR"),
                .TXT_RAGSOANAGFOR = controlloDi<DataControl>(schermata, u"TXT_RAGSOANAGFOR"),
                .CBO_TIPOAGENTE = controlloDi<ComboBox>(schermata, u"CBO_TIPOAGENTE"),
                .PIC_INDTIPOAGENTE0 = controlloDi<Control>(schermata, u"PIC_INDTIPOAGENTE0"),
                .PIC_INDTIPOAGENTE1 = controlloDi<Control>(schermata, u"PIC_INDTIPOAGENTE1"),
                .PIC_INDTIPOAGENTE2 = controlloDi<Control>(schermata, u"PIC_INDTIPOAGENTE2"),
                .TXT_AGERIFVIDEO1 = controlloDi<Field>(schermata, u"TXT_AGERIFVIDEO1"),
                .TXT_AGERIF = controlloDi<Field>(schermata, u"TXT_AGERIF"),
                .TXT_DESCAGERIF = controlloDi<DataControl>(schermata, u"TXT_DESCAGERIF"),
                .TXT_CAPOAREA = controlloDi<Field>(schermata, u"TXT_CAPOAREA"),
                .TXT_DESCCAPOAREA = controlloDi<DataControl>(schermata, u"TXT_DESCCAPOAREA"),
                .TXT_CAPOZONA = controlloDi<Field>(schermata, u"TXT_CAPOZONA"),
                .TXT_DESCCAPOZONA = controlloDi<DataControl>(schermata, u"TXT_DESCCAPOZONA"),
                .TXT_TIPOLOGIAAGENTE = controlloDi<Field>(schermata, u"TXT_TIPOLOGIAAGENTE"),
                .TXT_DESCTIPOLOGIA = controlloDi<DataControl>(schermata, u"TXT_DESCTIPOLOGIA"),
            },
        .recordAgente =
            {
                .TAB_AGENTI = controlloDi<TabStrip>(schermata, u"TAB_AGENTI"),
                .CMD_GESTCOLL = controlloDi<Control>(schermata, u"CMD_GESTCOLL"),
                .GRIDNAV_AGENTISOCI = controlloDi<GridNavigator>(schermata, u"GRIDNAV_AGENTISOCI"),
                .GRIDNAV_AGENTIMAT = controlloDi<GridNavigator>(schermata, u"GRIDNAV_AGENTIMAT"),
                .TXT_CODSOCIO = controlloDi<Field>(schermata, u"TXT_CODSOCIO"),
                .CBO_REGPROV = controlloDi<ComboBox>(schermata, u"CBO_REGPROV"),
                .CBO_INDTIPOLISFIX = controlloDi<ComboBox>(schermata, u"CBO_INDTIPOLISFIX"),
                .TXT_NUMLISTFIX = controlloDi<Field>(schermata, u"TXT_NUMLISTFIX"),
                .CBO_IDENTIFTAB = controlloDi<ComboBox>(schermata, u"CBO_IDENTIFTAB"),
                .CBO_IDENTIFRIGA = controlloDi<ComboBox>(schermata, u"CBO_IDENTIFRIGA"),
                .CBO_IDENTIFCOL = controlloDi<ComboBox>(schermata, u"CBO_IDENTIFCOL"),
                .TXT_TABPRIORITA = controlloDi<Field>(schermata, u"TXT_TABPRIORITA"),
            },
    };
}

} // namespace tarvello::agenti
