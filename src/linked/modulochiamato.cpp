#include "src/linked/modulochiamato.h"

#include "src/common/errorstyles.h"
#include "src/common/richiesto.h"
#include "src/host/cinterface.h"
#include "src/host/globalcontext.h"
#include "src/screen/ambienteagenti.h"

namespace tarvello::agenti {

void AffidaModulo(host::GlobalContext& globale, host::Cinterface& chiamato)
{
    globale.setActiveModule(&chiamato);
    richiesto(globale.activeModule(), "activeModule").setIsActive(true);
    globale.setSecondModule(&chiamato);
    chiamato.setIsCalled(true);
}

void RiprendiHost(const AmbienteAgenti& ambiente)
{
    ignoreEachStep({
        [&] { ambiente.modulo().setIsActive(true); },
        [&] { ambiente.globale().setActiveModule(ambiente.ActiveInterface()); },
    });
}

} // namespace tarvello::agenti
