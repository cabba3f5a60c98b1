#include "src/linked/stampa.h"

#include "platform/controls/field.h"
#include "platform/db/runtimeerror.h"
#include "src/common/errorstyles.h"
#include "src/common/valuehelpers.h"
#include "src/host/cinterface.h"
#include "src/host/globalcontext.h"
#include "src/host/navigator.h"
#include "src/host/stampaagenti.h"
#include "src/linked/modulochiamato.h"
#include "src/screen/ambienteagenti.h"

namespace tarvello::agenti {

namespace {

const QString ModuloStampe = QStringLiteral("Brendolo.CLSMG_STAGENTI");

host::AgentsPrintout& stampaAgenti(host::CalledModule* oggetto)
{
    auto* stampa = dynamic_cast<host::AgentsPrintout*>(oggetto);
    if (!stampa)
        throw db::RuntimeError(db::RuntimeError::TypeMismatch, QStringLiteral("Type mismatch"));
    return *stampa;
}

} // namespace

void InvocaStampa(const AmbienteAgenti& ambiente, const controls::Field& TXT_AGENTE)
{
    passOn(QStringLiteral("InvocaStampa:"), [&] {
        host::GlobalContext& globale = ambiente.globale();
        std::unique_ptr<host::CalledModule> oggetto = globale.createModule(ModuloStampe);
        host::AgentsPrintout& stampa = stampaAgenti(oggetto.get());
        stampa.setCodiceAgente(RTrimN(TXT_AGENTE.text()));
        host::Cinterface* contratto = &stampa.contract();

        ambiente.modulo().setIsActive(false);

        AffidaModulo(globale, *contratto);

        globale.startModule(nullptr, ModuloStampe, host::startModuleArguments());

        globale.setActiveModule(nullptr);
        contratto = nullptr;
        oggetto.reset();

        globale.setActiveModule(ambiente.ActiveInterface());
        ambiente.modulo().setIsActive(true);
        ambiente.navigatore().update();
    });
}

} // namespace tarvello::agenti
