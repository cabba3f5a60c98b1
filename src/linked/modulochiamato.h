#pragma once

namespace tarvello::host {
class Cinterface;
class GlobalContext;
} // namespace tarvello::host

namespace tarvello::agenti {

class AmbienteAgenti;

// The host runs another module for the screen: it becomes the host's active and second
// module, marked active and called.
void AffidaModulo(host::GlobalContext& globale, host::Cinterface& chiamato);

// A management left halfway: the screen takes the host back, as the management's closing
// would have done, so the host never keeps a component that is gone as its active module.
void RiprendiHost(const AmbienteAgenti& ambiente);

} // namespace tarvello::agenti
