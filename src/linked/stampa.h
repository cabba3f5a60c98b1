#pragma once

namespace tarvello::controls {
class Field;
}

namespace tarvello::agenti {

class AmbienteAgenti;

// Opens the agents' printouts for the agent whose code TXT_AGENTE shows, as a management of
// the host started from the screen; an error goes back to the caller with the procedure's
// trace.
void InvocaStampa(const AmbienteAgenti& ambiente, const controls::Field& TXT_AGENTE);

} // namespace tarvello::agenti
