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
class Navigator;
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

// The agents screen's controls by kind, for the parts of the screen that are given theirs
// when they are built.
struct ControlliAgenti {
    ControlliSoci soci;
    ControlliMaturazione maturazione;
    ControlliOrdineGiro ordineGiro;
    ControlliTentataVendita tentataVendita;
};

// Reaches every control of ControlliAgenti on a screen laid out by creaControlliAgenti, once:
// a control the layout lacks stops the screen's construction with a message that names it.
ControlliAgenti controlliAgenti(const controls::Form& schermata);

} // namespace tarvello::agenti
