#include "src/linked/stampa.h"

#include "src/screen/frmmg_agenti.h"

namespace tarvello::agenti {

void InvocaStampa(FRMMG_AGENTI& /*schermata*/) {}

} // namespace tarvello::agenti
