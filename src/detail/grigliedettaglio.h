#pragma once

namespace tarvello::controls {
class Form;
}

namespace tarvello::agenti {

// The column layouts of the four detail grids of the agents screen, set once at the first
// activation. Widths are in twips.
void INIT_GRID_AGENTISOCI(const controls::Form& schermata);
void INIT_GRID_AGENTIMAT(const controls::Form& schermata);
void INIT_GRD_DETTAGLIOGIRI(const controls::Form& schermata);
void INIT_GRD_GIRI(const controls::Form& schermata);

} // namespace tarvello::agenti
