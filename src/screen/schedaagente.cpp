#include "src/screen/schedaagente.h"

#include "src/screen/frmmg_agenti.h"

namespace tarvello::agenti {

SchedaAgente::SchedaAgente(FRMMG_AGENTI& schermata)
    : m_schermata(schermata)
{}

SchedaAgente::~SchedaAgente() = default;

void SchedaAgente::collega() {}

} // namespace tarvello::agenti
