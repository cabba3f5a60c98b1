#include "platform/script/agentsmodule.h"

#include "platform/services/moduleregistry.h"
#include "src/screen/clsmg_agenti.h"

namespace tarvello::script {

void registerAgentsModule(services::ModuleRegistry& registry, agenti::AgentiScreenFactory screens)
{
    registry.add(agentsModuleIdentifier(), [screens = std::move(screens)] {
        return std::make_unique<agenti::CLSMG_AGENTI>(screens);
    });
}

} // namespace tarvello::script
