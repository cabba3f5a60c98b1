#include "src/detail/dettagliagente.h"

#include "src/screen/frmmg_agenti.h"

namespace tarvello::agenti {

DettagliAgente::DettagliAgente(FRMMG_AGENTI& schermata)
    : m_schermata(schermata)
{}

DettagliAgente::~DettagliAgente() = default;

void DettagliAgente::collega() {}

void DettagliAgente::ShowChild() {}

void DettagliAgente::ClearChild() {}

void DettagliAgente::RefreshChild() {}

void DettagliAgente::setSociAggiungibili(bool aggiungibili)
{
    m_sociAggiungibili = aggiungibili;
}

} // namespace tarvello::agenti
