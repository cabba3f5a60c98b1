#pragma once

namespace tarvello::agenti {

class FRMMG_AGENTI;

// Opens the agents' printouts for the agent on view, as a management of the host started
// from the screen; an error goes back to the caller with the procedure's trace.
void InvocaStampa(FRMMG_AGENTI& schermata);

} // namespace tarvello::agenti
