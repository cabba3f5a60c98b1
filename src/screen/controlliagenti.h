#pragma once

namespace tarvello::controls {
class Button;
class CheckBox;
class ComboBox;
class Control;
class DataControl;
class Field;
class Form;
class Grid;
class GridNavigator;
class MenuButton;
class Navigator;
class NavigatorBar;
class Picture;
class TabStrip;
class TreeGrid;
} // namespace tarvello::controls

namespace tarvello::agenti {

// The controls of the partners page that its part answers to.
struct ControlliSoci {
    controls::Field& TXT_NUMSOCI;
    controls::Control& LBL_MANCANUMSOCI;
    controls::Field& TXT_CODSOCIO;
    controls::Field& TXT_CODFISOCIO;
    controls::Field& TXT_DATACESS;
    controls::GridNavigator& GRIDNAV_AGENTISOCI;
};

// The controls of the maturation-days page that its part answers to.
struct ControlliMaturazione {
    controls::ComboBox& CBO_TIPOEFF;
    controls::Field& TXT_GGMAT;
    controls::GridNavigator& GRIDNAV_AGENTIMAT;
};

// The buttons that move a customer within its route, the route's grid and the navigator whose
// change indicator the move lights.
struct ControlliOrdineGiro {
    controls::Button& CMD_UP;
    controls::Button& CMD_DOWN;
    controls::Grid& GRD_DETTAGLIOGIRI;
    controls::Navigator& INTERNAV;
};

// The routes page: the agent's routes, the route on view with its description, the customers
// of that route and the customer field the route-detail frame's status enables.
struct ControlliGiriVisite {
    controls::Grid& GRD_GIRI;
    controls::Field& TXT_GIRO;
    controls::Field& TXT_DESCGIRO;
    controls::Grid& GRD_DETTAGLIOGIRI;
    controls::Field& TXT_CLIENTE;
};

// The customer rows of the route on view: the customer with the fields its decoding fills, the
// destination with its description, the route detail's navigator, grid and clearing button,
// and the navigator whose change indicator the clearing lights.
struct ControlliRigheGiro {
    controls::Field& TXT_CLIENTE;
    controls::Field& TXT_C_RAGSOC;
    controls::Field& TXT_C_INDIRIZZO;
    controls::Field& TXT_C_CAP;
    controls::Field& TXT_C_CITTA;
    controls::Field& TXT_C_PR;
    controls::Field& TXT_C_PIVA;
    controls::Field& TXT_MG1I_CODDEST_MG22;
    controls::Field& TXT_DESCRDEST;
    controls::Navigator& GRIDNAV_GIRI;
    controls::Button& CMD_AZZERRAGIRO;
    controls::Grid& GRD_DETTAGLIOGIRI;
    controls::Navigator& INTERNAV;
};

// What brings customers into the route on view: the route field, whose management key opens
// the routes management, the agent whose customer list is asked for, and the button that asks.
struct ControlliClientiGiro {
    controls::Field& TXT_GIRO;
    controls::Field& TXT_AGENTE;
    controls::Button& CMD_MULTICLI;
};

// The controls of the partners and maturation-days pages that the details part answers to or
// binds, and the route's field and grid its refresh reads and binds.
struct ControlliDettagli {
    controls::GridNavigator& GRIDNAV_AGENTISOCI;
    controls::Grid& GRID_AGENTISOCI;
    controls::Field& TXT_NUMSOCI;
    controls::Field& TXT_CODSOCIO;
    controls::GridNavigator& GRIDNAV_AGENTIMAT;
    controls::Grid& GRID_AGENTIMAT;
    controls::ComboBox& CBO_TIPOEFF;
    controls::Field& TXT_GIRO;
    controls::Grid& GRD_DETTAGLIOGIRI;
};

// The van-sales page: the depot and register fields with their descriptions, the last field
// of the page and the navigator its exit key presses.
struct ControlliTentataVendita {
    controls::CheckBox& CHK_TVINDXH;
    controls::Field& TXT_TVDEP;
    controls::DataControl& TXT_DESCDEP;
    controls::Field& TXT_TVSEZ;
    controls::DataControl& TXT_DESCSEZ;
    controls::Navigator& INTERNAV;
};

// The commission page: the regime and the fields its rules enable, require and reset, the
// lists of the composite table's identifiers, the fields decoded with their descriptions, and
// the navigator the page's last field moves on.
struct ControlliProvvigioni {
    controls::ComboBox& CBO_REGPROV;
    controls::ComboBox& CBO_INDTIPOLISFIX;
    controls::Field& TXT_NUMLISTFIX;
    controls::DataControl& TXT_DESLISTFIX;
    controls::ComboBox& CBO_IDENTIFTAB;
    controls::ComboBox& CBO_IDENTIFRIGA;
    controls::ComboBox& CBO_IDENTIFCOL;
    controls::CheckBox& CHK_FLGADEGUAMSCMAG;
    controls::Field& TXT_CODPROVSC;
    controls::DataControl& TXT_DESPROVSC;
    controls::ComboBox& CBO_INDCALCSCMAG;
    controls::ComboBox& CBO_INDBASEIMPSC;
    controls::ComboBox& CBO_INDBASEIMPMAG;
    controls::Field& TXT_TABPRIORITA;
    controls::DataControl& TXT_TABPRIORITA_DESCR;
    controls::Field& TXT_IMPMINFATT;
    controls::ComboBox& CBO_INDPREFSTDOC;
    controls::Navigator& INTERNAV;
};

// The agents tree, the agent's code whose row it shows and the navigators of the details its
// click enables.
struct ControlliAlbero {
    controls::TreeGrid& GRD_AGENTI;
    controls::Field& TXT_AGENTE;
    controls::GridNavigator& GRIDNAV_AGENTISOCI;
    controls::GridNavigator& GRIDNAV_AGENTIMAT;
};

// What the walk from agent to agent answers to and moves: the tree and its buttons, the inner
// navigator, the pages it turns and the agent's code it hands back or focuses.
struct ControlliNavigazione {
    controls::TreeGrid& GRD_AGENTI;
    controls::Picture& IMG_ESPANDI;
    controls::Picture& IMG_COMPRIMI;
    controls::NavigatorBar& INTERNAV;
    controls::TabStrip& TAB_AGENTI;
    controls::Field& TXT_AGENTE;
};

// The menu of the managements linked to an agent, the fields their answers fill or focus and
// the agent's code they are opened on.
struct ControlliCollegate {
    controls::MenuButton& CMD_GESTCOLL;
    controls::Field& TXT_AGENTE;
    controls::Field& TXT_RAGSOANAG;
    controls::Control& CBO_REGPROV;
};

// The nine classification codes, by their group (territory, categories, groupings) and level
// within it, the highest first.
struct ControlliClassificazioni {
    controls::Field& TXT_MACROAREA;
    controls::Field& TXT_AREA;
    controls::Field& TXT_ZONA;
    controls::Field& TXT_MACROCAT;
    controls::Field& TXT_CATEGORIA;
    controls::Field& TXT_SOTTOCAT;
    controls::Field& TXT_RAGGR1;
    controls::Field& TXT_RAGGR2;
    controls::Field& TXT_RAGGR3;
};

// The header fields that say who the agent is and where it stands: the code and the registry
// name, the supplier, the type with its three pictures, the reference agent (its code, and the
// id the row keeps) with the area and zone managers derived from it, and the typology; each
// decoded field with the description it fills.
struct ControlliIdentitaAgente {
    controls::Field& TXT_AGENTE;
    controls::Field& TXT_RAGSOANAG;
    controls::Field& TXT_FOR;
    controls::DataControl& TXT_RAGSOANAGFOR;
    controls::ComboBox& CBO_TIPOAGENTE;
    controls::Control& PIC_INDTIPOAGENTE0;
    controls::Control& PIC_INDTIPOAGENTE1;
    controls::Control& PIC_INDTIPOAGENTE2;
    controls::Field& TXT_AGERIFVIDEO1;
    controls::Field& TXT_AGERIF;
    controls::DataControl& TXT_DESCAGERIF;
    controls::Field& TXT_CAPOAREA;
    controls::DataControl& TXT_DESCCAPOAREA;
    controls::Field& TXT_CAPOZONA;
    controls::DataControl& TXT_DESCCAPOZONA;
    controls::Field& TXT_TIPOLOGIAAGENTE;
    controls::DataControl& TXT_DESCTIPOLOGIA;
};

// What the agent record's status, save and display reach beyond the header: the tab strip,
// the linked-managements button and the detail navigators the status opens and closes, the
// partner code that tells the save whether the partners' pending row is to be confirmed, the
// commission regime that takes the focus, and the commission page's fields bound to no
// column, which the save writes and the display of a row fills.
struct ControlliRecordAgente {
    controls::TabStrip& TAB_AGENTI;
    controls::Control& CMD_GESTCOLL;
    controls::GridNavigator& GRIDNAV_AGENTISOCI;
    controls::GridNavigator& GRIDNAV_AGENTIMAT;
    controls::Field& TXT_CODSOCIO;
    controls::ComboBox& CBO_REGPROV;
    controls::ComboBox& CBO_INDTIPOLISFIX;
    controls::Field& TXT_NUMLISTFIX;
    controls::ComboBox& CBO_IDENTIFTAB;
    controls::ComboBox& CBO_IDENTIFRIGA;
    controls::ComboBox& CBO_IDENTIFCOL;
    controls::Field& TXT_TABPRIORITA;
};

// The agents screen's controls by kind, for the parts of the screen that are given theirs
// when they are built.
struct ControlliAgenti {
    ControlliSoci soci;
    ControlliMaturazione maturazione;
    ControlliOrdineGiro ordineGiro;
    ControlliGiriVisite giriVisite;
    ControlliRigheGiro righeGiro;
    ControlliClientiGiro clientiGiro;
    ControlliDettagli dettagli;
    ControlliTentataVendita tentataVendita;
    ControlliProvvigioni provvigioni;
    ControlliAlbero albero;
    ControlliNavigazione navigazione;
    ControlliCollegate collegate;
    ControlliClassificazioni classificazioni;
    ControlliIdentitaAgente identita;
    ControlliRecordAgente recordAgente;
};

// Reaches every control of ControlliAgenti on a screen laid out by creaControlliAgenti, once:
// a control the layout lacks stops the screen's construction with a message that names it.
ControlliAgenti controlliAgenti(const controls::Form& schermata);

} // namespace tarvello::agenti
