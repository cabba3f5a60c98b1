#include "src/tree/navigazioneagenti.h"

#include "src/screen/frmmg_agenti.h"

namespace tarvello::agenti {

NavigazioneAgenti::NavigazioneAgenti(FRMMG_AGENTI& schermata)
    : m_schermata(schermata)
{}

NavigazioneAgenti::~NavigazioneAgenti() = default;

void NavigazioneAgenti::collega() {}

void NavigazioneAgenti::PrimoAgente() {}

void NavigazioneAgenti::PrecedenteRamoAgente() {}

void NavigazioneAgenti::PreviousAgente() {}

void NavigazioneAgenti::NextAgente() {}

void NavigazioneAgenti::ProssimoRamoAgente() {}

void NavigazioneAgenti::UltimoAgente() {}

} // namespace tarvello::agenti
