#include "src/screen/ambienteagenti.h"

#include "src/common/richiesto.h"
#include "src/host/cinterface.h"

namespace tarvello::agenti {

host::Cinterface& AmbienteAgenti::modulo() const
{
    return richiesto(m_modulo, "ActiveInterface");
}

host::GlobalContext& AmbienteAgenti::globale() const
{
    return richiesto(modulo().ClsGlobal(), "ClsGlobal");
}

host::Navigator& AmbienteAgenti::navigatore() const
{
    return richiesto(modulo().ActiveNavigator(), "ActiveNavigator");
}

db::Connection& AmbienteAgenti::connessione() const
{
    return richiesto(m_connessione.get(), "Gcon_Connect");
}

} // namespace tarvello::agenti
