#pragma once

namespace tarvello::controls {
class Form;
}

namespace tarvello::agenti {

// The six pages of TAB_AGENTI.
namespace Pagina {
inline constexpr int DatiGenerali = 0;
inline constexpr int Soci = 1;
inline constexpr int Maturazione = 2;
inline constexpr int TentataVendita = 3;
inline constexpr int Giri = 4;
inline constexpr int Classificazioni = 5;
} // namespace Pagina

// Places every control of the agents screen on the form, as designed: captions, lengths,
// upper case, kinds, required flags, bound columns, design-time enabled and visible
// settings, and the tab order (the order of creation). The header comes first, then the
// agents tree, the tab strip with its pages in order, and the inner navigator.
void creaControlliAgenti(controls::Form& form);

// The question label and its four answer buttons, shared by the panel FRAME_MESSAGGIO of
// the agents screen and by the dialog FRMMG_MESSAGGIO.
void creaControlliDomanda(controls::Form& form);

} // namespace tarvello::agenti
